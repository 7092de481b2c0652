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
using namespace NParamDef;

using F = ICParameterFile;
using CEdit = std::function<void(F&)>;
Q_DECLARE_METATYPE(CEdit)

/// A row, called like its edit, which is an expression of the small file f.
#define UNSAVABLE(edit, ofValues, message) \
  addRow(#edit, CEdit([=](F& f) { edit; }), ofValues, QString(message))

namespace {

const QString kTwoIds = data("values/valid/TwoHardwareIds.xparam");

}  // namespace

class tst_ParameterFileFormats : public QObject {
  Q_OBJECT

 private slots:
  void qtDomGivesAndTakesDefinitions() {
    NClock::setToday([] { return QDate(2026, 5, 6); });
    CParamDefFile direct(nullptr, nullptr);
    NClock::setToday(nullptr);
    QCOMPARE(direct.author() + '|' + direct.comment(), QString("RX5|automatic generated"));
    QCOMPARE(direct.date(), QDate(2026, 5, 6));
    QVERIFY(direct.open(data("definitions/valid/Everything.xpdef"), "1.0"));
    CParamDefItem definition("A", PARAM_TYPE_U8, 7);
    QString hint;  // that no file could hold
    for (const int unit : {0xFEFF, 0, 0xD800, 0x10, 0xDC00, 0xD7FF, 0xD83D, 0xDD29, 0xFFFE})
      hint += QChar(unit);
    definition.setHint(hint);
    QVERIFY(direct.enterDefinition(definition) && !direct.enterDefinition(definition));
    QCOMPARE(direct.errorMsg(), QString("Threre is alredy a Parameter with name = \"A\"."));
    QVERIFY(!direct.save("never", direct.paramDefinitions(), "1.0"));

    QDomDocument document;
    QDomElement all = document.createElement("Data");
    CParamDefFile throughQt(nullptr, nullptr);
    for (const auto& [name, each] : direct.paramDefinitions()) {
      CParamDefFile::appendParamDefinitionToDom(all, each);
      const QDomElement element = all.lastChildElement();
      QVERIFY2(throughQt.readParamDefinitionFromDom(element), qPrintable(throughQt.errorMsg()));
      QCOMPARE(NParamFileText::definition(throughQt.paramDefinitions().at(name)),
               NParamFileText::definition(each));
      QDomElement bitSet = element.firstChildElement("BitSet");
      QList<SBitValue> bits;
      QVERIFY(throughQt.readBitsetFromDom(bitSet, bits) && bits == each.bitset());
      QString text;
      QVERIFY(throughQt.existingParamSubElemetStr(element, "Name", 12, text) && text == name);
      QVERIFY(!throughQt.existingParamSubElemetStr(element, "None", 12, text) && text == name);
      QCOMPARE(throughQt.errorMsg(), QString("Parameter (Id=12) -> <None> in <Param> is missing."));
    }
  }

  /// What could not be read again is not saved; what was there stays.
  void unsavable_data() {
    addColumns<CEdit, bool, QString>("edit", "ofValues", "message");
    const auto mode = [](F& f) { return f.paramDefPtr("Mode"); };
    const QString held = "holds the character \\u001F, which XML cannot hold.";
    const QString control = QChar(0x1F);
    UNSAVABLE(mode(f)->setId(3), false,
              "The definitions \"Mode\" and \"Name\" have the same id 3.");
    UNSAVABLE(mode(f)->setName("Name"), false, "Two definitions have the name \"Name\".");
    UNSAVABLE(mode(f)->setMinVal(1);
              mode(f)->setMaxVal(-1), false, "Parameter 'Mode' -> Minimum exceeds Maximum.");
    UNSAVABLE(mode(f)->setMinVal(-2); mode(f)->setMaxVal(-3); mode(f)->setMinVal(""), false, "");
    UNSAVABLE(mode(f)->setName("[standard constructed]"), false,
              "Parameter (Id=2) -> The name \"[standard constructed]\" is reserved.");
    UNSAVABLE(mode(f)->setHint(control), false,
              "File \"@FILE@\": <Param> \"Mode\": the text of <Hint> " + held);
    UNSAVABLE(f.setParamValue("Mode", control, 1), true,
              "File \"@FILE@\": <Param> \"Mode\": the text of <Value> " + held);
    UNSAVABLE(f.renameHardwareId("A", control), true,
              "File \"@FILE@\": <Data>: attribute \"hardwareId\" " + held);
    UNSAVABLE(f.cloneHardwareId("A", "A "), true,
              "The hardware ids \"A\" and \"A \" differ only in blanks around them.");
    UNSAVABLE(f.renameHardwareId("A", "");
              f.cloneHardwareId("", " "), true,
              "The hardware ids \"\" and \" \" differ only in blanks around them.");
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
    QCOMPARE(read(name) == "old", !message.isEmpty());
    QCOMPARE(file->loadParamDefFile(name, 0x10000), message.isEmpty());
  }

  void loadsOneHardwareId() {
    const QString error = "File \"" + kTwoIds + "\" ";
    CParamValueFile file(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
    CHardwareIdTrees trees;
    CSubDeviceTrees subDevices;
    SSubDeviceLabels labels;
    QString id = "HW-A";
    QCOMPARE(file.load(kTwoIds, "1.0", id, subDevices, labels), CParamValueFile::Ok);
    QCOMPARE(subDevices.size(), size_t(2));
    QCOMPARE(subDevices.at(8).value("Third").asStr(), QString("0x1"));
    id = "HW-C";
    QCOMPARE(int(file.load(kTwoIds, "1.0", id, subDevices, labels)), 27);
    QCOMPARE(file.errorMsg(),
             error + "parse error: Hardware id 'HW-A' is wrong. Expected was 'HW-C'.");
    QCOMPARE(int(file.load(kTwoIds, "1.0", trees, labels, id)), 27);
    QCOMPARE(file.errorMsg(), error + "load error: There is no matching hardware id for 'HW-C'.");
    CParameterFileErrorHandler handler(nullptr);
    QVERIFY(handler.handleHardwareIdError(QString(), "B", id));
    id.clear();
    QVERIFY(!handler.handleHardwareIdError(id, QStringList(), id));
  }

  void loadsTheFirstSubDeviceUnderAnotherId() {
    CKeptLines log(ICLogfile::kLevelDetail);
    const auto file = std::make_unique<CParameterFileBaseImpl>(NktoGlobal::FILE_TYPE_NONE, &log);
    QVERIFY(file->loadParamFileAsSubDevId(kTwoIds, 3, QString(), 0x10000));
    QCOMPARE(log.lines.at(1), QString("Line 18, sub device 3: The type \"Device\" replaces "
                                      "\"Drive\" of line 10: all hardware ids share the types of "
                                      "sub-devices."));
    QVERIFY(file->subDeviceIds() == QList<quint8>{3} && file->selectHardwareId("HW-B"));
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
    const auto load = [&](const QString& name) {
      return file->loadParamFile(data("values/" + name + ".xparam"), QString(), 0x10009);
    };
    QVERIFY(load("valid/TwoHardwareIds") && !load("invalid/Error_Version"));
    file->setErrorHandler(&handler);
    QVERIFY(handler.parameterfile() == file.get() && load("invalid/Error_Version"));
    QCOMPARE(handler.asked, QStringList("2.0/1.9"));
    QCOMPARE(file->paramFileVersion(), 0x10009U);
    file->setErrorHandler(nullptr);
    QVERIFY(!load("invalid/Error_Version"));
  }

  void savesWhatThereIs() {
    const QString name = mFolder.filePath("saved");
    auto file = makeFile();
    const auto save = [&](const QString& hardwareId = QString()) {
      return file->saveParamFile(name, hardwareId, 0x10000);
    };
    QVERIFY(file->addHardwareId("new") && save() && !QFile::exists(name));  // there is nothing
    file->rootGroup(0);
    QVERIFY(save());
    const QByteArray nameless = read(name);
    file->setSubDevName(0, "X");
    file->setSubDevName(0, "");
    QVERIFY(save());
    QCOMPARE(read(name), nameless);

    file = makeFile();
    file->setFileType(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS);
    QVERIFY(file->loadParamFile(example("Motors.xparam"), QString(), 0x10000));
    NClock::setToday([] { return QDate(2026, 11, 20); });
    QVERIFY(save());
    NClock::setToday(nullptr);
    QCOMPARE(read(name), read(example("Motors.xparam")));

    file = loadDrive();
    QVERIFY(save("KTO-2A-32"));
    QVERIFY(file->selectHardwareId("KTO-2A-32") && file->removeHardwareId("KTO-2A-16"));
    CKeptLines log(8);
    CParameterFileBaseImpl again(NktoGlobal::FILE_TYPE_PARAMETERS, &log);
    QVERIFY(again.loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000));
    QCOMPARE(log.lines.first(), "Parameter definition file \"" + example("TwoAxisDrive.xpdef") +
                                    "\" loaded successfully.");
    QVERIFY(again.loadParamFile(name, QString(), 0x10000));
    QCOMPARE(NParamFileText::content(again), NParamFileText::content(*file));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_ParameterFileFormats)
#include "tst_ParameterFileFormats.moc"
