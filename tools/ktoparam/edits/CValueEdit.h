#pragma once

#include "ICParameterFile.h"
#include "SCommand.h"
#include "SEditCounts.h"

#include <memory>

class CLoadedFile;

/// An edit of the active hardware id: remembers what was, so that what it tells is made of what
/// really changed.
class CValueEdit {
 public:
  /// What is done about values that the definitions do not allow, as CEditJudge finds them. All but
  /// NotJudged report them; only errors count.
  enum EInvalid {
    NotJudged,
    Refused,     ///< nothing is saved
    Saved,       ///< saved all the same, as findings
    SavedAsTold  ///< saved all the same, since the user said so
  };

  /// To be made before the edit.
  CValueEdit(CLoadedFile& loaded, const CInvocation& invocation, COutput& out);

  /// Saves the file when it changed, unless it is a dry run, and reports.
  EExitStatus finish(const SEditCounts& counts, EInvalid invalid = NotJudged);
  /// Reports an edit that was not made. The file is left as it was.
  EExitStatus refuse(const SEditCounts& counts);

 private:
  void tell(const CParamFindings& findings) const;
  void report(const SEditCounts& counts, const CParamFindings& findings, bool isSaved);

  CLoadedFile& mLoaded;
  const CInvocation& mInvocation;
  COutput& mOut;
  const std::unique_ptr<ICParameterFile> mBefore;
};
