#include "SAddress.h"

#include "ICParamTreeNode.h"
#include "NDisplayText.h"
#include "NShortText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr QChar kQuote('"');
constexpr QChar kSlash('/');

bool misleads(QChar character) {
  switch (character.unicode()) {
    case '/':
    case '"':
    case '\\':
    case '=':
    case '[':
    case ']':
      return true;
    default:
      return false;
  }
}

bool isPlain(const QString& part) {
  return std::none_of(part.begin(), part.end(), misleads) && NDisplayText::shown(part) == part;
}

/// Behind the quotes that begin at a place; the text's end when they are not closed.
int behindQuotes(const QString& text, int begin) {
  int i = begin + 1;
  while (i < text.size() && text.at(i) != kQuote) i += text.at(i) == QLatin1Char('\\') ? 2 : 1;
  return qMin(i + 1, text.size());
}

/// Takes a text apart from its beginning.
class CAddressReader {
 public:
  explicit CAddressReader(const QString& text) : mText(text) {}

  bool isAtEnd() const { return mAt == mText.size(); }
  bool takes(QChar character) {
    const bool isThere = !isAtEnd() && mText.at(mAt) == character;
    if (isThere) ++mAt;
    return isThere;
  }

  std::optional<QString> part() {
    const int begin = mAt;
    if (!isAtEnd() && mText.at(mAt) == kQuote) {
      mAt = behindQuotes(mText, begin);
      return unquoted(mText.mid(begin, mAt - begin));
    }
    const QString plain = untilMisleading();
    return isPlain(plain) ? std::optional(plain) : std::nullopt;
  }

  std::optional<quint8> subDevice() {
    if (!takes('[')) return {};
    const QString digits = untilMisleading();
    const ushort number = digits.toUShort();
    const bool isGood = number <= 0xFF && QString::number(number) == digits && takes(']');
    return isGood ? std::optional(static_cast<quint8>(number)) : std::nullopt;
  }

 private:
  QString untilMisleading() {
    const int begin = mAt;
    while (!isAtEnd() && !misleads(mText.at(mAt))) ++mAt;
    return mText.mid(begin, mAt - begin);
  }

  static std::optional<QString> unquoted(const QString& quotes) {
    const QJsonArray array = QJsonDocument::fromJson('[' + quotes.toUtf8() + ']').array();
    return array.size() == 1 ? std::optional(array.first().toString()) : std::nullopt;
  }

  const QString mText;
  int mAt = 0;
};

}  // namespace

QString SAddress::quoted(const QString& part) {
  return isPlain(part) ? part : NDisplayText::quoted(part);
}

QString SAddress::place(const QString& hardwareId, quint8 subDevId) {
  const bool isLikeOption = hardwareId.startsWith(QLatin1Char('-'));
  const QString part = isLikeOption ? NDisplayText::quoted(hardwareId) : quoted(hardwareId);
  return QStringLiteral("%1[%2]").arg(NShortText::of(part), QString::number(subDevId));
}

QStringList SAddress::groupsOf(const ICParamTreeNode& node) {
  QStringList groups;
  for (const ICParamTreeNode* each = node.parentPtr(); each && each->parentPtr();
       each = each->parentPtr())
    groups.prepend(each->name());
  return groups;
}

QString SAddress::toText() const {
  QString path;
  for (const QString& group : groups) path = NShortText::below(path, quoted(group));
  QStringList parts{place(hardwareId, subDevId), NShortText::of(quoted(name))};
  if (!groups.isEmpty()) parts.insert(1, path);
  return parts.join(kSlash);
}

std::optional<SAddress> SAddress::read(const QString& text) {
  CAddressReader reader(text);
  const std::optional<QString> hardwareId = reader.part();
  const std::optional<quint8> subDevice = reader.subDevice();
  if (!hardwareId || !subDevice) return {};
  SAddress address{*hardwareId, *subDevice, {}, {}};
  while (reader.takes(kSlash)) {
    const std::optional<QString> part = reader.part();
    if (!part) return {};
    address.groups.append(*part);
  }
  if (!reader.isAtEnd() || address.groups.isEmpty()) return {};
  address.name = address.groups.takeLast();
  return address;
}

int SAddress::lengthOf(const QString& text) {
  for (int i = 0; i < text.size();) {
    if (text.at(i) == QLatin1Char('=')) return i;
    i = text.at(i) == kQuote ? behindQuotes(text, i) : i + 1;
  }
  return -1;
}
