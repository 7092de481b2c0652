#include "CSubDeviceMigration.h"

#include "CUtf8Text.h"
#include "ICParameterFile.h"
#include "NShortText.h"

#include <algorithm>

namespace {

using SResult = CValueConversion::SResult;

/// Of what changed, the kind that names the step; nothing when nothing did.
std::optional<SMigrationStep::EKind> kindOf(CValueConversion::EOutcome outcome, bool isRenamed,
                                            bool hasNewId) {
  switch (outcome) {
    case CValueConversion::Undecided:
      return SMigrationStep::Decide;
    case CValueConversion::Rounded:
      return SMigrationStep::Rounded;
    case CValueConversion::Converted:
      return SMigrationStep::Converted;
    case CValueConversion::Replaced:
      return SMigrationStep::Replaced;
    default:
      break;
  }
  if (isRenamed) return SMigrationStep::Renamed;
  return hasNewId ? std::optional(SMigrationStep::IdChanged) : std::nullopt;
}

}  // namespace

CSubDeviceMigration::CSubDeviceMigration(const CSubDeviceTree& tree,
                                         NParamDef::ESubDeviceTypes type,
                                         const SMigrationInput& input)
    : mBefore(tree), mType(type), mInput(input), mAfter(tree.subDevId()) {
  mNodes.reserve(static_cast<size_t>(tree.count()) + 1);
  SMigratedNode root;
  root.node = tree.root();
  root.tableGroup = CDirectedTable::kRoot;
  mNodes.push_back(std::move(root));
  read(*tree.root(), 0);
  settleGroups();
  settleNames();
}

void CSubDeviceMigration::read(const CParamTreeNodeImpl& group, int entry) {
  for (int i = 0; i < group.childCount(); ++i) {
    const CParamTreeNodeImpl& child = *group.childNode(i);
    if (child.isGroup()) {
      addGroup(child, entry);
      continue;
    }
    SMigratedNode param;
    param.node = &child;
    param.group = entry;
    param.param = &mInput.table.paramOf(child.nameUtf8());
    plan(param);
    mHasRenamed = mHasRenamed || param.isRenamed;
    mNodes.push_back(std::move(param));
  }
}

void CSubDeviceMigration::addGroup(const CParamTreeNodeImpl& group, int parent) {
  const QString name = group.name();
  SMigratedNode entry;
  entry.node = &group;
  entry.group = parent;
  entry.tableGroup = mInput.table.groupIn(node(parent).tableGroup, name);
  entry.path = NShortText::below(node(parent).path, name);
  const QString newName = mInput.table.newGroupName(entry.tableGroup);
  if (!newName.isNull() && newName != name) {
    SMigrationStep step = stepFor(entry);
    step.kind = SMigrationStep::GroupRenamed;
    step.newName = newName;
    step.line = mInput.table.groupLine(entry.tableGroup);
    entry.newName = newName;
    entry.steps.push_back(step);
    mGroupsOfRenamed.insert(parent);
  }
  const auto position = static_cast<int>(mNodes.size());
  mNodes.push_back(std::move(entry));
  read(group, position);
}

SMigrationStep CSubDeviceMigration::stepFor(const SMigratedNode& entry) const {
  SMigrationStep step;
  step.subDevId = subDevId();
  step.newSubDevId = subDevId();
  step.groupPath = mNodes[static_cast<size_t>(entry.group)].path;
  step.name = entry.node->name();
  step.newName = step.name;
  if (entry.isGroup()) return step;
  step.oldValue = entry.node->value().asStr();
  step.newValue = step.oldValue;
  step.line = entry.param->rule == nullptr ? 0 : entry.param->rule->line;
  return step;
}

void CSubDeviceMigration::plan(SMigratedNode& entry) {
  entry.isAnswered = mInput.answered.count(entry.node) > 0;
  if (entry.param->isVanished) {
    SMigrationStep step = stepFor(entry);
    step.text = mInput.table.isBack()
                    ? tr("The old definitions do not have it, and no rule is about it.")
                    : tr("The new definitions do not have it, and no rule is about it.");
    entry.steps.push_back(step);
  } else if (entry.param->rule != nullptr && entry.param->rule->isDropped) {
    SMigrationStep step = stepFor(entry);
    step.kind = SMigrationStep::Dropped;
    step.newSubDevId = SMigrationStep::kNoSubDevice;
    step.newName = QString();
    step.newValue = QString();
    step.text = entry.param->rule->reason;
    step.comesBack = false;
    entry.isDropped = true;
    entry.steps.push_back(step);
  } else if (entry.param->rule != nullptr) {
    follow(entry);
  }
}

/// What the rule makes of it.
void CSubDeviceMigration::follow(SMigratedNode& entry) {
  const SDirectedParam& param = *entry.param;
  const quint32 id = entry.node->id();
  SMigrationStep step = stepFor(entry);
  const SResult result = newValue(entry);
  step.newName = param.newName;
  step.newValue = result.text;
  entry.isRenamed = param.isRenamed(step.name);
  entry.wantsMove =
      param.move && param.move->first == mType && result.outcome != CValueConversion::Undecided;
  const auto kind = kindOf(result.outcome, entry.isRenamed, param.newId(id) != id);
  if (!kind && !entry.wantsMove) return;
  if (result.text != step.oldValue) entry.value = result.text;
  step.kind = kind.value_or(SMigrationStep::Moved);
  if (entry.wantsMove && step.kind > SMigrationStep::Moved) step.kind = SMigrationStep::Moved;
  const SResult back = param.opposite->convert(result.text);
  step.comesBack = result.outcome != CValueConversion::Undecided &&
                   back.outcome != CValueConversion::Undecided && back.text == step.oldValue &&
                   param.idComesBack(id) && !(param.move && param.move->second == mType);
  QStringList texts;
  if (!result.why.isEmpty()) texts.append(result.why);
  if (entry.wantsMove)
    texts.append(tr("moved from %1 to %2")
                     .arg(ICParameterFile::subDeviceTypeToStr(param.move->first),
                          ICParameterFile::subDeviceTypeToStr(param.move->second)));
  if (entry.isRenamed) texts.append(tr("renamed"));
  if (param.newId(id) != id)
    texts.append(tr("id %1 became %2").arg(QString::number(id), QString::number(param.newId(id))));
  step.text = texts.join(QLatin1String("; "));
  entry.steps.push_back(step);
}

CValueConversion::SResult CSubDeviceMigration::newValue(SMigratedNode& entry) const {
  const QString old = entry.node->value().asStr();
  if (entry.isAnswered) return {CValueConversion::Kept, old, {}};
  const SResult result = entry.param->conversion->convert(old);
  const auto answer = mInput.answers.find(entry.param->newName);
  if (result.outcome != CValueConversion::Undecided || answer == mInput.answers.end())
    return result;
  entry.isAnswered = true;
  return {CValueConversion::Replaced, *answer, tr("your answer")};
}

void CSubDeviceMigration::leaveOpen(SMigratedNode& entry, const QString& why) {
  SMigrationStep step = stepFor(entry);
  if (!entry.steps.empty()) step.line = entry.steps.front().line;
  if (entry.isRenamed) step.newName = entry.param->newName;
  step.text = why;
  step.comesBack = false;
  entry.value = QString();
  entry.isAnswered = false;
  entry.wantsMove = false;
  entry.steps = {step};
}

void CSubDeviceMigration::keep(SMigratedNode& entry, const QString& why) {
  entry.newName = QString();
  entry.isRenamed = false;
  entry.isKept = true;
  leaveOpen(entry, why);
}

/// Renamed groups must not meet another group or a parameter of their name: where one would, none
/// beside it is renamed.
void CSubDeviceMigration::settleGroups() {
  if (mGroupsOfRenamed.empty()) return;
  std::map<std::pair<int, QString>, std::pair<int, bool>> uses;  // how many, and one is renamed
  std::set<int> clashing;
  for (size_t i = 1; i < mNodes.size(); ++i) {
    const SMigratedNode& entry = mNodes[i];
    if (mGroupsOfRenamed.count(entry.group) == 0 || entry.isDropped) continue;
    const QString kept = entry.isGroup() ? entry.node->name() : entry.param->newName;
    auto& [count, isRenamed] = uses[{entry.group, entry.newName.isNull() ? kept : entry.newName}];
    isRenamed = isRenamed || !entry.newName.isNull();
    if (++count > 1 && isRenamed) clashing.insert(entry.group);
  }
  for (SMigratedNode& entry : mNodes)
    if (!entry.newName.isNull() && clashing.count(entry.group) > 0)
      keep(entry, tr("The new name is that of another group or parameter beside it."));
}

/// Renamed parameters must not meet another one of their name: such a one keeps the name that it
/// has, which may then be another one's new name.
void CSubDeviceMigration::settleNames() {
  if (!mHasRenamed) return;
  CKeyedMap<std::string_view, SMigratedNode*> taken;
  for (SMigratedNode& entry : mNodes)
    if (!entry.isGroup() && !entry.isDropped && !entry.isRenamed)
      taken.emplace(entry.node->nameUtf8(), &entry);
  for (SMigratedNode& entry : mNodes) {
    if (!entry.isRenamed || taken.emplace(entry.param->newNameUtf8, &entry).second) continue;
    for (SMigratedNode* evicted = &entry; evicted != nullptr;) {
      keep(*evicted, tr("There is another parameter of the name \"%1\" in the sub-device.")
                         .arg(evicted->param->newName));
      const auto [known, isNew] = taken.try_emplace(evicted->node->nameUtf8(), evicted);
      evicted = isNew ? nullptr : std::exchange(known->second, evicted);
    }
  }
}

bool CSubDeviceMigration::hasName(std::string_view name) {
  if (mNames.empty()) {
    for (const SMigratedNode& entry : mNodes) {
      if (entry.isGroup() || entry.isDropped) continue;
      mNames.insert(entry.isRenamed ? entry.param->newNameUtf8
                                    : std::string(entry.node->nameUtf8()));
    }
  }
  return mNames.count(std::string(name)) > 0;
}

QStringList CSubDeviceMigration::groupsOf(const SMigratedNode& entry) const {
  QStringList names;
  for (int group = entry.group; group > 0;) {
    const SMigratedNode& above = mNodes[static_cast<size_t>(group)];
    names.prepend(above.newName.isNull() ? above.node->name() : above.newName);
    group = above.group;
  }
  return names;
}

/// Groups of which all moved away. Backwards, so that children come before their groups.
void CSubDeviceMigration::findEmptied() {
  std::vector<bool> hasStaying(mNodes.size());
  for (auto i = static_cast<int>(mNodes.size()) - 1; i > 0; --i) {
    const SMigratedNode& entry = node(i);
    const bool isEmptied =
        entry.isGroup() && entry.node->childCount() > 0 && !hasStaying[static_cast<size_t>(i)];
    if (isEmptied)
      mEmptied.push_back(i);
    else if (!entry.isMoved)
      hasStaying[static_cast<size_t>(entry.group)] = true;
  }
}

void CSubDeviceMigration::build() {
  findEmptied();
  mAfter.reserve(mBefore.count());
  mNodes.front().placed = mAfter.root();
  for (size_t i = 1; i < mNodes.size(); ++i)
    if (mNodes[i].stays()) place(mNodes[i]);
}

void CSubDeviceMigration::place(SMigratedNode& entry) {
  CParamTreeNodeImpl* const group = node(entry.group).placed;
  const CParamTreeNodeImpl& old = *entry.node;
  if (entry.isGroup()) {
    entry.placed = mAfter.addGroup(group, entry.newName.isNull() ? old.name() : entry.newName);
  } else {
    const CUtf8Text value(entry.value);
    entry.placed = mAfter.addParameterUtf8(
        group, entry.isRenamed ? std::string_view(entry.param->newNameUtf8) : old.nameUtf8(),
        entry.isKept ? old.id() : entry.param->newId(old.id()),
        entry.value.isNull() ? old.valueUtf8() : value.view());
  }
  entry.placed->dataPtr()->setPropertiesOf(old.dataRef());
}

void CSubDeviceMigration::removeEmptied() {
  for (const int emptied : mEmptied) {
    CParamTreeNodeImpl* const group = node(emptied).placed;
    if (group->childCount() == 0) mAfter.deleteNode(group);
  }
}
