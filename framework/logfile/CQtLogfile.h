#pragma once

#include "CBaseLogfile.h"

/// Hands the lines to Qt's logging, category "kto", which adds time and level itself.
class CQtLogfile : public CBaseLogfile {
 public:
  using CBaseLogfile::CBaseLogfile;

 private:
  bool hasSink() const override;
  void writeLine(quint32 level, const QString& text) override;
};
