#pragma once

#include "ICCompensationFile.h"

#include <memory>

/// A table from words as "position/adjustment …", with its range in front as "minimum/maximum".
inline std::unique_ptr<ICCompensationFile> compensationTable(const QString& text) {
  std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  CCompensationHeader header;
  header.setMinimum(text.section(' ', 0, 0).section('/', 0, 0));
  header.setMaximum(text.section(' ', 0, 0).section('/', 1));
  table->setHeader(header);
  for (const QString& word : text.split(' ').mid(1)) {
    CCompensationPoint point;
    point.setPosition(word.section('/', 0, 0));
    point.setAdjustment(word.section('/', 1));
    table->appendPoint(point);
  }
  return table;
}
