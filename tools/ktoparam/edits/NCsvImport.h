#pragma once

#include "SCommand.h"

/// New values from a table that a spreadsheet saved.
namespace NCsvImport {

inline const QLatin1String kCsv("csv");

SOption option();
/// What the help of a command that has the option tells about it.
QString help();

/// Checks all rows of the table that the option names, then changes the file of the first argument,
/// unless it is a dry run, and shows what changes.
EExitStatus run(const CInvocation& invocation, COutput& out);

}  // namespace NCsvImport
