#include "CValueEdit.h"

#include "CEditJudge.h"
#include "CEditedParams.h"
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "CParameterFileComparison.h"
#include "NDifferences.h"
#include "NFindings.h"
#include "Output.h"

#include <algorithm>

namespace {

/// The active hardware id alone, in a file of its own.
std::unique_ptr<ICParameterFile> copyOf(ICParameterFile& file) {
  std::unique_ptr<ICParameterFile> copy(ICParameterFile::createSingle(file.fileType(), nullptr));
  copy->cloneHardwareIdFromInstance(file.hardwareId(), &file);
  for (const quint8 id : file.subDeviceIds()) {
    copy->setSubDevType(id, file.subDevType(id));
    copy->setSubDevName(id, file.subDevName(id));
  }
  return copy;
}

QString toText(const SEditCounts& counts) {
  QString text = Tool::tr(
      "taken %1, equal %2, defaulted %3, kept %4, added %5, removed %6, unknown %7, failed %8");
  for (const int count : {counts.taken, counts.equal, counts.defaulted, counts.kept, counts.added,
                          counts.removed, counts.unknown, counts.failed})
    text = text.arg(count);
  return text;
}

QJsonObject toJson(const SEditCounts& counts) {
  return {{"taken", counts.taken},     {"equal", counts.equal},  {"defaulted", counts.defaulted},
          {"kept", counts.kept},       {"added", counts.added},  {"removed", counts.removed},
          {"unknown", counts.unknown}, {"failed", counts.failed}};
}

/// The differences that are not told of each parameter: sub-devices, moves and ids.
CParamDifferences withoutValues(const CParamDifferences& differences) {
  CParamDifferences others;
  for (const SParamDifference& each : differences) {
    if (each.kind != SParamDifference::ValueChanged &&
        each.kind != SParamDifference::ParameterAdded &&
        each.kind != SParamDifference::ParameterRemoved) {
      others.append(each);
    }
  }
  return others;
}

}  // namespace

CValueEdit::CValueEdit(CLoadedFile& loaded, const CInvocation& invocation, COutput& out)
    : mLoaded(loaded), mInvocation(invocation), mOut(out), mBefore(copyOf(loaded.file())) {
  loaded.file().clearChanged();
}

EExitStatus CValueEdit::finish(const SEditCounts& counts, EInvalid invalid) {
  CParamFindings findings;
  if (invalid != NotJudged) findings = CEditJudge(*mBefore, mLoaded.file()).newFindings();
  const auto errors = std::count_if(findings.cbegin(), findings.cend(), [](const auto& each) {
    return each.severity == SParamFinding::Error;
  });
  const bool isRefused = errors > 0 && invalid == Refused;
  const bool save = mLoaded.file().isChanged() && !mInvocation.isDryRun() && !isRefused;
  if (save && !mLoaded.save()) return ExitFile;
  tell(findings);
  if (errors > 0 && save) {
    mLoaded.message(
        Tool::tr("values that are not allowed: %1; they were saved all the same.").arg(errors));
  }
  if (isRefused) {
    mLoaded.message(Tool::tr("values that are not allowed: %1; nothing is saved unless "
                             "--allow-invalid is given.")
                        .arg(errors));
  }
  report(counts, findings, save);
  return errors > 0 && invalid != SavedAsTold ? ExitFindings : ExitDone;
}

EExitStatus CValueEdit::refuse(const SEditCounts& counts) {
  report(counts, {}, false);
  return ExitFindings;
}

void CValueEdit::tell(const CParamFindings& findings) const {
  for (const SParamFinding& each : findings) {
    const QString severity = SParamFinding::severityText(each.severity);
    mLoaded.message(NFindings::line(each, severity, mOut.labels()));
  }
}

void CValueEdit::report(const SEditCounts& counts, const CParamFindings& findings, bool isSaved) {
  mLoaded.unlock();
  ICParameterFile& file = mLoaded.file();
  // As texts: whatever is written in another way is a change of the file.
  const CParamDifferences changes = CParameterFileComparison::compareHardwareIds(
      *mBefore, file.hardwareId(), file, file.hardwareId());
  CEditedParams params(*mBefore, file, mOut.labels());
  if (!mInvocation.wantsJson()) {
    NDifferences::print(withoutValues(changes), file, mOut);
    params.print(counts.params, mOut);
    mOut.line(toText(counts));
    mInvocation.noteDryRun(mOut);
    return;
  }
  QJsonArray found;
  for (const SParamFinding& each : findings)
    found.append(NFindings::toJson(mLoaded.fileName(), each, mOut.labels()));
  mOut.json({{"file", mLoaded.fileName()},
             {"hardwareId", mOut.labels().of(file.hardwareId())},
             {"saved", isSaved},
             {"counts", toJson(counts)},
             {"parameters", params.toJson(counts.params)},
             {"findings", found},
             {"changes", NDifferences::toJson(changes, mOut.labels())}});
}
