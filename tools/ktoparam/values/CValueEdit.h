#pragma once

#include "ICParameterFile.h"
#include "SCommand.h"

#include <memory>

class CLoadedFile;

/// What an editing command did, in numbers of parameters: what an import counts, and more.
struct SEditCounts : NParamDef::SImportResult {
  int removed = 0;
  int failed = 0;  ///< are why nothing was done
};

/// An edit of the active hardware id: remembers what was, so that the plan of a dry run is made of
/// what really changed.
class CValueEdit {
 public:
  /// To be made before the edit.
  CValueEdit(CLoadedFile& loaded, const CInvocation& invocation, COutput& out);

  /// Saves the file when it changed, unless it is a dry run, and reports.
  EExitStatus finish(const SEditCounts& counts);
  /// Reports an edit that was not made. The file is left as it was.
  EExitStatus refuse(const SEditCounts& counts);

 private:
  EExitStatus report(const SEditCounts& counts, EExitStatus status, bool isSaved);

  CLoadedFile& mLoaded;
  const CInvocation& mInvocation;
  COutput& mOut;
  const std::unique_ptr<ICParameterFile> mBefore;
};
