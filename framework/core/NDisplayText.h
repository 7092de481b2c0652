#pragma once

#include "ktoFramework_export.h"

#include <QString>

/// Texts from files on a terminal: harmless, on one line, and of a known width.
namespace NDisplayText {

/// What a terminal obeys or does not show becomes an escape as in JSON, "\n" or "\u001b": control
/// and format characters (marks of the writing direction, joiners, tags and others), line ends,
/// variation selectors and fillers, and what Qt's version of Unicode does not know. A character
/// above U+FFFF becomes a pair of them, "\udb40\udc01".
KTOFRAMEWORK_EXPORT QString escaped(const QString& text);

/// The text as it is when nothing in it can be misread; else escaped between quotes, as in JSON:
/// when it is empty, begins or ends with a blank, begins with a quote, or needs an escape.
KTOFRAMEWORK_EXPORT QString shown(const QString& text);
/// The same, but nothing for an empty text.
KTOFRAMEWORK_EXPORT QString shownOrNothing(const QString& text);
/// Always escaped between quotes.
KTOFRAMEWORK_EXPORT QString quoted(const QString& text);

/// A text at its depth in a tree. Where the blanks would be more than a screen can show, a number
/// tells the depth.
KTOFRAMEWORK_EXPORT QString indented(const QString& text, int depth);

/// Columns of a terminal that a text takes: 2 for wide East Asian characters and emoji, 0 for
/// combining ones.
KTOFRAMEWORK_EXPORT int width(const QString& text);

/// As much of the beginning as fits into the columns.
KTOFRAMEWORK_EXPORT QString cut(const QString& text, int columns);

}  // namespace NDisplayText
