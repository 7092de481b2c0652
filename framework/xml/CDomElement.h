#pragma once

#include "CElementText.h"
#include "ktoFramework_export.h"

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <string_view>

class CDomData;
class QDomElement;

/// A handle of one element of a `CDomDoc`: two words, copied freely, valid as long as the document
/// keeps its content. Every operation of a null handle answers with nothing and changes nothing.
class KTOFRAMEWORK_EXPORT CDomElement {
 public:
  CDomElement() = default;

  bool isNull() const { return mData == nullptr; }
  QString tagName() const;
  bool hasTag(QLatin1String tag) const;
  /// Line on which the tag begins, from 1; 0 for an element that was not read from a text.
  int lineNumber() const;

  bool hasAttribute(QLatin1String name) const;
  /// Null only when the attribute is missing.
  QString attribute(QLatin1String name) const;
  /// The attribute as the document keeps it, in UTF-8; empty when it is missing. Valid until the
  /// document is changed.
  std::string_view attributeUtf8(QLatin1String name) const;
  /// In their order.
  QStringList attributeNames() const;

  /// Text of all descendants; empty, never null, for an element without text.
  QString text() const;
  CElementText textUtf8() const;  ///< the same in UTF-8, without a copy
  /// True when every child is a text node, an element without children included.
  bool hasOnlyText() const;
  /// Text of the last child that is a text node; empty when there is none.
  QString lastText() const;
  /// Text of all children that are text nodes, but not of what lies in other children.
  QString ownText() const;

  int childElementCount() const;
  CDomElement firstChildElement() const;
  CDomElement firstChildElement(QLatin1String tag) const;
  CDomElement nextSiblingElement() const;
  CDomElement nextSiblingElement(QLatin1String tag) const;

  /// Appends a new child and returns it. A tag that XML does not allow makes the save fail.
  CDomElement appendElement(const QString& tag);
  /// The same for a constant, which is taken to be a tag.
  CDomElement appendElement(QLatin1String tag);
  /// Appends a comment: a child that is neither element nor text. Hyphens that follow each other,
  /// which a comment cannot hold, are parted by blanks.
  void appendComment(const QString& text = QString());
  /// Sets an attribute; a new one comes after those that are there.
  void setAttribute(QLatin1String name, const QString& value);
  void setAttribute(QLatin1String name, qint64 number);
  /// Replaces all children by one text.
  void setText(const QString& text);
  void setTextUtf8(std::string_view text);  ///< a text as textUtf8() gives it

  /// Appends a copy of this element and all beneath it to an element of a Qt document.
  void toDom(QDomElement& parent) const;

 private:
  friend class CDomDoc;
  CDomElement(CDomData* data, quint32 node) : mData(data), mNode(node) {}
  CDomElement handleOf(quint32 node) const;

  CDomData* mData = nullptr;
  quint32 mNode = 0;
};
