#include "ICLogfile.h"

#include "CLogfile.h"

#include <QDateTime>
#include <QFile>
#include <QLoggingCategory>

#include <cstdio>
#include <memory>

namespace {

Q_LOGGING_CATEGORY(logfileCategory, "kto")

/// Time, level and text, as the file and stderr show them.
QByteArray stampedLine(quint32 level, const QString& text) {
  const QString time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
  return QStringLiteral("%1 %2 %3\n")
      .arg(time, QStringLiteral("%1").arg(level, 8, 16, QLatin1Char('0')), text)
      .toUtf8();
}

/// Opened late, so that a logfile nobody writes to leaves no file. Unbuffered and appending: a line
/// is one write, which neither a crash nor another logfile on the same file can tear apart.
CLogfile::CSink textFile(const QString& fileName) {
  const auto file = std::make_shared<QFile>(fileName);
  return [file](quint32 level, const QString& line) {
    if (!file->isOpen() &&
        !file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
      return false;
    }
    file->write(stampedLine(level, line));
    return true;
  };
}

bool writeToConsole(quint32 level, const QString& line) {
  const QByteArray bytes = stampedLine(level, line);
  std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
  std::fflush(stderr);
  return true;
}

/// Qt's logging adds time and level itself.
bool writeToQt(quint32 level, const QString& line) {
  if (level == ICLogfile::kLevelErrors || (level & ICLogfile::kLevelReadErrors) != 0)
    qCWarning(logfileCategory, "%ls", qUtf16Printable(line));
  else
    qCInfo(logfileCategory, "%ls", qUtf16Printable(line));
  return true;
}

CLogfile::CSink sinkOf(int type, const QString& name) {
  if (name.isEmpty()) return {};
  switch (type) {
    case ICLogfile::LogFile:
      return textFile(name);
    case ICLogfile::LogConsole:
      return writeToConsole;
    case ICLogfile::LogQt:
      return writeToQt;
    default:
      return {};
  }
}

}  // namespace

ICLogfile::~ICLogfile() = default;

ICLogfile* ICLogfile::createLogfile(int type, const QString& name, quint32 levelMask) {
  return new CLogfile(levelMask, sinkOf(type, name));
}
