#pragma once

#include "COutput.h"
#include "Tool.h"

#include <QStringList>

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

/// A message with the file that it names in front, as all messages of the tool.
inline void print(const QString& text, COutput& out) {
  const QString pattern = Tool::tr("File \"%1\"") + QLatin1String(": ");
  const QStringList lead = pattern.split(QLatin1String("%1"));
  const int begin = lead.first().size();
  const int end = text.startsWith(lead.first()) ? text.indexOf(lead.last(), begin) : -1;
  if (end < 0) return out.message(text);
  out.message(text.mid(begin, end - begin), text.mid(end + lead.last().size()));
}

}  // namespace LibraryMessage
