#pragma once

#include "CParameterFileBaseImpl.h"
#include "ICSimpleParamReader.h"

#include <QCoreApplication>

#include <memory>

class ICLogfile;

/// The reader: adds file names, access rights, defaults and saving to a parameter file of its own.
class CSimpleParamReaderImpl final : public ICSimpleParamReader {
  Q_DECLARE_TR_FUNCTIONS(CSimpleParamReaderImpl)

 public:
  /// `useCreate` makes the file with ICParameterFile::create() instead of createSingle().
  CSimpleParamReaderImpl(bool useCreate, NktoGlobal::EParamFileType fileType,
                         const QString& hardwareId, NParamDef::EAccessRight access,
                         ICLogfile* logfile, unsigned int paramDefFileVersion,
                         unsigned int paramFileVersion);
  ~CSimpleParamReaderImpl() override;

  void setParamDefFileVersion(unsigned int version) override { mParamDefFileVersion = version; }
  unsigned int paramDefFileVersion() const override { return mParamDefFileVersion; }
  void setParamFileVersion(unsigned int version) override { mParamFileVersion = version; }
  unsigned int paramFileVersion() const override { return mParamFileVersion; }
  bool load(const QString& defFile, const QString& paramFile, QString& err) override;
  bool load(const QString& path, QString& err) override;
  QString paramDefFileName() const override { return mDefFile.name; }
  QString paramFileName() const override { return mValueFile.name; }
  ICParameterFile* parameterFile() const override { return mFile.get(); }
  void setMetaData(const QString& author, const QString& comment) override;
  bool changed() const override { return mFile->isChanged(); }
  bool saveFiles() override;
  bool closeFiles(bool save) override;
  NParamDef::EAccessRight accessRights() const override { return mAccess; }
  void setAccessRights(NParamDef::EAccessRight access) override { mAccess = access; }
  QString hardwareId() const override { return mFile->hardwareId(); }
  QStringList hardwareIds() const override { return mFile->hardwareIds(); }
  bool selectHardwareId(const QString& hardwareId) override;

  unsigned int idByName(const QString& name) const override { return mFile->idByName(name); }
  QString nameById(unsigned int id) const override { return mFile->nameById(id); }
  bool containsDef(const QString& name) const override { return paramDef(name).valid(); }
  bool containsVal(const QString& name, unsigned char subDevId) const override;
  CParamDefItem paramDef(const QString& name) const override { return mFile->paramDef(name); }
  CParamDefItem* paramDefPtr(const QString& name) override { return mFile->paramDefPtr(name); }
  QList<unsigned char> subDeviceIds() const override { return mFile->subDeviceIds(); }
  QList<unsigned char> subDeviceIds(NParamDef::ESubDeviceTypes type) const override;
  NParamDef::ESubDeviceTypes subDevType(unsigned char subDevId) const override;
  void setSubDevType(unsigned char subDevId, NParamDef::ESubDeviceTypes type) override;
  QString subDevName(unsigned char subDevId) const override { return mFile->subDevName(subDevId); }
  void setSubDevName(unsigned char subDevId, const QString& name) override;
  CParamDefItem* addDef(const CParamDefItem& definition) override;
  CParamDefItem* addDef(const QString& name, NParamDef::EParamType type, unsigned int id) override;

  bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                NParamDef::EParamType type, CParamVal& val, CParamVal def, QString& err,
                unsigned int id, CParamDefItem** defOut) override;
  bool getParam(unsigned char subDevId, const QString& name, const QString& group, QString& val,
                const QString& def, QString& err, unsigned int id, CParamDefItem** defOut) override;
  bool getParam(unsigned char subDevId, const QString& name, const QString& group, double& val,
                double def, QString& err, unsigned int id, CParamDefItem** defOut) override;
  bool deleteGroup(unsigned char subDevId, const QString& group, QString& err) override;
  bool deleteParam(unsigned char subDevId, const QString& name, const QString& group,
                   QString& err) override;

  bool getParam(unsigned char subDevId, const QString& name, CParamVal& val,
                QString& err) const override;
  bool getParam(unsigned char subDevId, const QString& name, QString& val,
                QString& err) const override;
  bool getParam(unsigned char subDevId, const QString& name, double& val,
                QString& err) const override;

  // The getters of one type of integer: with a default, and of a value that must exist.
  // NOLINTBEGIN(bugprone-macro-parentheses): the argument is a type.
#define KTO_READER_INTEGER(T)                                                                     \
  bool getParam(unsigned char subDevId, const QString& name, const QString& group, T& val, T def, \
                QString& err, unsigned int id, CParamDefItem** defOut) override;                  \
  bool getParam(unsigned char subDevId, const QString& name, T& val, QString& err) const override;
  // NOLINTEND(bugprone-macro-parentheses)
  KTO_READER_INTEGER(unsigned char)
  KTO_READER_INTEGER(unsigned short)
  KTO_READER_INTEGER(unsigned int)
  KTO_READER_INTEGER(unsigned long long)
  KTO_READER_INTEGER(signed char)
  KTO_READER_INTEGER(short)
  KTO_READER_INTEGER(int)
  KTO_READER_INTEGER(long long)
#undef KTO_READER_INTEGER

  CParamDefItem* paramDefPtr(const QString& name, QString& err) override;
  bool setParam(unsigned char subDevId, const QString& name, const CParamVal& val,
                QString& err) override;

 private:
  struct SFile {
    QString name;
    bool isLoaded = false;
    bool isUnread = false;  ///< neither read nor kept yet: it holds something unknown
  };

  static QString ensureSuffix(const QString& name, const QString& suffix);
  bool isFullAccess() const { return mAccess == NParamDef::FullAccess; }
  bool isReadOnly() const { return mAccess == NParamDef::ReadOnly; }
  bool hasMetaData() const { return !mAuthor.isEmpty() || !mComment.isEmpty(); }
  bool saveDefinitions();
  bool saveValues();
  void logSaving(const QString& text) const;
  bool keepUnread(SFile& file) const;
  bool postFailure(bool saved) const;

  /// The definition; with full access a missing one is created. Null and a message otherwise.
  CParamDefItem* neededDefinition(const QString& name, NParamDef::EParamType type, unsigned int id,
                                  const CParamVal& def, QString& err);
  template <typename T>
  bool getIntegerParam(unsigned char subDevId, const QString& name, const QString& group,
                       unsigned int id, T& val, const T& def, QString& err, CParamDefItem** defOut);
  template <typename T>
  bool getExistingInteger(unsigned char subDevId, const QString& name, T& val, QString& err) const;
  /// A value that is not a number was found: stores the default instead, where that is allowed.
  bool repairValue(unsigned char subDevId, const QString& name, const CParamVal& def);
  void logReadError(const char* operation, const QString& message) const;

  std::unique_ptr<ICLogfile> mOwnLogfile;  ///< null when the application gave one
  ICLogfile* mLogfile;
  SFile mDefFile;
  SFile mValueFile;
  NParamDef::EAccessRight mAccess;
  std::unique_ptr<CParameterFileBaseImpl> mFile;
  unsigned int mParamDefFileVersion;
  unsigned int mParamFileVersion;
  QString mAuthor;
  QString mComment;
};
