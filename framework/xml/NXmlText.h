#pragma once

#include "ktoFramework_export.h"

#include <QString>
#include <QStringView>

#include <string>
#include <string_view>

/// Which characters XML 1.0 holds, and the way from UTF-16 to the document's UTF-8.
namespace NXmlText {

constexpr bool isSpace(char32_t c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// A character that a document may hold, surrogates excepted.
constexpr bool isCharacter(char32_t c) {
  return c >= 0x20 ? (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF
                   : isSpace(c);
}

/// A name that the parser reads as a tag.
bool isName(const QString& name);

/// Appends the text as UTF-8. Returns the index of the first unit that XML cannot hold (a control
/// character, a lone surrogate, U+FFFE, U+FFFF), or -1; such units are appended like all others.
KTOFRAMEWORK_EXPORT int appendUtf8(QStringView text, std::string& utf8);

/// The first of such units in what appendUtf8() made; null when there is none.
QString firstInvalid(std::string_view utf8);

/// What appendUtf8() made, or other UTF-8, as a QString, which is never null.
KTOFRAMEWORK_EXPORT QString toQString(std::string_view utf8);

/// A text for messages, with everything but printable characters written as \uXXXX.
QString readable(QStringView text);

}  // namespace NXmlText
