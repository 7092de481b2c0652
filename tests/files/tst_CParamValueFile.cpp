#include "CMessageBoardHelper.h"
#include "CParamValueFile.h"
#include "CParameterFileErrorHandler.h"
#include "ICLogfile.h"
#include "NClock.h"
#include "ParamFileText.h"
#include "paramfile/ExampleDrive.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace NTestFiles;

namespace {

struct SLoad {
  CHardwareIdTrees trees;
  CSubDeviceTypes types;
  CSubDeviceNames names;
};

}  // namespace

class tst_CParamValueFile : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    NClock::setToday([] { return QDate(2026, 11, 20); });
    CMessageBoardHelper::setHandler([this](auto, const QString& text) { mPosted += text; });
  }
  void init() { mPosted.clear(); }

  void refusesAndChangesNothing_data() {
    QTest::addColumn<QString>("fileName");
    const QDir folder(data("values/invalid"));
    for (const QString& name : folder.entryList({"*.xparam"}))
      QTest::newRow(qPrintable(name)) << folder.filePath(name);
    QTest::newRow("missing file") << folder.filePath("missing");
  }
  void refusesAndChangesNothing() {
    QFETCH(QString, fileName);
    const QByteArray bytes = read(fileName);
    const int code = expected(fileName).section(' ', 0, 0).toInt();
    const QString message = expected(fileName).section(' ', 1);
    CParamValueFile valueFile(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
    SLoad load;
    QString hardwareId = "HW";
    QCOMPARE(valueFile.load(fileName, "1.0", load.trees, load.types, load.names, hardwareId),
             static_cast<CParamValueFile::EResult>(code));
    QCOMPARE(valueFile.errorMsg(), message);
    QCOMPARE(mPosted, code < 5 ? QStringList() : QStringList(message));

    auto file = makeFile();
    QVERIFY(file->loadParamFile(example("TwoAxisDrive.xparam"), QString(), 0x10000));
    const QString before = NParamFileText::all(*file);
    QVERIFY(!file->loadParamFile(fileName, "HW", 0x10000));
    QCOMPARE(file->errorMsg(), message);
    QCOMPARE(NParamFileText::all(*file), before);
    QCOMPARE(read(fileName), bytes);
  }

  void readsTreesTypesAndNames() {
    auto file = makeFile();
    QVERIFY2(file->loadParamFile(data("values/valid/TwoHardwareIds.xparam"), "HW-B", 0x10007),
             qPrintable(file->errorMsg()));
    QCOMPARE(file->hardwareId(), QString("HW-B"));
    QCOMPARE(file->paramFileVersion(), 0x10007u);
    const QString text = NParamFileText::content(*file).section('\n', 2);
    QCOMPARE(text, QString("A. Uthor\nTwo variants\n"
                           "hardware id HW-A\n"
                           "sub device 6 1 \n group rootGroup 4294967295 '' \n"
                           "sub device 8 0 Other\n group rootGroup 4294967295 '' \n"
                           "  param Third 3 '0x1' \n"
                           "hardware id HW-B\n"
                           "sub device 8 0 Other\n group rootGroup 4294967295 '' \n"
                           "sub device 10 3 Axis X\n group rootGroup 4294967295 '' \n"
                           "  param First 0 '  ' \n"
                           "  group G 4294967295 '' \n"
                           "   group Inner 4294967295 '' \n"
                           "    param Deep 16 'a&b <\r\n c' \n"
                           "   param Second 2 '' \n"
                           "  param Third 3 'b<c>' "));
    QVERIFY(!file->paramValue("Second", 10).isNull());
    QVERIFY(file->paramValue("Third", 6).isNull());
  }

  void writesTheExampleAsItIs_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("drive") << "TwoAxisDrive.xparam" << int(NktoGlobal::FILE_TYPE_PARAMETERS);
    QTest::newRow("motors") << "Motors.xparam" << int(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS);
  }
  void writesTheExampleAsItIs() {
    QFETCH(QString, name);
    QFETCH(int, type);
    QTemporaryDir folder;
    auto file = makeFile();
    file->setFileType(static_cast<NktoGlobal::EParamFileType>(type));
    QVERIFY2(file->loadParamFile(example(name), QString(), 0x10000), qPrintable(file->errorMsg()));
    QVERIFY(file->saveParamFile(folder.filePath(name), QString(), 0x10000));
    QCOMPARE(read(folder.filePath(name)), read(example(name)));
  }

  void loadsOneHardwareId() {
    const QString name = data("values/valid/TwoHardwareIds.xparam");
    CParamValueFile file(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
    SLoad load;
    CSubDeviceTrees trees;
    QString hardwareId = "HW-A";
    QCOMPARE(file.load(name, "1.0", hardwareId, trees, load.types, load.names),
             CParamValueFile::Ok);
    QCOMPARE(trees.size(), size_t(2));
    QCOMPARE(trees.at(8).value("Third").asStr(), QString("0x1"));

    hardwareId = "HW-C";
    QCOMPARE(file.load(name, "1.0", hardwareId, trees, load.types, load.names),
             CParamValueFile::HardwareIdRejected);
    QCOMPARE(file.errorMsg(), QString("File \"%1\" parse error: Hardware id 'HW-A' is wrong. "
                                      "Expected was 'HW-C'.")
                                  .arg(name));
  }

  void loadsTheFirstSubDeviceUnderAnotherId() {
    CKeptLines log(ICLogfile::kLevelDetail);
    const auto file = std::make_unique<CParameterFileBaseImpl>(NktoGlobal::FILE_TYPE_NONE, &log);
    QVERIFY(file->loadParamFileAsSubDevId(data("values/valid/TwoHardwareIds.xparam"), 3, QString(),
                                          0x10000));
    QCOMPARE(log.lines.at(1), QString("Line 18, sub device 3: The type \"Device\" replaces "
                                      "\"Drive\" of line 10: all hardware ids share the types of "
                                      "sub-devices."));
    QCOMPARE(file->hardwareId(), QString("HW-A"));
    QCOMPARE(file->subDeviceIds(), QList<quint8>{3});
    QVERIFY(file->selectHardwareId("HW-B"));
    QCOMPARE(file->paramNames(3), QStringList({"First", "Deep", "Second", "Third"}));
    QCOMPARE(file->rootGroup(3)->childPtr(1)->childPtr(0)->childPtr(0)->subDevId(), uchar(3));
    QCOMPARE(file->subDevName(3), QString("Axis X"));
    QVERIFY(!file->loadParamFileAsSubDevId(data("values/invalid/Error_NoSubDevice.xparam"), 3,
                                           QString(), 0x10000));
  }

  void versionsAreAcceptedByTheirMajorNumberOrTheHandler() {
    struct SHandler : CParameterFileErrorHandler {
      SHandler() : CParameterFileErrorHandler(nullptr) {}
      bool handleFileVersionError(const QString& version, const QString& other) override {
        asked += version + '/' + other;
        return true;
      }
      QStringList asked;
    } handler;
    auto file = makeFile();
    const QString other = data("values/invalid/Error_Version.xparam");
    QVERIFY(file->loadParamFile(data("values/valid/TwoHardwareIds.xparam"), QString(), 0x10009));
    QVERIFY(!file->loadParamFile(other, QString(), 0x10009));
    file->setErrorHandler(&handler);
    QCOMPARE(handler.parameterfile(), file.get());
    QVERIFY(file->loadParamFile(other, QString(), 0x10009));
    QCOMPARE(handler.asked, QStringList("2.0/1.9"));
    file->setErrorHandler(nullptr);
    QVERIFY(!file->loadParamFile(other, QString(), 0x10009));
  }

  void everyTextOfAValueSurvives_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "   ";
    QTest::newRow("line breaks") << "\n\n\t";
    QTest::newRow("carriage returns") << "\r\r\n a \r";
    QTest::newRow("mark-up") << "]]> <a b=\"c\" d='e'> & &amp; <![CDATA[ <!-- -->";
    QTest::newRow("no-break space") << QString(QChar(0xA0)) + "x" + QChar(0x2007);
    QTest::newRow("line separators") << QString(QChar(0x85)) + QChar(0x2028);
    QTest::newRow("beyond the first plane")
        << QString::fromUtf8("\xF0\x9F\x94\xA9 \xF4\x8F\xBF\xBD");
    QTest::newRow("byte order mark") << QString(QChar(0xFEFF)) + "x";
    QTest::newRow("edges of the planes") << QString(QChar(0xFFFD)) + QChar(0xD7FF) + QChar(0xE000);
  }
  void everyTextOfAValueSurvives() {
    QFETCH(QString, text);
    QTemporaryDir folder;
    const QString name = folder.filePath("a.xparam");
    auto file = makeFile();
    file->addHardwareId("HW" + text.trimmed());
    file->addDef("P", NParamDef::PARAM_TYPE_STR, 1);
    file->setSubDevName(0, text + "!");
    ICParamTreeNode* group = file->addGroup(file->rootGroup(0), "Group" + text);
    QVERIFY(file->addParameter(group, "P", text));
    QVERIFY2(file->saveParamFile(name, QString(), 0x10000), qPrintable(file->errorMsg()));
    auto again = makeFile();
    QVERIFY2(again->loadParamFile(name, QString(), 0x10000), qPrintable(again->errorMsg()));
    QCOMPARE(again->paramValue("P", 0).asStr(), text);
    QVERIFY(!again->paramValue("P", 0).isNull());
    QCOMPARE(again->rootGroup(0)->childPtr(0)->name(), "Group" + text);
    QCOMPARE(again->hardwareIds(), file->hardwareIds());
    QCOMPARE(again->subDevName(0), text + "!");
  }

  void whatXmlCannotHoldFailsTheSave_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("control character") << QString(QChar(0x1F)) << "\\u001F";
    QTest::newRow("NUL") << QString(QChar(0)) << "\\u0000";
    QTest::newRow("high surrogate") << QString(QChar(0xD800)) + "x"
                                    << "\\uD800";
    QTest::newRow("low surrogate") << QString(QChar(0xDFFF)) << "\\uDFFF";
    QTest::newRow("no character") << QString(QChar(0xFFFE)) << "\\uFFFE";
  }
  void whatXmlCannotHoldFailsTheSave() {
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QTemporaryDir folder;
    const QString name = folder.filePath("a.xparam");
    QVERIFY(write(name, "old"));
    auto file = makeFile();
    file->addHardwareId("HW");
    file->addDef("Speed", NParamDef::PARAM_TYPE_STR, 1);
    QVERIFY(file->addParameter(file->rootGroup(0), "Speed", QString("a" + text)));
    QVERIFY(!file->saveParamFile(name, QString(), 0x10000));
    QCOMPARE(file->errorMsg(),
             QString("File \"%1\": <Param> \"Speed\": the text of <Value> holds the character %2, "
                     "which XML cannot hold.")
                 .arg(name, shown));
    QVERIFY(file->setParamValue("Speed", "ok", 0));
    QVERIFY(file->renameHardwareId("HW", text));
    QVERIFY(!file->saveParamFile(name, QString(), 0x10000));
    QCOMPARE(file->errorMsg(),
             QString("File \"%1\": <Data>: attribute \"hardwareId\" holds the character %2, which "
                     "XML cannot hold.")
                 .arg(name, shown));
    QCOMPARE(read(name), QByteArray("old"));
  }

  void nothingIsWrittenWithoutHardwareIds() {
    QTemporaryDir folder;
    auto file = makeFile();
    QVERIFY(file->addHardwareId("new"));
    QVERIFY(file->saveParamFile(folder.filePath("a.xparam"), QString(), 0x10000));
    QVERIFY(!QFile::exists(folder.filePath("a.xparam")));
    QVERIFY(!file->saveParamFile(folder.filePath("a.xparam"), "new", 0x10000));
    QCOMPARE(file->errorMsg(), QString("Saving parameters for hardware ID \"new\" failed because "
                                       "there are no parameters."));
  }

  void savesNothingThatCouldNotBeRead() {
    QTemporaryDir folder;
    const QString name = folder.filePath("a.xparam");
    for (const QString& id : {QString("HW"), QString()}) {
      auto file = makeFile();
      for (const QString& each : {id, QString(id + ' ')}) {
        QVERIFY(file->addHardwareId(each));
        file->rootGroup(0);
      }
      QVERIFY(!file->saveParamFile(name, QString(), 0x10000));
      QCOMPARE(file->errorMsg(),
               QString("The hardware ids \"%1\" and \"%1 \" differ only in blanks around them.")
                   .arg(id));
      QVERIFY(file->saveParamFile(name, id + ' ', 0x10000));
    }
  }

  void anEmptyNameIsNone() {
    QTemporaryDir folder;
    auto file = makeFile();
    file->addHardwareId("HW");
    file->rootGroup(0);
    QVERIFY(file->saveParamFile(folder.filePath("never"), QString(), 0x10000));
    file->setSubDevName(0, "X");
    file->setSubDevName(0, "");
    QVERIFY(file->saveParamFile(folder.filePath("emptied"), QString(), 0x10000));
    QCOMPARE(read(folder.filePath("emptied")), read(folder.filePath("never")));
  }

  void savesOneHardwareIdAlone() {
    QTemporaryDir folder;
    auto file = makeFile();
    QVERIFY(file->loadParamFile(example("TwoAxisDrive.xparam"), QString(), 0x10000));
    QVERIFY(file->saveParamFile(folder.filePath("a.xparam"), "KTO-2A-32", 0x10000));
    auto again = makeFile();
    QVERIFY(again->loadParamFile(folder.filePath("a.xparam"), QString(), 0x10000));
    QCOMPARE(again->hardwareIds(), QStringList("KTO-2A-32"));
    QVERIFY(file->removeHardwareId("KTO-2A-16") || file->selectHardwareId("KTO-2A-32"));
    file->removeHardwareId("KTO-2A-16");
    QCOMPARE(NParamFileText::content(*again).section('\n', 2),
             NParamFileText::content(*file).section('\n', 2));
  }

 private:
  QStringList mPosted;
};

QTEST_APPLESS_MAIN(tst_CParamValueFile)
#include "tst_CParamValueFile.moc"
