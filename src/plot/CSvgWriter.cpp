#include "CSvgWriter.h"

#include "NDisplayText.h"

namespace {

const QLatin1String kNamespace("http://www.w3.org/2000/svg");
constexpr double kPointsPerMm = 72 / 25.4;
constexpr double kColumnWidth = 0.58;  // of the font size, in a wide typeface

}  // namespace

CSvgWriter::CSvgWriter(double widthMm, double heightMm, const QString& title) : mXml(&mBytes) {
  mXml.setAutoFormatting(true);
  mXml.setAutoFormattingIndent(1);
  mXml.writeStartDocument();
  mXml.writeStartElement(QStringLiteral("svg"));
  mXml.writeDefaultNamespace(kNamespace);
  const QString width = number(widthMm * kPointsPerMm);
  const QString height = number(heightMm * kPointsPerMm);
  write({{"width", number(widthMm) + QLatin1String("mm")},
         {"height", number(heightMm) + QLatin1String("mm")},
         {"viewBox", QStringLiteral("0 0 %1 %2").arg(width, height)},
         {"font-family", QStringLiteral("Helvetica, Arial, Liberation Sans, DejaVu Sans, "
                                        "sans-serif")}});
  // The XML writer takes what XML cannot hold, and nobody could read the picture then.
  mXml.writeTextElement(QStringLiteral("title"), NDisplayText::escaped(title));
}

void CSvgWriter::write(CAttributes attributes) {
  for (const auto& [name, value] : attributes)
    mXml.writeAttribute(QLatin1String(name), NDisplayText::escaped(value));
}

void CSvgWriter::beginGroup(const char* id, CAttributes attributes) {
  mXml.writeStartElement(QStringLiteral("g"));
  write({{"id", QLatin1String(id)}});
  write(attributes);
}

void CSvgWriter::rect(double x, double y, double width, double height, CAttributes attributes) {
  mXml.writeEmptyElement(QStringLiteral("rect"));
  write({{"x", number(x)}, {"y", number(y)}, {"width", number(width)}, {"height", number(height)}});
  write(attributes);
}

void CSvgWriter::line(double x1, double y1, double x2, double y2, CAttributes attributes) {
  mXml.writeEmptyElement(QStringLiteral("line"));
  write({{"x1", number(x1)}, {"y1", number(y1)}, {"x2", number(x2)}, {"y2", number(y2)}});
  write(attributes);
}

void CSvgWriter::circle(double x, double y, double radius, CAttributes attributes) {
  mXml.writeEmptyElement(QStringLiteral("circle"));
  write({{"cx", number(x)}, {"cy", number(y)}, {"r", number(radius)}});
  write(attributes);
}

void CSvgWriter::path(const QString& commands, CAttributes attributes) {
  mXml.writeEmptyElement(QStringLiteral("path"));
  write({{"d", commands}});
  write(attributes);
}

void CSvgWriter::hatch(const char* id, double size, const QString& colour) {
  mXml.writeStartElement(QStringLiteral("defs"));
  mXml.writeStartElement(QStringLiteral("pattern"));
  write({{"id", QLatin1String(id)},
         {"width", number(size)},
         {"height", number(size)},
         {"patternUnits", QStringLiteral("userSpaceOnUse")}});
  line(0, size, size, 0, {{"stroke", colour}, {"stroke-width", number(0.8)}});
  mXml.writeEndElement();
  mXml.writeEndElement();
}

void CSvgWriter::text(double x, double y, const char* anchor, const QString& text,
                      CAttributes attributes) {
  mXml.writeStartElement(QStringLiteral("text"));
  write({{"x", number(x)}, {"y", number(y)}, {"text-anchor", QLatin1String(anchor)}});
  write(attributes);
  mXml.writeCharacters(NDisplayText::escaped(text));
  mXml.writeEndElement();
}

QByteArray CSvgWriter::finish() {
  mXml.writeEndElement();
  mXml.writeEndDocument();
  return mBytes;
}

QString CSvgWriter::number(double value) {
  QString digits = QString::number(value, 'f', 2);
  while (digits.endsWith(QLatin1Char('0'))) digits.chop(1);
  if (digits.endsWith(QLatin1Char('.'))) digits.chop(1);
  return digits == QLatin1String("-0") ? QStringLiteral("0") : digits;
}

double CSvgWriter::textWidth(const QString& text, double fontSize) {
  return NDisplayText::width(text) * fontSize * kColumnWidth;
}
