#include "Wrapped.h"

#include "NDisplayText.h"

namespace {

constexpr int kFewestColumns = 20;

QStringList cut(const QString& word, int columns) {
  QStringList pieces{QString()};
  int width = 0;
  for (const uint code : word.toUcs4()) {
    const QString character = QString::fromUcs4(&code, 1);
    width += NDisplayText::width(character);
    if (width > columns) {
      pieces.append(QString());
      width = NDisplayText::width(character);
    }
    pieces.last() += character;
  }
  return pieces;
}

}  // namespace

QString withoutLastBlanks(const QString& line) {
  int size = line.size();
  while (size > 0 && line.at(size - 1) == QLatin1Char(' ')) --size;
  return line.left(size);
}

QStringList wrapped(const QString& text, int columns) {
  const int most = qMax(columns, kFewestColumns);
  QStringList lines;
  int width = 0;  // of the last line
  for (const QString& word : text.split(QLatin1Char(' '))) {
    const int more = NDisplayText::width(word);
    if (!lines.isEmpty() && width + 1 + more <= most) {
      lines.last() += QLatin1Char(' ') + word;
      width += 1 + more;
    } else {
      lines += cut(word, most);
      width = NDisplayText::width(lines.last());
    }
  }
  for (QString& line : lines) line = withoutLastBlanks(line);
  return lines;
}
