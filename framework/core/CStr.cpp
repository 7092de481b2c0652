#include "CStr.h"

#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

namespace {

constexpr int kHexBase = 16;
constexpr int kRevisionShift = 16;

bool isBlank(QChar c) {
  return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\r') ||
         c == QLatin1Char('\n');
}

// Not QString::trimmed(): that one takes no-break spaces and their like for blanks.
QStringView trimmed(QStringView text) {
  while (!text.isEmpty() && isBlank(text.front())) text = text.mid(1);
  while (!text.isEmpty() && isBlank(text.back())) text.chop(1);
  return text;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

// A number text without blanks, in bytes. Whatever is not ASCII becomes "?", no number has that.
struct SNumberText {
  explicit SNumberText(std::string_view utf8) : rest(trimmed(utf8)) {}
  explicit SNumberText(const QString& text) {
    for (const QChar c : trimmed(text))
      bytes.append(c.unicode() < 0x80 ? static_cast<char>(c.unicode()) : '?');
    rest = {bytes.constData(), static_cast<std::size_t>(bytes.size())};
  }
  Q_DISABLE_COPY(SNumberText)

  // Takes one leading sign off; true for "-".
  bool takeMinus() {
    if (rest.empty() || (rest.front() != '-' && rest.front() != '+')) return false;
    const bool minus = rest.front() == '-';
    rest.remove_prefix(1);
    return minus;
  }

  bool takeHexPrefix() {
    if (rest.size() < 2 || rest[0] != '0' || (rest[1] != 'x' && rest[1] != 'X')) return false;
    rest.remove_prefix(2);
    return true;
  }

  QVarLengthArray<char, 64> bytes;
  std::string_view rest;
};

// Unsigned types only: for them std::from_chars accepts no sign of its own.
template <typename T>
std::optional<T> digits(std::string_view text, int base) {
  T number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

template <typename T>
bool fits(unsigned long long magnitude, bool minus) {
  constexpr auto kMax = static_cast<unsigned long long>(std::numeric_limits<T>::max());
  return magnitude <= kMax + (minus ? 1U : 0U);
}

template <typename T>
bool strToInteger(SNumberText number, T& value, int base) {
  if (base < 0 || base == 1 || base > 36) return false;
  const bool minus = number.takeMinus();
  if (minus && !std::numeric_limits<T>::is_signed) return false;
  const bool hex = (base == 0 || base == kHexBase) && number.takeHexPrefix();
  if (base == 0) base = hex ? kHexBase : 10;

  const auto magnitude = digits<unsigned long long>(number.rest, base);
  if (!magnitude || !fits<T>(*magnitude, minus)) return false;
  value = static_cast<T>(minus ? 0 - *magnitude : *magnitude);
  return true;
}

bool isText(std::string_view text, std::string_view lowerCase) {
  return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                    [](char a, char b) { return (a | 0x20) == b; });
}

// The largest numbers, written with 15 digits, are rounded up to a text beyond the largest double.
// What the library writes must be readable, so such a text is read as the largest double.
std::optional<double> roundedDown(std::string_view text) {
  constexpr long double kLargestText = 1.79769313486232e308L;
  long double number = 0.0L;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
  if (number < 1.0L || number > kLargestText) return std::nullopt;
  return std::numeric_limits<double>::max();
}

std::optional<double> magnitudeF64(std::string_view text) {
  if (isText(text, "inf")) return std::numeric_limits<double>::infinity();
  if (isText(text, "nan")) return std::numeric_limits<double>::quiet_NaN();
  // std::from_chars would also take a second sign, "infinity" and "nan(1)".
  const bool startsAsNumber =
      !text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == '.');
  if (!startsAsNumber) return std::nullopt;
  double number = 0.0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::result_out_of_range) return roundedDown(text);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

bool strToReal(SNumberText number, double& value) {
  const bool minus = number.takeMinus();
  const auto magnitude = magnitudeF64(number.rest);
  if (!magnitude) return false;
  value = minus ? -*magnitude : *magnitude;
  return true;
}

bool fitsFileName(QChar c) {
  return c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_') ||
         c == QLatin1Char('.');
}

}  // namespace

bool CStr::strToU8(const QString& text, unsigned char& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToU16(const QString& text, unsigned short& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToU32(const QString& text, unsigned int& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToU64(const QString& text, unsigned long long& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToI8(const QString& text, signed char& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToI16(const QString& text, short& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToI32(const QString& text, int& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToI64(const QString& text, long long& value, int base) {
  return strToInteger(SNumberText(text), value, base);
}

bool CStr::strToF64(const QString& text, double& value) {
  return strToReal(SNumberText(text), value);
}

template <class T>
bool CStr::toNumber(std::string_view utf8, T& value) {
  if constexpr (std::is_floating_point_v<T>)
    return strToReal(SNumberText(utf8), value);
  else
    return strToInteger(SNumberText(utf8), value, 0);
}

template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, unsigned char&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, unsigned short&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, unsigned int&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, unsigned long long&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, signed char&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, short&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, int&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, long long&);
template KTOFRAMEWORK_EXPORT bool CStr::toNumber(std::string_view, double&);

bool CStr::stringToRevision(const QString& text, unsigned int& revision) {
  const SNumberText number(text);
  const auto dot = number.rest.find('.');
  const bool hasMinor = dot != std::string_view::npos;
  const auto majorPart = digits<unsigned short>(number.rest.substr(0, dot), 10);
  std::optional<unsigned short> minorPart = 0;
  if (hasMinor) minorPart = digits<unsigned short>(number.rest.substr(dot + 1), 10);
  if (!majorPart || !minorPart) return false;
  revision = (static_cast<unsigned int>(*majorPart) << kRevisionShift) | *minorPart;
  return true;
}

std::optional<bool> CStr::haveSameMainNumber(const QString& a, const QString& b) {
  unsigned int x = 0;
  unsigned int y = 0;
  if (!stringToRevision(a, x) || !stringToRevision(b, y)) return {};
  return x >> kRevisionShift == y >> kRevisionShift;
}

QString CStr::revisionToString(unsigned int revision) {
  return QStringLiteral("%1.%2").arg(QString::number(revision >> kRevisionShift),
                                     QString::number(revision & 0xFFFFU));
}

QString CStr::createLogFileName(const QString& name) {
  if (name.isEmpty()) return {};
  QString fileName = name;
  std::replace_if(
      fileName.begin(), fileName.end(), [](QChar c) { return !fitsFileName(c); }, QLatin1Char('_'));
  return fileName + QLatin1String(".log");
}
