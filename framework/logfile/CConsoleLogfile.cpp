#include "CConsoleLogfile.h"

#include <cstdio>

bool CConsoleLogfile::hasSink() const {
  return true;
}

void CConsoleLogfile::writeLine(quint32 level, const QString& text) {
  const QByteArray line = stampedLine(level, text);
  std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
  std::fflush(stderr);
}
