#include "NIdDifferences.h"

#include <QPair>

namespace {

using CIds = QPair<QString, QString>;  // old and new

/// A parameter's differences.
struct SPlaced {
  CParamDifferences all;
  std::map<CIds, int> counts = {};

  void append(const SParamDifference& each) {
    all.append(each);
    ++counts[{each.oldValue, each.newValue}];
  }

  CParamDifferences once(int places) const {
    if (counts.size() != 1 || all.size() != places) return all;
    SParamDifference common = all.first();
    for (const SParamDifference& each : all) {
      if (each.hardwareId != common.hardwareId) common.hardwareId.clear();
      if (each.subDevId != common.subDevId) common.subDevId = SParamDifference::kNoSubDevice;
    }
    return {common};
  }
};

}  // namespace

NIdDifferences::SSeparated NIdDifferences::separated(const CParamDifferences& differences,
                                                     const std::function<CPlaces()>& places) {
  SSeparated result;
  QVector<SPlaced> parameters;
  std::map<QString, int> known;
  for (const SParamDifference& each : differences) {
    if (each.kind != SParamDifference::IdChanged) {
      result.others.append(each);
      continue;
    }
    const auto [found, isNew] = known.try_emplace(each.name, parameters.size());
    if (isNew) parameters.append(SPlaced());
    parameters[found->second].append(each);
  }
  if (parameters.isEmpty()) return result;
  result.parameters = parameters.size();
  const CPlaces all = places();
  for (const SPlaced& each : qAsConst(parameters)) {
    const auto found = all.find(each.all.first().name);
    result.ids += each.once(found == all.end() ? 0 : found->second);
  }
  return result;
}
