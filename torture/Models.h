#pragma once

#include "Torture.h"

#include <QByteArray>
#include <QString>

#include <memory>

class ICParameterFile;

/// Models that hold whatever a model may hold, made by chance; the same number gives the same one.
namespace NModels {

/// A text of characters that files mishandle: blanks, line ends, mark-up, U+FEFF, pairs.
QString text(NTorture::CRandom& random);

/// Definitions, and values of some of them under several hardware ids and sub-devices.
std::unique_ptr<ICParameterFile> parameterFile(NTorture::CRandom& random);
/// A settings file, as the writer of documents writes it.
QByteArray settingsFile(NTorture::CRandom& random);
/// A compensation file, likewise.
QByteArray compensationFile(NTorture::CRandom& random);

}  // namespace NModels
