#pragma once

#include "CParamDefItem.h"
#include "CParamVal.h"
#include "ICParamTreeNode.h"
#include "NParamDef.h"
#include "NktoGlobal.h"
#include "SParamFinding.h"
#include "ktoParameter_export.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

class CParameterFileErrorHandler;
class ICLogfile;

/// The parameters of one device: definitions, and for each hardware id and sub-device a tree of
/// groups and parameters with their values.
///
/// A *hardware id* names a variant of the device; one of them is active, and access to values
/// and trees works on it unless another is named. They are sorted as texts: the first one, of an
/// object or a file, is the smallest, wherever it is in the file. A *sub-device* is a part of the
/// device, such as one axis, with an id of 0 to 255; a parameter's name is unique within its
/// sub-device, across all groups.
///
/// Operations that can fail return false, null or an unset id and leave the reason in errorMsg(),
/// which a success does not clear; the object is then what it was before, except where an operation
/// says otherwise. An object is used by one thread at a time.
///
/// @snippet usage.cpp ICParameterFile
class KTOPARAMETER_EXPORT ICParameterFile {
 public:
  /// The texts of NParamDef::ESubDeviceTypes, in order.
  static const QStringList mSubDevTypeStrings;

  // --- Factories: the caller owns the object. The logfile may be null and is not owned.

  /// An object that joins the one group of all objects made by this function: each of them looks up
  /// names, copies of definitions, values and references in all of them, in the order of their
  /// construction. Everything else is of one object alone: pointers to definitions, lists of names,
  /// edits, imports, loads and saves.
  /// Such objects share their group without a lock, so they are made, used and deleted on one
  /// thread.
  static ICParameterFile* create(NktoGlobal::EParamFileType type, ICLogfile* logfile);
  /// An object that joins the group of its parent; without a parent, or with one that belongs to
  /// none, it starts a group.
  static ICParameterFile* createGroup(ICParameterFile* parent, NktoGlobal::EParamFileType type,
                                      ICLogfile* logfile);
  /// An object of its own, in no group.
  static ICParameterFile* createSingle(NktoGlobal::EParamFileType type, ICLogfile* logfile);

  /// The root tag of a file type; empty for a value that is not a type.
  static QString fileTypeToStr(NktoGlobal::EParamFileType type);
  /// The file type whose root tag occurs in the text, of several the one that comes first;
  /// FILE_TYPE_NONE when there is none.
  static NktoGlobal::EParamFileType fileTypeFromStr(const QString& text);
  /// "Undefined", "Device", "PowerSupply" or "Drive"; "Undefined" for any other value.
  static QString subDeviceTypeToStr(NParamDef::ESubDeviceTypes type);
  static NParamDef::ESubDeviceTypes subDeviceTypeFromStr(const QString& text);

  virtual ~ICParameterFile();

  /// Installs a handler, which is not owned and must outlive its use here; it is told this object
  /// with setParameterFile(). Null goes back to the object's own handler. A handler that is asked
  /// may change this object, clear it, or install another one, which is asked from then on.
  virtual void setErrorHandler(CParameterFileErrorHandler* handler) = 0;

  virtual NktoGlobal::EParamFileType fileType() const = 0;
  virtual void setFileType(NktoGlobal::EParamFileType type) = 0;

  /// Empties everything. Definitions and nodes handed out before are no longer valid.
  virtual void clear() = 0;
  virtual bool isDefEmpty() const = 0;
  /// Text of the last error; empty before the first one and after clear().
  virtual QString errorMsg() const = 0;
  /// The revision that was given to the load of the last value file, whatever the file says:
  /// major number in the upper 16 bits, minor number in the lower; 0 when none was loaded.
  virtual quint32 paramFileVersion() const = 0;

  // --- Hardware ids

  virtual QString hardwareId() const = 0;  ///< the active one, which may not exist; empty for none
  /// All ids that have a sub-device, be it an empty one, in ascending order.
  virtual QStringList hardwareIds() const = 0;
  virtual bool containsHardwareId(const QString& hardwareId) const = 0;
  virtual bool selectHardwareId(const QString& hardwareId) = 0;
  /// Makes a new id the active one. It exists as soon as it has a sub-device, such as rootGroup()
  /// makes.
  virtual bool addHardwareId(const QString& hardwareId) = 0;
  /// Refuses the active id. A removed id counts as changed.
  virtual bool removeHardwareId(const QString& hardwareId) = 0;
  virtual bool renameHardwareId(const QString& oldId, const QString& newId) = 0;
  /// Copies trees and values to a new id, which becomes active.
  virtual bool cloneHardwareId(const QString& source, const QString& target) = 0;
  /// Copies the trees and values of a hardware id of another object, which becomes active here and
  /// must be new. Types and names of sub-devices are not copied.
  virtual bool cloneHardwareIdFromInstance(const QString& hardwareId, ICParameterFile* other) = 0;

  // --- Files. A revision is the file's version, as paramFileVersion() packs it; 0x10000 is "1.0".
  // A load expects it: unless the error handler decides otherwise, only the major number counts,
  // and a file without a version is loaded. The author, comment and date of the definitions, or of
  // the values, become the file's.

  /// Adds a file's definitions; one that is known by its name is replaced by the file's. Marks
  /// nothing changed.
  virtual bool loadParamDefFile(const QString& fileName, quint32 revision) = 0;
  /// Adds a file's values: a group is merged into the one of its name, a value that is there takes
  /// the file's. The active hardware id becomes the given one, or the file's first for an empty
  /// one; one that the error handler settles becomes active even when the file does not have it.
  /// Marks nothing changed.
  virtual bool loadParamFile(const QString& fileName, const QString& hardwareId,
                             quint32 revision) = 0;
  /// As loadParamFile(), with the first sub-device of each hardware id of the file under the given
  /// sub-device id.
  virtual bool loadParamFileAsSubDevId(const QString& fileName, quint8 subDevId,
                                       const QString& hardwareId, quint32 revision) = 0;

  // Imports. What is defined, this object itself defines, not another one of its group. A file is
  // expected to have the version paramFileVersion(), or any when that is 0. A value stays as it is
  // when it has the source's text or, for an unsigned type, when both convert to the same number
  // (CParamValueRules::mayStay()).

  /// Takes values over, all or nothing. Every parameter of the destination gets the source's value
  /// of the same sub-device and name, or else what `missing` says; parameters that this object
  /// defines and only the source holds are added, undefined ones are skipped. An empty source id is
  /// the source's first, an empty destination the active one; one that was added and holds nothing
  /// gets its trees now. A source id that the source does not have fails, also when the error
  /// handler accepted it. Counts are in importResult(), names in the list of the imports below.
  virtual bool importParamFile(const QString& fileName, const QString& sourceHardwareId,
                               const QString& destinationHardwareId,
                               NParamDef::EImportMissing missing = NParamDef::ImportDefault) = 0;
  virtual bool importParamFile(ICParameterFile* source, const QString& sourceHardwareId,
                               const QString& destinationHardwareId,
                               NParamDef::EImportMissing missing = NParamDef::ImportDefault) = 0;

  // --- Changes since loading or clearChanged(). A save does not touch them.

  /// A definition was added, or changed through a pointer that was handed out.
  virtual bool defChanged() const = 0;
  virtual bool paramChanged(const QString& hardwareId) const = 0;
  /// The hardware ids of which values, trees, or types and names of sub-devices changed, or which
  /// were made, renamed to or removed, in the order of their first change.
  virtual QStringList changedList() const = 0;
  virtual bool isChanged() const = 0;
  virtual void clearChanged() = 0;

  /// Writes all definitions of this object, by id and then by name. Fails when the file could not
  /// be read again: when two definitions have one id or one name, when a name is reserved, when a
  /// minimum exceeds its maximum, for a text that XML cannot hold and for a document that is too
  /// large.
  virtual bool saveParamDefFile(const QString& fileName, quint32 revision) = 0;
  /// Writes one hardware id, and none of the others that the file may have had, or all of them for
  /// an empty one. Without any hardware id nothing is written, successfully. Fails for an id that
  /// does not exist, and when the file could not be read again: when hardware ids differ in nothing
  /// but blanks around them, for a text that XML cannot hold and for a document that is too large.
  virtual bool saveParamFile(const QString& fileName, const QString& hardwareId,
                             quint32 revision) = 0;

  // --- Head of the definition file and of the value file. Setting it marks nothing changed. A save
  // writes its own day as the date, and the author "RX5" with the comment "automatic generated"
  // when both texts are empty.

  virtual QString defAuthor() const = 0;
  virtual QString defComment() const = 0;
  virtual QDate defDate() const = 0;
  virtual QString author() const = 0;
  virtual QString comment() const = 0;
  virtual QDate date() const = 0;
  virtual void setDefMetaData(const QString& author, const QString& comment) = 0;
  virtual void setMetaData(const QString& author, const QString& comment) = 0;

  // --- Sub-device types and names, which all hardware ids share: where those of a file differ, the
  // last one counts, and loadFindings() tells

  virtual NParamDef::ESubDeviceTypes subDevType(quint8 subDevId) const = 0;
  /// Marks the active hardware id changed when the stored type changes; likewise the name.
  virtual void setSubDevType(quint8 subDevId, NParamDef::ESubDeviceTypes type) = 0;
  virtual QString subDevName(quint8 subDevId) const = 0;
  virtual void setSubDevName(quint8 subDevId, const QString& name) = 0;

  // --- Definitions and values. 0 and 0xFFFFFFFF mean "no id": several definitions may have them,
  // and by them, as by an unknown id, no name, definition or value is found, with a message.

  /// The definition's id, which may mean "no id". 0xFFFFFFFF and a message for an unknown name.
  virtual quint32 idByName(const QString& name) const = 0;
  /// An empty text for an unknown id.
  virtual QString nameById(quint32 id) const = 0;
  /// The parameters of a sub-device, in tree order.
  virtual QStringList paramNames(quint8 subDevId) const = 0;
  /// A copy; nameless and without an id for an unknown name or id.
  virtual CParamDefItem paramDef(const QString& name) const = 0;
  /// The stored definition, valid until clear() or destruction; changes through it set
  /// defChanged(). A new name or id counts at once, and the old one finds nothing. When that makes
  /// two definitions share one, the one that got it last is found, and saveParamDefFile() fails.
  /// Null and a message for an unknown name.
  virtual CParamDefItem* paramDefPtr(const QString& name) = 0;
  virtual CParamDefItem paramDef(quint32 id) const = 0;
  /// The value; null when there is none, since a null value is stored as an empty text.
  virtual CParamVal paramValue(const QString& name, quint8 subDevId) const = 0;
  virtual CParamVal paramValue(quint32 id, quint8 subDevId) const = 0;
  /// Whether a definition refers to this one. Those count that were loaded from a file, have an id
  /// other than 0 and are visible by the values of a parameter: they refer to that parameter, and
  /// to the one of their unit (the id 0 when they have none). What edits add or remove does not
  /// count, and nothing is forgotten before clear(). By name, this is asked with the definition's
  /// id: nothing refers to a definition without one.
  virtual bool isReferenced(const QString& name) const = 0;
  virtual bool isReferenced(quint32 id) const = 0;
  /// Ids of the definitions that refer to this one.
  virtual QList<quint32> referencedBy(const QString& name) const = 0;
  virtual QList<quint32> referencedBy(quint32 id) const = 0;
  /// Replaces an existing value and marks the active hardware id changed, even by an equal value.
  virtual bool setParamValue(const QString& name, const CParamVal& value, quint8 subDevId) = 0;
  virtual bool setParamValue(quint32 id, const CParamVal& value, quint8 subDevId) = 0;

  /// Adds a definition and returns it as paramDefPtr() does. Null and a message for an empty or
  /// reserved name, a name that is known, or an id that another definition has (0 and 0xFFFFFFFF
  /// are not ids).
  virtual CParamDefItem* addDef(const CParamDefItem& definition) = 0;
  virtual CParamDefItem* addDef(const QString& name, NParamDef::EParamType type, quint32 id) = 0;

  // --- Sub-devices and trees of the active hardware id. Nodes are owned by this object.

  /// In ascending order.
  virtual QList<quint8> subDeviceIds() const = 0;
  virtual QList<quint8> subDeviceIds(NParamDef::ESubDeviceTypes type) const = 0;
  virtual bool doesSubDeviceExist(quint8 subDevId) const = 0;

  /// The root group, created empty when missing, which marks nothing changed.
  virtual ICParamTreeNode* rootGroup(quint8 subDevId) = 0;
  /// The group at a path of names separated by "/" or "\", with the groups of the path that were
  /// missing, the sub-device too. Empty pieces are skipped, an empty path is the root group. Null
  /// and a message, and nothing is created, when a piece of the path names a parameter or cannot
  /// name a group, or when groups would be nested deeper than 1,019.
  virtual ICParamTreeNode* subGroup(const QString& path, quint8 subDevId) = 0;
  /// As subGroup(), but creates nothing: null when there is no such group.
  virtual ICParamTreeNode* existingSubGroup(const QString& path, quint8 subDevId) = 0;
  /// The group of that name in a group, created when missing. Null and a message when the parent
  /// holds a parameter of that name or is not a group of the active hardware id, for an empty or
  /// reserved name, and when groups would be nested deeper than 1,019.
  virtual ICParamTreeNode* addGroup(ICParamTreeNode* parent, const QString& name) = 0;
  /// Adds a defined parameter with its default, or the value given. Null and a message when it is
  /// not defined, when its name is taken anywhere in the sub-device, or for a wrong parent.
  virtual ICParamTreeNode* addParameter(ICParamTreeNode* parent, const QString& name) = 0;
  virtual ICParamTreeNode* addParameter(ICParamTreeNode* parent, const QString& name,
                                        const CParamVal& value) = 0;
  /// The parameter of that name below a node, at any depth; null when there is none.
  virtual ICParamTreeNode* findParameter(ICParamTreeNode* node, const QString& name) const = 0;
  /// Deletes a node of the active hardware id, all below it and their values. Refuses a root.
  virtual bool deleteNode(ICParamTreeNode* node) = 0;

  /// Sets every parameter below a node to its definition's default; one that is not defined is
  /// emptied. Stops, with false, at the first that cannot be set, an empty group included: those
  /// before it are then set. The values are always those of this object's active hardware id: of a
  /// node that lies elsewhere only the names and sub-device ids are taken. False, without a
  /// message, for null.
  virtual bool loadDefaultValues(ICParamTreeNode* node) = 0;
  /// The same for all sub-devices of the active hardware id.
  virtual bool loadDefaultValues() = 0;
  /// Removes the properties of a node and of all below it, or of all nodes of the active hardware
  /// id.
  virtual void removeAllProperties(ICParamTreeNode* node) = 0;
  virtual void removeAllProperties() = 0;

  // --- Added later. The order of all virtual operations is fixed: new ones go to the end.

  /// The line, from 1, of the element for which the load or import failed that errorMsg() tells
  /// of; 0 when it tells of something else, when there is no such element, or when the text itself
  /// names the line.
  virtual int errorLine() const = 0;
  virtual NParamDef::SImportResult importResult() const = 0;  ///< of the last that succeeded
  /// The names of all definitions, by id and then by name.
  virtual QStringList defNames() const = 0;
  /// Makes the target's tree and values a deep copy of the source's; nodes of the target are no
  /// longer valid. The target keeps its type and name when it has them.
  virtual bool copySubDevice(quint8 source, quint8 target) = 0;
  /// As setParamValue(), but an equal value (compared as CParameterFileHelper::compareValues()
  /// does, so that a text which is not a number counts as 0 for unsigned types and is not replaced
  /// by 0) changes nothing; a changed one gets the property NParamDef::PROPERTY_CHANGED on its
  /// node. False when there is no such value, with a message only for an unknown id.
  virtual bool setAndMarkParamValue(const QString& name, const CParamVal& value,
                                    quint8 subDevId) = 0;
  virtual bool setAndMarkParamValue(quint32 id, const CParamVal& value, quint8 subDevId) = 0;
  /// Puts a hardware id on the changed list.
  virtual void setHwIdChanged(const QString& hardwareId) = 0;
  /// What the last value file that was loaded holds and a save would not write again: types and
  /// names of sub-devices that its later hardware ids replaced, with their lines in it.
  virtual CParamFindings loadFindings() const = 0;
  /// Whether the file of this name holds other bytes than when this object last loaded it, as
  /// definitions or as values, or saved it, or cannot be read any more. False when it was only
  /// touched or replaced by an equal one, and for a name of which this object has neither loaded
  /// nor saved anything since clear(). Reads the whole file. Between this question and a save it
  /// may still change, unless a CFolderLock is held.
  virtual bool hasChangedOnDisk(const QString& fileName) const = 0;
  /// The same imports, which also tell what was done to each parameter, by sub-device: first those
  /// that the destination had, in the order of its tree, then those that only the source has, in
  /// the order of its tree; at the end the sub-devices that only the source has. Each is listed
  /// once, also those that were left as they are. An import that fails leaves the list as it was.
  virtual bool importParamFile(const QString& fileName, const QString& sourceHardwareId,
                               const QString& destinationHardwareId,
                               NParamDef::EImportMissing missing,
                               NParamDef::CImportedParams& imported) = 0;
  virtual bool importParamFile(ICParameterFile* source, const QString& sourceHardwareId,
                               const QString& destinationHardwareId,
                               NParamDef::EImportMissing missing,
                               NParamDef::CImportedParams& imported) = 0;

  // The operations of these names without a hardware id, for any that exists; what is said there
  // of the active one holds for this one, which is not selected. Of a hardware id that does not
  // exist there is nothing, and nothing is made in it. In a group of objects, the others give the
  // values of their own active ones.

  virtual QStringList paramNames(const QString& hardwareId, quint8 subDevId) const = 0;
  virtual CParamVal paramValue(const QString& hardwareId, const QString& name,
                               quint8 subDevId) const = 0;
  virtual bool setParamValue(const QString& hardwareId, const QString& name, const CParamVal& value,
                             quint8 subDevId) = 0;
  virtual bool setAndMarkParamValue(const QString& hardwareId, const QString& name,
                                    const CParamVal& value, quint8 subDevId) = 0;
  virtual QList<quint8> subDeviceIds(const QString& hardwareId) const = 0;
  virtual bool doesSubDeviceExist(const QString& hardwareId, quint8 subDevId) const = 0;
  virtual bool copySubDevice(const QString& hardwareId, quint8 source, quint8 target) = 0;
  virtual ICParamTreeNode* rootGroup(const QString& hardwareId, quint8 subDevId) = 0;
  virtual ICParamTreeNode* subGroup(const QString& hardwareId, const QString& path,
                                    quint8 subDevId) = 0;
  virtual ICParamTreeNode* existingSubGroup(const QString& hardwareId, const QString& path,
                                            quint8 subDevId) = 0;
  virtual ICParamTreeNode* addGroup(const QString& hardwareId, ICParamTreeNode* parent,
                                    const QString& name) = 0;
  virtual ICParamTreeNode* addParameter(const QString& hardwareId, ICParamTreeNode* parent,
                                        const QString& name) = 0;
  virtual ICParamTreeNode* addParameter(const QString& hardwareId, ICParamTreeNode* parent,
                                        const QString& name, const CParamVal& value) = 0;
  virtual bool deleteNode(const QString& hardwareId, ICParamTreeNode* node) = 0;

 protected:
  ICParameterFile() = default;

 private:
  Q_DISABLE_COPY(ICParameterFile)
};
