#pragma once

#include "CParamDefItem.h"
#include "CParamVal.h"
#include "NktoGlobal.h"
#include "ktoParameter_export.h"

#include <QByteArray>
#include <QHash>
#include <QString>

/// Services round parameter files that need no model of them: file types, comments, versions,
/// and when two values are equal. All static ones may be called from any thread.
class KTOPARAMETER_EXPORT CParameterFileHelper {
 public:
  /// The name of each file type, which is the root tag of its files.
  static const QHash<NktoGlobal::EParamFileType, QString> mFileTypeStrHash;

  static QString fileTypeToStr(NktoGlobal::EParamFileType type);  ///< empty for an unknown type
  /// The type whose name occurs anywhere in the text, e.g. in the line with the root tag; else -1.
  static NktoGlobal::EParamFileType fileTypeFromStr(const QString& text);

  /// The type by the root tag, which must stand at the very start of one of the first three lines
  /// (and within the first MiB); -1 when it does not, when the tag names no type, or when the file
  /// cannot be read.
  static NktoGlobal::EParamFileType detectFileType(const QByteArray& data);
  static NktoGlobal::EParamFileType detectFileType(const QString& fileName);

  /// The comment in the Head of an XML file; what follows the Head is not looked at. Empty when
  /// there is none or the data is damaged before.
  static QString comment(const QByteArray& data);
  /// The revision number in the version attribute of an XML file's root, as CStr::stringToRevision
  /// gives it; 0 when there is none or it is no revision.
  static quint32 fileVersion(const QByteArray& data);

  /// True when the values are equal under the definition: as numbers for an unsigned type, as exact
  /// texts for all others.
  static bool compareValues(const CParamVal& a, const CParamVal& b, const CParamDefItem& def);

 private:
  static QHash<NktoGlobal::EParamFileType, QString> initFileTypeStrHash();
};
