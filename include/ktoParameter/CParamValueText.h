#pragma once

#include "CParamDefItem.h"
#include "CParamVal.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

class ICParameterFile;

/// How a value is shown to people. Numbers look the same in every language. CParamValueRules reads
/// what is typed, and judges it.
///
/// @snippet usage.cpp CParamValueText
class KTOPARAMETER_EXPORT CParamValueText {
  Q_DECLARE_TR_FUNCTIONS(CParamValueText)

 public:
  /// The language in which the states of a check box are named; other names are in the file.
  enum ELanguage : int { Translated, English };

  /// The name of a parameter's unit, empty when it has none. The unit is the id of another
  /// parameter, whose value chooses among the names: the value in this sub-device, else in the
  /// first that has one, else its default.
  static QString unitName(const ICParameterFile& file, const CParamDefItem& definition,
                          quint8 subDevId);

  /// What to choose from: an enumeration, radio buttons and the states of a check box. Empty for a
  /// definition that has none of these.
  static QList<NParamDef::SNamedI64Value> choices(const CParamDefItem& definition,
                                                  ELanguage language = Translated);
  /// The states of a check box alone: "checked", "unchecked" and, where there is it, "undefined".
  static QList<NParamDef::SNamedI64Value> states(const CParamDefItem& definition,
                                                 ELanguage language = Translated);
  /// The name of the first choice that is a value; empty when there is none.
  static QString choiceName(const CParamDefItem& definition, const CParamVal& value,
                            ELanguage language = Translated);
  /// The value of the first choice that has a name, of a state in either language; nothing when
  /// there is none.
  static std::optional<qint64> choiceValue(const CParamDefItem& definition, const QString& name);
  /// The named bits that are active in a value; one that is inverted is active while clear. Nothing
  /// for a definition without named bits and for a value that is not of its type.
  static std::optional<QStringList> activeBits(const CParamDefItem& definition,
                                               const CParamVal& value);
  /// The positions of the bits that are set and have no name, ascending. Nothing where activeBits()
  /// gives nothing.
  static std::optional<QList<int>> otherBits(const CParamDefItem& definition,
                                             const CParamVal& value);
  /// Both, such as "DI4" and "bit 7": texts of which CParamValueRules::read() makes the value again
  /// when they are joined by " | ". Empty when it would not, as for bits of one name, and when
  /// there are none.
  static QStringList bits(const CParamDefItem& definition, const CParamVal& value);
  /// The bits of the type that have no name; 0 for a definition without named bits.
  static quint64 unnamedBits(const CParamDefItem& definition);

  /// The choice, or bits() joined by " | "; else an integer in decimal, and any other value as its
  /// text. CParamValueRules::read() makes the value of it again, unless it is also the name of a
  /// choice before that one, or a number that is the name of a bit.
  static QString shown(const CParamDefItem& definition, const CParamVal& value);
  /// As shown(), but with bits as the number that the file has.
  static QString editable(const CParamDefItem& definition, const CParamVal& value);
};
