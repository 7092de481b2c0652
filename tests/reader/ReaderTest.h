#pragma once

#include "CKeptLines.h"
#include "CMessageBoardHelper.h"
#include "ICParameterFile.h"
#include "ICSimpleParamReader.h"

#include <QStringList>

#include <memory>

/// Takes the messages off the board, each after its kind, while it lives.
struct SKeptMessages {
  SKeptMessages() {
    CMessageBoardHelper::setHandler(
        [this](int kind, const QString& text) { texts += QString::number(kind) + ' ' + text; });
  }
  ~SKeptMessages() { CMessageBoardHelper::setHandler({}); }
  QStringList texts;
};

inline std::unique_ptr<ICSimpleParamReader> makeReader(NParamDef::EAccessRight access,
                                                       const QString& hardwareId = "HW",
                                                       ICLogfile* logfile = nullptr) {
  return std::unique_ptr<ICSimpleParamReader>(ICSimpleParamReader::createSingle(
      NktoGlobal::FILE_TYPE_PARAMETERS, hardwareId, access, logfile, 0x10000, 0x10000));
}
