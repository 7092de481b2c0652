#include "NDisplayText.h"

#include <QChar>
#include <QVector>

#include <algorithm>
#include <iterator>

namespace {

constexpr int kDeepest = 20;

struct SRange {
  uint first;
  uint last;
};

// The blocks whose characters take two columns, ascending. wcwidth() would ask the locale of the
// process, and C.UTF-8 leaks where a folder of other locales is set.
constexpr SRange kWide[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x23F0, 0x23F0},
    {0x23F3, 0x23F3},   {0x25FD, 0x25FE},   {0x2614, 0x2615},   {0x2648, 0x2653},
    {0x267F, 0x267F},   {0x2693, 0x2693},   {0x26A1, 0x26A1},   {0x26AA, 0x26AB},
    {0x26BD, 0x26BE},   {0x26C4, 0x26C5},   {0x26CE, 0x26CE},   {0x26D4, 0x26D4},
    {0x26EA, 0x26EA},   {0x26F2, 0x26F3},   {0x26F5, 0x26F5},   {0x26FA, 0x26FA},
    {0x26FD, 0x26FD},   {0x2705, 0x2705},   {0x270A, 0x270B},   {0x2728, 0x2728},
    {0x274C, 0x274C},   {0x274E, 0x274E},   {0x2753, 0x2755},   {0x2757, 0x2757},
    {0x2795, 0x2797},   {0x27B0, 0x27B0},   {0x27BF, 0x27BF},   {0x2B1B, 0x2B1C},
    {0x2B50, 0x2B50},   {0x2B55, 0x2B55},   {0x2E80, 0x303E},   {0x3041, 0x3247},
    {0x3250, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97C},   {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6B},   {0xFF01, 0xFF60},
    {0xFFE0, 0xFFE6},   {0x16FE0, 0x18CFF}, {0x1B000, 0x1B2FF}, {0x1F18E, 0x1F18E},
    {0x1F191, 0x1F19A}, {0x1F200, 0x1F320}, {0x1F32D, 0x1F335}, {0x1F337, 0x1F37C},
    {0x1F37E, 0x1F393}, {0x1F3A0, 0x1F3CA}, {0x1F3CF, 0x1F3D3}, {0x1F3E0, 0x1F3F0},
    {0x1F3F4, 0x1F3F4}, {0x1F3F8, 0x1F43E}, {0x1F440, 0x1F440}, {0x1F442, 0x1F4FC},
    {0x1F4FF, 0x1F53D}, {0x1F54B, 0x1F567}, {0x1F5FB, 0x1F64F}, {0x1F680, 0x1F6C5},
    {0x1F6CC, 0x1F6CC}, {0x1F6D0, 0x1F6FC}, {0x1F7E0, 0x1F7EB}, {0x1F90C, 0x1F9FF},
    {0x1FA70, 0x1FAFF}, {0x20000, 0x3FFFD},
};

// What shows nothing, though Unicode has it among letters and marks: joiners, fillers and the
// selectors of variants, ascending.
constexpr SRange kInvisible[] = {
    {0x034F, 0x034F}, {0x115F, 0x1160}, {0x17B4, 0x17B5}, {0x180B, 0x180F},
    {0x3164, 0x3164}, {0xFE00, 0xFE0F}, {0xFFA0, 0xFFA0}, {0xE0100, 0xE01EF},
};

template <std::size_t count>
bool isIn(const SRange (&ranges)[count], uint character) {
  const SRange* range =
      std::lower_bound(std::begin(ranges), std::end(ranges), character,
                       [](const SRange& each, uint value) { return each.last < value; });
  return range != std::end(ranges) && range->first <= character;
}

/// A terminal may know more characters than this program, so what is unknown here may do anything.
bool needsEscape(uint character) {
  switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
      return true;
    default:
      return isIn(kInvisible, character);
  }
}

QString escape(uint character) {
  if (QChar::requiresSurrogates(character))
    return escape(QChar::highSurrogate(character)) + escape(QChar::lowSurrogate(character));
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
  switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
      return 0;
    default:
      return isIn(kWide, character) ? 2 : 1;
  }
}

}  // namespace

QString NDisplayText::escaped(const QString& text) {
  const QVector<uint> characters = text.toUcs4();
  // As nearly all texts are.
  if (text.isValidUtf16() && std::none_of(characters.begin(), characters.end(), needsEscape))
    return text;
  QString result;
  result.reserve(text.size());
  for (const uint character : characters)
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
  return plain ? text : quoted(text);
}

QString NDisplayText::quoted(const QString& text) {
  QString safe = text;
  safe.replace(QLatin1String("\\"), QLatin1String("\\\\"));
  safe.replace(QLatin1String("\""), QLatin1String("\\\""));
  return QStringLiteral("\"%1\"").arg(escaped(safe));
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
