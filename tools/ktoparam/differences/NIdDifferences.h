#pragma once

#include "SParamDifference.h"

#include <functional>
#include <map>

/// Ids that differ, of which renumbered definitions leave one for each parameter in each
/// sub-device.
namespace NIdDifferences {

/// In how many sub-devices, of all hardware ids, both files have a parameter.
using CPlaces = std::map<QString, int>;

struct SSeparated {
  CParamDifferences others;  ///< in their order
  CParamDifferences ids;     ///< by parameters, in their order
  int parameters = 0;        ///< whose ids these are
};
/// The places are asked for when there are such ids. A parameter whose id changed in the same way
/// in all its places is listed once: without hardware id or sub-device where these are several.
SSeparated separated(const CParamDifferences& differences, const std::function<CPlaces()>& places);

}  // namespace NIdDifferences
