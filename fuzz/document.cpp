// A document: read as it is, to the end of its Head, in the other encodings, by the parser alone,
// by way of Qt's DOM, and by libxml2. With KTO_GRAMMAR it is made from a grammar, else it is the
// input itself.

#include "CDomDoc.h"
#include "Finding.h"

#include <QDomDocument>
#include <QTextCodec>

#include <libxml/parser.h>
#include <libxml/tree.h>

namespace {

QByteArray written(const CDomDoc& document) {
  QString error;
  const QByteArray bytes = document.toByteArray(QStringLiteral("UTF-8"), error);
  NFuzz::require(!bytes.isEmpty(), error);
  return bytes;
}

/// Whether two trees of elements have the same lines; the rest is told by what is written.
bool hasSameLines(CDomElement a, CDomElement b) {
  for (; !a.isNull(); a = a.nextSiblingElement(), b = b.nextSiblingElement())
    if (a.lineNumber() != b.lineNumber() ||
        !hasSameLines(a.firstChildElement(), b.firstChildElement()))
      return false;
  return true;
}

/// Only the parser reads a comment behind the root element, where it makes no difference.
void requireSameFromParser(const QByteArray& bytes, const CDomDoc& document) {
  const bool isUtf16 = bytes.startsWith("\xFF\xFE");
  if (bytes.contains('\0') && !isUtf16) return;
  const QByteArray comment("<\0!\0-\0-\0-\0-\0>\0", 14);
  const bool isAccepted = !document.documentElement().isNull();
  CDomDoc parsed;
  QString error;
  const QByteArray longer = bytes + (isUtf16 ? comment : QByteArray(comment).replace('\0', ""));
  NFuzz::require(parsed.setContent(longer, error) == isAccepted,
                 "another outcome of the parser: " + error);
  if (!isAccepted) return;
  NFuzz::require(written(parsed) == written(document), "another document of the parser");
  NFuzz::require(hasSameLines(parsed.documentElement(), document.documentElement()),
                 "other lines of the parser");
}

/// Without white space, which is layout between elements.
QByteArray dense(QByteArray text) {
  for (const char space : {' ', '\t', '\n', '\r'}) text.replace(space, "");
  return text;
}

bool areSame(const xmlNode* theirs, const CDomElement& ours) {
  const auto text = [](const xmlChar* utf8) { return reinterpret_cast<const char*>(utf8); };
  const std::unique_ptr<xmlChar, decltype(xmlFree)> content(xmlNodeGetContent(theirs), xmlFree);
  bool isSame = dense(text(content.get())) == dense(ours.text().toUtf8());
  for (const xmlAttr* each = theirs->properties; each != nullptr && isSame; each = each->next) {
    const std::unique_ptr<xmlChar, decltype(xmlFree)> value(
        xmlNodeListGetString(theirs->doc, each->children, 1), xmlFree);
    const QByteArray own = ours.attribute(QLatin1String(text(each->name))).toUtf8();
    isSame = each->ns != nullptr || own == text(value.get());
  }
  CDomElement child = ours.firstChildElement();
  for (const xmlNode* each = theirs->children; each != nullptr && isSame; each = each->next) {
    if (each->type != XML_ELEMENT_NODE) continue;
    const bool hasPrefix = each->ns != nullptr || strchr(text(each->name), ':') != nullptr;
    isSame = (hasPrefix || child.hasTag(QLatin1String(text(each->name)))) && areSame(each, child);
    child = child.nextSiblingElement();
  }
  return isSame && child.isNull();
}

/// What is accepted here is accepted by libxml2, and is the same there.
void requireSameFromLibxml2(const QByteArray& bytes, const CDomDoc& document) {
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> theirs(
      xmlReadMemory(bytes.constData(), bytes.size(), nullptr, nullptr,
                    XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET),
      &xmlFreeDoc);
  NFuzz::require(theirs != nullptr, "refused by libxml2");
  NFuzz::require(areSame(xmlDocGetRootElement(theirs.get()), document.documentElement()),
                 "another document of libxml2");
}

void requireSameInUtf16(const QByteArray& bytes, const QByteArray& expected, bool isAccepted) {
  const QString text = QString::fromUtf8(bytes);
  if (bytes.contains("encoding") || text.toUtf8() != bytes) return;
  for (const char* encoding : {"UTF-16LE", "UTF-16BE"}) {
    QTextEncoder encoder(QTextCodec::codecForName(encoding), QTextCodec::IgnoreHeader);
    CDomDoc document;
    QString error;
    const QByteArray utf16 = encoder.fromUnicode(QChar(0xFEFF) + text);
    const bool done = document.setContent(utf16, error);
    NFuzz::require(done == isAccepted, QString("another outcome in UTF-16: ") + error);
    if (encoding[6] == 'L') requireSameFromParser(utf16, document);
    NFuzz::require(!done || written(document) == expected, "another document in UTF-16");
  }
}

#ifdef KTO_GRAMMAR
/// A document of tags and texts, a byte of the input for each; with a high first byte some are
/// not plain, or wrong.
QByteArray inputOf(const QByteArray& choices) {
  static const QByteArrayList right =
      QByteArray(
          "text| |\n|&amp;|&#13;|\xC3\xA9|<b/>|\t|]]|&#x1F600;|<!---->|'|\"|>|<e x='1' "
          "y=\"&lt;'\"/>|"
          "\xF0\x9F\x98\x80")
          .split('|');
  static const QByteArrayList wrong =
      QByteArray(
          "\r|]]>|&#0;|&#xD800;|&x;|<b x='1' x=''/>|\x01|\xED\xA0\x80|\xEF\xBF\xBF|<b "
          "x=1/>|</|<c:d/>|"
          "<![CDATA[x]]>|<!--x-->|<?p?>|<b\n x='a\tb' />")
          .split('|');
  const auto first = static_cast<uchar>(choices.isEmpty() ? 0 : choices.at(0));
  QByteArray text = first % 2 == 0 ? "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>" : "<a>";
  QByteArrayList open{"a"};
  for (int i = 1; i < choices.size() && !open.isEmpty(); ++i) {
    const auto choice = static_cast<uchar>(choices.at(i));
    const QByteArray tag(1, static_cast<char>('a' + choice % 3));
    if (choice < 64) {
      text.append('<').append(tag).append('>');
      open += tag;
    } else if (choice < 128) {
      text.append("</").append(open.takeLast()).append('>');
    } else {
      const bool isWrong = first >= 128 && i % 8 == first % 8;
      text += (isWrong ? wrong : right).at(choice % 16);
    }
  }
  while (!open.isEmpty()) text.append("</").append(open.takeLast()).append('>');
  return text;
}
#else
QByteArray inputOf(const QByteArray& bytes) {
  return bytes;
}
#endif

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
  const QByteArray bytes =
      inputOf(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
  CDomDoc document;
  CDomDoc head;
  QString error;
  const bool done = document.setContent(bytes, error);
  NFuzz::isLoaded = done;
  NFuzz::require(done || !error.isEmpty(), "no message");
  NFuzz::require(head.setHead(bytes, error) || !done, "the Head fails where the whole does not");
  const QByteArray expected = done ? written(document) : QByteArray();
  requireSameInUtf16(bytes, expected, done);
  requireSameFromParser(bytes, document);
  if (!done) return 0;

  requireSameFromLibxml2(bytes, document);
  QDomDocument qt;
  QDomElement parent = qt.createElement(QStringLiteral("parent"));
  document.documentElement().toDom(parent);
  const CDomDoc again = CDomDoc::fromDom(parent.firstChildElement());
  NFuzz::require(again.documentElement().text() == document.documentElement().text(),
                 "another text through Qt's DOM");
  NFuzz::require(document.setContent(expected, error), "what was written is refused: " + error);
  return 0;
}
