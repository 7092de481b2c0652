#pragma once

#include "CFileElement.h"
#include "NktoGlobal.h"
#include "ktoFramework_export.h"

#include <QMetaType>
#include <QSharedDataPointer>
#include <QString>

class CParamFileElementData;

/// A parameter file of a project: a value file, the definition file that goes with it, their type
/// and a comment. A plain value, and copies share it. Its metatype allows it in queued signals.
class KTOFRAMEWORK_EXPORT CParamFileElement {
 public:
  CParamFileElement();  ///< no files and no type
  CParamFileElement(NktoGlobal::EParamFileType type, const CFileElement& valueFile,
                    const CFileElement& definitionFile = CFileElement());
  CParamFileElement(const CParamFileElement& other);
  CParamFileElement& operator=(const CParamFileElement& other);
  ~CParamFileElement();

  NktoGlobal::EParamFileType fileType() const;
  void setFileType(NktoGlobal::EParamFileType type);

  CFileElement valueFile() const;
  void setValueFile(const CFileElement& file);
  CFileElement definitionFile() const;
  void setDefinitionFile(const CFileElement& file);

  QString comment() const;
  void setComment(const QString& comment);

  /// The project path of the value file; setting it sets that of both files.
  QString projectPath() const;
  void setProjectPath(const QString& path);

  QString valueFileName() const;
  void setValueFileName(const QString& name);

  bool operator==(const CParamFileElement& other) const;
  bool operator!=(const CParamFileElement& other) const { return !(*this == other); }

 private:
  QSharedDataPointer<CParamFileElementData> d;
};

Q_DECLARE_TYPEINFO(CParamFileElement, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CParamFileElement)
