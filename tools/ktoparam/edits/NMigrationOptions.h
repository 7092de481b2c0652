#pragma once

#include <QLatin1String>

/// The options that name releases and tables.
namespace NMigrationOptions {

inline const QLatin1String kTable("table");
inline const QLatin1String kOld("old");
inline const QLatin1String kNew("new");
inline const QLatin1String kReverse("reverse");
inline const QLatin1String kAnswer("answer");

}  // namespace NMigrationOptions
