#include "CDomElement.h"

#include "CDomData.h"
#include "NXmlText.h"

#include <QDomDocument>

#include <vector>

using NXmlText::toQString;

namespace {

/// Makes the Qt node of one node of the arena and appends it.
QDomNode appendCopy(QDomNode& parent, const CDomData& data, quint32 index) {
  QDomDocument document = parent.isDocument() ? parent.toDocument() : parent.ownerDocument();
  const SDomNode& node = data.node(index);
  switch (node.kind) {
    case SDomNode::Text:
      return parent.appendChild(document.createTextNode(toQString(data.text(node.text))));
    case SDomNode::CData:
      return parent.appendChild(document.createCDATASection(toQString(data.text(node.text))));
    case SDomNode::Other:
      return parent.appendChild(document.createComment(toQString(data.text(node.text))));
    default: {
      QDomElement element = document.createElement(toQString(data.name(node.element.name)));
      for (quint32 i = node.element.firstAttribute; i != kNone; i = data.attribute(i).next) {
        element.setAttribute(toQString(data.name(data.attribute(i).name)),
                             toQString(data.text(data.attribute(i).value)));
      }
      return parent.appendChild(element);
    }
  }
}

}  // namespace

QString CDomElement::tagName() const {
  return isNull() ? QString() : toQString(mData->name(mData->node(mNode).element.name));
}

bool CDomElement::hasTag(QLatin1String tag) const {
  return !isNull() && mData->hasName(mNode, tag);
}

int CDomElement::lineNumber() const {
  return isNull() ? 0 : static_cast<int>(mData->node(mNode).line);
}

bool CDomElement::hasAttribute(QLatin1String name) const {
  return !isNull() && mData->findAttribute(mNode, name) != kNone;
}

QString CDomElement::attribute(QLatin1String name) const {
  const quint32 index = isNull() ? kNone : mData->findAttribute(mNode, name);
  return index == kNone ? QString() : toQString(mData->text(mData->attribute(index).value));
}

std::string_view CDomElement::attributeUtf8(QLatin1String name) const {
  const quint32 index = isNull() ? kNone : mData->findAttribute(mNode, name);
  return index == kNone ? std::string_view() : mData->text(mData->attribute(index).value);
}

QStringList CDomElement::attributeNames() const {
  QStringList names;
  for (quint32 i = isNull() ? kNone : mData->node(mNode).element.firstAttribute; i != kNone;
       i = mData->attribute(i).next) {
    names += toQString(mData->name(mData->attribute(i).name));
  }
  return names;
}

QString CDomElement::text() const {
  return isNull() ? QString() : mData->sharedTextOf(mNode);
}

CElementText CDomElement::textUtf8() const {
  return isNull() ? CElementText() : mData->textOf(mNode);
}

bool CDomElement::hasOnlyText() const {
  quint32 index = isNull() ? kNone : mData->node(mNode).firstChild;
  while (index != kNone && (mData->node(index).kind == SDomNode::Text ||
                            mData->node(index).kind == SDomNode::CData)) {
    index = mData->node(index).next;
  }
  return !isNull() && index == kNone;
}

QString CDomElement::lastText() const {
  QString last = QLatin1String("");
  for (quint32 i = isNull() ? kNone : mData->node(mNode).firstChild; i != kNone;
       i = mData->node(i).next) {
    if (mData->node(i).kind == SDomNode::Text || mData->node(i).kind == SDomNode::CData)
      last = toQString(mData->text(mData->node(i).text));
  }
  return last;
}

QString CDomElement::ownText() const {
  QString all = QLatin1String("");
  for (quint32 i = isNull() ? kNone : mData->node(mNode).firstChild; i != kNone;
       i = mData->node(i).next) {
    if (mData->node(i).kind == SDomNode::Text || mData->node(i).kind == SDomNode::CData)
      all += toQString(mData->text(mData->node(i).text));
  }
  return all;
}

int CDomElement::childElementCount() const {
  int count = 0;
  for (quint32 i = isNull() ? kNone : mData->node(mNode).firstChild; i != kNone;
       i = mData->node(i).next) {
    count += mData->node(i).kind == SDomNode::Element ? 1 : 0;
  }
  return count;
}

/// A null handle for "no node".
CDomElement CDomElement::handleOf(quint32 node) const {
  return node == kNone ? CDomElement() : CDomElement(mData, node);
}

CDomElement CDomElement::firstChildElement() const {
  return isNull() ? CDomElement() : handleOf(mData->elementFrom(mData->node(mNode).firstChild));
}

CDomElement CDomElement::firstChildElement(QLatin1String tag) const {
  return isNull() ? CDomElement()
                  : handleOf(mData->elementFrom(mData->node(mNode).firstChild, tag));
}

CDomElement CDomElement::nextSiblingElement() const {
  return isNull() ? CDomElement() : handleOf(mData->elementFrom(mData->node(mNode).next));
}

CDomElement CDomElement::nextSiblingElement(QLatin1String tag) const {
  return isNull() ? CDomElement() : handleOf(mData->elementFrom(mData->node(mNode).next, tag));
}

CDomElement CDomElement::appendElement(const QString& tag) {
  return isNull() ? CDomElement() : CDomElement(mData, mData->createElement(mNode, tag));
}

CDomElement CDomElement::appendElement(QLatin1String tag) {
  return isNull() ? CDomElement() : CDomElement(mData, mData->createElement(mNode, tag));
}

void CDomElement::appendComment(const QString& text) {
  if (!isNull()) mData->appendComment(mNode, text);
}

void CDomElement::setAttribute(QLatin1String name, const QString& value) {
  if (!isNull()) mData->setAttribute(mNode, name, value);
}

void CDomElement::setAttribute(QLatin1String name, qint64 number) {
  if (!isNull()) mData->setAttribute(mNode, name, number);
}

void CDomElement::setText(const QString& text) {
  if (!isNull()) mData->setText(mNode, text);
}

void CDomElement::setTextUtf8(std::string_view text) {
  if (!isNull()) mData->setTextUtf8(mNode, text);
}

void CDomElement::toDom(QDomElement& parent) const {
  struct SStep {
    quint32 node;
    QDomNode parent;
  };
  std::vector<SStep> todo;
  if (!isNull()) todo.push_back({mNode, parent});
  while (!todo.empty()) {
    SStep step = todo.back();
    todo.pop_back();
    const SDomNode& node = mData->node(step.node);
    if (node.next != kNone && step.node != mNode) todo.push_back({node.next, step.parent});
    const QDomNode copy = appendCopy(step.parent, *mData, step.node);
    if (node.firstChild != kNone) todo.push_back({node.firstChild, copy});
  }
}
