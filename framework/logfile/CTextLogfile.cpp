#include "CTextLogfile.h"

CTextLogfile::CTextLogfile(const QString& fileName, quint32 levelMask)
    : CBaseLogfile(levelMask), mFile(fileName) {}

bool CTextLogfile::hasSink() const {
  return !mOpenFailed;
}

void CTextLogfile::writeLine(quint32 level, const QString& text) {
  // Unbuffered and appending: a line is one write, which neither a crash nor another logfile on
  // the same file can tear apart.
  if (!mFile.isOpen()) {
    mOpenFailed = !mFile.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
  }
  if (!mOpenFailed) mFile.write(stampedLine(level, text));
}
