#pragma once

#include "CParamDefItem.h"

/// What somebody typed, as a value of a definition.
namespace ValueInput {

/// The value in the way in which its type is written: a number, or the name of a choice, radio
/// button or check box state. A text that is both is taken as the number. An empty result is fine,
/// else it says why the text cannot be the value: it is not of the type, or is not a choice.
QString valueOf(const CParamDefItem& definition, const QString& text, CParamVal& value);

/// The names that may stand for values: those of choices, radio buttons and check box states.
QStringList choiceNames(const CParamDefItem& definition);

/// A limit of a value and where it comes from.
struct SLimit {
  CParamVal value;
  QString name;  ///< of the parameter that limits; empty for the definition's own limit
};

/// Why the value, which has its type, is too small or too large; empty when it is not. Limits that
/// are no numbers do not count.
QString rangeProblem(const CParamVal& value, const QList<SLimit>& minima,
                     const QList<SLimit>& maxima);

/// Whether the type is a number at all.
bool isNumber(NParamDef::EParamType type);

}  // namespace ValueInput
