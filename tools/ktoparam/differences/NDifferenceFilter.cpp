#include "NDifferenceFilter.h"

#include "NSuggestion.h"
#include "Tool.h"

#include <set>

namespace {

struct SWord {
  const char* text;
  std::set<SParamDifference::EKind> kinds;
};

/// What is added or removed with all that it holds counts as added or removed, too.
const QVector<SWord>& all() {
  using S = SParamDifference;
  static const QVector<SWord> kAll = {
      {"changed", {S::ValueChanged}},
      {"added", {S::ParameterAdded, S::SubDeviceAdded, S::HardwareIdAdded}},
      {"removed", {S::ParameterRemoved, S::SubDeviceRemoved, S::HardwareIdRemoved}},
      {"moved", {S::ParameterMoved}},
      {"id", {S::IdChanged}},
      {"type", {S::SubDeviceTypeChanged}},
      {"name", {S::SubDeviceNameChanged}},
      {"sub-device", {S::SubDeviceAdded, S::SubDeviceRemoved}},
      {"hardware-id", {S::HardwareIdAdded, S::HardwareIdRemoved}}};
  return kAll;
}

QStringList separated(const QString& only) {
  QStringList words = only.split(QLatin1Char(','));
  for (QString& word : words) word = word.trimmed();
  return words;
}

}  // namespace

QStringList NDifferenceFilter::words() {
  QStringList words;
  for (const SWord& word : all()) words.append(word.text);
  return words;
}

QString NDifferenceFilter::problem(const QString& only) {
  const QStringList known = words();
  for (const QString& word : separated(only)) {
    if (known.contains(word)) continue;
    return Tool::tr("--only does not know \"%1\".%2 It takes, with commas between them: %3.")
        .arg(word, NSuggestion::didYouMean(word, known), NSuggestion::listed(known));
  }
  return {};
}

CParamDifferences NDifferenceFilter::filtered(const CParamDifferences& differences,
                                              const QString& only) {
  const QStringList wanted = separated(only);
  std::set<SParamDifference::EKind> kinds;
  for (const SWord& word : all())
    if (wanted.contains(word.text)) kinds.insert(word.kinds.begin(), word.kinds.end());
  CParamDifferences kept;
  for (const SParamDifference& each : differences)
    if (kinds.count(each.kind) != 0) kept.append(each);
  return kept;
}
