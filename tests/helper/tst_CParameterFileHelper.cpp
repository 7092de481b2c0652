#include "CParameterFileHelper.h"
#include "TestFiles.h"

#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

using namespace NktoGlobal;

class tst_CParameterFileHelper : public QObject {
  Q_OBJECT
 private slots:
  void namesFileTypes_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    const auto row = [](EParamFileType type, const char* name) {
      QTest::addRow("%s", name) << static_cast<int>(type) << QString::fromLatin1(name);
    };
    row(FILE_TYPE_XML_SETTINGS, "C_SETTINGS_FORMAT");
    row(FILE_TYPE_COMPENSATION, "C_COMPENSATION_FORMAT");
    row(FILE_TYPE_PARAMETERS, "LumoParameters");
    row(FILE_TYPE_CONFIG_PARAMS, "LumoConfigParams");
    row(FILE_TYPE_DEVICE_DB, "LumoDeviceDatabase");
    row(FILE_TYPE_PLUGIN_PARAMS, "LumoPluginParameters");
    row(FILE_TYPE_FIRMWARE_DB, "LumoFirmwareDataBase");
    row(FILE_TYPE_LOGIC_DB, "LumoLogicDataBase");
    row(FILE_TYPE_OEM_PARAMETERS, "LumoOemParameters");
    row(FILE_TYPE_MOTOR_PARAMETERS, "LumoMotorParameters");
    row(FILE_TYPE_TYPEPLATE_DATA, "LumoTypePlateData");
    row(FILE_TYPE_OPTION_MODUL_DB, "LumoOptionModulDatabase");
  }
  void namesFileTypes() {
    QFETCH(int, type);
    QFETCH(QString, name);
    QCOMPARE(CParameterFileHelper::fileTypeToStr(static_cast<EParamFileType>(type)), name);
    const QString tag = QStringLiteral("  <%1 version=\"1.0\">").arg(name);
    QCOMPARE(static_cast<int>(CParameterFileHelper::fileTypeFromStr(tag)), type);
  }

  void unknownFileTypes() {
    for (const int type : {-1, 12}) {
      QVERIFY(CParameterFileHelper::fileTypeToStr(static_cast<EParamFileType>(type)).isEmpty());
    }
    for (const char* text : {"", "lumoparameters", "LumoParamDefinition"}) {
      QCOMPARE(CParameterFileHelper::fileTypeFromStr(QString::fromLatin1(text)), FILE_TYPE_NONE);
    }
  }

  void detectsFileTypes_data() {
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("type");
    const auto row = [](const char* name, const QByteArray& data, int type) {
      QTest::newRow(name) << data << type;
    };
    const auto utf16 = [](const char* text) {
      return QTextCodec::codecForName("UTF-16")->fromUnicode(QString::fromLatin1(text));
    };
    row("first line", "<LumoParameters version=\"1.0\">", 2);
    row("third line", "<?xml version=\"1.0\"?>\n<!-- text -->\n<C_SETTINGS_FORMAT>\n", 0);
    row("CR LF", "<?xml version=\"1.0\"?>\r\n<LumoMotorParameters>\r\n", 9);
    row("UTF-16", utf16("<?xml version=\"1.0\"?>\n<LumoLogicDataBase/>"), 7);
    row("UTF-16 with CR LF", utf16("<?xml version=\"1.0\"?>\r\n<LumoLogicDataBase/>\r\n"), 7);
    row("UTF-8 with mark", "\xEF\xBB\xBF<LumoTypePlateData/>", 10);
    row("fourth line", "<?xml version=\"1.0\"?>\n\n\n<LumoParameters>", -1);
    row("unknown tag decides", "<LumoOther>\n<LumoParameters>", -1);
    row("unknown C tag decides", "<C_OTHER>\n<C_SETTINGS_FORMAT>", -1);
    row("indented", " <LumoParameters>", -1);
    row("behind the declaration", "<?xml version=\"1.0\"?><LumoParameters>", -1);
    row("empty", "", -1);
    row("no text", QByteArray(3000000, '\0'), -1);
  }
  void detectsFileTypes() {
    QFETCH(QByteArray, data);
    QFETCH(int, type);
    QCOMPARE(static_cast<int>(CParameterFileHelper::detectFileType(data)), type);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("file"));
    QVERIFY(NTestFiles::write(fileName, data));
    QCOMPARE(static_cast<int>(CParameterFileHelper::detectFileType(fileName)), type);
  }

  void detectsNothingWithoutAFile() {
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("missing"));
    QCOMPARE(CParameterFileHelper::detectFileType(missing), FILE_TYPE_NONE);
    QCOMPARE(CParameterFileHelper::detectFileType(folder.path()), FILE_TYPE_NONE);
  }

  void readsComments_data() {
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("comment");
    const auto row = [](const char* name, const QByteArray& data, const char* comment) {
      QTest::newRow(name) << data << QString::fromUtf8(comment);
    };
    const QByteArray head = "<R><Head><Author>me</Author><Comment>two\nlines</Comment></Head>";
    row("whole", head + "<Data/></R>", "two\nlines");
    row("damaged behind the head", head + "<Data></R", "two\nlines");
    row("damaged before", "<R><Head><Author></Head>", "");
    row("no comment", "<R><Head/></R>", "");
    row("no head", "<R><Comment>x</Comment></R>", "");
    row("head elsewhere", "<R><Data><Head><Comment>x</Comment></Head></Data></R>", "");
    row("no XML", "comment", "");
    row("empty", "", "");
  }
  void readsComments() {
    QFETCH(QByteArray, data);
    QTEST(CParameterFileHelper::comment(data), "comment");
  }

  void readsVersions_data() {
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<quint32>("version");
    const auto row = [](const char* name, const QByteArray& data, quint32 version) {
      QTest::newRow(name) << data << version;
    };
    row("small", "<R version=\"1.2\"><Head/></R>", 0x10002);
    row("capital", "<R Version=\"3\"><Head/></R>", 0x30000);
    row("damaged behind the head", "<R version=\"1.2\"><Head/><Data></R>", 0x10002);
    row("without a head, cut off", "<R version=\"1.2\"><Data><Par", 0x10002);
    row("nothing else", "<R version=\"1.2\"/>", 0x10002);
    row("none", "<R><Head/></R>", 0);
    row("no revision", "<R version=\"1.2.3\"><Head/></R>", 0);
    row("of the head", "<R><Head version=\"1.2\"/></R>", 0);
    row("no XML", "1.2", 0);
  }
  void readsVersions() {
    QFETCH(QByteArray, data);
    QTEST(CParameterFileHelper::fileVersion(data), "version");
  }

  void comparesValues_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("equal");
    const auto row = [](const char* type, const char* a, const char* b, bool equal) {
      QTest::addRow("%s: %s, %s", type, a, b)
          << QString::fromLatin1(type) << QString::fromLatin1(a) << QString::fromLatin1(b) << equal;
    };
    for (const char* type : {"u8", "u16", "u32", "u64"}) row(type, "0xA", "10", true);
    for (const char* type : {"i8", "i64", "f64", "str", "undef"}) row(type, "5", "05", false);
    row("u8", "0xffffffffffffffff", "1", false);
    row("u32", "x", "0", true);  // what does not convert counts as 0
    row("i32", "5", "5", true);
  }
  void comparesValues() {
    QFETCH(QString, type);
    QFETCH(QString, a);
    QFETCH(QString, b);
    CParamDefItem def;
    def.setType(type);
    QTEST(CParameterFileHelper::compareValues(a, b, def), "equal");
  }
};
QTEST_APPLESS_MAIN(tst_CParameterFileHelper)
#include "tst_CParameterFileHelper.moc"
