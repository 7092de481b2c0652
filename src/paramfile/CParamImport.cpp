#include "CParamImport.h"

#include "CParamValueRules.h"
#include "ICLogfile.h"
#include "NNameMatch.h"

#include <array>

namespace {

using CParams = QVector<CParamTreeNodeImpl*>;

/// The group in which a node lies, as names from the root on.
QStringList groupPath(const CParamTreeNodeImpl& node) {
  QStringList path;
  for (const auto* group = node.parent(); group->parent() != nullptr; group = group->parent())
    path.prepend(group->dataRef().name());
  return path;
}

/// The group of that path in a tree, which is added where it is missing.
CParamTreeNodeImpl* groupFor(const CParamTreeNodeImpl& param, CSubDeviceTree& tree) {
  CParamTreeNodeImpl* group = tree.root();
  for (const QString& name : groupPath(param)) {
    CParamTreeNodeImpl* existing = tree.group(group, name);
    group = existing != nullptr ? existing : tree.addGroup(group, name);
  }
  return group;
}

CParams paramsOf(const CSubDeviceTrees& trees, quint8 subDevId) {
  const auto tree = trees.find(subDevId);
  return tree == trees.end() ? CParams() : tree->second.params();
}

std::string_view nameOf(const CParamTreeNodeImpl* param) {
  return param->nameUtf8();
}

}  // namespace

bool CParamImport::plan(const CSubDeviceTrees& source, CSubDeviceTrees& destination,
                        NParamDef::EImportMissing missing, QString& error) {
  mDestination = &destination;
  for (const auto& [subDevId, tree] : destination)
    if (!planTree(paramsOf(source, subDevId), tree.params(), missing, error)) return false;
  for (const auto& [subDevId, tree] : source)
    if (destination.count(subDevId) == 0) planAdditions(tree.params());
  return true;
}

bool CParamImport::planTree(CParams source, const CParams& destination,
                            NParamDef::EImportMissing missing, QString& error) {
  const std::vector<int> positions = NNameMatch::positionsOf(destination, source, &nameOf);
  for (int i = 0; i < destination.size(); ++i) {
    const int position = positions[static_cast<size_t>(i)];
    if (position >= 0) {
      CParamTreeNodeImpl*& from = source[position];
      const bool isTaken = planValueOf(*from, destination.at(i));
      note(isTaken ? SImported::Taken : SImported::Equal, *destination.at(i));
      from = nullptr;
    } else if (missing == NParamDef::ImportKeep) {
      note(SImported::Kept, *destination.at(i));
    } else if (!planDefault(destination.at(i), error)) {
      return false;
    }
  }
  source.removeAll(nullptr);
  planAdditions(source);
  return true;
}

bool CParamImport::planValueOf(const CParamTreeNodeImpl& source, CParamTreeNodeImpl* param) {
  return source.valueUtf8() != param->valueUtf8() && planValue(param, source.value());
}

bool CParamImport::planDefault(CParamTreeNodeImpl* param, QString& error) {
  const CParamDefItem* definition = mDefinitions.find(param->name());
  if (definition == nullptr) {
    log(ICLogfile::kLevelErrors, *param, tr("Definition is missing."));
    error = tr("Definition of parameter \"%1\" not found. Import failed.").arg(param->name());
    return false;
  }
  log(ICLogfile::kLevelDetail, *param, tr("Default value is used."));
  planValue(param, definition->defVal());
  note(SImported::Defaulted, *param);
  return true;
}

void CParamImport::planAdditions(const CParams& source) {
  for (const CParamTreeNodeImpl* param : source) {
    if (mDefinitions.find(param->name()) == nullptr) {
      log(ICLogfile::kLevelDetail, *param, tr("The parameter is not defined and is skipped."));
      note(SImported::Unknown, *param);
    } else {
      mAdditions.push_back(param);
      note(SImported::Added, *param);
    }
  }
}

bool CParamImport::planValue(CParamTreeNodeImpl* param, const CParamVal& value) {
  if (param->value() == value) return false;
  const CParamDefItem* definition = mDefinitions.find(param->name());
  if (CParamValueRules::mayStay(param->value(), value,
                                definition != nullptr ? *definition : CParamDefItem())) {
    return false;
  }
  mNewValues.push_back({param, value});
  return true;
}

bool CParamImport::apply() {
  for (const SNewValue& newValue : mNewValues) newValue.param->setValue(newValue.value);
  for (const CParamTreeNodeImpl* addition : mAdditions) add(*addition);
  return !mNewValues.empty() || !mAdditions.empty();
}

void CParamImport::add(const CParamTreeNodeImpl& param) {
  const quint8 subDevId = param.subDevId();
  CSubDeviceTree& tree = mDestination->try_emplace(subDevId, subDevId).first->second;
  // Most come from the group of the one before, whose path may be long.
  if (mSourceGroup != param.parent()) {
    mSourceGroup = param.parent();
    mGroup = groupFor(param, tree);
  }
  const CParamDefItem* definition = mDefinitions.find(param.name());
  tree.addParameterUtf8(mGroup, param.nameUtf8(), definition->valid() ? definition->id() : 0,
                        param.valueUtf8());
}

void CParamImport::note(SImported::EWhat what, const CParamTreeNodeImpl& param) {
  using SResult = NParamDef::SImportResult;
  static constexpr std::array kCounts = {&SResult::taken, &SResult::equal, &SResult::defaulted,
                                         &SResult::kept,  &SResult::added, &SResult::unknown};
  ++(mResult.*kCounts.at(static_cast<size_t>(what)));
  if (mIsListed) mParams.append({what, param.subDevId(), param.name()});
}

void CParamImport::log(quint32 level, const CParamTreeNodeImpl& param, const QString& text) const {
  if (mLogfile != nullptr && mLogfile->isLevelEnabled(level)) {
    mLogfile->write(
        level, tr("%1 of sub device %2:").arg(param.name(), QString::number(param.subDevId())) +
                   QLatin1Char(' ') + text);
  }
}
