#include "CTableFindings.h"

#include "DisplayText.h"
#include "NShortText.h"
#include "Tool.h"

#include <cmath>
#include <set>

namespace {

QString shown(const CParamVal& value) {
  return DisplayText::shown(NShortText::of(value.asStr()));
}

void addNumberProblem(const QString& what, const CParamVal& value, QStringList& problems) {
  double number = 0;
  if (!value.value(number)) {
    problems.append(
        Tool::tr("%1 %2 cannot be read as a number and counts as 0").arg(what, shown(value)));
  } else if (!std::isfinite(number)) {
    problems.append(Tool::tr("%1 %2 is not finite").arg(what, shown(value)));
  }
}

void addMissing(const CCompensationPoint& point, QStringList& problems) {
  const CCompensationPoint::EGaps gaps = point.gaps();
  if (gaps.testFlag(CCompensationPoint::NoPosition))
    problems.append(Tool::tr("without a position, which counts as 0"));
  if (!gaps.testFlag(CCompensationPoint::NoAdjustment)) return;
  const bool hasOther = gaps.testFlag(CCompensationPoint::OtherAdjustment);
  problems.append(hasOther ? Tool::tr("its adjustment is not in the format of the first point and "
                                      "counts as 0")
                           : Tool::tr("without an adjustment, which counts as 0"));
}

std::set<int> badIndices(const ICCompensationFile& table) {
  QList<int> bad;
  table.checkAllPoints(&bad);
  return std::set<int>(bad.begin(), bad.end());
}

}  // namespace

CTableFindings::CTableFindings(const ICCompensationFile& table)
    : mTable(table),
      mHeader(table.header()),
      mMinimum(mHeader.minimum().asF64()),
      mMaximum(mHeader.maximum().asF64()),
      mMinimumText(shown(mHeader.minimum())),
      mMaximumText(shown(mHeader.maximum())) {
  checkRange();
  const std::set<int> bad = badIndices(table);
  for (int i = 0; i < table.count(); ++i) {
    QStringList found = problems(i);
    if (found.isEmpty() && bad.count(i) > 0)
      found.append(Tool::tr("not in the range, which is none"));
    if (!found.isEmpty()) mPoints.insert(i, found);
    const double here = position(i);
    if (mHighest < 0 ? !std::isnan(here) : here > mHighestPosition) setHighest(i, here);
  }
}

void CTableFindings::setHighest(int index, double position) {
  mHighest = index;
  mHighestPosition = position;
  mHighestText.clear();
}

QString CTableFindings::ofPoint(int index) const {
  return mPoints.value(index).join(QLatin1String("; "));
}

void CTableFindings::checkRange() {
  addNumberProblem(Tool::tr("the minimum"), mHeader.minimum(), mRange);
  addNumberProblem(Tool::tr("the maximum"), mHeader.maximum(), mRange);
  mHasNumbers = mRange.isEmpty();
  if (mHasNumbers && !mTable.checkHeader()) {
    mRange.append(
        Tool::tr("the minimum %1 is not below the maximum %2").arg(mMinimumText, mMaximumText));
  }
}

QStringList CTableFindings::problems(int index) {
  const CCompensationPoint point = mTable.point(index);
  QStringList found;
  addMissing(point, found);
  addNumberProblem(Tool::tr("the position"), point.position(), found);
  addNumberProblem(Tool::tr("the adjustment"), point.adjustment(), found);
  if (mHasNumbers) found += rangeProblems(index);
  const QString order = orderProblem(index);
  if (!order.isEmpty()) found.append(order);
  if (index >= ICCompensationFile::kMaxPoints)
    found.append(Tool::tr("beyond the first %1 points").arg(ICCompensationFile::kMaxPoints));
  return found;
}

QStringList CTableFindings::rangeProblems(int index) const {
  const double here = position(index);
  QStringList found;
  if (here < mMinimum) found.append(Tool::tr("below the minimum %1").arg(mMinimumText));
  if (here > mMaximum) found.append(Tool::tr("above the maximum %1").arg(mMaximumText));
  return found;
}

// Where the point lies among those before it.
QString CTableFindings::orderProblem(int index) {
  const double here = position(index);
  if (mHighest >= 0 && here <= mHighestPosition) {
    if (mHighestText.isNull()) mHighestText = shown(mTable.point(mHighest).position());
    return Tool::tr("not above the position %1 of point %2")
        .arg(mHighestText, QString::number(mHighest + 1));
  }
  if (index > 0 && here == mMinimum)
    return Tool::tr("at the minimum %1, where only the first point may be").arg(mMinimumText);
  return {};
}
