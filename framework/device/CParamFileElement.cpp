#include "CParamFileElement.h"

#include <QSharedData>

using NktoGlobal::EParamFileType;

class CParamFileElementData : public QSharedData {
 public:
  EParamFileType type = NktoGlobal::FILE_TYPE_NONE;
  CFileElement valueFile;
  CFileElement definitionFile;
  QString comment;
};

CParamFileElement::CParamFileElement() : d(new CParamFileElementData) {}

CParamFileElement::CParamFileElement(EParamFileType type, const CFileElement& valueFile,
                                     const CFileElement& definitionFile)
    : CParamFileElement() {
  d->type = type;
  d->valueFile = valueFile;
  d->definitionFile = definitionFile;
}

CParamFileElement::CParamFileElement(const CParamFileElement& other) = default;
CParamFileElement& CParamFileElement::operator=(const CParamFileElement& other) = default;
CParamFileElement::~CParamFileElement() = default;

EParamFileType CParamFileElement::fileType() const {
  return d->type;
}

void CParamFileElement::setFileType(EParamFileType type) {
  d->type = type;
}

CFileElement CParamFileElement::valueFile() const {
  return d->valueFile;
}

void CParamFileElement::setValueFile(const CFileElement& file) {
  d->valueFile = file;
}

CFileElement CParamFileElement::definitionFile() const {
  return d->definitionFile;
}

void CParamFileElement::setDefinitionFile(const CFileElement& file) {
  d->definitionFile = file;
}

QString CParamFileElement::comment() const {
  return d->comment;
}

void CParamFileElement::setComment(const QString& comment) {
  d->comment = comment;
}

QString CParamFileElement::projectPath() const {
  return d->valueFile.projectPath();
}

void CParamFileElement::setProjectPath(const QString& path) {
  d->valueFile.setProjectPath(path);
  d->definitionFile.setProjectPath(path);
}

QString CParamFileElement::valueFileName() const {
  return d->valueFile.fileName();
}

void CParamFileElement::setValueFileName(const QString& name) {
  d->valueFile.setFileName(name);
}

bool CParamFileElement::operator==(const CParamFileElement& other) const {
  return d == other.d ||
         (d->type == other.d->type && d->valueFile == other.d->valueFile &&
          d->definitionFile == other.d->definitionFile && d->comment == other.d->comment);
}
