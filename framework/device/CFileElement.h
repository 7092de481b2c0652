#pragma once

#include "ktoFramework_export.h"

#include <QMetaType>
#include <QSharedDataPointer>
#include <QString>

class CFileElementData;

/// A file of a project: the path of the project and the file's name below it. A plain value, and
/// copies share it.
class KTOFRAMEWORK_EXPORT CFileElement {
 public:
  CFileElement();
  CFileElement(const QString& projectPath, const QString& fileName);
  CFileElement(const CFileElement& other);
  CFileElement& operator=(const CFileElement& other);
  ~CFileElement();

  QString projectPath() const;
  void setProjectPath(const QString& path);

  /// The name, with the folders between it and the project path when there are any.
  QString fileName() const;
  void setFileName(const QString& name);

  /// Path and name joined, with a separator where there is none. The bare name when there is no
  /// path; empty when there is no name.
  QString projectFilePath() const;

  bool operator==(const CFileElement& other) const;
  bool operator!=(const CFileElement& other) const { return !(*this == other); }

 private:
  QSharedDataPointer<CFileElementData> d;
};

Q_DECLARE_TYPEINFO(CFileElement, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CFileElement)
