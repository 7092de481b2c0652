#pragma once

#include "CParamDefItem.h"

/// What a value means under its definition, beside the value itself.
namespace ValueTexts {

/// Choice, active bits or the number in decimal, in one text for people; empty when the value says
/// it all.
QString meaning(const CParamDefItem& definition, const CParamVal& value);

/// "Notch → Low pass"; empty when the meaning does not tell them apart.
QString change(const CParamDefItem& definition, const CParamVal& oldValue,
               const CParamVal& newValue);

}  // namespace ValueTexts
