#include "CDomData.h"

#include "NXmlText.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <functional>
#include <limits>

using NXmlText::toQString;

namespace {

std::string_view view(QLatin1String text) {
  return {text.data(), static_cast<size_t>(text.size())};
}

/// Longer texts are hardly ever repeated in a file.
constexpr quint32 kSharedLength = 16;

/// The slot of a name in the cache; chosen so that the tags of the formats do not collide.
size_t slotOf(std::string_view name) {
  if (name.empty()) return 0;
  const auto inner = static_cast<uchar>(name[name.size() / 3]);
  const auto last = static_cast<uchar>(name.back());
  return (name.size() * 19 + inner * 12U + last) % kRecentNames;
}

/// As ==, without a call, which takes longer than the few characters of a tag.
bool isSame(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a.size() < 4 || a.size() > 8) return a == b;
  // The first four and the last four are all.
  const auto four = [](std::string_view text, size_t begin) {
    quint32 word = 0;
    std::memcpy(&word, text.data() + begin, sizeof(word));
    return word;
  };
  const size_t last = a.size() - 4;
  return four(a, 0) == four(b, 0) && four(a, last) == four(b, last);
}

bool isText(const SDomNode& node) {
  return node.kind == SDomNode::Text || node.kind == SDomNode::CData;
}

}  // namespace

bool CDomData::hasName(quint32 nodeIndex, QLatin1String tag) const {
  return isSame(name(mNodes[nodeIndex].element.name), view(tag));
}

quint32 CDomData::findAttribute(quint32 nodeIndex, QLatin1String attributeName) const {
  quint32 index = mNodes[nodeIndex].element.firstAttribute;
  while (index != kNone && name(mAttributes[index].name) != view(attributeName))
    index = mAttributes[index].next;
  return index;
}

quint32 CDomData::elementFrom(quint32 nodeIndex) const {
  while (nodeIndex != kNone && mNodes[nodeIndex].kind != SDomNode::Element)
    nodeIndex = mNodes[nodeIndex].next;
  return nodeIndex;
}

quint32 CDomData::elementFrom(quint32 nodeIndex, QLatin1String tag) const {
  const quint32 wanted = findName(view(tag));
  if (wanted == kNone) return kNone;
  while (nodeIndex != kNone && (mNodes[nodeIndex].kind != SDomNode::Element ||
                                mNodes[nodeIndex].element.name != wanted)) {
    nodeIndex = mNodes[nodeIndex].next;
  }
  return nodeIndex;
}

quint32 CDomData::onlyText(quint32 nodeIndex) const {
  const quint32 first = mNodes[nodeIndex].firstChild;
  return first != kNone && mNodes[first].next == kNone && isText(mNodes[first]) ? first : kNone;
}

QString CDomData::sharedTextOf(quint32 nodeIndex) {
  const quint32 only = onlyText(nodeIndex);
  if (only == kNone || mNodes[only].text.length > kSharedLength)
    return toQString(textOf(nodeIndex).view());
  const SDomText piece = mNodes[only].text;
  SRecentText& recent = mRecentTexts[std::hash<std::string_view>()(text(piece)) % kRecentTexts];
  if (recent.text.isNull() || text(recent.piece) != text(piece))
    recent = {piece, toQString(text(piece))};
  return recent.text;
}

CElementText CDomData::textOf(quint32 nodeIndex) const {
  const quint32 first = mNodes[nodeIndex].firstChild;
  if (first == kNone) return {};
  if (onlyText(nodeIndex) != kNone) return CElementText(text(mNodes[first].text));
  // Depth first without recursion: the nodes still to visit are a stack of next siblings.
  std::string together;
  std::vector<quint32> todo{first};
  while (!todo.empty()) {
    const quint32 index = todo.back();
    const SDomNode& current = mNodes[index];
    todo.pop_back();
    if (current.next != kNone) todo.push_back(current.next);
    if (isText(current))
      together += text(current.text);
    else if (current.firstChild != kNone)
      todo.push_back(current.firstChild);
  }
  return CElementText(std::move(together));
}

void CDomData::reserveFor(size_t size) {
  constexpr size_t kBytesPerNode = 16;  // 20 and more in files of parameters
  mNodes.reserve(std::min(size / kBytesPerNode, NXmlLimits::kMaxNodes) + 1);
}

void CDomData::setDocument(const QByteArray& utf8) {
  mDocument = utf8;
  reserveFor(document().size());
}

quint32 CDomData::findName(std::string_view name) const {
  const quint32 recent = mRecentNames[slotOf(name)];
  if (recent < mNames.size() && isSame(mNames[recent], name)) return recent;
  const auto known = mNameIndex.find(name);
  return known == mNameIndex.end() ? kNone : known->second;
}

quint32 CDomData::internName(std::string_view name) {
  quint32 index = findName(name);
  if (index == kNone) {
    index = static_cast<quint32>(mNames.size());
    mNames.push_back(mNameStore.emplace_back(name));
    mNameIndex.emplace(mNames.back(), index);
  }
  mRecentNames[slotOf(name)] = index;
  return index;
}

quint32 CDomData::appendElement(quint32 parent, quint32 name, quint32 line) {
  const quint32 index = appendNode(parent, SDomNode::Element, line);
  mNodes[index].element = {name, kNone};
  ++mElementCount;
  return index;
}

quint32 CDomData::appendNode(quint32 parent, SDomNode::EKind kind, quint32 line) {
  const auto index = static_cast<quint32>(mNodes.size());
  mNodes.emplace_back(kind, line);
  if (parent != kNone) {
    SDomNode& owner = mNodes[parent];
    if (owner.lastChild == kNone)
      owner.firstChild = index;
    else
      mNodes[owner.lastChild].next = index;
    owner.lastChild = index;
  }
  return index;
}

void CDomData::appendText(quint32 parent, SDomNode::EKind kind, const SDomText& text) {
  mNodes[appendNode(parent, kind)].text = text;
}

void CDomData::appendAttribute(quint32 element, quint32 name, const SDomText& value) {
  const auto index = static_cast<quint32>(mAttributes.size());
  mAttributes.push_back({name, value, kNone});
  // The attributes of an element usually come one after the other.
  quint32* link = mLastAttributeOwner == element ? &mAttributes[index - 1].next
                                                 : &mNodes[element].element.firstAttribute;
  while (*link != kNone) link = &mAttributes[*link].next;
  *link = index;
  mLastAttributeOwner = element;
}

SDomText CDomData::addText(std::string_view utf8) {
  const SDomText added{textEnd(), static_cast<quint32>(utf8.size())};
  mText.append(utf8);
  return added;
}

quint32 CDomData::createElement(quint32 parent, const QString& tag, quint32 line) {
  const std::string utf8 = tag.toStdString();
  const bool known = findName(utf8) != kNone;
  const quint32 index = appendElement(parent, internName(utf8), line);
  if (!known && !NXmlText::isName(tag))
    setInvalid({index, SDomInvalidText::Tag, kNone, {}}, NXmlText::readable(tag));
  return index;
}

quint32 CDomData::createElement(quint32 parent, QLatin1String tag) {
  return appendElement(parent, internName(view(tag)), 0);
}

void CDomData::setAttribute(quint32 element, QLatin1String name, const QString& value) {
  const quint32 nameIndex = internName(view(name));
  putAttribute(element, name, addUtf16(value, element, SDomInvalidText::Attribute, nameIndex));
}

void CDomData::setAttribute(quint32 element, QLatin1String name, qint64 number) {
  std::array<char, std::numeric_limits<qint64>::digits10 + 2> digits;  // the first, and a sign
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const auto size = static_cast<size_t>(end - digits.data());
  putAttribute(element, name, addUtf8({digits.data(), size}, element));
}

void CDomData::putAttribute(quint32 element, QLatin1String name, const SDomText& value) {
  const quint32 known = findAttribute(element, name);
  if (known == kNone)
    appendAttribute(element, internName(view(name)), value);
  else
    mAttributes[known].value = value;
}

void CDomData::setText(quint32 element, const QString& text) {
  mNodes[element].firstChild = kNone;
  mNodes[element].lastChild = kNone;
  if (!text.isEmpty()) appendText(element, SDomNode::Text, text);
}

void CDomData::setTextUtf8(quint32 element, std::string_view text) {
  mNodes[element].firstChild = kNone;
  mNodes[element].lastChild = kNone;
  if (!text.empty()) appendText(element, SDomNode::Text, addUtf8(text, element));
}

void CDomData::appendAttribute(quint32 element, const QString& name, const QString& value) {
  const quint32 nameIndex = internName(name.toStdString());
  appendAttribute(element, nameIndex,
                  addUtf16(value, element, SDomInvalidText::Attribute, nameIndex));
}

void CDomData::appendText(quint32 element, SDomNode::EKind kind, const QString& text) {
  appendText(element, kind, addUtf16(text, element, SDomInvalidText::Text, kNone));
}

void CDomData::appendComment(quint32 element, QString text) {
  // Once parts pairs, once more what three in a row leave.
  for (int i = 0; i < 2; ++i) text.replace(QLatin1String("--"), QLatin1String("- -"));
  if (text.endsWith(QLatin1Char('-'))) text += QLatin1Char(' ');
  appendText(element, SDomNode::Other, text);
}

SDomText CDomData::addUtf16(const QString& text, quint32 element, SDomInvalidText::EKind kind,
                            quint32 attributeName) {
  const quint32 begin = textEnd();
  if (textSize() + 3 * static_cast<size_t>(text.size()) > NXmlLimits::kMaxText) {
    mIsTextFull = true;
    return {begin, 0};
  }
  const int bad = NXmlText::appendUtf8(text, mText);
  if (bad >= 0)
    setInvalid({element, kind, attributeName, {}}, NXmlText::readable(text.mid(bad, 1)));
  return {begin, textEnd() - begin};
}

SDomText CDomData::addUtf8(std::string_view utf8, quint32 element) {
  if (textSize() + utf8.size() > NXmlLimits::kMaxText) {
    mIsTextFull = true;
    return {textEnd(), 0};
  }
  if (const QString bad = NXmlText::firstInvalid(utf8); !bad.isNull())
    setInvalid({element, SDomInvalidText::Text, kNone, {}}, NXmlText::readable(bad));
  return addText(utf8);
}

void CDomData::setInvalid(SDomInvalidText place, const QString& what) {
  if (mInvalid.node == kNone) {
    mInvalid = std::move(place);
    mInvalid.what = what;
  }
}
