#include "CDomDoc.h"
#include "CXmlAbstractLumoFile.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QTemporaryDir>

namespace {

const auto kA = QLatin1String("a");
const auto kB = QLatin1String("b");

/// A text in UTF-16 of one byte order, behind its mark if wanted.
QByteArray utf16(const QString& text, bool bigEndian, bool mark = true) {
  QByteArray bytes;
  const QString all = mark ? QChar(QChar::ByteOrderMark) + text : text;
  for (const QChar c : all) {
    const char low = static_cast<char>(c.cell());
    const char high = static_cast<char>(c.row());
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

/// The nodes of a document as text: elements with attributes, texts in [], CDATA apart.
QString nodes(const QDomNode& node) {
  QString text;
  for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
    if (child.isElement()) {
      QStringList attributes;
      const QDomNamedNodeMap map = child.attributes();
      for (int i = 0; i < map.count(); ++i)
        attributes += map.item(i).nodeName() + '=' + map.item(i).nodeValue();
      attributes.sort();
      text += '<' + child.nodeName() + ' ' + attributes.join(' ') + '>' + nodes(child) + "</>";
    } else if (child.isCDATASection()) {
      text += "{" + child.nodeValue() + "}";
    } else if (child.isText()) {
      text += "[" + child.nodeValue() + "]";
    } else {
      text += "?";
    }
  }
  return text;
}

/// A file of a format of its own.
class CFile : public CXmlAbstractLumoFile {
 public:
  CFile() : CXmlAbstractLumoFile(nullptr, QLatin1String("version")) {}
  bool handleVersionError(const QString& /*version*/, const QString& /*expected*/) override {
    return ++asked > 1;
  }
  int asked = 0;
};

QString nodesOf(const CDomDoc& document) {
  QDomDocument qt;
  QDomElement top = qt.createElement("top");
  document.documentElement().toDom(top);
  return nodes(top);
}

}  // namespace

class tst_CDomDoc : public QObject {
  Q_OBJECT

 private slots:
  void readsEncodings_data() {
    addColumns<QByteArray>("bytes");
    const QString text =
        QString::fromUtf8("<?xml version=\"1.0\" encoding=\"%1\"?>\n<a>\xC3\xA4</a>");
    const QString bare = QString::fromUtf8("<a>\xC3\xA4</a>");
    addRow("UTF-16LE", utf16(text.arg("UTF-16"), false));
    addRow("UTF-16BE", utf16(text.arg("utf-16"), true));
    addRow("UTF-16LE without mark", utf16(text.arg("UTF-16"), false, false));
    addRow("UTF-16BE without mark or declaration", utf16(bare, true, false));
    addRow("UTF-8", text.arg("UTF-8").toUtf8());
    addRow("UTF-8 with mark", "\xEF\xBB\xBF" + text.arg("utf-8").toUtf8());
    addRow("UTF-8 without declaration", bare.toUtf8());
    addRow("ISO-8859-1", text.arg("ISO-8859-1").toLatin1());
    addRow("windows-1252", text.arg("Windows-1252").toLatin1());
  }
  void readsEncodings() {
    QFETCH(QByteArray, bytes);
    CDomDoc document;
    QString error;
    QVERIFY2(document.setContent(bytes, error), qPrintable(error));
    QCOMPARE(document.documentElement().text(), QString(QChar(0xE4)));
  }

  void windows1252HasItsOwnCharacters() {
    CDomDoc document;
    QString error;
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"windows-1252\"?><a>";
    QVERIFY(document.setContent(head + "\x80\x9F\xFF</a>", error));
    QCOMPARE(document.documentElement().text(), QString::fromUtf8("€Ÿÿ"));
  }

  void nodesAreThoseOfQt_data() {
    addColumns<QByteArray>("text");
    for (const char* text : {"<a>x&amp;y&#65;\nz</a>", "<a>x<![CDATA[ <b> ]]>y<![CDATA[z]]></a>",
                             "<a>x<!-- c -->y</a>", "<a>\n <b>x</b>\n <c y='1' x='2'/>\n</a>",
                             "<a> <!-- c --> </a>", "<a>x <b>y</b> z <b/></a>"}) {
      addRow(text, QByteArray(text));
    }
  }
  void nodesAreThoseOfQt() {
    QFETCH(QByteArray, text);
    QDomDocument qt;
    QVERIFY(qt.setContent(text));
    CDomDoc document;
    QString error;
    QVERIFY(document.setContent(text, error));
    QCOMPARE(nodesOf(document).replace("?", ""), nodes(qt).replace("?", ""));
    QCOMPARE(nodesOf(CDomDoc::fromDom(qt.documentElement())), nodesOf(document));
    QCOMPARE(document.documentElement().text(), qt.documentElement().text());
  }

  void blankTextStaysWhenItIsAlone_data() {
    addColumns<QByteArray, QString, bool>("content", "text", "onlyText");
    addRow("blanks", QByteArray("  "), "  ", true);
    addRow("line break", QByteArray("&#13;\n"), "\r\n", true);
    addRow("nothing", QByteArray(), "", true);
    addRow("no-break space", QByteArray("\xC2\xA0<!-- -->"), QString(QChar(0xA0)), false);
    addRow("beside an element", QByteArray(" <b/> "), "", false);
    addRow("beside CDATA", QByteArray(" <![CDATA[ ]]>"), " ", true);
    addRow("empty CDATA", QByteArray("<![CDATA[]]>"), "", true);
  }
  void blankTextStaysWhenItIsAlone() {
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    QFETCH(bool, onlyText);
    CDomDoc document;
    QString error;
    QVERIFY(document.setContent("<a>" + content + "</a>", error));
    QCOMPARE(document.documentElement().text(), text);
    QVERIFY(!document.documentElement().text().isNull());
    QCOMPARE(document.documentElement().hasOnlyText(), onlyText);
  }

  void elementsAndAttributesAreFound() {
    CDomDoc document;
    QString error;
    QVERIFY(document.setContent("<a x='' y='2'>\n<b>1</b>\n<c/>\n<b>2<d>3</d></b></a>", error));
    const CDomElement root = document.documentElement();
    QVERIFY(!root.attribute(QLatin1String("x")).isNull());
    QVERIFY(root.attribute(QLatin1String("z")).isNull());
    const CDomElement second = root.firstChildElement(kB).nextSiblingElement(kB);
    QCOMPARE(second.text(), QString("23"));
    QCOMPARE(second.lastText(), QString("2"));
    QCOMPARE(second.lineNumber(), 4);
    QVERIFY(second.nextSiblingElement().isNull());
    QVERIFY(second.firstChildElement(kB).nextSiblingElement(kB).firstChildElement().isNull());
    CDomDoc moved = std::move(document);
    QCOMPARE(second.text(), QString("23"));
  }

  void writesInOrderAndOneWay() {
    CDomDoc document;
    CDomElement root = document.createRoot("a");
    root.setAttribute(QLatin1String("z"), "1");
    root.setAttribute(kB, "<\"&>\n\r\t'");
    root.setAttribute(QLatin1String("z"), "2");
    root.appendElement("b").setText(QString::fromUtf8("x\n]]>& \xF0\x9F\x94\xA9\r"));
    root.appendElement("b").appendElement("c");
    root.appendElement("b").appendComment();
    const QByteArray expected =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<a z=\"2\" b=\"&lt;&quot;&amp;&gt;&#10;&#13;&#9;'\">\n"
        " <b>x\n]]&gt;&amp; \xF0\x9F\x94\xA9&#13;</b>\n <b>\n  <c/>\n </b>\n "
        "<b><!----></b>\n</a>\n";
    QString error;
    QCOMPARE(document.toByteArray("UTF-8", error), expected);
    const QString text = QString::fromUtf8(expected).replace("UTF-8", "UTF-16");
    QCOMPARE(document.toByteArray("UTF-16", error), utf16(text, false));
    QVERIFY(document.toByteArray("UTF-7", error).isEmpty());

    QDomDocument qt;
    QVERIFY(qt.setContent(expected));
    CDomDoc again;
    QVERIFY(again.setContent(utf16(text, false), error));
    QCOMPARE(nodesOf(again), nodesOf(document));
    QCOMPARE(again.toByteArray("UTF-8", error), expected);
  }

  void refusesToWriteWhatItWouldNotRead() {
    CDomDoc document;
    QString error;
    CDomElement element = document.createRoot("a");
    for (int i = 1; i < 1024; ++i) element = element.appendElement("a");
    QVERIFY(!document.toByteArray("UTF-8", error).isEmpty());
    element.appendElement("a");
    QVERIFY(document.toByteArray("UTF-8", error).isEmpty());
    QCOMPARE(
        error,
        QString("The elements are nested deeper than 1024, so the file could not be read again."));
    for (const QString& tag :
         {QString(), QString("1a"), QString("a b"), QString("a>"), QString(QChar(0xD7))}) {
      document.createRoot(tag);
      QVERIFY(document.toByteArray("UTF-8", error).isEmpty());
      QCOMPARE(error, QString("\"%1\" cannot be the name of an XML element.").arg(tag));
    }
    document.createRoot(QString::fromUtf8("_ä-1.x"));
    QVERIFY(!document.toByteArray("UTF-8", error).isEmpty());
    QVERIFY(CDomDoc().toByteArray("UTF-8", error).isEmpty());
  }

  void theHeadIsReadAlone() {
    CDomDoc document;
    QString error;
    QVERIFY(document.setHead("<a><Head><b>1</b></Head><Data", error));
    QCOMPARE(document.documentElement().firstChildElement().text(), QString("1"));
    QVERIFY(!document.setHead("<a><x><Head/></x><Data", error));
  }

  void typedAccessNamesWhatIsWrong() {
    CDomDoc document;
    QString error;
    QVERIFY(document.setContent("<a>\n<b n='0x1F' t='true'>-5</b></a>", error));
    const CDomElement element = document.documentElement().firstChildElement();
    quint8 small = 7;
    QCOMPARE(CDomDoc::existingAttributeAsU8(QLatin1String("n"), element, small, error),
             CDomDoc::Ok);
    QCOMPARE(small, quint8(31));
    QCOMPARE(CDomDoc::existingAttributeAsU8(kA, element, small, error), CDomDoc::Missing);
    QCOMPARE(error, QString("Line 2: attribute \"a\" of <b> is missing."));
    QCOMPARE(CDomDoc::existingAttributeAsU8(QLatin1String("t"), element, small, error),
             CDomDoc::Invalid);
    QCOMPARE(error, QString("Line 2: attribute \"t\" of <b> is \"true\", not an unsigned 8-bit "
                            "number (0 to 255)."));
    QCOMPARE(small, quint8(31));
    qint64 number = 7;
    QCOMPARE(CDomDoc::existingSubElementAsI64(kB, document.documentElement(), number, error),
             CDomDoc::Ok);
    QCOMPARE(number, qint64(-5));
  }

  void filesHaveAVersionAHeadAndAnEncoding() {
    QTemporaryDir folder;
    const QString name = folder.filePath("file");
    CFile file;
    QString error;
    QVERIFY(!file.setMetaData(CXMLMetaData()));
    file.createNewDocument("a", "1.0");
    QVERIFY(file.metaData().isEmpty());
    QVERIFY(file.save(name, error) && NTestFiles::read(name).startsWith("\xFF\xFE<"));
    QVERIFY(file.save(name, "UTF-8", error));
    QCOMPARE(NTestFiles::read(name),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a version=\"1.0\"/>\n"));
    QVERIFY(!file.save(name, "EBCDIC", error));
    QCOMPARE(
        error,
        QString("File \"%1\": The encoding \"EBCDIC\" is not supported for writing.").arg(name));
    QVERIFY(file.open(name, "a", "1.0", error));
    QCOMPARE(file.open(QByteArray("<b version='2'/>"), "a", "1.0", error), 2);
    QCOMPARE(file.asked, 0);  // only for another version of a file with the right root
    QCOMPARE(file.open(QByteArray("<a version='1'/>"), "a", "1.0", error), 3);
    QCOMPARE(file.open(QByteArray("<a><Head><Date>1.2.2026</Date></Head></a>"), "a", "1.0", error),
             0);
    QVERIFY(file.metaData().isEmpty());
  }
};

QTEST_APPLESS_MAIN(tst_CDomDoc)
#include "tst_CDomDoc.moc"
