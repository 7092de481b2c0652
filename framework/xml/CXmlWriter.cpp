#include "CXmlWriter.h"

#include <array>

namespace {

/// Collects UTF-8 as it is.
class CUtf8Sink {
 public:
  explicit CUtf8Sink(size_t size) { mBytes.reserve(static_cast<int>(size)); }
  void put(std::string_view utf8) { mBytes.append(utf8.data(), static_cast<int>(utf8.size())); }
  qint64 size() const { return mBytes.size(); }
  QByteArray take() { return std::move(mBytes); }

 private:
  QByteArray mBytes;
};

/// Collects UTF-8 as UTF-16, little endian, behind a byte order mark.
class CUtf16Sink {
 public:
  explicit CUtf16Sink(size_t size) {
    mBytes.reserve(static_cast<int>(2 * size + 2));
    putUnit(0xFEFF);
  }

  void put(std::string_view utf8) {
    for (size_t i = 0; i < utf8.size();) {
      const auto lead = static_cast<uchar>(utf8[i++]);
      if (lead < 0x80) {
        putUnit(lead);
        continue;
      }
      int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
      char32_t c = lead & (0x3Fu >> more);
      for (; more > 0; --more) {
        c = (c << 6) | (static_cast<uchar>(utf8[i++]) & 0x3Fu);
      }
      putCharacter(c);
    }
  }
  qint64 size() const { return mBytes.size(); }
  QByteArray take() { return std::move(mBytes); }

 private:
  void putCharacter(char32_t c) {
    if (QChar::requiresSurrogates(c)) {
      putUnit(QChar::highSurrogate(c));
      putUnit(QChar::lowSurrogate(c));
    } else {
      putUnit(static_cast<char16_t>(c));
    }
  }
  void putUnit(char16_t unit) {
    const std::array<char, 2> bytes{static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    mBytes.append(bytes.data(), 2);
  }

  QByteArray mBytes;
};

/// What stands for a character, or nothing when it stands for itself. A carriage return would be
/// read as a line feed, white space in an attribute as a blank.
std::string_view reference(char c, bool inAttribute) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";
    case '"':
      return inAttribute ? "&quot;" : "";
    case '\n':
      return inAttribute ? "&#10;" : "";
    case '\t':
      return inAttribute ? "&#9;" : "";
    default:
      return "";
  }
}

template <class Sink>
void putEscaped(Sink& sink, std::string_view text, bool inAttribute) {
  size_t plain = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const std::string_view escaped = reference(text[i], inAttribute);
    if (!escaped.empty()) {
      sink.put(text.substr(plain, i - plain));
      sink.put(escaped);
      plain = i + 1;
    }
  }
  sink.put(text.substr(plain));
}

template <class Sink>
void putIndentation(Sink& sink, int depth) {
  sink.put(std::string(static_cast<size_t>(depth), ' '));
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
  quint32 next = mData.isEmpty() ? kNone : 0;
  while (mError == NoError && (next != kNone || !open.empty())) {
    if (next == kNone) {
      const quint32 element = open.back();
      open.pop_back();
      closeElement(sink, mData.node(element), static_cast<int>(open.size()));
      next = open.empty() ? kNone : mData.node(element).next;
      continue;
    }
    const SDomNode& node = mData.node(next);
    if (node.kind == SDomNode::Element) {
      openElement(sink, node, static_cast<int>(open.size()));
      open.push_back(next);
      next = node.firstChild;
    } else {
      if (node.kind == SDomNode::Other) {
        sink.put("<!---->");
      } else {
        putEscaped(sink, mData.text(node.text), false);
      }
      next = node.next;
    }
    mError = open.size() > NXmlLimits::kMaxDepth   ? TooDeep
             : sink.size() > NXmlLimits::kMaxBytes ? TooLarge
                                                   : NoError;
  }
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
  if (element.firstChild == kNone) {
    sink.put("/>\n");
  } else {
    sink.put(holdsText(element) ? ">" : ">\n");
  }
}

template <class Sink>
void CXmlWriter::closeElement(Sink& sink, const SDomNode& element, int depth) {
  if (element.firstChild == kNone) {
    return;
  }
  if (!holdsText(element)) {
    putIndentation(sink, depth);
  }
  sink.put("</");
  sink.put(mData.name(element.element.name));
  sink.put(">\n");
}

/// Elements hold texts or elements; white space may be added only where there is no text.
bool CXmlWriter::holdsText(const SDomNode& element) const {
  return mData.node(element.firstChild).kind != SDomNode::Element;
}
