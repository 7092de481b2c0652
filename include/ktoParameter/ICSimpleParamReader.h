#pragma once

#include "CParamDefItem.h"
#include "CParamVal.h"
#include "NParamDef.h"
#include "NktoGlobal.h"
#include "ktoParameter_export.h"

#include <QList>
#include <QString>
#include <QStringList>

class ICLogfile;
class ICParameterFile;

/// Typed access to the parameters of one pair of files: a definition file (suffix "xpdef") and a
/// value file (suffix "xparam") with the same base name.
///
/// A parameter is named by its sub-device (0 to 255) and its name; the path of the group in which
/// it lies, names separated by "/" or "\", matters only where it is created or deleted. All access
/// is to the active hardware id. What changed is saved by closeFiles() or, at the latest, when the
/// reader is deleted.
///
/// The access right decides what a reader may do: with NParamDef::ReadOnly nothing is changed, with
/// NParamDef::ReadWrite values, types and names of sub-devices, with NParamDef::FullAccess missing
/// files, definitions and values are created too, and groups and parameters may be deleted. It does
/// not hold back addDef(), what is done through paramDefPtr() and parameterFile(), and saving.
///
/// Operations that fail return false. Those with an `err` append messages to it, each with a line
/// break at its end, and never clear it; a message may also come with true, for what was repaired.
/// A reader is used by one thread at a time.
///
/// @snippet usage.cpp ICSimpleParamReader
class KTOPARAMETER_EXPORT ICSimpleParamReader {
 public:
  /// A reader whose parameter file joins the group of all objects of ICParameterFile::create(), so
  /// that values and copies of definitions of other files are found too. What is changed, created
  /// or handed out as a pointer is always this reader's own: the getters with a default look for a
  /// definition here only and create it here, setParam() changes a value here only, and a value of
  /// another file that is not a number is not replaced.
  ///
  /// The caller owns the reader. The hardware id is the one that loading expects and that new
  /// values come under; with an empty one, the first of the value file, which is the smallest. The
  /// logfile is not owned; with a null one the reader has a silent
  /// one of its own. Versions have the major number in the upper 16 bits, the minor in the lower:
  /// 0x10000 is "1.0".
  static ICSimpleParamReader* create(NktoGlobal::EParamFileType fileType, const QString& hardwareId,
                                     NParamDef::EAccessRight access, ICLogfile* logfile,
                                     unsigned int paramDefFileVersion,
                                     unsigned int paramFileVersion);
  /// The same with a parameter file of its own, in no group.
  static ICSimpleParamReader* createSingle(NktoGlobal::EParamFileType fileType,
                                           const QString& hardwareId,
                                           NParamDef::EAccessRight access, ICLogfile* logfile,
                                           unsigned int paramDefFileVersion,
                                           unsigned int paramFileVersion);
  /// Saves what changed, as saveFiles() does.
  virtual ~ICSimpleParamReader();

  // --- Files

  /// The versions that loading expects and saving writes; a new one counts from the next of these.
  virtual void setParamDefFileVersion(unsigned int version) = 0;
  virtual unsigned int paramDefFileVersion() const = 0;
  virtual void setParamFileVersion(unsigned int version) = 0;
  virtual unsigned int paramFileVersion() const = 0;

  /// Loads a definition file and a value file; a name without any suffix gets "xpdef" and "xparam".
  /// With FullAccess a file that cannot be loaded is reported in `err` but tolerated; a save writes
  /// it when something of it was created or changed by then. Otherwise it ends the loading with
  /// false. The names of the files are taken in any case.
  ///
  /// Without closeFiles() before it, a load adds to what is there: the file's definitions and
  /// values replace those of the same names, and changes that were not saved go to the new files
  /// with the next save.
  virtual bool load(const QString& defFile, const QString& paramFile, QString& err) = 0;
  /// Loads the pair of a path to either file, or to both without the suffix: the last suffix is
  /// taken off, and then names are made as above. So a base name with a dot in it, which looks like
  /// a suffix, means one file for both, which saveFiles() refuses; use the form with two names.
  virtual bool load(const QString& path, QString& err) = 0;
  virtual QString paramDefFileName() const = 0;  ///< empty before load() and after closeFiles()
  virtual QString paramFileName() const = 0;     ///< likewise
  /// The file object of the reader, which owns it. Changes made through it are saved too,
  /// whatever the access right.
  virtual ICParameterFile* parameterFile() const = 0;
  /// Author and comment, from the next save on, of those files that were not loaded.
  virtual void setMetaData(const QString& author, const QString& comment) = 0;

  /// Something changed since the reader was made or closed. Neither a load nor a save resets this.
  virtual bool changed() const = 0;
  /// Writes each file in which something changed, one independent of the other. False when one
  /// could not be written, which is then the file it was; the reason is logged, posted to the
  /// message board and, of the last one that failed, parameterFile()->errorMsg(). When both names
  /// lead to one file, links included, nothing is written. A file that could not be loaded is kept
  /// under its name and ".bak" (".bak.1" and so on when there is one) before it is replaced, which
  /// is posted too; when it cannot be kept, it is not replaced. Without any value no value file is
  /// written, successfully; types and names of sub-devices are not saved then, which is logged.
  virtual bool saveFiles() = 0;
  /// Saves what changed, or drops it, and empties the reader in either case, so that it can load
  /// again; returns what saving did. What could not be saved is lost then: call saveFiles() first
  /// where it must not be. The hardware id is empty then too: the next load takes the
  /// first of its file, unless parameterFile()->addHardwareId() names one before.
  virtual bool closeFiles(bool save) = 0;

  virtual NParamDef::EAccessRight accessRights() const = 0;
  virtual void setAccessRights(NParamDef::EAccessRight access) = 0;

  // --- Hardware ids

  virtual QString hardwareId() const = 0;  ///< the active one
  virtual QStringList hardwareIds() const = 0;
  /// False for an id that does not exist; with FullAccess it is made the active one instead.
  virtual bool selectHardwareId(const QString& hardwareId) = 0;

  // --- Definitions and sub-devices, as ICParameterFile has them

  virtual unsigned int idByName(const QString& name) const = 0;  ///< 0xFFFFFFFF for an unknown one
  virtual QString nameById(unsigned int id) const = 0;           ///< empty for an unknown one
  /// A definition whose id is not 0xFFFFFFFF; 0, which means no id too, counts.
  virtual bool containsDef(const QString& name) const = 0;
  virtual bool containsVal(const QString& name, unsigned char subDevId) const = 0;
  /// A copy; invalid for an unknown name.
  virtual CParamDefItem paramDef(const QString& name) const = 0;
  /// The definition itself, valid until closeFiles() or deletion, changes of which are saved; null
  /// for an unknown name.
  virtual CParamDefItem* paramDefPtr(const QString& name) = 0;

  virtual QList<unsigned char> subDeviceIds() const = 0;
  virtual QList<unsigned char> subDeviceIds(NParamDef::ESubDeviceTypes type) const = 0;
  virtual NParamDef::ESubDeviceTypes subDevType(unsigned char subDevId) const = 0;
  /// With ReadOnly nothing happens; likewise for the name.
  virtual void setSubDevType(unsigned char subDevId, NParamDef::ESubDeviceTypes type) = 0;
  virtual QString subDevName(unsigned char subDevId) const = 0;
  virtual void setSubDevName(unsigned char subDevId, const QString& name) = 0;

  /// Adds a definition, whatever the access right. Null for an empty name, a name that is known, or
  /// an id that another name has; parameterFile()->errorMsg() tells which.
  virtual CParamDefItem* addDef(const CParamDefItem& definition) = 0;
  virtual CParamDefItem* addDef(const QString& name, NParamDef::EParamType type,
                                unsigned int id) = 0;

  // --- Getters with a default. `def` is the default, `id` the id of a definition that has to be
  // created, and `defOut`, unless null, gets the definition (null when there is none).
  //
  // With FullAccess a missing definition is created with the type and the default, a missing value
  // with the default in the group, whose path is created too. Without, both are failures. So is an
  // id that another definition has: neither is created then. A path of which a piece names a
  // parameter is not a failure: the definition is created, but the value is not, and `val` is the
  // default; parameterFile()->errorMsg() tells of it.

  /// `val` becomes the value as it is stored, or the default when there is none.
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        NParamDef::EParamType type, CParamVal& val, CParamVal def, QString& err,
                        unsigned int id = 0, CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        QString& val, const QString& def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;

  /// A number. A default is stored with 15 significant digits, so that `val`, which is what is
  /// stored, may differ from it in the last bits. A missing definition or value leaves `val` as it
  /// is, without FullAccess. A stored text that is not a number, or out of the type's range, gives
  /// the default and a message; it is also replaced by the default, except with ReadOnly, where the
  /// result is false.
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        double& val, double def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;

  /// The same for integers. With FullAccess a definition without a minimum, or a maximum, gets that
  /// of the type. Values are not compared with the definition's range.
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        unsigned char& val, unsigned char def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        unsigned short& val, unsigned short def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        unsigned int& val, unsigned int def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        unsigned long long& val, unsigned long long def, QString& err,
                        unsigned int id = 0, CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        signed char& val, signed char def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        short& val, short def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group, int& val,
                        int def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, const QString& group,
                        long long& val, long long def, QString& err, unsigned int id = 0,
                        CParamDefItem** defOut = nullptr) = 0;

  // --- Deleting, which needs FullAccess. What does not exist is a warning in `err`, not a failure;
  // nor is the root group (an empty path), which is not deleted. Definitions stay.

  /// Deletes a group and all below it.
  virtual bool deleteGroup(unsigned char subDevId, const QString& group, QString& err) = 0;
  /// Deletes a parameter that lies directly in the group.
  virtual bool deleteParam(unsigned char subDevId, const QString& name, const QString& group,
                           QString& err) = 0;

  // --- Getters of values that must be there; nothing is ever created, changed or defaulted. On
  // failure `val` stays as it is, except that the CParamVal becomes null.

  virtual bool getParam(unsigned char subDevId, const QString& name, CParamVal& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, QString& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, double& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, unsigned char& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, unsigned short& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, unsigned int& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, unsigned long long& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, signed char& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, short& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, int& val,
                        QString& err) const = 0;
  virtual bool getParam(unsigned char subDevId, const QString& name, long long& val,
                        QString& err) const = 0;

  /// As paramDefPtr(), with the reason in `err` when it is null.
  virtual CParamDefItem* paramDefPtr(const QString& name, QString& err) = 0;
  /// Changes a value that exists; refused with ReadOnly. The text is stored as it is, unchecked.
  virtual bool setParam(unsigned char subDevId, const QString& name, const CParamVal& val,
                        QString& err) = 0;

 protected:
  ICSimpleParamReader() = default;

 private:
  Q_DISABLE_COPY(ICSimpleParamReader)
};
