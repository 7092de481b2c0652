#pragma once

#include <QTest>

#include <array>
#include <tuple>

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

/// Cells of the current row by the names of their columns.
template <class... Types, class... Names>
std::tuple<Types...> cells(const Names*... names) {
  return {*static_cast<Types*>(QTest::qData(names, qMetaTypeId<Types>()))...};
}

/// The same, of texts alone.
template <class... Names>
std::array<QString, sizeof...(Names)> textCells(const Names*... names) {
  return {*static_cast<QString*>(QTest::qData(names, QMetaType::QString))...};
}
