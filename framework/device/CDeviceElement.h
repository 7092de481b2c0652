#pragma once

#include "CDeviceBaseElement.h"

#include <QString>

/// A device of a project: its name and its parameter files.
class KTOFRAMEWORK_EXPORT CDeviceElement : public CDeviceBaseElement {
 public:
  QString name() const { return mName; }
  void setName(const QString& name) { mName = name; }

  /// No device at all: neither a name nor a parameter file.
  bool isNull() const { return mName.isEmpty() && isEmpty(); }
  /// No parameter file.
  bool isEmpty() const { return parameterFiles().isEmpty(); }

 private:
  QString mName;
};
