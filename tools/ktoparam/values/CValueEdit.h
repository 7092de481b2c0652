#pragma once

#include "SCommand.h"

#include <memory>

class CLoadedFile;
class ICParameterFile;

/// What an editing command did, in numbers of parameters.
struct SEditCounts {
  int taken = 0;      ///< got another value from elsewhere
  int equal = 0;      ///< had the value already
  int defaulted = 0;  ///< got the default of their definition
  int kept = 0;       ///< were left as they are, since there was nothing to take
  int added = 0;
  int removed = 0;
  int unknown = 0;  ///< were skipped, since they are not defined
  int failed = 0;   ///< are why nothing was done
};

/// An edit of the active hardware id: remembers what was, so that the plan of a dry run is made of
/// what really changed.
class CValueEdit {
 public:
  /// To be made before the edit.
  CValueEdit(CLoadedFile& loaded, const CInvocation& invocation, COutput& out);
  ~CValueEdit();

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
