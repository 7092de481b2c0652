#include "CAssignments.h"

#include "CLoadedFile.h"
#include "CParamValueText.h"
#include "NDisplayText.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"
#include "Tool.h"

#include <algorithm>

namespace {

/// What could have been typed instead.
QString choiceHelp(const CParamDefItem& definition, const CParamValueRules& rules,
                   const QString& text) {
  QStringList names;
  QStringList choices;
  for (const auto& each : CParamValueText::choices(definition, CParamValueText::English)) {
    names.append(each.name);
    choices.append(QStringLiteral("%1 (%2)").arg(QString::number(each.value), each.name));
  }
  if (names.contains(text)) return {};
  const QString suggestion = NSuggestion::didYouMean(text, names);
  if (rules.allowsOtherValues()) return suggestion;
  return suggestion + Tool::tr(" They are: %1.").arg(NSuggestion::listed(choices));
}

}  // namespace

CAssignments::CAssignments(CLoadedFile& loaded, const QVector<SAssignment>& assignments)
    : mLoaded(loaded), mFile(loaded.file()), mAssignments(assignments) {}

bool CAssignments::check(std::optional<quint8> subDevice) {
  bool isGood = true;
  for (SAssignment& each : mAssignments)
    if (!locate(each, subDevice) || !convert(each)) isGood = false;
  // Limits may be set by the same command, so they are looked at when all values are known.
  for (const SAssignment& each : qAsConst(mAssignments))
    if (each.rules && !judge(each)) isGood = false;
  return isGood;
}

bool CAssignments::hasChanges() const {
  return std::any_of(
      mAssignments.cbegin(), mAssignments.cend(),
      [](const SAssignment& each) { return each.isChange; });
}

void CAssignments::make() {
  for (const SAssignment& each : qAsConst(mAssignments))
    if (each.isChange) mFile.setParamValue(each.name, each.newValue, each.subDevId);
}

bool CAssignments::refuse(const SAssignment& assignment, const QString& problem) const {
  mLoaded.message(QStringLiteral("%1: %2").arg(NDisplayText::shown(assignment.name), problem));
  return false;
}

bool CAssignments::refuseUnknown(const SAssignment& assignment) {
  if (mKnownNames.isEmpty()) mKnownNames = NParameterLookup::allNames(mFile);
  const bool isHelped = mUnknown++ < NSuggestion::kMaxHelped;
  const QString suggestion =
      isHelped ? NParameterLookup::didYouMean(assignment.name, mKnownNames) : QString();
  return refuse(assignment, Tool::tr("there is no such parameter.%1").arg(suggestion));
}

bool CAssignments::locate(SAssignment& assignment, std::optional<quint8> subDevice) {
  const QList<quint8> found = NParameterLookup::subDevicesWith(mFile, assignment.name);
  if (found.isEmpty()) return refuseUnknown(assignment);
  if (subDevice && !found.contains(*subDevice)) {
    return refuse(assignment,
                  Tool::tr("not in sub-device %1, but in %2.")
                      .arg(QString::number(*subDevice), NParameterLookup::listed(found)));
  }
  if (!subDevice && found.size() > 1) {
    return refuse(assignment, Tool::tr("in the sub-devices %1; choose one with --sub-device.")
                                  .arg(NParameterLookup::listed(found)));
  }
  assignment.subDevId = subDevice.value_or(found.first());
  assignment.oldValue = mFile.paramValue(assignment.name, assignment.subDevId);
  return true;
}

bool CAssignments::convert(SAssignment& assignment) {
  const CParamDefItem definition = mFile.paramDef(assignment.name);
  assignment.newValue = assignment.text;
  if (mLoaded.hasDefinitions()) {
    if (definition.name().isEmpty()) {
      return refuse(assignment, Tool::tr("not defined in the definition file; without --def its "
                                         "value is set unchecked."));
    }
    const CParamValueRules rules(definition, mFile);
    QString problem;
    if (!rules.read(assignment.text, assignment.newValue, problem))
      return refuse(assignment, problem + choiceHelp(definition, rules, assignment.text));
    assignment.rules = rules;
  }
  assignment.isChange =
      !CParamValueRules::mayStay(assignment.oldValue, assignment.newValue, definition);
  mNewValues.insert({assignment.subDevId, assignment.name}, assignment.newValue);
  return true;
}

bool CAssignments::judge(const SAssignment& assignment) const {
  const auto valueOf = [&](const QString& name) {
    const auto newValue = mNewValues.constFind({assignment.subDevId, name});
    return newValue != mNewValues.cend() ? *newValue : mFile.paramValue(name, assignment.subDevId);
  };
  bool isGood = true;
  for (const auto& violation : assignment.rules->violations(assignment.newValue, valueOf)) {
    const bool isChoice = violation.kind == CParamValueRules::NotAChoice;
    const QString help =
        isChoice ? choiceHelp(mFile.paramDef(assignment.name), *assignment.rules, assignment.text)
                 : QString();
    if (violation.isWarning())
      refuse(assignment, Tool::tr("warning: %1").arg(violation.text));
    else
      isGood = refuse(assignment, violation.text + help);
  }
  return isGood;
}
