#include "CKeptLines.h"
#include "CMessageBoardHelper.h"
#include "CParamDefFile.h"
#include "NClock.h"
#include "ParamFileText.h"
#include "paramfile/ExampleDrive.h"

#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

using namespace NTestFiles;

namespace {

QString definitionsOf(const ICParameterFile& file) {
  QStringList lines;
  for (const QString& name : file.defNames())
    lines += NParamFileText::definition(file.paramDef(name));
  return lines.join('\n');
}

}  // namespace

class tst_CParamDefFile : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    NClock::setToday([] { return QDate(2026, 3, 4); });
  }
  void cleanup() { CMessageBoardHelper::setHandler({}); }

  void refusesAndChangesNothing_data() {
    QTest::addColumn<QString>("fileName");
    const QDir folder(data("definitions/invalid"));
    for (const QString& name : folder.entryList({"*.xpdef"}))
      QTest::newRow(qPrintable(name)) << folder.filePath(name);
    QTest::newRow("missing file") << folder.filePath("missing");
  }
  void refusesAndChangesNothing() {
    QFETCH(QString, fileName);
    int posted = 0;
    CMessageBoardHelper::setHandler([&](auto, const QString&) { ++posted; });
    auto file = makeFile();
    QVERIFY(file->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000));
    const QString before = NParamFileText::all(*file);
    const QByteArray bytes = read(fileName);

    QVERIFY(!file->loadParamDefFile(fileName, 0x10000));
    QCOMPARE(file->errorMsg(), expected(fileName));
    const bool openFailed = file->errorMsg().startsWith("File ");
    QCOMPARE(posted, openFailed ? 1 : 0);
    QCOMPARE(file->errorLine() > 0, !openFailed);
    QCOMPARE(NParamFileText::all(*file), before);
    QCOMPARE(read(fileName), bytes);
  }

  void readsEveryFeatureAndKeepsItThroughASave() {
    const QString fileName = data("definitions/valid/Everything.xpdef");
    auto file = makeFile();
    QVERIFY2(file->loadParamDefFile(fileName, 0x10000), qPrintable(file->errorMsg()));
    QCOMPARE(definitionsOf(*file), expected(fileName));
    QCOMPARE(file->defAuthor(), QString("A. Uthor"));
    QCOMPARE(file->defDate(), QDate(2026, 2, 3));
    QVERIFY(!file->isChanged());

    QTemporaryDir folder;
    const QString first = folder.filePath("first.xpdef");
    const QString second = folder.filePath("second.xpdef");
    QVERIFY2(file->saveParamDefFile(first, 0x10000), qPrintable(file->errorMsg()));
    auto again = makeFile();
    QVERIFY2(again->loadParamDefFile(first, 0x10000), qPrintable(again->errorMsg()));
    QCOMPARE(definitionsOf(*again), definitionsOf(*file));
    QCOMPARE(again->defDate(), QDate(2026, 3, 4));
    QVERIFY(again->saveParamDefFile(second, 0x10000));
    QCOMPARE(read(second), read(first));
  }

  void writesTheExampleAsItIs() {
    NClock::setToday([] { return QDate(2026, 11, 20); });
    QTemporaryDir folder;
    auto file = makeFile();
    QVERIFY(file->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000));
    QVERIFY(file->saveParamDefFile(folder.filePath("a.xpdef"), 0x10000));
    QCOMPARE(read(folder.filePath("a.xpdef")), read(example("TwoAxisDrive.xpdef")));
  }

  void qtDomGivesAndTakesTheSameDefinitions() {
    QDomDocument document;
    QVERIFY(document.setContent(read(example("TwoAxisDrive.xpdef"))));
    CParamDefFile direct(nullptr, nullptr);
    QVERIFY(direct.open(example("TwoAxisDrive.xpdef"), "1.0"));
    CParamDefFile throughQt(nullptr, nullptr);
    CParamDefFile thereAndBack(nullptr, nullptr);
    QDomElement copies = document.createElement("Data");
    const QDomElement section = document.documentElement().firstChildElement("Data");
    for (QDomElement param = section.firstChildElement("Param"); !param.isNull();
         param = param.nextSiblingElement("Param")) {
      QVERIFY2(throughQt.readParamDefinitionFromDom(param), qPrintable(throughQt.errorMsg()));
      const QString name = param.firstChildElement("Name").text();
      CParamDefFile::appendParamDefinitionToDom(copies, throughQt.paramDefinitions().at(name));
      QVERIFY(thereAndBack.readParamDefinitionFromDom(copies.lastChildElement()));
      QDomElement bitSet = param.firstChildElement("BitSet");
      QList<NParamDef::SBitValue> bits;
      QVERIFY(throughQt.readBitsetFromDom(bitSet, bits));
      QVERIFY(bits == throughQt.paramDefinitions().at(name).bitset());
    }
    const CParamDefinitions& definitions = direct.paramDefinitions();
    QCOMPARE(throughQt.paramDefinitions().size(), definitions.size());
    for (const auto& [name, definition] : definitions) {
      const QString text = NParamFileText::definition(definition);
      QCOMPARE(NParamFileText::definition(throughQt.paramDefinitions().at(name)), text);
      QCOMPARE(NParamFileText::definition(thereAndBack.paramDefinitions().at(name)), text);
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
    QString error;
    QVERIFY(CDomDoc::fromDom(section).toByteArray("UTF-8", error).isEmpty());
    QVERIFY(!file.save("never", file.paramDefinitions(), "1.0"));
    QCOMPARE(file.errorMsg(), QString("File \"never\": <Param> \"A\": the text of <Hint> holds the "
                                      "character \\u0000, which XML cannot hold."));
  }

  void aDefinitionIsEnteredOnce() {
    CParamDefFile file(nullptr, nullptr);
    QVERIFY(file.enterDefinition(CParamDefItem("Speed", NParamDef::PARAM_TYPE_F64, 7)));
    QVERIFY(!file.enterDefinition(CParamDefItem("Speed", NParamDef::PARAM_TYPE_F64, 8)));
    QCOMPARE(file.errorMsg(), QString("Threre is alredy a Parameter with name = \"Speed\"."));
  }

  void refusesToSaveWhatCouldNotBeRead_data() {
    QTest::addColumn<QString>("reason");
    QTest::newRow("id twice") << "The definitions \"A\" and \"B\" have the same id 7.";
    QTest::newRow("name twice") << "Two definitions have the name \"A\".";
    QTest::newRow("limits") << "Parameter 'A' -> Minimum exceeds Maximum.";
    QTest::newRow("reserved")
        << "Parameter (Id=7) -> The name \"[standard constructed]\" is reserved.";
    QTest::newRow("control character") << "File \"@FILE@\": <Param> \"A\": the text of <Hint> "
                                          "holds the character \\u0001, which XML "
                                          "cannot hold.";
  }
  void refusesToSaveWhatCouldNotBeRead() {
    QFETCH(QString, reason);
    QTemporaryDir folder;
    const QString fileName = folder.filePath("a.xpdef");
    QVERIFY(write(fileName, "old"));
    auto file = makeFile();
    CParamDefItem* a = file->addDef("A", NParamDef::PARAM_TYPE_I32, 7);
    CParamDefItem* b = file->addDef("B", NParamDef::PARAM_TYPE_I32, 8);
    const QString row = QTest::currentDataTag();
    if (row == "id twice") b->setId(7);
    if (row == "name twice") b->setName("A");
    if (row == "limits") a->setMinVal(1), a->setMaxVal(-1);
    if (row == "reserved") a->setName("[standard constructed]");
    if (row == "control character") a->setHint(QString("x") + QChar(1));
    QVERIFY(!file->saveParamDefFile(fileName, 0x10000));
    QCOMPARE(file->errorMsg(), reason.replace("@FILE@", fileName));
    QCOMPARE(read(fileName), QByteArray("old"));
  }

  void anEmptiedLimitLimitsNothing() {
    QTemporaryDir folder;
    auto file = makeFile();
    CParamDefItem* a = file->addDef("A", NParamDef::PARAM_TYPE_I32, 7);
    a->setMaxVal(-1);
    for (const char* min : {"-2", ""}) a->setMinVal(min);
    QVERIFY2(file->saveParamDefFile(folder.filePath("a"), 0x10000), qPrintable(file->errorMsg()));
    QVERIFY2(file->loadParamDefFile(folder.filePath("a"), 0x10000), qPrintable(file->errorMsg()));
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
};

QTEST_APPLESS_MAIN(tst_CParamDefFile)
#include "tst_CParamDefFile.moc"
