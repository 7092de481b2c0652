#include "NParameterLookup.h"

#include "CLoadedFile.h"
#include "NSuggestion.h"
#include "UniqueNames.h"

QList<quint8> NParameterLookup::subDevicesWith(const ICParameterFile& file, const QString& name) {
  QList<quint8> found;
  for (const quint8 id : file.subDeviceIds())
    if (!file.paramValue(name, id).isNull()) found.append(id);
  return found;
}

QStringList NParameterLookup::allNames(const ICParameterFile& file) {
  QStringList names;
  for (const quint8 id : file.subDeviceIds()) names += file.paramNames(id);
  return uniqueNames(names);
}

QStringList NParameterLookup::allNames(const CLoadedFile& loaded, const QStringList& hardwareIds) {
  QStringList names;
  for (const QString& hardwareId : hardwareIds)
    if (loaded.file().selectHardwareId(hardwareId)) names += allNames(loaded.file());
  return uniqueNames(names);
}

QString NParameterLookup::didYouMean(const QString& name, const QStringList& known) {
  const QString suggestion = NSuggestion::didYouMean(name, known);
  const QString bare = name.section(QLatin1Char('/'), -1);
  return suggestion.isEmpty() && bare != name ? NSuggestion::didYouMean(bare, known) : suggestion;
}

QString NParameterLookup::listed(const QList<quint8>& subDevices) {
  QStringList texts;
  for (const quint8 id : subDevices) texts.append(QString::number(id));
  return NSuggestion::listed(texts);
}
