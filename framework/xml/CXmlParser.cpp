#include "CXmlParser.h"

#include "NLumoXmlTags.h"
#include "NUtf16.h"
#include "NXmlText.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>

namespace {

/// Characters of windows-1252 where it differs from ISO-8859-1; -1 for those it does not define.
constexpr int kWindows1252[32] = {0x20AC, -1,     0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, -1,     0x017D, -1,
                                  -1,     0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, -1,     0x017E, 0x0178};

int furtherEncoding(void* /*data*/, const XML_Char* name, XML_Encoding* encoding) {
  if (qstricmp(name, "windows-1252") != 0) return XML_STATUS_ERROR;
  for (int i = 0; i < 256; ++i)
    encoding->map[i] = i >= 0x80 && i < 0xA0 ? kWindows1252[i - 0x80] : i;
  encoding->convert = nullptr;
  encoding->release = nullptr;
  encoding->data = nullptr;
  return XML_STATUS_OK;
}

}  // namespace

/// The parser's C interface. Nothing may be thrown through it, so a lack of memory is noted there.
struct CXmlParser::SHandlers {
  template <class Action, class... Args>
  static void call(void* userData, Action action, Args... args) {
    auto* self = static_cast<CXmlParser*>(userData);
    if (self->mStopped) return;
    try {
      std::invoke(action, *self, args...);
      if (self->mData.isFull() && !self->mStopped)
        self->fail(tr("the document has too many nodes or different names"));
    } catch (const std::bad_alloc&) {
      self->mOutOfMemory = true;
      self->mStopped = true;
      XML_StopParser(self->mParser.get(), XML_FALSE);
    }
  }

  static void declaration(void* data, const char* /*version*/, const char* encoding, int) {
    call(data, &CXmlParser::declaration, encoding);
  }
  static void doctype(void* data, const char*, const char* systemId, const char* publicId,
                      int hasInternalSubset) {
    call(data, &CXmlParser::doctype, hasInternalSubset != 0,
         systemId != nullptr || publicId != nullptr);
  }
  static void start(void* data, const char* tag, const char** attributes) {
    call(data, &CXmlParser::startElement, tag, attributes);
  }
  static void end(void* data, const char* /*tag*/) { call(data, &CXmlParser::endElement); }
  static void characters(void* data, const char* text, int length) {
    call(data, &CXmlParser::characters, std::string_view(text, static_cast<size_t>(length)));
  }
  static void startCData(void* data) { call(data, &CXmlParser::startCData); }
  static void endCData(void* data) { call(data, &CXmlParser::endCData); }
  static void comment(void* data, const char* /*text*/) { call(data, &CXmlParser::otherNode); }
  static void instruction(void* data, const char* /*target*/, const char* /*text*/) {
    call(data, &CXmlParser::otherNode);
  }
};

CXmlParser::CXmlParser(CDomData& data, EExtent extent)
    : mData(data), mExtent(extent), mParser(nullptr, &XML_ParserFree) {}

bool CXmlParser::parse(const QByteArray& bytes, QString& error) {
  const bool done = bytes.size() <= NXmlLimits::kMaxBytes
                        ? decodeAndRun(bytes)
                        : failWithoutLine(tr("The document is larger than 512 MiB."));
  if (mOutOfMemory) throw std::bad_alloc();
  error = mError;
  return done;
}

/// expat reads UTF-8 faster than UTF-16 and does not look whether surrogates pair, so UTF-16 is
/// turned into UTF-8 first.
bool CXmlParser::decodeAndRun(const QByteArray& bytes) {
  mUtf16Order = NUtf16::orderOf(bytes);
  if (mUtf16Order == NUtf16::None) {
    mHasUtf8Mark = bytes.startsWith("\xEF\xBB\xBF");
    return run(bytes, nullptr);
  }
  if (bytes.size() % 2 != 0)
    return failWithoutLine(tr("The document is in UTF-16 but has an odd number of bytes."));
  QByteArray utf8;
  if (!NUtf16::toUtf8(bytes, mUtf16Order, utf8)) {
    mInput = utf8;
    return failAt(countLinesTo(utf8.size()), tr("unpaired surrogate"));
  }
  return run(utf8, "UTF-8");
}

bool CXmlParser::run(const QByteArray& bytes, const char* encoding) {
  mInput = bytes;
  mData.reserveFor(static_cast<size_t>(mInput.size()));
  mData.reserveText(static_cast<size_t>(mInput.size()));
  start(encoding);
  // One call with all bytes: a long token is then scanned once, however long it is.
  if (XML_Parse(mParser.get(), mInput.constData(), mInput.size(), 1) == XML_STATUS_OK) return true;
  const XML_Error code = XML_GetErrorCode(mParser.get());
  if (code == XML_ERROR_NO_MEMORY)
    mOutOfMemory = true;
  else if (!mStopped)
    fail(reasonOf(code));
  if (mDoctypeEnd >= 0) return runWithoutDoctype(encoding);
  return mStopped && mError.isEmpty();  // all that was wanted is read
}

/// With an external id the parser would pass over undeclared entities in silence; with the
/// declaration turned into a comment it refuses them.
bool CXmlParser::runWithoutDoctype(const char* encoding) {
  const auto end = static_cast<int>(mDoctypeEnd);
  const int begin = mInput.indexOf("<!DOCTYPE", static_cast<int>(mPrologEnd));
  QByteArray bytes = mInput;
  for (int i = begin; i >= 0 && i < end; ++i)
    if (bytes.at(i) != '\n' && bytes.at(i) != '\r') bytes[i] = ' ';
  bytes.replace(begin, 4, "<!--").replace(end - 2, 2, "--");
  mDoctypeEnd = -1;
  mDoctypeTakenOut = true;
  mStopped = false;
  return run(bytes, encoding);
}

void CXmlParser::start(const char* encoding) {
  mParser.reset(XML_ParserCreate(encoding));
  if (!mParser) throw std::bad_alloc();
  installHandlers();
}

void CXmlParser::installHandlers() {
  XML_Parser parser = mParser.get();
  XML_SetUserData(parser, this);
  XML_SetElementHandler(parser, &SHandlers::start, &SHandlers::end);
  XML_SetCharacterDataHandler(parser, &SHandlers::characters);
  XML_SetCdataSectionHandler(parser, &SHandlers::startCData, &SHandlers::endCData);
  XML_SetCommentHandler(parser, &SHandlers::comment);
  XML_SetProcessingInstructionHandler(parser, &SHandlers::instruction);
  XML_SetXmlDeclHandler(parser, &SHandlers::declaration);
  XML_SetStartDoctypeDeclHandler(parser, &SHandlers::doctype);
  XML_SetUnknownEncodingHandler(parser, &furtherEncoding, nullptr);
}

QString CXmlParser::reasonOf(XML_Error code) const {
  switch (code) {
    case XML_ERROR_NO_ELEMENTS:
      return mOpen.empty() ? tr("there is no root element")
                           : withOpenTag(tr("the document ends before the tag <%1> of line %2 is "
                                            "closed"));
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_PARTIAL_CHAR:
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
      return tr("the document ends within a tag, text or comment");
    case XML_ERROR_INVALID_TOKEN:
    case XML_ERROR_SYNTAX:
      return tr("markup or character not allowed here");
    case XML_ERROR_TAG_MISMATCH:
      return withOpenTag(tr("the closing tag does not match the open tag <%1> of line %2"));
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
      return tr("an attribute is repeated in one tag");
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
      return tr("something follows the end of the root element");
    case XML_ERROR_UNDEFINED_ENTITY:
      return tr("an entity is used that is not declared");
    case XML_ERROR_BAD_CHAR_REF:
      return tr("a character reference names a character that XML does not allow");
    case XML_ERROR_UNKNOWN_ENCODING:
      return tr("the encoding that the document declares is not supported");
    case XML_ERROR_INCORRECT_ENCODING:
      return tr("the document is not in the encoding that it declares");
    case XML_ERROR_MISPLACED_XML_PI:
      return tr("the XML declaration is not at the start of the document");
    case XML_ERROR_XML_DECL:
      return tr("the XML declaration is not well-formed");
    default:
      return QString::fromLatin1(XML_ErrorString(code));
  }
}

/// Fills tag and line of the innermost open element into a text.
QString CXmlParser::withOpenTag(const QString& text) const {
  const SDomNode& node = mData.node(mOpen.back());
  return text.arg(NXmlText::toQString(mData.name(node.element.name)), QString::number(node.line));
}

void CXmlParser::declaration(const char* encoding) {
  if (encoding == nullptr) return;
  const auto declares = [encoding](const char* name) { return qstricmp(encoding, name) == 0; };
  const bool agrees =
      mUtf16Order == NUtf16::None
          ? !mHasUtf8Mark || declares("UTF-8")  // the parser itself looks at the rest
          : declares("UTF-16") ||
                declares(mUtf16Order == NUtf16::LittleEndian ? "UTF-16LE" : "UTF-16BE");
  if (!agrees) fail(reasonOf(XML_ERROR_INCORRECT_ENCODING));
}

void CXmlParser::doctype(bool hasInternalSubset, bool hasExternalId) {
  if (hasInternalSubset) {
    fail(tr("a document type declaration with declarations of its own is not allowed"));
  } else if (hasExternalId && mDoctypeTakenOut) {
    fail(tr("there is more than one document type declaration"));
  } else if (hasExternalId) {
    mDoctypeEnd = XML_GetCurrentByteIndex(mParser.get());
    mStopped = true;
    XML_StopParser(mParser.get(), XML_FALSE);
  }
}

void CXmlParser::startElement(const char* tag, const char** attributes) {
  closeText();
  if (mOpen.size() >= NXmlLimits::kMaxDepth) {
    fail(tr("the elements are nested deeper than %1").arg(NXmlLimits::kMaxDepth));
    return;
  }
  if (XML_GetSpecifiedAttributeCount(mParser.get()) > 2 * NXmlLimits::kMaxAttributes) {
    fail(tr("a tag has more than %1 attributes").arg(NXmlLimits::kMaxAttributes));
    return;
  }
  const quint32 parent = mOpen.empty() ? kNone : mOpen.back();
  const quint32 element =
      mData.appendElement(parent, mData.internName(tag), static_cast<quint32>(line()));
  for (int i = 0; attributes[i] != nullptr; i += 2) {
    mData.appendAttribute(element, mData.internName(attributes[i]),
                          mData.addText(attributes[i + 1]));
  }
  mOpen.push_back(element);
  if (mExtent == RootOnly) stop();
}

void CXmlParser::endElement() {
  if (mData.node(mOpen.back()).firstChild == kNone) keepBlankText();
  closeText();
  const quint32 element = mOpen.back();
  mOpen.pop_back();
  if (mExtent == HeadOnly && mOpen.size() == 1 && mData.hasName(element, NLumoXmlTags::TAG_HEAD))
    stop();
}

/// All that was wanted is read.
void CXmlParser::stop() {
  mStopped = true;
  XML_StopParser(mParser.get(), XML_FALSE);
}

void CXmlParser::characters(std::string_view text) {
  const SDomText added = mData.addText(text);
  if (mText.length == 0) mText.begin = added.begin;
  mText.length += added.length;
  for (size_t i = 0; mTextIsBlank && i < text.size(); ++i)
    mTextIsBlank = NXmlText::isSpace(static_cast<uchar>(text[i]));
}

void CXmlParser::startCData() {
  closeText();
  mTextIsBlank = false;
}

void CXmlParser::endCData() {
  mData.appendText(mOpen.back(), SDomNode::CData, mText);
  mText = SDomText();
  mTextIsBlank = true;
}

void CXmlParser::otherNode() {
  closeText();
  if (mOpen.empty()) {
    mPrologEnd = XML_GetCurrentByteIndex(mParser.get()) + XML_GetCurrentByteCount(mParser.get());
    return;
  }
  mData.appendNode(mOpen.back(), SDomNode::Other);
}

/// Ends the character data that another node follows or that its element's end follows: blank
/// text there is layout.
void CXmlParser::closeText() {
  if (!mTextIsBlank)
    mData.appendText(mOpen.back(), SDomNode::Text, mText);
  else if (mText.length > 0)
    mData.dropLastText(mText);
  mText = SDomText();
  mTextIsBlank = true;
}

/// Blank text that is all that its element holds is a value, not layout.
void CXmlParser::keepBlankText() {
  mTextIsBlank = mTextIsBlank && mText.length == 0;
}

bool CXmlParser::fail(const QString& reason) {
  return failAt(line(), reason);
}

bool CXmlParser::failAt(int line, const QString& reason) {
  return failWithoutLine(tr("Line %1: %2.").arg(QString::number(line), reason));
}

bool CXmlParser::failWithoutLine(const QString& message) {
  mError = message;
  mStopped = true;
  if (mParser) XML_StopParser(mParser.get(), XML_FALSE);
  return false;
}

int CXmlParser::line() {
  return countLinesTo(XML_GetCurrentByteIndex(mParser.get()));
}

/// Counts on from where the last count ended; positions only grow while the text is read.
int CXmlParser::countLinesTo(qint64 position) {
  const char* end = mInput.constData() + position;
  const char* text = mInput.constData() + mCountedTo;
  while (text < end) {
    const void* lineEnd = std::memchr(text, '\n', static_cast<size_t>(end - text));
    if (lineEnd == nullptr) break;
    text = static_cast<const char*>(lineEnd) + 1;
    ++mCountedLine;
  }
  mCountedTo = std::max(mCountedTo, position);
  return mCountedLine;
}
