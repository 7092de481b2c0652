#pragma once

#include <QLatin1String>
#include <QList>
#include <QMap>
#include <QString>
#include <QVector>

/// The enumerations, small records and constants that definitions, values and files share.
namespace NParamDef {

/// The type of a parameter's value. The type texts in files are
/// "undef", "u8", "u16", "u32", "u64", "i8", "i16", "i32", "i64", "f64" and "str", in this order.
enum EParamType : int {
  PARAM_TYPE_UNDEF = 0,
  PARAM_TYPE_U8 = 1,
  PARAM_TYPE_U16 = 2,
  PARAM_TYPE_U32 = 3,
  PARAM_TYPE_U64 = 4,
  PARAM_TYPE_I8 = 5,
  PARAM_TYPE_I16 = 6,
  PARAM_TYPE_I32 = 7,
  PARAM_TYPE_I64 = 8,
  PARAM_TYPE_F64 = 9,
  PARAM_TYPE_STR = 10
};

/// The kind of a sub-device. The texts in files are "Undefined", "Device", "PowerSupply", "Drive".
enum ESubDeviceTypes : int {
  SUB_DEV_TYPE_UNDEFINED = 0,
  SUB_DEV_TYPE_DEVICE = 1,
  SUB_DEV_TYPE_POWER_SUPPLY = 2,
  SUB_DEV_TYPE_DRIVE = 3
};

/// What a reader may do with its files.
enum EAccessRight : int {
  ReadOnly = 0,   ///< nothing is changed
  ReadWrite = 1,  ///< existing values, sub-device types and names may be changed
  FullAccess = 2  ///< what is missing is created; groups and parameters may be deleted
};

/// What an import does with a parameter that its source lacks.
enum EImportMissing : int {
  ImportDefault = 0,  ///< it gets its definition's default
  ImportKeep = 1      ///< it keeps its value
};

/// What an import did, in numbers of parameters.
struct SImportResult {
  int taken = 0;      ///< got the source's value, which differed
  int equal = 0;      ///< had the source's text already, or for an unsigned type its number
  int defaulted = 0;  ///< missing in the source, got the default
  int kept = 0;       ///< missing in the source, kept their value
  int added = 0;      ///< defined here, held only by the source until now
  int unknown = 0;    ///< held by the source, not defined here and skipped
};

/// What an import did to one parameter.
struct SImportedParam {
  /// As SImportResult counts.
  enum EWhat : int { Taken, Equal, Defaulted, Kept, Added, Unknown };

  EWhat what = Taken;
  quint8 subDevId = 0;
  QString name;
};
using CImportedParams = QVector<SImportedParam>;

/// A name for a number: one choice of an enumeration or of a group of radio buttons.
/// Equality looks at number and name, order at the number only.
struct SNamedI64Value {
  qint64 value = 0;
  QString name = QStringLiteral("<invalid>");

  SNamedI64Value() = default;
  SNamedI64Value(qint64 number, const QString& text) : value(number), name(text) {}

  bool operator==(const SNamedI64Value& other) const {
    return value == other.value && name == other.name;
  }
  bool operator!=(const SNamedI64Value& other) const { return !(*this == other); }
  bool operator<(const SNamedI64Value& other) const { return value < other.value; }
  bool operator>(const SNamedI64Value& other) const { return value > other.value; }
  bool operator<(qint64 number) const { return value < number; }
  bool operator>(qint64 number) const { return value > number; }
};

/// A list of choices that can be made from a map of number to name, in ascending order.
class CNamedI64ValueList : public QList<SNamedI64Value> {
 public:
  CNamedI64ValueList() = default;
  CNamedI64ValueList(const QMap<qint64, QString>& names) { copyFromTEnum(names); }
  CNamedI64ValueList& operator=(const QMap<qint64, QString>& names) {
    copyFromTEnum(names);
    return *this;
  }

  /// Replaces the whole content.
  void copyFromTEnum(const QMap<qint64, QString>& names) {
    clear();
    reserve(names.size());
    for (auto it = names.cbegin(); it != names.cend(); ++it)
      append(SNamedI64Value(it.key(), it.value()));
  }
};

/// The values of the states of a check box. `undefined` counts only when `hasUndefined` is set.
struct SCheckValues {
  qint64 checked = 0;
  qint64 unchecked = 0;
  bool hasUndefined = false;
  qint64 undefined = 0;

  /// True when the states in use have different values.
  bool isValid() const {
    return checked != unchecked &&
           (!hasUndefined || (undefined != checked && undefined != unchecked));
  }
  bool operator==(const SCheckValues& other) const {
    return checked == other.checked && unchecked == other.unchecked &&
           hasUndefined == other.hasUndefined && (!hasUndefined || undefined == other.undefined);
  }
  bool operator!=(const SCheckValues& other) const { return !(*this == other); }
};

/// A name for one bit of a value. An inverted bit is active when it is clear.
struct SBitValue {
  static constexpr qint32 mMaxPos = 63;  ///< the highest position; the lowest is 0

  qint32 pos = -1;
  QString name = QStringLiteral("<invalid>");
  bool invert = false;

  SBitValue() = default;
  SBitValue(qint32 position, const QString& text, bool inverted)
      : pos(position), name(text), invert(inverted) {}

  /// True when the position is one of a 64-bit number.
  bool isValid() const { return pos >= 0 && pos <= mMaxPos; }
  bool operator==(const SBitValue& other) const {
    return pos == other.pos && name == other.name && invert == other.invert;
  }
  bool operator!=(const SBitValue& other) const { return !(*this == other); }
};

/// The id of a definition that has none, and of every group. A parameter without an id has 0.
inline constexpr quint32 NO_ID = 0xFFFFFFFF;

/// Whether an id is one of a definition: 0 means none, too, so several definitions may have 0
/// or NO_ID, and neither finds any.
inline constexpr bool isRealId(quint32 id) {
  return id != 0 && id != NO_ID;
}

/// The parameter whose choices name the units of all others.
inline const QLatin1String UNIT_PARAMETER_NAME("AllUnits");

// Keys of the properties of tree nodes.
inline const QLatin1String PROPERTY_WARNING("warning");
inline const QLatin1String PROPERTY_WARNING_MESSAGE("warning_message");
inline const QLatin1String PROPERTY_ERROR("error");
inline const QLatin1String PROPERTY_ERROR_MESSAGE("error_message");
inline const QLatin1String PROPERTY_CHANGED("changed");

}  // namespace NParamDef

Q_DECLARE_TYPEINFO(NParamDef::SNamedI64Value, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(NParamDef::SBitValue, Q_MOVABLE_TYPE);
