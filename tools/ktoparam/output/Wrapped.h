#pragma once

#include <QStringList>

/// The text in lines of no more columns, broken at its blanks, of which none is
/// left at the end of a line; a longer word is cut. Fewer columns
/// than 20 count as 20. There is at least one line.
QStringList wrapped(const QString& text, int columns);

QString withoutLastBlanks(const QString& line);
