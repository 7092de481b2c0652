#pragma once

#include "CParamDefItem.h"
#include "CParamVal.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class ICParameterFile;

/// What a value means under its definition, as people read and type it. Numbers look the same in
/// every language; the names of the states of a check box are translated.
class KTOPARAMETER_EXPORT CParamValueText {
  Q_DECLARE_TR_FUNCTIONS(CParamValueText)

 public:
  /// The name of a parameter's unit, empty when it has none. The unit is the id of another
  /// parameter, whose value chooses among the names: the value in this sub-device, else in the
  /// first that has one, else its default.
  static QString unitName(const ICParameterFile& file, const CParamDefItem& definition,
                          quint8 subDevId);

  /// The names to choose from: those of an enumeration, of radio buttons, or of the states of a
  /// check box. Empty for a definition that has none of these.
  static QStringList choices(const CParamDefItem& definition);
  /// The name among them for a value; empty when there is none.
  static QString choiceName(const CParamDefItem& definition, const CParamVal& value);
  /// The named bits that are active in a value; one that is inverted is active while clear.
  static QStringList activeBits(const CParamDefItem& definition, const CParamVal& value);

  /// The choice or, behind each other, the active bits; else an integer in decimal, and any other
  /// value as its text. Bits without a name stand at the end in hexadecimal.
  static QString shown(const CParamDefItem& definition, const CParamVal& value);
  /// As shown(), but with bits as a number: a text from which read() makes the value again.
  static QString editable(const CParamDefItem& definition, const CParamVal& value);

  /// Makes a value of a name or a number, written as the tool chain writes its type; a text that is
  /// both is taken as the name. False, and no change, when it is neither. Limits and choices are
  /// not looked at.
  static bool read(const CParamDefItem& definition, const QString& text, CParamVal& value);
};
