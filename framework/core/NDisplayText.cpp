#include "NDisplayText.h"

#include <QChar>
#include <QVector>

#include <clocale>
#include <cwchar>

namespace {

constexpr int kDeepest = 20;

bool turnsDirection(uint character) {
  return (character >= 0x202A && character <= 0x202E) ||
         (character >= 0x2066 && character <= 0x2069);
}

bool needsEscape(uint character) {
  switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    default:
      return turnsDirection(character);
  }
}

QString escape(uint character) {
  switch (character) {
    case '\n':
      return QStringLiteral("\\n");
    case '\r':
      return QStringLiteral("\\r");
    case '\t':
      return QStringLiteral("\\t");
    default:
      return QStringLiteral("\\u%1").arg(character, 4, 16, QLatin1Char('0'));
  }
}

int widthOf(uint character) {
  if (character >= 0x20 && character < 0x7F) return 1;
  // The locale of the process may know ASCII only.
  static const locale_t kUtf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  const locale_t before = uselocale(kUtf8);
  const int width = wcwidth(static_cast<wchar_t>(character));
  uselocale(before);
  return width < 0 ? 1 : width;
}

}  // namespace

QString NDisplayText::escaped(const QString& text) {
  QString result;
  result.reserve(text.size());
  for (const uint character : text.toUcs4())
    if (needsEscape(character))
      result += escape(character);
    else
      result += QString::fromUcs4(&character, 1);
  return result;
}

QString NDisplayText::shown(const QString& text) {
  const QString safe = escaped(text);
  const bool plain = safe == text && !text.isEmpty() && !text.startsWith(QLatin1Char('"')) &&
                     !text.at(0).isSpace() && !text.at(text.size() - 1).isSpace();
  if (plain) return text;

  QString quoted = text;
  quoted.replace(QLatin1String("\\"), QLatin1String("\\\\"));
  quoted.replace(QLatin1String("\""), QLatin1String("\\\""));
  return QStringLiteral("\"%1\"").arg(escaped(quoted));
}

QString NDisplayText::shownOrNothing(const QString& text) {
  return text.isEmpty() ? QString() : shown(text);
}

QString NDisplayText::indented(const QString& text, int depth) {
  const QString blanks(2 * qMin(depth, kDeepest), QLatin1Char(' '));
  return depth <= kDeepest ? blanks + text
                           : QStringLiteral("%1[%2] %3").arg(blanks, QString::number(depth), text);
}

int NDisplayText::width(const QString& text) {
  int columns = 0;
  for (const uint character : text.toUcs4()) columns += widthOf(character);
  return columns;
}

QString NDisplayText::cut(const QString& text, int columns) {
  QString result;
  for (const uint character : text.toUcs4()) {
    columns -= widthOf(character);
    if (columns < 0) break;
    result += QString::fromUcs4(&character, 1);
  }
  return result;
}
