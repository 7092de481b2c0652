#include "CTable.h"

#include "COutput.h"
#include "NDisplayText.h"

namespace {

// A longer cell pushes only its own row, so that one long text does not tear the table apart.
constexpr int kMaxColumnWidth = 48;
constexpr int kGap = 2;
constexpr int kUnused = -1;

QString alignedLine(const QStringList& cells, const QVector<int>& widths) {
  QString line;
  int missing = 0;  // written before the next text only, so that no line ends in blanks
  for (int i = 0; i < cells.size(); ++i) {
    if (widths.at(i) == kUnused) continue;
    if (!cells.at(i).isEmpty()) {
      line += QString(missing, QLatin1Char(' ')) + cells.at(i);
      missing = 0;
    }
    missing += qMax(0, widths.at(i) - NDisplayText::width(cells.at(i))) + kGap;
  }
  return line;
}

}  // namespace

void CTable::addRow(const QStringList& cells, bool emphasised) {
  mRows.append({cells, emphasised});
}

QVector<int> CTable::columnWidths() const {
  QVector<int> widths(mHeadings.size(), kUnused);
  for (const SRow& row : mRows) {
    for (int i = 0; i < row.cells.size(); ++i) {
      if (row.cells.at(i).isEmpty()) continue;
      const int width = NDisplayText::width(row.cells.at(i));
      widths[i] = qMax(widths.at(i), width > kMaxColumnWidth ? 0 : width);
    }
  }
  for (int i = 0; i < widths.size(); ++i)
    if (widths.at(i) != kUnused)
      widths[i] = qMax(widths.at(i), NDisplayText::width(mHeadings.at(i)));
  return widths;
}

void CTable::print(COutput& out, const QString& indent) const {
  if (isEmpty()) return;
  const QVector<int> widths = columnWidths();
  const auto printLine = [&](const QStringList& cells, bool emphasised) {
    const QString line = alignedLine(cells, widths);
    out.line(indent + (emphasised ? out.styled(line, COutput::Bold) : line));
  };
  printLine(mHeadings, true);
  for (const SRow& row : mRows) printLine(row.cells, row.emphasised);
}
