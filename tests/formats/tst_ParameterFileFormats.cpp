// What is particular to files of definitions and of values; import of values, and objects that look
// things up in each other.

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

/// How many values were taken, equal, made defaults, kept, added and unknown.
QString counts(const F& file) {
  const SImportResult r = file.importResult();
  return NParamFileText::numbers<int>({r.taken, r.equal, r.defaulted, r.kept, r.added, r.unknown});
}

/// "0:1.Speed 2:1.Mode", with the number of what was done to each.
QString told(const CImportedParams& imported) {
  QStringList texts;
  for (const SImportedParam& each : imported)
    texts.append(QString("%1:%2.%3").arg(each.what).arg(each.subDevId).arg(each.name));
  return texts.join(' ');
}

/// Sub-device 1: Speed 0x14 in G/Inner, Name in New/Group, Secret (not defined elsewhere).
CParameterFilePtr makeSource() {
  auto source = makeSmall();
  source->deleteNode(source->rootGroup(1)->childPtr("Mode"));
  source->setParamValue("Speed", CParamVal(20U), 1);
  source->addParameter(source->subGroup("New/Group", 1), "Name", CParamVal("n"));
  source->addDef("Secret", PARAM_TYPE_U8, 9);
  source->addParameter(source->rootGroup(1), "Secret");
  source->addParameter(source->rootGroup(4), "Loose");
  return source;
}

/// Accepts everything, and does something to the file that it serves on the way.
struct SMeddler : CParameterFileErrorHandler {
  explicit SMeddler(CEdit toDo) : CParameterFileErrorHandler(nullptr), meddling(std::move(toDo)) {}
  using CParameterFileErrorHandler::handleHardwareIdError;
  bool handleHardwareIdError(QString&, const QStringList&, QString&) override {
    return handleFileVersionError("id", {});
  }
  bool handleFileVersionError(const QString& version, const QString& expected) override {
    asked += version + '/' + expected;
    meddling(*parameterfile());
    return true;
  }
  CEdit meddling;
  QString asked;
};

CParameterFilePtr makeMember(F* parent) {
  return CParameterFilePtr(F::createGroup(parent, NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
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

  /// Commands of the shell: whether they change a file that was loaded, and one that was saved.
  void knowsWhetherAFileChanged_data() {
    addColumns<QString, bool>("command", "isChanged");
    addTextRow("touch -d 2001-01-01 D; cp V v; mv v V", false);
    addTextRow("LC_ALL=C sed -i s/1/2/ D; rm V", true);
  }
  void knowsWhetherAFileChanged() {
    QFETCH(QString, command);
    const auto file = makeSmall();
    QVERIFY(QDir::setCurrent(mFolder.path()) && makeSmall()->saveParamDefFile("D", 0x10000) &&
            file->loadParamDefFile("D", 0x10000) && file->saveParamFile("V", "", 0x10000));
    QCOMPARE(std::system(qPrintable(command)), 0);
    for (const char* name : {"D", "V"}) QTEST(file->hasChangedOnDisk(name), "isChanged");
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
    auto [edit, message] = cells<CEdit, QString>("edit", "message");
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
    const QString oneLine = mFolder.filePath("one line");
    QVERIFY(write(oneLine, read(kTwoIds).replace('\n', ' ')));
    QVERIFY(file->loadParamFileAsSubDevId(oneLine, 3, QString(), 0x10000));
    QVERIFY(log.lines.join(' ').contains("\"Drive\" of line 1:"));
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

  void takesDefaultsAddsAndSkips() {
    const auto source = makeSource();
    source->setParamValue("Speed", "0", 1);
    SLoggedSmall small;
    ICParameterFile& file = small.file;
    file.setParamValue("Mode", CParamVal(5), 1);
    file.setParamValue("Speed", "abc", 1);  // which counts as 0 elsewhere
    file.clearChanged();
    CImportedParams imported;
    QVERIFY2(file.importParamFile(source.get(), "", "", ImportDefault, imported),
             qPrintable(file.errorMsg()));
    QCOMPARE(counts(file), "1|0|1|0|2|1");
    QCOMPARE(told(imported), "0:1.Speed 2:1.Mode 4:1.Name 5:1.Secret 4:4.Loose");
    QCOMPARE(file.paramValue("Speed", 1).asStr() + file.paramValue("Mode", 1).asStr(), "0-1");
    QCOMPARE(file.findParameter(file.existingSubGroup("New/Group", 1), "Name")->id(), 3U);
    QCOMPARE(file.rootGroup(4)->childPtr("Loose")->id(), 0U);
    QVERIFY(file.paramValue("Secret", 1).isNull());
    QCOMPARE(file.changedList(), QStringList("A"));
    QCOMPARE(small.log.lines,
             QStringList({"Mode of sub device 1: Default value is used.",
                          "Secret of sub device 1: The parameter is not defined and is skipped."}));
    file.clearChanged();
    QVERIFY(file.importParamFile(source.get(), "A", "A"));
    QCOMPARE(counts(file), "0|3|1|0|0|1");
    QVERIFY(!file.isChanged() && file.setParamValue("Mode", CParamVal(5), 1));
    QVERIFY(file.importParamFile(source.get(), "", "", ImportKeep));
    QCOMPARE(counts(file), "0|3|0|1|0|1");
    QCOMPARE(file.paramValue("Mode", 1), CParamVal(5));
  }

  void importsIntoOtherIds() {
    const QString name = mFolder.filePath("s");
    const auto source = makeSource();
    source->renameHardwareId("A", "S");
    QVERIFY(source->saveParamFile(name, QString(), 0x20000));
    const auto file = makeSmall();
    file->cloneHardwareId("A", "B");
    file->clearChanged();
    CImportedParams imported;
    QVERIFY2(file->importParamFile(name, "", "A", ImportKeep, imported),
             qPrintable(file->errorMsg()));
    QCOMPARE(told(imported), "0:1.Speed 3:1.Mode 4:1.Name 5:1.Secret 4:4.Loose");
    QVERIFY(!file->importParamFile(name, "X", "A", ImportKeep, imported));
    QCOMPARE(imported.size(), 5);
    QCOMPARE(file->hardwareId() + file->paramValue("Speed", 1).asStr(), QString("B0xa"));
    QCOMPARE(file->changedList(), QStringList("A"));
    QVERIFY(file->selectHardwareId("A"));
    QCOMPARE(file->paramValue("Speed", 1), CParamVal(20U));
    QVERIFY(!file->importParamFile(name, "X", "A"));
    QCOMPARE(file->errorMsg(),
             "File \"" + name + "\" load error: There is no matching hardware id for 'X'.");
    file->clearChanged();
    file->addHardwareId("N");
    QVERIFY(!file->importParamFile(source.get(), "X", ""));
    QCOMPARE(file->hardwareIds(), QStringList({"A", "B"}));
    QVERIFY2(file->importParamFile(source.get(), "", "N"), qPrintable(file->errorMsg()));
    QCOMPARE(counts(*file), "0|0|0|0|3|1");
    QCOMPARE(file->changedList(), QStringList("N"));
  }

  void handlersMayChangeTheFile() {
    const QString name = mFolder.filePath("s");
    QVERIFY(makeSource()->saveParamFile(name, QString(), 0x20000));
    const auto file = makeSmall();
    file->cloneHardwareId("A", "B");
    SMeddler first([](F&) {});
    file->setErrorHandler(&first);
    QVERIFY(!file->importParamFile(name, "X", "A"));
    QCOMPARE(file->errorMsg(), QString("Other instance does not contain source hardware id \"X\". "
                                       "Import failed."));
    first.meddling = [](F& f) { f.clear(); };
    QVERIFY(!file->importParamFile(name, "A", "A"));
    QCOMPARE(file->errorMsg(),
             QString("Destination hardware id \"A\" does not exist. Import failed."));
    QVERIFY(file->loadParamFile(name, "X", 0x20000));
    QCOMPARE(file->hardwareId(), QString("X"));

    SMeddler second(first.meddling);
    first.meddling = [&](F& f) { f.setErrorHandler(&second); };
    QVERIFY(file->loadParamFile(name, "X", 0x10000));
    QCOMPARE(first.asked.right(7) + ' ' + second.asked, "2.0/1.0 id/");
    QCOMPARE(file->paramFileVersion(), 0x10000U);
    file->setErrorHandler(nullptr);
    QVERIFY(!file->loadParamFile(name, "X", 0x10000) && file->loadParamFile(name, "A", 0x20001));
  }

  void failsAtTheFirstDefaultWithoutDefinition() {
    CKeptLines log;
    CParameterFileBaseImpl file(NktoGlobal::FILE_TYPE_PARAMETERS, &log);
    file.cloneHardwareIdFromInstance("A", makeSmall().get());
    file.clearChanged();
    const QString before = NParamFileText::all(file);
    QVERIFY(!file.importParamFile(makeSource().get(), "A", "A"));
    const QString message = "Definition of parameter \"Mode\" not found. Import failed.";
    QCOMPARE(file.errorMsg(), message);
    QCOMPARE(log.lines, QStringList({"Mode of sub device 1: Definition is missing.", message}));
    QCOMPARE(NParamFileText::all(file), before);
  }

  void membersOfAGroupAnswerForEachOther() {
    auto first = makeMember(nullptr);
    const auto second = makeMember(first.get());
    const auto stranger = makeMember(makeFile().get());
    first->addHardwareId("A");
    second->addHardwareId("B");
    second->addDef("Speed", PARAM_TYPE_U32, 7)->setDefVal(CParamVal(3U));
    QVERIFY(first->paramDef("Speed").id() == 7U && first->idByName("Speed") == 7U);
    QCOMPARE(first->paramDef(7U).name(), QString("Speed"));
    QVERIFY(!stranger->paramDef("Speed").valid() && stranger->nameById(7).isEmpty());
    QVERIFY(!first->paramDefPtr("Speed") && first->isDefEmpty());

    ICParamTreeNode* speed = first->addParameter(first->rootGroup(1), "Speed");
    QVERIFY(speed && second->addParameter(second->rootGroup(1), "Speed", CParamVal(4U)));
    QCOMPARE(second->paramValue("Speed", 1), CParamVal(3U));
    QVERIFY(first->setParamValue("Speed", CParamVal(), 1));
    QVERIFY(!second->paramValue("Speed", 1).isNull() && first->deleteNode(speed));
    QCOMPARE(second->paramValue("Speed", 1), CParamVal(4U));

    const QString name = mFolder.filePath("references");
    const auto file = makeFile();
    file->addDef("P", PARAM_TYPE_U32, 1)->setVisible("5#1");
    QVERIFY(file->saveParamDefFile(name, 0x10000) && first->loadParamDefFile(name, 0x10000));
    QVERIFY(second->isReferenced(5U) && second->loadParamDefFile(name, 0x10000));
    QCOMPARE(second->referencedBy(5U), QList<quint32>({1, 1}));
    first.reset();
    QCOMPARE(second->referencedBy(5U), QList<quint32>({1}));
    QCOMPARE(second->paramValue("Speed", 1), CParamVal(4U));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_ParameterFileFormats)
#include "tst_ParameterFileFormats.moc"
