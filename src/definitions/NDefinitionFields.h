#pragma once

#include "CParamDefItem.h"
#include "SMergeConflict.h"

/// Definitions field by field, their names aside.
namespace NDefinitionFields {

bool areEqual(const CParamDefItem& a, const CParamDefItem& b);

/// What both sides made of a definition; without a base (a null pointer) both added it.
CParamDefItem merged(const CParamDefItem* base, const CParamDefItem& ours,
                     const CParamDefItem& theirs, CMergeConflicts& conflicts);

}  // namespace NDefinitionFields
