#include "NFindings.h"

#include "Output.h"

QString NFindings::place(const SParamFinding& finding, const CLabels& labels) {
  QStringList parts;
  if (!finding.hardwareId.isEmpty()) parts.append(labels.shown(finding.hardwareId));
  if (finding.subDevId != SParamFinding::kNoSubDevice)
    parts.append(Tool::tr("sub-device %1").arg(finding.subDevId));
  const QString group =
      finding.groupPath.isEmpty() ? QString() : finding.groupPath + QLatin1Char('/');
  if (!finding.name.isEmpty()) parts.append(NDisplayText::shown(group + labels.of(finding.name)));
  return parts.join(QLatin1String(", "));
}

QString NFindings::line(const SParamFinding& finding, const QString& severity,
                        const CLabels& labels) {
  return QStringLiteral("%1: %2: %3 [%4]")
      .arg(severity, place(finding, labels), NDisplayText::escaped(finding.text),
           SParamFinding::codeText(finding.code));
}

QJsonObject NFindings::toJson(const QString& fileName, const SParamFinding& finding,
                              const CLabels& labels) {
  const bool hasSubDevice = finding.subDevId != SParamFinding::kNoSubDevice;
  return {{"file", fileName},
          {"line", finding.line > 0 ? QJsonValue(finding.line) : QJsonValue()},
          {"severity", SParamFinding::severityText(finding.severity)},
          {"code", SParamFinding::codeText(finding.code)},
          {"hardwareId", labels.of(finding.hardwareId)},
          {"subDevice", hasSubDevice ? QJsonValue(finding.subDevId) : QJsonValue()},
          {"group", finding.groupPath},
          {"name", labels.of(finding.name)},
          {"value", finding.value},
          {"text", finding.text}};
}
