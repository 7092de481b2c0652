#include "CParamValueRules.h"
#include "CValueEdit.h"
#include "Command.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"

#include <optional>

namespace {

/// Names, or patterns with "*" and "?". Without any, every name matches.
class CNamePatterns {
 public:
  explicit CNamePatterns(const QStringList& patterns) : mTexts(patterns), mUsed(patterns.size()) {
    for (const QString& text : patterns) mPatterns.append(text.toUcs4());
  }

  bool matches(const QString& name) {
    const QVector<uint> characters = name.toUcs4();
    bool found = mPatterns.isEmpty();
    for (int i = 0; i < mPatterns.size(); ++i) {
      if (!matches(mPatterns.at(i), characters)) continue;
      mUsed[i] = true;
      found = true;
    }
    return found;
  }

  /// Those that matched nothing.
  QStringList unused() const {
    QStringList texts;
    for (int i = 0; i < mTexts.size(); ++i)
      if (!mUsed.at(i)) texts.append(mTexts.at(i));
    return texts;
  }

 private:
  // Names are not paths: a "*" matches "/", too. When a piece of the pattern does not fit, only
  // the last "*" takes one more character; another way for those before it would not help. So the
  // time grows with the name, whatever the pattern.
  static bool matches(const QVector<uint>& pattern, const QVector<uint>& name) {
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

  const QStringList mTexts;
  QVector<QVector<uint>> mPatterns;
  QVector<bool> mUsed;
};

/// Sets what matches to its default.
SEditCounts setDefaults(const CLoadedFile& loaded, std::optional<quint8> subDevice,
                        CNamePatterns& patterns) {
  ICParameterFile& file = loaded.file();
  SEditCounts counts;
  for (const quint8 id : loaded.subDevices(subDevice)) {
    for (const QString& name : file.paramNames(id)) {
      if (!patterns.matches(name)) continue;
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
  CNamePatterns patterns(invocation.argumentsFrom(1));
  CValueEdit edit(loaded, invocation, out);
  const SEditCounts counts = setDefaults(loaded, invocation.subDevice(), patterns);
  const QStringList unused = patterns.unused();
  for (const QString& pattern : unused) {
    loaded.message(Tool::tr("no parameter matches \"%1\".%2")
                       .arg(pattern, NParameterLookup::didYouMean(
                                         pattern, NParameterLookup::allNames(loaded.file()))));
  }
  if (!unused.isEmpty()) return ExitFindings;
  return counts.failed > 0 ? edit.refuse(counts) : edit.finish(counts);
}

}  // namespace

QVector<SCommand> defaultsCommands() {
  return {{QStringLiteral("defaults"),
           Tool::tr("Set parameters to the defaults of their definitions."),
           Tool::tr("Without a pattern all parameters of the hardware id are set. In a pattern "
                    "\"*\" matches any characters and \"?\" one; put it in quotes, or the shell "
                    "looks for files. Parameters that are not defined, or whose definition has no "
                    "default, are left as they are and counted as unknown or kept. A pattern that "
                    "no name matches is an error, and nothing is changed then."),
           {{QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File},
            {QStringLiteral("PATTERN"), Tool::tr("Names of parameters, or patterns."),
             EWord::Parameter, SArgument::AnyNumber}},
           {NOptions::required(NOptions::def(Tool::tr("The definition file."))),
            NOptions::hardwareId(Tool::tr("The hardware id; needed when the file has several.")),
            NOptions::subDevice(Tool::tr("Only this sub-device, 0 to 255.")), NOptions::dryRun(),
            NOptions::json()},
           {QStringLiteral("defaults TwoAxisDrive.xparam \"Velocity*\" --def TwoAxisDrive.xpdef "
                           "--hardware-id KTO-2A-16 --dry-run")},
           defaults}};
}
