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

/// What is expected of a test file: the text of the same base name with suffix "txt", in
/// which @FILE@ means the test file.
inline QString expected(const QString& fileName) {
  const QFileInfo info(fileName);
  const QString text =
      QString::fromUtf8(read(info.path() + '/' + info.completeBaseName() + ".txt"));
  return text.trimmed().replace("@FILE@", fileName);
}

}  // namespace NTestFiles
