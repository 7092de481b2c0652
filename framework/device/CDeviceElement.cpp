#include "CDeviceElement.h"

#include <QSharedData>

class CDeviceElementData : public QSharedData {
 public:
  QString name;
};

CDeviceElement::CDeviceElement() : d(new CDeviceElementData) {}

CDeviceElement::CDeviceElement(const CDeviceElement& other) = default;
CDeviceElement& CDeviceElement::operator=(const CDeviceElement& other) = default;
CDeviceElement::~CDeviceElement() = default;

QString CDeviceElement::name() const {
  return d->name;
}

void CDeviceElement::setName(const QString& name) {
  d->name = name;
}

bool CDeviceElement::isNull() const {
  return name().isEmpty() && isEmpty();
}

bool CDeviceElement::isEmpty() const {
  return parameterFiles().isEmpty();
}
