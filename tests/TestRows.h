#pragma once

#include <QtTest>

/// Declares all columns of a test's data.
template <class... Types, class... Names>
void addColumns(const Names*... names) {
  (QTest::addColumn<Types>(names), ...);
}

/// Adds a data row with all its cells; one call reads better than a chain over several lines.
template <class... Cells>
void addRow(const char* name, const Cells&... cells) {
  QTestData& row = QTest::newRow(name);
  (row << ... << cells);
}

/// A row that is called like its first cell, a text.
template <class... Cells>
void addTextRow(const char* text, const Cells&... cells) {
  addRow(text, text, cells...);
}
