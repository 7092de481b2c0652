// Reading of definition files.

#include "CParamDefFile.h"
#include "CParamNodeData.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

namespace {

template <typename T>
QList<T> numbersOf(const QString& text, bool (*read)(const QString&, T&, int)) {
  QList<T> numbers;
  for (const QString& piece : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    T number = 0;
    if (read(piece, number, 10)) numbers.append(number);
  }
  return numbers;
}

}  // namespace

bool CParamDefFile::open(const QString& fileName, const QString& version) {
  mDefinitions.clear();
  mNameById.clear();
  if (!openChecked(fileName, TAG_ROOT_PARAM_DEFINITION, version)) {
    mErrorMsg = tr("File \"%1\" parse error: ").arg(fileName) + openError();
    setMessageBoardCritical(mErrorMsg);
    return false;
  }
  const bool read = readDefinitions();
  domDocument().clear();
  if (read) {
    logDetail(QCoreApplication::translate("CParamValueFile",
                                          "Parameter definition file \"%1\" loaded successfully.")
                  .arg(fileName));
  }
  return read;
}

bool CParamDefFile::readDefinitions() {
  const CDomElement data = existingDomElement(TAG_DATA, domDocument().documentElement());
  if (data.isNull())
    return failAt(domDocument().documentElement(), tr("There is no data section !"));
  const auto count = static_cast<size_t>(data.childElementCount());
  mDefinitions.reserve(count);
  mNameById.reserve(count);
  for (CDomElement param = data.firstChildElement(TAG_PARAM); !param.isNull();
       param = param.nextSiblingElement(TAG_PARAM)) {
    if (!readParamDefinitionFromDom(param)) {
      mErrorLine = param.lineNumber();
      return false;
    }
  }
  return true;
}

bool CParamDefFile::readParamDefinitionFromDom(const CDomElement& param) {
  quint32 id = 0;
  QString name;
  NParamDef::EParamType type = NParamDef::PARAM_TYPE_UNDEF;
  if (!readKey(param, id, name, type)) return false;
  CParamDefItem definition(name, type, id);
  if (!readPlainParts(param, definition) || !readChoices(param, definition) ||
      !readCheck(param, definition) || !readBits(param, definition)) {
    return false;
  }
  if (!limitsFit(definition)) return fail(limitsMessage(definition));
  if (!readVisibleValues(param, definition)) return false;
  if (mNameById.count(id) == 0 && enterDefinition(definition)) return true;
  return fail(tr("Threre is alredy a Parameter with name \"%1\".").arg(QString::number(id)));
}

bool CParamDefFile::readParamDefinitionFromDom(const QDomElement& param) {
  return readParamDefinitionFromDom(CDomDoc::fromDom(param).documentElement());
}

bool CParamDefFile::readKey(const CDomElement& param, quint32& id, QString& name,
                            NParamDef::EParamType& type) {
  if (CDomDoc::fail(CDomDoc::existingAttributeAsU32(ATTR_ID, param, id, mErrorMsg)) ||
      !existingParamSubElemetStr(param, TAG_NAME, id, name) ||
      !readParameterTypeFromDom(param, id, type)) {
    return false;
  }
  if (name == CParamNodeData::mStandardConstructedStr) return fail(reservedNameMessage(id, name));
  return true;
}

bool CParamDefFile::readPlainParts(const CDomElement& param, CParamDefItem& definition) {
  if (!readUnit(param, definition)) return false;
  const auto text = [&param](QLatin1String tag) {
    return CDomDoc::existingSubElementAsString(tag, param, QString());
  };
  definition.setHint(text(TAG_HINT));
  definition.setDefVal(text(TAG_DEF_VAL));
  definition.setMinVal(text(TAG_MIN_VAL));
  definition.setMaxVal(text(TAG_MAX_VAL));
  definition.setMinIds(idListFromStr(text(TAG_MIN_OBJ)));
  definition.setMaxIds(idListFromStr(text(TAG_MAX_OBJ)));
  return true;
}

bool CParamDefFile::readParameterTypeFromDom(const CDomElement& param, quint32 id,
                                             NParamDef::EParamType& type) {
  QString text;
  if (!existingParamSubElemetStr(param, TAG_TYPE, id, text)) return false;
  type = CParamDefItem::typeFromString(text);
  if (CParamDefItem::typeToString(type) != text) {
    return fail(
        tr("Parameter (Id=%1) -> Type \"%2\" is not valid.").arg(QString::number(id), text));
  }
  return true;
}

bool CParamDefFile::readUnit(const CDomElement& param, CParamDefItem& definition) {
  const CDomElement unit = CDomDoc::existingSubElement(TAG_UNIT, param);
  if (unit.isNull()) return true;
  quint32 unitId = 0;
  if (!CStr::strToU32(unit.text(), unitId)) {
    return fail(tr("Parameter (Id=%1, Tag <%2>) -> \"%3\" is not a valid u32 value.")
                    .arg(QString::number(definition.id()), TAG_UNIT, unit.text()));
  }
  definition.setUnitId(unitId);
  return true;
}

bool CParamDefFile::readChoices(const CDomElement& param, CParamDefItem& definition) {
  const CDomElement enumeration = CDomDoc::existingSubElement(TAG_ENUM, param);
  if (!enumeration.isNull()) {
    QList<NParamDef::SNamedI64Value> values;
    if (!readNamedI64ValuesFromDom(enumeration, values))
      return prefixSection(definition.id(), TAG_ENUM);
    definition.setEnumEditable(enumeration.attribute(ATTR_EDIT) == VAL_TRUE);
    definition.addEnums(values);
  }
  const CDomElement radio = CDomDoc::existingSubElement(TAG_RADIO, param);
  if (!radio.isNull()) {
    QList<NParamDef::SNamedI64Value> values;
    if (!readNamedI64ValuesFromDom(radio, values)) return prefixSection(definition.id(), TAG_RADIO);
    definition.addRadios(values);
  }
  return true;
}

bool CParamDefFile::readNamedI64ValuesFromDom(const CDomElement& section,
                                              QList<NParamDef::SNamedI64Value>& values) {
  for (CDomElement item = section.firstChildElement(TAG_ITEM); !item.isNull();
       item = item.nextSiblingElement(TAG_ITEM)) {
    qint64 value = 0;
    if (CDomDoc::fail(CDomDoc::existingAttributeAsI64(ATTR_VALUE, item, value, mErrorMsg)))
      return false;
    values.append({value, item.text()});
  }
  return true;
}

bool CParamDefFile::readCheck(const CDomElement& param, CParamDefItem& definition) {
  const CDomElement check = CDomDoc::existingSubElement(TAG_CHECK, param);
  if (check.isNull()) return true;
  NParamDef::SCheckValues values;
  values.hasUndefined = !CDomDoc::existingSubElement(TAG_UNDEFINED, check).isNull();
  const auto read = [&](QLatin1String tag, qint64& value) {
    return !CDomDoc::fail(CDomDoc::existingSubElementAsI64(tag, check, value, mErrorMsg));
  };
  if (!read(TAG_CHECKED, values.checked) || !read(TAG_UNCHECKED, values.unchecked) ||
      (values.hasUndefined && !read(TAG_UNDEFINED, values.undefined))) {
    prependToError(
        tr("Parameter (Id=%1) -> Section=<%2>, ").arg(QString::number(definition.id()), TAG_CHECK));
    return false;
  }
  definition.setCheckVals(values);
  return true;
}

bool CParamDefFile::readBits(const CDomElement& param, CParamDefItem& definition) {
  const CDomElement section = CDomDoc::existingSubElement(TAG_BIT_SET, param);
  QList<NParamDef::SBitValue> bits;
  if (!section.isNull() && !readBitsetFromDom(section, bits))
    return prefixSection(definition.id(), TAG_BIT_SET);
  definition.addBits(bits);
  return true;
}

bool CParamDefFile::readBitsetFromDom(const CDomElement& section,
                                      QList<NParamDef::SBitValue>& bits) {
  for (CDomElement element = section.firstChildElement(TAG_BIT); !element.isNull();
       element = element.nextSiblingElement(TAG_BIT)) {
    NParamDef::SBitValue bit;
    bit.name = element.text();
    if (CDomDoc::fail(CDomDoc::existingAttributeAsI32(ATTR_POS, element, bit.pos, mErrorMsg)))
      return false;
    if (!bit.isValid()) {
      return fail(
          tr("Tag <%1> Attribute \"%2\" -> %3 exceeds the valid bit position range (0...%4).")
              .arg(TAG_BIT, ATTR_POS, QString::number(bit.pos),
                   QString::number(NParamDef::SBitValue::mMaxPos)));
    }
    if (CDomDoc::fail(
            CDomDoc::existingAttributeAsBool(ATTR_INVERT, element, bit.invert, mErrorMsg))) {
      return false;
    }
    bits.append(bit);
  }
  return true;
}

bool CParamDefFile::readBitsetFromDom(QDomElement& section, QList<NParamDef::SBitValue>& bits) {
  return readBitsetFromDom(CDomDoc::fromDom(section).documentElement(), bits);
}

bool CParamDefFile::readVisibleValues(const CDomElement& param, CParamDefItem& definition) {
  const CDomElement section = CDomDoc::existingSubElement(TAG_VISIBLE_VALUES, param);
  if (section.isNull()) return true;
  quint32 refId = 0;
  if (CDomDoc::fail(CDomDoc::existingAttributeAsU32(ATTR_REF_ID, section, refId, mErrorMsg)))
    return prefixSection(definition.id(), TAG_VISIBLE_VALUES);
  definition.setVisibleId(refId);
  definition.addVisibleValues(valueListFromStr(section.text()));
  return true;
}

bool CParamDefFile::enterDefinition(const CParamDefItem& definition) {
  if (!mDefinitions.emplace(definition.name(), definition).second)
    return fail(tr("Threre is alredy a Parameter with name = \"%1\".").arg(definition.name()));
  if (NParamDef::isRealId(definition.id())) mNameById.emplace(definition.id(), definition.name());
  return true;
}

bool CParamDefFile::prefixSection(quint32 id, QLatin1String section) {
  prependToError(tr("Parameter (Id=%1, Section=<%2>) -> ").arg(QString::number(id), section));
  return false;
}

QList<quint32> CParamDefFile::idListFromStr(const QString& text) {
  return numbersOf<quint32>(text, &CStr::strToU32);
}

QList<qint64> CParamDefFile::valueListFromStr(const QString& text) {
  return numbersOf<qint64>(text, &CStr::strToI64);
}
