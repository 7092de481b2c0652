// Values as texts and floating point numbers, setting and deleting.

#include "CSimpleParamReaderImpl.h"
#include "ICLogfile.h"

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
  mFile->addParameter(mFile->subGroup(group, subDevId), name, val);
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
  CParamDefItem* definition = nullptr;
  const bool read = readDefAndVal(subDevId, name, group, CParamDefItem::type(val), id, stored, def,
                                  err, definition);
  if (defOut != nullptr) *defOut = definition;
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

bool CSimpleParamReaderImpl::deleteGroup(unsigned char subDevId, const QString& group,
                                         QString& err) {
  const QString device = QString::number(subDevId);
  if (!isFullAccess()) {
    err += tr("Error : Cannot delete Group \"%1\" on sub device %2 because the file is write "
              "protected !\n")
               .arg(group, device);
    return false;
  }
  ICParamTreeNode* node = mFile->existingSubGroup(group, subDevId);
  if (node == nullptr) {
    err += tr("Warning : Cannot delete Group \"%1\" on sub device %2 because the group does not "
              "exist !\n")
               .arg(group, device);
  } else if (!mFile->deleteNode(node)) {  // the root group
    err += mFile->errorMsg() + QLatin1Char('\n');
  }
  return true;
}

bool CSimpleParamReaderImpl::deleteParam(unsigned char subDevId, const QString& name,
                                         const QString& group, QString& err) {
  const QString device = QString::number(subDevId);
  if (!isFullAccess()) {
    err += tr("Error : Cannot delete parameter \"%1/%2\" on sub device %3 because the file is "
              "write protected !\n")
               .arg(group, name, device);
    return false;
  }
  ICParamTreeNode* parent = mFile->existingSubGroup(group, subDevId);
  if (parent == nullptr) {
    err += tr("Warning : Cannot delete parameter \"%1/%2\" on sub device %3 because the group does "
              "not exist !\n")
               .arg(group, name, device);
    return true;
  }
  // Not childPtr(), which may find a group of that name.
  ICParamTreeNode* node = mFile->findParameter(parent, name);
  if (node == nullptr || node->parentPtr() != parent) {
    err += tr("Warning : Cannot delete parameter \"%1/%2\" on sub device %3 because the parameter "
              "does not exist !\n")
               .arg(group, name, device);
    return true;
  }
  mFile->deleteNode(node);
  return true;
}
