#pragma once

#include <QDir>
#include <QFile>
#include <QString>

/// Reading and writing of whole files in tests; a failure shows as an empty content.
namespace NTestFiles {

inline QByteArray read(const QString& fileName) {
  QFile file(fileName);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool write(const QString& fileName, const QByteArray& content) {
  QFile file(fileName);
  return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

inline QString data(const QString& name) {
  return QStringLiteral(KTO_TEST_DATA "/") + name;
}
inline QString example(const QString& name) {
  return QStringLiteral(KTO_EXAMPLE_DATA "/") + name;
}

}  // namespace NTestFiles
