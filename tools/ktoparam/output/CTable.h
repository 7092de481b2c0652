#pragma once

#include <QStringList>
#include <QVector>

class COutput;

/// Lines with aligned columns. A column in which no row has anything is left out, heading and all;
/// without rows nothing is printed.
class CTable {
 public:
  explicit CTable(const QStringList& headings) : mHeadings(headings) {}

  bool isEmpty() const { return mRows.isEmpty(); }
  /// As many cells as headings, or fewer. An emphasised row stands out where there is colour.
  void addRow(const QStringList& cells, bool emphasised = false);
  void print(COutput& out, const QString& indent = {}) const;

 private:
  struct SRow {
    QStringList cells;
    bool emphasised;
  };

  QVector<int> columnWidths() const;

  QStringList mHeadings;
  QVector<SRow> mRows;
};
