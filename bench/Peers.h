#pragma once

#include "CParamValueFile.h"

#include <QByteArray>
#include <QString>

/// What a user would write instead: the same model from the same bytes, and back, with other tools.
/// Each loads all hardware ids of a value file that is known to be good.
namespace NPeers {

CHardwareIdTrees loadWithQtDom(const QByteArray& bytes);
CHardwareIdTrees loadWithQtStream(const QByteArray& bytes);
CHardwareIdTrees loadWithPugixml(const QByteArray& bytes);
CHardwareIdTrees loadWithLibxml2(const QByteArray& bytes);

QByteArray saveWithQtDom(const CHardwareIdTrees& trees);
QByteArray saveWithQtStream(const CHardwareIdTrees& trees);

/// The definitions of a definition file, by Qt's DOM.
int loadDefinitionsWithQtDom(const QByteArray& bytes);

}  // namespace NPeers
