#include "CParamValueRules.h"
#include "CValueEdit.h"
#include "Command.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"

namespace {

/// A name, or a pattern with "*" and "?".
struct SNamePattern {
  QString text;
  QVector<uint> characters = text.toUcs4();
  bool isUsed = false;  ///< a name matched
};

// Names are not paths: a "*" matches "/", too. When a piece of the pattern does not fit, only
// the last "*" takes one more character; another way for those before it would not help. So the
// time grows with the name, whatever the pattern.
bool matches(const QVector<uint>& pattern, const QVector<uint>& name) {
  int inPattern = 0;
  int behindStar = -1;  // in the pattern
  int taken = 0;        // up to where that "*" takes the name
  for (int inName = 0; inName < name.size();) {
    const uint wanted = pattern.value(inPattern);
    const bool isWithin = inPattern < pattern.size();
    if (isWithin && wanted == '*') {
      behindStar = ++inPattern;
      taken = inName;
    } else if (isWithin && (wanted == '?' || wanted == name.at(inName))) {
      ++inPattern;
      ++inName;
    } else if (behindStar >= 0) {
      inPattern = behindStar;
      inName = ++taken;
    } else {
      return false;
    }
  }
  while (inPattern < pattern.size() && pattern.at(inPattern) == '*') ++inPattern;
  return inPattern == pattern.size();
}

/// Without a pattern, every name matches.
bool matchesAny(QVector<SNamePattern>& patterns, const QString& name) {
  const QVector<uint> characters = name.toUcs4();
  bool found = patterns.isEmpty();
  for (SNamePattern& pattern : patterns) {
    if (!matches(pattern.characters, characters)) continue;
    pattern.isUsed = true;
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
      if (definition.name().isEmpty()) {
        ++counts.unknown;
      } else if (definition.defVal().isNull()) {
        ++counts.kept;
      } else if (CParamValueRules::mayStay(file.paramValue(name, id), definition.defVal(),
                                           definition)) {
        ++counts.equal;
      } else {
        file.setParamValue(name, definition.defVal(), id) ? ++counts.defaulted : ++counts.failed;
      }
    }
  }
  return counts;
}

EExitStatus defaults(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  const EExitStatus opened = loaded.openToEdit(invocation);
  if (opened != ExitDone) return opened;
  QVector<SNamePattern> patterns;
  for (const QString& text : invocation.argumentsFrom(1)) patterns.append(SNamePattern{text});
  CValueEdit edit(loaded, invocation, out);
  const SEditCounts counts = setDefaults(loaded, patterns);
  bool isGood = true;
  for (const SNamePattern& pattern : qAsConst(patterns)) {
    if (pattern.isUsed) continue;
    isGood = false;
    loaded.message(
        Tool::tr("no parameter matches \"%1\".%2")
            .arg(pattern.text, NParameterLookup::didYouMean(
                                   pattern.text, NParameterLookup::allNames(loaded.file()))));
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
