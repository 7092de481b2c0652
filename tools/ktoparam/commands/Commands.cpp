#include "Commands.h"

QVector<SCommand> allCommands() {
  return detectCommands() + showCommands() + getCommands() + setCommands() + hardwareIdCommands() +
         subDeviceCommands() + importCommands() + defaultsCommands() + newCommands() +
         checkCommands() + diffCommands() + exportCommands() + searchCommands() + mergeCommands() +
         migrateCommands() + migrationCommands() + migrationCheckCommands() + textCommands() +
         motorsCommands() + compensationCommands();
}
