#pragma once

#include <QString>

#include <functional>

class COutput;

/// How the tool writes files: shows the progress, keeps Ctrl-C waiting meanwhile, and reports what
/// failed with what to do about it.
namespace NSafeWrite {

/// `save` gives the reason why it failed, or nothing. False, with a message, when it failed.
bool run(const QString& fileName, COutput& out, const std::function<QString()>& save);

/// Writes a file of which the library knows nothing, such as a picture.
bool bytes(const QString& fileName, const QByteArray& bytes, COutput& out);

}  // namespace NSafeWrite
