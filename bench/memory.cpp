// Growth of memory while a value file is loaded, and after a million parameters were deleted and
// added again, in bytes per byte of the file:
// bench_memory PARAMETERS

#include "Generate.h"
#include "ICParameterFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <malloc.h>

#include <memory>
#include <random>
#include <vector>

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

/// Takes any parameters out of their groups, and puts them at the end of these.
void replaceParameters(ICParameterFile& file, int count) {
  std::vector<ICParamTreeNode*> groups;
  for (const quint8 subDevId : file.subDeviceIds()) {
    ICParamTreeNode* const root = file.existingSubGroup(QString(), subDevId);
    for (int i = 0; i < root->childCnt(); ++i) groups.push_back(root->childPtr(i));
  }
  std::mt19937 random(1);  // NOLINT(bugprone-random-generator-seed): the same each time
  for (int i = 0; i < count; ++i) {
    ICParamTreeNode* const group = groups[random() % groups.size()];
    ICParamTreeNode* const old =
        group->childPtr(static_cast<int>(random() % static_cast<unsigned>(group->childCnt())));
    const QString name = old->name();
    const CParamVal value = old->value();
    if (!file.deleteNode(old) || file.addParameter(group, name, value) == nullptr)
      qFatal("replace");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int parameters = argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
  const QString name = NGenerate::asFile(NGenerate::valueFile(parameters), "xparam");
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  const QString definitions =
      NGenerate::asFile(NGenerate::shortDefinitionFile(parameters / 4), "xpdef");
  if (!file->loadParamDefFile(definitions, 0x10000)) return 1;
  malloc_trim(0);
  resetPeak();
  const qint64 before = status("VmRSS");
  if (!file->loadParamFile(name, QString(), 0x10000)) return 1;
  const auto size = static_cast<double>(QFileInfo(name).size());
  const auto peak = static_cast<double>(status("VmHWM") - before);
  malloc_trim(0);
  const auto rest = static_cast<double>(status("VmRSS") - before);
  replaceParameters(*file, 1000000);
  malloc_trim(0);
  const auto replaced = static_cast<double>(status("VmRSS") - before);
  QTextStream(stdout) << QString::asprintf(
      "%d parameters, %.1f MB: peak %.2f, afterwards %.2f bytes per byte, %.2f after a million "
      "deletions and additions\n",
      parameters, size / 1e6, peak / size, rest / size, replaced / size);
  return 0;
}
