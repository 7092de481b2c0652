// Values: as texts, as floating point numbers, and as the eight types of integers.

#include "CSimpleParamReaderImpl.h"
#include "ICLogfile.h"

#include <limits>
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

/// That of the type; a definition keeps the range that it has.
template <typename T>
void completeRange(CParamDefItem& definition) {
  if (definition.minVal().isEmpty()) definition.setMinVal(std::numeric_limits<T>::min());
  if (definition.maxVal().isEmpty()) definition.setMaxVal(std::numeric_limits<T>::max());
}

}  // namespace

CParamDefItem* CSimpleParamReaderImpl::neededDefinition(const QString& name,
                                                        NParamDef::EParamType type, unsigned int id,
                                                        const CParamVal& def, QString& err) {
  CParamDefItem* definition = mFile->paramDefPtr(name);
  if (definition == nullptr && isFullAccess()) {
    definition = mFile->addDef(name, type, id);
    if (definition != nullptr) definition->setDefVal(def);
  }
  if (definition == nullptr) err += mFile->errorMsg() + QLatin1Char('\n');
  return definition;
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, NParamDef::EParamType type,
                                      CParamVal& val, CParamVal def, QString& err, unsigned int id,
                                      CParamDefItem** defOut) {
  CParamDefItem* definition = neededDefinition(name, type, id, def, err);
  if (defOut != nullptr) *defOut = definition;
  val = definition != nullptr ? mFile->paramValue(name, subDevId) : def;
  if (definition == nullptr || !val.isNull()) return definition != nullptr;
  val = def;
  if (!isFullAccess()) {
    err += tr("Error : Parameter \"%1\" does nor exist on subdevice %2.\n")
               .arg(name, QString::number(subDevId));
    return false;
  }
  // A group that cannot be made has left its reason in errorMsg().
  ICParamTreeNode* parent = mFile->subGroup(group, subDevId);
  if (parent != nullptr) mFile->addParameter(parent, name, val);
  return true;
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, QString& val, const QString& def,
                                      QString& err, unsigned int id, CParamDefItem** defOut) {
  CParamVal text;
  const bool read =
      getParam(subDevId, name, group, NParamDef::PARAM_TYPE_STR, text, def, err, id, defOut);
  val = text.asStr();
  return read;
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,
                                      const QString& group, double& val, double def, QString& err,
                                      unsigned int id, CParamDefItem** defOut) {
  CParamVal stored;
  const bool read =
      getParam(subDevId, name, group, CParamDefItem::type(val), stored, def, err, id, defOut);
  if (!read || stored.value(val)) return read;
  val = def;
  const QString message =
      tr("Error while reading parameter \"%1\" on subdevice %2 : Value \"%3\" "
         "is not an f64 value. Default Value %4 is taken.")
          .arg(name, QString::number(subDevId), stored.asStr(), QString::number(def));
  logReadError("CBaseParamReader::getParam(f64) ", message);
  err += message + QLatin1Char('\n');
  return repairValue(subDevId, name, def);
}

bool CSimpleParamReaderImpl::repairValue(unsigned char subDevId, const QString& name,
                                         const CParamVal& def) {
  if (isReadOnly()) return false;
  mFile->setParamValue(name, def, subDevId);
  return true;
}

void CSimpleParamReaderImpl::logReadError(const char* operation, const QString& message) const {
  if (mLogfile->isLevelEnabled(ICLogfile::kLevelReadErrors))
    mLogfile->write(ICLogfile::kLevelReadErrors, QLatin1String(operation) + message);
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, CParamVal& val,
                                      QString& err) const {
  val = mFile->paramValue(name, subDevId);
  if (val.isNull()) {
    err += tr("Error : Parameter \"%1\" does not exist on subdevice %2.\n")
               .arg(name, QString::number(subDevId));
  }
  return !val.isNull();
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, QString& val,
                                      QString& err) const {
  CParamVal text;
  const bool read = getParam(subDevId, name, text, err);
  if (read) val = text.asStr();
  return read;
}

bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, double& val,
                                      QString& err) const {
  CParamVal stored;
  if (!getParam(subDevId, name, stored, err)) return false;
  const bool converted = stored.value(val);
  if (!converted) {
    err += tr("Error while reading parameter \"%1\" on subdevice %2 : Value \"%3\" is not an f64 "
              "value.\n")
               .arg(name, QString::number(subDevId), stored.asStr());
  }
  return converted;
}

bool CSimpleParamReaderImpl::setParam(unsigned char subDevId, const QString& name,
                                      const CParamVal& val, QString& err) {
  if (isReadOnly()) {
    err += tr("Error : Cannot change the value of parameter \"%1\" on sub device %2 because the "
              "file is write protected !\n")
               .arg(name, QString::number(subDevId));
    return false;
  }
  const bool set = mFile->setParamValue(name, val, subDevId);
  if (!set) err += mFile->errorMsg() + QLatin1Char('\n');
  return set;
}

template <typename T>
bool CSimpleParamReaderImpl::getIntegerParam(unsigned char subDevId, const QString& name,
                                             const QString& group, unsigned int id, T& val,
                                             const T& def, QString& err, CParamDefItem** defOut) {
  CParamVal stored;
  CParamDefItem* definition = nullptr;
  const bool read =
      getParam(subDevId, name, group, CParamDefItem::type(val), stored, def, err, id, &definition);
  if (defOut != nullptr) *defOut = definition;
  if (!read) return false;
  if (isFullAccess()) completeRange<T>(*definition);
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

// NOLINTBEGIN(bugprone-macro-parentheses): the argument is a type.
#define KTO_READER_INTEGER(T)                                                                \
  bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name,         \
                                        const QString& group, T& val, T def, QString& err,   \
                                        unsigned int id, CParamDefItem** defOut) {           \
    return getIntegerParam(subDevId, name, group, id, val, def, err, defOut);                \
  }                                                                                          \
  bool CSimpleParamReaderImpl::getParam(unsigned char subDevId, const QString& name, T& val, \
                                        QString& err) const {                                \
    return getExistingInteger(subDevId, name, val, err);                                     \
  }
// NOLINTEND(bugprone-macro-parentheses)

KTO_READER_INTEGER(unsigned char)
KTO_READER_INTEGER(unsigned short)
KTO_READER_INTEGER(unsigned int)
KTO_READER_INTEGER(unsigned long long)
KTO_READER_INTEGER(signed char)
KTO_READER_INTEGER(short)
KTO_READER_INTEGER(int)
KTO_READER_INTEGER(long long)
