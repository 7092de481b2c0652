#pragma once

#include "NktoGlobal.h"

#include <QString>

#include <optional>

class COutput;

/// What the beginning of a file tells about it.
struct SFileInfo {
  enum EKind { Unknown, Definitions, Values, Settings, Compensation };

  EKind kind = Unknown;
  NktoGlobal::EParamFileType type = NktoGlobal::FILE_TYPE_NONE;  ///< none for definitions
  QString typeName;        ///< the name of the root element; empty for an unknown kind
  quint32 version = 0;     ///< as CStr::stringToRevision() packs it; 0 when there is none
  QString writtenVersion;  ///< exactly as it is written in the file, "01.0" for example
  QString comment;
  QString reason;  ///< why the kind is not known

  /// Nothing, with a message, when the file cannot be read.
  static std::optional<SFileInfo> read(const QString& fileName, COutput& out);

  /// What its beginning tells, without a message; not known when it cannot be read.
  static EKind kindOf(const QString& fileName);

  /// False, with a message, for a file of another kind: a result must not take its place by a slip
  /// of the keyboard.
  static bool mayReplace(const QString& fileName, EKind kind, COutput& out);

  /// What a command wants: a file of the kind, or one of any kind that is known.
  static QString needed(EKind kind);
  /// Why a command does not take this file, followed by what is wanted instead.
  QString refusal(const QString& wanted) const;
  /// "1.0"; empty when there is none.
  QString versionText() const;
};
