#include "ParameterLookup.h"

#include "ICParameterFile.h"
#include "Suggestion.h"
#include "UniqueNames.h"

QList<quint8> ParameterLookup::subDevicesWith(const ICParameterFile& file, const QString& name) {
  QList<quint8> found;
  for (const quint8 id : file.subDeviceIds())
    if (!file.paramValue(name, id).isNull()) found.append(id);
  return found;
}

QStringList ParameterLookup::allNames(const ICParameterFile& file) {
  QStringList names;
  for (const quint8 id : file.subDeviceIds()) names += file.paramNames(id);
  return uniqueNames(names);
}

QString ParameterLookup::didYouMean(const QString& name, const QStringList& known) {
  const QString suggestion = Suggestion::didYouMean(name, known);
  const QString bare = name.section(QLatin1Char('/'), -1);
  return suggestion.isEmpty() && bare != name ? Suggestion::didYouMean(bare, known) : suggestion;
}

QString ParameterLookup::listed(const QList<quint8>& subDevices) {
  QStringList texts;
  for (const quint8 id : subDevices) texts.append(QString::number(id));
  return Suggestion::listed(texts);
}
