#include "NManPage.h"

#include "NHelp.h"

#include <QRegularExpression>

namespace {

/// Text as man(7) prints it, whatever it means there.
QString plain(const QString& text) {
  const QLatin1String otherSigns("'`~^");  // printed for what is typed so
  QString escaped;
  for (const QChar c : text)
    if (c == QLatin1Char('\\'))
      escaped += "\\e";
    else if (c == QLatin1Char('-'))
      escaped += "\\-";
    else if (otherSigns.contains(c) || c.unicode() > 0x7f)
      escaped += "\\[u" + QString::number(c.unicode(), 16).toUpper().rightJustified(4, '0') + ']';
    else
      escaped += c;
  return escaped;
}

QString bold(const QString& text) {
  return QStringLiteral("\\fB%1\\fR").arg(plain(text));
}

/// A line of text; a dot at its beginning would make it a request.
QString line(const QString& text) {
  return (text.startsWith(QLatin1Char('.')) ? "\\&" : QString()) + text + QLatin1Char('\n');
}

QString entry(const QString& left, const QString& right) {
  return ".TP\n" + line(left) + line(right);
}

QString paragraphs(const QString& text) {
  QString page;
  for (const QString& each : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
    page += ".PP\n" + line(plain(each));
  return page;
}

QString section(const SCommand& command) {
  QString page = ".SS ktoparam " + line(plain(NHelp::syntax(command)));
  page += line(plain(command.summary)) + paragraphs(command.details);
  for (const SArgument& each : command.arguments) page += entry(bold(each.name), plain(each.help));
  for (const SOption& each : command.options)
    page += entry(bold(NHelp::optionSyntax(each)), plain(each.help));
  for (const QString& example : command.examples)
    page += ".PP\n.EX\n" + line(plain("  ktoparam " + example)) + ".EE\n";
  return page;
}

/// The marks within a line: `code`, **strong**, *emphasis* and [text](target).
QString inlineMarks(const QString& text) {
  static const QRegularExpression kMark(
      "`([^`]+)`|\\*\\*([^*]+)\\*\\*|\\*([^*]+)\\*|\\[([^\\]]+)\\]\\([^)]*\\)");
  QString page;
  int end = 0;
  for (auto it = kMark.globalMatch(text); it.hasNext();) {
    const QRegularExpressionMatch match = it.next();
    page += plain(text.mid(end, match.capturedStart() - end));
    const bool isEmphasis = !match.captured(3).isEmpty();
    const QString marked = match.captured(match.lastCapturedIndex());
    page += isEmphasis ? QStringLiteral("\\fI%1\\fR").arg(plain(marked)) : bold(marked);
    end = match.capturedEnd();
  }
  return page + plain(text.mid(end));
}

QString tableRow(const QString& row) {
  const QStringList cells = row.split(QLatin1Char('|'));
  return entry(inlineMarks(cells.value(1).trimmed()), inlineMarks(cells.value(2).trimmed()));
}

/// One paragraph, list item or row; `text` is without line breaks.
QString block(const QString& text) {
  static const QString kItem("- ");
  if (text.startsWith(QLatin1Char('#'))) return {};
  if (text.startsWith(QLatin1Char('|'))) return tableRow(text);
  if (!text.startsWith(kItem)) return ".PP\n" + line(inlineMarks(text));
  return ".IP \\(bu 2\n" + line(inlineMarks(text.mid(kItem.size())));
}

}  // namespace

QString NManPage::commands(const QVector<SCommand>& commands) {
  QString page;
  for (const SCommand& command : commands) page += section(command);
  return page;
}

QString NManPage::fromMarkdown(const QString& text) {
  static const QRegularExpression kNextLine("\\n(?![|#\\n-]) *");
  static const QRegularExpression kTableHead("\\n\\|[^\\n]*\\n\\|-[-|]*\\n");
  QString joined = text;
  joined.replace(kTableHead, "\n").replace(kNextLine, " ");
  QString page;
  for (const QString& each : joined.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
    page += block(each.trimmed());
  return page;
}
