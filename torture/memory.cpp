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

using namespace NTestFiles;
using namespace NTorture;

namespace {

bool sIsArmed = false;
int sLeft = 0;             ///< allocations before the one that fails
bool sStaysEmpty = false;  ///< all that follow fail too

bool hasStruck() {
  return sLeft < 0;
}
bool strikes() {
  if (sIsArmed && sLeft >= 0) return --sLeft < 0;
  return sIsArmed && sStaysEmpty;
}

/// The arena and its strings allocate in these; what Qt and the model do is not meant.
bool isOfTheDocument(const void* caller) {
  Dl_info info{};
  return ::dladdr(caller, &info) != 0 &&
         (std::strstr(info.dli_fname, "libktoFramework") != nullptr ||
          std::strstr(info.dli_fname, "libstdc++") != nullptr);
}

void* allocate(size_t size, const void* caller) {
  if (sIsArmed && isOfTheDocument(caller) && strikes()) throw std::bad_alloc();
  return std::malloc(size);
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
    sLeft = n;
    sStaysEmpty = staysEmpty;
    load();
    if (!hasStruck()) return n;
  }
}

QString document(int names) {
  QString text = "<r a='1'><!-- --><?p?><![CDATA[x]]>&amp;&#228;<b> </b>";
  for (int i = 0; i < names; ++i)
    text += QString("<n%1 x%1='%2'>%2</n%1>").arg(i).arg(QString(i, 'x'));
  return text + QString("<d>").repeated(100) + QString("</d>").repeated(100) + "</r>";
}

int failDocument(const QByteArray& bytes, bool staysEmpty, CTally& tally) {
  return failEach(staysEmpty, [&] {
    CDomDoc document;
    QString error;
    sIsArmed = true;
    const bool done = document.setContent(bytes, error);
    sIsArmed = false;
    tally.check(done != hasStruck(), "document: " + error);
    tally.check(done || error == "There is not enough memory to read the document.", error);
    tally.check(done != document.documentElement().isNull(), "a document is left");
  });
}

int failDocuments(int names, CTally& tally) {
  int count = 0;
  for (const char* start : {"<?xml version='1.0'?>", "<!DOCTYPE r SYSTEM 'x'>"}) {
    const QString text = start + document(names);
    const QByteArray wide(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
    for (const QByteArray& bytes : {text.toUtf8(), wide})
      count += failDocument(bytes, false, tally) + failDocument(bytes, true, tally);
  }
  return count;
}

/// The name is that of an example, which is loaded into an object that holds a test file.
int failFile(NFormats::EFormat format, const char* name, CTally& tally) {
  return failEach(false, [&] {
    const auto object = NFormats::make(format);
    tally.check(object->load(data(NFormats::kHeld[format])), name);
    const QString state = object->state();
    sIsArmed = true;
    bool done = false;
    try {
      done = object->load(example(name));
    } catch (const std::bad_alloc&) {  // of the model, which is the application's affair
    }
    sIsArmed = false;
    tally.check(done != hasStruck(), name + QString(": a load that failed, or did not"));
    tally.check(done || !object->keepsContent() || object->state() == state,
                name + QString(": the failed load left something"));
  });
}

/// What a save throws then is the application's affair; its file is whole.
int failSave(const QString& target, CTally& tally) {
  const auto object = NFormats::make(NFormats::Values);
  tally.check(object->load(data("values/valid/TwoHardwareIds.xparam")), target);
  return failEach(false, [&] {
    write(target, "old");
    bool isSaved = false;
    sIsArmed = true;
    try {
      isSaved = object->save(target);
    } catch (const std::bad_alloc&) {
    }
    sIsArmed = false;
    tally.check((read(target) == "old") != isSaved, "a save that failed, or did not");
  });
}

/// A file that is larger than the memory that the process may have, from now on.
void failRead(const QString& name, CTally& tally) {
  constexpr rlim_t kBytes = 400 << 20;
  QByteArray content;
  QString error;
  write(name, content);
  QFile::resize(name, kBytes);
  struct rlimit limit {};
  ::getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = kBytes;
  ::setrlimit(RLIMIT_AS, &limit);
  const bool done = CAtomicFile::read(name, content, error);
  tally.check(!done && error == "there is not enough memory to read the file.", error);
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("memory");
  const CFolder folder;
  int count =
      failDocuments(options.pick(60, 300), tally) + failSave(folder.filePath("file"), tally);
  for (const auto& [format, name] : {std::pair{NFormats::Definitions, "TwoAxisDrive.xpdef"},
                                     {NFormats::Values, "TwoAxisDrive.xparam"},
                                     {NFormats::Settings, "MachineSettings.xset"},
                                     {NFormats::Compensation, "SpindleCompensation.xcomp"}}) {
    count += failFile(format, name, tally);
  }
  if (options.hasLimits) failRead(folder.filePath("large"), tally);
  tally.check(count > 500, "hardly an allocation failed");
  return tally.finish(QString("%1 failed allocations").arg(count));
}
