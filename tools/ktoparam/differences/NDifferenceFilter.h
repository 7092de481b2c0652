#pragma once

#include "SParamDifference.h"

#include <QStringList>

/// Differences of some kinds only, as the option "--only" names them: words with commas between
/// them.
namespace NDifferenceFilter {

/// All words that there are.
QStringList words();
/// What is wrong with the option's text; empty when nothing is.
QString problem(const QString& only);
/// In their order. The text must be right.
CParamDifferences filtered(const CParamDifferences& differences, const QString& only);

}  // namespace NDifferenceFilter
