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
      // Of several the first in the text, whatever the order in which they are kept.
      for (const auto& other : names)
        QCOMPARE(CParameterFileHelper::fileTypeFromStr(QString(name) + other.second), type);
    }
    for (const int type : {-1, 12})
      QVERIFY(CParameterFileHelper::fileTypeToStr(EParamFileType(type)).isEmpty());
  }

  void readsBeginnings_data() {
    addColumns<QByteArray, int, QString>("data", "type", "beginning");
    const auto utf16 = [](const char* text, const char* codec = "UTF-16") {
      return QTextCodec::codecForName(codec)->fromUnicode(text);
    };
    const QByteArray far = "<!--" + QByteArray(17 << 20, 'x') + "-->";
    const auto row = [](const char* name, const QByteArray& data, int type, const char* beginning) {
      addRow(name, data, type, beginning);
    };
    row("first line", "<LumoParameters version=\"1.0\">", 2, "LumoParameters|1.0|10000||");
    row("third line", "<?xml version=\"1.0\"?>\n<!-- text -->\n<C_SETTINGS_FORMAT>", 0,
        "C_SETTINGS_FORMAT||0||");
    row("CR LF", "<?xml version=\"1.0\"?>\r\n<LumoMotorParameters>\r\n", 9,
        "LumoMotorParameters||0||");
    row("UTF-16", utf16("<?xml version=\"1.0\"?>\r\n<LumoLogicDataBase/>"), 7,
        "LumoLogicDataBase||0||");
    for (const char* codec : {"UTF-16LE", "UTF-16BE"})  // without the mark
      row(codec, utf16("\n<LumoLogicDataBase/>", codec).mid(2), 7, "LumoLogicDataBase||0||");
    row("UTF-8 with mark", "\xEF\xBB\xBF<LumoTypePlateData/>", 10, "LumoTypePlateData||0||");
    row("fourth line", "<?xml version=\"1.0\"?>\n\n\n<LumoParameters>", -1, "LumoParameters||0||");
    row("unknown tag decides", "<LumoOther>\n<LumoParameters>", -1, "LumoOther||0||");
    row("unknown C tag decides", "<C_OTHER>\n<C_SETTINGS_FORMAT>", -1, "C_OTHER||0||");
    row("in small letters", "<lumoparameters version=\"1.2\">", -1, "lumoparameters|1.2|10002||");
    row("indented", " <LumoParameters>", -1, "LumoParameters||0||");
    row("behind the declaration", "<?xml version=\"1.0\"?><LumoOther version=\"01.0\"><P></Q>", -1,
        "LumoOther|01.0|10000||");
    row("far behind", far + "<LumoParameters version=\"1.2\"/>", -1, "LumoParameters|1.2|10002||");
    row("the attribute that loads", "<C_SETTINGS_FORMAT version=\"1\" Version=\"2\"/>", 0,
        "C_SETTINGS_FORMAT|2|20000||");
    row("empty", "", -1, "||0||Line 1: there is no root element.");
    row("no text", QByteArray(3000000, '\0'), -1,
        "||0||Line 1: markup or character not allowed here.");
    row("no XML", "\ntext", -1, "||0||Line 2: markup or character not allowed here.");
    row("damaged far behind", far + "\n<A", -1,
        "||0||Line 2: the document ends within a tag, text or comment.");
    row("whole head", "<R version=\"1.2\"><Head><Comment>two\nlines</Comment></Head><Data/></R>",
        -1, "R|1.2|10002|two\nlines|");
    row("damaged after the head", "<R version=\"1.2\"><Head><Comment>c</Comment></Head><Data></R",
        -1, "R|1.2|10002|c|");
    row("damaged in the head", "<R Version=\"3\"><Head><Author></Head>", -1, "R|3|30000||");
    row("no comment", "<R><Head version=\"1.2\"/></R>", -1, "R||0||");
    row("no head", "<R version=\"1.2\"><Comment>x</Comment></R>", -1, "R|1.2|10002||");
    row("head elsewhere", "<R><Data><Head><Comment>x</Comment></Head></Data></R>", -1, "R||0||");
    row("not a revision", "<R version=\"1.2.3\"><Head/></R>", -1, "R|1.2.3|0||");
  }
  void readsBeginnings() {
    QFETCH(QByteArray, data);
    QFETCH(int, type);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath("file");
    QVERIFY(NTestFiles::write(fileName, data));
    QCOMPARE(int(CParameterFileHelper::detectFileType(data)), type);
    QCOMPARE(int(CParameterFileHelper::detectFileType(fileName)), type);
    const QString revision = QString::number(CParameterFileHelper::fileVersion(data), 16);
    for (const SFileBeginning& found : {CParameterFileHelper::readBeginning(data),
                                        CParameterFileHelper::readBeginning(fileName)}) {
      QVERIFY(found.isRead);
      QTEST(QStringList({found.rootTag, found.version, revision, found.comment, found.error})
                .join('|'),
            "beginning");
    }
    for (const QString& none : {folder.filePath("missing"), folder.path()}) {
      QCOMPARE(CParameterFileHelper::detectFileType(none), FILE_TYPE_NONE);
      QVERIFY(!CParameterFileHelper::readBeginning(none).isRead);
    }
  }
};

QTEST_APPLESS_MAIN(tst_CParameterFileHelper)
#include "tst_CParameterFileHelper.moc"
