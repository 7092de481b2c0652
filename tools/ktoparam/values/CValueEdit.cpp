#include "CValueEdit.h"

#include "CInvocation.h"
#include "CLoadedFile.h"
#include "CParameterFileComparison.h"
#include "NDifferences.h"
#include "Output.h"

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

}  // namespace

CValueEdit::CValueEdit(CLoadedFile& loaded, const CInvocation& invocation, COutput& out)
    : mLoaded(loaded), mInvocation(invocation), mOut(out), mBefore(copyOf(loaded.file())) {
  loaded.file().clearChanged();
}

EExitStatus CValueEdit::finish(const SEditCounts& counts) {
  const bool save = mLoaded.file().isChanged() && !mInvocation.isDryRun();
  if (save && !mLoaded.save()) return ExitFile;
  return report(counts, ExitDone, save);
}

EExitStatus CValueEdit::refuse(const SEditCounts& counts) {
  return report(counts, ExitFindings, false);
}

EExitStatus CValueEdit::report(const SEditCounts& counts, EExitStatus status, bool isSaved) {
  mLoaded.unlock();
  ICParameterFile& file = mLoaded.file();
  const bool isDryRun = mInvocation.isDryRun();
  CParamDifferences changes;
  if (isDryRun || mInvocation.wantsJson()) {
    // As texts: whatever is written in another way is a change of the file.
    changes = CParameterFileComparison::compareHardwareIds(*mBefore, file.hardwareId(), file,
                                                           file.hardwareId());
  }
  if (mInvocation.wantsJson()) {
    mOut.json({{"file", mLoaded.fileName()},
               {"hardwareId", mOut.labels().of(file.hardwareId())},
               {"saved", isSaved},
               {"counts", toJson(counts)},
               {"changes", NDifferences::toJson(changes, mOut.labels())}});
    return status;
  }
  NDifferences::print(changes, file, mOut);
  mOut.line(toText(counts));
  mInvocation.noteDryRun(mOut);
  return status;
}
