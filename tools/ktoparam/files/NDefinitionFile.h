#pragma once

#include <QStringList>

/// The definition file of value files for which nobody named one.
namespace NDefinitionFile {

/// The file beside a value file that has its base name and the suffix "xpdef", for the first of
/// them that has one; else what the environment variable KTOPARAM_DEF names, be it there or not.
/// Empty when there is neither.
QString find(const QStringList& valueFiles);

}  // namespace NDefinitionFile
