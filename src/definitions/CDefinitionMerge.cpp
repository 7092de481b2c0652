#include "CDefinitionMerge.h"

#include "CMergedDefinitions.h"
#include "CParameterFileBaseImpl.h"
#include "CStr.h"
#include "NThreeWay.h"

CDefinitionMerge::CDefinitionMerge(const ICParameterFile& base, ICParameterFile& ours,
                                   const ICParameterFile& theirs)
    : mBase(base), mOurs(ours), mTheirs(theirs) {}

void CDefinitionMerge::setVersions(quint32 base, quint32 ours, quint32 theirs) {
  mBaseVersion = base;
  mOursVersion = ours;
  mTheirsVersion = theirs;
  mVersion = ours;
}

bool CDefinitionMerge::run() {
  mErrorMsg.clear();
  mConflicts.clear();
  auto* ours = dynamic_cast<CParameterFileBaseImpl*>(&mOurs);
  if (ours == nullptr) {
    mErrorMsg = tr("Only files of this library can be merged.");
    return false;
  }
  mergeHead();
  mergeVersion();
  CMergedDefinitions merged(mBase, mOurs, mTheirs);
  merged.run();
  mConflicts += merged.conflicts();
  if (merged.isChanged()) ours->replaceDefinitions(merged.definitions());
  return true;
}

void CDefinitionMerge::mergeHead() {
  const bool takesAuthor =
      mergeText(SMergeConflict::Author, mBase.defAuthor(), mOurs.defAuthor(), mTheirs.defAuthor());
  const bool takesComment = mergeText(SMergeConflict::Comment, mBase.defComment(),
                                      mOurs.defComment(), mTheirs.defComment());
  if (takesAuthor || takesComment) {
    mOurs.setDefMetaData(takesAuthor ? mTheirs.defAuthor() : mOurs.defAuthor(),
                         takesComment ? mTheirs.defComment() : mOurs.defComment());
  }
}

void CDefinitionMerge::mergeVersion() {
  mVersion = mOursVersion;
  if (mergeText(SMergeConflict::Version, CStr::revisionToString(mBaseVersion),
                CStr::revisionToString(mOursVersion), CStr::revisionToString(mTheirsVersion))) {
    mVersion = mTheirsVersion;
  }
}

/// Whether theirs is to be taken.
bool CDefinitionMerge::mergeText(SMergeConflict::ESubject subject, const QString& base,
                                 const QString& ours, const QString& theirs) {
  const QString* known = mBase.isDefEmpty() ? nullptr : &base;
  const NThreeWay::EChoice choice = NThreeWay::choose(known, ours, theirs);
  if (choice == NThreeWay::Conflict)
    mConflicts.append(NThreeWay::conflict(subject, known, ours, theirs));
  return choice == NThreeWay::Theirs;
}
