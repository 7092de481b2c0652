#pragma once

#include "ICCompensationFile.h"

#include <QStringList>

#include <memory>

/// A table from words as "position/adjustment …", with its range in front as "minimum/maximum".
inline std::unique_ptr<ICCompensationFile> compensationTable(const QString& text) {
  std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  const auto part = [](const QString& word, int place) {
    return CParamVal(word.section('/', place, place));
  };
  QStringList words = text.split(' ');
  const QString range = words.takeFirst();
  CCompensationHeader header;
  header.setMinimum(part(range, 0));
  header.setMaximum(part(range, 1));
  table->setHeader(header);
  for (const QString& word : words) {
    CCompensationPoint point;
    point.setPosition(part(word, 0));
    point.setAdjustment(part(word, 1));
    table->appendPoint(point);
  }
  return table;
}
