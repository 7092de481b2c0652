#include "CFileElement.h"

QString CFileElement::projectFilePath() const {
  const QLatin1Char separator('/');
  if (mProjectPath.isEmpty() || mFileName.isEmpty()) return mFileName;
  if (mProjectPath.endsWith(separator) || mFileName.startsWith(separator))
    return mProjectPath + mFileName;
  return mProjectPath + separator + mFileName;
}
