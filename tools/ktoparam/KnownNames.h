#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class COutput;

/// The names that files hold, for completing them. Files of other kinds are passed over; what
/// cannot be loaded is reported and has no names.
namespace KnownNames {

/// What of the value files is meant; all of it where nothing is named.
struct SPart {
  QString hardwareId;
  std::optional<quint8> subDevice;
};

/// Of value files.
QStringList hardwareIds(const QStringList& files, COutput& out);
/// Of value files.
QStringList subDevices(const QStringList& files, const SPart& part, COutput& out);
/// Of value files, or of definition files where there is no value file.
QStringList parameters(const QStringList& files, const SPart& part, COutput& out);
/// How the choices of a parameter are called in definition files.
QStringList choices(const QStringList& files, const QString& parameter, COutput& out);

}  // namespace KnownNames
