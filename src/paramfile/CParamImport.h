#pragma once

#include "CDefinitionStore.h"
#include "CParamValueFile.h"

#include <QCoreApplication>

#include <vector>

class ICLogfile;

/// The plan of an import from one set of sub-devices into another. Nothing changes until all of it
/// is known to succeed.
class CParamImport {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileImpl)

 public:
  CParamImport(const CDefinitionStore& definitions, ICLogfile* logfile)
      : mDefinitions(definitions), mLogfile(logfile) {}

  /// False, with the reason, when a parameter needs a default and has no definition.
  bool plan(const CSubDeviceTrees& source, CSubDeviceTrees& destination,
            NParamDef::EImportMissing missing, QString& error);
  /// Carries the plan out; true when a value changed or was added.
  bool apply();
  const NParamDef::SImportResult& result() const { return mResult; }

 private:
  struct SNewValue {
    CSubDeviceTree* tree;
    QString name;
    CParamVal value;
  };
  struct SAddition {
    const CSubDeviceTree* source;
    QString name;
  };

  bool planTree(CSubDeviceTree& tree, const CSubDeviceTree* source,
                NParamDef::EImportMissing missing, QString& error);
  bool planDefault(CSubDeviceTree& tree, const QString& name, QString& error);
  void planAdditions(const CSubDeviceTree& source, const CSubDeviceTree* tree);
  /// Plans a value that differs; false when it does not.
  bool planValue(CSubDeviceTree& tree, const QString& name, const CParamVal& value);
  void add(const SAddition& addition);
  void log(quint32 level, quint8 subDevId, const QString& name, const QString& text) const;

  const CDefinitionStore& mDefinitions;
  ICLogfile* mLogfile;
  CSubDeviceTrees* mDestination = nullptr;
  std::vector<SNewValue> mNewValues;
  std::vector<SAddition> mAdditions;
  NParamDef::SImportResult mResult;
};
