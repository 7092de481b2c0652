// What is particular to files of definitions and of values.

#include "CParamDefFile.h"
#include "CParamValueFile.h"
#include "NClock.h"
#include "ParamFileText.h"
#include "TestRows.h"
#include "paramfile/ExampleDrive.h"

#include <QDomDocument>
#include <QTemporaryDir>

#include <functional>

using namespace NTestFiles;

using CEdit = std::function<void(ICParameterFile&)>;
Q_DECLARE_METATYPE(CEdit)

namespace {

const QString kTwoIds = data("values/valid/TwoHardwareIds.xparam");

struct SLoad {
  CHardwareIdTrees trees;
  CSubDeviceTrees subDevices;
  CSubDeviceTypes types;
  CSubDeviceNames names;
};

}  // namespace

class tst_ParameterFileFormats : public QObject {
  Q_OBJECT

 private slots:
  void aFreshFileHasTheLibrarysDefaults() {
    NClock::setToday([] { return QDate(2026, 5, 6); });
    CParamDefFile file(nullptr, nullptr);
    QCOMPARE(QStringList({file.errorMsg(), file.author(), file.comment()}).join('|'),
             QString("Ok|RX5|automatic generated"));
    QCOMPARE(file.date(), QDate(2026, 5, 6));
    NClock::setToday(nullptr);
  }

  void hardwareIdOfOneFile() {
    CParameterFileErrorHandler handler(nullptr);
    QString error;
    QVERIFY(handler.handleHardwareIdError(QString(), "B", error));
    QVERIFY(handler.handleHardwareIdError(QString("A"), "A", error));
    QVERIFY(error.isEmpty());
    QVERIFY(!handler.handleHardwareIdError(QString("a"), "A", error));
    QCOMPARE(error, QString("Hardware id 'A' is wrong. Expected was 'a'."));
  }

  void choiceAmongHardwareIds_data() {
    addColumns<QString, QStringList, QString, bool>("wanted", "available", "chosen", "ok");
    const QStringList both{"A", "B"};
    addRow("any", "", both, "A", true);
    addRow("one of them", "B", both, "B", true);
    addRow("none of them", "C", both, "C", false);
    addRow("none at all", "", QStringList(), "", false);
  }
  void choiceAmongHardwareIds() {
    QFETCH(QString, wanted);
    QFETCH(QStringList, available);
    QFETCH(bool, ok);
    CParameterFileErrorHandler handler(nullptr);
    QString error;
    QCOMPARE(handler.handleHardwareIdError(wanted, available, error), ok);
    QTEST(wanted, "chosen");
    QCOMPARE(error, ok ? QString() : "There is no matching hardware id for '" + wanted + "'.");
  }

  void qtDomGivesAndTakesTheSameDefinitions() {
    const QString name = data("definitions/valid/Everything.xpdef");
    QDomDocument document;
    QVERIFY(document.setContent(read(name)));
    CParamDefFile direct(nullptr, nullptr);
    CParamDefFile throughQt(nullptr, nullptr);
    QVERIFY(direct.open(name, "1.0"));
    QDomElement copies = document.createElement("Data");
    for (const auto& [key, definition] : direct.paramDefinitions()) {
      CParamDefFile::appendParamDefinitionToDom(copies, definition);
      const QDomElement copy = copies.lastChildElement();
      QVERIFY2(throughQt.readParamDefinitionFromDom(copy), qPrintable(throughQt.errorMsg()));
      QCOMPARE(NParamFileText::definition(throughQt.paramDefinitions().at(key)),
               NParamFileText::definition(definition));
      QDomElement bitSet = copy.firstChildElement("BitSet");
      QList<NParamDef::SBitValue> bits;
      QVERIFY(throughQt.readBitsetFromDom(bitSet, bits));
      QVERIFY(bits == definition.bitset());
      QString text;
      QVERIFY(throughQt.existingParamSubElemetStr(copy, "Name", 12, text));
      QVERIFY(!throughQt.existingParamSubElemetStr(copy, "None", 12, text));
      QVERIFY(throughQt.errorMsg().endsWith("<None> in <Param> is missing."));
      QCOMPARE(text, key);
    }
  }

  void qtDomTakesAndGivesTextsWholeThatNoFileHolds() {
    QString hint;
    for (const int unit : {0xFEFF, 0, 0xD800, 0x10, 0xDC00, 0xD7FF, 0xD83D, 0xDD29, 0xFFFE})
      hint += QChar(unit);
    CParamDefItem definition("A", NParamDef::PARAM_TYPE_U8, 7);
    definition.setHint(hint);
    QDomDocument document;
    QDomElement section = document.createElement("Data");
    CParamDefFile::appendParamDefinitionToDom(section, definition);
    QCOMPARE(section.firstChildElement().firstChildElement("Hint").text(), hint);
    CParamDefFile file(nullptr, nullptr);
    QVERIFY(file.readParamDefinitionFromDom(section.firstChildElement()));
    QCOMPARE(file.paramDefinitions().at("A").hint(), hint);
    QVERIFY(!file.enterDefinition(definition));
    QCOMPARE(file.errorMsg(), QString("Threre is alredy a Parameter with name = \"A\"."));
    QString error;
    QVERIFY(CDomDoc::fromDom(section).toByteArray("UTF-8", error).isEmpty());
    QVERIFY(!file.save("never", file.paramDefinitions(), "1.0"));
    QCOMPARE(file.errorMsg(), QString("File \"never\": <Param> \"A\": the text of <Hint> holds the "
                                      "character \\u0000, which XML cannot hold."));
  }

  /// What could not be read again is not saved; what was there stays.
  void unsavable_data() {
    addColumns<CEdit, bool, QString>("edit", "ofValues", "message");
    const auto row = [](bool ofValues, const char* message, const CEdit& edit) {
      addRow(message, edit, ofValues, message);
    };
    using F = ICParameterFile;
    const QString control = QChar(0x1F);
    row(false, "The definitions \"Mode\" and \"Name\" bear the same id 3.",
        [](F& f) { f.paramDefPtr("Mode")->setId(3); });
    row(false, "Two definitions bear the name \"Mode\".",
        [](F& f) { f.paramDefPtr("Name")->setName("Mode"); });
    row(false, "Parameter 'Mode' -> Minimum exceeds Maximum.", [](F& f) {
      for (const char* min : {"-2", "", "1"}) f.paramDefPtr("Mode")->setMinVal(min);
      f.paramDefPtr("Mode")->setMaxVal(-1);
    });
    row(false, "", [](F& f) {  // an emptied limit limits nothing
      f.paramDefPtr("Mode")->setMaxVal(-1);
      for (const char* min : {"-2", ""}) f.paramDefPtr("Mode")->setMinVal(min);
    });
    row(false, "Parameter (Id=2) -> The name \"[standard constructed]\" is reserved.",
        [](F& f) { f.paramDefPtr("Mode")->setName("[standard constructed]"); });
    row(false,
        "File \"@FILE@\": <Param> \"Mode\": the text of <Hint> holds the character \\u001F, which "
        "XML cannot hold.",
        [=](F& f) { f.paramDefPtr("Mode")->setHint("x" + control); });
    row(true,
        "File \"@FILE@\": <Param> \"Mode\": the text of <Value> holds the character \\uD800, which "
        "XML cannot hold.",
        [](F& f) { f.setParamValue("Mode", QString(QChar(0xD800)), 1); });
    row(true,
        "File \"@FILE@\": <Data>: attribute \"hardwareId\" holds the character \\u001F, which XML "
        "cannot hold.",
        [=](F& f) { f.renameHardwareId("A", control); });
    for (const QString& id : {QString("A"), QString()}) {
      const QString message =
          "The hardware ids \"%1\" and \"%1 \" differ in nothing but blanks around them.";
      row(true, qPrintable(message.arg(id)), [=](F& f) {
        f.renameHardwareId("A", id);
        f.cloneHardwareId(id, id + ' ');
      });
    }
  }
  void unsavable() {
    QFETCH(CEdit, edit);
    QFETCH(bool, ofValues);
    QFETCH(QString, message);
    const QString name = mFolder.filePath("a");
    QVERIFY(write(name, "old"));
    const auto file = makeSmall();
    edit(*file);
    QCOMPARE(ofValues ? file->saveParamFile(name, QString(), 0x10000)
                      : file->saveParamDefFile(name, 0x10000),
             message.isEmpty());
    QCOMPARE(file->errorMsg(), message.replace("@FILE@", name));
    if (message.isEmpty())
      QVERIFY2(file->loadParamDefFile(name, 0x10000), qPrintable(file->errorMsg()));
    else
      QCOMPARE(read(name), QByteArray("old"));
    if (message.startsWith("The hardware"))
      QVERIFY(file->saveParamFile(name, file->hardwareId(), 0x10000));
  }

  void loadsOneHardwareId() {
    CParamValueFile file(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
    SLoad to;
    QString id = "HW-A";
    QCOMPARE(file.load(kTwoIds, "1.0", id, to.subDevices, to.types, to.names), CParamValueFile::Ok);
    QCOMPARE(to.subDevices.size(), size_t(2));
    QCOMPARE(to.subDevices.at(8).value("Third").asStr(), QString("0x1"));

    id = "HW-C";
    QCOMPARE(file.load(kTwoIds, "1.0", id, to.subDevices, to.types, to.names),
             CParamValueFile::HardwareIdRejected);
    QCOMPARE(file.errorMsg(), QString("File \"%1\" parse error: Hardware id 'HW-A' is wrong. "
                                      "Expected was 'HW-C'.")
                                  .arg(kTwoIds));
    QCOMPARE(file.load(kTwoIds, "1.0", to.trees, to.types, to.names, id),
             CParamValueFile::HardwareIdRejected);
    QCOMPARE(file.errorMsg(),
             QString("File \"%1\" load error: There is no matching hardware id for 'HW-C'.")
                 .arg(kTwoIds));
  }

  void loadsTheFirstSubDeviceUnderAnotherId() {
    CKeptLines log(ICLogfile::kLevelDetail);
    const auto file = std::make_unique<CParameterFileBaseImpl>(NktoGlobal::FILE_TYPE_NONE, &log);
    QVERIFY(file->loadParamFileAsSubDevId(kTwoIds, 3, QString(), 0x10000));
    QCOMPARE(log.lines.at(1), QString("Line 18, sub device 3: The type \"Device\" replaces "
                                      "\"Drive\" of line 10: all hardware ids share the types of "
                                      "sub-devices."));
    QCOMPARE(file->subDeviceIds(), QList<quint8>{3});
    QVERIFY(file->selectHardwareId("HW-B"));
    QCOMPARE(file->paramNames(3), QStringList({"First", "Deep", "Second", "Third"}));
    QCOMPARE(file->rootGroup(3)->childPtr(1)->childPtr(0)->childPtr(0)->subDevId(), uchar(3));
    QCOMPARE(file->subDevName(3), QString("Axis X"));
    QVERIFY(!file->loadParamFileAsSubDevId(data("values/invalid/Error_NoSubDevice.xparam"), 3,
                                           QString(), 0x10000));
  }

  void versionsAreAcceptedByTheHandler() {
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
    QVERIFY(file->loadParamFile(kTwoIds, QString(), 0x10009));
    QVERIFY(!file->loadParamFile(other, QString(), 0x10009));
    file->setErrorHandler(&handler);
    QCOMPARE(handler.parameterfile(), file.get());
    QVERIFY(file->loadParamFile(other, QString(), 0x10009));
    QCOMPARE(handler.asked, QStringList("2.0/1.9"));
    QCOMPARE(file->paramFileVersion(), 0x10009U);
    file->setErrorHandler(nullptr);
    QVERIFY(!file->loadParamFile(other, QString(), 0x10009));
  }

  void savesWhatThereIs() {
    const QString name = mFolder.filePath("saved");
    auto file = makeFile();
    QVERIFY(file->addHardwareId("new"));
    QVERIFY(file->saveParamFile(name, QString(), 0x10000));
    QVERIFY(!QFile::exists(name));  // there is nothing
    file->rootGroup(0);
    QVERIFY(file->saveParamFile(name, QString(), 0x10000));
    const QByteArray nameless = read(name);
    file->setSubDevName(0, "X");
    file->setSubDevName(0, "");
    QVERIFY(file->saveParamFile(name, QString(), 0x10000));
    QCOMPARE(read(name), nameless);

    NClock::setToday([] { return QDate(2026, 11, 20); });
    file = makeFile();
    file->setFileType(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS);
    QVERIFY(file->loadParamFile(example("Motors.xparam"), QString(), 0x10000));
    QVERIFY(file->saveParamFile(name, QString(), 0x10000));
    NClock::setToday(nullptr);
    QCOMPARE(read(name), read(example("Motors.xparam")));
  }

  void savesOneHardwareIdAlone() {
    const auto file = loadDrive();
    QVERIFY(file->saveParamFile(mFolder.filePath("one"), "KTO-2A-32", 0x10000));
    const auto again = makeFile();
    QVERIFY(file->selectHardwareId("KTO-2A-32") && file->removeHardwareId("KTO-2A-16"));
    QVERIFY(again->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000));
    QVERIFY(again->loadParamFile(mFolder.filePath("one"), QString(), 0x10000));
    QCOMPARE(NParamFileText::content(*again), NParamFileText::content(*file));
  }

  void logsASuccessfulLoad() {
    CKeptLines log(8);
    CParamDefFile file(&log, nullptr);
    const QString name = example("TwoAxisDrive.xpdef");
    QVERIFY(file.open(name, "1.0"));
    QCOMPARE(
        log.lines,
        QStringList(QString("Parameter definition file \"%1\" loaded successfully.").arg(name)));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_ParameterFileFormats)
#include "tst_ParameterFileFormats.moc"
