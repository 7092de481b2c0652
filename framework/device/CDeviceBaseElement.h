#pragma once

#include "CParamFileElement.h"
#include "ktoFramework_export.h"

#include <QList>

/// What everything in a project that has parameters is built on: the list of its parameter files.
class KTOFRAMEWORK_EXPORT CDeviceBaseElement {
 public:
  /// All files, or those of one type, in the order in which they were added.
  QList<CParamFileElement> parameterFiles() const { return mFiles; }
  QList<CParamFileElement> parameterFiles(NktoGlobal::EParamFileType type) const;
  void addParameterFile(const CParamFileElement& file) { mFiles.append(file); }

 private:
  QList<CParamFileElement> mFiles;
};
