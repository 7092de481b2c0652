#pragma once

#include "CParamDefItem.h"

/// Whether a definition counts in other units than it did, as its limits tell.
namespace NRescalingGuess {

/// The one factor between the old limits and the new ones, or between the defaults where there are
/// no limits: "1/60", "10". Null when there is none, or it is 1.
QString factor(const CParamDefItem& oldOne, const CParamDefItem& newOne);
/// Whether it is 10, 100, 1/10 and so on.
bool isPowerOfTen(const QString& factor);

}  // namespace NRescalingGuess
