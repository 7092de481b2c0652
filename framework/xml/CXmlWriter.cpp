#include "CXmlWriter.h"

#include "NUtf16.h"

#include <algorithm>
#include <array>

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

QByteArray CXmlWriter::write(bool utf16) {
  constexpr auto kMaxBytes = static_cast<size_t>(NXmlLimits::kMaxBytes);
  mError = NoError;
  // A character of two bytes in UTF-16 takes up to three in UTF-8.
  mLongestText = utf16 ? kMaxBytes / 2 * 3 : kMaxBytes;
  // Tags and indentation take about as much again as the texts; the text grows when it is more.
  mText.clear();
  mText.reserve(std::min(mData.textSize() + 24 * size_t(mData.nodeCount()), mLongestText));
  put("<?xml version=\"1.0\" encoding=\"");
  put(utf16 ? "UTF-16" : "UTF-8");
  put("\"?>\n");
  writeTree();
  QByteArray bytes;
  if (mError == NoError && utf16)
    bytes = NUtf16::fromUtf8(mText);
  else if (mError == NoError)
    bytes = QByteArray(mText.data(), static_cast<int>(mText.size()));
  if (bytes.size() > NXmlLimits::kMaxBytes) mError = TooLarge;
  return mError == NoError ? bytes : QByteArray();
}

void CXmlWriter::writeTree() {
  std::vector<quint32> open;  // the elements whose end is still to be written
  quint32 next = 0;
  while (mError == NoError && (next != kNone || !open.empty())) {
    if (next == kNone) {
      const quint32 element = open.back();
      open.pop_back();
      closeElement(mData.node(element), static_cast<int>(open.size()));
      next = open.empty() ? kNone : mData.node(element).next;
    } else if (mData.node(next).kind == SDomNode::Element) {
      openElement(mData.node(next), static_cast<int>(open.size()));
      open.push_back(next);
      next = mData.node(next).firstChild;
    } else {
      putLeaf(mData.node(next));
      next = mData.node(next).next;
    }
    if (open.size() > NXmlLimits::kMaxDepth) mError = TooDeep;
  }
}

void CXmlWriter::putLeaf(const SDomNode& node) {
  if (node.kind == SDomNode::Other)
    put("<!---->");
  else
    putEscaped(mData.text(node.text), false);
}

void CXmlWriter::openElement(const SDomNode& element, int depth) {
  mText.append(static_cast<size_t>(depth), ' ');
  put("<");
  put(mData.name(element.element.name));
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
    put(holdsText(element) ? ">" : ">\n");
}

void CXmlWriter::closeElement(const SDomNode& element, int depth) {
  if (element.firstChild == kNone) return;
  if (!holdsText(element)) mText.append(static_cast<size_t>(depth), ' ');
  put("</");
  put(mData.name(element.element.name));
  put(">\n");
}

void CXmlWriter::putEscaped(std::string_view text, bool inAttribute) {
  const CReferences& references = inAttribute ? kInAttribute : kInText;
  size_t plain = 0;
  for (size_t i = 0; i < text.size() && mError == NoError; ++i) {
    const std::string_view reference = references[static_cast<uchar>(text[i])];
    if (!reference.empty()) {
      put(text.substr(plain, i - plain));
      put(reference);
      plain = i + 1;
    }
  }
  put(text.substr(plain));
}

/// What is much too large is found before it takes memory.
void CXmlWriter::put(std::string_view text) {
  if (mText.size() + text.size() > mLongestText)
    mError = TooLarge;
  else
    mText += text;
}

/// Elements hold texts or elements; white space may be added only where there is no text.
bool CXmlWriter::holdsText(const SDomNode& element) const {
  return mData.node(element.firstChild).kind != SDomNode::Element;
}
