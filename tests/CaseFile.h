#pragma once

#include "TestFiles.h"

#include <QMap>
#include <QStringList>
#include <QtTest>

/// Cases as texts in one file: blank lines part them, the first line of each is its name, and
/// each further line is a key and, after blanks, a value.
namespace NCaseFile {

/// The values of a key in their order.
using CCase = QMap<QString, QStringList>;

/// Data rows of one column, "parts", from a file in the folder of the test files.
inline void addRows(const QString& fileName) {
  QTest::addColumn<CCase>("parts");
  const QString text = QString::fromUtf8(NTestFiles::read(NTestFiles::data(fileName)));
  QVERIFY(!text.isEmpty());
  for (const QString& block : text.split("\n\n", Qt::SkipEmptyParts)) {
    QStringList lines = block.split('\n', Qt::SkipEmptyParts);
    const QString name = lines.takeFirst();
    CCase parts;
    for (const QString& line : qAsConst(lines))
      parts[line.section(' ', 0, 0)] += line.section(QRegExp(" +"), 1);
    QTest::newRow(qPrintable(name)) << parts;
  }
}

/// The only value of a key.
inline QString one(const CCase& parts, const QString& key) {
  const QStringList values = parts.value(key);
  return values.size() == 1 ? values.first() : QStringLiteral("not one value of ") + key;
}

}  // namespace NCaseFile
