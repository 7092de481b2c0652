#pragma once

#include "ktoFramework_export.h"

#include <QMetaType>
#include <QString>

/// A file of a project: the path of the project and the file's name below it.
class KTOFRAMEWORK_EXPORT CFileElement {
 public:
  CFileElement() = default;
  CFileElement(const QString& projectPath, const QString& fileName)
      : mProjectPath(projectPath), mFileName(fileName) {}

  QString projectPath() const { return mProjectPath; }
  void setProjectPath(const QString& path) { mProjectPath = path; }

  /// The name, with the folders between it and the project path when there are any.
  QString fileName() const { return mFileName; }
  void setFileName(const QString& name) { mFileName = name; }

  /// Path and name joined, with a separator where there is none. The bare name when there is no
  /// path; empty when there is no name.
  QString projectFilePath() const;

  bool operator==(const CFileElement& other) const {
    return mProjectPath == other.mProjectPath && mFileName == other.mFileName;
  }
  bool operator!=(const CFileElement& other) const { return !(*this == other); }

 private:
  QString mProjectPath;
  QString mFileName;
};

Q_DECLARE_METATYPE(CFileElement)
