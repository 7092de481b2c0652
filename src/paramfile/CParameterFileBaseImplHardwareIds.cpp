// Hardware ids. One exists as soon as there is a tree under it.

#include "CParameterFileBaseImpl.h"

QStringList CParameterFileBaseImpl::hardwareIds() const {
  return hardwareIdsOf(mTrees);
}

bool CParameterFileBaseImpl::containsHardwareId(const QString& hardwareId) const {
  return mTrees.count(hardwareId) > 0;
}

bool CParameterFileBaseImpl::selectHardwareId(const QString& hardwareId) {
  if (!containsHardwareId(hardwareId))
    return setErrorMsg(tr("Hardware id \"%1\" does not exist. Select failed.").arg(hardwareId));
  mHardwareId = hardwareId;
  return true;
}

bool CParameterFileBaseImpl::addHardwareId(const QString& hardwareId) {
  if (containsHardwareId(hardwareId))
    return setErrorMsg(tr("Hardware id \"%1\" already exists. Add failed.").arg(hardwareId));
  mHardwareId = hardwareId;
  return true;
}

bool CParameterFileBaseImpl::removeHardwareId(const QString& hardwareId) {
  if (hardwareId == mHardwareId)
    return setErrorMsg(tr("Cannot remove the active hardware id \"%1\".").arg(hardwareId));
  if (mTrees.erase(hardwareId) == 0)
    return setErrorMsg(tr("Hardware id \"%1\" does not exist. Remove failed.").arg(hardwareId));
  setHwIdChanged(hardwareId);
  return true;
}

bool CParameterFileBaseImpl::renameHardwareId(const QString& oldId, const QString& newId) {
  if (!containsHardwareId(oldId))
    return setErrorMsg(tr("Hardware id \"%1\" does not exist. Rename failed.").arg(oldId));
  if (containsHardwareId(newId))
    return setErrorMsg(tr("Hardware id \"%1\" already exists. Rename failed.").arg(newId));
  auto entry = mTrees.extract(oldId);
  entry.key() = newId;
  mTrees.insert(std::move(entry));
  if (mHardwareId == oldId) mHardwareId = newId;
  setHwIdChanged(newId);
  return true;
}

bool CParameterFileBaseImpl::cloneHardwareId(const QString& source, const QString& target) {
  const auto trees = mTrees.find(source);
  if (trees == mTrees.end())
    return setErrorMsg(tr("Source hardware id \"%1\" does not exist. Clone failed.").arg(source));
  if (containsHardwareId(target))
    return setErrorMsg(tr("Hardware id \"%1\" already exists. Clone failed.").arg(target));
  mTrees.emplace(target, cloneOf(trees->second));
  mHardwareId = target;
  setHwIdChanged(target);
  return true;
}

bool CParameterFileBaseImpl::cloneHardwareIdFromInstance(const QString& hardwareId,
                                                         ICParameterFile* other) {
  const auto* source = dynamic_cast<CParameterFileBaseImpl*>(other);
  if (source == nullptr)
    return setErrorMsg(tr("Other instance is not from type CParameterFileBaseImpl. Clone failed."));
  const auto trees = source->mTrees.find(hardwareId);
  if (trees == source->mTrees.end()) {
    return setErrorMsg(
        tr("Other instance does not contain hardware id \"%1\". Clone failed.").arg(hardwareId));
  }
  if (containsHardwareId(hardwareId))
    return setErrorMsg(tr("Hardware id \"%1\" already exists. Clone failed.").arg(hardwareId));
  mTrees.emplace(hardwareId, cloneOf(trees->second));
  mHardwareId = hardwareId;
  setHwIdChanged(hardwareId);
  return true;
}
