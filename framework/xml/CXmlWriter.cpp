#include "CXmlWriter.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

/// A growing buffer that is written through a pointer.
class CBuffer {
 public:
  explicit CBuffer(size_t size) : mBytes(static_cast<int>(size), Qt::Uninitialized) {}

  /// Where up to `count` bytes may be written; advance() then takes what was.
  char* room(size_t count) {
    if (static_cast<size_t>(mBytes.size() - mSize) < count)
      mBytes.resize(qMax(mSize + static_cast<int>(count), mSize + mSize / 2));
    return mBytes.data() + mSize;
  }
  void advance(size_t count) { mSize += static_cast<int>(count); }
  bool isTooLarge() const { return mSize > NXmlLimits::kMaxBytes; }
  QByteArray take() {
    mBytes.truncate(mSize);
    return std::move(mBytes);
  }

 private:
  QByteArray mBytes;
  int mSize = 0;
};

/// Collects UTF-8 as it is.
class CUtf8Sink : public CBuffer {
 public:
  using CBuffer::CBuffer;
  void put(std::string_view utf8) {
    if (!isTooLarge()) {
      const size_t size = std::min<size_t>(utf8.size(), NXmlLimits::kMaxBytes + 1);
      std::memcpy(room(size), utf8.data(), size);
      advance(size);
    }
  }
};

/// Collects UTF-8 as UTF-16, little endian, behind a byte order mark.
class CUtf16Sink : public CBuffer {
 public:
  explicit CUtf16Sink(size_t size) : CBuffer(2 * size + 2) { put("\xEF\xBB\xBF"); }

  /// In pieces, so that what is much too large is found out before it takes room.
  void put(std::string_view utf8) {
    constexpr size_t kPiece = 1U << 16U;
    for (size_t i = 0; i < utf8.size() && !isTooLarge();)
      i = putPiece(utf8, i, std::min(utf8.size(), i + kPiece));
  }

 private:
  /// Writes the characters that begin before the end; returns where the next one does.
  size_t putPiece(std::string_view utf8, size_t i, size_t end) {
    char* out = room(2 * (end - i) + 4);  // no character takes more than twice its UTF-8
    const char* begin = out;
    while (i < end) {
      const auto lead = static_cast<uchar>(utf8[i++]);
      if (lead < 0x80) {
        out = putUnit(lead, out);
        continue;
      }
      int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
      char32_t c = lead & (0x3Fu >> more);
      for (; more > 0; --more) c = (c << 6) | (static_cast<uchar>(utf8[i++]) & 0x3Fu);
      if (QChar::requiresSurrogates(c)) {
        out = putUnit(QChar::highSurrogate(c), out);
        c = QChar::lowSurrogate(c);
      }
      out = putUnit(static_cast<char16_t>(c), out);
    }
    advance(static_cast<size_t>(out - begin));
    return i;
  }

  static char* putUnit(char16_t unit, char* out) {
    out[0] = static_cast<char>(unit & 0xFF);
    out[1] = static_cast<char>(unit >> 8);
    return out + 2;
  }
};

/// What stands for a character in a text, or in an attribute; nothing when it stands for itself. A
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

using CBlanks = std::array<char, NXmlLimits::kMaxDepth + 1>;

constexpr CBlanks blanks() {
  CBlanks blanks{};
  for (char& blank : blanks) blank = ' ';
  return blanks;
}

constexpr CBlanks kBlanks = blanks();

template <class Sink>
void putEscaped(Sink& sink, std::string_view text, bool inAttribute) {
  const CReferences& references = inAttribute ? kInAttribute : kInText;
  size_t plain = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const std::string_view reference = references[static_cast<uchar>(text[i])];
    if (!reference.empty()) {
      sink.put(text.substr(plain, i - plain));
      sink.put(reference);
      plain = i + 1;
    }
  }
  sink.put(text.substr(plain));
}

template <class Sink>
void putIndentation(Sink& sink, int depth) {
  sink.put({kBlanks.data(), static_cast<size_t>(depth)});
}

}  // namespace

QByteArray CXmlWriter::write(bool utf16) {
  mError = NoError;
  // Tags and indentation take about as much again as the texts; the buffer grows when it is more.
  const size_t estimate = std::min<size_t>(mData.textSize() + 24 * size_t(mData.nodeCount()),
                                           size_t(NXmlLimits::kMaxBytes) / 2 - 16);
  const auto finish = [this](auto& sink) {
    writeTree(sink);
    return mError == NoError ? sink.take() : QByteArray();
  };
  if (utf16) {
    CUtf16Sink sink(estimate);
    return finish(sink);
  }
  CUtf8Sink sink(estimate);
  return finish(sink);
}

template <class Sink>
void CXmlWriter::writeTree(Sink& sink) {
  sink.put("<?xml version=\"1.0\" encoding=\"");
  sink.put(std::is_same_v<Sink, CUtf16Sink> ? "UTF-16" : "UTF-8");
  sink.put("\"?>\n");
  std::vector<quint32> open;  // the elements whose end is still to be written
  quint32 next = 0;
  while (mError == NoError && (next != kNone || !open.empty())) {
    if (next == kNone) {
      const quint32 element = open.back();
      open.pop_back();
      closeElement(sink, mData.node(element), static_cast<int>(open.size()));
      next = open.empty() ? kNone : mData.node(element).next;
    } else if (mData.node(next).kind == SDomNode::Element) {
      openElement(sink, mData.node(next), static_cast<int>(open.size()));
      open.push_back(next);
      next = mData.node(next).firstChild;
    } else {
      putLeaf(sink, mData.node(next));
      next = mData.node(next).next;
    }
    mError = open.size() > NXmlLimits::kMaxDepth ? TooDeep : sink.isTooLarge() ? TooLarge : NoError;
  }
}

template <class Sink>
void CXmlWriter::putLeaf(Sink& sink, const SDomNode& node) {
  if (node.kind == SDomNode::Other)
    sink.put("<!---->");
  else
    putEscaped(sink, mData.text(node.text), false);
}

template <class Sink>
void CXmlWriter::openElement(Sink& sink, const SDomNode& element, int depth) {
  putIndentation(sink, depth);
  sink.put("<");
  sink.put(mData.name(element.element.name));
  for (quint32 i = element.element.firstAttribute; i != kNone; i = mData.attribute(i).next) {
    sink.put(" ");
    sink.put(mData.name(mData.attribute(i).name));
    sink.put("=\"");
    putEscaped(sink, mData.text(mData.attribute(i).value), true);
    sink.put("\"");
  }
  if (element.firstChild == kNone)
    sink.put("/>\n");
  else
    sink.put(holdsText(element) ? ">" : ">\n");
}

template <class Sink>
void CXmlWriter::closeElement(Sink& sink, const SDomNode& element, int depth) {
  if (element.firstChild == kNone) return;
  if (!holdsText(element)) putIndentation(sink, depth);
  sink.put("</");
  sink.put(mData.name(element.element.name));
  sink.put(">\n");
}

/// Elements hold texts or elements; white space may be added only where there is no text.
bool CXmlWriter::holdsText(const SDomNode& element) const {
  return mData.node(element.firstChild).kind != SDomNode::Element;
}
