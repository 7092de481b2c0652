#include "CMigrationTable.h"

#include "CMigrationFile.h"

bool CMigrationTable::load(const QString& fileName, QString& error) {
  CMigrationTable table;
  if (!CMigrationFile().load(fileName, table, error)) return false;
  *this = table;
  return true;
}

bool CMigrationTable::save(const QString& fileName, QString& error) const {
  return CMigrationFile().save(fileName, *this, error);
}

bool CMigrationTable::save(QByteArray& buffer, QString& error) const {
  return CMigrationFile().save(buffer, *this, error);
}
