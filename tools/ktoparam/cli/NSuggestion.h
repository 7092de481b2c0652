#pragma once

#include <QStringList>

/// What somebody may have meant who typed a name that does not exist.
namespace NSuggestion {

/// For how many unknown names a command looks for what was meant.
inline constexpr int kMaxHelped = 10;

/// The candidate with the fewest typing errors, case apart, or else the only one that begins with
/// the text; null when there is none. Takes time in proportion to the number of candidates.
QString closest(const QString& text, const QStringList& candidates);

/// " Did you mean "…"?" for the closest candidate; empty when there is none.
QString didYouMean(const QString& text, const QStringList& candidates);

/// "a, b, c, … (12 in all)": a list cut off where it would no longer be read.
QString listed(const QStringList& names);
/// Whether listed() names them all, so that nobody needs a suggestion.
bool listsAll(const QStringList& names);

}  // namespace NSuggestion
