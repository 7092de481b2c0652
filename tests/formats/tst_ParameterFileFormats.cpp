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
#define UNSAVABLE(edit, message) addRow(#edit, CEdit([](F& f) { edit; }), QString(message))

namespace {

const QString kTwoIds = data("values/valid/TwoHardwareIds.xparam");

/// Gives Mode a range, as it stands after an earlier one.
void range(F& file, const CParamVal& min, const CParamVal& max) {
  CParamDefItem* mode = file.paramDefPtr("Mode");
  mode->setMinVal(-2);
  mode->setMaxVal(max);
  mode->setMinVal(min);
}

}  // namespace

class tst_ParameterFileFormats : public QObject {
  Q_OBJECT

 private slots:
  void qtDomGivesAndTakesDefinitions() {
    NClock::setToday([] { return QDate(2026, 5, 6); });
    CParamDefFile direct(nullptr, nullptr);
    NClock::setToday(nullptr);
    QCOMPARE(direct.author() + direct.comment() + direct.date().toString(Qt::ISODate),
             "RX5automatic generated2026-05-06");
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
    addColumns<CEdit, QString>("edit", "message");
    UNSAVABLE(f.paramDefPtr("Mode")->setId(3),
              "The definitions \"Mode\" and \"Name\" have the same id 3.");
    UNSAVABLE(f.paramDefPtr("Mode")->setName("Name"), "Two definitions have the name \"Name\".");
    UNSAVABLE(range(f, 1, -1), "Parameter 'Mode' -> Minimum exceeds Maximum.");
    UNSAVABLE(range(f, "", -3), "");
    UNSAVABLE(f.paramDefPtr("Mode")->setName("[standard constructed]"),
              "Parameter (Id=2) -> The name \"[standard constructed]\" is reserved.");
    UNSAVABLE(f.setParamValue("Mode", "\x1F", 1),
              "File \"@FILE@\": <Param> \"Mode\": the text of <Value> holds the character "
              "\\u001F, which XML cannot hold.");
    UNSAVABLE(f.cloneHardwareId("A", "A "),
              "The hardware ids \"A\" and \"A \" differ only in blanks around them.");
    UNSAVABLE(f.renameHardwareId("A", "") && f.cloneHardwareId("", " "),
              "The hardware ids \"\" and \" \" differ only in blanks around them.");
  }
  void unsavable() {
    QFETCH(CEdit, edit);
    QFETCH(QString, message);
    const QString name = mFolder.filePath("a");
    QVERIFY(write(name, "old"));
    const auto file = makeSmall();
    edit(*file);
    const bool isSaved = file->defChanged() ? file->saveParamDefFile(name, 0x10000)
                                            : file->saveParamFile(name, QString(), 0x10000);
    QCOMPARE(isSaved, message.isEmpty());
    QCOMPARE(file->errorMsg(), message.replace("@FILE@", name));
    QCOMPARE(read(name) == "old", !isSaved);
    QCOMPARE(file->loadParamDefFile(name, 0x10000), isSaved);
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
    QVERIFY(file->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000));
    QVERIFY(log.lines.last().endsWith("TwoAxisDrive.xpdef\" loaded successfully."));
    QVERIFY(!file->loadParamFileAsSubDevId(data("values/invalid/Error_NoSubDevice.xparam"), 3,
                                           QString(), 0x10000));
  }

  void savesWhatThereIs() {
    const QString name = mFolder.filePath("saved");
    auto file = makeFile();
    const auto saved = [&](const QString& hardwareId = QString()) {
      return file->saveParamFile(name, hardwareId, 0x10000) ? read(name) : QByteArray("failed");
    };
    QVERIFY(file->addHardwareId("new") && saved().isEmpty());  // there is nothing
    file->rootGroup(0);
    const QByteArray nameless = saved();
    file->setSubDevName(0, "X");
    file->setSubDevName(0, "");
    QCOMPARE(saved(), nameless);

    file = makeFile();
    file->setFileType(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS);
    QVERIFY(file->loadParamFile(example("Motors.xparam"), QString(), 0x10000));
    NClock::setToday([] { return QDate(2026, 11, 20); });
    QCOMPARE(saved(), read(example("Motors.xparam")));
    NClock::setToday(nullptr);

    file = loadDrive();
    QVERIFY(!saved("KTO-2A-32").isEmpty());
    QVERIFY(file->selectHardwareId("KTO-2A-32") && file->removeHardwareId("KTO-2A-16"));
    const auto again = makeFile();
    QVERIFY(again->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000));
    QVERIFY(again->loadParamFile(name, QString(), 0x10000));
    QCOMPARE(NParamFileText::content(*again), NParamFileText::content(*file));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_ParameterFileFormats)
#include "tst_ParameterFileFormats.moc"
