// Every allocation of the parser and of the document fails once in a load: the load fails with a
// message, and nothing else happens.

#include "CAtomicFile.h"
#include "CDomDoc.h"
#include "Formats.h"
#include "Torture.h"

#include <QFile>

#include <expat.h>

#include <dlfcn.h>
#include <sys/resource.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>

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

QByteArray document(bool hasType, int names) {
  QByteArray text = hasType ? "<!DOCTYPE r SYSTEM 'x'>" : "<?xml version='1.0' encoding='UTF-8'?>";
  text += "<r a='1'><!-- --><?p?><![CDATA[x]]>&amp;&#228;<b> </b>";
  for (int i = 0; i < names; ++i) {
    const QByteArray name = "n" + QByteArray::number(i);
    text += "<" + name + " " + name + "x='" + QByteArray(i, 'x') + "'>" + QByteArray(i, 'y') +
            "</" + name + ">";
  }
  return text + QByteArray("<d>").repeated(100) + QByteArray("</d>").repeated(100) + "</r>";
}

int failDocuments(int names, CTally& tally) {
  int count = 0;
  for (const bool hasType : {false, true}) {
    for (const bool isWide : {false, true}) {
      QByteArray bytes = document(hasType, names);
      if (isWide) {
        const QString text = QString::fromUtf8(bytes).replace("UTF-8", "UTF-16");
        bytes = QByteArray(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
      }
      for (const bool staysEmpty : {false, true}) {
        count += failEach(staysEmpty, [&] {
          CDomDoc document;
          QString error;
          const bool done = document.setContent(bytes, error);
          sPlan.isArmed = false;
          tally.check(done != sPlan.hasStruck, "document: " + error);
          tally.check(done || error == "There is not enough memory to read the document.", error);
          tally.check(done != document.documentElement().isNull(), "a document is left");
        });
      }
    }
  }
  return count;
}

int failFile(NFormats::EFormat format, const char* name, const char* before, CTally& tally) {
  return failEach(false, [&] {
    sPlan.isArmed = false;
    const auto object = NFormats::make(format);
    tally.check(object->load(testFile(before)), before);
    const QString state = object->state();
    sPlan.isArmed = true;
    const bool done = object->load(exampleFile(name));
    sPlan.isArmed = false;
    tally.check(done != sPlan.hasStruck, name + QString(": allocation %1").arg(sPlan.left));
    tally.check(done || !object->keepsContent() || object->state() == state,
                name + QString(": the failed load left something"));
  });
}

/// What a save throws then is the application's affair; its file is whole.
int failSave(const CFolder& folder, CTally& tally) {
  const auto object = NFormats::make(NFormats::Values);
  const QString target = folder.path("file");
  tally.check(object->load(testFile("values/valid/TwoHardwareIds.xparam")), target);
  return failEach(false, [&] {
    sPlan.isArmed = false;
    writeFile(target, "old");
    bool isSaved = false;
    sPlan.isArmed = true;
    try {
      isSaved = object->save(target);
    } catch (const std::bad_alloc&) {
    }
    sPlan.isArmed = false;
    tally.check((readFile(target) == "old") != isSaved, "a save that failed, or did not");
  });
}

/// A file that is larger than the memory that the process may have.
void failRead(const CFolder& folder, CTally& tally) {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  constexpr qint64 kBytes = 400 << 20;
  QByteArray content;
  QString error;
  writeFile(folder.path("large"), content);
  QFile::resize(folder.path("large"), kBytes);
  struct rlimit old {};
  ::getrlimit(RLIMIT_AS, &old);
  struct rlimit small = old;
  small.rlim_cur = kBytes;
  ::setrlimit(RLIMIT_AS, &small);
  const bool done = CAtomicFile::read(folder.path("large"), content, error);
  ::setrlimit(RLIMIT_AS, &old);
  tally.check(!done && error == "there is not enough memory to read the file.", error);
#else
  Q_UNUSED(folder)
  Q_UNUSED(tally)
#endif
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("memory");
  int count = failDocuments(options.pick(60, 300), tally);
  count += failFile(NFormats::Definitions, "TwoAxisDrive.xpdef",
                    "definitions/valid/Everything.xpdef", tally);
  count += failFile(NFormats::Values, "TwoAxisDrive.xparam", "values/valid/TwoHardwareIds.xparam",
                    tally);
  count += failFile(NFormats::Settings, "MachineSettings.xset", "settings/valid/types.xml", tally);
  count += failFile(NFormats::Compensation, "SpindleCompensation.xcomp",
                    "compensation/valid/current.xml", tally);
  const CFolder folder;
  count += failSave(folder, tally);
  failRead(folder, tally);
  tally.check(count > 500, "hardly an allocation failed");
  return tally.finish(QString("%1 failed allocations").arg(count));
}
