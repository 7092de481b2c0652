#include "CParamLineIndex.h"

#include "CAtomicFile.h"
#include "CDomDoc.h"
#include "CKeyedMap.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

#include <map>

using namespace NLumoXmlTags;

namespace {

using CNames = CKeyedMap<QString, int>;

QString nameOf(const CDomElement& element) {
  return CDomDoc::existingSubElementAsString(TAG_NAME, element, QString());
}

/// Of several with one name, the first stays.
void addParameters(const CDomElement& element, CNames& lines) {
  for (CDomElement child = element.firstChildElement(); !child.isNull();
       child = child.nextSiblingElement()) {
    if (child.hasTag(TAG_GROUP))
      addParameters(child, lines);
    else if (child.hasTag(TAG_PARAM))
      lines.try_emplace(nameOf(child), child.lineNumber());
  }
}

/// 0 for an unknown name.
int lineOf(const CNames& lines, const QString& name) {
  const auto found = lines.find(name);
  return found != lines.end() ? found->second : 0;
}

}  // namespace

struct CParamLineIndex::SLines {
  struct SHardwareId {
    int line = 0;
    std::map<quint8, CNames> subDevices;

    int lineOf(quint8 subDevId, const QString& name) const {
      const auto names = subDevices.find(subDevId);
      return names != subDevices.end() ? ::lineOf(names->second, name) : 0;
    }
  };

  CNames definitions;
  CKeyedMap<QString, SHardwareId> hardwareIds;

  /// One without lines for an unknown id.
  const SHardwareId& find(const QString& hardwareId) const {
    static const SHardwareId kNone;
    const auto found = hardwareIds.find(hardwareId);
    return found != hardwareIds.end() ? found->second : kNone;
  }
};

bool CParamLineIndex::read(const QString& fileName) {
  *this = CParamLineIndex();
  QByteArray content;
  CDomDoc doc;
  if (!CAtomicFile::read(fileName, content, mErrorMsg) || !doc.setContent(content, mErrorMsg))
    return false;
  const CDomElement root = doc.documentElement();
  CDomElement data = root.firstChildElement(TAG_DATA);
  if (data.isNull()) {
    mErrorMsg = tr("The file is neither a definition file nor a value file.");
    return false;
  }
  const auto lines = std::make_shared<SLines>();
  mLines = lines;
  if (root.hasTag(TAG_ROOT_PARAM_DEFINITION)) {
    addParameters(data, lines->definitions);
    return true;
  }
  for (; !data.isNull(); data = data.nextSiblingElement(TAG_DATA)) {
    SLines::SHardwareId& hardwareId =
        lines->hardwareIds[data.attribute(ATTR_HARDWARE_ID).trimmed()];
    hardwareId.line = data.lineNumber();
    for (CDomElement element = data.firstChildElement(TAG_SUB_DEVICE); !element.isNull();
         element = element.nextSiblingElement(TAG_SUB_DEVICE)) {
      quint8 subDevId = 0;
      if (CStr::strToU8(element.attribute(ATTR_ID), subDevId))
        addParameters(element, hardwareId.subDevices[subDevId]);
    }
  }
  return true;
}

int CParamLineIndex::definitionLine(const QString& name) const {
  return mLines ? lineOf(mLines->definitions, name) : 0;
}

int CParamLineIndex::hardwareIdLine(const QString& hardwareId) const {
  return mLines ? mLines->find(hardwareId).line : 0;
}

int CParamLineIndex::parameterLine(const QString& hardwareId, quint8 subDevId,
                                   const QString& name) const {
  return mLines ? mLines->find(hardwareId).lineOf(subDevId, name) : 0;
}

void CParamLineIndex::addLines(CParamFindings& findings) const {
  if (!mLines) return;
  // Looked up once for all that follow each other, since a name may be as long as the file.
  QString id;
  const SLines::SHardwareId* hardwareId = &mLines->find(id);
  for (SParamFinding& finding : findings) {
    if (finding.hardwareId != id) {
      id = finding.hardwareId;
      hardwareId = &mLines->find(id);
    }
    int line = 0;
    if (finding.code >= SParamFinding::SubDeviceTypeReplaced) continue;  // found with its line
    if (finding.subDevId != SParamFinding::kNoSubDevice) {
      line = hardwareId->lineOf(static_cast<quint8>(finding.subDevId), finding.name);
    } else {
      line = finding.code == SParamFinding::ParameterMissing ? hardwareId->line
                                                             : definitionLine(finding.name);
    }
    finding.line = line > 0 ? line : finding.line;
  }
}
