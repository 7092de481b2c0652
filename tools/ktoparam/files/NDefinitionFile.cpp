#include "NDefinitionFile.h"

#include <QFileInfo>

QString NDefinitionFile::find(const QStringList& valueFiles) {
  for (const QString& fileName : valueFiles) {
    if (fileName.isEmpty()) continue;
    // In the words of whoever named the value file, folder and all.
    const QString suffix = QFileInfo(fileName).suffix();
    const QString base = suffix.isEmpty() ? fileName : fileName.chopped(suffix.size() + 1);
    const QString beside = base + QLatin1String(".xpdef");
    if (beside != fileName && QFileInfo(beside).isFile()) return beside;
  }
  return qEnvironmentVariable("KTOPARAM_DEF");
}
