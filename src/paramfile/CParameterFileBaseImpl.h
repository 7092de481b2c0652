#pragma once

#include "CDefinitionStore.h"
#include "CKeyedMap.h"
#include "CParamValueFile.h"
#include "CParameterFileErrorHandler.h"
#include "CUniqueList.h"
#include "ICLogfile.h"
#include "ICParameterFile.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <memory>
#include <optional>

/// A parameter file in no group. Grouped objects derive from it and look further.
class CParameterFileBaseImpl : public ICParameterFile {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileImpl)

 public:
  /// What separates the pieces of a group path.
  static const QRegularExpression sSeparator;

  CParameterFileBaseImpl(NktoGlobal::EParamFileType type, ICLogfile* logfile);
  /// A copy with trees and definitions of its own, and no changes marked.
  CParameterFileBaseImpl(const CParameterFileBaseImpl& other, ICLogfile* logfile);
  ~CParameterFileBaseImpl() override;

  void setErrorHandler(CParameterFileErrorHandler* handler) override;
  NktoGlobal::EParamFileType fileType() const override { return mFileType; }
  void setFileType(NktoGlobal::EParamFileType type) override { mFileType = type; }
  void clear() override;
  void clearRootNodes();
  bool isDefEmpty() const override { return mDefinitions.isEmpty(); }
  QString errorMsg() const override { return mErrorMsg; }
  int errorLine() const override { return mErrorLine; }
  quint32 paramFileVersion() const override { return mVersion; }

  QString hardwareId() const override { return mHardwareId; }
  QStringList hardwareIds() const override;
  bool containsHardwareId(const QString& hardwareId) const override;
  bool selectHardwareId(const QString& hardwareId) override;
  bool addHardwareId(const QString& hardwareId) override;
  bool removeHardwareId(const QString& hardwareId) override;
  bool renameHardwareId(const QString& oldId, const QString& newId) override;
  bool cloneHardwareId(const QString& source, const QString& target) override;
  bool cloneHardwareIdFromInstance(const QString& hardwareId, ICParameterFile* other) override;

  bool loadParamDefFile(const QString& fileName, quint32 revision) override;
  bool loadParamFile(const QString& fileName, const QString& hardwareId, quint32 revision) override;
  bool loadParamFileAsSubDevId(const QString& fileName, quint8 subDevId, const QString& hardwareId,
                               quint32 revision) override;
  bool saveParamDefFile(const QString& fileName, quint32 revision) override;
  bool saveParamFile(const QString& fileName, const QString& hardwareId, quint32 revision) override;
  bool hasChangedOnDisk(const QString& fileName) const override;

  bool importParamFile(const QString& fileName, const QString& sourceHardwareId,
                       const QString& destinationHardwareId,
                       NParamDef::EImportMissing missing = NParamDef::ImportDefault) override;
  bool importParamFile(ICParameterFile* source, const QString& sourceHardwareId,
                       const QString& destinationHardwareId,
                       NParamDef::EImportMissing missing = NParamDef::ImportDefault) override;
  bool importParamFile(const QString& fileName, const QString& sourceHardwareId,
                       const QString& destinationHardwareId, NParamDef::EImportMissing missing,
                       NParamDef::CImportedParams& imported) override;
  bool importParamFile(ICParameterFile* source, const QString& sourceHardwareId,
                       const QString& destinationHardwareId, NParamDef::EImportMissing missing,
                       NParamDef::CImportedParams& imported) override;
  NParamDef::SImportResult importResult() const override { return mImportResult; }

  bool defChanged() const override { return mDefinitions.isChanged(); }
  bool paramChanged(const QString& hardwareId) const override;
  QStringList changedList() const override { return mChanged.list(); }
  bool isChanged() const override { return defChanged() || !mChanged.isEmpty(); }
  void clearChanged() override;
  void setHwIdChanged(const QString& hardwareId) override { mChanged.add(hardwareId); }

  QString defAuthor() const override { return mDefinitions.metaData().author(); }
  QString defComment() const override { return mDefinitions.metaData().comment(); }
  QDate defDate() const override { return mDefinitions.metaData().date(); }
  QString author() const override { return mMetaData.author(); }
  QString comment() const override { return mMetaData.comment(); }
  QDate date() const override { return mMetaData.date(); }
  void setDefMetaData(const QString& author, const QString& comment) override;
  void setMetaData(const QString& author, const QString& comment) override;

  NParamDef::ESubDeviceTypes subDevType(quint8 subDevId) const override;
  void setSubDevType(quint8 subDevId, NParamDef::ESubDeviceTypes type) override;
  QString subDevName(quint8 subDevId) const override { return mLabels.names.value(subDevId); }
  void setSubDevName(quint8 subDevId, const QString& name) override;

  quint32 idByName(const QString& name) const override;
  QString nameById(quint32 id) const override;
  QStringList paramNames(quint8 subDevId) const override;
  CParamDefItem paramDef(const QString& name) const override;
  CParamDefItem* paramDefPtr(const QString& name) override;
  CParamDefItem paramDef(quint32 id) const override;
  CParamVal paramValue(const QString& name, quint8 subDevId) const override;
  CParamVal paramValue(quint32 id, quint8 subDevId) const override;
  bool isReferenced(const QString& name) const override;
  bool isReferenced(quint32 id) const override { return ownIsReferenced(id); }
  QList<quint32> referencedBy(const QString& name) const override;
  QList<quint32> referencedBy(quint32 id) const override { return ownReferencedBy(id); }
  bool setParamValue(const QString& name, const CParamVal& value, quint8 subDevId) override;
  bool setParamValue(quint32 id, const CParamVal& value, quint8 subDevId) override;
  bool setAndMarkParamValue(const QString& name, const CParamVal& value, quint8 subDevId) override;
  bool setAndMarkParamValue(quint32 id, const CParamVal& value, quint8 subDevId) override;
  CParamDefItem* addDef(const CParamDefItem& definition) override;
  CParamDefItem* addDef(const QString& name, NParamDef::EParamType type, quint32 id) override;
  QStringList defNames() const override;

  QList<quint8> subDeviceIds() const override;
  QList<quint8> subDeviceIds(NParamDef::ESubDeviceTypes type) const override;
  bool doesSubDeviceExist(quint8 subDevId) const override;
  bool copySubDevice(quint8 source, quint8 target) override;

  ICParamTreeNode* rootGroup(quint8 subDevId) override;
  ICParamTreeNode* existingSubGroup(const QString& path, quint8 subDevId) override;
  ICParamTreeNode* subGroup(const QString& path, quint8 subDevId) override;
  ICParamTreeNode* addGroup(ICParamTreeNode* parent, const QString& name) override;
  ICParamTreeNode* addParameter(ICParamTreeNode* parent, const QString& name) override;
  ICParamTreeNode* addParameter(ICParamTreeNode* parent, const QString& name,
                                const CParamVal& value) override;
  bool deleteNode(ICParamTreeNode* node) override;
  ICParamTreeNode* findParameter(ICParamTreeNode* node, const QString& name) const override;
  bool loadDefaultValues(ICParamTreeNode* node) override;
  bool loadDefaultValues() override;
  void removeAllProperties(ICParamTreeNode* node) override;
  void removeAllProperties() override;

  CParamFindings loadFindings() const override { return mLoadFindings; }
  /// A value file that does not load is then not posted to the message board: errorMsg() and the
  /// logfile tell.
  void setQuiet(bool quiet) { mIsQuiet = quiet; }

  /// Takes the text before the first separator off a group path.
  static QString getNextSubPath(QString& path);

  // For what is built on this object, such as the merge of files: all values, also without
  // definitions. Who edits them marks the hardware id with setHwIdChanged().
  const CHardwareIdTrees& allTrees() const { return mTrees; }
  CHardwareIdTrees& allTrees() { return mTrees; }

  /// Other definitions, which are marked changed; the Head stays.
  void replaceDefinitions(const CParamDefinitions& definitions) {
    mDefinitions.replace(definitions);
  }

  /// Stores the text as the last error and logs it, when that level is on; returns false.
  bool setErrorMsg(const QString& text, const QString& context = QString(),
                   quint32 level = ICLogfile::kLevelErrors) const;

 protected:
  // The answers of this object alone, without a group and without a message.
  QString ownNameById(quint32 id) const;
  const CParamDefItem* ownDefinition(const QString& name) const { return mDefinitions.find(name); }
  CParamVal ownParamValue(const QString& name, quint8 subDevId) const;
  bool ownIsReferenced(quint32 id) const { return mDefinitions.isReferenced(id); }
  QList<quint32> ownReferencedBy(quint32 id) const { return mDefinitions.referencedBy(id); }

 private:
  static constexpr int kOwnSubDevIds = -1;  ///< sub-devices keep the ids that the file gives them

  /// What a value file held, before it becomes part of the object.
  struct SLoadedValues {
    CHardwareIdTrees trees;
    SSubDeviceLabels labels;
    QString hardwareId;  ///< the expected one, and after loading the one that was settled
    CXMLMetaData metaData;
    CParamFindings findings;
    std::optional<CContentId> contentId;
  };

  void installOwnErrorHandler();
  void useErrorHandler(CParameterFileErrorHandler* handler);
  bool failedLoad(const CParamBaseFile& file, const QString& context);
  /// Remembers what a file holds that was loaded or saved; returns true.
  bool noteContent(const QString& fileName, const std::optional<CContentId>& contentId);
  bool readValueFile(const QString& fileName, quint32 revision, const QString& context,
                     SLoadedValues& loaded, int asSubDevId);
  bool loadValues(const QString& fileName, const QString& hardwareId, quint32 revision,
                  int asSubDevId);
  void appendParameterRootNodes(CHardwareIdTrees&& trees);
  void takeOver(SLoadedValues&& loaded, quint32 revision);
  bool firstHardwareId(QString& hardwareId, const CHardwareIdTrees& trees) const;
  QString importDestination(const QString& hardwareId) const;
  bool checkDestination(const QString& hardwareId) const;
  // What was done to each parameter is listed where a list is given.
  bool importFile(const QString& fileName, const QString& sourceHardwareId,
                  const QString& destinationHardwareId, NParamDef::EImportMissing missing,
                  NParamDef::CImportedParams* imported);
  bool importOther(ICParameterFile* source, const QString& sourceHardwareId,
                   const QString& destinationHardwareId, NParamDef::EImportMissing missing,
                   NParamDef::CImportedParams* imported);
  bool importHardwareId(const CHardwareIdTrees& source, const QString& sourceHardwareId,
                        const QString& destinationHardwareId, NParamDef::EImportMissing missing,
                        NParamDef::CImportedParams* imported);
  /// Copies the values of the parameters that the destination defines.
  bool importParameters(const CSubDeviceTrees& source, const QString& destinationHardwareId,
                        NParamDef::EImportMissing missing, NParamDef::CImportedParams* imported);
  bool checkNewDefinition(const CParamDefItem& definition) const;
  static bool isReservedName(const QString& name);
  static QString reservedNameMessage(const QString& name);

  CSubDeviceTrees* activeTrees();
  const CSubDeviceTrees* activeTrees() const;
  CSubDeviceTree* activeTree(quint8 subDevId);
  const CSubDeviceTree* activeTree(quint8 subDevId) const;
  CSubDeviceTree& createActiveTree(quint8 subDevId);
  /// The tree of the active hardware id to which the node belongs, or null.
  CSubDeviceTree* activeTreeOf(const CParamTreeNodeImpl* node);
  const CSubDeviceTree* activeTreeOf(const CParamTreeNodeImpl* node) const;
  CParamTreeNodeImpl* checkParent(ICParamTreeNode* parent, const QString& name,
                                  CSubDeviceTree*& tree);
  CParamTreeNodeImpl* failedNode(const QString& message) const {
    setErrorMsg(message);
    return nullptr;
  }
  CParamTreeNodeImpl* followPath(QStringList& path, quint8 subDevId);
  bool checkNewGroups(const CParamTreeNodeImpl* parent, const QStringList& names,
                      quint8 subDevId) const;
  ICParamTreeNode* addDefinedParameter(ICParamTreeNode* parent, const QString& name,
                                       const CParamVal* value);

  NktoGlobal::EParamFileType mFileType;
  ICLogfile* mLogfile;
  mutable QString mErrorMsg;
  mutable int mErrorLine = 0;
  CXMLMetaData mMetaData;
  QString mHardwareId;
  quint32 mVersion = 0;
  bool mIsQuiet = false;
  CParamFindings mLoadFindings;
  QMap<QString, CContentId> mContentIds;  ///< of files by name, as they were loaded or saved
  SSubDeviceLabels mLabels;               ///< of all hardware ids
  std::unique_ptr<CParameterFileErrorHandler> mOwnErrorHandler;
  CParameterFileErrorHandler* mErrorHandler = nullptr;
  CDefinitionStore mDefinitions;
  CHardwareIdTrees mTrees;
  CUniqueList<QString, CKeyedSet<QString>> mChanged;
  NParamDef::SImportResult mImportResult;
};
