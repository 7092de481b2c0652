#include "NXmlText.h"

#include <expat.h>

#include <QByteArray>

#include <algorithm>
#include <memory>

namespace NXmlText {

namespace {

bool isAsciiNameCharacter(char16_t c, bool first) {
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
  return letter || (!first && ((c >= '0' && c <= '9') || c == '-' || c == '.'));
}

/// Which characters beyond ASCII make a name differs between the editions of XML, so the parser
/// that will read the name is asked.
bool parserTakesName(const QString& name) {
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate("UTF-8"), &XML_ParserFree);
  const QByteArray document = "<" + name.toUtf8() + "/>";
  return parser &&
         XML_Parse(parser.get(), document.constData(), document.size(), 1) == XML_STATUS_OK;
}

}  // namespace

bool isName(const QString& name) {
  bool ascii = true;
  for (int i = 0; i < name.size(); ++i) {
    const char16_t c = name.at(i).unicode();
    if (c >= 0x80)
      ascii = false;
    else if (!isAsciiNameCharacter(c, i == 0))
      return false;
  }
  return !name.isEmpty() && (ascii || parserTakesName(name));
}

namespace {

void appendCodePoint(char32_t c, std::string& utf8) {
  const auto byte = [&utf8](char32_t value) { utf8 += static_cast<char>(value); };
  if (c < 0x80) {
    byte(c);
    return;
  }
  if (c < 0x800) {
    byte(0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      byte(0xE0 | (c >> 12));
    } else {
      byte(0xF0 | (c >> 18));
      byte(0x80 | ((c >> 12) & 0x3F));
    }
    byte(0x80 | ((c >> 6) & 0x3F));
  }
  byte(0x80 | (c & 0x3F));
}

}  // namespace

int appendUtf8(QStringView text, std::string& utf8) {
  int invalid = -1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    char32_t c = text[i].unicode();
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      c = QChar::surrogateToUcs4(text[i], text[i + 1]);
      ++i;
    } else if (invalid < 0 && !isCharacter(c)) {
      invalid = static_cast<int>(i);
    }
    appendCodePoint(c, utf8);
  }
  return invalid;
}

namespace {

constexpr size_t kSurrogateSize = 3;  ///< of one, in bytes

/// Where the next lone surrogate begins, which UTF-8 proper does not hold; or npos.
size_t nextSurrogate(std::string_view utf8, size_t begin) {
  size_t at = utf8.find('\xED', begin);
  while (at != std::string_view::npos && (static_cast<uchar>(utf8[at + 1]) & 0x20U) == 0)
    at = utf8.find('\xED', at + 1);
  return at;
}

/// UTF-8 without surrogates.
QString plainToQString(std::string_view utf8) {
  // QString::fromUtf8() drops a leading U+FEFF as a byte order mark; in a text it is a character.
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  int marks = 0;
  while (utf8.substr(0, kMark.size()) == kMark) {
    utf8.remove_prefix(kMark.size());
    ++marks;
  }
  const QString text = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
  return marks == 0 ? text : QString(marks, QChar(QChar::ByteOrderMark)) + text;
}

}  // namespace

QString toQString(std::string_view utf8) {
  if (utf8.empty()) return QLatin1String("");  // an empty view may have no data
  size_t surrogate = nextSurrogate(utf8, 0);
  if (surrogate == std::string_view::npos) return plainToQString(utf8);
  QString text;
  size_t begin = 0;
  for (; surrogate != std::string_view::npos; surrogate = nextSurrogate(utf8, begin)) {
    text += plainToQString(utf8.substr(begin, surrogate - begin));
    text += QChar(0xD000U | (utf8[surrogate + 1] & 0x3FU) << 6U | (utf8[surrogate + 2] & 0x3FU));
    begin = surrogate + kSurrogateSize;
  }
  return text + plainToQString(utf8.substr(begin));
}

QString firstInvalid(std::string_view utf8) {
  // Those beyond ASCII begin with the bytes of lone surrogates and of U+FFFE and U+FFFF.
  const auto mayBegin = [](char c) {
    const auto byte = static_cast<uchar>(c);
    return byte == 0xED || byte == 0xEF || (byte < 0x20 && !isSpace(byte));
  };
  for (auto at = std::find_if(utf8.begin(), utf8.end(), mayBegin); at != utf8.end();
       at = std::find_if(at + 1, utf8.end(), mayBegin)) {
    const size_t size = static_cast<uchar>(*at) < 0x80 ? 1 : kSurrogateSize;
    const QString unit = toQString(utf8.substr(static_cast<size_t>(at - utf8.begin()), size));
    if (unit.at(0).isSurrogate() || !isCharacter(unit.at(0).unicode())) return unit;
  }
  return QString();
}

QString readable(QStringView text) {
  QString result;
  for (const QChar c : text) {
    if (c.isPrint() && !c.isSurrogate()) {
      result += c;
    } else {
      result += QLatin1String("\\u") +
                QString::number(c.unicode(), 16).toUpper().rightJustified(4, QLatin1Char('0'));
    }
  }
  return result;
}

}  // namespace NXmlText
