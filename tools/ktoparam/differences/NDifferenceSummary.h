#pragma once

#include "SParamDifference.h"

class COutput;
class QJsonObject;

/// How many differences there are of each kind, and where.
namespace NDifferenceSummary {

/// A list with more lines is not seen at once.
inline constexpr int kMostLines = 24;

/// One line, or nothing when there are no differences.
void printTotal(const CParamDifferences& differences, COutput& out);
/// A table of no more than 20 lines: the hardware ids and sub-devices with most differences or, of
/// one sub-device, its groups. What differs in more than its id goes first.
void printParts(const CParamDifferences& differences, COutput& out);
/// The counts by the texts of the kinds, of which all are there.
QJsonObject toJson(const CParamDifferences& differences);

}  // namespace NDifferenceSummary
