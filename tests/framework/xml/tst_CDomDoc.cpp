#include "CDomDoc.h"
#include "CXmlAbstractLumoFile.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QTemporaryDir>

namespace {

const auto kB = QLatin1String("b");

/// A text in UTF-16 of one byte order, after its mark if wanted.
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

/// A file of a format of its own.
class CFile : public CXmlAbstractLumoFile {
 public:
  CFile() : CXmlAbstractLumoFile(nullptr, QLatin1String("version")) {}
  bool handleVersionError(const QString& /*version*/, const QString& /*expected*/) override {
    return ++asked > 1;
  }
  int asked = 0;
};

}  // namespace

class tst_CDomDoc : public QObject {
  Q_OBJECT

 private slots:
  void readsEncodings_data() {
    addColumns<QByteArray, QString>("bytes", "expected");
    const QString umlaut = QChar(0xE4);
    const QString text =
        QString::fromUtf8("<?xml version=\"1.0\" encoding=\"%1\"?>\n<a>\xC3\xA4</a>");
    const QString bare = QString::fromUtf8("<a>\xC3\xA4</a>");
    addRow("UTF-16LE", utf16(text.arg("UTF-16"), false), umlaut);
    addRow("UTF-16BE", utf16(text.arg("utf-16"), true), umlaut);
    addRow("UTF-16LE without mark", utf16(text.arg("UTF-16"), false, false), umlaut);
    addRow("UTF-16BE without mark or declaration", utf16(bare, true, false), umlaut);
    addRow("UTF-8", text.arg("UTF-8").toUtf8(), umlaut);
    addRow("UTF-8 with mark", "\xEF\xBB\xBF" + text.arg("utf-8").toUtf8(), umlaut);
    addRow("UTF-8 without declaration", bare.toUtf8(), umlaut);
    addRow("ISO-8859-1", text.arg("ISO-8859-1").toLatin1(), umlaut);
    addRow("windows-1252",
           QByteArray("<?xml version='1.0' encoding='Windows-1252'?><a>\x80\x9F\xE4</a>"),
           QString(u8"\u20ac\u0178\u00e4"));
  }
  void readsEncodings() {
    QFETCH(QByteArray, bytes);
    CDomDoc document;
    QString error;
    QVERIFY2(document.setContent(bytes, error), qPrintable(error));
    QTEST(document.documentElement().text(), "expected");
  }

  void elementsAndAttributesAreFound() {
    CDomDoc document;
    QString error;
    QVERIFY(document.setContent("<a x='' y='2'>\n<b>1</b>\n<c/>\n<b>2<d>3</d></b></a>", error));
    const CDomElement root = document.documentElement();
    QVERIFY(!root.attribute(QLatin1String("x")).isNull());
    QVERIFY(root.attribute(QLatin1String("z")).isNull());
    const CDomElement second = root.firstChildElement(kB).nextSiblingElement(kB);
    const CDomDoc moved = std::move(document);
    QCOMPARE(second.text() + ' ' + second.lastText(), QString("23 2"));
    QCOMPARE(second.lineNumber(), 4);
    QVERIFY(second.nextSiblingElement().isNull());
    QVERIFY(second.firstChildElement(kB).nextSiblingElement(kB).firstChildElement().isNull());
    CDomDoc head;
    QVERIFY(head.setHead("<a><Head><b>1</b></Head><Data", error));
    QCOMPARE(head.documentElement().firstChildElement().text(), QString("1"));
    QVERIFY(!head.setHead("<a><x><Head/></x><Data", error));
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

    CDomDoc again;
    QVERIFY(again.setContent(utf16(text, false), error));
    QCOMPARE(again.toByteArray("UTF-8", error), expected);
  }

  void goesThroughQtsDocument() {
    const QByteArray text = "<a>x<![CDATA[ <y> ]]>z<b c=\"1\"> <d/></b></a>";
    QDomDocument qt;
    CDomDoc document;
    QString error;
    QVERIFY(qt.setContent(text) && document.setContent(text, error));
    const CDomDoc fromQt = CDomDoc::fromDom(qt.documentElement());
    for (const CDomDoc* each : {&qAsConst(document), &fromQt}) {
      QDomDocument copy;
      QDomElement top = copy.createElement("top");
      each->documentElement().toDom(top);
      copy.appendChild(top.firstChild());
      QCOMPARE(copy.toString(), qt.toString());
    }
  }

  void refusesToWriteWhatItWouldNotRead() {
    CDomDoc document;
    QString error;
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
