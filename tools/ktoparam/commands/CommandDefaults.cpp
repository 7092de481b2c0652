#include "CNamePattern.h"
#include "CParamValueRules.h"
#include "CValueEdit.h"
#include "Command.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"

namespace {

struct SNamePattern {
  CNamePattern pattern;
  bool isUsed = false;  ///< a name matched
};

/// Without a pattern, every name matches.
bool matchesAny(QVector<SNamePattern>& patterns, const QString& name) {
  bool found = patterns.isEmpty();
  for (SNamePattern& each : patterns) {
    if (!each.pattern.matches(name)) continue;
    each.isUsed = true;
    found = true;
  }
  return found;
}

/// Sets what matches to its default.
SEditCounts setDefaults(const CLoadedFile& loaded, QVector<SNamePattern>& patterns) {
  ICParameterFile& file = loaded.file();
  SEditCounts counts;
  for (const quint8 id : loaded.chosenSubDevices()) {
    for (const QString& name : file.paramNames(id)) {
      if (!matchesAny(patterns, name)) continue;
      const CParamDefItem definition = file.paramDef(name);
      if (definition.name().isEmpty())
        ++counts.unknown;
      else if (definition.defVal().isNull())
        ++counts.kept;
      else if (CParamValueRules::mayStay(file.paramValue(name, id), definition.defVal(),
                                         definition))
        ++counts.equal;
      else
        file.setParamValue(name, definition.defVal(), id) ? ++counts.defaulted : ++counts.failed;
    }
  }
  return counts;
}

EExitStatus defaults(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  const EExitStatus opened = loaded.openToEdit(invocation);
  if (opened != ExitDone) return opened;
  QVector<SNamePattern> patterns;
  for (const QString& text : invocation.argumentsFrom(1))
    patterns.append(SNamePattern{CNamePattern(text)});
  CValueEdit edit(loaded, invocation, out);
  const SEditCounts counts = setDefaults(loaded, patterns);
  bool isGood = true;
  for (const SNamePattern& pattern : qAsConst(patterns)) {
    if (pattern.isUsed) continue;
    isGood = false;
    loaded.message(
        Tool::tr("no parameter matches \"%1\".%2")
            .arg(pattern.pattern.text(),
                 NParameterLookup::didYouMean(pattern.pattern.text(),
                                              NParameterLookup::allNames(loaded.file()))));
  }
  if (!isGood) return ExitFindings;
  return counts.failed > 0 ? edit.refuse(counts) : edit.finish(counts);
}

}  // namespace

QVector<SCommand> defaultsCommands() {
  return {{"defaults",
           Tool::tr("Set parameters to the defaults of their definitions."),
           Tool::tr("Without a pattern all parameters of the hardware id are set. In a pattern "
                    "\"*\" matches any characters and \"?\" one; put it in quotes, or the shell "
                    "looks for files. Parameters that are not defined, or whose definition has no "
                    "default, are left as they are and counted as unknown or kept. A pattern that "
                    "no name matches is an error, and nothing is changed then."),
           {NOptions::valueFile(),
            {"PATTERN", Tool::tr("Names of parameters, or patterns."), EWord::Parameter,
             SArgument::AnyNumber}},
           {NOptions::required(NOptions::def(Tool::tr("The definition file."))),
            NOptions::oneHardwareId(), NOptions::subDevice(), NOptions::dryRun(), NOptions::json()},
           {"defaults TwoAxisDrive.xparam \"Velocity*\" --def TwoAxisDrive.xpdef "
            "--hardware-id KTO-2A-16 --dry-run"},
           defaults}};
}
