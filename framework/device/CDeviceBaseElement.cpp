#include "CDeviceBaseElement.h"

#include <algorithm>
#include <iterator>

QList<CParamFileElement> CDeviceBaseElement::parameterFiles(NktoGlobal::EParamFileType type) const {
  QList<CParamFileElement> found;
  std::copy_if(mFiles.cbegin(), mFiles.cend(), std::back_inserter(found),
               [type](const CParamFileElement& file) { return file.fileType() == type; });
  return found;
}
