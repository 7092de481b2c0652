#pragma once

#include "CParamBaseFile.h"
#include "CSubDeviceTree.h"
#include "NParamDef.h"
#include "NktoGlobal.h"
#include "SParamFinding.h"

#include <QMap>
#include <QPair>

#include <functional>
#include <map>

/// The sub-devices of one hardware id, and the hardware ids of a file.
using CSubDeviceTrees = std::map<quint8, CSubDeviceTree>;
using CHardwareIdTrees = std::map<QString, CSubDeviceTrees>;

QStringList hardwareIdsOf(const CHardwareIdTrees& trees);
/// A deep copy.
CSubDeviceTrees cloneOf(const CSubDeviceTrees& trees);

/// Types and names of sub-devices; one set serves all hardware ids of a file.
struct SSubDeviceLabels {
  QMap<quint8, NParamDef::ESubDeviceTypes> types;
  QMap<quint8, QString> names;
};

/// Reads and writes parameter value files. An object serves one load or one save. After a load that
/// failed the caller's maps hold what was read until then, and are to be thrown away.
class CParamValueFile : public CParamBaseFile {
  Q_DECLARE_TR_FUNCTIONS(CParamValueFile)

 public:
  /// Result of a load.
  enum EResult {
    Ok = 0,
    OpenFailed = 3,           ///< not readable, not well-formed, or the root tag is another
    VersionRejected = 4,      ///< by the error handler
    NoData = 5,               ///< no "Data"
    NoHardwareId = 6,         ///< "Data" without "hardwareId"
    BadParamId = 8,           ///< "id" of a "Param" is not an id
    NoParamName = 9,          ///< "Param" without a usable "Name"
    DoubledParam = 13,        ///< a name twice in one sub-device
    NoParamValue = 24,        ///< "Param" without "Value"
    ParentIsNoGroup = 25,     ///< a group or parameter outside a group
    NoGroupName = 26,         ///< "Group" without a usable "Name"
    HardwareIdRejected = 27,  ///< by the error handler
    NoSubDeviceId = 28,       ///< "SubDevice" without "id"
    BadSubDeviceId = 29,      ///< "id" of a "SubDevice" is not an unsigned 8-bit number
    DoubledSubDevice = 30,    ///< an "id" twice in one "Data"
    NoSubDevice = 31,         ///< no (usable) "SubDevice" in a "Data"
    DoubledHardwareId = 35    ///< a "hardwareId" twice in one file
  };

  CParamValueFile(NktoGlobal::EParamFileType type, ICLogfile* logfile,
                  CParameterFileErrorHandler* errorHandler);

  using CXmlAbstractLumoFile::save;

  /// Loads all hardware ids; the error handler settles which of them hardwareId becomes.
  EResult load(const QString& fileName, const QString& version, CHardwareIdTrees& trees,
               SSubDeviceLabels& labels, QString& hardwareId);
  /// Loads the first hardware id that the error handler accepts, into which hardwareId turns.
  EResult load(const QString& fileName, const QString& version, QString& hardwareId,
               CSubDeviceTrees& trees, SSubDeviceLabels& labels);
  /// Loads the first sub-device of each hardware id as the given one.
  EResult loadAsSubDevId(const QString& fileName, const QString& version, quint8 subDevId,
                         CHardwareIdTrees& trees, SSubDeviceLabels& labels, QString& hardwareId);

  /// Writes all hardware ids; without any, nothing is written, successfully.
  bool save(const QString& fileName, const QString& version, const CHardwareIdTrees& trees,
            const SSubDeviceLabels& labels);
  /// Writes one hardware id.
  bool save(const QString& fileName, const CSubDeviceTrees& trees, const SSubDeviceLabels& labels,
            const QString& hardwareId, const QString& version);

  /// The types and names of sub-devices that a load replaced by those of a later hardware id.
  const CParamFindings& findings() const { return mFindings; }

  bool handleVersionError(const QString& version, const QString& otherVersion) override;

 private:
  /// A type or name of a sub-device, and its line.
  struct SGiven {
    QString text;
    int line = 0;
  };

  /// Reads the sub-devices of one "Data".
  using CSubDeviceReader = std::function<EResult(const CDomElement& data, CSubDeviceTrees& trees)>;

  EResult openValueFile(const QString& fileName, const QString& version);
  EResult loadAll(const QString& fileName, const QString& version, CHardwareIdTrees& trees,
                  QString& hardwareId, const CSubDeviceReader& readSubDevicesOf);
  EResult finish(const QString& fileName, EResult result);
  EResult acceptHardwareId(const QString& fileName, const CHardwareIdTrees& trees,
                           QString& hardwareId);
  EResult readAllDataFromDom(const CDomElement& root, CHardwareIdTrees& trees,
                             const CSubDeviceReader& readSubDevicesOf);
  EResult readSingleDataFromDom(const CDomElement& root, QString& hardwareId,
                                const CSubDeviceReader& readSubDevicesOf);
  EResult readHardwareId(const CDomElement& data, QString& hardwareId);
  EResult readSubDevices(const CDomElement& data, CSubDeviceTrees& trees, SSubDeviceLabels& labels);
  EResult readFirstSubDeviceAsSubDevId(const CDomElement& data, quint8 subDevId,
                                       CSubDeviceTrees& trees, SSubDeviceLabels& labels);
  EResult readSubDevice(const CDomElement& element, quint8 subDevId, CSubDeviceTrees& trees,
                        SSubDeviceLabels& labels);
  void readTypeAndName(const CDomElement& element, quint8 subDevId, SSubDeviceLabels& labels);
  void noteGiven(SParamFinding::ECode code, quint8 subDevId, const CDomElement& given);
  void noteReplaced(SParamFinding::ECode code, quint8 subDevId, const SGiven& earlier,
                    const SGiven& later);
  EResult readGroupsAndParamsFromDom(const CDomElement& element, CSubDeviceTree& tree,
                                     CParamTreeNodeImpl* parent);
  EResult readGroupFromDom(const CDomElement& element, CSubDeviceTree& tree,
                           CParamTreeNodeImpl* parent);
  EResult readParameterFromDom(const CDomElement& element, CSubDeviceTree& tree,
                               CParamTreeNodeImpl* parent);
  EResult readParameterId(const CDomElement& element, quint32& id);
  bool readName(const CDomElement& element, CElementText& name);
  EResult failed(EResult result, const CDomElement& element);
  EResult failed(EResult result, const CDomElement& element, const QString& message);

  bool idsStayApart(const CHardwareIdTrees& trees);
  void appendSubDeviceToDom(CDomElement data, const CSubDeviceTree& tree,
                            const SSubDeviceLabels& labels);
  void appendGroupsAndParamsToDom(CDomElement element, const CParamTreeNodeImpl& group);
  void appendGroupToDom(CDomElement element, const CParamTreeNodeImpl& group);
  void appendParameterToDom(CDomElement element, const CParamTreeNodeImpl& parameter);

  QString mRootTag;
  QString mReadHardwareId;  ///< of the "Data" that is being read
  QMap<QPair<SParamFinding::ECode, quint8>, SGiven> mGiven;
  CParamFindings mFindings;
};
