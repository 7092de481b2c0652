#pragma once

#include "CAllowedNumbers.h"
#include "SDefinitionChange.h"

#include <optional>

/// How the choices of a definition changed.
namespace NChoiceChange {

/// Nothing when the list is the same, and as closed to other numbers as it was.
std::optional<SDefinitionChange> of(const CAllowedNumbers& oldOne, const CAllowedNumbers& newOne,
                                    CAllowedNumbers::EList list);

}  // namespace NChoiceChange
