// Numbers, values and revisions from text, against the C library's conversion.

#include "CParamVal.h"
#include "CStr.h"
#include "Finding.h"

#include <clocale>
#include <cmath>
#include <cstdlib>

namespace {

template <class T>
void requireRoundTrip(const QString& text) {
  T number = 0;
  if (!CParamVal(text).value(number)) return;
  T again = 0;
  NFuzz::require(CParamVal(number).value(again) && again == number, "another number: " + text);
}

void requireSameDouble(const QString& text) {
  double number = 0;
  if (!CStr::strToF64(text, number) || std::isnan(number)) return;
  static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
  const double expected = ::strtod_l(text.trimmed().toLatin1().constData(), nullptr, plain);
  // A text of the largest number in 15 digits is beyond it, and is taken for it.
  NFuzz::require(number == expected || (std::isinf(expected) && std::isfinite(number)),
                 "another double: " + text);
  double again = 0;
  const CParamVal value(number);
  NFuzz::require(value.value(again) && CParamVal(again).asStr() == value.asStr(),
                 "another double in 15 digits: " + text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
  if (size == 0) return 0;
  const QString text =
      QString::fromUtf8(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size) - 1);
  unsigned long long number = 7;
  NFuzz::require(CStr::strToU64(text, number, data[0] % 40) || number == 7, "a touched output");
  requireRoundTrip<signed char>(text);
  requireRoundTrip<quint16>(text);
  requireRoundTrip<int>(text);
  requireRoundTrip<quint64>(text);
  requireRoundTrip<qint64>(text);
  requireSameDouble(text);
  NFuzz::require(!CStr::createLogFileName(text).contains('/'), "a path for a logfile: " + text);
  unsigned int revision = 0;
  if (!CStr::stringToRevision(text, revision)) return 0;
  unsigned int again = 0;
  NFuzz::require(
      CStr::stringToRevision(CStr::revisionToString(revision), again) && again == revision,
      "another revision: " + text);
  return 0;
}
