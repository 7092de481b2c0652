#include "CLoadedFile.h"
#include "JsonValues.h"
#include "NDisplayText.h"
#include "Views.h"

QString NViews::headLine(const CLoadedFile& loaded) {
  const SHead head = loaded.head();
  QStringList parts(loaded.info().typeName);
  if (loaded.info().version != 0) parts[0] += QLatin1Char(' ') + loaded.info().versionText();
  if (head.date.isValid()) parts.append(head.date.toString(Qt::ISODate));
  if (!head.author.isEmpty()) parts.append(NDisplayText::shown(head.author));
  const QString line = parts.join(QLatin1String(", "));
  return head.comment.isEmpty() ? line
                                : line + QLatin1String(": ") + NDisplayText::shown(head.comment);
}

QJsonObject NViews::headJson(const CLoadedFile& loaded) {
  const SHead head = loaded.head();
  return {{"file", loaded.fileName()},
          {"fileType", loaded.info().typeName},
          {"version", textOrNull(loaded.info().versionText())},
          {"date", textOrNull(head.date.toString(Qt::ISODate))},
          {"author", head.author},
          {"comment", head.comment}};
}
