#pragma once

#include "CParamFileElement.h"
#include "ktoFramework_export.h"

#include <QList>
#include <QSharedDataPointer>

class CDeviceBaseElementData;

/// What everything in a project that has parameters is built on: the list of its parameter files.
/// A plain value, and copies share it.
class KTOFRAMEWORK_EXPORT CDeviceBaseElement {
 public:
  CDeviceBaseElement();
  CDeviceBaseElement(const CDeviceBaseElement& other);
  CDeviceBaseElement& operator=(const CDeviceBaseElement& other);
  ~CDeviceBaseElement();

  /// All files, or those of one type, in the order in which they were added.
  QList<CParamFileElement> parameterFiles() const;
  QList<CParamFileElement> parameterFiles(NktoGlobal::EParamFileType type) const;
  void addParameterFile(const CParamFileElement& file);

 private:
  QSharedDataPointer<CDeviceBaseElementData> d;
};

Q_DECLARE_TYPEINFO(CDeviceBaseElement, Q_MOVABLE_TYPE);
