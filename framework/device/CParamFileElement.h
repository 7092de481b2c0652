#pragma once

#include "CFileElement.h"
#include "NktoGlobal.h"

#include <QMetaType>
#include <QString>

#include <tuple>

/// A parameter file of a project: a value file, the definition file that goes with it, their type
/// and a comment. Its metatype allows it in queued signals.
class KTOFRAMEWORK_EXPORT CParamFileElement {
 public:
  CParamFileElement() = default;  ///< no files and no type
  CParamFileElement(NktoGlobal::EParamFileType type, const CFileElement& valueFile,
                    const CFileElement& definitionFile = CFileElement())
      : mType(type), mValueFile(valueFile), mDefinitionFile(definitionFile) {}

  NktoGlobal::EParamFileType fileType() const { return mType; }
  void setFileType(NktoGlobal::EParamFileType type) { mType = type; }

  CFileElement valueFile() const { return mValueFile; }
  void setValueFile(const CFileElement& file) { mValueFile = file; }
  CFileElement definitionFile() const { return mDefinitionFile; }
  void setDefinitionFile(const CFileElement& file) { mDefinitionFile = file; }

  QString comment() const { return mComment; }
  void setComment(const QString& comment) { mComment = comment; }

  /// The project path of the value file; setting it sets that of both files.
  QString projectPath() const { return mValueFile.projectPath(); }
  void setProjectPath(const QString& path) {
    mValueFile.setProjectPath(path);
    mDefinitionFile.setProjectPath(path);
  }

  QString valueFileName() const { return mValueFile.fileName(); }
  void setValueFileName(const QString& name) { mValueFile.setFileName(name); }

  bool operator==(const CParamFileElement& other) const {
    return std::tie(mType, mValueFile, mDefinitionFile, mComment) ==
           std::tie(other.mType, other.mValueFile, other.mDefinitionFile, other.mComment);
  }
  bool operator!=(const CParamFileElement& other) const { return !(*this == other); }

 private:
  NktoGlobal::EParamFileType mType = NktoGlobal::FILE_TYPE_NONE;
  CFileElement mValueFile;
  CFileElement mDefinitionFile;
  QString mComment;
};

Q_DECLARE_METATYPE(CParamFileElement)
