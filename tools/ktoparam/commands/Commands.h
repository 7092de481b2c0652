#pragma once

#include "SCommand.h"

/// All commands in the order of the help: the list in Commands.cpp.
QVector<SCommand> allCommands();

// Each file Command….cpp describes its command, or its family of commands, here.
QVector<SCommand> checkCommands();
QVector<SCommand> compensationCommands();
QVector<SCommand> completeCommands();
QVector<SCommand> defaultsCommands();
QVector<SCommand> detectCommands();
QVector<SCommand> diffCommands();
QVector<SCommand> exportCommands();
QVector<SCommand> getCommands();
QVector<SCommand> hardwareIdCommands();
QVector<SCommand> importCommands();
QVector<SCommand> mergeCommands();
QVector<SCommand> migrateCommands();
QVector<SCommand> migrationCheckCommands();
QVector<SCommand> migrationCommands();
QVector<SCommand> motorsCommands();
QVector<SCommand> newCommands();
QVector<SCommand> searchCommands();
QVector<SCommand> setCommands();
QVector<SCommand> showCommands();
QVector<SCommand> subDeviceCommands();
QVector<SCommand> textCommands();
