#pragma once

#include "SParamFinding.h"

class CLabels;
class QJsonObject;

/// What is wrong with values and definitions, as texts and as JSON.
namespace NFindings {

/// "KTO-2A-16, sub-device 2, Motion/Limits/VelocityLimit"
QString place(const SParamFinding& finding, const CLabels& labels);
/// "error: KTO-2A-16, sub-device 2, VelocityLimit: 450 is … [value-above-maximum]", with the
/// severity as it is to be shown.
QString line(const SParamFinding& finding, const QString& severity, const CLabels& labels);
QJsonObject toJson(const QString& fileName, const SParamFinding& finding, const CLabels& labels);

}  // namespace NFindings
