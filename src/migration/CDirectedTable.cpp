#include "CDirectedTable.h"

#include "ICParameterFile.h"
#include "NXmlText.h"

namespace {

CRescaling::EDirection oppositeOf(CRescaling::EDirection direction) {
  return direction == CRescaling::Back ? CRescaling::Forward : CRescaling::Back;
}

template <typename T>
QPair<T, T> turned(const QPair<T, T>& pair, bool isTurned) {
  return isTurned ? qMakePair(pair.second, pair.first) : pair;
}

}  // namespace

CDirectedTable::CDirectedTable(const CMigrationTable& table, const ICParameterFile& oldDefinitions,
                               const ICParameterFile& newDefinitions, EDirection direction)
    : mFrom(direction == CRescaling::Back ? newDefinitions : oldDefinitions),
      mTo(direction == CRescaling::Back ? oldDefinitions : newDefinitions),
      mDirection(direction) {
  readRules(table);
  readGroups(table);
  if (isBack()) turnGroups();
}

void CDirectedTable::readRules(const CMigrationTable& table) {
  for (const SMigrationRule& rule : table.rules) {
    if (rule.isProposal || (isBack() && rule.isDropped)) continue;
    const bool hasNewName = isBack() && !rule.newName.isNull();
    mRules.emplace(hasNewName ? rule.newName : rule.name, &rule);
  }
}

void CDirectedTable::readGroups(const CMigrationTable& table) {
  mGroups.push_back({});
  for (const SMigrationGroup& group : table.groups) {
    int place = kRoot;
    for (const QString& name : group.path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
      const auto [known, isNew] =
          mPlaces.try_emplace(CGroupKey(place, name), static_cast<int>(mGroups.size()));
      if (isNew) mGroups.push_back({place, name, {}, 0});
      place = known->second;
    }
    SGroup& last = mGroups[static_cast<size_t>(place)];
    last.newName = group.newName;
    last.line = group.line;
  }
}

/// The names after the table become those before it.
void CDirectedTable::turnGroups() {
  mPlaces.clear();
  for (size_t i = 1; i < mGroups.size(); ++i) {
    SGroup& group = mGroups[i];
    if (!group.newName.isNull()) std::swap(group.name, group.newName);
    mPlaces.emplace(CGroupKey(group.parent, group.name), static_cast<int>(i));
  }
}

int CDirectedTable::groupIn(int parent, const QString& name) const {
  if (parent == kNoGroup) return kNoGroup;
  const auto found = mPlaces.find(CGroupKey(parent, name));
  return found == mPlaces.end() ? kNoGroup : found->second;
}

QString CDirectedTable::newGroupName(int group) const {
  return group == kNoGroup ? QString() : mGroups[static_cast<size_t>(group)].newName;
}

QString CDirectedTable::nameAfter(const SMigrationRule& rule) const {
  return isBack() || rule.newName.isNull() ? rule.name : rule.newName;
}

const SDirectedParam& CDirectedTable::paramOf(std::string_view name) {
  const auto [known, isNew] = mParams.try_emplace(std::string(name));
  if (isNew) {
    known->second = directed(NXmlText::toQString(name));
    known->second.newNameUtf8.clear();
    NXmlText::appendUtf8(known->second.newName, known->second.newNameUtf8);
  }
  return known->second;
}

SDirectedParam CDirectedTable::directed(const QString& name) const {
  SDirectedParam param;
  const auto found = mRules.find(name);
  param.rule = found == mRules.end() ? nullptr : found->second;
  param.newName = param.rule == nullptr ? name : nameAfter(*param.rule);
  const CParamDefItem before = mFrom.paramDef(name);
  const CParamDefItem after = mTo.paramDef(param.newName);
  param.wasDefined = !before.name().isEmpty();
  param.isVanished = param.rule == nullptr && param.wasDefined && after.name().isEmpty();
  if (param.rule == nullptr) return param;
  const SMigrationRule& rule = *param.rule;
  const quint32 oldId = (isBack() ? after : before).id();
  if (rule.newId && NParamDef::isRealId(oldId) && NParamDef::isRealId(*rule.newId))
    param.id = turned(qMakePair(oldId, *rule.newId), isBack());
  if (rule.move) param.move = turned(*rule.move, isBack());
  param.conversion.emplace(rule, before, after, mDirection);
  param.opposite.emplace(rule, after, before, oppositeOf(mDirection));
  return param;
}

QMap<QString, QString> CDirectedTable::byNameBefore(
    const QMap<QString, QString>& byNameAfter) const {
  QMap<QString, QString> before = byNameAfter;
  for (const auto& [name, rule] : mRules) before.remove(nameAfter(*rule));
  for (const auto& [name, rule] : mRules) {
    const auto found = byNameAfter.find(nameAfter(*rule));
    if (found != byNameAfter.end()) before.insert(name, *found);
  }
  return before;
}
