#pragma once

#include <QStringList>

class CLoadedFile;
class ICParameterFile;

/// Parameters of the active hardware id by their names.
namespace NParameterLookup {

/// The sub-devices that have a parameter, ascending.
QList<quint8> subDevicesWith(const ICParameterFile& file, const QString& name);

/// The names in all sub-devices, without doubles.
QStringList allNames(const ICParameterFile& file);
/// The same of several hardware ids, of which the last is active then.
QStringList allNames(const CLoadedFile& loaded, const QStringList& hardwareIds);

/// " Did you mean "…"?" for a name that does not exist, also for a name with its groups in front.
QString didYouMean(const QString& name, const QStringList& known);

/// "2, 3"
QString listed(const QList<quint8>& subDevices);

}  // namespace NParameterLookup
