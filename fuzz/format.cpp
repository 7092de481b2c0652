// A file of one format (KTO_FORMAT): loaded, saved and loaded again, and once more with an edit.
// What was loaded must be savable, and nothing may change on the way; nor may a failed load change
// an object that holds something else.

#include "Finding.h"
#include "Formats.h"
#include "TestFiles.h"
#include "Torture.h"

namespace {

struct SHeld {
  const std::unique_ptr<NFormats::CFormat> object = NFormats::make(NFormats::KTO_FORMAT);
  QString state;

  SHeld() {
    NFuzz::require(object->load(NTestFiles::data(NFormats::kHeld[NFormats::KTO_FORMAT])),
                   "no file to hold");
    object->edit(QRandomGenerator(1));
    state = object->state();
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
  static const NTorture::SOptions options(0, nullptr);
  static const NTorture::CFolder folder;
  static const QString file = folder.filePath("file");
  static std::unique_ptr<SHeld> held;
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
  NTestFiles::write(file, bytes);
  if (!held) held = std::make_unique<SHeld>();
  NFuzz::isLoaded = held->object->load(file);
  if (!NFuzz::isLoaded && held->object->keepsContent()) {
    NFuzz::require(held->object->state() == held->state, "the failed load left something");
    return 0;
  }
  held.reset();
  if (!NFuzz::isLoaded) return 0;
  const unsigned choice = qChecksum(bytes.constData(), static_cast<uint>(size));
  for (const unsigned* edit : {static_cast<const unsigned*>(nullptr), &choice}) {
    const QString found =
        NFormats::roundTrip(NFormats::KTO_FORMAT, file, folder.filePath("again"), edit);
    NFuzz::require(found.isEmpty(), found);
  }
  return 0;
}
