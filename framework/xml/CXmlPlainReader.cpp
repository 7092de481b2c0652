#include "CXmlPlainReader.h"

#include "NUtf16.h"
#include "NXmlText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

/// What a byte may be part of.
enum EByte : quint8 {
  InText = 1,       ///< a character of a text that means nothing else
  InAttribute = 2,  ///< the same of an attribute, quotes excepted
  InName = 4,
  BeginsName = 8
};

constexpr bool isLetter(int c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
}

constexpr std::array<quint8, 256> kindsOfBytes() {
  std::array<quint8, 256> kinds{};
  for (int c = 0x20; c < 0x80; ++c) {
    const bool isPlain = c != '<' && c != '&';
    const bool isNamed = isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
    kinds[static_cast<size_t>(c)] = static_cast<quint8>(
        (isPlain && c != ']' ? InText : 0) | (isPlain && c != '"' && c != '\'' ? InAttribute : 0) |
        (isNamed ? InName : 0) | (isLetter(c) ? BeginsName : 0));
  }
  return kinds;
}
constexpr std::array<quint8, 256> kBytes = kindsOfBytes();

bool is(const char* at, EByte kind) {
  return (kBytes[static_cast<uchar>(*at)] & kind) != 0;
}

/// Carriage returns are left to the parser, which turns them into line feeds.
bool isSpace(char c) {
  return c == ' ' || c == '\n' || c == '\t';
}

/// The length of a character beyond ASCII that XML allows; 0 for anything else. The bytes end in a
/// zero.
int lengthOfCharacter(const char* at) {
  const auto byte = [at](int i) { return static_cast<uchar>(at[i]); };
  const auto follows = [&byte](int i) { return (byte(i) & 0xC0U) == 0x80; };
  const uchar first = byte(0);
  if (first < 0xC2 || first > 0xF4 || !follows(1)) return 0;
  if (first < 0xE0) return 2;
  if (!follows(2)) return 0;
  const uchar second = byte(1);
  if (first < 0xF0) {
    const bool isTooLong = first == 0xE0 && second < 0xA0;
    const bool isSurrogate = first == 0xED && second >= 0xA0;
    const bool isNoCharacter = first == 0xEF && second == 0xBF && byte(2) >= 0xBE;
    return isTooLong || isSurrogate || isNoCharacter ? 0 : 3;
  }
  const bool isTooLong = first == 0xF0 && second < 0x90;
  const bool isTooLarge = first == 0xF4 && second >= 0x90;
  return isTooLong || isTooLarge || !follows(3) ? 0 : 4;
}

/// False for a large document that is beyond the limits: it would be read twice to be refused.
bool mayFit(std::string_view document) {
  constexpr size_t kSmallest = 4 * NXmlLimits::kMaxMarkUp;  // of "<a/>"
  if (document.size() < kSmallest) return true;
  size_t markUp = 0;
  size_t texts = 0;
  for (size_t i = 1; i + 1 < document.size(); ++i) {
    const bool isTag = document[i] == '<';
    const bool isValue = document[i] == '=' && (document[i + 1] == '"' || document[i + 1] == '\'');
    if (isValue || (isTag && document[i + 1] != '/')) ++markUp;
    if (isTag && document[i - 1] != '>' && !isSpace(document[i - 1])) ++texts;
  }
  return markUp <= NXmlLimits::kMaxMarkUp && markUp + texts <= NXmlLimits::kMaxNodes;
}

}  // namespace

std::unique_ptr<CDomData> CXmlPlainReader::read(const QByteArray& bytes) {
  const NUtf16::EOrder order = NUtf16::orderOf(bytes);
  QByteArray utf8 = bytes;
  if (bytes.size() > NXmlLimits::kMaxBytes) return nullptr;
  if (order != NUtf16::None && (bytes.size() % 2 != 0 || !NUtf16::toUtf8(bytes, order, utf8)))
    return nullptr;
  if (utf8.capacity() == 0) utf8 = QByteArray(bytes.constData(), bytes.size());  // ends in a zero
  auto data = std::make_unique<CDomData>();
  data->setDocument(utf8);
  if (!mayFit(data->document())) return nullptr;
  return CXmlPlainReader(*data, order != NUtf16::None).readDocument() ? std::move(data) : nullptr;
}

CXmlPlainReader::CXmlPlainReader(CDomData& data, bool isFromUtf16)
    : mData(data),
      mIsFromUtf16(isFromUtf16),
      mBegin(data.document().data()),
      mEnd(mBegin + data.document().size()),
      mAt(mBegin) {}

bool CXmlPlainReader::readDocument() {
  skip("\xEF\xBB\xBF");
  if (skip("<?xml ") && !readDeclaration()) return false;
  skipSpace();
  if (!readTree()) return false;
  skipSpace();
  return isDone();
}

bool CXmlPlainReader::readDeclaration() {
  return skip("version=\"1.0\" encoding=\"") && skip(mIsFromUtf16 ? "UTF-16\"?>" : "UTF-8\"?>");
}

bool CXmlPlainReader::readTree() {
  if (*mAt != '<') return false;
  do {
    const bool isRead = mAt[1] == '/'   ? readEndTag()
                        : mAt[1] == '!' ? readEmptyComment()
                                        : readStartTag();
    if (!isRead || (!mOpen.empty() && !readText())) return false;
  } while (!mOpen.empty());
  return true;
}

bool CXmlPlainReader::readStartTag() {
  ++mAt;
  const quint32 line = mLine;
  const std::string_view tag = readName();
  if (tag.empty() || mOpen.size() >= NXmlLimits::kMaxDepth) return false;
  const quint32 parent = mOpen.empty() ? kNone : mOpen.back();
  const quint32 element = mData.appendElement(parent, mData.internName(tag), line);
  while (isSpace(*mAt)) {
    skipSpace();
    if (is(mAt, BeginsName) && !readAttribute(element)) return false;
  }
  const bool isEmpty = skip("/");
  if (!isEmpty) mOpen.push_back(element);
  return skip(">") && !mData.isFull();
}

bool CXmlPlainReader::readAttribute(quint32 element) {
  constexpr int kMost = 16;  // more are hardly plain, and each is looked for among the others
  const quint32 name = mData.internName(readName());
  int count = 0;
  for (quint32 i = mData.node(element).element.firstAttribute; i != kNone;
       i = mData.attribute(i).next) {
    if (mData.attribute(i).name == name || ++count == kMost) return false;
  }
  const char quote = skip("=") ? *mAt : '\0';
  if (quote != '"' && quote != '\'') return false;
  const char* const begin = ++mAt;
  SDomText value;
  if (!readPiece(begin, quote, value)) return false;
  mData.appendAttribute(element, name, value);
  ++mAt;
  return isSpace(*mAt) || *mAt == '>' || *mAt == '/';
}

bool CXmlPlainReader::readEndTag() {
  mAt += 2;
  if (mOpen.empty() || !skip(mData.name(mData.node(mOpen.back()).element.name))) return false;
  skipSpace();
  mOpen.pop_back();
  return skip(">");
}

bool CXmlPlainReader::readEmptyComment() {
  if (mOpen.empty() || !skip("<!---->")) return false;
  mData.appendNode(mOpen.back(), SDomNode::Other);
  return !mData.isFull();
}

/// Up to the next tag. White space alone is layout, unless it is all that its element holds.
bool CXmlPlainReader::readText() {
  const char* const begin = mAt;
  skipSpace();
  if (*mAt == '<' &&
      (mAt == begin || mAt[1] != '/' || mData.node(mOpen.back()).firstChild != kNone)) {
    return true;
  }
  SDomText text;
  if (!readPiece(begin, '<', text)) return false;
  mData.appendText(mOpen.back(), SDomNode::Text, text);
  return !mData.isFull();
}

/// Up to a character that ends it: a piece of the document, or what references make of it.
bool CXmlPlainReader::readPiece(const char* begin, char end, SDomText& piece) {
  const bool isText = end == '<';
  const char* copied = begin;
  mDecoded.clear();
  for (;;) {
    while (is(mAt, isText ? InText : InAttribute)) ++mAt;
    if (*mAt == end) break;
    if (*mAt == '&') {
      mDecoded.append(copied, mAt);
      if (!readReference(mDecoded)) return false;
      copied = mAt;
    } else if (isText ? !skipRareOfText() : !skipRareOfAttribute()) {
      return false;
    }
  }
  piece = pieceFrom(begin);
  if (copied == begin) return true;
  mDecoded.append(copied, mAt);
  piece = mData.addText(mDecoded);
  return !std::all_of(mDecoded.begin(), mDecoded.end(), NXmlText::isSpace);  // that may be layout
}

bool CXmlPlainReader::skipRareOfText() {
  if (isSpace(*mAt)) {
    skipSpace();
    return true;
  }
  if (*mAt != ']') return skipCharacter();
  ++mAt;
  return *mAt != ']' || mAt[1] != '>';
}

bool CXmlPlainReader::skipRareOfAttribute() {
  if (*mAt != '"' && *mAt != '\'') return skipCharacter();
  ++mAt;
  return true;
}

bool CXmlPlainReader::readReference(std::string& text) {
  struct SEntity {
    std::string_view name;
    char character;
  };
  constexpr SEntity kEntities[] = {
      {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
  for (const SEntity& entity : kEntities) {
    if (!skip(entity.name)) continue;
    text += entity.character;
    return true;
  }
  return skip("&#") && readCharacterReference(text);
}

bool CXmlPlainReader::readCharacterReference(std::string& text) {
  constexpr ptrdiff_t kMostDigits = 8;
  const bool isHex = skip("x");
  const char* const end = std::find(mAt, mAt + std::min<ptrdiff_t>(kMostDigits, mEnd - mAt), ';');
  quint32 number = 0;
  const auto [stop, error] = std::from_chars(mAt, end, number, isHex ? 16 : 10);
  if (error != std::errc() || stop != end || *end != ';' || !NXmlText::isCharacter(number))
    return false;
  mAt = end + 1;
  NXmlText::appendUtf8(QString::fromUcs4(&number, 1), text);
  return true;
}

/// A character beyond ASCII.
bool CXmlPlainReader::skipCharacter() {
  const int length = lengthOfCharacter(mAt);
  mAt += length;
  return length > 0;
}

/// A text without zeros, so that it does not go on beyond the end.
bool CXmlPlainReader::skip(std::string_view expected) {
  const char* at = mAt;
  for (const char c : expected)
    if (*at++ != c) return false;
  mAt = at;
  return true;
}

void CXmlPlainReader::skipSpace() {
  for (; isSpace(*mAt); ++mAt)
    if (*mAt == '\n') ++mLine;
}

std::string_view CXmlPlainReader::readName() {
  const char* const begin = mAt;
  if (is(mAt, BeginsName))
    while (is(mAt, InName)) ++mAt;
  return {begin, static_cast<size_t>(mAt - begin)};
}

SDomText CXmlPlainReader::pieceFrom(const char* begin) const {
  return {static_cast<quint32>(begin - mBegin), static_cast<quint32>(mAt - begin)};
}
