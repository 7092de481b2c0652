#pragma once

#include "SCommand.h"

namespace OptionProblem {

/// What is wrong with the options among the words behind a command's name; empty when nothing is.
/// The parser's own texts suggest nothing and are not in the language of the tool.
QString of(const SCommand& command, const QStringList& words);

}  // namespace OptionProblem
