#pragma once

#include "TestFiles.h"

#include <QRegularExpression>
#include <QStringList>
#include <QtTest>

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

}  // namespace NGoldenFiles
