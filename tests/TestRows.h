#pragma once

#include <QtTest>

/// Adds a data row with all its cells; one call reads better than a chain over several lines.
template <class... Cells>
void addRow(const char* name, const Cells&... cells) {
  QTestData& row = QTest::newRow(name);
  (row << ... << cells);
}
