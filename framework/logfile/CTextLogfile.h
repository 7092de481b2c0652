#pragma once

#include "CBaseLogfile.h"

#include <QFile>

/// Appends to a text file, opened late so that a logfile nobody writes to leaves no file.
class CTextLogfile : public CBaseLogfile {
 public:
  CTextLogfile(const QString& fileName, quint32 levelMask);

 private:
  bool hasSink() const override;
  void writeLine(quint32 level, const QString& text) override;

  QFile mFile;
  bool mOpenFailed = false;
};
