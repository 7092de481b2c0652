#pragma once

#include "CDomElement.h"
#include "ktoFramework_export.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <memory>

/// A compact XML document: one arena of nodes and UTF-8 text, read by a strict parser and written
/// by an ordered writer, so that the same content always gives the same bytes.
///
/// Its nodes are those that Qt's DOM gives: neighbouring character data is one text node, a CDATA
/// section is a text node of its own, a comment or processing instruction is a node that is
/// neither text nor element. Text of white space alone is kept when it is its element's only
/// child; next to another node it is layout and dropped.
///
/// Move-only; elements stay valid when the document is moved.
class KTOFRAMEWORK_EXPORT CDomDoc {
  Q_DECLARE_TR_FUNCTIONS(CDomDoc)

 public:
  /// Result of the typed access.
  enum EResult {
    Ok = 0,
    Missing = 1,  ///< the attribute or element does not exist
    Invalid = 2,  ///< its text is not a value of the type
  };
  static bool fail(EResult result) { return result != Ok; }

  CDomDoc();
  ~CDomDoc();
  CDomDoc(CDomDoc&&) noexcept;
  CDomDoc& operator=(CDomDoc&&) noexcept;

  /// Reads a whole document: UTF-16 in either order with or without a byte order mark, UTF-8,
  /// ISO-8859-1, US-ASCII or windows-1252. On failure the document is empty and error is
  /// "Line N: reason." or a reason without a line.
  bool setContent(const QByteArray& bytes, QString& error);
  /// Reads the document to the end of the root's "Head" and does not look at what follows.
  bool setHead(const QByteArray& bytes, QString& error);
  /// Reads the document's root with its attributes and does not look at what follows.
  bool setRoot(const QByteArray& bytes, QString& error);
  /// Makes an empty document with a root element and returns that.
  CDomElement createRoot(const QString& tag);
  void clear();

  CDomElement documentElement() const;

  /// The document as bytes in "UTF-16" (little endian, with a byte order mark) or "UTF-8". Fails,
  /// with an empty result and a reason, for a text that XML cannot hold, or a document that this
  /// class would refuse to read.
  QByteArray toByteArray(const QString& encoding, QString& error) const;

  /// A document with a copy of the element, and all beneath it, as its root. Texts that XML cannot
  /// hold are copied whole; a document with one cannot be written.
  static CDomDoc fromDom(const QDomElement& element);

  // Typed access. On failure the value is untouched and error names tag, attribute, text and line.
  static EResult existingAttribute(QLatin1String name, const CDomElement& element, QString& value,
                                   QString& error);
  static EResult existingAttributeAsU8(QLatin1String name, const CDomElement& element,
                                       quint8& value, QString& error, int base = 0);
  static EResult existingAttributeAsU32(QLatin1String name, const CDomElement& element,
                                        quint32& value, QString& error, int base = 0);
  static EResult existingAttributeAsI32(QLatin1String name, const CDomElement& element,
                                        qint32& value, QString& error, int base = 0);
  static EResult existingAttributeAsI64(QLatin1String name, const CDomElement& element,
                                        qint64& value, QString& error, int base = 0);
  /// The texts are "true" and "false".
  static EResult existingAttributeAsBool(QLatin1String name, const CDomElement& element,
                                         bool& value, QString& error);

  /// The first child of that name, or a null element.
  static CDomElement existingSubElement(QLatin1String tag, const CDomElement& parent);
  static EResult existingSubElementAsString(QLatin1String tag, const CDomElement& parent,
                                            QString& value, QString& error);
  static EResult existingSubElementAsUtf8(QLatin1String tag, const CDomElement& parent,
                                          CElementText& value, QString& error);
  /// The text of the first child of that name, or the default when there is none.
  static QString existingSubElementAsString(QLatin1String tag, const CDomElement& parent,
                                            const QString& defaultValue);
  static EResult existingSubElementAsI64(QLatin1String tag, const CDomElement& parent,
                                         qint64& value, QString& error, int base = 0);

  /// Sets the text of the first child of that name, which is appended when missing.
  static void setSubElementValue(QLatin1String tag, CDomElement parent, const QString& text);
  static void setNodeValue(CDomElement element, const QString& text);

 private:
  QString writeProblem() const;
  QString describeInvalidText() const;

  std::unique_ptr<CDomData> d;
};
