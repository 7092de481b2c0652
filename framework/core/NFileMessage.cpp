#include "NFileMessage.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

/// What stands before and after the name of the file: `File "` and `": `.
QStringList marks() {
  const QString pattern = QCoreApplication::translate("CXmlAbstractLumoFile", "File \"%1\": %2");
  return pattern.section(QLatin1String("%2"), 0, 0).split(QLatin1String("%1"));
}

}  // namespace

NFileMessage::SParts NFileMessage::parts(const QString& message) {
  const QStringList around = marks();
  const int begin = around.first().size();
  const bool hasFile = message.startsWith(around.first());
  const int end = hasFile ? message.indexOf(around.last(), begin) : -1;
  if (end < 0) return {{}, message};
  return {message.mid(begin, end - begin), message.mid(end + around.last().size())};
}

QString NFileMessage::withoutFile(const QString& message, const QString& fileName) {
  const QStringList around = marks();
  const QString lead = around.first() + fileName + around.last().at(0);
  if (!message.startsWith(lead)) return message;
  const QString rest = message.mid(lead.size());
  const bool isColon = rest.startsWith(QLatin1String(": "));
  return withoutFile(isColon ? rest.mid(2) : rest.trimmed(), fileName);
}
