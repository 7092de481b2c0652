#include "CQtLogfile.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(logfileCategory, "kto")

bool isError(quint32 level) {
  return level == ICLogfile::kLevelErrors || (level & ICLogfile::kLevelReadErrors) != 0;
}

}  // namespace

bool CQtLogfile::hasSink() const {
  return true;
}

void CQtLogfile::writeLine(quint32 level, const QString& text) {
  if (isError(level)) {
    qCWarning(logfileCategory, "%ls", qUtf16Printable(text));
  } else {
    qCInfo(logfileCategory, "%ls", qUtf16Printable(text));
  }
}
