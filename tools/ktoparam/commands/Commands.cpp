#include "Commands.h"

QVector<SCommand> allCommands() {
  return detectCommands() + showCommands() + getCommands() + setCommands() + hardwareIdCommands() +
         subDeviceCommands() + importCommands() + defaultsCommands() + newCommands() +
         migrateCommands() + checkCommands() + diffCommands() + exportCommands() + searchCommands() + mergeCommands() +
         textCommands() + motorsCommands() + compensationCommands();
}
