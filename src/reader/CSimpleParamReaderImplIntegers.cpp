// Values as integers: one template for each kind of getter, and the eight types that use it.

#include "CSimpleParamReaderImpl.h"
#include "NTypes.h"

#include <type_traits>

namespace {

template <typename T>
QString decimal(T number) {
  using Widest = std::conditional_t<std::is_signed_v<T>, qlonglong, qulonglong>;
  return QString::number(static_cast<Widest>(number));
}

template <typename T>
QString typeName(const T& number) {
  return CParamDefItem::typeToString(CParamDefItem::type(number));
}

/// A definition keeps the range that it has.
void completeRange(CParamDefItem& definition, const CParamVal& min, const CParamVal& max) {
  if (definition.minVal().isEmpty()) definition.setMinVal(min);
  if (definition.maxVal().isEmpty()) definition.setMaxVal(max);
}

}  // namespace

template <typename T>
bool CSimpleParamReaderImpl::getIntegerParam(unsigned char subDevId, const QString& name,
                                             const QString& group, unsigned int id, T& val,
                                             const T& def, const T& min, const T& max, QString& err,
                                             CParamDefItem** defOut) {
  CParamVal stored;
  CParamDefItem* definition = nullptr;
  const bool read = readDefAndVal(subDevId, name, group, CParamDefItem::type(val), id, stored, def,
                                  err, definition);
  if (defOut != nullptr) *defOut = definition;
  if (!read) return false;
  if (isFullAccess()) completeRange(*definition, min, max);
  if (stored.value(val)) return true;
  val = def;
  const QString message =
      tr("Error while reading parameter \"%1\" on subdevice %2 : Value \"%3\" "
         "is not an %4 value. Default Value %5 is taken.")
          .arg(name, QString::number(subDevId), stored.asStr(), typeName(val), decimal(def));
  logReadError("CBaseParamReader::getSignedParam() ", message);
  err += message + QLatin1Char('\n');
  return repairValue(subDevId, name, def);
}

template <typename T>
bool CSimpleParamReaderImpl::getExistingInteger(unsigned char subDevId, const QString& name, T& val,
                                                QString& err) const {
  CParamVal stored;
  if (!getParam(subDevId, name, stored, err)) return false;
  if (stored.value(val)) return true;
  const QString message =
      tr("Error while reading parameter \"%1\" on subdevice %2 : Value \"%3\" is not an %4 value.")
          .arg(name, QString::number(subDevId), stored.asStr(), typeName(val));
  logReadError("CBaseParamReader::getUnsignedParam() ", message);
  err += message + QLatin1Char('\n');
  return false;
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, unsigned char& val, unsigned char def,
                                      QString& err, unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::U8_MIN, NTypes::U8_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, unsigned short& val, unsigned short def,
                                      QString& err, unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::U16_MIN, NTypes::U16_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, unsigned int& val, unsigned int def,
                                      QString& err, unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::U32_MIN, NTypes::U32_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, unsigned long long& val,
                                      unsigned long long def, QString& err, unsigned int id,
                                      CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::U64_MIN, NTypes::U64_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, signed char& val, signed char def,
                                      QString& err, unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::I8_MIN, NTypes::I8_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, short& val, short def, QString& err,
                                      unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::I16_MIN, NTypes::I16_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, int& val, int def, QString& err,
                                      unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::I32_MIN, NTypes::I32_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, long long& val, long long def,
                                      QString& err, unsigned int id, CParamDefItem** defOut) {
  return getIntegerParam(subDevId, name, group, id, val, def, NTypes::I64_MIN, NTypes::I64_MAX, err,
                         defOut);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      unsigned char& val, QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      unsigned short& val, QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      unsigned int& val, QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      unsigned long long& val, QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, signed char& val,
                                      QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, short& val,
                                      QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, int& val,
                                      QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, long long& val,
                                      QString& err) const {
  return getExistingInteger(subDevId, name, val, err);
}
