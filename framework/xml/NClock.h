#pragma once

#include "ktoFramework_export.h"

#include <QDate>

/// Today's date, as every file's "Head" takes it. Tests set a fixed one; null gives the clock back.
namespace NClock {

using DateFunction = QDate (*)();

KTOFRAMEWORK_EXPORT QDate today();
KTOFRAMEWORK_EXPORT void setToday(DateFunction function);

}  // namespace NClock
