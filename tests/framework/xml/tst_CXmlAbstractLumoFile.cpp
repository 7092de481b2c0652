#include "CXmlAbstractLumoFile.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace NTestFiles;

namespace {

class CFile : public CXmlAbstractLumoFile {
 public:
  CFile() : CXmlAbstractLumoFile(nullptr, QLatin1String("version")) {}
  bool handleVersionError(const QString& fileVersion, const QString& expectedVersion) override {
    asked += fileVersion + '/' + expectedVersion;
    return accept;
  }
  using CXmlAbstractLumoFile::openError;
  QStringList asked;
  bool accept = false;
};

}  // namespace

class tst_CXmlAbstractLumoFile : public QObject {
  Q_OBJECT

 private slots:
  void opens_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("accept");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("message");
    addRow("same version", QByteArray("<a version='1.0'/>"), false, 0, "", "");
    addRow("accepted", QByteArray("<a version='1.1'/>"), true, 0, "1.1/1.0", "");
    addRow("rejected", QByteArray("\n<a version='2.0'/>"), false, 3, "2.0/1.0",
           "Line 2: version \"2.0\" is not compatible with the expected version \"1.0\".");
    addRow("no version", QByteArray("<a/>"), true, 0, "/1.0", "");
    addRow("root tag first", QByteArray("<b version='2.0'/>"), true, 2, "",
           "Line 1: the root element is <b>, expected is <a>.");
    addRow("not well-formed", QByteArray("<a>"), true, 1, "",
           "Line 1: the document ends before the tag <a> of line 1 is closed.");
  }
  void opens() {
    QFETCH(QByteArray, content);
    QFETCH(bool, accept);
    QFETCH(int, result);
    QFETCH(QString, asked);
    QFETCH(QString, message);
    QTemporaryDir folder;
    const QString name = folder.filePath("a.xml");
    QVERIFY(write(name, content));
    CFile file;
    file.accept = accept;
    QString error;
    QCOMPARE(file.open(content, "a", "1.0", error), result);
    QCOMPARE(error, message);
    QCOMPARE(file.asked.join(' '), asked);
    QCOMPARE(file.open(name, "a", "1.0", error), result == 0);
    QCOMPARE(error, result == 0 ? QString() : QString("File \"%1\": %2").arg(name, message));
    QCOMPARE(file.openError(), message);
  }

  void keepsTheHead() {
    CFile file;
    QVERIFY(!file.setMetaData(CXMLMetaData()));
    file.createNewDocument("a", "1.0");
    QVERIFY(file.metaData().isEmpty());
    CXMLMetaData head;
    head.setDate(QDate(2026, 2, 28));
    head.setAuthor("  ");
    head.setComment("<&>\r\n");
    QVERIFY(file.setMetaData(head));
    QByteArray buffer;
    QString error;
    QVERIFY(file.save(buffer, error));
    CFile again;
    QCOMPARE(again.open(buffer, "a", "1.0", error), 0);
    QCOMPARE(again.metaData().date(), head.date());
    QCOMPARE(again.metaData().author(), head.author());
    QCOMPARE(again.metaData().comment(), head.comment());
    QCOMPARE(again.open(QByteArray("<a version='1.0'><Head><Date>1.2.2026</Date></Head></a>"), "a",
                        "1.0", error),
             0);
    QVERIFY(again.metaData().isEmpty());
  }

  void savesInTheEncodingAskedFor() {
    QTemporaryDir folder;
    CFile file;
    file.createNewDocument("a", "1.0");
    QString error;
    QVERIFY(file.save(folder.filePath("16"), error));
    QVERIFY(file.save(folder.filePath("8"), "UTF-8", error));
    QVERIFY(read(folder.filePath("16")).startsWith("\xFF\xFE<"));
    QCOMPARE(read(folder.filePath("8")),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a version=\"1.0\"/>\n"));
    QVERIFY(!file.save(folder.filePath("8"), "EBCDIC", error));
    QCOMPARE(error, QString("File \"%1\": The encoding \"EBCDIC\" is not supported for writing.")
                        .arg(folder.filePath("8")));
    QVERIFY(!file.save(folder.filePath("no/8"), error));
  }
};

QTEST_APPLESS_MAIN(tst_CXmlAbstractLumoFile)
#include "tst_CXmlAbstractLumoFile.moc"
