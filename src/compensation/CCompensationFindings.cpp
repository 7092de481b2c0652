#include "CCompensationFindings.h"

#include "ICCompensationFile.h"
#include "NDisplayText.h"
#include "NShortText.h"

#include <cmath>
#include <set>

namespace {

QString shown(const CParamVal& value) {
  return NDisplayText::shown(NShortText::of(value.asStr()));
}

void addNumberProblem(const QString& what, const CParamVal& value, QStringList& problems) {
  double number = 0;
  if (!value.value(number)) {
    problems.append(CCompensationFindings::tr("%1 %2 cannot be read as a number and counts as 0")
                        .arg(what, shown(value)));
  } else if (!std::isfinite(number)) {
    problems.append(CCompensationFindings::tr("%1 %2 is not finite").arg(what, shown(value)));
  }
}

void addMissing(const CCompensationPoint& point, QStringList& problems) {
  const CCompensationPoint::EGaps gaps = point.gaps();
  if (gaps.testFlag(CCompensationPoint::NoPosition))
    problems.append(CCompensationFindings::tr("without a position, which counts as 0"));
  if (!gaps.testFlag(CCompensationPoint::NoAdjustment)) return;
  const bool hasOther = gaps.testFlag(CCompensationPoint::OtherAdjustment);
  problems.append(hasOther ? CCompensationFindings::tr(
                                 "its adjustment is not in the format of the first point and "
                                 "counts as 0")
                           : CCompensationFindings::tr("without an adjustment, which counts as 0"));
}

/// The range of a table. Its texts are read and shortened once, since points may be many.
class CRange {
 public:
  explicit CRange(const ICCompensationFile& table)
      : mMinimum(table.header().minimum().asF64()),
        mMaximum(table.header().maximum().asF64()),
        mMinimumText(shown(table.header().minimum())),
        mMaximumText(shown(table.header().maximum())) {
    addNumberProblem(CCompensationFindings::tr("the minimum"), table.header().minimum(), mProblems);
    addNumberProblem(CCompensationFindings::tr("the maximum"), table.header().maximum(), mProblems);
    mHasNumbers = mProblems.isEmpty();
    if (mHasNumbers && !table.checkHeader()) {
      mProblems.append(CCompensationFindings::tr("the minimum %1 is not below the maximum %2")
                           .arg(mMinimumText, mMaximumText));
    }
  }

  const QStringList& problems() const { return mProblems; }
  bool beginsAt(double position) const { return position == mMinimum; }
  const QString& minimumText() const { return mMinimumText; }

  void addProblems(double position, QStringList& problems) const {
    if (!mHasNumbers) return;
    if (position < mMinimum)
      problems.append(CCompensationFindings::tr("below the minimum %1").arg(mMinimumText));
    if (position > mMaximum)
      problems.append(CCompensationFindings::tr("above the maximum %1").arg(mMaximumText));
  }

 private:
  const double mMinimum;
  const double mMaximum;
  const QString mMinimumText;
  const QString mMaximumText;
  QStringList mProblems;
  bool mHasNumbers = false;
};

/// Where each point lies among those before it.
class COrder {
 public:
  void addProblem(const CCompensationPoint& point, int index, const CRange& range,
                  QStringList& problems) {
    const double here = point.position().asF64();
    if (mHighest >= 0 && here <= mHighestPosition) {
      problems.append(CCompensationFindings::tr("not above the position %1 of point %2")
                          .arg(shown(mHighestText), QString::number(mHighest + 1)));
    } else if (index > 0 && range.beginsAt(here)) {
      problems.append(
          CCompensationFindings::tr("at the minimum %1, where only the first point may be")
              .arg(range.minimumText()));
    }
    if (mHighest < 0 ? std::isnan(here) : !(here > mHighestPosition)) return;
    mHighest = index;
    mHighestPosition = here;
    mHighestText = point.position();
  }

 private:
  int mHighest = -1;  // the point with the highest position so far
  double mHighestPosition = 0;
  CParamVal mHighestText;
};

std::set<int> badIndices(const ICCompensationFile& table) {
  QList<int> bad;
  table.checkAllPoints(&bad);
  return std::set<int>(bad.begin(), bad.end());
}

}  // namespace

CCompensationFindings::CCompensationFindings(const ICCompensationFile& table) {
  const CRange range(table);
  const std::set<int> bad = badIndices(table);
  COrder order;
  mRange = range.problems();
  for (int i = 0; i < table.count(); ++i) {
    const CCompensationPoint point = table.point(i);
    QStringList found;
    addMissing(point, found);
    addNumberProblem(tr("the position"), point.position(), found);
    addNumberProblem(tr("the adjustment"), point.adjustment(), found);
    range.addProblems(point.position().asF64(), found);
    order.addProblem(point, i, range, found);
    if (i >= ICCompensationFile::kMaxPoints)
      found.append(tr("beyond the first %1 points").arg(ICCompensationFile::kMaxPoints));
    if (found.isEmpty() && bad.count(i) > 0)
      found.append(tr("outside the range, which is not valid"));
    if (!found.isEmpty()) mPoints.insert(i, found);
  }
}
