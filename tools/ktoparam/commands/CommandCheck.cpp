#include "CParamLineIndex.h"
#include "CParameterFileChecker.h"
#include "Command.h"
#include "NFindings.h"

#include <array>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace {

const QLatin1String kMissing("missing");

/// Findings about one file, with their lines.
struct SChecked {
  QString fileName;
  CParamFindings findings;
  QString definitionFile = {};  ///< that values were checked against

  SChecked(const QString& file, const CParamFindings& found, const QString& definitions = {})
      : fileName(file), findings(found), definitionFile(definitions) {
    CParamLineIndex lines;
    if (!findings.isEmpty() && lines.read(fileName)) lines.addLines(findings);
  }
};

QString severity(const SParamFinding& finding, const COutput& out) {
  const QString text = SParamFinding::severityText(finding.severity);
  if (finding.severity == SParamFinding::Info) return text;
  return out.styled(text,
                    finding.severity == SParamFinding::Error ? COutput::Red : COutput::Yellow);
}

/// As compilers write, so that editors jump to the line.
QString toLine(const QString& fileName, const SParamFinding& finding, const COutput& out) {
  const QString line = finding.line > 0 ? QStringLiteral(":%1").arg(finding.line) : QString();
  return QStringLiteral("%1%2: %3")
      .arg(NDisplayText::escaped(fileName), line,
           NFindings::line(finding, severity(finding, out), out.labels()));
}

EExitStatus report(const QVector<SChecked>& files, const CInvocation& invocation, COutput& out) {
  std::array<int, 3> counts{};  // by SParamFinding::ESeverity
  QJsonArray array;
  QJsonArray checked;
  for (const SChecked& file : files) {
    checked.append(
        QJsonObject{{"file", file.fileName}, {"definitionFile", textOrNull(file.definitionFile)}});
    for (const SParamFinding& finding : file.findings) {
      ++counts.at(static_cast<std::size_t>(finding.severity));
      if (invocation.wantsJson())
        array.append(NFindings::toJson(file.fileName, finding, out.labels()));
      else
        out.line(toLine(file.fileName, finding, out));
    }
  }
  const auto [infos, warnings, errors] = counts;
  if (invocation.wantsJson()) {
    out.json({{"errors", errors},
              {"warnings", warnings},
              {"infos", infos},
              {"files", checked},
              {"findings", array}});
  } else {
    out.line(Tool::tr("errors %1, warnings %2, infos %3")
                 .arg(QString::number(errors), QString::number(warnings), QString::number(infos)));
  }
  return errors + warnings > 0 ? ExitFindings : ExitDone;
}

/// What is wrong with definitions, until it is reported.
struct SDefinitions {
  std::once_flag isChecked;
  std::optional<SChecked> checked;
};

/// How the check of one file ended.
struct SOutcome {
  EExitStatus status = ExitDone;
  QString definitionFile = {};  ///< the file, or what its values were checked against
  std::optional<SChecked> values = {};
};

/// Checks files, each as its kind asks for. Definitions are checked once, for all files of values
/// that they serve, and reported before the first of them.
class CChecking {
 public:
  CChecking(const CInvocation& invocation, COutput& out) : mInvocation(invocation), mOut(out) {}

  EExitStatus run() {
    const QStringList names = mInvocation.argumentsFrom(0);
    EExitStatus status = ExitDone;
    const auto checkOne = [&](int i) { return checkFile(names.at(i)); };
    inOrder(names.size(), mOut, checkOne, [&](int, const SOutcome& outcome) {
      if (outcome.status == ExitUsage) {
        mChecked.clear();
        status = ExitUsage;
        return false;
      }
      status = qMax(status, outcome.status);
      add(outcome);
      return true;
    });
    return mChecked.isEmpty() ? status : qMax(status, report(mChecked, mInvocation, mOut));
  }

 private:
  SOutcome checkFile(const QString& fileName) {
    const std::optional<SFileInfo> info = SFileInfo::read(fileName, mOut);
    if (!info) return {ExitFile};
    if (info->kind == SFileInfo::Definitions) return checkDefinitions(fileName);
    if (info->kind == SFileInfo::Values) return checkValues(fileName);
    mOut.message(fileName, info->refusal(Tool::tr("A value or definition file is needed here.")));
    return {ExitFile};
  }

  SOutcome checkDefinitions(const QString& fileName) {
    if (mInvocation.isSet(NOptions::kDef) || mInvocation.isSet(NOptions::kNoDef) ||
        mInvocation.isSet(NOptions::kHardwareId) || mInvocation.isSet(kMissing)) {
      return {mInvocation.wrongUsage(
          Tool::tr("%1 is a definition file; --json is the only option for it.").arg(fileName),
          mOut)};
    }
    CLoadedFile loaded(mOut);
    if (!loaded.load(fileName, SFileInfo::Definitions)) return {ExitFile};
    checkDefinitionsOnce(loaded);
    return {ExitDone, fileName};
  }

  SOutcome checkValues(const QString& fileName) {
    CLoadedFile loaded(mOut);
    if (!loaded.loadValues(fileName, mInvocation)) return {ExitFile};
    if (!loaded.hasDefinitions())
      return {loaded.areDefinitionsFound() ? ExitFile : withoutDefinitions()};
    if (loaded.hardwareIds(mInvocation).isEmpty()) return {ExitFindings};
    mOut.doing(Tool::tr("Checking %1 …").arg(fileName));
    checkDefinitionsOnce(loaded);
    const auto missing = mInvocation.isSet(kMissing) ? CParameterFileChecker::ReportMissing
                                                     : CParameterFileChecker::SkipMissing;
    return {ExitDone, loaded.definitionFile(),
            SChecked(fileName,
                     CParameterFileChecker::checkValues(
                         loaded.file(), mInvocation.value(NOptions::kHardwareId), missing),
                     loaded.definitionFile())};
  }

  EExitStatus withoutDefinitions() const {
    return mInvocation.wrongUsage(
        Tool::tr("Values are checked against definitions; name their file with --def DEF."), mOut);
  }

  void checkDefinitionsOnce(const CLoadedFile& loaded) {
    const QString& fileName = loaded.definitionFile();
    std::unique_lock lock(mMutex);
    SDefinitions& definitions = mDefinitions[fileName];
    lock.unlock();
    std::call_once(definitions.isChecked,
                   [&] { definitions.checked = checkedDefinitions(fileName, loaded); });
  }

  static SChecked checkedDefinitions(const QString& fileName, const CLoadedFile& loaded) {
    return {fileName, CParameterFileChecker::checkDefinitions(loaded.file())};
  }

  void add(const SOutcome& outcome) {
    if (!outcome.definitionFile.isEmpty()) {
      const std::lock_guard lock(mMutex);
      std::optional<SChecked>& definitions = mDefinitions[outcome.definitionFile].checked;
      if (definitions) mChecked.append(*std::exchange(definitions, {}));
    }
    if (outcome.values) mChecked.append(*outcome.values);
  }

  const CInvocation& mInvocation;
  COutput& mOut;
  std::mutex mMutex;                             // of the map, whose elements stay where they are
  std::map<QString, SDefinitions> mDefinitions;  // by file
  QVector<SChecked> mChecked;
};

EExitStatus check(const CInvocation& invocation, COutput& out) {
  return CChecking(invocation, out).run();
}

}  // namespace

QVector<SCommand> checkCommands() {
  return {
      {"check",
       Tool::tr("Find what is wrong with values and definitions."),
       Tool::tr("Lists all findings with file and line: values that are not of their type, beyond "
                "their limits or not a choice, unnamed bits, parameters that are not defined, "
                "wrong ids, hardware ids that give a sub-device different types or names, and bad "
                "definitions. Without a value file, definitions alone are checked. Several value "
                "files are checked against the same definitions.\nThe exit status is 1 when there "
                "are errors or warnings."),
       {{"FILE", Tool::tr("Value files, or definition files."), EWord::File, SArgument::OneOrMore}},
       {NOptions::def(
            Tool::tr("The definition file of all value files; without it, one is looked for.")),
        NOptions::noDef(),
        NOptions::hardwareId(),
        {kMissing,
         {},
         Tool::tr("List what is defined but missing, too, for each hardware id; these are infos.")},
        NOptions::json()},
       {"check TwoAxisDrive.xparam --def TwoAxisDrive.xpdef", "check TwoAxisDrive.xpdef"},
       check}};
}
