#include "CAssignments.h"

#include "CLoadedFile.h"
#include "COutput.h"
#include "CParamValueText.h"
#include "NDisplayText.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"
#include "Tool.h"

#include <algorithm>
#include <set>

namespace {

/// For the first of the bits that is none of them.
QString bitHelp(const QList<NParamDef::SBitValue>& bits, const QString& text) {
  QStringList names;
  for (const NParamDef::SBitValue& bit : bits) names.append(bit.name);
  const std::set<QString> known(names.cbegin(), names.cend());
  for (const QString& piece : text.split(QLatin1Char('|'))) {
    const QString name = piece.trimmed();
    if (known.count(name) > 0) continue;
    return NSuggestion::didYouMean(name, names) +
           Tool::tr(" Its bits are: %1.").arg(NSuggestion::listed(names));
  }
  return {};
}

}  // namespace

CAssignments::CAssignments(CLoadedFile& loaded, const QVector<SAssignment>& assignments,
                           COutput& out)
    : mLoaded(loaded), mFile(loaded.file()), mOut(out), mAssignments(assignments) {
  for (SAssignment& each : mAssignments)
    if (each.hardwareId.isEmpty()) each.hardwareId = mFile.hardwareId();
}

bool CAssignments::check() {
  const QString active = mFile.hardwareId();
  bool isGood = true;
  for (int i = 0; i < mAssignments.size(); ++i) {
    SAssignment& each = mAssignments[i];
    const bool isThere = select(each) ? locate(each) : refuseHardwareId(each);
    if (!isThere || !convert(each) || !note(i)) isGood = false;
  }
  // Limits may be set by the same command, so they are looked at when all values are known.
  for (const SAssignment& each : qAsConst(mAssignments))
    if (!judge(each)) isGood = false;
  mFile.selectHardwareId(active);
  return isGood;
}

bool CAssignments::hasChanges() const {
  return std::any_of(mAssignments.cbegin(), mAssignments.cend(),
                     [](const SAssignment& each) { return each.isChange; });
}

void CAssignments::make() {
  const QString active = mFile.hardwareId();
  for (const SAssignment& each : qAsConst(mAssignments))
    if (each.isChange && select(each)) mFile.setParamValue(each.name, each.newValue, each.subDevId);
  mFile.selectHardwareId(active);
}

// --- What is refused

bool CAssignments::refuse(const SAssignment& assignment, const QString& problem) const {
  const QString text = QStringLiteral("%1: %2").arg(NDisplayText::shown(assignment.name), problem);
  if (assignment.isRow())
    mOut.message(assignment.file, text, assignment.line);
  else
    mLoaded.message(text);
  return false;
}

/// Looking for what was meant takes time: not for each of many thousand rows.
bool CAssignments::mayHelp() {
  return mHelped++ < NSuggestion::kMaxHelped;
}

/// Refuses what the definitions do not allow, or warns when nobody named them.
bool CAssignments::object(const SAssignment& assignment, const QString& problem) const {
  if (!mLoaded.areDefinitionsFound()) return refuse(assignment, problem);
  refuse(assignment, Tool::tr("warning: %1").arg(problem));
  return true;
}

bool CAssignments::refuseUnknown(const SAssignment& assignment) {
  QString suggestion;
  if (mayHelp()) {
    QStringList& known = mKnownNames[assignment.hardwareId];
    if (known.isEmpty()) known = NParameterLookup::allNames(mFile);
    suggestion = NParameterLookup::didYouMean(assignment.name, known);
  }
  return refuse(assignment, Tool::tr("there is no such parameter.%1").arg(suggestion));
}

bool CAssignments::refuseHardwareId(const SAssignment& assignment) {
  const QString problem = Tool::tr("there is no hardware id \"%1\".").arg(assignment.hardwareId);
  if (!mayHelp()) return refuse(assignment, problem);
  const QStringList known = mFile.hardwareIds();
  return refuse(assignment,
                problem + Tool::tr(" The file has: %1.").arg(NSuggestion::listed(known)));
}

/// What could have been typed instead of a choice or bits.
QString CAssignments::choiceHelp(const SAssignment& assignment) {
  if (!mayHelp()) return {};
  const CParamDefItem definition = mFile.paramDef(assignment.name);
  if (definition.hasBitset()) return bitHelp(definition.bitset(), assignment.text);
  QStringList names;
  QStringList choices;
  for (const auto& each : CParamValueText::choices(definition, CParamValueText::English)) {
    names.append(each.name);
    choices.append(QStringLiteral("%1 (%2)").arg(QString::number(each.value), each.name));
  }
  if (names.contains(assignment.text)) return {};
  const QString suggestion = NSuggestion::didYouMean(assignment.text, names);
  if (rulesOf(definition).allowsOtherValues()) return suggestion;
  return suggestion + Tool::tr(" They are: %1.").arg(NSuggestion::listed(choices));
}

// --- One assignment

bool CAssignments::select(const SAssignment& assignment) {
  return assignment.hardwareId == mFile.hardwareId() ||
         mFile.selectHardwareId(assignment.hardwareId);
}

bool CAssignments::locate(SAssignment& assignment) {
  const std::optional<quint8> wanted =
      assignment.address ? assignment.address->subDevId : assignment.wantedSubDevice;
  if (wanted) {
    assignment.subDevId = *wanted;
    assignment.oldValue = mFile.paramValue(assignment.name, *wanted);
    if (!assignment.oldValue.isNull()) return isInGroups(assignment);
  }
  const QList<quint8> found = NParameterLookup::subDevicesWith(mFile, assignment.name);
  const QString listed = NParameterLookup::listed(found);
  if (found.isEmpty()) return refuseUnknown(assignment);
  if (wanted) {
    return refuse(
        assignment,
        Tool::tr("not in sub-device %1, but in %2.").arg(QString::number(*wanted), listed));
  }
  if (found.size() > 1) {
    const QString text =
        assignment.isRow()
            ? Tool::tr("in the sub-devices %1; the column subDevice has to tell which.")
            : Tool::tr("in the sub-devices %1; choose one with --sub-device.");
    return refuse(assignment, text.arg(listed));
  }
  assignment.subDevId = found.first();
  assignment.oldValue = mFile.paramValue(assignment.name, assignment.subDevId);
  return true;
}

bool CAssignments::isInGroups(const SAssignment& assignment) const {
  if (!assignment.address) return true;
  const quint8 id = assignment.subDevId;
  const QStringList groups =
      SAddress::groupsOf(*mFile.findParameter(mFile.rootGroup(id), assignment.name));
  if (groups == assignment.address->groups) return true;
  const SAddress address{assignment.hardwareId, id, groups, assignment.name};
  return refuse(assignment,
                Tool::tr("not in that group; its address is %1.").arg(address.toText()));
}

bool CAssignments::convert(SAssignment& assignment) {
  CParamVal value = assignment.text;
  if (assignment.isRow() && value == assignment.oldValue) {
    assignment.newValue = value;
    return true;
  }
  const CParamDefItem definition = mFile.paramDef(assignment.name);
  if (mLoaded.hasDefinitions() && !readAsDefined(assignment, definition, value)) return false;
  assignment.newValue = value;
  assignment.isChange = !CParamValueRules::mayStay(assignment.oldValue, value, definition);
  return true;
}

bool CAssignments::readAsDefined(SAssignment& assignment, const CParamDefItem& definition,
                                 CParamVal& value) {
  if (definition.name().isEmpty()) {
    return object(assignment,
                  mLoaded.areDefinitionsFound()
                      ? Tool::tr("not defined in the definition file.")
                      : Tool::tr("not defined in the definition file; without --def its value is "
                                 "set unchecked."));
  }
  CParamVal read;
  QString problem;
  if (!rulesOf(definition).read(assignment.text, read, problem)) {
    assignment.isJudged = true;
    return object(assignment, problem + choiceHelp(assignment));
  }
  if (!mLoaded.areDefinitionsFound()) {
    value = read;
  } else if (!CParamValueRules::areEqual(value, read, definition)) {
    assignment.isJudged = true;
    object(assignment, Tool::tr("stored as it is typed; with --def it would be %1.")
                           .arg(NDisplayText::shown(read.asStr())));
  }
  return true;
}

/// Notes whose value is known now, to be found by its parameter.
bool CAssignments::note(int place) {
  SAssignment& assignment = mAssignments[place];
  CPlaces& places = mPlaces[assignment.hardwareId];
  const QPair<quint8, QString> key(assignment.subDevId, assignment.name);
  const auto known = places.constFind(key);
  if (known == places.cend()) {
    places.insert(key, place);
    return true;
  }
  assignment.isChange = false;
  const SAssignment& first = mAssignments.at(*known);
  if (first.newValue == assignment.newValue) return true;
  const QString value = NDisplayText::shown(first.text);
  return refuse(assignment, first.isRow() ? Tool::tr("line %1 has another value for it: %2.")
                                                .arg(QString::number(first.line), value)
                                          : Tool::tr("it is set twice, also to %1.").arg(value));
}

const CParamValueRules& CAssignments::rulesOf(const CParamDefItem& definition) {
  const auto known = mRules.find(definition.name());
  if (known != mRules.end()) return known->second;
  return mRules.emplace(definition.name(), CParamValueRules(definition, mFile)).first->second;
}

bool CAssignments::judge(const SAssignment& assignment) {
  const auto rules = mRules.find(assignment.name);
  const bool isSame = assignment.isRow() && !assignment.isChange;
  if (rules == mRules.end() || isSame || assignment.isJudged || assignment.newValue.isNull())
    return true;
  select(assignment);
  const CPlaces& places = mPlaces[assignment.hardwareId];
  const auto valueOf = [&](const QString& name) {
    const auto place = places.constFind({assignment.subDevId, name});
    return place != places.cend() ? mAssignments.at(*place).newValue
                                  : mFile.paramValue(name, assignment.subDevId);
  };
  bool isGood = true;
  for (const auto& violation : rules->second.violations(assignment.newValue, valueOf)) {
    const bool isChoice = violation.kind == CParamValueRules::NotAChoice;
    const QString help = isChoice ? choiceHelp(assignment) : QString();
    if (violation.isWarning())
      refuse(assignment, Tool::tr("warning: %1").arg(violation.text));
    else if (!object(assignment, violation.text + help))
      isGood = false;
  }
  return isGood;
}
