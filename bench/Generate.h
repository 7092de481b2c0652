#pragma once

#include <QByteArray>
#include <QString>

/// Files of any size, made as a drive has them.
namespace NGenerate {

/// A value file: hardware ids of four sub-devices, groups of a hundred parameters.
QByteArray valueFile(int parameters, int hardwareIds = 1);
/// A definition file; every fourth definition has an enumeration, every eighth a rule of
/// visibility.
QByteArray definitionFile(int definitions);
/// Definitions of the fewest parts: a million of them are within the limits of a document.
QByteArray shortDefinitionFile(int definitions);
/// The file of a motor database.
QByteArray motorFile(int motors, int parameters);

/// The content as a file in a temporary folder, which lives as long as the process.
QString asFile(const QByteArray& content, const QString& suffix);

}  // namespace NGenerate
