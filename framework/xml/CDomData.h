#pragma once

#include "CElementText.h"
#include "NXmlLimits.h"

#include <QByteArray>
#include <QLatin1String>
#include <QString>
#include <QStringView>

#include <array>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Index of "no node" and "no attribute".
constexpr quint32 kNone = 0xFFFFFFFF;

/// Number of names that are found without a search, and of short texts that may be shared.
constexpr size_t kRecentNames = 64;
constexpr size_t kRecentTexts = 256;

/// A piece of the text arena.
struct SDomText {
  quint32 begin = 0;
  quint32 length = 0;
};

/// An attribute; those of one element are a chain in the order in which they were set.
struct SDomAttribute {
  quint32 name = 0;
  SDomText value;
  quint32 next = kNone;
};

/// A node. Text nodes and comments that were not read use the text, elements the rest.
struct SDomNode {
  enum EKind : quint32 { Element, Text, CData, Other };
  static constexpr quint32 kLastLine = 0x3FFFFFFF;  // more than a document has bytes

  EKind kind : 2;
  quint32 line : 30;  ///< on which an element begins, 0 when it was not read
  union {
    struct {
      quint32 name;
      quint32 firstAttribute;
    } element;
    SDomText text;
  };
  quint32 firstChild = kNone;
  quint32 lastChild = kNone;
  quint32 next = kNone;

  SDomNode(EKind nodeKind, quint32 nodeLine) : kind(nodeKind), line(nodeLine & kLastLine), text() {}
};

/// A piece of the text arena, and the QString that was made of it.
struct SRecentText {
  SDomText piece;
  QString text;
};

/// A text that XML cannot hold, found while the document was built.
struct SDomInvalidText {
  enum EKind { Text, Attribute, Tag };

  quint32 node = kNone;  ///< the element that holds it, kNone when every text is fine
  EKind kind = Text;
  quint32 attribute = kNone;  ///< name of the attribute
  QString what;               ///< the offending character or tag, made readable
};

/// The arena of a document. Indices instead of pointers: half the size, and one allocation grows
/// for thousands of nodes. Node 0 is the root.
class CDomData {
 public:
  bool isEmpty() const { return mNodes.empty(); }
  const SDomNode& node(quint32 index) const { return mNodes[index]; }
  const SDomAttribute& attribute(quint32 index) const { return mAttributes[index]; }
  std::string_view name(quint32 index) const { return mNames[index]; }
  std::string_view text(const SDomText& text) const {
    return text.begin < document().size()
               ? document().substr(text.begin, text.length)
               : std::string_view(mText).substr(text.begin - document().size(), text.length);
  }
  quint32 nameCount() const { return static_cast<quint32>(mNames.size()); }
  quint32 nodeCount() const { return static_cast<quint32>(mNodes.size()); }
  /// Beyond the limits of a document.
  bool isFull() const {
    return mElementCount + mAttributes.size() > NXmlLimits::kMaxMarkUp ||
           mNodes.size() + mAttributes.size() > NXmlLimits::kMaxNodes ||
           mNames.size() > NXmlLimits::kMaxNames || mIsTextFull;
  }
  /// Makes room for the nodes of a document of that many bytes, so that nothing is moved as it
  /// grows.
  void reserveFor(size_t size);
  /// Keeps the document itself, in UTF-8, as the first texts of the arena, and makes room for it.
  void setDocument(const QByteArray& utf8);
  std::string_view document() const {
    return {mDocument.constData(), static_cast<size_t>(mDocument.size())};
  }
  void reserveText(size_t size) { mText.reserve(size); }
  size_t textSize() const { return document().size() + mText.size(); }
  const SDomInvalidText& invalidText() const { return mInvalid; }

  bool hasName(quint32 nodeIndex, QLatin1String tag) const;
  /// The attribute of that name, or kNone.
  quint32 findAttribute(quint32 nodeIndex, QLatin1String name) const;
  /// The node itself, or the first of its next siblings, that is an element; or kNone.
  quint32 elementFrom(quint32 nodeIndex) const;
  /// As elementFrom, for elements of that tag.
  quint32 elementFrom(quint32 nodeIndex, QLatin1String tag) const;
  /// Text of all descendants that are text.
  CElementText textOf(quint32 nodeIndex) const;
  /// The same; short texts that come again and again, such as "0x0", share their memory.
  QString sharedTextOf(quint32 nodeIndex);

  quint32 internName(std::string_view name);
  /// Appends a node to a parent (kNone for the root).
  quint32 appendElement(quint32 parent, quint32 name, quint32 line);
  quint32 appendNode(quint32 parent, SDomNode::EKind kind, quint32 line = 0);
  void appendText(quint32 parent, SDomNode::EKind kind, const SDomText& text);
  void appendAttribute(quint32 element, quint32 name, const SDomText& value);

  /// Adds bytes that are known to be UTF-8 to the text arena.
  SDomText addText(std::string_view utf8);
  /// Takes back the text that was added last.
  void dropLastText(const SDomText& text) { mText.resize(text.begin - document().size()); }
  quint32 textEnd() const { return static_cast<quint32>(textSize()); }

  // Building by an application: texts are kept whole and checked, and the first that XML cannot
  // hold is remembered.
  quint32 createElement(quint32 parent, const QString& tag, quint32 line = 0);
  /// The same for a tag that is known to be one.
  quint32 createElement(quint32 parent, QLatin1String tag);
  void setAttribute(quint32 element, QLatin1String name, const QString& value);
  void setAttribute(quint32 element, QLatin1String name, qint64 number);
  void setText(quint32 element, const QString& text);
  void setTextUtf8(quint32 element, std::string_view text);
  /// The element must not have the attribute yet.
  void appendAttribute(quint32 element, const QString& name, const QString& value);
  void appendText(quint32 element, SDomNode::EKind kind, const QString& text);
  void appendComment(quint32 element, QString text);

 private:
  /// The node that is all the content of another and is text; or kNone.
  quint32 onlyText(quint32 nodeIndex) const;
  quint32 findName(std::string_view name) const;  ///< kNone for a name not met
  SDomText addUtf16(const QString& text, quint32 element, SDomInvalidText::EKind kind,
                    quint32 attributeName);
  SDomText addUtf8(std::string_view utf8, quint32 element);
  void putAttribute(quint32 element, QLatin1String name, const SDomText& value);
  void setInvalid(SDomInvalidText place, const QString& what);

  std::vector<SDomNode> mNodes;
  size_t mElementCount = 0;
  std::vector<SDomAttribute> mAttributes;
  quint32 mLastAttributeOwner = kNone;  ///< element whose attribute was added last
  QByteArray mDocument;
  std::string mText;  ///< what follows the document
  bool mIsTextFull = false;
  std::vector<std::string_view> mNames;  // into the store, whose elements stay where they are
  std::deque<std::string> mNameStore;
  std::map<std::string_view, quint32> mNameIndex;  // no hash: names can be made to collide
  /// A direct-mapped cache of the names used last: most tags are found here.
  std::array<quint32, kRecentNames> mRecentNames{};
  SDomInvalidText mInvalid;
  std::array<SRecentText, kRecentTexts> mRecentTexts;  ///< short ones asked for, by their hash
};
