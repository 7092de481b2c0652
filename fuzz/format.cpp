// A file of one format (KTO_FORMAT): loaded, saved and loaded again, and once more with an edit.
// What was loaded must be savable, and nothing may change on the way.

#include "Finding.h"
#include "Formats.h"
#include "Torture.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
  static const NTorture::SOptions options(0, nullptr);
  static const NTorture::CFolder folder;
  static const QString file = folder.path("file");
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
  NTorture::writeFile(file, bytes);
  const auto object = NFormats::make(NFormats::KTO_FORMAT);
  const QString state = object->state();
  if (!object->load(file)) {
    NFuzz::require(!object->keepsContent() || object->state() == state, "the failed load stays");
    return 0;
  }
  const unsigned choice = qChecksum(bytes.constData(), static_cast<uint>(size));
  NFuzz::require(NFormats::roundTrip(NFormats::KTO_FORMAT, file, folder.path("again")));
  NFuzz::require(NFormats::roundTrip(NFormats::KTO_FORMAT, file, folder.path("again"), &choice));
  return 0;
}
