#include "CDefinitionComparison.h"

#include "CAllowedNumbers.h"
#include "CDefinitionPairs.h"
#include "CDefinitionSide.h"
#include "CParamValueText.h"
#include "NBitChange.h"
#include "NChoiceChange.h"
#include "NShortText.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace {

using S = SDefinitionDifference;
using CChange = std::optional<SDefinitionChange>;

QString valueText(const CParamVal& value) {
  return value.isNull() ? QString() : value.asStr();
}

QString idText(quint32 id) {
  return NParamDef::isRealId(id) ? QString::number(id) : QString();
}

bool areEqual(const std::optional<CExactNumber>& a, const std::optional<CExactNumber>& b) {
  return a && b && !(*a < *b) && !(*b < *a);
}

QStringList without(const QStringList& names, const QStringList& others) {
  QStringList rest;
  std::set_difference(names.begin(), names.end(), others.begin(), others.end(),
                      std::back_inserter(rest));
  return rest;
}

/// A definition as both sets have it.
struct SBoth {
  SBoth(const CParamDefItem& oldOne, const CParamDefItem& newOne)
      : oldItem(oldOne), newItem(newOne), oldNumbers(oldOne), newNumbers(newOne) {}

  CParamDefItem oldItem;
  CParamDefItem newItem;
  CAllowedNumbers oldNumbers;
  CAllowedNumbers newNumbers;
};

CChange typeChange(const SBoth& both) {
  const auto oldType = both.oldItem.type();
  const auto newType = both.newItem.type();
  if (oldType == newType) return {};
  SDefinitionChange change;
  change.oldText = both.oldItem.typeStr();
  change.newText = both.newItem.typeStr();
  const bool wasNumber = CExactNumber::isNumberType(oldType);
  if (!wasNumber || !CExactNumber::isNumberType(newType)) {
    change.judge(S::MeaningChanged,
                 CDefinitionComparison::tr("A text and a number are read differently."));
  } else if (CExactNumber::widthOf(oldType) == 0 || CExactNumber::widthOf(newType) == 0) {
    change.judge(S::ValuesMayBreak,
                 CDefinitionComparison::tr("Decimals and \"0x\" are not read by both types."));
  } else if (both.oldNumbers.areAllOf(newType)) {
    change.judge(S::Safe, CDefinitionComparison::tr(
                              "Every allowed value is the same number of the new type."));
  } else {
    change.judge(S::ValuesMayBreak,
                 CDefinitionComparison::tr("Not every allowed value is a number of the new type; "
                                           "unsigned ones take no sign, not even that of \"-0\"."));
  }
  // A negative number of another width sets other bits that have no name.
  const bool showsSign = both.newItem.hasBitset() && !CExactNumber::isUnsigned(oldType);
  if (showsSign)
    change.judge(S::ValuesMayBreak, CDefinitionComparison::tr("Negative values set other bits."));
  return change;
}

CChange minimumChange(const SBoth& both) {
  const auto& oldOne = both.oldNumbers.minimum();
  const auto& newOne = both.newNumbers.minimum();
  const QString oldText = valueText(both.oldItem.minVal());
  const QString newText = valueText(both.newItem.minVal());
  if (areEqual(oldOne, newOne) || (!oldOne && !newOne && oldText == newText)) return {};
  if (newOne && !both.oldNumbers.areAllFrom(*newOne)) {
    return SDefinitionChange{
        S::ValuesMayBreak, oldText, newText,
        CDefinitionComparison::tr("Values below %1 are no longer allowed.").arg(newText)};
  }
  return SDefinitionChange{S::Safe, oldText, newText,
                           CDefinitionComparison::tr("It allows every value that was allowed.")};
}

CChange maximumChange(const SBoth& both) {
  const auto& oldOne = both.oldNumbers.maximum();
  const auto& newOne = both.newNumbers.maximum();
  const QString oldText = valueText(both.oldItem.maxVal());
  const QString newText = valueText(both.newItem.maxVal());
  if (areEqual(oldOne, newOne) || (!oldOne && !newOne && oldText == newText)) return {};
  if (newOne && !both.oldNumbers.areAllUpTo(*newOne)) {
    return SDefinitionChange{
        S::ValuesMayBreak, oldText, newText,
        CDefinitionComparison::tr("Values above %1 are no longer allowed.").arg(newText)};
  }
  return SDefinitionChange{S::Safe, oldText, newText,
                           CDefinitionComparison::tr("It allows every value that was allowed.")};
}

CChange hintChange(const SBoth& both) {
  const QString oldText = both.oldItem.hint();
  const QString newText = both.newItem.hint();
  if (oldText == newText) return {};
  return SDefinitionChange{S::Safe, oldText, newText,
                           CDefinitionComparison::tr("It only informs.")};
}

class CComparison {
 public:
  CComparison(const ICParameterFile& oldFile, const ICParameterFile& newFile)
      : mOld(oldFile), mNew(newFile), mPairs(mOld.lookup(), mNew.lookup()) {}

  CDefinitionDifferences run() {
    for (const CDefinitionPairs::SPair& pair : mPairs.all()) {
      mPair = pair;
      if (pair.oldName.isNull())
        add(S::Added, SDefinitionChange{
                          S::Safe, {}, {}, CDefinitionComparison::tr("No value was made for it.")});
      else if (pair.newName.isNull())
        add(S::Removed,
            SDefinitionChange{S::ValuesMayBreak,
                              {},
                              {},
                              CDefinitionComparison::tr("Its values are no longer defined.")});
      else
        compare(SBoth(mOld.lookup().find(pair.oldName), mNew.lookup().find(pair.newName)));
    }
    return mFound;
  }

 private:
  void compare(const SBoth& both) {
    using A = CAllowedNumbers;
    add(S::Name, nameChange());
    add(S::Id, idChange(both));
    add(S::Type, typeChange(both));
    add(S::Unit, unitChange(both));
    add(S::Default, defaultChange(both));
    add(S::Minimum, minimumChange(both));
    add(S::Maximum, maximumChange(both));
    add(S::MinimumParameters, limitChange(both, both.oldItem.minIds(), both.newItem.minIds()));
    add(S::MaximumParameters, limitChange(both, both.oldItem.maxIds(), both.newItem.maxIds()));
    add(S::Choices, NChoiceChange::of(both.oldNumbers, both.newNumbers, A::Enumeration));
    add(S::RadioButtons, NChoiceChange::of(both.oldNumbers, both.newNumbers, A::RadioButtons));
    add(S::CheckBox, NChoiceChange::of(both.oldNumbers, both.newNumbers, A::States));
    add(S::Bits, NBitChange::of(both.oldItem, both.newItem));
    add(S::Visibility, visibilityChange(both));
    add(S::Hint, hintChange(both));
  }

  void add(S::EWhat what, const CChange& change) {
    if (!change) return;
    S difference;
    difference.what = what;
    difference.effect = change->effect;
    difference.name = mPair.name();
    difference.oldName = mPair.oldName;
    difference.oldText = change->oldText;
    difference.newText = change->newText;
    difference.reason = change->reason;
    mFound.append(difference);
  }

  CChange nameChange() const {
    if (mPair.oldName == mPair.newName) return {};
    return SDefinitionChange{S::ValuesMayBreak, mPair.oldName, mPair.newName,
                             CDefinitionComparison::tr("Values are found by their names.")};
  }

  /// Who goes by ids would take one parameter for the other when an id has another name now.
  CChange idChange(const SBoth& both) {
    const QString oldText = idText(both.oldItem.id());
    const QString newText = idText(both.newItem.id());
    if (oldText == newText) return {};
    SDefinitionChange change{S::Safe, oldText, newText, {}};
    change.judge(S::ValuesMayBreak,
                 CDefinitionComparison::tr("Values keep the old id until they are migrated."));
    const QString before = mOld.lookup().nameOf(both.newItem.id());
    const QString after = mNew.lookup().nameOf(both.oldItem.id());
    if (!before.isEmpty()) {
      change.judge(S::MeaningChanged, CDefinitionComparison::tr("The id %1 was that of \"%2\".")
                                          .arg(newText, NShortText::of(before)));
    } else if (!after.isEmpty()) {
      change.judge(S::MeaningChanged, CDefinitionComparison::tr("The id %1 is that of \"%2\" now.")
                                          .arg(oldText, NShortText::of(after)));
    }
    return change;
  }

  /// A reference of the old set under the name that it has in the new one.
  QString renamed(const QString& oldName) const {
    const QString newName = mPairs.newNameOf(oldName);
    return newName.isNull() ? oldName : newName;
  }

  CChange unitChange(const SBoth& both) {
    const CDefinitionSide::SUnit oldUnit = mOld.unitOf(both.oldItem);
    const CDefinitionSide::SUnit newUnit = mNew.unitOf(both.newItem);
    const bool isParameter = !oldUnit.parameter.isNull();
    if ((isParameter ? CDefinitionSide::SUnit{renamed(oldUnit.parameter), {}} : oldUnit) == newUnit)
      return {};
    return SDefinitionChange{S::MeaningChanged, oldUnit.text(), newUnit.text(),
                             CDefinitionComparison::tr("The same number is another quantity.")};
  }

  CChange defaultChange(const SBoth& both) {
    const CParamVal oldValue = both.oldItem.defVal();
    const CParamVal newValue = both.newItem.defVal();
    if (oldValue == newValue) return {};
    SDefinitionChange change{S::Safe, valueText(oldValue), valueText(newValue), {}};
    const bool isUnit = mOld.isUnit(both.oldItem.id()) || mNew.isUnit(both.newItem.id());
    if (isUnit && CParamValueText::choiceName(both.oldItem, oldValue) !=
                      CParamValueText::choiceName(both.newItem, newValue)) {
      change.judge(
          S::MeaningChanged,
          CDefinitionComparison::tr("It is the unit of others in files that do not have it."));
    }
    change.judge(S::Safe, CDefinitionComparison::tr("Values stay as they are."));
    return change;
  }

  CChange limitChange(const SBoth& both, const QList<quint32>& oldIds,
                      const QList<quint32>& newIds) {
    const QStringList oldNames = mOld.limitNames(oldIds);
    const QStringList newNames = mNew.limitNames(newIds);
    QStringList stayed;
    for (const QString& name : oldNames) stayed.append(renamed(name));
    stayed.sort();
    const QStringList added = without(newNames, stayed);
    if (added.isEmpty() && without(stayed, newNames).isEmpty()) return {};
    SDefinitionChange change{
        S::Safe, SDefinitionChange::listed(oldNames), SDefinitionChange::listed(newNames), {}};
    if (!added.isEmpty() && !both.oldNumbers.isClosed()) {
      change.judge(S::ValuesMayBreak,
                   CDefinitionComparison::tr("The value of \"%1\" is a limit, too, now.")
                       .arg(NShortText::of(added.first())));
    }
    change.judge(S::Safe, CDefinitionComparison::tr("It allows every value that was allowed."));
    return change;
  }

  CChange visibilityChange(const SBoth& both) {
    const auto describe = [](const QString& name, const CParamDefItem& item) {
      QList<qint64> values = item.visibleVals();
      std::sort(values.begin(), values.end());
      QStringList texts;
      for (const qint64 value : values) texts.append(QString::number(value));
      texts.removeDuplicates();
      return std::pair(name, texts);
    };
    const QString oldName = mOld.visibleName(both.oldItem);
    const auto oldOne = describe(oldName, both.oldItem);
    const auto newOne = describe(mNew.visibleName(both.newItem), both.newItem);
    if (std::pair(oldName.isNull() ? oldName : renamed(oldName), oldOne.second) == newOne)
      return {};
    const auto text = [](const auto& one) {
      return one.first.isNull()
                 ? QString()
                 : QStringLiteral("%1: %2").arg(one.first, SDefinitionChange::listed(one.second));
    };
    return SDefinitionChange{S::Safe, text(oldOne), text(newOne),
                             CDefinitionComparison::tr("It only decides what is shown.")};
  }

  CDefinitionSide mOld;
  CDefinitionSide mNew;
  const CDefinitionPairs mPairs;
  CDefinitionPairs::SPair mPair;  // that is compared
  CDefinitionDifferences mFound;
};

}  // namespace

CDefinitionDifferences CDefinitionComparison::compare(const ICParameterFile& oldDefinitions,
                                                      const ICParameterFile& newDefinitions) {
  return CComparison(oldDefinitions, newDefinitions).run();
}
