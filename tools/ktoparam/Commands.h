#pragma once

#include "SCommand.h"

/// Each file Command….cpp describes its command, or its family of commands, here.
QVector<SCommand> detectCommands();
QVector<SCommand> showCommands();
QVector<SCommand> getCommands();
QVector<SCommand> setCommands();
QVector<SCommand> hardwareIdCommands();
