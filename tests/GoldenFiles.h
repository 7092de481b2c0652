#pragma once

#include "TestFiles.h"
#include "TestRows.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

/// Test files that hold cases by lines.
namespace NGoldenFiles {

inline QStringList lines(const QString& fileName) {
  return QString::fromUtf8(NTestFiles::read(fileName)).split(QLatin1Char('\n'));
}

/// Data rows of texts from the lines of a file, in which two or more blanks part the cells and "#"
/// begins a comment. A row's name is its line.
inline void addTable(const char* name, std::initializer_list<const char*> columns) {
  for (const char* column : columns) QTest::addColumn<QString>(column);
  const QStringList all = lines(NTestFiles::data(name));
  QVERIFY(all.size() > 1);
  for (const QString& line : all) {
    if (line.isEmpty() || line.startsWith('#')) continue;
    const QStringList cells = line.split(QRegularExpression("  +"));
    QTestData& row = QTest::newRow(qPrintable(line.simplified()));
    for (int i = 0; i < int(columns.size()); ++i) row << cells.value(i, "");
  }
}

/// A case by keys, each with its values in their order.
using CCase = QMap<QString, QStringList>;

/// Data rows of one column, "parts", from a file of cases: blank lines part them, the first line of
/// each is its name, and each further line is a key and, after blanks, a value.
inline void addCases(const QString& fileName) {
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

}  // namespace NGoldenFiles
