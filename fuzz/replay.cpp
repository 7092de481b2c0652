// Runs files, and those of folders, through a target without a fuzzer. Those named after
// "--damage N", as far as they can be loaded, are cut as well, and a bit flipped or a block lost.

#include "Finding.h"

#include <QDirIterator>
#include <QRandomGenerator>

namespace {

/// Whether the target could load the bytes.
bool run(const QByteArray& bytes) {
  NFuzz::isLoaded = false;
  LLVMFuzzerTestOneInput(reinterpret_cast<const quint8*>(bytes.constData()),
                         static_cast<size_t>(bytes.size()));
  return NFuzz::isLoaded;
}

void cut(const QByteArray& whole, int times) {
  const int step = 1 + whole.size() / times;
  for (int size = 0; size < whole.size(); size += size < whole.size() - 50 ? step : 1) {
    // Without its last line end a file is still whole.
    const bool isWhole = whole.mid(size).replace('\0', ' ').trimmed().isEmpty();
    NFuzz::require(!run(whole.left(size)) || isWhole, QString("%1 bytes were loaded").arg(size));
  }
}

void flipABit(QByteArray bytes, QRandomGenerator& random) {
  bytes.data()[random.bounded(bytes.size())] ^= static_cast<char>(1 << random.bounded(8));
  run(bytes);
}

/// Of up to a page, which disks lose most.
void loseABlock(QByteArray bytes, QRandomGenerator& random) {
  const int size = 16 << random.bounded(9);
  const int position = random.bounded((bytes.size() + size - 1) / size) * size;
  const int lost = qMin(size, bytes.size() - position);
  bytes.replace(position, lost, QByteArray(lost, '\0'));
  NFuzz::require(!run(bytes), QString("%1 zeros at %2 were loaded").arg(lost).arg(position));
}

int runFile(const QString& name, int damages) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray bytes = file.readAll();
  if (!run(bytes) || damages == 0) return 1;
  QRandomGenerator random(1);
  cut(bytes, damages);
  for (int i = 0; i < damages; ++i) flipABit(bytes, random);
  for (int i = 0; i < damages / 4; ++i) loseABlock(bytes, random);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  int damages = 0;
  for (int i = 1; i < argc; ++i) {
    if (qstrcmp(argv[i], "--damage") == 0 && i + 1 < argc) damages = std::atoi(argv[++i]);
    count += runFile(argv[i], damages);
    QDirIterator files(argv[i], QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) count += runFile(files.next(), damages);
  }
  std::printf("%d files replayed\n", count);
  return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
