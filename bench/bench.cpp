// The library beside what a user would write or pick instead, in one process and on the same bytes.

#include "CCompensationPoint.h"
#include "CParamDefFile.h"
#include "CParamValueFile.h"
#include "CParameterFileChecker.h"
#include "CParameterFileComparison.h"
#include "CParameterFileHelper.h"
#include "Generate.h"
#include "ICCompensationFile.h"
#include "ICParameterFile.h"
#include "Peers.h"

#include <QFile>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <functional>
#include <map>
#include <memory>

namespace {

using CFilePtr = std::unique_ptr<ICParameterFile>;

// On a file system in memory, so that the disk's sync does not count.
const QString kSaved = QStringLiteral("/dev/shm/ktoparameter-bench");

CFilePtr makeFile() {
  return CFilePtr(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
}

/// Files are made once for each size.
struct SFile {
  QByteArray bytes;
  QString name;
};

const SFile& valueFile(int size, int hardwareIds = 1) {
  static std::map<std::pair<int, int>, SFile> files;
  SFile& file = files[{size, hardwareIds}];
  if (file.name.isEmpty()) {
    file.bytes = NGenerate::valueFile(size, hardwareIds);
    file.name = NGenerate::asFile(file.bytes, "xparam");
  }
  return file;
}

const SFile& definitionFile(int size) {
  static std::map<int, SFile> files;
  SFile& file = files[size];
  if (file.name.isEmpty()) {
    file.bytes = NGenerate::definitionFile(size);
    file.name = NGenerate::asFile(file.bytes, "xpdef");
  }
  return file;
}

const SFile& shortDefinitionFile(int size) {
  static std::map<int, SFile> files;
  SFile& file = files[size];
  if (file.name.isEmpty())
    file.name = NGenerate::asFile(NGenerate::shortDefinitionFile(size), "xpdef");
  return file;
}

CFilePtr loaded(int size) {
  CFilePtr file = makeFile();
  file->loadParamDefFile(shortDefinitionFile(size / 4).name, 0x10000);
  file->loadParamFile(valueFile(size).name, QString(), 0x10000);
  return file;
}

// Cold: each run begins as in a fresh process, with the memory given back to the system and
// nothing of the data in the processor's caches, which hold all of a small file else.
bool sIsCold = false;

void begin(benchmark::State& state) {
  if (!sIsCold) return;
  state.PauseTiming();
  static std::vector<char> memory(128U << 20U);
  for (size_t i = 0; i < memory.size(); i += 64) ++memory[i];
  benchmark::DoNotOptimize(memory.data());
  malloc_trim(0);
  state.ResumeTiming();
}

void add(const std::string& name, const std::vector<int>& sizes,
         const std::function<void(benchmark::State&, int size)>& run) {
  for (const int size : sizes) {
    auto* benchmark =
        benchmark::RegisterBenchmark((name + '/' + std::to_string(size)).c_str(),
                                     [run, size](benchmark::State& state) { run(state, size); });
    benchmark->Unit(benchmark::kMillisecond);
    if (sIsCold) benchmark->Iterations(3);
  }
}

/// What a peer reads, as the library does too.
QByteArray content(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) qFatal("%s", qPrintable(name));
  return file.readAll();
}

template <class Load>
auto loading(Load load) {
  return [load](benchmark::State& state, int size) {
    const QString name = valueFile(size).name;
    for (auto _ : state) benchmark::DoNotOptimize(load(content(name)));
  };
}

template <class Save>
auto saving(Save save) {
  return [save](benchmark::State& state, int size) {
    const CHardwareIdTrees trees = NPeers::loadWithPugixml(valueFile(size).bytes);
    for (auto _ : state) {
      begin(state);
      benchmark::DoNotOptimize(save(trees));
    }
  };
}

bool saveHere(const CHardwareIdTrees& trees) {
  CParamValueFile file(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
  return file.save(kSaved, "1.0", trees, {});
}

CHardwareIdTrees loadHere(const QString& name) {
  CHardwareIdTrees trees;
  SSubDeviceLabels labels;
  QString hardwareId;
  CParamValueFile file(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
  if (file.load(name, "1.0", trees, labels, hardwareId) != 0) qFatal("load");
  return trees;
}

void askForAll(const CHardwareIdTrees& trees) {
  for (const auto& hardware : trees) {
    for (const auto& subDevice : hardware.second) {
      for (const auto* param : subDevice.second.params()) {
        benchmark::DoNotOptimize(param->name());
        benchmark::DoNotOptimize(param->value());
      }
    }
  }
}

void addFiles(const std::vector<int>& sizes) {
  add("load/here", sizes, [](benchmark::State& state, int size) {
    const QString name = valueFile(size).name;
    for (auto _ : state) {
      begin(state);
      benchmark::DoNotOptimize(loadHere(name));
    }
  });
  add("load and ask for all/here", sizes, [](benchmark::State& state, int size) {
    const QString name = valueFile(size).name;
    for (auto _ : state) {
      begin(state);
      askForAll(loadHere(name));
    }
  });
  add("save/here", sizes, saving(&saveHere));
  add("load and save/here", sizes, [](benchmark::State& state, int size) {
    const QString name = valueFile(size).name;
    for (auto _ : state) {
      begin(state);
      const CFilePtr file = makeFile();
      file->loadParamFile(name, QString(), 0x10000);
      file->saveParamFile(kSaved, QString(), 0x10000);
    }
  });
}

void addPeers(const std::vector<int>& sizes) {
  add("load/QDomDocument", sizes, loading(&NPeers::loadWithQtDom));
  add("load/QXmlStreamReader", sizes, loading(&NPeers::loadWithQtStream));
  add("load/pugixml", sizes, loading(&NPeers::loadWithPugixml));
  add("load/libxml2", sizes, loading(&NPeers::loadWithLibxml2));
  add("save/QDomDocument", sizes, saving(&NPeers::saveWithQtDom));
  add("save/QXmlStreamWriter", sizes, saving(&NPeers::saveWithQtStream));
}

void addDefinitions(const std::string& kind, const std::vector<int>& sizes,
                    const std::function<const SFile&(int size)>& definitions) {
  add("load " + kind + "/here", sizes, [=](benchmark::State& state, int size) {
    const QString name = definitions(size).name;
    for (auto _ : state) {
      begin(state);
      CParamDefFile file(nullptr, nullptr);
      if (!file.open(name, "1.0")) qFatal("load definitions");
    }
  });
  add("save " + kind + "/here", sizes, [=](benchmark::State& state, int size) {
    const CFilePtr file = makeFile();
    file->loadParamDefFile(definitions(size).name, 0x10000);
    for (auto _ : state) {
      begin(state);
      file->saveParamDefFile(kSaved, 0x10000);
    }
  });
}

void addDefinitionPeer(const std::vector<int>& sizes) {
  add("load definitions/QDomDocument", sizes, [](benchmark::State& state, int size) {
    const QString name = definitionFile(size).name;
    for (auto _ : state) benchmark::DoNotOptimize(NPeers::loadDefinitionsWithQtDom(content(name)));
  });
}

void addOperations(const std::vector<int>& sizes) {
  add("clone hardware id/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr file = loaded(size);
    for (auto _ : state) {
      begin(state);
      file->cloneHardwareId("HW0000", "copy");
      state.PauseTiming();
      file->selectHardwareId("HW0000");
      file->removeHardwareId("copy");
      state.ResumeTiming();
    }
  });
  add("import/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr source = loaded(size);
    const CFilePtr file = loaded(size);
    for (auto _ : state) {
      begin(state);
      file->importParamFile(source.get(), QString(), QString());
    }
  });
  add("check/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr file = loaded(size);
    for (auto _ : state) {
      begin(state);
      benchmark::DoNotOptimize(
          CParameterFileChecker::checkValues(*file, {}, CParameterFileChecker::SkipMissing));
    }
  });
  add("diff/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr oldFile = loaded(size);
    const CFilePtr newFile = loaded(size);
    const QStringList names = newFile->paramNames(0);
    for (int i = 0; i < names.size(); i += 10) newFile->setParamValue(names.at(i), "7", 0);
    for (auto _ : state) {
      begin(state);
      benchmark::DoNotOptimize(
          CParameterFileComparison::compare(*oldFile, *newFile, newFile.get()));
    }
  });
}

void addAccess(const std::vector<int>& sizes) {
  add("look-up by id/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr file = loaded(size);
    quint32 id = 0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(file->nameById(id + 1));
      id = (id + 7919) % (static_cast<quint32>(size) / 4);
    }
  });
  add("look-up by name/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr file = loaded(size);
    const QStringList names = file->paramNames(0);
    int i = 0;
    for (auto _ : state) {
      benchmark::DoNotOptimize(file->paramValue(names.at(i), 0));
      i = (i + 7919) % names.size();
    }
  });
  add("set and mark/here", sizes, [](benchmark::State& state, int size) {
    const CFilePtr file = loaded(size);
    const QStringList names = file->paramNames(0);
    int i = 0;
    unsigned value = 0;
    for (auto _ : state) {
      file->setAndMarkParamValue(names.at(i), CParamVal(++value), 0);
      i = (i + 7919) % names.size();
    }
  });
  add("check all points/here", sizes, [](benchmark::State& state, int size) {
    const std::unique_ptr<ICCompensationFile> file(ICCompensationFile::create(nullptr));
    for (int i = 0; i < size; ++i) {
      CCompensationPoint point;
      point.setPosition(CParamVal(i * 0.5));
      file->appendPoint(point);
    }
    QList<int> bad;
    for (auto _ : state) benchmark::DoNotOptimize(file->checkAllPoints(&bad));
  });
}

void addMany() {
  add("load 1,000 hardware ids/here", {100000}, [](benchmark::State& state, int size) {
    const QString name = valueFile(size, 1000).name;
    for (auto _ : state) makeFile()->loadParamFile(name, QString(), 0x10000);
  });
  add("motor names of 100 files/here", {10}, [](benchmark::State& state, int motors) {
    QStringList names;
    for (int i = 0; i < 100; ++i)
      names += NGenerate::asFile(NGenerate::motorFile(motors, 100), "xparam");
    const CParameterFileHelper helper(nullptr);
    for (auto _ : state) benchmark::DoNotOptimize(helper.readMotorNames(names));
  });
}

}  // namespace

int main(int argc, char** argv) {
  const auto isGiven = [&](const char* option) {
    return argc > 1 && qstrcmp(argv[1], option) == 0;
  };
  // 1,000,000 parameters take gigabytes in Qt's DOM; --large adds them.
  sIsCold = isGiven("--cold");
  const bool isLarge = isGiven("--large");
  std::vector<int> sizes{10000, 100000};
  if (!sIsCold) sizes.insert(sizes.begin(), 1000);
  // A million of the usual definitions would be above the 512 MiB of a file.
  const std::vector<int> definitionSizes = sizes;
  if (sIsCold || isLarge) sizes.push_back(1000000);
  addFiles(sizes);
  addDefinitions("definitions", definitionSizes, &definitionFile);
  addDefinitions("short definitions", sizes, &shortDefinitionFile);
  addOperations(sizes);
  if (!sIsCold) {
    addPeers(sizes);
    addDefinitionPeer(definitionSizes);
    addAccess(sizes);
    addMany();
  }
  const int options = sIsCold || isLarge ? 1 : 0;
  int count = argc - options;
  benchmark::Initialize(&count, argv + options);
  benchmark::RunSpecifiedBenchmarks();
  QFile::remove(kSaved);
  return 0;
}
