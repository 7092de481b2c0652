#pragma once

#include "CBaseLogfile.h"

/// Writes to stderr.
class CConsoleLogfile : public CBaseLogfile {
 public:
  using CBaseLogfile::CBaseLogfile;

 private:
  bool hasSink() const override;
  void writeLine(quint32 level, const QString& text) override;
};
