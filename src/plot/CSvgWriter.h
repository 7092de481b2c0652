#pragma once

#include <QByteArray>
#include <QString>
#include <QXmlStreamWriter>

#include <initializer_list>
#include <utility>

/// Writes a page of SVG, with coordinates in points (1/72 inch). The same calls give the same
/// bytes, in any locale.
class CSvgWriter {
 public:
  using CAttributes = std::initializer_list<std::pair<const char*, QString>>;

  /// A page of that size in millimetres; the title is for programs that list or read out pictures.
  CSvgWriter(double widthMm, double heightMm, const QString& title);

  void beginGroup(const char* id, CAttributes attributes);
  void endGroup() { mXml.writeEndElement(); }
  void rect(double x, double y, double width, double height, CAttributes attributes = {});
  void line(double x1, double y1, double x2, double y2, CAttributes attributes = {});
  void circle(double x, double y, double radius, CAttributes attributes = {});
  void path(const QString& commands, CAttributes attributes = {});
  /// A square tile of lines from corner to corner, to fill areas with "url(#id)".
  void hatch(const char* id, double size, const QString& colour);
  /// The anchor is "start", "middle" or "end".
  void text(double x, double y, const char* anchor, const QString& text,
            CAttributes attributes = {});

  QByteArray finish();

  /// A coordinate as it is written.
  static QString number(double value);
  /// Width of a text in a usual typeface, rather too much than too little.
  static double textWidth(const QString& text, double fontSize);

 private:
  void write(CAttributes attributes);

  QByteArray mBytes;
  QXmlStreamWriter mXml;
};
