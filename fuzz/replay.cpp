// Runs files, and those of folders, through a target without a fuzzer.

#include "Finding.h"

#include <QDirIterator>

namespace {

bool runFile(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray bytes = file.readAll();
  LLVMFuzzerTestOneInput(reinterpret_cast<const quint8*>(bytes.constData()),
                         static_cast<size_t>(bytes.size()));
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    count += runFile(argv[i]) ? 1 : 0;
    QDirIterator files(argv[i], QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) count += runFile(files.next()) ? 1 : 0;
  }
  std::printf("%d files replayed\n", count);
  return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
