#include "CParameterFileMerge.h"

#include "CHardwareMerge.h"
#include "CStr.h"
#include "NThreeWay.h"

CParameterFileMerge::CParameterFileMerge(const ICParameterFile& base, ICParameterFile& ours,
                                         const ICParameterFile& theirs)
    : mBase(base), mOurs(ours), mTheirs(theirs), mVersion(ours.paramFileVersion()) {}

bool CParameterFileMerge::run() {
  const auto* base = dynamic_cast<const CParameterFileBaseImpl*>(&mBase);
  auto* ours = dynamic_cast<CParameterFileBaseImpl*>(&mOurs);
  const auto* theirs = dynamic_cast<const CParameterFileBaseImpl*>(&mTheirs);
  if (base == nullptr || ours == nullptr || theirs == nullptr) {
    mErrorMsg = tr("Only files of this library can be merged.");
    return false;
  }
  if (mBase.fileType() != mOurs.fileType() || mTheirs.fileType() != mOurs.fileType()) {
    mErrorMsg = tr("Files of different types cannot be merged.");
    return false;
  }
  mErrorMsg.clear();
  mConflicts.clear();
  mergeHead();
  mergeVersion();
  CHardwareMerge merge(*base, *ours, *theirs);
  merge.run();
  mConflicts += merge.conflicts();
  return true;
}

void CParameterFileMerge::mergeHead() {
  const bool takesAuthor =
      mergeText(SMergeConflict::Author, mBase.author(), mOurs.author(), mTheirs.author());
  const bool takesComment =
      mergeText(SMergeConflict::Comment, mBase.comment(), mOurs.comment(), mTheirs.comment());
  if (takesAuthor || takesComment) {
    mOurs.setMetaData(takesAuthor ? mTheirs.author() : mOurs.author(),
                      takesComment ? mTheirs.comment() : mOurs.comment());
  }
}

void CParameterFileMerge::mergeVersion() {
  mVersion = mOurs.paramFileVersion();
  const auto text = [](const ICParameterFile& file) {
    return CStr::revisionToString(file.paramFileVersion());
  };
  if (mergeText(SMergeConflict::Version, text(mBase), text(mOurs), text(mTheirs)))
    mVersion = mTheirs.paramFileVersion();
}

/// Whether theirs is to be taken.
bool CParameterFileMerge::mergeText(SMergeConflict::ESubject subject, const QString& base,
                                    const QString& ours, const QString& theirs) {
  const bool isInBase = !mBase.hardwareIds().isEmpty();
  const NThreeWay::EChoice choice = NThreeWay::choose(isInBase ? &base : nullptr, ours, theirs);
  if (choice == NThreeWay::Conflict) {
    SMergeConflict conflict;
    conflict.subject = subject;
    conflict.kind = isInBase ? SMergeConflict::BothChanged : SMergeConflict::BothAdded;
    conflict.base = isInBase ? base : QString();
    conflict.ours = ours;
    conflict.theirs = theirs;
    mConflicts.append(conflict);
  }
  return choice == NThreeWay::Theirs;
}
