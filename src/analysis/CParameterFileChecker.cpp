#include "CParameterFileChecker.h"

#include "CDefinitionChecker.h"
#include "CDefinitionLookup.h"
#include "CKeyedMap.h"
#include "CRuleCache.h"
#include "ICParameterFile.h"
#include "SStoredParam.h"

namespace {

/// Checks the hardware ids of a file, one after another.
class CValueChecker {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileChecker)

 public:
  explicit CValueChecker(ICParameterFile& file) : mFile(file), mIndex(file), mRuled(mIndex) {}

  const CParamFindings& findings() const { return mFindings; }

  void checkHardwareId(const QString& hardwareId, bool reportMissing) {
    mHardwareId = hardwareId;
    for (const quint8 subDevId : mFile.subDeviceIds(hardwareId)) checkSubDevice(subDevId);
    if (reportMissing) listMissing();
  }

 private:
  void checkSubDevice(quint8 subDevId) {
    const auto valueOf = [this, subDevId](const QString& name) {
      return mFile.paramValue(mHardwareId, name, subDevId);
    };
    mRuled.beginSubDevice();
    SStoredParam::visit(mFile, mHardwareId, subDevId, mKeys, [&](const SStoredParam& entry) {
      const CRuleCache::SRuled* ruled = mRuled.find(entry.name.view());
      if (ruled == nullptr) {
        addUndefined(subDevId, entry);
        return;
      }
      compareIds(subDevId, entry, ruled->id);
      for (const auto& violation : ruled->rules.violationsOfUtf8(entry.value.view(), valueOf)) {
        add(static_cast<SParamFinding::ECode>(SParamFinding::ValueNotOfType + violation.kind),
            subDevId, entry, violation.text);
      }
    });
  }

  void addUndefined(quint8 subDevId, const SStoredParam& entry) {
    const QString owner = mIndex.shortNameOf(entry.id);
    if (owner.isEmpty()) {
      add(SParamFinding::ParameterNotDefined, subDevId, entry, tr("The parameter is not defined."));
    } else {
      add(SParamFinding::NameMismatch, subDevId, entry,
          tr("The parameter is not defined; the definition of its id %1 has the name \"%2\".")
              .arg(QString::number(entry.id), owner));
    }
  }

  void compareIds(quint8 subDevId, const SStoredParam& entry, quint32 definedId) {
    if (NParamDef::isRealId(entry.id) && NParamDef::isRealId(definedId) && entry.id != definedId) {
      add(SParamFinding::IdMismatch, subDevId, entry,
          tr("The parameter has the id %1, its definition has %2.")
              .arg(QString::number(entry.id), QString::number(definedId)));
    }
  }

  void listMissing() {
    CKeyedSet<QString> present;
    for (const quint8 subDevId : mFile.subDeviceIds(mHardwareId))
      for (const QString& name : mFile.paramNames(mHardwareId, subDevId)) present.insert(name);
    for (const QString& name : mIndex.names()) {
      if (present.count(name) == 0) {
        SStoredParam entry;
        entry.name = CNodeText(name);
        add(SParamFinding::ParameterMissing, SParamFinding::kNoSubDevice, entry,
            tr("The parameter is defined, but no sub-device has it."));
      }
    }
  }

  void add(SParamFinding::ECode code, int subDevId, const SStoredParam& entry,
           const QString& text) {
    mFindings.append({SParamFinding::severityOf(code), code, mHardwareId, subDevId,
                      mKeys.pathOfGroup(entry.group), entry.name.toQString(),
                      entry.value.toQString(), text});
  }

  ICParameterFile& mFile;
  CDefinitionLookup mIndex;
  CRuleCache mRuled;
  CNodeNumbers mKeys;
  QString mHardwareId;
  CParamFindings mFindings;
};

}  // namespace

CParamFindings CParameterFileChecker::checkValues(ICParameterFile& file, const QString& hardwareId,
                                                  EMissing missing) {
  if (!hardwareId.isEmpty() && !file.containsHardwareId(hardwareId)) return {};
  CValueChecker checker(file);
  for (const QString& id : hardwareId.isEmpty() ? file.hardwareIds() : QStringList(hardwareId))
    checker.checkHardwareId(id, missing == ReportMissing);
  return file.loadFindings() + checker.findings();
}

CParamFindings CParameterFileChecker::checkDefinitions(const ICParameterFile& file) {
  CDefinitionLookup index(file);
  return CDefinitionChecker(index).run();
}
