#pragma once

#include <QString>

class COutput;

/// What to do about a file that cannot be read or written, where the system's words do not tell.
namespace NFileHints {

/// Why a file that cannot be opened cannot: it is missing, a folder, or the like; with the name
/// that may have been meant. Empty when the system's reason is all there is.
QString unreadable(const QString& fileName);

/// Tells more after the message of a save that failed.
void tellWhyUnsaved(const QString& fileName, COutput& out);

}  // namespace NFileHints
