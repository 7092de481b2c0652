#include "CParameterFileHelper.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QTemporaryDir>
#include <QTextCodec>

using namespace NktoGlobal;

class tst_CParameterFileHelper : public QObject {
  Q_OBJECT
 private slots:
  void namesFileTypes() {
    const std::pair<EParamFileType, const char*> names[] = {
        {FILE_TYPE_XML_SETTINGS, "C_SETTINGS_FORMAT"},
        {FILE_TYPE_COMPENSATION, "C_COMPENSATION_FORMAT"},
        {FILE_TYPE_PARAMETERS, "LumoParameters"},
        {FILE_TYPE_CONFIG_PARAMS, "LumoConfigParams"},
        {FILE_TYPE_DEVICE_DB, "LumoDeviceDatabase"},
        {FILE_TYPE_PLUGIN_PARAMS, "LumoPluginParameters"},
        {FILE_TYPE_FIRMWARE_DB, "LumoFirmwareDataBase"},
        {FILE_TYPE_LOGIC_DB, "LumoLogicDataBase"},
        {FILE_TYPE_OEM_PARAMETERS, "LumoOemParameters"},
        {FILE_TYPE_MOTOR_PARAMETERS, "LumoMotorParameters"},
        {FILE_TYPE_TYPEPLATE_DATA, "LumoTypePlateData"},
        {FILE_TYPE_OPTION_MODUL_DB, "LumoOptionModulDatabase"},
    };
    for (const auto& [type, name] : names) {
      QCOMPARE(CParameterFileHelper::fileTypeToStr(type), QString(name));
      const QString tag = QStringLiteral("  <%1 version=\"1.0\">").arg(QString(name));
      QCOMPARE(CParameterFileHelper::fileTypeFromStr(tag), type);
      // Of several the first in the text, whatever the order in which they are kept.
      for (const auto& other : names)
        QCOMPARE(CParameterFileHelper::fileTypeFromStr(tag + other.second), type);
    }
  }

  void unknownFileTypes() {
    for (const int type : {-1, 12})
      QVERIFY(CParameterFileHelper::fileTypeToStr(static_cast<EParamFileType>(type)).isEmpty());
    for (const char* text : {"", "lumoparameters", "LumoParamDefinition"})
      QCOMPARE(CParameterFileHelper::fileTypeFromStr(text), FILE_TYPE_NONE);
  }

  void detectsFileTypes_data() {
    addColumns<QByteArray, int>("data", "type");
    const auto row = [](const char* name, const QByteArray& data, int type) {
      addRow(name, data, type);
    };
    const auto utf16 = [](const char* text, const char* codec = "UTF-16") {
      return QTextCodec::codecForName(codec)->fromUnicode(text);
    };
    row("first line", "<LumoParameters version=\"1.0\">", 2);
    row("third line", "<?xml version=\"1.0\"?>\n<!-- text -->\n<C_SETTINGS_FORMAT>\n", 0);
    row("CR LF", "<?xml version=\"1.0\"?>\r\n<LumoMotorParameters>\r\n", 9);
    row("UTF-16", utf16("<?xml version=\"1.0\"?>\n<LumoLogicDataBase/>"), 7);
    row("UTF-16 with CR LF", utf16("<?xml version=\"1.0\"?>\r\n<LumoLogicDataBase/>\r\n"), 7);
    for (const char* codec : {"UTF-16LE", "UTF-16BE"})
      row(codec, utf16("\n<LumoLogicDataBase/>", codec).mid(2), 7);  // without the mark
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
    const QString fileName = folder.filePath("file");
    QVERIFY(NTestFiles::write(fileName, data));
    QCOMPARE(static_cast<int>(CParameterFileHelper::detectFileType(fileName)), type);
  }

  void readsBeginnings_data() {
    addColumns<QByteArray, QString, QString, QString>("data", "tag", "version", "error");
    const auto row = [](const char* name, const QByteArray& data, const char* tag,
                        const char* version,
                        const char* error) { addRow(name, data, tag, version, error); };
    const QByteArray far = "<!--" + QByteArray(17 << 20, 'x') + "-->";
    row("damaged behind", "<?xml version=\"1.0\"?><LumoOther version=\"01.0\"><P></Q>", "LumoOther",
        "01.0", "");
    row("far behind", far + "<LumoParameters version=\"1.2\"/>", "LumoParameters", "1.2", "");
    row("the attribute that loads", "<C_SETTINGS_FORMAT version=\"1\" Version=\"2\"/>",
        "C_SETTINGS_FORMAT", "2", "");
    row("no XML", "\ntext", "", "", "Line 2: markup or character not allowed here.");
    row("damaged far behind", far + "\n<A", "", "",
        "Line 2: the document ends within a tag, text or comment.");
  }
  void readsBeginnings() {
    QFETCH(QByteArray, data);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath("file");
    QVERIFY(NTestFiles::write(fileName, data));
    for (const SFileBeginning& found : {CParameterFileHelper::readBeginning(data),
                                        CParameterFileHelper::readBeginning(fileName)}) {
      QVERIFY(found.isRead);
      QTEST(found.rootTag, "tag");
      QTEST(found.version, "version");
      QTEST(found.error, "error");
    }
  }

  void detectsNothingWithoutAFile() {
    const QTemporaryDir folder;
    for (const QString& name : {folder.filePath("missing"), folder.path()}) {
      QCOMPARE(CParameterFileHelper::detectFileType(name), FILE_TYPE_NONE);
      QVERIFY(!CParameterFileHelper::readBeginning(name).isRead);
    }
  }

  void readsCommentsAndVersions_data() {
    addColumns<QString, QString, quint32>("text", "comment", "version");
    const QString start =
        "<R version=\"1.2\"><Head><Author>me</Author><Comment>two\nlines</Comment>";
    addRow("whole", start + "</Head><Data/></R>", "two\nlines", 0x10002U);
    addRow("damaged after the head", start + "</Head><Data></R", "two\nlines", 0x10002U);
    addRow("damaged before", "<R Version=\"3\"><Head><Author></Head>", "", 0x30000U);
    addRow("no comment", "<R><Head version=\"1.2\"/></R>", "", 0U);
    addRow("no head", "<R version=\"1.2\"><Comment>x</Comment></R>", "", 0x10002U);
    addRow("no head, cut off", "<R version=\"1.2\"><Data><Par", "", 0x10002U);
    addRow("head elsewhere", "<R><Data><Head><Comment>x</Comment></Head></Data></R>", "", 0U);
    addRow("not a revision", "<R version=\"1.2.3\"><Head/></R>", "", 0U);
    addRow("not XML", "1.2", "", 0U);
    addRow("empty", "", "", 0U);
  }
  void readsCommentsAndVersions() {
    QFETCH(QString, text);
    QTEST(CParameterFileHelper::comment(text.toUtf8()), "comment");
    QTEST(CParameterFileHelper::fileVersion(text.toUtf8()), "version");
  }
};

QTEST_APPLESS_MAIN(tst_CParameterFileHelper)
#include "tst_CParameterFileHelper.moc"
