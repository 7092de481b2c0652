#include "CParamDefItem.h"

#include "CChoiceList.h"
#include "CDefinitionKeys.h"
#include "CStr.h"
#include "CUniqueList.h"

#include <QSharedData>

#include <set>
#include <tuple>
#include <utility>

using NParamDef::EParamType;
using NParamDef::SBitValue;
using NParamDef::SCheckValues;
using NParamDef::SNamedI64Value;

namespace {

struct SBitLess {
  bool operator()(const SBitValue& a, const SBitValue& b) const {
    return std::tie(a.pos, a.name, a.invert) < std::tie(b.pos, b.name, b.invert);
  }
};

}  // namespace

class CParamDefItemData : public QSharedData {
 public:
  virtual ~CParamDefItemData() = default;

  unsigned int id = NParamDef::NO_ID;
  QString name;
  EParamType type = NParamDef::PARAM_TYPE_UNDEF;
  unsigned int unitId = 0;
  QString hint;
  CParamVal minVal;
  CParamVal maxVal;
  CParamVal defVal;
  CUniqueList<unsigned int> minIds;
  CUniqueList<unsigned int> maxIds;
  bool enumEditable = false;
  CChoiceList enums;
  CChoiceList radios;
  SCheckValues checkVals;
  CUniqueList<SBitValue, std::set<SBitValue, SBitLess>> bitset;
  unsigned int visibleId = NParamDef::NO_ID;
  CUniqueList<qint64> visibleVals;
};

namespace {

constexpr int kDecimalBase = 10;

}  // namespace

const QStringList CParamDefItem::mcParamTypeStrings = {
    QStringLiteral("undef"), QStringLiteral("u8"),  QStringLiteral("u16"), QStringLiteral("u32"),
    QStringLiteral("u64"),   QStringLiteral("i8"),  QStringLiteral("i16"), QStringLiteral("i32"),
    QStringLiteral("i64"),   QStringLiteral("f64"), QStringLiteral("str")};

QString CParamDefItem::typeToString(EParamType type) {
  return mcParamTypeStrings.value(type, mcParamTypeStrings.first());
}

EParamType CParamDefItem::typeFromString(const QString& text) {
  return static_cast<EParamType>(qMax(0, mcParamTypeStrings.indexOf(text)));
}

int CParamDefItem::baseType(EParamType type) {
  static constexpr int kCodes[] = {0, 1, 3, 5, 8, 2, 4, 6, 9, 10};
  const bool known = type >= NParamDef::PARAM_TYPE_U8 && type <= NParamDef::PARAM_TYPE_F64;
  return known ? kCodes[type] : 0;
}

CParamDefItem::CParamDefItem() : d(new CParamDefItemData) {}

CParamDefItem::CParamDefItem(const QString& name, EParamType type, unsigned int id)
    : CParamDefItem() {
  setId(id);
  setName(name);
  setType(type);
}

CParamDefItem::CParamDefItem(const CParamDefItem& other) : d(other.d) {}

// An item that is assigned to itself loses its flag like any other.
CParamDefItem& CParamDefItem::operator=(  // NOLINT(bugprone-unhandled-self-assignment)
    const CParamDefItem& other) {
  if (!mKeys) {
    d = other.d;
    mChanged = nullptr;
  } else if (d != other.d) {
    const QSharedDataPointer<CParamDefItemData> old = std::exchange(d, other.d);
    mKeys->nameChanged(this, old->name);
    mKeys->idChanged(this, old->id);
    setChanged();
  }
  return *this;
}

CParamDefItem::~CParamDefItem() = default;

void CParamDefItem::setChangedFlag(bool* flag) {
  mChanged = flag;
}

void CParamDefItem::setChanged() {
  if (mChanged) *mChanged = true;
}

// Both compare before they write, so that an edit without effect does not copy shared data.
template <typename F, typename V>
void CParamDefItem::setField(F CParamDefItemData::*field, const V& value) {
  if (d.constData()->*field == value) return;
  d.data()->*field = value;
  setChanged();
}

template <typename L, typename V>
void CParamDefItem::addTo(L CParamDefItemData::*list, const V& value) {
  if ((d.constData()->*list).contains(value)) return;
  (d.data()->*list).add(value);
  setChanged();
}

unsigned int CParamDefItem::id() const {
  return d->id;
}

bool CParamDefItem::valid() const {
  return d->id != NParamDef::NO_ID;
}

QString CParamDefItem::name() const {
  return d->name;
}

EParamType CParamDefItem::type() const {
  return d->type;
}

QString CParamDefItem::typeStr() const {
  return typeToString(d->type);
}

unsigned int CParamDefItem::unitId() const {
  return d->unitId;
}

QString CParamDefItem::hint() const {
  return d->hint;
}

CParamVal CParamDefItem::defVal() const {
  return d->defVal;
}

CParamVal CParamDefItem::minVal() const {
  return d->minVal;
}

CParamVal CParamDefItem::maxVal() const {
  return d->maxVal;
}

QList<unsigned int> CParamDefItem::minIds() const {
  return d->minIds.list();
}

QList<unsigned int> CParamDefItem::maxIds() const {
  return d->maxIds.list();
}

bool CParamDefItem::hasEnums() const {
  return !d->enums.isEmpty();
}

bool CParamDefItem::isEnumEditable() const {
  return d->enumEditable;
}

QList<SNamedI64Value> CParamDefItem::enums() const {
  return d->enums.list();
}

bool CParamDefItem::hasRadios() const {
  return !d->radios.isEmpty();
}

QList<SNamedI64Value> CParamDefItem::radios() const {
  return d->radios.list();
}

SCheckValues CParamDefItem::checkVals() const {
  return d->checkVals;
}

bool CParamDefItem::hasBitset() const {
  return !d->bitset.isEmpty();
}

QList<SBitValue> CParamDefItem::bitset() const {
  return d->bitset.list();
}

unsigned int CParamDefItem::visibleId() const {
  return d->visibleId;
}

QList<qint64> CParamDefItem::visibleVals() const {
  return d->visibleVals.list();
}

bool CParamDefItem::hasVisibleValues() const {
  return d->visibleId != NParamDef::NO_ID && !d->visibleVals.isEmpty();
}

void CParamDefItem::setId(unsigned int id) {
  const unsigned int oldId = this->id();
  setField(&CParamDefItemData::id, id);
  if (mKeys && id != oldId) mKeys->idChanged(this, oldId);
}

void CParamDefItem::setName(const QString& name) {
  const QString oldName = this->name();
  setField(&CParamDefItemData::name, name);
  if (mKeys && name != oldName) mKeys->nameChanged(this, oldName);
}

void CParamDefItem::setType(EParamType type) {
  setField(&CParamDefItemData::type, type);
}

void CParamDefItem::setType(const QString& text) {
  setType(typeFromString(text));
}

void CParamDefItem::setUnitId(unsigned int id) {
  setField(&CParamDefItemData::unitId, id);
}

void CParamDefItem::setHint(const QString& hint) {
  setField(&CParamDefItemData::hint, hint);
}

void CParamDefItem::setDefVal(const CParamVal& value) {
  setField(&CParamDefItemData::defVal, value);
}

void CParamDefItem::setMinVal(const CParamVal& value) {
  setField(&CParamDefItemData::minVal, value);
}

void CParamDefItem::setMaxVal(const CParamVal& value) {
  setField(&CParamDefItemData::maxVal, value);
}

void CParamDefItem::setMinIds(const QList<unsigned int>& ids) {
  setField(&CParamDefItemData::minIds, CUniqueList<unsigned int>(ids));
}

void CParamDefItem::setMaxIds(const QList<unsigned int>& ids) {
  setField(&CParamDefItemData::maxIds, CUniqueList<unsigned int>(ids));
}

void CParamDefItem::setEnumEditable(bool editable) {
  setField(&CParamDefItemData::enumEditable, editable);
}

void CParamDefItem::setCheckVals(const SCheckValues& values) {
  setField(&CParamDefItemData::checkVals, values);
}

void CParamDefItem::setVisibleId(unsigned int id) {
  setField(&CParamDefItemData::visibleId, id);
}

void CParamDefItem::addMinId(unsigned int id) {
  addTo(&CParamDefItemData::minIds, id);
}

void CParamDefItem::addMaxId(unsigned int id) {
  addTo(&CParamDefItemData::maxIds, id);
}

void CParamDefItem::addEnum(const SNamedI64Value& choice) {
  addTo(&CParamDefItemData::enums, choice);
}

void CParamDefItem::addEnum(qint64 value, const QString& name) {
  addEnum(SNamedI64Value(value, name));
}

void CParamDefItem::addEnums(const QList<SNamedI64Value>& choices) {
  for (const SNamedI64Value& choice : choices) addEnum(choice);
}

void CParamDefItem::addRadio(const SNamedI64Value& choice) {
  addTo(&CParamDefItemData::radios, choice);
}

void CParamDefItem::addRadio(qint64 value, const QString& name) {
  addRadio(SNamedI64Value(value, name));
}

void CParamDefItem::addRadios(const QList<SNamedI64Value>& choices) {
  for (const SNamedI64Value& choice : choices) addRadio(choice);
}

void CParamDefItem::addBit(const SBitValue& bit) {
  if (bit.isValid()) addTo(&CParamDefItemData::bitset, bit);
}

void CParamDefItem::addBit(int pos, const QString& name, bool invert) {
  addBit(SBitValue(pos, name, invert));
}

void CParamDefItem::addBits(const QList<SBitValue>& bits) {
  for (const SBitValue& bit : bits) addBit(bit);
}

void CParamDefItem::addVisibleValue(qint64 value) {
  addTo(&CParamDefItemData::visibleVals, value);
}

void CParamDefItem::addVisibleValues(const QList<qint64>& values) {
  for (const qint64 value : values) addVisibleValue(value);
}

bool CParamDefItem::setVisible(const QString& text) {
  const QStringList pieces = text.split(QLatin1Char('#'), Qt::SkipEmptyParts);
  unsigned int parameterId = 0;
  if (pieces.size() < 2 || !CStr::strToU32(pieces.first(), parameterId, 0)) return false;
  setVisibleId(parameterId);
  for (int i = 1; i < pieces.size(); ++i) {
    qint64 value = 0;
    if (!CStr::strToI64(pieces.at(i), value, kDecimalBase)) return false;
    addVisibleValue(value);
  }
  return true;
}

QString CParamDefItem::enumNameOfValue(qint64 value) const {
  return d->enums.nameOfValue(value);
}

QString CParamDefItem::radioNameOfValue(qint64 value) const {
  return d->radios.nameOfValue(value);
}

qint64 CParamDefItem::enumValueOfName(const QString& name) const {
  bool ok = false;
  return enumValueOfName(name, ok);
}

qint64 CParamDefItem::enumValueOfName(const QString& name, bool& ok) const {
  return d->enums.valueOfName(name, ok);
}

qint64 CParamDefItem::radioValueOfName(const QString& name) const {
  bool ok = false;
  return radioValueOfName(name, ok);
}

qint64 CParamDefItem::radioValueOfName(const QString& name, bool& ok) const {
  return d->radios.valueOfName(name, ok);
}
