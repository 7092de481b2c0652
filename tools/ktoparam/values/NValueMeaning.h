#pragma once

#include "CParamDefItem.h"

class CLabels;

/// What a value means under its definition.
namespace NValueMeaning {

/// The choice, the active bits and other set ones, or the number in decimal, in one text for
/// people, shortened when long; empty when the value says it all.
QString meaning(const CParamDefItem& definition, const CParamVal& value, const CLabels& labels);

/// "Notch → Low pass"; empty when the meaning does not tell them apart.
QString change(const CParamDefItem& definition, const CParamVal& oldValue,
               const CParamVal& newValue, const CLabels& labels);

}  // namespace NValueMeaning
