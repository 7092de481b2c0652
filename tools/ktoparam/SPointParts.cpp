#include "SPointParts.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {

SPointParts readPoint(QXmlStreamReader& xml) {
  SPointParts parts;
  while (xml.readNextStartElement()) {
    parts.position = parts.position || xml.name() == QLatin1String("POSITION");
    parts.adjustment = parts.adjustment || xml.name() == QLatin1String("ADJUST");
    parts.error = parts.error || xml.name() == QLatin1String("ERROR");
    xml.skipCurrentElement();
  }
  return parts;
}

bool skipTo(QXmlStreamReader& xml, QLatin1String name) {
  while (xml.readNextStartElement()) {
    if (xml.name() == name) return true;
    xml.skipCurrentElement();
  }
  return false;
}

}  // namespace

QVector<SPointParts> SPointParts::read(const QString& fileName) {
  QVector<SPointParts> points;
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) return points;
  QXmlStreamReader xml(&file);
  xml.readNextStartElement();
  if (!skipTo(xml, QLatin1String("POINTLIST"))) return points;
  while (skipTo(xml, QLatin1String("POINT"))) points.append(readPoint(xml));
  return points;
}
