#pragma once

#include "ICParameterFile.h"

/// Restores the active hardware id, since values are seen through the active one only.
class CHardwareIdRestorer {
 public:
  explicit CHardwareIdRestorer(ICParameterFile& file) : mFile(file), mId(file.hardwareId()) {}
  CHardwareIdRestorer(const CHardwareIdRestorer&) = delete;
  CHardwareIdRestorer& operator=(const CHardwareIdRestorer&) = delete;

  ~CHardwareIdRestorer() {
    if (mFile.hardwareId() == mId) return;
    // One that does not hold anything yet is active but does not exist.
    mFile.containsHardwareId(mId) ? mFile.selectHardwareId(mId) : mFile.addHardwareId(mId);
  }

 private:
  ICParameterFile& mFile;
  const QString mId;
};
