#pragma once

#include "CParameterFileBaseImpl.h"
#include "SMergeConflict.h"

/// Merges hardware ids, their sub-devices, and the types and names of those.
class CHardwareMerge {
 public:
  CHardwareMerge(const CParameterFileBaseImpl& base, CParameterFileBaseImpl& ours,
                 const CParameterFileBaseImpl& theirs)
      : mBase(base), mOurs(ours), mTheirs(theirs) {}

  void run();
  const CMergeConflicts& conflicts() const { return mConflicts; }

 private:
  template <typename K, typename V>
  void mergeMap(const std::map<K, V>* base, std::map<K, V>& ours, const std::map<K, V>& theirs);
  template <typename K, typename V>
  void mergeOne(const K& key, const V* base, std::map<K, V>& ours, const V* theirs);
  void mergeBoth(const CSubDeviceTrees* base, CSubDeviceTrees& ours, const CSubDeviceTrees& theirs);
  void mergeBoth(const CSubDeviceTree* base, CSubDeviceTree& ours, const CSubDeviceTree& theirs);

  void enter(const QString& hardwareId);
  void enter(quint8 subDevId);
  void leave(const QString& hardwareId);
  void leave(quint8 subDevId);
  void addRemoval(SMergeConflict::EKind kind);

  void mergeType(quint8 subDevId, bool isInBase, bool isInOurs);
  void mergeName(quint8 subDevId, bool isInBase, bool isInOurs);
  void addConflict(SMergeConflict::ESubject subject, quint8 subDevId, bool isInBase,
                   const QString& base, const QString& ours, const QString& theirs);

  const CParameterFileBaseImpl& mBase;
  CParameterFileBaseImpl& mOurs;
  const CParameterFileBaseImpl& mTheirs;
  QString mHardwareId;
  int mSubDevId = SMergeConflict::kNoSubDevice;
  CMergeConflicts mConflicts;
};
