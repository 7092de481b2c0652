#pragma once

#include "SParamDifference.h"

class COutput;
class QJsonArray;

/// Differences between two states of values, as texts and as JSON.
namespace Differences {

/// A table; nothing when there are none.
void print(const CParamDifferences& differences, COutput& out);
QJsonArray toJson(const CParamDifferences& differences);

}  // namespace Differences
