#pragma once

#include "SCommand.h"
#include "Tool.h"

#include <QLatin1String>

/// Options that several commands have, each with one name and one meaning.
namespace NOptions {

inline const QLatin1String kJson("json");
inline const QLatin1String kDef("def");
inline const QLatin1String kNoDef("no-def");
inline const QLatin1String kHardwareId("hardware-id");
inline const QLatin1String kSubDevice("sub-device");
inline const QLatin1String kDryRun("dry-run");
inline const QLatin1String kOutput("output");
inline const QLatin1String kNoWait("no-wait");

inline SOption json() {
  return {kJson, {}, Tool::tr("Print one JSON object; values are texts in it, never numbers.")};
}
inline SOption def(const QString& help) {
  return {kDef, "DEF", help, EWord::File, "d"};
}
/// A command that has this looks for a definition file where none is named.
inline SOption noDef() {
  return {kNoDef, {}, Tool::tr("Do without definitions, also where a definition file is found.")};
}
inline SOption required(SOption option) {
  option.isRequired = true;
  return option;
}
inline SOption hardwareId(const QString& help = Tool::tr("Only this hardware id.")) {
  return {kHardwareId, "ID", help, EWord::HardwareId, "H"};
}
inline SOption oneHardwareId() {
  return hardwareId(Tool::tr("The hardware id; needed when the file has several."));
}
inline SOption subDevice(const QString& help = Tool::tr("Only this sub-device, 0 to 255.")) {
  return {kSubDevice, "N", help, EWord::SubDevice, "s"};
}
inline SOption choice(QLatin1String name, const QStringList& choices, const QString& help) {
  SOption option{name, "FORMAT", help};
  option.choices = choices;
  return option;
}
inline SOption dryRun() {
  return {kDryRun, {}, Tool::tr("Show what would be done, and leave the file as it is.")};
}
inline SOption noWait() {
  return {kNoWait,
          {},
          Tool::tr("Give up at once, and not after ten seconds, while another program changes a "
                   "file in the folder.")};
}
inline SOption output(const QString& help) {
  return {kOutput, "OUT", help, EWord::File, "o"};
}
inline SArgument parameters(SArgument::ECount count = SArgument::AnyNumber) {
  return {"NAME",
          Tool::tr("Names of parameters, patterns with \"*\" and \"?\", groups (Motion/Limits), or "
                   "addresses as text prints them (KTO-2A-16[2]/Motion/Limits/VelocityLimit). Put "
                   "patterns in quotes, or the shell looks for files."),
          EWord::Parameter, count};
}
inline SArgument valueFile() {
  return {"FILE", Tool::tr("A value file."), EWord::File};
}

}  // namespace NOptions
