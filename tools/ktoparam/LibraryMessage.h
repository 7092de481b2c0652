#pragma once

#include "Tool.h"

#include <QString>

namespace LibraryMessage {

/// Messages of the library name the file, which stands in front of every message of the tool
/// anyway. They begin alike in each language.
inline QString withoutFileName(const QString& text, const QString& fileName) {
  const QString lead = Tool::tr("File \"%1\"").arg(fileName);
  if (!text.startsWith(lead)) return text;
  const QString rest = text.mid(lead.size());
  const bool isColon = rest.startsWith(QLatin1String(": "));
  return withoutFileName(isColon ? rest.mid(2) : rest.trimmed(), fileName);
}

}  // namespace LibraryMessage
