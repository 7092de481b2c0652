#include "NDifferenceSummary.h"

#include "NDifferences.h"
#include "Output.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace {

using S = SParamDifference;
using CCounts = std::map<S::EKind, int>;

constexpr int kMostParts = 18;  // and two lines more

/// As they are told: what moves a machine first.
constexpr S::EKind kKinds[] = {
    S::ValueChanged,         S::ParameterAdded,       S::ParameterRemoved, S::ParameterMoved,
    S::SubDeviceTypeChanged, S::SubDeviceNameChanged, S::SubDeviceAdded,   S::SubDeviceRemoved,
    S::HardwareIdAdded,      S::HardwareIdRemoved,    S::IdChanged};

int countOf(const CCounts& counts, S::EKind kind) {
  const auto found = counts.find(kind);
  return found == counts.end() ? 0 : found->second;
}

CCounts countsOf(const CParamDifferences& differences) {
  CCounts counts;
  for (const S& each : differences) ++counts[each.kind];
  return counts;
}

/// What lies at one place.
struct SPart {
  QString hardwareId;
  int subDevId;
  QString group;
  CCounts counts = {};
  int ids = 0;
  int others = 0;

  void add(const S& difference) {
    ++counts[difference.kind];
    ++(difference.kind == S::IdChanged ? ids : others);
  }
  bool isBefore(const SPart& other) const {
    return std::tie(others, ids) > std::tie(other.others, other.ids);
  }
  QStringList cells(const CLabels& labels) const {
    QStringList cells = {labels.shownOrNothing(hardwareId),
                         subDevId == S::kNoSubDevice ? QString() : QString::number(subDevId),
                         NDisplayText::shownOrNothing(group)};
    for (const S::EKind kind : kKinds) {
      const int count = countOf(counts, kind);
      cells.append(count == 0 ? QString() : QString::number(count));
    }
    return cells;
  }
};

bool isOfOnePlace(const CParamDifferences& differences) {
  const auto isElsewhere = [&first = differences.first()](const S& each) {
    return each.hardwareId != first.hardwareId || each.subDevId != first.subDevId;
  };
  return std::none_of(differences.begin(), differences.end(), isElsewhere);
}

/// A group, or else a sub-device.
SPart placeOf(const S& each, bool byGroup) {
  if (!byGroup) return {each.hardwareId, each.subDevId, {}};
  const bool isGone = each.kind == S::ParameterRemoved;
  const QString path = isGone ? each.oldGroupPath : each.newGroupPath;
  return {{}, S::kNoSubDevice, path.isEmpty() ? "/" : path};
}

/// Those with most differences first.
QVector<SPart> partsOf(const CParamDifferences& differences, bool byGroup) {
  QVector<SPart> parts;
  std::map<std::tuple<QString, int, QString>, int> known;
  for (const S& each : differences) {
    const SPart place = placeOf(each, byGroup);
    const auto [found, isNew] =
        known.try_emplace({place.hardwareId, place.subDevId, place.group}, parts.size());
    if (isNew) parts.append(place);
    parts[found->second].add(each);
  }
  std::stable_sort(parts.begin(), parts.end(),
                   [](const SPart& a, const SPart& b) { return a.isBefore(b); });
  return parts;
}

}  // namespace

void NDifferenceSummary::printTotal(const CParamDifferences& differences, COutput& out) {
  const CCounts counts = countsOf(differences);
  QStringList texts;
  for (const S::EKind kind : kKinds) {
    const int count = countOf(counts, kind);
    if (count > 0)
      texts.append(
          QStringLiteral("%1 %2").arg(NDifferences::kindName(kind), QString::number(count)));
  }
  if (!texts.isEmpty()) out.line(texts.join(QLatin1String(", ")));
}

void NDifferenceSummary::printParts(const CParamDifferences& differences, COutput& out) {
  if (differences.isEmpty()) return;
  const bool byGroup = isOfOnePlace(differences);
  const QVector<SPart> parts = partsOf(differences, byGroup);
  QStringList headings = {Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), Tool::tr("GROUP")};
  for (const S::EKind kind : kKinds) headings.append(NDifferences::kindName(kind).toUpper());
  CTable table(headings);
  for (const SPart& part : parts.mid(0, kMostParts)) table.addRow(part.cells(out.labels()));
  table.print(out);
  const int more = parts.size() - kMostParts;
  if (more > 0) out.line(Tool::tr("and %1 more").arg(more));
}

QJsonObject NDifferenceSummary::toJson(const CParamDifferences& differences) {
  const CCounts counts = countsOf(differences);
  QJsonObject json;
  for (const S::EKind kind : kKinds) json.insert(S::kindText(kind), countOf(counts, kind));
  return json;
}
