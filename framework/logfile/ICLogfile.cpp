#include "ICLogfile.h"

#include "CConsoleLogfile.h"
#include "CQtLogfile.h"
#include "CSilentLogfile.h"
#include "CTextLogfile.h"

ICLogfile::~ICLogfile() = default;

ICLogfile* ICLogfile::createLogfile(int type, const QString& name, quint32 levelMask) {
  if (name.isEmpty()) return new CSilentLogfile(levelMask);
  switch (type) {
    case LogFile:
      return new CTextLogfile(name, levelMask);
    case LogConsole:
      return new CConsoleLogfile(levelMask);
    case LogQt:
      return new CQtLogfile(levelMask);
    default:
      return new CSilentLogfile(levelMask);
  }
}
