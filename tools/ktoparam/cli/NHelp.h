#pragma once

#include "SCommand.h"

class COutput;

/// The help texts, made from the records of the commands.
namespace NHelp {

/// "-o, --output OUT"
QString optionSyntax(const SOption& option);
/// "show FILE [options]"
QString syntax(const SCommand& command);

void printOverview(const QVector<SCommand>& commands, COutput& out);
void printCommand(const SCommand& command, COutput& out);

}  // namespace NHelp
