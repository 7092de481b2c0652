#pragma once

#include "CParamDefItem.h"
#include "CParamVal.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QSharedDataPointer>
#include <QVector>

#include <functional>
#include <string_view>

class CParamValueRulesData;
class ICParameterFile;

/// The one judge of values: the constraints that a definition puts on values, how a typed text
/// becomes one, and when two are equal. CParamValueText shows values.
///
/// An implicitly shared value, to be made once for a definition: judging a value then takes the
/// same time however many choices there are. Later changes of the definition, and of the
/// definitions of limit parameters, have no effect on it; the values of limit parameters are asked
/// for each time.
///
/// @snippet usage.cpp CParamValueRules
class KTOPARAMETER_EXPORT CParamValueRules {
  Q_DECLARE_TR_FUNCTIONS(CParamValueRules)

 public:
  /// In the order of the codes of SParamFinding.
  enum EKind : int {
    NotOfType,
    NotComparable,  ///< "nan" where there are limits
    BelowMinimum,
    AboveMaximum,
    BelowLimitParameter,
    AboveLimitParameter,
    NotAChoice,
    UnnamedBits
  };
  struct SViolation {
    EKind kind;
    QString text;  ///< a translated sentence

    /// The value may be stored all the same; every other kind is an error.
    bool isWarning() const { return kind == UnnamedBits; }
  };
  /// The definition of a limit parameter; one without a name for an unknown id.
  using CDefinitionById = std::function<CParamDefItem(quint32 id)>;
  /// The value of a limit parameter; null when there is none.
  using CValueByName = std::function<CParamVal(const QString& name)>;

  CParamValueRules(const CParamDefItem& definition, const CDefinitionById& definitionById);
  /// With the file's definitions; the file is not kept.
  CParamValueRules(const CParamDefItem& definition, const ICParameterFile& file);
  CParamValueRules(const CParamValueRules& other);
  CParamValueRules& operator=(const CParamValueRules& other);
  ~CParamValueRules();

  /// Makes a value of a typed text, written as its type is: an unsigned number with "0x" and in
  /// hexadecimal, a signed one in decimal, a floating point number with the digits that were typed.
  /// The name of a choice, a radio button or a state of a check box goes before a number; the
  /// states have their English names in every language, too. Names of bits, joined by "|", go
  /// before a number as well: these bits are active then and the other named ones are not. "bit 7"
  /// among them is a bit that is set. Blanks around a name of a bit do not count; of bits with one
  /// name the first is meant. False, with the reason as a translated sentence and the value
  /// untouched, when the text is none of these. Whether the value is allowed is not looked at.
  bool read(const QString& text, CParamVal& value, QString& problem) const;

  /// All that is wrong with a value; empty for an allowed one. Texts, and values of an undefined
  /// type, are always allowed. A number has to
  /// - be a number of its type,
  /// - lie within the limits, the definition's own and the values of the limit parameters, unless
  ///   it has a name; a limit that is not a number of its own parameter's type, or "nan", does not
  ///   count,
  /// - be one of the choices of an enumeration that is not editable, one of the radio buttons and a
  ///   state of the check box, where the definition has these,
  /// - set named bits only, where the definition names bits; that is a warning.
  QVector<SViolation> violations(const CParamVal& value, const CValueByName& valueByName) const;
  /// The same of a value in UTF-8, which spares a copy of each where many are judged.
  QVector<SViolation> violationsOfUtf8(std::string_view value,
                                       const CValueByName& valueByName) const;
  /// With the file's values of this sub-device.
  QVector<SViolation> violations(const CParamVal& value, const ICParameterFile& file,
                                 quint8 subDevId) const;

  /// Whether numbers that are not choices are allowed.
  bool allowsOtherValues() const;

  /// Whether the values are the same: as numbers when both are numbers of the definition's type,
  /// else as texts. "nan" equals the same text only.
  static bool areEqual(const CParamVal& a, const CParamVal& b, const CParamDefItem& definition);
  /// Whether a value needs no replacement by a new one: they are equal and nothing that is written
  /// would become less exact, so that unsigned numbers may be written in another way, and every
  /// other value has the same text.
  static bool mayStay(const CParamVal& value, const CParamVal& newValue,
                      const CParamDefItem& definition);

 private:
  QSharedDataPointer<CParamValueRulesData> d;
};
