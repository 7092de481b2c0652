#include "CAssignments.h"

#include "CLoadedFile.h"
#include "CParameterFileHelper.h"
#include "DisplayText.h"
#include "ParameterLookup.h"
#include "Suggestion.h"
#include "Tool.h"

#include <algorithm>

namespace {

// An unsigned value that is no number compares as 0, but setting it to 0 is a change.
bool isSame(const CParamVal& oldValue, const CParamVal& newValue, const CParamDefItem& definition) {
  unsigned long long number = 0;
  return CParameterFileHelper::compareValues(oldValue, newValue, definition) &&
         (oldValue == newValue || oldValue.value(number));
}

}  // namespace

CAssignments::CAssignments(CLoadedFile& loaded, const QVector<SAssignment>& assignments)
    : mLoaded(loaded), mFile(loaded.file()), mAssignments(assignments) {}

bool CAssignments::check(std::optional<quint8> subDevice) {
  bool isGood = true;
  for (SAssignment& each : mAssignments) {
    if (!locate(each, subDevice) || !convert(each)) isGood = false;
  }
  // Limits may be set by the same command, so they are looked at when all values are known.
  for (const SAssignment& each : qAsConst(mAssignments)) {
    if (each.isReadable && !checkRange(each)) isGood = false;
  }
  return isGood;
}

bool CAssignments::hasChanges() const {
  return std::any_of(mAssignments.cbegin(), mAssignments.cend(),
                     [](const SAssignment& each) { return each.isChange; });
}

void CAssignments::make() {
  for (const SAssignment& each : qAsConst(mAssignments)) {
    if (each.isChange) mFile.setParamValue(each.name, each.newValue, each.subDevId);
  }
}

bool CAssignments::refuse(const SAssignment& assignment, const QString& problem) const {
  mLoaded.message(QStringLiteral("%1: %2").arg(DisplayText::shown(assignment.name), problem));
  return false;
}

bool CAssignments::refuseUnknown(const SAssignment& assignment) {
  if (mKnownNames.isEmpty()) mKnownNames = ParameterLookup::allNames(mFile);
  const bool isHelped = mUnknown++ < Suggestion::kMaxHelped;
  const QString suggestion =
      isHelped ? ParameterLookup::didYouMean(assignment.name, mKnownNames) : QString();
  return refuse(assignment, Tool::tr("there is no such parameter.%1").arg(suggestion));
}

bool CAssignments::locate(SAssignment& assignment, std::optional<quint8> subDevice) {
  const QList<quint8> found = ParameterLookup::subDevicesWith(mFile, assignment.name);
  if (found.isEmpty()) return refuseUnknown(assignment);
  if (subDevice && !found.contains(*subDevice)) {
    return refuse(assignment,
                  Tool::tr("not in sub-device %1, but in %2.")
                      .arg(QString::number(*subDevice), ParameterLookup::listed(found)));
  }
  if (!subDevice && found.size() > 1) {
    return refuse(assignment, Tool::tr("in the sub-devices %1; choose one with --sub-device.")
                                  .arg(ParameterLookup::listed(found)));
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
    const QString problem = ValueInput::valueOf(definition, assignment.text, assignment.newValue);
    if (!problem.isEmpty()) return refuse(assignment, problem);
  }
  assignment.isReadable = true;
  assignment.isChange = !isSame(assignment.oldValue, assignment.newValue, definition);
  mNewValues.insert({assignment.subDevId, assignment.name}, assignment.newValue);
  return true;
}

bool CAssignments::checkRange(const SAssignment& assignment) const {
  const CParamDefItem definition = mFile.paramDef(assignment.name);
  if (!ValueInput::isNumber(definition.type())) return true;
  const QString problem = ValueInput::rangeProblem(
      assignment.newValue, limits(definition.minVal(), definition.minIds(), assignment.subDevId),
      limits(definition.maxVal(), definition.maxIds(), assignment.subDevId));
  return problem.isEmpty() || refuse(assignment, problem);
}

QList<ValueInput::SLimit> CAssignments::limits(const CParamVal& own, const QList<unsigned int>& ids,
                                               quint8 subDevId) const {
  QList<ValueInput::SLimit> found{{own, {}}};
  for (const unsigned int id : ids) {
    const QString name = mFile.nameById(id);
    const CParamVal current = mFile.paramValue(name, subDevId);
    found.append({mNewValues.value({subDevId, name}, current), name});
  }
  return found;
}
