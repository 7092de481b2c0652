#include "CParamImport.h"

#include "CParameterFileHelper.h"
#include "ICLogfile.h"

namespace {

/// The group in which a node lies, as names from the root on.
QStringList groupPath(const CParamTreeNodeImpl& node) {
  QStringList path;
  for (const auto* group = node.parent(); group->parent() != nullptr; group = group->parent()) {
    path.prepend(group->dataRef().name());
  }
  return path;
}

const CSubDeviceTree* findTree(const CSubDeviceTrees& trees, quint8 subDevId) {
  const auto tree = trees.find(subDevId);
  return tree == trees.end() ? nullptr : &tree->second;
}

}  // namespace

bool CParamImport::plan(const CSubDeviceTrees& source, CSubDeviceTrees& destination,
                        NParamDef::EImportMissing missing, QString& error) {
  mDestination = &destination;
  for (auto& [subDevId, tree] : destination) {
    if (!planTree(tree, findTree(source, subDevId), missing, error)) {
      return false;
    }
  }
  for (const auto& [subDevId, tree] : source) {
    planAdditions(tree, findTree(destination, subDevId));
  }
  return true;
}

bool CParamImport::planTree(CSubDeviceTree& tree, const CSubDeviceTree* source,
                            NParamDef::EImportMissing missing, QString& error) {
  for (const QString& name : tree.names()) {
    if (source != nullptr && source->contains(name)) {
      planValue(tree, name, source->value(name)) ? ++mResult.taken : ++mResult.equal;
    } else if (missing == NParamDef::ImportKeep) {
      ++mResult.kept;
    } else if (!planDefault(tree, name, error)) {
      return false;
    }
  }
  return true;
}

bool CParamImport::planDefault(CSubDeviceTree& tree, const QString& name, QString& error) {
  const CParamDefItem* definition = mDefinitions.find(name);
  if (definition == nullptr) {
    log(ICLogfile::kLevelErrors, tree.subDevId(), name, tr("Definition is missing."));
    error = tr("Definition of parameter \"%1\" not found. Import failed.").arg(name);
    return false;
  }
  log(ICLogfile::kLevelDetail, tree.subDevId(), name, tr("Default value is used."));
  planValue(tree, name, definition->defVal());
  ++mResult.defaulted;
  return true;
}

void CParamImport::planAdditions(const CSubDeviceTree& source, const CSubDeviceTree* tree) {
  for (const QString& name : source.names()) {
    if (tree != nullptr && tree->contains(name)) {
      continue;
    }
    if (mDefinitions.find(name) == nullptr) {
      log(ICLogfile::kLevelDetail, source.subDevId(), name,
          tr("The parameter is not defined and is skipped."));
      ++mResult.unknown;
    } else {
      mAdditions.push_back({&source, name});
      ++mResult.added;
    }
  }
}

bool CParamImport::planValue(CSubDeviceTree& tree, const QString& name, const CParamVal& value) {
  const CParamDefItem* definition = mDefinitions.find(name);
  if (CParameterFileHelper::compareValues(tree.value(name), value,
                                          definition != nullptr ? *definition : CParamDefItem())) {
    return false;
  }
  mNewValues.push_back({&tree, name, value});
  return true;
}

bool CParamImport::apply() {
  for (const SNewValue& newValue : mNewValues) {
    newValue.tree->setValue(newValue.name, newValue.value);
  }
  for (const SAddition& addition : mAdditions) {
    add(addition);
  }
  return !mNewValues.empty() || !mAdditions.empty();
}

void CParamImport::add(const SAddition& addition) {
  const quint8 subDevId = addition.source->subDevId();
  CSubDeviceTree& tree = mDestination->try_emplace(subDevId, subDevId).first->second;
  CParamTreeNodeImpl* group = tree.root();
  for (const QString& name : groupPath(*addition.source->node(addition.name))) {
    CParamTreeNodeImpl* existing = tree.group(group, name);
    group = existing != nullptr ? existing : tree.addGroup(group, name);
  }
  const CParamDefItem* definition = mDefinitions.find(addition.name);
  tree.addParameter(group, addition.name, definition->valid() ? definition->id() : 0,
                    addition.source->value(addition.name));
}

void CParamImport::log(quint32 level, quint8 subDevId, const QString& name,
                       const QString& text) const {
  if (mLogfile != nullptr && mLogfile->isLevelEnabled(level)) {
    mLogfile->write(level, tr("%1 of sub device %2:").arg(name, QString::number(subDevId)) +
                               QLatin1Char(' ') + text);
  }
}
