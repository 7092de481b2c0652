#pragma once

#include "ICParameterFile.h"

/// Restores the active hardware id, since values are seen through the active one only.
class CHardwareIdSelection {
 public:
  explicit CHardwareIdSelection(ICParameterFile& file) : mFile(file), mId(file.hardwareId()) {}
  CHardwareIdSelection(const CHardwareIdSelection&) = delete;
  CHardwareIdSelection& operator=(const CHardwareIdSelection&) = delete;

  ~CHardwareIdSelection() {
    if (mFile.hardwareId() == mId) return;
    // One that does not hold anything yet is active but does not exist.
    mFile.containsHardwareId(mId) ? mFile.selectHardwareId(mId) : mFile.addHardwareId(mId);
  }

 private:
  ICParameterFile& mFile;
  const QString mId;
};
