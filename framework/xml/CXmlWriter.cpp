#include "CXmlWriter.h"

#include "NUtf16.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// How a character is written in a text, or in an attribute; empty when it is written as it is. A
/// carriage return would be read as a line feed, white space in an attribute as a blank.
using CReferences = std::array<std::string_view, 256>;

constexpr CReferences textReferences() {
  CReferences references{};
  references['&'] = "&amp;";
  references['<'] = "&lt;";
  references['>'] = "&gt;";
  references['\r'] = "&#13;";
  return references;
}

constexpr CReferences attributeReferences() {
  CReferences references = textReferences();
  references['"'] = "&quot;";
  references['\n'] = "&#10;";
  references['\t'] = "&#9;";
  return references;
}

constexpr CReferences kInText = textReferences();
constexpr CReferences kInAttribute = attributeReferences();

}  // namespace

CXmlWriter::CXmlWriter(const CDomData& data) : mData(data) {
  mTags.reserve(mData.nameCount());
  for (quint32 i = 0; i < mData.nameCount(); ++i) {
    const std::string name(mData.name(i));
    mTags.push_back({'<' + name, "</" + name + ">\n"});
  }
}

QByteArray CXmlWriter::write(bool utf16) {
  constexpr auto kMaxBytes = static_cast<int>(NXmlLimits::kMaxBytes);
  mError = NoError;
  // A character of two bytes in UTF-16 takes up to three in UTF-8.
  mLongestText = utf16 ? kMaxBytes / 2 * 3 : kMaxBytes;
  // Tags and indentation take about as much again as the texts; the text grows when it is more.
  const size_t expected = mData.textSize() + 24 * size_t(mData.nodeCount());
  mText.resize(static_cast<int>(std::min(expected, static_cast<size_t>(mLongestText))));
  mEnd = mText.data();
  put("<?xml version=\"1.0\" encoding=\"");
  put(utf16 ? "UTF-16" : "UTF-8");
  put("\"?>\n");
  writeTree();
  mText.truncate(static_cast<int>(mEnd - mText.constData()));
  if (mError == NoError && utf16)
    mText = NUtf16::fromUtf8({mText.constData(), static_cast<size_t>(mText.size())});
  if (mText.size() > kMaxBytes) mError = TooLarge;
  return mError == NoError ? std::exchange(mText, QByteArray()) : QByteArray();
}

void CXmlWriter::writeTree() {
  struct SOpen {
    quint32 element;
    bool isLaidOut;
  };
  std::vector<SOpen> open;  // the elements whose end is still to be written
  quint32 next = 0;
  while (mError == NoError && (next != kNone || !open.empty())) {
    if (next == kNone) {
      const auto [element, isLaidOut] = open.back();
      open.pop_back();
      closeElement(mData.node(element), isLaidOut, static_cast<int>(open.size()));
      next = open.empty() ? kNone : mData.node(element).next;
    } else if (mData.node(next).kind == SDomNode::Element) {
      const bool isLaidOut = holdsElements(mData.node(next));
      openElement(mData.node(next), isLaidOut, static_cast<int>(open.size()));
      open.push_back({next, isLaidOut});
      next = mData.node(next).firstChild;
    } else {
      const bool isLaidOut = mData.node(next).kind == SDomNode::Other && open.back().isLaidOut;
      if (isLaidOut) indent(static_cast<int>(open.size()));
      putLeaf(mData.node(next));
      if (isLaidOut) put("\n");
      next = mData.node(next).next;
    }
    if (open.size() > NXmlLimits::kMaxDepth) mError = TooDeep;
  }
}

void CXmlWriter::putLeaf(const SDomNode& node) {
  const std::string_view text = mData.text(node.text);
  if (node.kind != SDomNode::Other) {
    putEscaped(text, false);
    return;
  }
  put("<!--");
  put(text);
  put("-->");
}

void CXmlWriter::openElement(const SDomNode& element, bool isLaidOut, int depth) {
  indent(depth);
  put(mTags[element.element.name].begin);
  for (quint32 i = element.element.firstAttribute; i != kNone; i = mData.attribute(i).next) {
    put(" ");
    put(mData.name(mData.attribute(i).name));
    put("=\"");
    putEscaped(mData.text(mData.attribute(i).value), true);
    put("\"");
  }
  if (element.firstChild == kNone)
    put("/>\n");
  else
    put(isLaidOut ? ">\n" : ">");
}

void CXmlWriter::closeElement(const SDomNode& element, bool isLaidOut, int depth) {
  if (element.firstChild == kNone) return;
  if (isLaidOut) indent(depth);
  put(mTags[element.element.name].end);
}

void CXmlWriter::putEscaped(std::string_view text, bool inAttribute) {
  const CReferences& references = inAttribute ? kInAttribute : kInText;
  const auto isPlain = [&references](char c) { return references[static_cast<uchar>(c)].empty(); };
  const auto* plain = text.begin();
  while (plain != text.end()) {
    const auto* const special = std::find_if_not(plain, text.end(), isPlain);
    put(text.substr(static_cast<size_t>(plain - text.begin()),
                    static_cast<size_t>(special - plain)));
    if (special == text.end()) return;
    put(references[static_cast<uchar>(*special)]);
    plain = special + 1;
  }
}

void CXmlWriter::indent(int depth) {
  constexpr std::string_view kBlanks = "                                ";
  auto left = static_cast<size_t>(depth);
  for (; left > kBlanks.size(); left -= kBlanks.size()) put(kBlanks);
  put(kBlanks.substr(0, left));
}

void CXmlWriter::put(std::string_view text) {
  const char* const limit = mText.constData() + mText.size();
  if (static_cast<size_t>(limit - mEnd) < text.size() && !growFor(text.size())) return;
  mEnd = std::copy(text.begin(), text.end(), mEnd);
}

/// What is much too large is found before it takes memory.
bool CXmlWriter::growFor(size_t size) {
  const auto used = static_cast<size_t>(mEnd - mText.constData());
  if (used + size > static_cast<size_t>(mLongestText)) {
    mError = TooLarge;
    return false;
  }
  mText.resize(static_cast<int>(std::min(2 * (used + size), static_cast<size_t>(mLongestText))));
  mEnd = mText.data() + used;
  return true;
}

/// Elements hold texts or elements, with comments among them; white space may be added only where
/// there is no text.
bool CXmlWriter::holdsElements(const SDomNode& element) const {
  quint32 child = element.firstChild;
  while (child != kNone && mData.node(child).kind == SDomNode::Other)
    child = mData.node(child).next;
  return child != kNone && mData.node(child).kind == SDomNode::Element;
}
