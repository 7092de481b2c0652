#pragma once

#include "CParamVal.h"
#include "NParamDef.h"
#include "ktoParameter_export.h"

#include <QSharedDataPointer>
#include <QStringList>

class CDefinitionKeys;
class CParamDefItemData;

/// The definition of one parameter: id, name, type, limits, choices, bits and when it is visible.
///
/// An implicitly shared value. The owner of a set of definitions can install a flag that is set by
/// every edit that changes a value; a copy of an item never has the flag of its original, and
/// an item that is assigned to loses its own. Only a definition that a parameter file handed out
/// keeps it, and sets it unless it is given a copy of itself.
/// Adders append, never sort, and ignore what is there already; in a long list they hardly cost
/// more than in a short one.
///
/// @snippet usage.cpp CParamDefItem
class KTOPARAMETER_EXPORT CParamDefItem {
 public:
  /// The type texts, each at the position of its NParamDef::EParamType.
  static const QStringList mcParamTypeStrings;

  static QString typeToString(NParamDef::EParamType type);  ///< "undef" for an unknown value
  static NParamDef::EParamType typeFromString(
      const QString& text);  ///< exact; unknown is undefined
  static NParamDef::EParamType type(const unsigned char&) { return NParamDef::PARAM_TYPE_U8; }
  static NParamDef::EParamType type(const unsigned short&) { return NParamDef::PARAM_TYPE_U16; }
  static NParamDef::EParamType type(const unsigned int&) { return NParamDef::PARAM_TYPE_U32; }
  static NParamDef::EParamType type(const unsigned long long&) { return NParamDef::PARAM_TYPE_U64; }
  static NParamDef::EParamType type(const signed char&) { return NParamDef::PARAM_TYPE_I8; }
  static NParamDef::EParamType type(const short&) { return NParamDef::PARAM_TYPE_I16; }
  static NParamDef::EParamType type(const int&) { return NParamDef::PARAM_TYPE_I32; }
  static NParamDef::EParamType type(const long long&) { return NParamDef::PARAM_TYPE_I64; }
  static NParamDef::EParamType type(const double&) { return NParamDef::PARAM_TYPE_F64; }
  /// The tool chain's code of a basic type: 1, 3, 5, 8 for unsigned of 8 to 64 bits, 2, 4, 6, 9 for
  /// signed, 10 for floating point, 0 for everything else.
  static int baseType(NParamDef::EParamType type);

  CParamDefItem();  ///< without an id, so not valid
  CParamDefItem(const QString& name, NParamDef::EParamType type, unsigned int id);
  CParamDefItem(const CParamDefItem& other);
  CParamDefItem& operator=(const CParamDefItem& other);
  ~CParamDefItem();

  /// Installs a flag that is set to true by every effective edit; not owned, null removes it.
  void setChangedFlag(bool* flag);
  /// Sets the flag when there is one.
  void setChanged();

  unsigned int id() const;  ///< 0xFFFFFFFF when not set
  bool valid() const;       ///< the id is not 0xFFFFFFFF; 0 counts as one here
  QString name() const;
  NParamDef::EParamType type() const;
  QString typeStr() const;
  unsigned int unitId() const;  ///< 0 for none
  QString hint() const;
  CParamVal defVal() const;
  CParamVal minVal() const;
  CParamVal maxVal() const;
  QList<unsigned int> minIds() const;  ///< parameters whose values are further minima
  QList<unsigned int> maxIds() const;  ///< parameters whose values are further maxima
  bool hasEnums() const;
  bool isEnumEditable() const;  ///< values other than the choices are accepted too
  QList<NParamDef::SNamedI64Value> enums() const;
  bool hasRadios() const;
  QList<NParamDef::SNamedI64Value> radios() const;
  NParamDef::SCheckValues checkVals() const;
  bool hasBitset() const;
  QList<NParamDef::SBitValue> bitset() const;
  bool hasVisibleValues() const;      ///< a controlling parameter and at least one value
  unsigned int visibleId() const;     ///< the controlling parameter; 0xFFFFFFFF for none
  QList<qint64> visibleVals() const;  ///< its values for which this parameter is visible

  void setId(unsigned int id);
  void setName(const QString& name);
  void setType(NParamDef::EParamType type);
  void setType(const QString& text);  ///< an unknown text sets PARAM_TYPE_UNDEF
  void setUnitId(unsigned int id);
  void setHint(const QString& hint);
  void setDefVal(const CParamVal& value);
  void setMinVal(const CParamVal& value);
  void setMaxVal(const CParamVal& value);
  void setMinIds(const QList<unsigned int>& ids);
  void setMaxIds(const QList<unsigned int>& ids);
  void setEnumEditable(bool editable);
  void setCheckVals(const NParamDef::SCheckValues& values);
  void setVisibleId(unsigned int id);

  void addMinId(unsigned int id);
  void addMaxId(unsigned int id);
  /// Choices are the same when number and name are.
  void addEnum(const NParamDef::SNamedI64Value& choice);
  void addEnum(qint64 value, const QString& name);
  void addEnums(const QList<NParamDef::SNamedI64Value>& choices);
  void addRadio(const NParamDef::SNamedI64Value& choice);
  void addRadio(qint64 value, const QString& name);
  void addRadios(const QList<NParamDef::SNamedI64Value>& choices);
  /// Bits are the same when all fields are; one outside the positions 0 to 63 is ignored.
  void addBit(const NParamDef::SBitValue& bit);
  void addBit(int pos, const QString& name, bool invert);
  void addBits(const QList<NParamDef::SBitValue>& bits);
  void addVisibleValue(qint64 value);
  void addVisibleValues(const QList<qint64>& values);

  /// Reads "id#value#value…", the id in decimal or with "0x", the values in decimal only; sets the
  /// controlling id and adds the values to those that are there. False when it does not succeed:
  /// without an id or a value nothing changes; at the first value that is not a number it stops,
  /// and what comes before it is kept.
  bool setVisible(const QString& text);

  /// The first name that is not empty, in list order; null when there is none.
  QString enumNameOfValue(qint64 value) const;
  QString radioNameOfValue(qint64 value) const;
  /// The first value of that name, in list order; the smallest 64-bit number when there is none.
  qint64 enumValueOfName(const QString& name) const;
  qint64 enumValueOfName(const QString& name, bool& ok) const;
  qint64 radioValueOfName(const QString& name) const;
  qint64 radioValueOfName(const QString& name, bool& ok) const;

 private:
  friend class CDefinitionKeys;

  template <typename F, typename V>
  void setField(F CParamDefItemData::*field, const V& value);
  template <typename L, typename V>
  void addTo(L CParamDefItemData::*list, const V& value);

  QSharedDataPointer<CParamDefItemData> d;
  bool* mChanged = nullptr;
  CDefinitionKeys* mKeys = nullptr;  ///< what finds it by name and id, when it is one of a set
};

Q_DECLARE_TYPEINFO(CParamDefItem, Q_MOVABLE_TYPE);
