#include "CDomDoc.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QTextCodec>
#include <QtTest>

namespace {

const auto kB = QLatin1String("b");

/// A text in UTF-16, after its mark.
QByteArray utf16(const QString& text, const char* codec = "UTF-16LE") {
  return QTextCodec::codecForName(codec)->fromUnicode(text);
}

}  // namespace

class tst_CDomDoc : public QObject {
  Q_OBJECT

 private slots:
  void readsEncodings() {
    const QString text = "<?xml version=\"1.0\" encoding=\"%1\"?>\n<a>€\u0178ä</a>";
    const QString bare = "<a>€\u0178ä</a>";
    const QByteArrayList files{utf16(text.arg("UTF-16")),
                               utf16(text.arg("utf-16"), "UTF-16BE"),
                               utf16(text.arg("UTF-16")).mid(2),
                               utf16(bare, "UTF-16BE").mid(2),
                               text.arg("UTF-8").toUtf8(),
                               "\xEF\xBB\xBF" + text.arg("utf-8").toUtf8(),
                               bare.toUtf8(),
                               "<?xml version='1.0' encoding='Windows-1252'?><a>\x80\x9F\xE4</a>"};
    CDomDoc document;
    QString error;
    for (const QByteArray& bytes : files) {
      QVERIFY2(document.setContent(bytes, error), qPrintable(error));
      QCOMPARE(document.documentElement().text(), QString("€\u0178ä"));
    }
    QVERIFY(document.setContent("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>", error));
    QCOMPARE(document.documentElement().text(), QString("ä"));
    const QByteArray half = utf16("<a>x</a>", "UTF-16BE").replace(QByteArray("\0x", 2), "\xD8\x01");
    QVERIFY(!document.setContent(half.mid(2), error) && error == "Line 1: unpaired surrogate.");
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
    root.appendElement("b").setText("x\n]]>& 🔩\r");
    root.appendElement("b").appendElement("c");
    root.appendElement("b").appendComment();
    const QByteArray expected =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<a z=\"2\" b=\"&lt;&quot;&amp;&gt;&#10;&#13;&#9;'\">\n"
        " <b>x\n]]&gt;&amp; 🔩&#13;</b>\n <b>\n  <c/>\n </b>\n <b><!----></b>\n</a>\n";
    QString error;
    QCOMPARE(document.toByteArray("UTF-8", error), expected);
    const QByteArray wide = utf16(QString::fromUtf8(expected).replace("UTF-8", "UTF-16"));
    QCOMPARE(document.toByteArray("UTF-16", error), wide);
    QVERIFY(document.setContent(wide, error));
    QCOMPARE(document.toByteArray("UTF-8", error), expected);
    CDomElement commented = document.createRoot("a");
    commented.appendComment("1---2-");
    commented.appendElement("b");
    QVERIFY(document.toByteArray("UTF-8", error).endsWith("<a>\n <!--1- - -2- -->\n <b/>\n</a>\n"));
    QVERIFY(document.toByteArray("UTF-7", error).isEmpty());
    QCOMPARE(error, QString("The encoding \"UTF-7\" is not supported for writing."));
    QVERIFY(CDomDoc().toByteArray("UTF-8", error).isEmpty());
    for (const QString tag : {"", "1a", "a b", "a>", "×", "_ä-1.x"}) {
      const bool isName = tag.startsWith('_');
      document.createRoot(tag);
      QCOMPARE(document.toByteArray("UTF-8", error).isEmpty(), !isName);
      QVERIFY(isName || error == '"' + tag + "\" cannot be the name of an XML element.");
    }
  }

  // What could not be read again is not written: each "&" takes five bytes, or ten in UTF-16.
  void refusesWhatIsTooLarge_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("encoding");
    addRow("found while writing", 108000000, QString("UTF-8"));
    addRow("found in UTF-16", 54000000, QString("UTF-16"));
  }
  void refusesWhatIsTooLarge() {
    QFETCH(int, count);
    QFETCH(QString, encoding);
    CDomDoc document;
    QString error;
    CDomElement element = document.createRoot("T");
    element.setTextUtf8(std::string(static_cast<size_t>(count), '&'));
    QVERIFY(document.toByteArray(encoding, error).isEmpty());
    QCOMPARE(error, QString("The document is larger than 512 MiB, so the file could not be read "
                            "again."));
  }

  void indentsDeepElements() {
    CDomDoc document;
    QString error;
    CDomElement element = document.createRoot("T");
    for (int i = 0; i < 40; ++i) element = element.appendElement("T");
    const QList<QByteArray> lines = document.toByteArray("UTF-8", error).split('\n');
    QCOMPARE(lines.at(41), QByteArray(40, ' ') + "<T/>");
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
};

QTEST_APPLESS_MAIN(tst_CDomDoc)
#include "tst_CDomDoc.moc"
