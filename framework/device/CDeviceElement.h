#pragma once

#include "CDeviceBaseElement.h"
#include "ktoFramework_export.h"

#include <QSharedDataPointer>
#include <QString>

class CDeviceElementData;

/// A device of a project: its name and its parameter files. A plain value, and copies share it.
class KTOFRAMEWORK_EXPORT CDeviceElement : public CDeviceBaseElement {
 public:
  CDeviceElement();
  CDeviceElement(const CDeviceElement& other);
  CDeviceElement& operator=(const CDeviceElement& other);
  ~CDeviceElement();

  QString name() const;
  void setName(const QString& name);

  /// No device at all: neither a name nor a parameter file.
  bool isNull() const;
  /// No parameter file.
  bool isEmpty() const;

 private:
  QSharedDataPointer<CDeviceElementData> d;
};

Q_DECLARE_TYPEINFO(CDeviceElement, Q_MOVABLE_TYPE);
