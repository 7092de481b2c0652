// Every allocation of the parser and of the document fails once in a load: the load fails with a
// message, and nothing else happens.

#include "CAtomicFile.h"
#include "CDomDoc.h"
#include "Formats.h"
#include "TestFiles.h"
#include "Torture.h"

#include <QFile>

#include <expat.h>

#include <dlfcn.h>
#include <sys/resource.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <tuple>

using namespace NTestFiles;
using namespace NTorture;

namespace {

struct SPlan {
  bool isArmed = false;
  int left = 0;             ///< allocations before the one that fails
  bool staysEmpty = false;  ///< all that follow fail too
  bool hasStruck = false;
} sPlan;

bool strikes() {
  if (!sPlan.isArmed || (sPlan.hasStruck && !sPlan.staysEmpty)) return false;
  if (sPlan.left-- > 0) return false;
  sPlan.hasStruck = true;
  return true;
}

/// The arena and its strings allocate in these; what Qt and the model do is not meant.
bool isOfTheDocument(const void* caller) {
  Dl_info info{};
  return ::dladdr(caller, &info) != 0 &&
         (std::strstr(info.dli_fname, "libktoFramework") != nullptr ||
          std::strstr(info.dli_fname, "libstdc++") != nullptr);
}

void* allocate(size_t size, const void* caller) {
  void* memory =
      sPlan.isArmed && isOfTheDocument(caller) && strikes() ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

#pragma GCC visibility push(default)
void* operator new(size_t size) {
  return allocate(size, __builtin_return_address(0));
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
  std::free(memory);
}

/// Stands in front of the parser's own, and gives it an allocator that fails.
XML_Parser XML_ParserCreate(const XML_Char* encoding) {
  static const XML_Memory_Handling_Suite suite = {
      [](size_t size) { return strikes() ? nullptr : std::malloc(size); },
      [](void* memory, size_t size) { return strikes() ? nullptr : std::realloc(memory, size); },
      [](void* memory) { std::free(memory); }};
  return XML_ParserCreate_MM(encoding, &suite, nullptr);
}
#pragma GCC visibility pop

namespace {

/// Loads until no allocation is left to fail; how many there were.
int failEach(bool staysEmpty, const std::function<void()>& load) {
  for (int n = 0;; ++n) {
    sPlan = {true, n, staysEmpty, false};
    load();
    if (!sPlan.hasStruck) return n;
  }
}

QByteArray document(int names) {
  QByteArray text = "<r a='1'><!-- --><?p?><![CDATA[x]]>&amp;&#228;<b> </b>";
  for (int i = 0; i < names; ++i) {
    const QByteArray name = "n" + QByteArray::number(i);
    text += "<" + name + " " + name + "x='" + QByteArray(i, 'x') + "'>" + QByteArray(i, 'y') +
            "</" + name + ">";
  }
  return text + QByteArray("<d>").repeated(100) + QByteArray("</d>").repeated(100) + "</r>";
}

int failDocument(const QByteArray& bytes, bool staysEmpty, CTally& tally) {
  return failEach(staysEmpty, [&] {
    CDomDoc document;
    QString error;
    const bool done = document.setContent(bytes, error);
    sPlan.isArmed = false;
    tally.check(done != sPlan.hasStruck, "document: " + error);
    tally.check(done || error == "There is not enough memory to read the document.", error);
    tally.check(done != document.documentElement().isNull(), "a document is left");
  });
}

int failDocuments(int names, CTally& tally) {
  int count = 0;
  for (const char* start : {"<?xml version='1.0'?>", "<!DOCTYPE r SYSTEM 'x'>"}) {
    const QByteArray narrow = start + document(names);
    const QString text = QString::fromUtf8(narrow);
    const QByteArray wide(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
    for (const bool staysEmpty : {false, true})
      for (const QByteArray& bytes : {narrow, wide})
        count += failDocument(bytes, staysEmpty, tally);
  }
  return count;
}

/// The name is that of an example, which is loaded into an object that holds a test file.
int failFile(NFormats::EFormat format, const char* name, const char* held, CTally& tally) {
  return failEach(false, [&] {
    sPlan.isArmed = false;
    const auto object = NFormats::make(format);
    tally.check(object->load(data(held)), held);
    const QString state = object->state();
    sPlan.isArmed = true;
    const bool done = object->load(example(name));
    sPlan.isArmed = false;
    tally.check(done != sPlan.hasStruck, name + QString(": allocation %1").arg(sPlan.left));
    tally.check(done || !object->keepsContent() || object->state() == state,
                name + QString(": the failed load left something"));
  });
}

/// What a save throws then is the application's affair; its file is whole.
int failSave(const QString& target, CTally& tally) {
  const auto object = NFormats::make(NFormats::Values);
  tally.check(object->load(data("values/valid/TwoHardwareIds.xparam")), target);
  return failEach(false, [&] {
    sPlan.isArmed = false;
    write(target, "old");
    bool isSaved = false;
    sPlan.isArmed = true;
    try {
      isSaved = object->save(target);
    } catch (const std::bad_alloc&) {
    }
    sPlan.isArmed = false;
    tally.check((read(target) == "old") != isSaved, "a save that failed, or did not");
  });
}

/// A file that is larger than the memory that the process may have.
void failRead(const QString& name, CTally& tally) {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  constexpr qint64 kBytes = 400 << 20;
  QByteArray content;
  QString error;
  write(name, content);
  QFile::resize(name, kBytes);
  struct rlimit old {};
  ::getrlimit(RLIMIT_AS, &old);
  const struct rlimit small {
    kBytes, old.rlim_max
  };
  ::setrlimit(RLIMIT_AS, &small);
  const bool done = CAtomicFile::read(name, content, error);
  ::setrlimit(RLIMIT_AS, &old);
  tally.check(!done && error == "there is not enough memory to read the file.", error);
#else
  tally.check(true, name);
#endif
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("memory");
  int count = failDocuments(options.pick(60, 300), tally);
  for (const auto& [format, name, held] :
       {std::tuple{NFormats::Definitions, "TwoAxisDrive.xpdef",
                   "definitions/valid/Everything.xpdef"},
        {NFormats::Values, "TwoAxisDrive.xparam", "values/valid/TwoHardwareIds.xparam"},
        {NFormats::Settings, "MachineSettings.xset", "settings/valid/types.xml"},
        {NFormats::Compensation, "SpindleCompensation.xcomp", "compensation/valid/current.xml"}}) {
    count += failFile(format, name, held, tally);
  }
  const CFolder folder;
  count += failSave(folder.filePath("file"), tally);
  failRead(folder.filePath("large"), tally);
  tally.check(count > 500, "hardly an allocation failed");
  return tally.finish(QString("%1 failed allocations").arg(count));
}
