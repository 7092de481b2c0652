#pragma once

#include "CParamDefItem.h"
#include "ICParameterFile.h"

#include <QStringList>

#include <optional>

class CLabels;

/// What a value means under its definition.
namespace ValueTexts {

// The names of a check box's states, as shown and as accepted from the command line.
inline const QLatin1String kChecked("checked");
inline const QLatin1String kUnchecked("unchecked");
inline const QLatin1String kUndefined("undefined");

/// The name of the unit: the definition's unit is the id of another parameter, whose value chooses
/// among the names. That value is looked for in the same sub-device first, then in the others; its
/// default counts when there is none. Empty for a parameter without a unit.
QString unitName(const ICParameterFile& file, const CParamDefItem& definition, quint8 subDevId);

/// The name of the choice, radio button or state of a check box; empty when there is none.
QString choiceName(const CParamDefItem& definition, const CParamVal& value);

/// The named bits that are active in the value; nothing for a definition without bits.
std::optional<QStringList> activeBits(const CParamDefItem& definition, const CParamVal& value);

/// Choice, active bits or the number in decimal, in one text for people, shortened when long; empty
/// when the value says it all.
QString meaning(const CParamDefItem& definition, const CParamVal& value, const CLabels& labels);

/// "Notch → Low pass"; empty when the meaning does not tell them apart.
QString change(const CParamDefItem& definition, const CParamVal& oldValue,
               const CParamVal& newValue, const CLabels& labels);

}  // namespace ValueTexts
