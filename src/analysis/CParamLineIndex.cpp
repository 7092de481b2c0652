#include "CParamLineIndex.h"

#include "CAtomicFile.h"
#include "CDomDoc.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

namespace {

QString nameOf(const CDomElement& element) {
  return CDomDoc::existingSubElementAsString(TAG_NAME, element, QString());
}

/// Of several with one name, the first stays.
void addParameters(const CDomElement& element, QHash<QString, int>& lines) {
  for (CDomElement child = element.firstChildElement(); !child.isNull();
       child = child.nextSiblingElement()) {
    if (child.hasTag(TAG_GROUP)) {
      addParameters(child, lines);
    } else if (const QString name = nameOf(child);
               child.hasTag(TAG_PARAM) && !lines.contains(name)) {
      lines.insert(name, child.lineNumber());
    }
  }
}

}  // namespace

bool CParamLineIndex::read(const QString& fileName) {
  *this = CParamLineIndex();
  QByteArray content;
  CDomDoc doc;
  if (!CAtomicFile::read(fileName, content, mErrorMsg) || !doc.setContent(content, mErrorMsg)) {
    return false;
  }
  const CDomElement root = doc.documentElement();
  CDomElement data = root.firstChildElement(TAG_DATA);
  if (data.isNull()) {
    mErrorMsg = tr("The file is neither a definition file nor a value file.");
    return false;
  }
  if (root.hasTag(TAG_ROOT_PARAM_DEFINITION)) {
    addParameters(data, mDefinitions);
    return true;
  }
  for (; !data.isNull(); data = data.nextSiblingElement(TAG_DATA)) {
    SHardwareId& hardwareId = mHardwareIds[data.attribute(ATTR_HARDWARE_ID).trimmed()];
    hardwareId.line = data.lineNumber();
    for (CDomElement element = data.firstChildElement(TAG_SUB_DEVICE); !element.isNull();
         element = element.nextSiblingElement(TAG_SUB_DEVICE)) {
      quint8 subDevId = 0;
      if (CStr::strToU8(element.attribute(ATTR_ID), subDevId)) {
        addParameters(element, hardwareId.subDevices[subDevId]);
      }
    }
  }
  return true;
}

int CParamLineIndex::hardwareIdLine(const QString& hardwareId) const {
  const auto found = mHardwareIds.find(hardwareId);
  return found != mHardwareIds.end() ? found->line : 0;
}

int CParamLineIndex::parameterLine(const QString& hardwareId, quint8 subDevId,
                                   const QString& name) const {
  const auto found = mHardwareIds.find(hardwareId);
  if (found == mHardwareIds.end()) {
    return 0;
  }
  const auto names = found->subDevices.find(subDevId);
  return names != found->subDevices.end() ? names->value(name) : 0;
}

void CParamLineIndex::addLines(CParamFindings& findings) const {
  for (SParamFinding& finding : findings) {
    int line = 0;
    if (finding.code >= SParamFinding::SubDeviceTypeReplaced) {
      continue;  // found with its line
    }
    if (finding.subDevId != SParamFinding::kNoSubDevice) {
      line = parameterLine(finding.hardwareId, static_cast<quint8>(finding.subDevId), finding.name);
    } else {
      line = finding.code == SParamFinding::ParameterMissing ? hardwareIdLine(finding.hardwareId)
                                                             : definitionLine(finding.name);
    }
    finding.line = line > 0 ? line : finding.line;
  }
}
