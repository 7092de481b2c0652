#include "NChoiceChange.h"

#include "CDefinitionComparison.h"
#include "NShortText.h"

namespace {

using S = SDefinitionDifference;
using CNames = std::map<qint64, QString>;

/// The choices that the other list does not have under the same number and name.
QStringList onlyIn(const CNames& names, const CNames& others) {
  QStringList texts;
  for (const auto& [number, name] : names) {
    const auto other = others.find(number);
    if (other == others.end() || other->second != name)
      texts.append(QStringLiteral("%1 %2").arg(QString::number(number), NShortText::of(name)));
  }
  return texts;
}

void judgeNumber(qint64 number, const CNames& oldNames, const CNames& newNames,
                 SDefinitionChange& change) {
  const auto oldName = oldNames.find(number);
  if (oldName == oldNames.end()) return;
  const auto newName = newNames.find(number);
  const bool hasLostName =
      newName == newNames.end() || (newName->second.isEmpty() && !oldName->second.isEmpty());
  if (hasLostName) {
    change.judge(
        S::ValuesMayBreak,
        CDefinitionComparison::tr("%1 is no longer a choice.").arg(QString::number(number)));
  } else if (!oldName->second.isEmpty() && newName->second != oldName->second) {
    change.judge(S::MeaningChanged,
                 CDefinitionComparison::tr("%1 was \"%2\" and is \"%3\".")
                     .arg(QString::number(number), NShortText::of(oldName->second),
                          NShortText::of(newName->second)));
  }
}

void judgeName(const QString& name, const SChoiceNames& oldOnes, const SChoiceNames& newOnes,
               SDefinitionChange& change) {
  const auto oldNumber = oldOnes.numbers.find(name);
  const auto newNumber = newOnes.numbers.find(name);
  if (oldNumber == oldOnes.numbers.end() || newNumber == newOnes.numbers.end() ||
      oldNumber->second == newNumber->second) {
    return;
  }
  change.judge(S::MeaningChanged, CDefinitionComparison::tr("\"%1\" was %2 and is %3.")
                                      .arg(NShortText::of(name), QString::number(oldNumber->second),
                                           QString::number(newNumber->second)));
}

/// Names of one list stand before those of another one, so all lists decide what a number is
/// called.
void judgeNames(const CAllowedNumbers& oldOne, const CAllowedNumbers& newOne,
                CAllowedNumbers::EList list, SDefinitionChange& change) {
  for (const SChoiceNames* each : {&oldOne.list(list), &newOne.list(list)}) {
    for (const auto& [name, number] : each->numbers)
      judgeName(name, oldOne.all(), newOne.all(), change);
    for (const auto& [number, name] : each->names)
      judgeNumber(number, oldOne.all().names, newOne.all().names, change);
  }
}

}  // namespace

std::optional<SDefinitionChange> NChoiceChange::of(const CAllowedNumbers& oldOne,
                                                   const CAllowedNumbers& newOne,
                                                   CAllowedNumbers::EList list) {
  const SChoiceNames& oldList = oldOne.list(list);
  const SChoiceNames& newList = newOne.list(list);
  const bool wasOpen = !oldList.isEmpty() && !oldOne.isClosed(list);
  const bool isOpen = !newList.isEmpty() && !newOne.isClosed(list);
  if (oldList == newList && wasOpen == isOpen) return {};
  QStringList oldTexts = onlyIn(oldList.names, newList.names);
  QStringList newTexts = onlyIn(newList.names, oldList.names);
  if (wasOpen && !isOpen) oldTexts.append(CDefinitionComparison::tr("other values"));
  if (isOpen && !wasOpen) newTexts.append(CDefinitionComparison::tr("other values"));
  SDefinitionChange change;
  change.oldText = SDefinitionChange::listed(oldTexts);
  change.newText = SDefinitionChange::listed(newTexts);
  judgeNames(oldOne, newOne, list, change);
  if (newOne.isClosed(list) && !oldOne.areAllIn(newList))
    change.judge(S::ValuesMayBreak, CDefinitionComparison::tr("Only the choices are allowed now."));
  change.judge(S::Safe, CDefinitionComparison::tr("Every choice is still there."));
  return change;
}
