#include "CParameterFileComparison.h"

#include "CParamValueRules.h"
#include "ICParameterFile.h"
#include "NNameMatch.h"
#include "SStoredParam.h"

#include <map>
#include <set>
#include <vector>

namespace {

using CEntries = std::vector<SStoredParam>;
using CSubDeviceEntries = std::map<quint8, CEntries>;

/// What one hardware id holds. Both files may be the same object.
CSubDeviceEntries read(ICParameterFile& file, const QString& hardwareId, CNodeNumbers& keys) {
  CSubDeviceEntries entries;
  for (const quint8 subDevId : file.subDeviceIds(hardwareId))
    entries[subDevId] = SStoredParam::read(file, hardwareId, subDevId, keys);
  return entries;
}

class CComparison {
 public:
  CComparison(ICParameterFile& oldFile, ICParameterFile& newFile,
              const ICParameterFile* definitions)
      : mOldFile(oldFile), mNewFile(newFile), mDefinitions(definitions) {}

  void compareAll() {
    std::set<QString> ids;
    for (const QString& id : mOldFile.hardwareIds() + mNewFile.hardwareIds()) ids.insert(id);
    for (const QString& id : ids)
      if (!mNewFile.containsHardwareId(id))
        addHardwareId(SParamDifference::HardwareIdRemoved, id);
      else if (!mOldFile.containsHardwareId(id))
        addHardwareId(SParamDifference::HardwareIdAdded, id);
      else
        compareHardwareIds(id, id);
  }

  void compareHardwareIds(const QString& oldId, const QString& newId) {
    const CSubDeviceEntries oldOnes = read(mOldFile, oldId, mKeys);
    const CSubDeviceEntries newOnes = read(mNewFile, newId, mKeys);
    mHardwareId = newId;
    for (int id = 0; id <= 0xFF; ++id) {
      const auto subDevId = static_cast<quint8>(id);
      mSubDevId = id;
      const auto oldOne = oldOnes.find(subDevId);
      const auto newOne = newOnes.find(subDevId);
      if (oldOne != oldOnes.end() && newOne != newOnes.end()) {
        compareTypeAndName(subDevId);
        compareEntries(oldOne->second, newOne->second);
      } else if (oldOne != oldOnes.end()) {
        add(SParamDifference::SubDeviceRemoved);
      } else if (newOne != newOnes.end()) {
        add(SParamDifference::SubDeviceAdded);
      }
    }
  }

  void compareSubDevices(const QString& oldId, quint8 oldSubDevId, const QString& newId,
                         quint8 newSubDevId) {
    CSubDeviceEntries oldOnes = read(mOldFile, oldId, mKeys);
    CSubDeviceEntries newOnes = read(mNewFile, newId, mKeys);
    mHardwareId = newId;
    mSubDevId = newSubDevId;
    compareEntries(oldOnes[oldSubDevId], newOnes[newSubDevId]);
  }

  CParamDifferences differences() const { return mShared + mDifferences; }

 private:
  void addHardwareId(SParamDifference::EKind kind, const QString& hardwareId) {
    mHardwareId = hardwareId;
    mSubDevId = SParamDifference::kNoSubDevice;
    add(kind);
  }

  SParamDifference& add(SParamDifference::EKind kind) {
    SParamDifference difference;
    difference.kind = kind;
    difference.hardwareId = mHardwareId;
    difference.subDevId = mSubDevId;
    mDifferences.append(difference);
    return mDifferences.last();
  }

  void addShared(SParamDifference::EKind kind, const QString& oldValue, const QString& newValue) {
    if (oldValue != newValue)
      mShared.append({kind, QString(), mSubDevId, {}, {}, {}, oldValue, newValue});
  }

  void compareTypeAndName(quint8 subDevId) {
    if (!mCompared.insert(subDevId).second) return;
    addShared(SParamDifference::SubDeviceTypeChanged,
              ICParameterFile::subDeviceTypeToStr(mOldFile.subDevType(subDevId)),
              ICParameterFile::subDeviceTypeToStr(mNewFile.subDevType(subDevId)));
    addShared(SParamDifference::SubDeviceNameChanged, mOldFile.subDevName(subDevId),
              mNewFile.subDevName(subDevId));
  }

  void compareEntries(const CEntries& oldOnes, const CEntries& newOnes) {
    const auto nameOf = [](const SStoredParam& entry) { return entry.name.view(); };
    const std::vector<int> oldPositions = NNameMatch::positionsOf(newOnes, oldOnes, nameOf);
    std::vector<bool> isKept(oldOnes.size());
    for (const int position : oldPositions)
      if (position >= 0) isKept[static_cast<size_t>(position)] = true;
    addRemovedFrom(0, oldOnes, isKept);
    for (size_t i = 0; i < newOnes.size(); ++i) {
      const int position = oldPositions[i];
      if (position < 0) {
        addParameter(SParamDifference::ParameterAdded, nullptr, &newOnes.at(i));
        continue;
      }
      compareParameters(oldOnes.at(static_cast<size_t>(position)), newOnes.at(i));
      addRemovedFrom(static_cast<size_t>(position) + 1, oldOnes, isKept);
    }
  }

  /// What was removed directly after a place in the old file.
  void addRemovedFrom(size_t position, const CEntries& oldOnes, const std::vector<bool>& isKept) {
    for (; position < oldOnes.size() && !isKept.at(position); ++position)
      addParameter(SParamDifference::ParameterRemoved, &oldOnes.at(position), nullptr);
  }

  void compareParameters(const SStoredParam& oldOne, const SStoredParam& newOne) {
    if (oldOne.group != newOne.group)
      addParameter(SParamDifference::ParameterMoved, &oldOne, &newOne);
    if (oldOne.id != newOne.id) {
      SParamDifference& difference = addParameter(SParamDifference::IdChanged, &oldOne, &newOne);
      difference.oldValue = QString::number(oldOne.id);
      difference.newValue = QString::number(newOne.id);
    }
    if (!haveEqualValues(oldOne, newOne))
      addParameter(SParamDifference::ValueChanged, &oldOne, &newOne);
  }

  bool haveEqualValues(const SStoredParam& oldOne, const SStoredParam& newOne) const {
    if (oldOne.value.view() == newOne.value.view()) return true;
    return mDefinitions != nullptr &&
           CParamValueRules::areEqual(oldOne.value.toQString(), newOne.value.toQString(),
                                      mDefinitions->paramDef(newOne.name.toQString()));
  }

  SParamDifference& addParameter(SParamDifference::EKind kind, const SStoredParam* oldOne,
                                 const SStoredParam* newOne) {
    SParamDifference& difference = add(kind);
    if (oldOne != nullptr) {
      difference.name = oldOne->name.toQString();
      difference.oldGroupPath = mKeys.pathOfGroup(oldOne->group);
      difference.oldValue = oldOne->value.toQString();
    }
    if (newOne != nullptr) {
      difference.name = newOne->name.toQString();
      difference.newGroupPath = mKeys.pathOfGroup(newOne->group);
      difference.newValue = newOne->value.toQString();
    }
    return difference;
  }

  ICParameterFile& mOldFile;
  ICParameterFile& mNewFile;
  const ICParameterFile* mDefinitions;
  CNodeNumbers mKeys;  // of both files
  QString mHardwareId;
  int mSubDevId = SParamDifference::kNoSubDevice;
  std::set<quint8> mCompared;  // types and names
  CParamDifferences mShared;
  CParamDifferences mDifferences;
};

}  // namespace

CParamDifferences CParameterFileComparison::compare(ICParameterFile& oldFile,
                                                    ICParameterFile& newFile,
                                                    const ICParameterFile* definitions) {
  CComparison comparison(oldFile, newFile, definitions);
  comparison.compareAll();
  return comparison.differences();
}

CParamDifferences CParameterFileComparison::compareHardwareIds(ICParameterFile& oldFile,
                                                               const QString& oldId,
                                                               ICParameterFile& newFile,
                                                               const QString& newId,
                                                               const ICParameterFile* definitions) {
  CComparison comparison(oldFile, newFile, definitions);
  comparison.compareHardwareIds(oldId, newId);
  return comparison.differences();
}

CParamDifferences CParameterFileComparison::compareSubDevices(
    ICParameterFile& oldFile, const QString& oldId, quint8 oldSubDevId, ICParameterFile& newFile,
    const QString& newId, quint8 newSubDevId, const ICParameterFile* definitions) {
  CComparison comparison(oldFile, newFile, definitions);
  comparison.compareSubDevices(oldId, oldSubDevId, newId, newSubDevId);
  return comparison.differences();
}
