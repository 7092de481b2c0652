#pragma once

#include "ICCompensationFile.h"
#include "ICSettingsFile.h"
#include "SFileInfo.h"

#include <memory>

class COutput;

/// A file that is not of parameters, as a command opens it.
template <class File>
struct SOpenedFile {
  SFileInfo info;
  std::unique_ptr<File> file;  ///< null when the file cannot be loaded
};

namespace OpenedFile {

// Both refuse another kind of file, and load whatever version the file has. What fails is reported
// to the output.
SOpenedFile<ICSettingsFile> settings(const QString& fileName, COutput& out);
SOpenedFile<ICCompensationFile> compensation(const QString& fileName, COutput& out);

}  // namespace OpenedFile
