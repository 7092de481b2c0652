#pragma once

#include "CParamDefItem.h"
#include "SDefinitionChange.h"

#include <optional>

/// How the named bits of a definition changed.
namespace NBitChange {

/// Nothing when they are the same, in whatever order.
std::optional<SDefinitionChange> of(const CParamDefItem& oldOne, const CParamDefItem& newOne);

}  // namespace NBitChange
