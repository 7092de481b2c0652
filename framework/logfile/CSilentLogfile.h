#pragma once

#include "CBaseLogfile.h"

/// Has no sink; it keeps mask and prefix like any other.
class CSilentLogfile : public CBaseLogfile {
 public:
  using CBaseLogfile::CBaseLogfile;

 private:
  bool hasSink() const override { return false; }
  void writeLine(quint32 /*level*/, const QString& /*text*/) override {}
};
