#pragma once

#include "TestRows.h"

#include <QString>

/// Data rows for the files whose version only has to have the main number of the expected one.
inline void addSubVersionRows() {
  QTest::addColumn<QString>("inFile");
  QTest::addColumn<QString>("expected");
  QTest::addColumn<bool>("accepted");
  addRow("same", "1.0", "1.0", true);
  addRow("other sub-number", "1.5", "1.0", true);
  addRow("no sub-number", "1", "1.65535", true);
  addRow("leading zero", "08.15", "8.0", true);
  addRow("other main number", "2.0", "1.5", false);
  addRow("none in the file", "", "1.0", true);
  addRow("none expected", "1.0", "", false);
  addRow("same text, no version", "beta", "beta", true);
  addRow("no version in the file", "beta", "1.0", false);
  addRow("no version expected", "1.0", "beta", false);
}
