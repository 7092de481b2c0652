#include "CXmlParser.h"

#include "NLumoXmlTags.h"
#include "XmlText.h"

#include <cstring>
#include <new>

namespace {

bool startsWith(const QByteArray& bytes, std::string_view mark) {
  return std::string_view(bytes.constData(), static_cast<size_t>(bytes.size()))
             .substr(0, mark.size()) == mark;
}

/// Byte order of a text in UTF-16, told by its mark or its first character.
enum class EUtf16 { None, LittleEndian, BigEndian };

EUtf16 utf16Order(const QByteArray& bytes) {
  using namespace std::string_view_literals;
  if (startsWith(bytes, "\xFF\xFE"sv) || startsWith(bytes, "<\0"sv)) {
    return EUtf16::LittleEndian;
  }
  const bool big = startsWith(bytes, "\xFE\xFF"sv) || startsWith(bytes, "\0<"sv);
  return big ? EUtf16::BigEndian : EUtf16::None;
}

char16_t unitAt(const QByteArray& bytes, int position, EUtf16 order) {
  const auto* b = reinterpret_cast<const uchar*>(bytes.constData()) + position;
  return order == EUtf16::LittleEndian ? static_cast<char16_t>(b[0] | (b[1] << 8))
                                       : static_cast<char16_t>(b[1] | (b[0] << 8));
}

/// Line of the first surrogate that has no partner, or 0. expat takes whatever follows a high
/// surrogate for its partner, markup included.
int lineOfLoneSurrogate(const QByteArray& bytes, EUtf16 order) {
  int line = 1;
  for (int i = 0; i + 1 < bytes.size(); i += 2) {
    const char16_t unit = unitAt(bytes, i, order);
    line += unit == u'\n' ? 1 : 0;
    if (!QChar::isSurrogate(unit)) {
      continue;
    }
    const bool paired = QChar::isHighSurrogate(unit) && i + 3 < bytes.size() &&
                        QChar::isLowSurrogate(unitAt(bytes, i + 2, order));
    if (!paired) {
      return line;
    }
    i += 2;
  }
  return 0;
}

/// Characters of windows-1252 where it differs from ISO-8859-1; -1 for those it does not define.
constexpr int kWindows1252[32] = {0x20AC, -1,     0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, -1,     0x017D, -1,
                                  -1,     0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, -1,     0x017E, 0x0178};

int furtherEncoding(void* /*data*/, const XML_Char* name, XML_Encoding* encoding) {
  if (qstricmp(name, "windows-1252") != 0) {
    return XML_STATUS_ERROR;
  }
  for (int i = 0; i < 256; ++i) {
    encoding->map[i] = i >= 0x80 && i < 0xA0 ? kWindows1252[i - 0x80] : i;
  }
  encoding->convert = nullptr;
  encoding->release = nullptr;
  encoding->data = nullptr;
  return XML_STATUS_OK;
}

}  // namespace

/// The parser's C interface. Nothing may be thrown through it, so a lack of memory is noted there.
struct CXmlParser::SHandlers {
  template <class Action>
  static void call(void* userData, Action action) {
    auto* self = static_cast<CXmlParser*>(userData);
    if (self->mStopped) {
      return;
    }
    try {
      action(*self);
    } catch (const std::bad_alloc&) {
      self->mOutOfMemory = true;
      self->mStopped = true;
      XML_StopParser(self->mParser.get(), XML_FALSE);
    }
  }

  static void declaration(void* data, const char* /*version*/, const char* encoding, int) {
    call(data, [=](CXmlParser& p) { p.declaration(encoding); });
  }
  static void doctype(void* data, const char*, const char* systemId, const char* publicId,
                      int hasInternalSubset) {
    call(data, [=](CXmlParser& p) {
      p.doctype(hasInternalSubset != 0, systemId != nullptr || publicId != nullptr);
    });
  }
  static void start(void* data, const char* tag, const char** attributes) {
    call(data, [=](CXmlParser& p) { p.startElement(tag, attributes); });
  }
  static void end(void* data, const char* /*tag*/) {
    call(data, [](CXmlParser& p) { p.endElement(); });
  }
  static void characters(void* data, const char* text, int length) {
    call(data, [=](CXmlParser& p) { p.characters({text, static_cast<size_t>(length)}); });
  }
  static void startCData(void* data) {
    call(data, [](CXmlParser& p) { p.startCData(); });
  }
  static void endCData(void* data) {
    call(data, [](CXmlParser& p) { p.endCData(); });
  }
  static void comment(void* data, const char* /*text*/) {
    call(data, [](CXmlParser& p) { p.otherNode(); });
  }
  static void instruction(void* data, const char* /*target*/, const char* /*text*/) {
    call(data, [](CXmlParser& p) { p.otherNode(); });
  }
};

CXmlParser::CXmlParser(CDomData& data, EExtent extent)
    : mData(data), mExtent(extent), mParser(XML_ParserCreate(nullptr), &XML_ParserFree) {}

bool CXmlParser::parse(const QByteArray& bytes, QString& error) {
  try {
    const bool done = checkBytes(bytes) && run(bytes);
    if (!done && mDoctypeEnd >= 0 && mError.isEmpty() && !mOutOfMemory) {
      CXmlParser again(mData, mExtent);
      again.mDoctypeTakenOut = true;
      return again.parse(withoutDoctype(bytes), error);
    }
    error = mOutOfMemory ? tr("There is not enough memory to read the document.") : mError;
    return done;
  } catch (const std::bad_alloc&) {
    error = tr("There is not enough memory to read the document.");
    return false;
  }
}

bool CXmlParser::checkBytes(const QByteArray& bytes) {
  if (!mParser) {
    throw std::bad_alloc();
  }
  if (bytes.size() > NXmlLimits::kMaxBytes) {
    mError = tr("The document is larger than 512 MiB.");
    return false;
  }
  const EUtf16 order = utf16Order(bytes);
  if (order == EUtf16::None) {
    mMark = startsWith(bytes, "\xEF\xBB\xBF") ? Utf8Mark : NoMark;
    return true;
  }
  mMark = Utf16Mark;
  if (bytes.size() % 2 != 0) {
    mError = tr("The document is in UTF-16 but has an odd number of bytes.");
    return false;
  }
  const int badLine = lineOfLoneSurrogate(bytes, order);
  if (badLine > 0) {
    failAt(badLine, tr("half of a surrogate pair stands alone"));
  }
  return badLine == 0;
}

bool CXmlParser::run(const QByteArray& bytes) {
  installHandlers();
  // One call with all bytes: a long token is then scanned once, however long it is.
  const XML_Status status = XML_Parse(mParser.get(), bytes.constData(), bytes.size(), 1);
  if (status == XML_STATUS_OK || (mStopped && mError.isEmpty() && mDoctypeEnd < 0)) {
    return !mOutOfMemory;
  }
  const XML_Error code = XML_GetErrorCode(mParser.get());
  if (code == XML_ERROR_NO_MEMORY) {
    mOutOfMemory = true;
  } else if (!mStopped) {
    fail(reasonOf(code));
  }
  return false;
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

/// The bytes with the document type declaration turned into a comment. With an external id the
/// parser would pass over undeclared entities in silence; without the declaration it refuses them.
QByteArray CXmlParser::withoutDoctype(const QByteArray& bytes) const {
  QByteArray result = bytes;
  const EUtf16 order = utf16Order(bytes);
  const int width = order == EUtf16::None ? 1 : 2;
  const int low = order == EUtf16::BigEndian ? 1 : 0;
  const auto encoded = [&](const char* ascii) {
    QByteArray text(width * static_cast<int>(qstrlen(ascii)), '\0');
    for (int i = 0; ascii[i] != '\0'; ++i) {
      text[i * width + low] = ascii[i];
    }
    return text;
  };
  const auto end = static_cast<int>(mDoctypeEnd);
  const int begin = bytes.lastIndexOf(encoded("<!DOCTYPE"), end);
  if (begin < 0 || begin % width != 0) {
    return result;
  }
  for (int i = begin; i < end; i += width) {
    const bool lineEnd = bytes.at(i + low) == '\n' || bytes.at(i + low) == '\r';
    if (!lineEnd) {
      result.replace(i, width, encoded(" "));
    }
  }
  result.replace(begin, 4 * width, encoded("<!--"));
  return result.replace(end - 2 * width, 2 * width, encoded("--"));
}

QString CXmlParser::reasonOf(XML_Error code) const {
  switch (code) {
    case XML_ERROR_NO_ELEMENTS:
      return tr("there is no root element, the document ends too early");
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_PARTIAL_CHAR:
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
      return tr("the document ends within a tag, text or comment");
    case XML_ERROR_INVALID_TOKEN:
      return tr("a character or mark-up stands here that XML does not allow");
    case XML_ERROR_TAG_MISMATCH: {
      const auto open = mData.name(mData.node(mOpen.back()).element.name);
      return tr("the closing tag does not match the open tag <%1> of line %2")
          .arg(NXmlText::toQString(open), QString::number(mData.node(mOpen.back()).line));
    }
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
      return tr("an attribute stands twice in one tag");
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
      return tr("an XML declaration stands elsewhere than at the very start");
    case XML_ERROR_XML_DECL:
      return tr("the XML declaration is not well-formed");
    default:
      return QString::fromLatin1(XML_ErrorString(code));
  }
}

void CXmlParser::declaration(const char* encoding) {
  // The parser itself compares UTF-16 with the declaration, but not the mark of UTF-8.
  if (mMark == Utf8Mark && encoding != nullptr && qstricmp(encoding, "UTF-8") != 0) {
    fail(reasonOf(XML_ERROR_INCORRECT_ENCODING));
  }
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
}

void CXmlParser::endElement() {
  if (mData.node(mOpen.back()).firstChild == kNone) {
    keepBlankText();
  }
  closeText();
  const quint32 element = mOpen.back();
  mOpen.pop_back();
  if (mExtent == HeadOnly && mOpen.size() == 1 && mData.hasName(element, NLumoXmlTags::TAG_HEAD)) {
    mStopped = true;
    XML_StopParser(mParser.get(), XML_FALSE);
  }
}

void CXmlParser::characters(std::string_view text) {
  const SDomText added = mData.addText(text);
  if (mText.length == 0) {
    mText.begin = added.begin;
  }
  mText.length += added.length;
  for (size_t i = 0; mTextIsBlank && i < text.size(); ++i) {
    mTextIsBlank = NXmlText::isSpace(static_cast<uchar>(text[i]));
  }
}

void CXmlParser::startCData() {
  closeText();
  mTextIsBlank = false;
}

void CXmlParser::endCData() {
  mData.appendText(mOpen.back(), SDomNode::CData, mText, static_cast<quint32>(line()));
  mText = SDomText();
  mTextIsBlank = true;
}

void CXmlParser::otherNode() {
  closeText();
  if (!mOpen.empty()) {
    mData.appendNode(mOpen.back(), SDomNode::Other, static_cast<quint32>(line()));
  }
}

/// Ends the character data that another node follows or that its element's end follows: blank
/// text there is layout.
void CXmlParser::closeText() {
  if (!mTextIsBlank) {
    mData.appendText(mOpen.back(), SDomNode::Text, mText, static_cast<quint32>(line()));
  } else if (mText.length > 0) {
    mData.dropLastText(mText);
  }
  mText = SDomText();
  mTextIsBlank = true;
}

/// Blank text that is all that its element holds is a value, not layout.
void CXmlParser::keepBlankText() {
  mTextIsBlank = mTextIsBlank && mText.length == 0;
}

void CXmlParser::fail(const QString& reason) {
  failAt(line(), reason);
}

void CXmlParser::failAt(int line, const QString& reason) {
  mError = tr("Line %1: %2.").arg(QString::number(line), reason);
  mStopped = true;
  XML_StopParser(mParser.get(), XML_FALSE);
}

int CXmlParser::line() const {
  return static_cast<int>(XML_GetCurrentLineNumber(mParser.get()));
}
