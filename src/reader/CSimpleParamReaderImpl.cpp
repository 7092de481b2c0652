// Construction, and what is forwarded to the parameter file.

#include "CSimpleParamReaderImpl.h"

#include "CParameterFileImpl.h"
#include "ICLogfile.h"

CSimpleParamReaderImpl::CSimpleParamReaderImpl(bool useCreate, NktoGlobal::EParamFileType fileType,
                                               const QString& hardwareId,
                                               NParamDef::EAccessRight access, ICLogfile* logfile,
                                               unsigned int paramDefFileVersion,
                                               unsigned int paramFileVersion)
    : mOwnLogfile(logfile != nullptr ? nullptr
                                     : ICLogfile::createLogfile(ICLogfile::LogFile, QString(), 0)),
      mLogfile(logfile != nullptr ? logfile : mOwnLogfile.get()),
      mAccess(access),
      mFile(useCreate ? std::make_unique<CParameterFileImpl>(fileType, mLogfile)
                      : std::make_unique<CParameterFileBaseImpl>(fileType, mLogfile)),
      mParamDefFileVersion(paramDefFileVersion),
      mParamFileVersion(paramFileVersion) {
  mFile->addHardwareId(hardwareId);
  mFile->setMetaData(mAuthor, mComment);
}

CSimpleParamReaderImpl::~CSimpleParamReaderImpl() {
  saveFiles();
}

void CSimpleParamReaderImpl::setMetaData(const QString& author, const QString& comment) {
  mAuthor = author;
  mComment = comment;
}

bool CSimpleParamReaderImpl::selectHardwareId(const QString& hardwareId) {
  return mFile->selectHardwareId(hardwareId) ||
         (isFullAccess() && mFile->addHardwareId(hardwareId));
}

bool CSimpleParamReaderImpl::containsVal(const QString& name, unsigned char subDevId) const {
  return !mFile->paramValue(name, subDevId).isNull();
}

CParamDefItem* CSimpleParamReaderImpl::paramDefPtr(const QString& name, QString& err) {
  CParamDefItem* definition = mFile->paramDefPtr(name);
  if (definition == nullptr) err += mFile->errorMsg() + QLatin1Char('\n');
  return definition;
}

QList<unsigned char> CSimpleParamReaderImpl::subDeviceIds(NParamDef::ESubDeviceTypes type) const {
  return mFile->subDeviceIds(type);
}

NParamDef::ESubDeviceTypes CSimpleParamReaderImpl::subDevType(unsigned char subDevId) const {
  return mFile->subDevType(subDevId);
}

void CSimpleParamReaderImpl::setSubDevType(unsigned char subDevId,
                                           NParamDef::ESubDeviceTypes type) {
  if (!isReadOnly()) mFile->setSubDevType(subDevId, type);
}

void CSimpleParamReaderImpl::setSubDevName(unsigned char subDevId, const QString& name) {
  if (!isReadOnly()) mFile->setSubDevName(subDevId, name);
}

CParamDefItem* CSimpleParamReaderImpl::addDef(const CParamDefItem& definition) {
  return mFile->addDef(definition);
}

CParamDefItem* CSimpleParamReaderImpl::addDef(const QString& name, NParamDef::EParamType type,
                                              unsigned int id) {
  return mFile->addDef(name, type, id);
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
