#pragma once

#include "ktoFramework_export.h"

#include <QString>

/// Messages of the libraries begin with the file that they are about: File "drive.xml": the reason.
/// A program that names the file itself takes them apart here, in the language that they are in.
namespace NFileMessage {

struct SParts {
  QString fileName;  ///< empty when the message names no file
  QString text;
};

/// The name of the file and the rest of a message.
KTOFRAMEWORK_EXPORT SParts parts(const QString& message);

/// The message without the name of this file, wherever it is put in front: "parse error: …".
KTOFRAMEWORK_EXPORT QString withoutFile(const QString& message, const QString& fileName);

}  // namespace NFileMessage
