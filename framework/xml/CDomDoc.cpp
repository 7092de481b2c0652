#include "CDomDoc.h"

#include "CDomData.h"
#include "CStr.h"
#include "CXmlParser.h"
#include "CXmlPlainReader.h"
#include "CXmlWriter.h"
#include "NLumoXmlTags.h"
#include "NXmlText.h"

#include <QDomDocument>

#include <new>
#include <vector>

using NXmlText::toQString;

namespace {

/// The element and those around it, from the root on.
std::vector<quint32> pathTo(const CDomData& data, quint32 element) {
  std::vector<quint32> path;
  for (quint32 next = 0; path.empty() || path.back() != element;) {
    if (next == kNone) {
      if (path.empty())  // it was replaced since
        return path;
      next = data.node(path.back()).next;
      path.pop_back();
      continue;
    }
    path.push_back(next);
    next = data.node(next).firstChild;
    if (path.back() != element && data.node(path.back()).kind != SDomNode::Element) next = kNone;
  }
  return path;
}

/// The innermost element around a text that has a name, such as <Param> "TargetPosition".
QString namedPlace(const CDomData& data, quint32 element) {
  const std::vector<quint32> path = pathTo(data, element);
  for (auto i = path.rbegin(); i != path.rend(); ++i) {
    const quint32 name = data.elementFrom(data.node(*i).firstChild, NLumoXmlTags::TAG_NAME);
    if (name != kNone) {
      return QLatin1Char('<') + toQString(data.name(data.node(*i).element.name)) +
             QLatin1String("> \"") +
             NXmlText::readable(NXmlText::toQString(data.textOf(name).view())) + QLatin1Char('"');
    }
  }
  return QString();
}

/// The elements of a Qt document become nodes of the arena, one after the other.
void copyFromDom(const QDomElement& source, CDomData& data) {
  struct SStep {
    QDomNode node;
    quint32 parent;
  };
  std::vector<SStep> todo{{source, kNone}};
  while (!todo.empty()) {
    const SStep step = todo.back();
    todo.pop_back();
    if (step.parent != kNone && !step.node.nextSibling().isNull())
      todo.push_back({step.node.nextSibling(), step.parent});
    if (step.node.isElement()) {
      const auto line = static_cast<quint32>(std::max(step.node.lineNumber(), 0));
      const QDomElement element = step.node.toElement();
      const quint32 copy = data.createElement(step.parent, element.tagName(), line);
      const QDomNamedNodeMap attributes = element.attributes();
      for (int i = 0; i < attributes.count(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        data.appendAttribute(copy, attribute.name(), attribute.value());
      }
      if (!element.firstChild().isNull()) todo.push_back({element.firstChild(), copy});
    } else if (step.node.isText() || step.node.isCDATASection()) {
      const auto kind = step.node.isCDATASection() ? SDomNode::CData : SDomNode::Text;
      data.appendText(step.parent, kind, step.node.nodeValue());
    } else {
      data.appendNode(step.parent, SDomNode::Other);
    }
  }
}

/// Null, with a reason, for what cannot be read.
std::unique_ptr<CDomData> parsed(const QByteArray& bytes, CXmlParser::EExtent extent,
                                 QString& error) {
  error.clear();
  try {
    if (extent == CXmlParser::Whole)
      if (auto data = CXmlPlainReader::read(bytes)) return data;
    auto data = std::make_unique<CDomData>();
    if (CXmlParser(*data, extent).parse(bytes, error)) return data;
  } catch (const std::bad_alloc&) {
    error = CDomDoc::tr("There is not enough memory to read the document.");
  }
  return nullptr;
}

}  // namespace

CDomDoc::CDomDoc() = default;
CDomDoc::~CDomDoc() = default;
CDomDoc::CDomDoc(CDomDoc&&) noexcept = default;
CDomDoc& CDomDoc::operator=(CDomDoc&&) noexcept = default;

bool CDomDoc::setContent(const QByteArray& bytes, QString& error) {
  d = parsed(bytes, CXmlParser::Whole, error);
  return d != nullptr;
}

bool CDomDoc::setHead(const QByteArray& bytes, QString& error) {
  d = parsed(bytes, CXmlParser::HeadOnly, error);
  return d != nullptr;
}

bool CDomDoc::setRoot(const QByteArray& bytes, QString& error) {
  d = parsed(bytes, CXmlParser::RootOnly, error);
  return d != nullptr;
}

CDomElement CDomDoc::createRoot(const QString& tag) {
  d = std::make_unique<CDomData>();
  return {d.get(), d->createElement(kNone, tag)};
}

void CDomDoc::clear() {
  d.reset();
}

CDomElement CDomDoc::documentElement() const {
  return d && !d->isEmpty() ? CDomElement(d.get(), 0) : CDomElement();
}

QByteArray CDomDoc::toByteArray(const QString& encoding, QString& error) const {
  const bool utf16 = encoding == QLatin1String("UTF-16");
  error = utf16 || encoding == QLatin1String("UTF-8")
              ? writeProblem()
              : tr("The encoding \"%1\" is not supported for writing.").arg(encoding);
  if (!error.isEmpty()) return QByteArray();
  CXmlWriter writer(*d);
  QByteArray bytes = writer.write(utf16);
  if (writer.error() == CXmlWriter::TooDeep) {
    error = tr("The elements are nested deeper than %1, so the file could not be read again.")
                .arg(NXmlLimits::kMaxDepth);
  } else if (writer.error() == CXmlWriter::TooLarge) {
    error = tr("The document is larger than 512 MiB, so the file could not be read again.");
  }
  return bytes;
}

/// Why the document cannot be written; empty when it can.
QString CDomDoc::writeProblem() const {
  if (documentElement().isNull()) return tr("There is no document to write.");
  if (d->invalidText().node != kNone) return describeInvalidText();
  if (!d->isFull()) return QString();
  return tr(
      "The document has too many nodes, names or characters, so the file could not be read again.");
}

QString CDomDoc::describeInvalidText() const {
  const SDomInvalidText& invalid = d->invalidText();
  const QString tag = toQString(d->name(d->node(invalid.node).element.name));
  if (invalid.kind == SDomInvalidText::Tag)
    return tr("\"%1\" cannot be the name of an XML element.").arg(invalid.what);
  const QString name = namedPlace(*d, invalid.node);
  const QString place = name.isEmpty() ? QLatin1Char('<') + tag + QLatin1Char('>') : name;
  if (invalid.kind == SDomInvalidText::Attribute) {
    return tr("%1: attribute \"%2\" holds the character %3, which XML cannot hold.")
        .arg(place, toQString(d->name(invalid.attribute)), invalid.what);
  }
  return tr("%1: the text of <%2> holds the character %3, which XML cannot hold.")
      .arg(place, tag, invalid.what);
}

CDomDoc CDomDoc::fromDom(const QDomElement& element) {
  CDomDoc document;
  if (!element.isNull()) {
    document.d = std::make_unique<CDomData>();
    copyFromDom(element, *document.d);
  }
  return document;
}
