#pragma once

#include "ktoParameter_export.h"

#include <QString>

/// What the beginning of a file tells about it; what follows may be damaged.
///
/// @snippet usage.cpp CParameterFileHelper
struct KTOPARAMETER_EXPORT SFileBeginning {
  bool isRead = false;  ///< the file could be read, whatever it holds
  QString rootTag;      ///< empty when the file is damaged up to the end of that tag
  QString version;      ///< of the root, as written in the file; empty when there is none
  QString comment;      ///< of the Head; empty when there is none or the file is damaged before
  /// Why there is no root tag, in the words of a load without the file's name: a reason, which
  /// "Line N: " precedes when it has a line.
  QString error;
};
