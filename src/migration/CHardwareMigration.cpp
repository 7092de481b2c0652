#include "CHardwareMigration.h"

#include "CUtf8Text.h"
#include "ICParameterFile.h"

#include <algorithm>

CHardwareMigration::CHardwareMigration(const CSubDeviceTrees& before, const CTypeOf& typeOf,
                                       const SMigrationInput& input, CMigrationJudge& judge)
    : mInput(input), mTypeOf(typeOf), mJudge(judge), mPlaced(before.size()) {
  mSubDevices.reserve(before.size());
  for (const auto& [subDevId, tree] : before)
    mSubDevices.emplace_back(tree, typeOf(subDevId), input);
}

CSubDeviceTrees CHardwareMigration::run(std::set<const CParamTreeNodeImpl*>& answered) {
  findMoves();
  for (SMove& move : mMoves) settle(move);
  for (CSubDeviceMigration& each : mSubDevices) each.build();
  for (const SMove& move : mMoves)
    if (!move.targets.empty()) carryOut(move);
  for (CSubDeviceMigration& each : mSubDevices) each.removeEmptied();
  findPlaced();
  if (mInput.opposite != nullptr) judge();
  for (const auto& placed : mPlaced)
    for (const SPlaced& each : placed)
      if (each.entry->isAnswered) answered.insert(each.node);
  CSubDeviceTrees trees;
  for (CSubDeviceMigration& each : mSubDevices)
    trees.emplace(each.subDevId(), std::move(each.after()));
  lookBack(trees);
  collect();
  return trees;
}

// --- What moves between sub-devices

void CHardwareMigration::findMoves() {
  std::map<const SDirectedParam*, size_t> known;
  for (size_t i = 0; i < mSubDevices.size(); ++i) {
    const std::vector<SMigratedNode>& nodes = mSubDevices[i].nodes();
    for (size_t j = 0; j < nodes.size(); ++j) {
      if (!nodes[j].wantsMove) continue;
      const auto [found, isNew] = known.try_emplace(nodes[j].param, mMoves.size());
      if (isNew) mMoves.push_back({nodes[j].param, {}});
      mMoves[found->second].sources.push_back({static_cast<int>(i), static_cast<int>(j)});
    }
  }
}

std::vector<int> CHardwareMigration::subDevicesOf(NParamDef::ESubDeviceTypes type) const {
  std::vector<int> found;
  for (size_t i = 0; i < mSubDevices.size(); ++i)
    if (mSubDevices[i].type() == type) found.push_back(static_cast<int>(i));
  return found;
}

/// It has targets then, or stays where it is.
void CHardwareMigration::settle(SMove& move) {
  move.targets = subDevicesOf(move.param->move->second);
  const QString problem = problemOf(move);
  if (!problem.isEmpty()) move.targets.clear();
  for (const SSource& source : move.sources)
    if (problem.isEmpty())
      entry(source).isMoved = true;
    else
      subDevice(source.subDevice).leaveOpen(entry(source), problem);
  for (const int target : move.targets) subDevice(target).addName(move.param->newNameUtf8);
}

QString CHardwareMigration::problemOf(SMove& move) {
  if (move.targets.empty()) {
    return tr("There is no sub-device of the type %1 to move it to.")
        .arg(ICParameterFile::subDeviceTypeToStr(move.param->move->second));
  }
  for (const int target : move.targets) {
    if (subDevice(target).hasName(move.param->newNameUtf8)) {
      return tr("Sub-device %1 has a parameter of the name \"%2\" already.")
          .arg(QString::number(subDevice(target).subDevId()), move.param->newName);
    }
  }
  if (haveOneValue(move) || answer(move)) return {};
  return tr("The sub-devices of the type %1 have different values.")
      .arg(ICParameterFile::subDeviceTypeToStr(move.param->move->first));
}

bool CHardwareMigration::haveOneValue(const SMove& move) {
  const std::string_view first = entry(move.sources.front()).node->valueUtf8();
  return std::all_of(move.sources.begin(), move.sources.end(), [&](const SSource& source) {
    return entry(source).node->valueUtf8() == first;
  });
}

bool CHardwareMigration::answer(const SMove& move) {
  const auto found = mInput.answers.find(move.param->newName);
  if (found == mInput.answers.end()) return false;
  for (const SSource& source : move.sources) {
    SMigratedNode& each = entry(source);
    each.isAnswered = true;
    each.value = *found;
    setAnswer(each.steps.front(), *found);
  }
  return true;
}

void CHardwareMigration::carryOut(const SMove& move) {
  for (const int target : move.targets) {
    const SSource& first = move.sources.front();
    mPlaced[static_cast<size_t>(target)].push_back(
        {&subDevice(first.subDevice), &entry(first), add(move, target)});
  }
  addSteps(move);
}

CParamTreeNodeImpl* CHardwareMigration::add(const SMove& move, int target) {
  CSubDeviceTree& tree = subDevice(target).after();
  const SSource& source = move.sources.front();
  const SMigratedNode& from = entry(source);
  CParamTreeNodeImpl* group = tree.root();
  for (const QString& name : subDevice(source.subDevice).groupsOf(from)) {
    CParamTreeNodeImpl* const known = tree.group(group, name);
    group = known != nullptr ? known : tree.addGroup(group, name);
  }
  const CUtf8Text value(from.value);
  return tree.addParameterUtf8(group, move.param->newNameUtf8, move.param->newId(from.node->id()),
                               from.value.isNull() ? from.node->valueUtf8() : value.view());
}

/// Each source and each target has a step.
void CHardwareMigration::addSteps(const SMove& move) {
  const size_t count = std::max(move.sources.size(), move.targets.size());
  for (size_t i = 0; i < count; ++i) {
    const size_t source = std::min(i, move.sources.size() - 1);
    std::vector<SMigrationStep>& own = entry(move.sources[source]).steps;
    if (i >= move.sources.size()) own.push_back(own.front());
    own.back().newSubDevId =
        subDevice(move.targets[std::min(i, move.targets.size() - 1)]).subDevId();
  }
}

/// Which place a parameter comes back to depends on all that moves, so all is taken back.
void CHardwareMigration::lookBack(const CSubDeviceTrees& after) {
  const bool hasMoved = std::any_of(mMoves.begin(), mMoves.end(),
                                    [](const SMove& move) { return !move.targets.empty(); });
  if (mInput.opposite == nullptr || !hasMoved) return;
  const QMap<QString, QString> noAnswers;
  const std::set<const CParamTreeNodeImpl*> noneAnswered;
  const SMigrationInput input{*mInput.opposite, noAnswers, noneAnswered};
  CHardwareMigration back(after, mTypeOf, input, mJudge);
  std::set<const CParamTreeNodeImpl*> ignored;
  const CSubDeviceTrees again = back.run(ignored);
  const bool isSame = std::all_of(mSubDevices.begin(), mSubDevices.end(), [&](const auto& each) {
    return hasShape(*each.before().root(), *again.at(each.subDevId()).root());
  });
  for (const SMove& move : mMoves) {
    for (const SSource& source : move.sources) {
      const SMigratedNode& from = entry(source);
      const quint8 subDevId = subDevice(source.subDevice).subDevId();
      const auto* const node = again.at(subDevId).nodeUtf8(from.node->nameUtf8());
      if (isSame && node != nullptr && node->id() == from.node->id()) continue;
      for (SMigrationStep& step : entry(source).steps) step.comesBack = false;
    }
  }
}

/// Whether groups and parameters are at the same places, but for what is dropped.
bool CHardwareMigration::hasShape(const CParamTreeNodeImpl& before,
                                  const CParamTreeNodeImpl& again) const {
  int next = 0;
  for (int i = 0; i < before.childCount(); ++i) {
    const CParamTreeNodeImpl& child = *before.childNode(i);
    const bool isParam = child.isParam();
    const SMigrationRule* rule = isParam ? mInput.table.paramOf(child.nameUtf8()).rule : nullptr;
    if (rule != nullptr && rule->isDropped) continue;
    const CParamTreeNodeImpl* const other = again.childNode(next++);
    if (other == nullptr || other->isParam() != isParam || other->nameUtf8() != child.nameUtf8() ||
        !hasShape(child, *other)) {
      return false;
    }
  }
  return next == again.childCount();
}

// --- What the definitions do not allow

void CHardwareMigration::findPlaced() {
  for (size_t i = 0; i < mSubDevices.size(); ++i) {
    std::vector<SPlaced> own;
    for (SMigratedNode& each : mSubDevices[i].nodes())
      if (!each.isGroup() && each.placed != nullptr)
        own.push_back({&mSubDevices[i], &each, each.placed});
    own.insert(own.end(), mPlaced[i].begin(), mPlaced[i].end());
    mPlaced[i] = std::move(own);
  }
}

/// Answers first, since they may be limits of others.
void CHardwareMigration::judge() {
  if (!mInput.answers.isEmpty()) answerNotAllowed();
  for (size_t i = 0; i < mPlaced.size(); ++i) {
    mJudge.beginSubDevice();
    for (const SPlaced& placed : mPlaced[i]) {
      const QString problem = problemOf(placed, i);
      if (problem.isEmpty()) continue;
      for (SMigrationStep& step : stepsOf(placed)) {
        if (step.kind == SMigrationStep::NotAllowed) continue;  // in another sub-device, too
        step.kind = SMigrationStep::NotAllowed;
        step.text = step.text.isEmpty() ? problem : step.text + QLatin1String("; ") + problem;
      }
    }
  }
}

void CHardwareMigration::answerNotAllowed() {
  std::set<const SMigratedNode*> answered;
  for (size_t i = 0; i < mPlaced.size(); ++i) {
    mJudge.beginSubDevice();
    for (const SPlaced& placed : mPlaced[i]) {
      const bool hasAnswer = mInput.answers.contains(placed.node->name());
      if (hasAnswer && !placed.entry->isAnswered && !problemOf(placed, i).isEmpty())
        answered.insert(placed.entry);
    }
  }
  for (const auto& all : mPlaced) {
    for (const SPlaced& placed : all) {
      if (answered.count(placed.entry) == 0) continue;
      const QString value = mInput.answers.value(placed.node->name());
      placed.node->setValue(value);
      placed.entry->isAnswered = true;
      for (SMigrationStep& step : stepsOf(placed)) setAnswer(step, value);
    }
  }
}

void CHardwareMigration::setAnswer(SMigrationStep& step, const QString& value) {
  step.kind = SMigrationStep::Replaced;
  step.newValue = value;
  step.text = tr("your answer");
  step.comesBack = false;
}

std::vector<SMigrationStep>& CHardwareMigration::stepsOf(const SPlaced& placed) {
  std::vector<SMigrationStep>& own = placed.entry->steps;
  if (own.empty()) own.push_back(placed.source->stepFor(*placed.entry));
  return own;
}

/// What the definitions after the table find wrong and those before it did not.
QString CHardwareMigration::problemOf(const SPlaced& placed, size_t subDevice) {
  const SMigratedNode& from = *placed.entry;
  const bool isOpen = !from.steps.empty() && from.steps.front().kind == SMigrationStep::Decide;
  if (!from.param->wasDefined || isOpen || (from.isAnswered && !mInput.isLast)) return {};
  QString problem = mJudge.problemAfter(placed.node->nameUtf8(), placed.node->valueUtf8(),
                                        mSubDevices[subDevice].after());
  const bool isNew =
      problem.isEmpty() || from.isAnswered ||
      mJudge.wasAllowed(from.node->nameUtf8(), from.node->valueUtf8(), placed.source->before());
  return isNew ? problem : QString();
}

void CHardwareMigration::collect() {
  for (CSubDeviceMigration& each : mSubDevices)
    for (const SMigratedNode& node : each.nodes())
      for (const SMigrationStep& step : node.steps) mSteps.append(step);
}
