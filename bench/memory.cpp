// Peak growth of memory while a value file is loaded, in bytes per byte of the file:
// bench_memory PARAMETERS

#include "Generate.h"
#include "ICParameterFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <malloc.h>

#include <memory>

namespace {

/// A figure of this process, in bytes.
qint64 status(const QByteArray& name) {
  QFile file("/proc/self/status");
  if (!file.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : file.readAll().split('\n'))
    if (line.startsWith(name + ':'))
      return line.simplified().split(' ').value(1).toLongLong() * 1024;
  return 0;
}

void resetPeak() {
  QFile file("/proc/self/clear_refs");
  if (file.open(QIODevice::WriteOnly)) file.write("5");
}

}  // namespace

int main(int argc, char** argv) {
  const int parameters = argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
  const QString name = NGenerate::asFile(NGenerate::valueFile(parameters), "xparam");
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  malloc_trim(0);
  resetPeak();
  const qint64 before = status("VmRSS");
  if (!file->loadParamFile(name, QString(), 0x10000)) return 1;
  const auto size = static_cast<double>(QFileInfo(name).size());
  const auto peak = static_cast<double>(status("VmHWM") - before);
  malloc_trim(0);
  const auto rest = static_cast<double>(status("VmRSS") - before);
  QTextStream(stdout) << QString::asprintf(
      "%d parameters, %.1f MB: peak %.2f, afterwards %.2f bytes per byte\n", parameters, size / 1e6,
      peak / size, rest / size);
  return 0;
}
