#include "HostileCases.h"

#include <QStringList>

namespace NHostile {

namespace {

const QString kInvalid = "markup or character not allowed here";
const QString kSubset = "a document type declaration with declarations of its own is not allowed";
const QString kUndeclared = "an entity is used that is not declared";
const QString kReference = "a character reference names a character that XML does not allow";
const QString kEndsWithin = "the document ends within a tag, text or comment";
const QString kNoRoot = "there is no root element";
const QString kJunk = "something follows the end of the root element";
const QString kDoubled = "an attribute is repeated in one tag";
const QString kTooDeep = "the elements are nested deeper than 1024";
const QString kTooManyAttributes = "a tag has more than 256 attributes";
const QString kLone = "unpaired surrogate";
const QString kOtherEncoding = "the document is not in the encoding that it declares";
const QString kUnknownEncoding = "the encoding that the document declares is not supported";
const QString kMisplaced = "the XML declaration is not at the start of the document";
const QString kOdd = "The document is in UTF-16 but has an odd number of bytes.";

QString line(int number, const QString& reason) {
  return QStringLiteral("Line %1: %2.").arg(QString::number(number), reason);
}

QString unclosed(const QString& tag, int ofLine) {
  return QStringLiteral("the document ends before the tag <%1> of line %2 is closed")
      .arg(tag, QString::number(ofLine));
}

class CCases {
 public:
  /// The message is empty for a file that is to be read.
  void add(const QString& name, const QString& text, const QString& message) {
    add(name, text, message, message);
  }
  void add(const QString& name, const QString& text, const QString& utf16Message,
           const QString& utf8Message) {
    const auto make = [text](EEncoding encoding) -> QByteArray { return encode(text, encoding); };
    mCases.push_back({name, make, utf16Message, utf8Message});
  }
  /// The piece stands on the second line, within the root element.
  void inside(const QString& piece, const QString& reason) {
    add(piece, "<r>\n" + piece + "</r>", reason.isEmpty() ? reason : line(2, reason));
  }
  /// The piece, in one encoding after the other, is repeated between the two ends.
  void flood(const QString& name, const QString& begin, const QString& piece, int times,
             const QString& end, const QString& message) {
    const auto make = [=](EEncoding encoding) -> QByteArray {
      return encode(begin, encoding) + encode(piece, encoding).repeated(times) +
             encode(end, encoding);
    };
    mCases.push_back({name, make, message, message});
  }
  void bytes(const QString& name, std::function<QByteArray(EEncoding)> make,
             const QString& utf16Message, const QString& utf8Message) {
    mCases.push_back({name, std::move(make), utf16Message, utf8Message});
  }

  std::vector<SCase> mCases;
};

void documentTypes(CCases& cases) {
  for (const char* type :
       {"<!DOCTYPE r>", "<!DOCTYPE r SYSTEM 'x'>", "<!DOCTYPE r PUBLIC 'p' \"x\">",
        "<!DOCTYPE\nr\nSYSTEM\n'a[b]>'>", "<!--<!DOCTYPE r [-->\n<!DOCTYPE r SYSTEM '/etc/passwd'>",
        "<?p <!DOCTYPE?><!DOCTYPE other SYSTEM 'http://localhost/x.dtd'>",
        "<!-- --> <!DOCTYPE r PUBLIC '-//- -- ' '<!DOCTYPE r >'>"}) {
    cases.add(type, QString(type) + "<r/>", "");
  }
  for (const char* subset :
       {"", "<!ELEMENT r ANY>", "<!ATTLIST r a CDATA 'x'>", "<!ENTITY e 'x'>", "<!-- -->", "<?p?>",
        "<!ENTITY e SYSTEM 'file:///etc/passwd'>", "<!ENTITY % p SYSTEM 'x'> %p;",
        "<!ENTITY e 'x' NDATA n>", "<!NOTATION n SYSTEM 'x'>", "<!ENTITY a '&b;'><!ENTITY b '&a;'>",
        "%undeclared;"}) {
    for (const char* external : {"", "SYSTEM 'x' ", "PUBLIC 'p' 'x' "}) {
      const QString type = QString("\n<!DOCTYPE r %1[%2]>").arg(external, subset);
      cases.add(type, type + "<r>&e;</r>", line(2, kSubset));
    }
  }
  cases.add("doctype twice", "<!DOCTYPE r>\n<!DOCTYPE r><r/>", line(2, kInvalid));
  cases.add("doctype behind the root", "<r/>\n<!DOCTYPE r>", line(2, kJunk));
  cases.add("doctype without a name", "\n<!DOCTYPE><r/>", line(2, kInvalid));
  cases.add("doctype in small letters", "\n<!doctype r><r/>", line(2, kInvalid));
  cases.add("doctype not closed", "\n<!DOCTYPE r SYSTEM 'x'", line(2, kNoRoot));
  cases.add("external doctype twice", "<!DOCTYPE r SYSTEM 'x'><!DOCTYPE r SYSTEM 'x'><r/>",
            line(1, "there is more than one document type declaration"));
  cases.inside("<!DOCTYPE r>", kInvalid);
}

void entities(CCases& cases) {
  QString laughs = "<!ENTITY e0 'ha'>";
  for (int i = 1; i < 64; ++i) laughs += QString("<!ENTITY e%1 '&e%2;&e%2;'>").arg(i).arg(i - 1);
  cases.add("a billion laughs", "<!DOCTYPE r [" + laughs + "]><r>&e63;</r>", line(1, kSubset));
  cases.flood("quadratic blow-up", "<!DOCTYPE r [<!ENTITY e '" + QString(50000, 'x') + "'>]><r>",
              "&e;", 50000, "</r>", line(1, kSubset));
  for (const char* name : {"nbsp", "e0", "x:y"}) {
    cases.inside(QString("&%1;").arg(name), kUndeclared);
    cases.inside(QString("<a b='&%1;'/>").arg(name), kUndeclared);
    cases.add(QString("external, &%1;").arg(name),
              QString("<!DOCTYPE r SYSTEM 'x'><r>\n<a b='%1'/>&%1;</r>").arg(name),
              line(2, kUndeclared));
  }
  for (const char* piece : {"&", "&amp", "&;", "& amp;", "&#;", "&#x;", "&#x1G;", "&#-1;", "%e;&<"})
    cases.inside(piece, kInvalid);
  for (const char* number :
       {"0", "1", "x1F", "xD800", "xDFFF", "xFFFE", "65535", "x110000", "99999999999999999999"}) {
    cases.inside(QString("&#%1;").arg(number), kReference);
    cases.inside(QString("<a b='&#%1;'/>").arg(number), kReference);
  }
  cases.inside("&#9;&#10;&#13;&#x20;&#xD7FF;&#xE000;&#xFFFD;&#x10000;&#x10FFFF;%e;", "");
  cases.flood("references", "<r>", "&amp;&#65;", 2000000, "</r>", "");
}

void nesting(CCases& cases) {
  const auto nest = [&cases](int depth, const QString& message) {
    const auto make = [depth](EEncoding encoding) -> QByteArray {
      return encode("<r>\n", encoding) + encode("<a>", encoding).repeated(depth - 1) +
             encode("</a>", encoding).repeated(depth - 1) + encode("</r>", encoding);
    };
    cases.bytes(QString("%1 deep").arg(depth), make, message, message);
  };
  nest(1024, "");
  nest(1025, line(2, kTooDeep));
  nest(1000000, line(2, kTooDeep));
  cases.flood("a million open tags", "", "<a\n>", 1000000, "", line(1025, kTooDeep));
  cases.flood("a million closing tags", "<r>\n", "</a>", 1000000, "",
              line(2, "the closing tag does not match the open tag <r> of line 1"));
  cases.flood("a million brackets", "<r>\n", "<", 1000000, "", line(2, kInvalid));
}

void attributes(CCases& cases) {
  const auto many = [&cases](int count, const QString& prefix, const QString& message) {
    QString tag = "\n<r";
    for (int i = 0; i < count; ++i) tag += QString(" %1a%2=''").arg(prefix, QString::number(i));
    cases.add(QString("%1 attributes %2").arg(count).arg(prefix), tag + "/>", message);
  };
  many(256, "", "");
  for (const char* prefix : {"", "xmlns:", "n:"}) {
    many(257, prefix, line(2, kTooManyAttributes));
    many(80000, prefix, line(2, kTooManyAttributes));
  }
  cases.inside("<a b='1' c='2' b='3'/>", kDoubled);
  cases.inside("<a xmlns='1' xmlns='1'/>", kDoubled);
  cases.flood("doubled 80,000 times", "<r>\n<a", " b=''", 80000, "/></r>", line(2, kDoubled));
  for (const char* tag : {"<a b/>", "<a b=c/>", "<a b='<'/>", "<a b='1'c='2'/>", "<a 1='2'/>",
                          "<a ='1'/>", "<a b=''' />", "<a b='1\"/>", "</a b='1'>", "<a/ >", "< a/>",
                          "<-a/>", "<a\xE2\x82\xAC/>", "<a.b c~='1'/>", "</>", "<>", "<a<b/>"}) {
    cases.inside(QString::fromUtf8(tag), kInvalid);
  }
  cases.inside("<n:a xmlns:n='u' n:b='1' b='2'/><undeclared:a undeclared:b=''/>", "");
  cases.inside("<a xml:lang='de' xmlns='' xmlns:n=''/><:/><_:-.b/>", "");
}

void sizes(CCases& cases) {
  const auto large = [&cases](int megabytes, const QString& name, const QString& begin,
                              const QString& end) {
    cases.flood(QString("%1 of %2 MB").arg(name).arg(megabytes), begin, "0123456789",
                megabytes * 100000, end, "");
  };
  large(100, "a text", "<r>", "</r>");
  large(100, "a text behind a document type", "<!DOCTYPE r SYSTEM 'x'><r>", "</r>");
  large(100, "a value of an attribute", "<r a='", "'/>");
  large(20, "a comment", "<r><!--", "--></r>");
  large(20, "a CDATA section", "<r><![CDATA[", "]]></r>");
  large(20, "a processing instruction", "<r><?p ", "?></r>");
  cases.flood("a tag of 20 MB", "<", "a123456789", 2000000, "/>", "");
  cases.flood("a name of an attribute of 20 MB", "<r ", "a123456789", 2000000, "=''/>", "");
  cases.flood("blanks of 20 MB", "<r>", QString(99, ' ') + "\n", 200000, "</r>", "");
  cases.flood("ten million line ends", "", "\r\n", 10000000, "<r/>", "");
  cases.flood("CDATA sections", "<r>", "<![CDATA[x]]>", 1000000, "</r>", "");
  cases.flood("comments", "", "<!-- -->", 1000000, "<r/>", "");
  cases.flood("texts and comments", "<r>", "x<!---->", 2000000, "</r>", "");
  const QString full = "the document has too many nodes or different names";
  cases.flood("two million tags", "<r>", "<a/>", 2000000, "</r>", "");
  cases.flood("ten million tags", "<r>", "<a/>", 10000000, "</r>", line(1, full));
  cases.flood("six million tags and texts", "<r>", "<a/>x<a/>x", 3000000, "</r>", line(1, full));
  cases.flood("nine million attributes", "<r>", "<a b='' c='' d='' e='' f='' g='' h='' i='' j=''/>",
              1000000, "</r>", line(1, full));
  const auto names = [&cases](int count, const QString& message) {
    const auto make = [count](EEncoding encoding) -> QByteArray {
      QByteArray bytes = encode("<r>", encoding);
      for (int i = 0; i < count; ++i) bytes += encode(QString("<a%1/>").arg(i), encoding);
      return bytes + encode("</r>", encoding);
    };
    cases.bytes(QString("%1 names").arg(count), make, message, message);
  };
  names(200000, "");
  names(300000, line(1, full));
}

/// What no document may hold, in every place where a text may stand.
void characters(CCases& cases) {
  const QStringList places{"<r>\nx%1</r>",         "<r>\n<a b='%1'/></r>",    "<r>\n<!--%1--></r>",
                           "<r>\n<a%1/></r>",      "<r>\n<![CDATA[%1]]></r>", "<r>\n<?p %1?></r>",
                           "<r>\n<a b%1='1'/></r>"};
  for (const QString& place : places) {
    for (int c = 0; c <= 0xFFFF; ++c) {
      if ((c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c >= 0xFFFE) {
        cases.add(QString("U+%1 in %2").arg(c, 4, 16).arg(place), place.arg(QChar(c)),
                  line(2, kInvalid));
      }
    }
    const QStringList halves{QChar(0xD800), QChar(0xDFFF), QString(QChar(0xDC00)) + QChar(0xD800)};
    for (const QString& half : halves) {
      cases.add(QString("U+%1 in %2").arg(half.at(0).unicode(), 4, 16).arg(place), place.arg(half),
                line(2, kLone), line(2, kInvalid));
    }
  }
  cases.add("half a pair at the end", QString("<r/>\n") + QChar(0xD800), line(2, kLone),
            line(2, kInvalid));
  cases.inside(QString::fromUtf8("\x7F\xC2\x80\xC2\x85\xC2\xA0\xE2\x80\xA8\xEF\xBB\xBF\xEF\xBF\xBD"
                                 "\xF0\x9F\x94\xA9\xF0\x9F\xBF\xBF\xF4\x8F\xBF\xBF"),
               "");
  cases.inside(QString::fromUtf8("<\xC3\xA4 \xE5\x90\x8D='\xE5\x80\xA4'/>"), "");
}

void encodings(CCases& cases) {
  const auto declared = [&cases](const char* name, const QString& utf16, const QString& utf8) {
    cases.add(QString("declared as %1").arg(name),
              QString("<?xml version='1.0' encoding='%1'?><r/>").arg(name), utf16, utf8);
  };
  const QString other = line(1, kOtherEncoding);
  declared("UTF-8", other, "");
  declared("UTF-16", "", other);
  for (const char* name : {"ISO-8859-1", "US-ASCII", "windows-1252", "utf-8"})
    declared(name, other, "");
  for (const char* name : {"UCS-4", "UTF-7", "UTF-32", "KOI8-R", "Shift_JIS", "EBCDIC-CP-US", "x"})
    declared(name, other, line(1, kUnknownEncoding));
  // Not by this order, whichever it is, and not by UTF-8.
  cases.bytes(
      "declared in the other order",
      [](EEncoding encoding) -> QByteArray {
        return encode(QString("<?xml version='1.0' encoding='UTF-16%1'?><r/>")
                          .arg(encoding == Utf16Le ? "BE" : "LE"),
                      encoding);
      },
      other, other);
  const auto asItStands = [&cases](const char* name, const char* bytes, const QString& message) {
    cases.bytes(
        name, [bytes](EEncoding) -> QByteArray { return bytes; }, message, message);
  };
  asItStands("UTF-8 mark, ISO-8859-1 declared",
             "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?><r/>", other);
  asItStands("umlaut in US-ASCII", "<?xml version='1.0' encoding='US-ASCII'?><r>\xE4</r>",
             line(1, kInvalid));
  asItStands("unassigned in windows-1252",
             "<?xml version='1.0' encoding='windows-1252'?><r>\x81</r>", line(1, kInvalid));
  declared("", line(1, "the XML declaration is not well-formed"),
           line(1, "the XML declaration is not well-formed"));
  declared("&amp;", line(1, "the XML declaration is not well-formed"),
           line(1, "the XML declaration is not well-formed"));

  const auto damaged = [&cases](const char* name, const char* utf16Bytes, int utf16Length,
                                const char* utf8Bytes, const QString& utf16, const QString& utf8) {
    const QByteArray wide(utf16Bytes, utf16Length);
    const QByteArray narrow(utf8Bytes);
    const auto make = [wide, narrow](EEncoding encoding) -> QByteArray {
      QByteArray bytes = encode("<r>\n", encoding);
      bytes.append(encoding == Utf8 ? narrow : wide);
      return bytes.append(encode("</r>", encoding));
    };
    cases.bytes(name, make, utf16, utf8);
  };
  const QString invalid = line(2, kInvalid);
  damaged("one byte more", "\n", 1, "\xC0\x80", kOdd, invalid);
  damaged("three bytes more", "abc", 3, "\xE0\x80\x80", kOdd, invalid);
  damaged("a byte order mark of the other order is no character", "\xFF\xFE\xFE\xFF", 4, "\xFF\xFE",
          invalid, invalid);
  damaged("halves of pairs as bytes", "\xD8\xD8\xD8\xD8", 4, "\xED\xA0\x80\xED\xB0\x80",
          line(2, kLone), invalid);
  damaged("a sector of zeros", QByteArray(512, '\0').constData(), 512, "\xF4\x90\x80\x80", invalid,
          invalid);
  damaged("beyond Unicode", "\0\0\xFF\xFF", 4, "\xF8\x88\x80\x80\x80", invalid, invalid);
  damaged("a lone continuation", "\xFF\xFF", 2, "\x80", invalid, invalid);
  damaged("a sequence cut short", "\0\0", 2, "\xE2\x82", invalid, invalid);
  for (const int cut : {1, 3, 5}) {
    const auto make = [cut](EEncoding encoding) -> QByteArray {
      return encode("<r/>\n", encoding).left(cut);
    };
    cases.bytes(QString("the first %1 bytes").arg(cut), make,
                cut == 1 ? line(1, cut == 1 ? kEndsWithin : kOdd) : kOdd,
                cut == 5 ? QString() : line(1, kEndsWithin));
  }
  cases.bytes(
      "nothing", [](EEncoding) { return QByteArray(); }, line(1, kNoRoot), line(1, kNoRoot));
  cases.bytes(
      "a byte order mark alone", [](EEncoding e) -> QByteArray { return encode(QChar(0xFEFF), e); },
      line(1, kNoRoot), line(1, kNoRoot));
  cases.add("two byte order marks", QString(2, QChar(0xFEFF)) + "<r/>", line(1, kInvalid));
  cases.add("a mark and a line end", QString(QChar(0xFEFF)) + "\n<r/>", "");
}

void structure(CCases& cases) {
  for (const char* more : {"&amp;", "</r>", "<", "&#32;"}) {
    cases.add(QString("%1 behind the root").arg(more), QString("<r/>\n") + more,
              line(2, QByteArray(more) == "<" ? kEndsWithin : kInvalid));
  }
  for (const char* more : {"<r/>", "x", "<![CDATA[x]]>", "<!DOCTYPE r>"})
    cases.add(QString("%1 behind the root").arg(more), QString("<r/>\n") + more, line(2, kJunk));
  cases.add("zero behind the root", QString("<r/>\n") + QChar(0), line(2, kInvalid));
  cases.add("comments everywhere",
            "<!--a-->\n<?p?><!----><r><!-- < & -->x<!--b--><a><!--c--></a></r>\n<!--d--><?p q?>\n",
            "");
  cases.add("text before the root", "\nx<r/>", line(2, kInvalid));
  cases.add("CDATA before the root", "\n<![CDATA[x]]><r/>", line(2, kInvalid));
  for (const char* piece : {"<!-- -- -->", "<!- x -->", "<! -- x -->", "<?>", "<? p?>",
                            "<?"
                            "?>",
                            "]]>", "<![cdata[x]]>", "<![CDATA [x]]>", "<!ELEMENT r>",
                            "<![INCLUDE[x]]>", "<\0r>", "<?1?>"}) {
    cases.inside(piece, kInvalid);
  }
  for (const char* piece : {"<?xml version='1.0'?>", "<?xml?>"}) cases.inside(piece, kMisplaced);
  cases.inside("<?XML?>", kInvalid);
  cases.inside(
      "<?xml-stylesheet href='x'?><?p <r> & ]]> ?"
      "?>",
      "");
  cases.add("declaration on the second line", "\n<?xml version='1.0'?><r/>", line(2, kMisplaced));
  for (const char* text : {"version=1.0", "encoding='UTF-8'", "version='1.0' standalone='maybe'",
                           "version='1.0' version='1.0'", ""}) {
    cases.add(QString("<?xml %1?>").arg(text), QString("<?xml %1?><r/>").arg(text),
              line(1, "the XML declaration is not well-formed"));
  }
  for (const char* end :
       {"<a", "<a b", "<a b=", "<a b='", "<a b='1'", "<a/", "</", "</r", "<!", "<!--", "<!-- x --",
        "<![CDATA[", "<![CDATA[x]]", "<?", "<?p", "&", "&am", "&#", "&#6"}) {
    cases.add(QString("%1 ends").arg(end), QString("<r>\n") + end, line(2, kEndsWithin));
  }
  cases.add("a text ends", "<r>\nx", line(2, unclosed("r", 1)));
  cases.add("a line ends", "<r>\n<a>\n", line(3, unclosed("a", 2)));
  cases.inside("<a></A>", "the closing tag does not match the open tag <a> of line 2");
}

}  // namespace

QByteArray encode(const QString& text, EEncoding encoding) {
  QByteArray bytes;
  if (encoding != Utf8) {
    for (const QChar c : text) {
      const char low = static_cast<char>(c.cell());
      const char high = static_cast<char>(c.row());
      bytes += encoding == Utf16Be ? high : low;
      bytes += encoding == Utf16Be ? low : high;
    }
    return bytes;
  }
  for (int i = 0; i < text.size(); ++i) {
    const QString pair = text.mid(i, 2);
    const int unit = text.at(i).unicode();
    if (pair.size() == 2 && pair.at(0).isHighSurrogate() && pair.at(1).isLowSurrogate()) {
      bytes += pair.toUtf8();
      ++i;
    } else if (text.at(i).isSurrogate()) {
      bytes += static_cast<char>(0xE0 | (unit >> 12));
      bytes += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
      bytes += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
      bytes += pair.left(1).toUtf8();
    }
  }
  return bytes;
}

std::vector<SCase> allCases() {
  CCases cases;
  documentTypes(cases);
  entities(cases);
  nesting(cases);
  attributes(cases);
  sizes(cases);
  characters(cases);
  encodings(cases);
  structure(cases);
  return cases.mCases;
}

}  // namespace NHostile
