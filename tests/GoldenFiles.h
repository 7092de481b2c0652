#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

/// Test files lie beside what is expected of them: "name.xml" and "name.txt".
namespace NGoldenFiles {

/// The folder of an area and kind, e.g. "settings/valid".
inline QDir folder(const QString& area) {
  return QDir(QStringLiteral(KTO_TEST_DATA "/") + area);
}

/// The names, without the suffix, of the files in a folder.
inline QStringList names(const QString& area, const QString& suffix) {
  QStringList names = folder(area).entryList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
  for (QString& name : names) {
    name.chop(suffix.size());
  }
  return names;
}

/// The content, null when there is no such file.
inline QByteArray read(const QString& fileName) {
  QFile file(fileName);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool write(const QString& fileName, const QByteArray& content) {
  QFile file(fileName);
  return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

}  // namespace NGoldenFiles
