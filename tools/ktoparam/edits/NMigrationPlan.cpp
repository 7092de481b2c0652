#include "NMigrationPlan.h"

#include "NSuggestion.h"
#include "Output.h"
#include "SAddress.h"
#include "UniqueNames.h"

#include <map>
#include <tuple>

namespace {

using S = SMigrationStep;

constexpr int kKindCount = S::GroupRenamed + 1;
constexpr int kMostOpen = 8;

QString kindName(int kind) {
  static constexpr const char* kNames[] = {
      QT_TRANSLATE_NOOP("ktoparam", "decide"),    QT_TRANSLATE_NOOP("ktoparam", "not allowed"),
      QT_TRANSLATE_NOOP("ktoparam", "dropped"),   QT_TRANSLATE_NOOP("ktoparam", "rounded"),
      QT_TRANSLATE_NOOP("ktoparam", "converted"), QT_TRANSLATE_NOOP("ktoparam", "replaced"),
      QT_TRANSLATE_NOOP("ktoparam", "moved"),     QT_TRANSLATE_NOOP("ktoparam", "renamed"),
      QT_TRANSLATE_NOOP("ktoparam", "other id"),  QT_TRANSLATE_NOOP("ktoparam", "group renamed")};
  static_assert(std::size(kNames) == kKindCount);
  return Tool::tr(kNames[kind]);
}

std::map<int, int> countsOf(const CMigrationSteps& steps) {
  std::map<int, int> counts;
  for (const S& step : steps) ++counts[step.kind];
  return counts;
}

/// What is done in the same way, and where first.
struct SLine {
  const S* step;
  int count = 0;

  QString where() const {
    const QString place = SAddress::place(step->hardwareId, static_cast<quint8>(step->subDevId));
    return count == 1 ? place : Tool::tr("%1 and %2 more").arg(place, QString::number(count - 1));
  }
};

/// In the order of the kinds, and of the steps.
QVector<SLine> linesOf(const CMigrationSteps& steps) {
  using CKey = std::tuple<QString, QString, QString, QString, QString, QString, int, int>;
  QVector<SLine> byKind[kKindCount];
  std::map<CKey, int> known;
  for (const S& step : steps) {
    QVector<SLine>& lines = byKind[step.kind];
    const CKey key(step.groupPath, step.name, step.newName, step.oldValue, step.newValue, step.text,
                   step.kind, step.table);
    const auto [found, isNew] = known.try_emplace(key, lines.size());
    if (isNew) lines.append({&step});
    ++lines[found->second].count;
  }
  QVector<SLine> all;
  for (const auto& lines : byKind) all += lines;
  return all;
}

QString valueCell(const QString& value) {
  return value.isNull() ? QString() : NDisplayText::shown(value);
}

QStringList cellsOf(const SLine& line, const CLabels& labels) {
  const S& step = *line.step;
  const bool isSameName = step.newName == step.name;
  const bool isSameValue = step.newValue == step.oldValue;
  return {kindName(step.kind),
          line.where(),
          labels.shownOrNothing(step.groupPath),
          labels.shown(step.name),
          isSameName ? QString() : labels.shownOrNothing(step.newName),
          valueCell(step.oldValue),
          isSameValue ? QString() : valueCell(step.newValue),
          NDisplayText::escaped(step.text)};
}

/// Names with a heading, when there are some.
void printNames(const QString& heading, const QStringList& names, COutput& out) {
  if (names.isEmpty()) return;
  QStringList shown;
  for (const QString& name : uniqueNames(names)) shown.append(out.labels().shown(name));
  out.line(heading.arg(NSuggestion::listed(shown)));
}

QStringList namesOf(const CMigrationSteps& steps, bool (*isMeant)(const S&)) {
  QStringList names;
  for (const S& step : steps)
    if (isMeant(step)) names.append(step.name);
  return names;
}

void printOpen(const CMigrationSteps& steps, COutput& out) {
  std::map<std::pair<QString, QString>, bool> told;
  QStringList lines;
  for (const S& step : steps)
    if (step.kind <= S::NotAllowed && told.emplace(std::pair(step.newName, step.text), true).second)
      lines.append(QStringLiteral("  %1: %2")
                       .arg(out.labels().shown(step.newName), NDisplayText::escaped(step.text)));
  if (lines.isEmpty()) return;
  out.line(Tool::tr("A human has to decide:"));
  for (const QString& line : lines.mid(0, kMostOpen)) out.line(line);
  const int more = lines.size() - kMostOpen;
  if (more > 0) out.line(QLatin1String("  ") + Tool::tr("and %1 more").arg(more));
}

}  // namespace

void NMigrationPlan::print(const CMigrationSteps& steps, COutput& out) {
  CTable table({Tool::tr("WHAT"), Tool::tr("WHERE"), Tool::tr("GROUP"), Tool::tr("NAME"),
                Tool::tr("NEW NAME"), Tool::tr("OLD"), Tool::tr("NEW"), Tool::tr("WHY")});
  for (const SLine& line : linesOf(steps)) table.addRow(cellsOf(line, out.labels()));
  table.print(out);
  if (!table.isEmpty()) out.line({});
}

void NMigrationPlan::printSummary(const CMigrationSteps& steps, bool isBack, COutput& out) {
  QStringList counts;
  for (const auto& [kind, count] : countsOf(steps))
    counts.append(QStringLiteral("%1 %2").arg(kindName(kind), QString::number(count)));
  out.line(counts.isEmpty() ? Tool::tr("Nothing changes.") : counts.join(QLatin1String(", ")));
  printNames(Tool::tr("Rounded: %1"),
             namesOf(steps, [](const S& step) { return step.kind == S::Rounded; }), out);
  printNames(Tool::tr("Dropped: %1"),
             namesOf(steps, [](const S& step) { return step.kind == S::Dropped; }), out);
  const auto isLost = [](const S& step) { return !step.comesBack && step.kind > S::Dropped; };
  if (!isBack)
    printNames(Tool::tr("Would not come back with --reverse: %1"), namesOf(steps, isLost), out);
  printOpen(steps, out);
}

QStringList NMigrationPlan::lostOnTheWayBack(const CMigrationSteps& steps) {
  return uniqueNames(
      namesOf(steps, [](const S& step) { return !step.comesBack && step.kind != S::Replaced; }));
}

QJsonObject NMigrationPlan::countsToJson(const CMigrationSteps& steps) {
  std::map<int, int> counts = countsOf(steps);
  QJsonObject json;
  for (int kind = 0; kind < kKindCount; ++kind)
    json.insert(S::kindText(static_cast<S::EKind>(kind)), counts[kind]);
  return json;
}

QJsonArray NMigrationPlan::toJson(const CMigrationSteps& steps, const CLabels& labels) {
  const auto subDevice = [](int id) {
    return id == S::kNoSubDevice ? QJsonValue() : QJsonValue(id);
  };
  QJsonArray array;
  for (const S& step : steps) {
    array.append(QJsonObject{{"kind", S::kindText(step.kind)},
                             {"hardwareId", labels.of(step.hardwareId)},
                             {"subDevice", subDevice(step.subDevId)},
                             {"newSubDevice", subDevice(step.newSubDevId)},
                             {"group", step.groupPath},
                             {"name", labels.of(step.name)},
                             {"newName", presentOrNull(labels.of(step.newName))},
                             {"old", presentOrNull(step.oldValue)},
                             {"new", presentOrNull(step.newValue)},
                             {"text", step.text},
                             {"comesBack", step.comesBack},
                             {"table", step.table + 1},
                             {"line", step.line == 0 ? QJsonValue() : QJsonValue(step.line)}});
  }
  return array;
}
