#pragma once

#include "SCommand.h"

/// Each file Command….cpp describes its command, or its family of commands, here.
QVector<SCommand> detectCommands();
QVector<SCommand> showCommands();
QVector<SCommand> getCommands();
QVector<SCommand> setCommands();
QVector<SCommand> hardwareIdCommands();
QVector<SCommand> compensationCommands();
QVector<SCommand> defaultsCommands();
QVector<SCommand> importCommands();
QVector<SCommand> newCommands();
QVector<SCommand> subDeviceCommands();
QVector<SCommand> checkCommands();
QVector<SCommand> diffCommands();
QVector<SCommand> exportCommands();
QVector<SCommand> mergeCommands();
QVector<SCommand> motorsCommands();
QVector<SCommand> searchCommands();
QVector<SCommand> textCommands();
