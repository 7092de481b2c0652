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
  CParamImport(const CDefinitionStore& definitions, ICLogfile* logfile, bool isListed)
      : mDefinitions(definitions), mLogfile(logfile), mIsListed(isListed) {}

  /// False, with the reason, when a parameter needs a default and has no definition.
  bool plan(const CSubDeviceTrees& source, CSubDeviceTrees& destination,
            NParamDef::EImportMissing missing, QString& error);
  /// Carries the plan out; true when a value changed or was added.
  bool apply();
  const NParamDef::SImportResult& result() const { return mResult; }
  /// What was done to each parameter; empty unless it is listed.
  const NParamDef::CImportedParams& params() const { return mParams; }

 private:
  struct SNewValue {
    CParamTreeNodeImpl* param;
    CParamVal value;
  };

  using CParams = QVector<CParamTreeNodeImpl*>;
  using SImported = NParamDef::SImportedParam;

  bool planTree(CParams source, const CParams& destination, NParamDef::EImportMissing missing,
                QString& error);
  bool planDefault(CParamTreeNodeImpl* param, QString& error);
  void planAdditions(const CParams& source);
  bool planValueOf(const CParamTreeNodeImpl& source, CParamTreeNodeImpl* param);
  /// Plans a value that differs; false when it does not.
  bool planValue(CParamTreeNodeImpl* param, const CParamVal& value);
  void add(const CParamTreeNodeImpl& param);
  void note(SImported::EWhat what, const CParamTreeNodeImpl& param);
  void log(quint32 level, const CParamTreeNodeImpl& param, const QString& text) const;

  const CDefinitionStore& mDefinitions;
  ICLogfile* mLogfile;
  const bool mIsListed;
  CSubDeviceTrees* mDestination = nullptr;
  std::vector<SNewValue> mNewValues;
  std::vector<const CParamTreeNodeImpl*> mAdditions;  ///< of the source
  // The group of the last addition in the source, and that of the same path in the destination.
  const CTreeNode<CParamNodeData>* mSourceGroup = nullptr;
  CParamTreeNodeImpl* mGroup = nullptr;
  NParamDef::SImportResult mResult;
  NParamDef::CImportedParams mParams;
};
