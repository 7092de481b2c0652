#include "CFileElement.h"

#include <QSharedData>

class CFileElementData : public QSharedData {
 public:
  QString projectPath;
  QString fileName;
};

CFileElement::CFileElement() : d(new CFileElementData) {}

CFileElement::CFileElement(const QString& projectPath, const QString& fileName) : CFileElement() {
  d->projectPath = projectPath;
  d->fileName = fileName;
}

CFileElement::CFileElement(const CFileElement& other) = default;
CFileElement& CFileElement::operator=(const CFileElement& other) = default;
CFileElement::~CFileElement() = default;

QString CFileElement::projectPath() const {
  return d->projectPath;
}

void CFileElement::setProjectPath(const QString& path) {
  d->projectPath = path;
}

QString CFileElement::fileName() const {
  return d->fileName;
}

void CFileElement::setFileName(const QString& name) {
  d->fileName = name;
}

QString CFileElement::projectFilePath() const {
  const QLatin1Char separator('/');
  if (d->projectPath.isEmpty() || d->fileName.isEmpty()) return d->fileName;
  if (d->projectPath.endsWith(separator) || d->fileName.startsWith(separator)) {
    return d->projectPath + d->fileName;
  }
  return d->projectPath + separator + d->fileName;
}

bool CFileElement::operator==(const CFileElement& other) const {
  return d == other.d ||
         (d->projectPath == other.d->projectPath && d->fileName == other.d->fileName);
}
