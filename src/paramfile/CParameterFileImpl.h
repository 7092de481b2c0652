#pragma once

#include "CParameterFileBaseImpl.h"

/// A parameter file that belongs to a group: what one member of the group does not define or hold
/// is looked up in the others, in the order of their construction. The group is shared without a
/// lock.
class CParameterFileImpl : public CParameterFileBaseImpl {
 public:
  /// Joins the group of all objects without a parent.
  CParameterFileImpl(NktoGlobal::EParamFileType type, ICLogfile* logfile);
  /// Joins the parent's group; without a parent, starts one.
  CParameterFileImpl(CParameterFileImpl* parent, NktoGlobal::EParamFileType type,
                     ICLogfile* logfile);
  ~CParameterFileImpl() override;

  using CParameterFileBaseImpl::isReferenced;
  using CParameterFileBaseImpl::paramDef;
  using CParameterFileBaseImpl::paramValue;
  using CParameterFileBaseImpl::referencedBy;

  QString nameById(quint32 id) const override;
  CParamDefItem paramDef(const QString& name) const override;
  CParamVal paramValue(const QString& name, quint8 subDevId) const override {
    return paramValue(hardwareId(), name, subDevId);
  }
  CParamVal paramValue(const QString& hardwareId, const QString& name,
                       quint8 subDevId) const override;
  bool isReferenced(quint32 id) const override;
  QList<quint32> referencedBy(quint32 id) const override;

 private:
  using CGroup = QList<CParameterFileImpl*>;

  static CGroup sAllParams;

  CGroup* mGroup;
};
