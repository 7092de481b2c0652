// Import of values, and objects that look things up in each other.

#include "ExampleDrive.h"
#include "ParamFileText.h"

#include "TestRows.h"

#include <QTemporaryDir>

#include <functional>

using F = ICParameterFile;
using CMeddling = std::function<void(F&)>;
Q_DECLARE_METATYPE(CMeddling)

namespace {

/// How many values were taken, equal, made defaults, kept, added and unknown.
QString counts(const ICParameterFile& file) {
  const NParamDef::SImportResult r = file.importResult();
  return NParamFileText::numbers<int>({r.taken, r.equal, r.defaulted, r.kept, r.added, r.unknown});
}

/// Sub-device 1: Speed 0x14 in G/Inner, Name in New/Group, Secret (not defined elsewhere).
CParameterFilePtr makeSource() {
  auto source = makeSmall();
  source->deleteNode(source->rootGroup(1)->childPtr("Mode"));
  source->setParamValue("Speed", CParamVal(20U), 1);
  source->addParameter(source->subGroup("New/Group", 1), "Name", CParamVal("n"));
  source->addDef("Secret", NParamDef::PARAM_TYPE_U8, 9);
  source->addParameter(source->rootGroup(1), "Secret");
  source->addParameter(source->rootGroup(4), "Loose");
  return source;
}

/// Accepts everything, and does something to the file that it serves on the way.
struct SMeddler : CParameterFileErrorHandler {
  explicit SMeddler(CMeddling toDo)
      : CParameterFileErrorHandler(nullptr), meddling(std::move(toDo)) {}
  using CParameterFileErrorHandler::handleHardwareIdError;
  bool handleHardwareIdError(QString&, const QStringList&, QString&) override {
    return handleFileVersionError("id", {});
  }
  bool handleFileVersionError(const QString& version, const QString& expected) override {
    asked += version + '/' + expected;
    meddling(*parameterfile());
    return true;
  }
  CMeddling meddling;
  QString asked;
};

CParameterFilePtr makeMember(ICParameterFile* parent) {
  return CParameterFilePtr(
      ICParameterFile::createGroup(parent, NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
}

}  // namespace

class tst_ParameterFileImport : public QObject {
  Q_OBJECT

 private slots:
  void takesDefaultsAddsAndSkips() {
    const auto source = makeSource();
    source->setParamValue("Speed", "0", 1);
    SLoggedSmall small;
    ICParameterFile& file = small.file;
    file.setParamValue("Mode", CParamVal(5), 1);
    file.setParamValue("Speed", "abc", 1);  // which counts as 0 elsewhere
    file.clearChanged();
    QVERIFY2(file.importParamFile(source.get(), "", ""), qPrintable(file.errorMsg()));
    QCOMPARE(counts(file), "1|0|1|0|2|1");
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
    QVERIFY(file.importParamFile(source.get(), "", "", NParamDef::ImportKeep));
    QCOMPARE(counts(file), "0|3|0|1|0|1");
    QCOMPARE(file.paramValue("Mode", 1), CParamVal(5));
  }

  void importsIntoOtherIds() {
    QTemporaryDir folder;
    const QString name = folder.filePath("s");
    const auto source = makeSource();
    source->renameHardwareId("A", "S");
    QVERIFY(source->saveParamFile(name, QString(), 0x20000));
    const auto file = makeSmall();
    file->cloneHardwareId("A", "B");
    file->clearChanged();
    QVERIFY2(file->importParamFile(name, "", "A"), qPrintable(file->errorMsg()));
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

  void handlersMayChangeTheFile_data() {
    addColumns<CMeddling, QString, QString>("meddling", "source", "message");
    addRow("nothing", CMeddling([](F&) {}), "X",
           "Other instance does not contain source hardware id \"X\". Import failed.");
    addRow("clear", CMeddling([](F& f) { f.clear(); }), "A",
           "Destination hardware id \"A\" does not exist. Import failed.");
  }
  void handlersMayChangeTheFile() {
    QFETCH(CMeddling, meddling);
    QFETCH(QString, source);
    QTemporaryDir folder;
    const QString name = folder.filePath("s");
    QVERIFY(makeSource()->saveParamFile(name, QString(), 0x20000));
    const auto file = makeSmall();
    file->cloneHardwareId("A", "B");
    SMeddler first(meddling);
    file->setErrorHandler(&first);
    QVERIFY(!file->importParamFile(name, source, "A"));
    QTEST(file->errorMsg(), "message");
    QVERIFY(file->loadParamFile(name, "X", 0x20000));
    QCOMPARE(file->hardwareId(), QString("X"));

    SMeddler second(meddling);
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
    second->addDef("Speed", NParamDef::PARAM_TYPE_U32, 7)->setDefVal(CParamVal(3U));
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
    first.reset();
    QCOMPARE(second->paramValue("Speed", 1), CParamVal(4U));
  }

  void referencesAreThoseOfAllMembers() {
    QTemporaryDir folder;
    auto first = makeMember(nullptr);
    const auto second = makeMember(first.get());
    const auto file = makeFile();
    file->addDef("P", NParamDef::PARAM_TYPE_U32, 1)->setVisible("5#1");
    QVERIFY(file->saveParamDefFile(folder.filePath("d"), 0x10000));
    for (ICParameterFile* member : {first.get(), second.get()})
      QVERIFY(member->loadParamDefFile(folder.filePath("d"), 0x10000));
    QCOMPARE(second->referencedBy(5U), QList<quint32>({1, 1}));
    first->clear();
    QVERIFY(first->isReferenced(5U) && second->referencedBy(5U) == QList<quint32>{1});
  }
};

QTEST_APPLESS_MAIN(tst_ParameterFileImport)
#include "tst_ParameterFileImport.moc"
