#include "CParameterFileImpl.h"

#include <algorithm>

CParameterFileImpl::CGroup CParameterFileImpl::sAllParams;

CParameterFileImpl::CParameterFileImpl(NktoGlobal::EParamFileType type, ICLogfile* logfile)
    : CParameterFileBaseImpl(type, logfile), mGroup(&sAllParams) {
  mGroup->append(this);
}

CParameterFileImpl::CParameterFileImpl(CParameterFileImpl* parent, NktoGlobal::EParamFileType type,
                                       ICLogfile* logfile)
    : CParameterFileBaseImpl(type, logfile),
      mGroup(parent != nullptr ? parent->mGroup : new CGroup) {
  mGroup->append(this);
}

CParameterFileImpl::~CParameterFileImpl() {
  mGroup->removeOne(this);
  if (mGroup != &sAllParams && mGroup->isEmpty()) delete mGroup;
}

// Each query walks a copy of the group, since an application may make or delete members meanwhile
// (in its error handler, say).

QString CParameterFileImpl::nameById(quint32 id) const {
  const CGroup group = *mGroup;
  for (const CParameterFileImpl* member : group) {
    const QString name = member->ownNameById(id);
    if (!name.isEmpty()) return name;
  }
  return CParameterFileBaseImpl::nameById(id);  // which tells that there is none
}

CParamDefItem CParameterFileImpl::paramDef(const QString& name) const {
  const CGroup group = *mGroup;
  for (const CParameterFileImpl* member : group) {
    const CParamDefItem* definition = member->ownDefinition(name);
    if (definition != nullptr) return *definition;
  }
  return CParamDefItem();
}

CParamVal CParameterFileImpl::paramValue(const QString& hardwareId, const QString& name,
                                         quint8 subDevId) const {
  const CGroup group = *mGroup;
  for (const CParameterFileImpl* member : group) {
    const QString id = member == this ? hardwareId : member->hardwareId();
    const CParamVal value = member->ownParamValue(id, name, subDevId);
    if (!value.isNull()) return value;
  }
  return CParamVal();
}

bool CParameterFileImpl::isReferenced(quint32 id) const {
  const CGroup group = *mGroup;
  return std::any_of(group.begin(), group.end(), [id](const CParameterFileImpl* member) {
    return member->ownIsReferenced(id);
  });
}

QList<quint32> CParameterFileImpl::referencedBy(quint32 id) const {
  QList<quint32> ids;
  const CGroup group = *mGroup;
  for (const CParameterFileImpl* member : group) ids += member->ownReferencedBy(id);
  return ids;
}
