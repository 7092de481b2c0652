#include "CDeviceBaseElement.h"

#include <QSharedData>

#include <algorithm>
#include <iterator>

class CDeviceBaseElementData : public QSharedData {
 public:
  QList<CParamFileElement> files;
};

CDeviceBaseElement::CDeviceBaseElement() : d(new CDeviceBaseElementData) {}

CDeviceBaseElement::CDeviceBaseElement(const CDeviceBaseElement& other) = default;
CDeviceBaseElement& CDeviceBaseElement::operator=(const CDeviceBaseElement& other) = default;
CDeviceBaseElement::~CDeviceBaseElement() = default;

QList<CParamFileElement> CDeviceBaseElement::parameterFiles() const {
  return d->files;
}

QList<CParamFileElement> CDeviceBaseElement::parameterFiles(NktoGlobal::EParamFileType type) const {
  QList<CParamFileElement> found;
  std::copy_if(d->files.cbegin(), d->files.cend(), std::back_inserter(found),
               [type](const CParamFileElement& file) { return file.fileType() == type; });
  return found;
}

void CDeviceBaseElement::addParameterFile(const CParamFileElement& file) {
  d->files.append(file);
}
