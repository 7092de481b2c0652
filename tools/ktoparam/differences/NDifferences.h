#pragma once

#include "SParamDifference.h"

class CLabels;
class COutput;
class ICParameterFile;
class QJsonArray;

/// Differences between two states of values, as texts and as JSON.
namespace NDifferences {

/// "changed", as the list shows it.
QString kindName(SParamDifference::EKind kind);
/// A table, with what the values mean under definitions; nothing when there are none.
void print(const CParamDifferences& differences, const ICParameterFile& definitions, COutput& out);
QJsonArray toJson(const CParamDifferences& differences, const CLabels& labels);

}  // namespace NDifferences
