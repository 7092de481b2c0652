#include "CParameterFileHelper.h"
#include "GoldenFiles.h"
#include "ICParameterFile.h"
#include "ICSimpleParamReader.h"
#include "KeptMessages.h"

#include <QTemporaryDir>

#include <sys/stat.h>

#include <limits>

using namespace NParamDef;
using namespace NTestFiles;

namespace {

constexpr quint8 kAxis = 2;
const QString kHardwareId = "KTO-2A-16";

/// Of all files: name, inode and bytes. The same when none was saved.
QByteArray state(const QString& folder) {
  QByteArray result;
  for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
    const QString path = folder + '/' + name;
    struct stat info = {};
    ::stat(qPrintable(path), &info);
    result += name.toUtf8() + QByteArray::number(quint64(info.st_ino)) + read(path);
  }
  return result;
}

std::unique_ptr<ICSimpleParamReader> makeReader(
    EAccessRight access, const QString& hardwareId = kHardwareId, ICLogfile* logfile = nullptr,
    decltype(&ICSimpleParamReader::create) factory = ICSimpleParamReader::createSingle) {
  return std::unique_ptr<ICSimpleParamReader>(
      factory(NktoGlobal::FILE_TYPE_PARAMETERS, hardwareId, access, logfile, 0x10000, 0x10000));
}

QString describe(const CParamDefItem& d) {
  return QStringList({QString::number(d.id()), d.typeStr(), d.defVal(), d.minVal(), d.maxVal()})
      .join('|');
}

}  // namespace

class tst_CSimpleParamReader : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    mFolder = std::make_unique<QTemporaryDir>();
    usePair();
    mReader = makeReader(FullAccess, "HW", &mLog);
    mReader->load(mFolder->filePath("new"), mErr);
    mLog.lines.clear();
    mBoard.texts.clear();
    mErr.clear();
  }
  void cleanup() {
    if (mReader) mReader->closeFiles(false);
  }

  void namesFiles() {
    const auto reader = makeReader(ReadOnly);
    const auto names = [&](const QString& path) {
      reader->load(path, mErr);
      return QString(reader->paramDefFileName() + ' ' + reader->paramFileName());
    };
    QCOMPARE(names("no/pair"), QString("%1.xpdef %1.xparam").arg(QDir::currentPath() + "/no/pair"));
    QCOMPARE(names("/n.o/pair.2.xpdef"), QString("/n.o/pair.2 /n.o/pair.2"));
  }

  void loads() {
    const QString reason = "the file cannot be opened: No such file or directory.\n";
    const QString noDef = "File \"" + mDef + "\" parse error: " + reason;
    const QString noVal = "File \"" + mVal + "\": " + reason;
    for (const EAccessRight access : {ReadOnly, ReadWrite, FullAccess}) {
      for (const int has : {0, 1, 2, 3}) {  // definitions: 1, values: 2
        const bool goesOn = access == FullAccess || has % 2 > 0;
        usePair();
        if (has % 2 == 0) QFile::remove(mDef);
        if (has < 2) QFile::remove(mVal);
        const auto reader = makeReader(access);
        mErr.clear();
        QCOMPARE(reader->load(mPair, mErr), access == FullAccess || has == 3);
        QCOMPARE(mErr, QString((has % 2 > 0 ? "" : noDef) + (has < 2 && goesOn ? noVal : "")));
        QCOMPARE(reader->containsDef("MotorName"), has % 2 > 0);
        QCOMPARE(reader->containsVal("MotorName", kAxis), has > 1 && goesOn);
        QVERIFY(!reader->changed());
      }
    }
  }

  void savesWhatChanged() {
    CKeptLines log(ICLogfile::kLevelSaving & ~ICLogfile::kLevelDetail);
    const QByteArray before = state(mFolder->path());
    auto reader = makeReader(ReadWrite, kHardwareId, &log);
    QVERIFY(reader->load(mPair, mErr) && reader->saveFiles());
    change(*reader, "dropped");
    QVERIFY(reader->closeFiles(false));
    QVERIFY(reader->paramFileName().isEmpty() && reader->hardwareId().isEmpty());
    QVERIFY(!reader->containsDef("MotorName") && !reader->changed());
    reader.reset();
    QCOMPARE(state(mFolder->path()), before);
    QCOMPARE(log.lines, QStringList());

    reader = makeReader(ReadWrite, kHardwareId, &log);
    change(*reader, "destroyed");
    reader.reset();
    const QString saving = "Saving changed parameter file \"" + mVal + "\".";
    QCOMPARE(log.lines, QStringList(saving));
    QCOMPARE(read(mDef), read(example("TwoAxisDrive.xpdef")));

    reader = makeReader(ReadWrite, QString(), &log);
    QVERIFY(reader->load(mVal, mErr) && reader->hardwareId() == kHardwareId);
    reader->setMetaData("nobody", "");  // is for new files only
    reader->setParamDefFileVersion(0x10002);
    reader->setParamFileVersion(0x10003);
    reader->setSubDevName(kAxis, "Axis Q");
    reader->paramDefPtr("MotorName")->setHint("changed");
    QVERIFY(reader->closeFiles(true));
    QCOMPARE(log.lines.mid(1),
             QStringList({"Saving changed parameter definition file \"" + mDef + "\".", saving}));
    QVERIFY(reader->load(mDef, mErr));
    QString text;
    QVERIFY(reader->getParam(kAxis, "MotorName", text, mErr));
    QCOMPARE(QString(text + reader->subDevName(kAxis) + reader->paramDef("MotorName").hint()),
             QString("destroyedAxis Qchanged"));
    QVERIFY(!reader->parameterFile()->author().contains("nobody"));
    QVERIFY(!reader->parameterFile()->defAuthor().contains("nobody"));
    QCOMPARE(CParameterFileHelper::fileVersion(read(mDef)), 0x10002U);
    QCOMPARE(CParameterFileHelper::fileVersion(read(mVal)), 0x10003U);
  }

  void selectsHardwareIdsAndJoinsTheGroup() {
    const auto create = ICSimpleParamReader::create;
    const auto reader = makeReader(ReadWrite, kHardwareId, nullptr, create);
    const auto member = makeReader(ReadWrite, kHardwareId, nullptr, create);
    QVERIFY(reader->load(mPair, mErr) && member->containsVal("MotorName", kAxis));
    QVERIFY(!makeReader(ReadWrite)->containsVal("MotorName", kAxis));
    QVERIFY(reader->selectHardwareId("KTO-2A-32"));
    QVERIFY(!reader->selectHardwareId("new") && reader->hardwareId() == "KTO-2A-32");
    reader->setAccessRights(FullAccess);
    QVERIFY(reader->selectHardwareId("new") && reader->hardwareId() == "new");
  }

  void createsFilesFromNothing() {
    QVERIFY(QFile::remove(mDef) && QFile::remove(mVal));
    qint64 number = 0;
    QString text;
    auto reader = makeReader(FullAccess);
    QVERIFY(reader->load(mPair, mErr) && reader->getParam(3, "p", "G/S", number, -5, mErr, 7));
    QVERIFY(reader->getParam(4, "q", "G", text, u8" \u00e4\n", mErr));
    reader->setMetaData("", "from nothing");
    reader.reset();
    reader = makeReader(ReadOnly);
    QVERIFY(reader->load(mPair, mErr) && reader->getParam(3, "p", number, mErr) && number == -5);
    QVERIFY(reader->getParam(4, "q", text, mErr) && text == u8" \u00e4\n");
    QCOMPARE(reader->parameterFile()->comment(), QString("from nothing"));
    QCOMPARE(reader->parameterFile()->defComment(), QString("from nothing"));
  }

  void failedSavesKeepTheFiles() {
    const auto reader = makeReader(FullAccess);
    const auto fails = [&](const QString& motorName, const QString& message) {
      QVERIFY(reader->setParam(kAxis, "MotorName", motorName, mErr));
      const QByteArray before = state(mFolder->path());
      mBoard.texts.clear();
      QVERIFY(!reader->saveFiles());
      QCOMPARE(mBoard.texts, QStringList("2 " + message));
      QCOMPARE(state(mFolder->path()), before);
    };
    change(*reader, "new");
    fails("\x01", "File \"" + mVal +
                      "\": <Param> \"MotorName\": the text of <Value> holds the "
                      "character \\u0001, which XML cannot hold.");
    QVERIFY(QFile::remove(mDef) && QFile::link(mVal, mDef));
    fails("one file", QString("Definitions and values are not saved because \"%1\" and \"%2\" are "
                              "the same file.")
                          .arg(mDef, mVal));
    // Values are saved without definitions.
    reader->paramDefPtr("MotorName")->setHint("changed");
    const QByteArray before = read(mVal);
    QVERIFY(QFile::remove(mDef) && QDir().mkdir(mDef) && !reader->closeFiles(true));
    QVERIFY(read(mVal) != before);
  }

  void keepsWhatWasNotLoaded() {
    const QString message =
        "1 File \"%1\" was not loaded and is replaced. The old file is kept as \"%1%2\".";
    // Both are damaged, or the values are another hardware id's.
    for (const bool isDamaged : {true, false}) {
      usePair();
      const QStringList kept = isDamaged ? QStringList({mDef, mVal}) : QStringList(mVal);
      if (isDamaged) QVERIFY(write(mDef, "d") && write(mVal, "v"));
      const QByteArray content = read(mVal);
      const auto reader = makeReader(FullAccess, isDamaged ? kHardwareId : "other");
      int number = 0;
      QVERIFY(reader->load(mPair, mErr) && reader->getParam(1, "new", "", number, 5, mErr));
      mBoard.texts.clear();
      QVERIFY(reader->saveFiles() && reader->saveFiles());  // the second replaces its own
      QStringList expected;
      for (const QString& name : kept) expected += message.arg(name, ".bak");
      QCOMPARE(mBoard.texts, expected);
      QCOMPARE(read(mVal + ".bak"), content);
      for (const QString& name : kept) QVERIFY(QFile::remove(name + ".bak"));
      QVERIFY(reader->load(mPair, mErr) && reader->containsVal("new", 1));
    }
  }

  void replacesNothingThatCannotBeKept() {
    const QString name = mFolder->filePath(QString(245, 'n') + ".xparam");  // no room for ".bak"
    QVERIFY(write(name, "damaged"));
    const auto reader = makeReader(FullAccess);
    int number = 0;
    QVERIFY(reader->load(mDef, name, mErr));
    QVERIFY(reader->getParam(1, "FanMode", "", number, 1, mErr) && !reader->saveFiles());
    const QString message =
        "File \"%1\" was not loaded and is not replaced: the file cannot be "
        "kept as \"%1.bak\": File name too long.";
    QCOMPARE(reader->parameterFile()->errorMsg(), message.arg(name));
    QCOMPARE(mBoard.texts.last(), "2 " + message.arg(name));
    QCOMPARE(read(name), QByteArray("damaged"));
    reader->closeFiles(false);
  }

  void writesNoFileWithoutValues() {
    CKeptLines log(ICLogfile::kLevelSaving);
    QVERIFY(write(mVal, "damaged"));
    const QByteArray before = state(mFolder->path());
    const auto reader = makeReader(FullAccess, kHardwareId, &log);
    QVERIFY(reader->load(mPair, mErr));
    reader->setSubDevType(1, SUB_DEV_TYPE_DRIVE);
    mBoard.texts.clear();
    QVERIFY(reader->saveFiles());
    QCOMPARE(log.lines.last(), "Parameter file \"" + mVal +
                                   "\" is not written because there are no values. Types and "
                                   "names of sub-devices are not saved.");
    QCOMPARE(mBoard.texts, QStringList());
    QCOMPARE(state(mFolder->path()), before);
  }

  void getsNumbers_data() {
    NGoldenFiles::addTable("reader/numbers.txt", {"access", "before", "told"});
  }
  void getsNumbers() {
    getMaxima<quint8, quint16, quint32, quint64, qint8, qint16, qint32, qint64>();
    getNumber(-1234567.25);
  }

  void getsTextsAndValues() {
    QString text;
    CParamVal val;
    QVERIFY(mReader->getParam(1, "p", "A\\B", text, u8" \u00fc ", mErr, 7));
    QCOMPARE(describe(mReader->paramDef("p")), QString(u8"7|str| \u00fc ||"));
    QVERIFY(mReader->getParam(1, "v", "", PARAM_TYPE_U8, val, 300, mErr));
    QCOMPARE(describe(mReader->paramDef("v")), QString("0|u8|300||"));
    QVERIFY(mReader->getParam(1, "n", "", text, QString(), mErr) && mReader->containsVal("n", 1));
    // The default may be the very object that takes the value.
    QVERIFY(mReader->getParam(1, "p", "", text, text, mErr) && text == u8" \u00fc ");
    QVERIFY(mReader->getParam(1, "v", text, mErr) && text == "300");
    // A failing getter of texts leaves the text alone, one of values clears it.
    QVERIFY(!mReader->getParam(2, "p", text, mErr) && text == "300");
    QVERIFY(!mReader->getParam(2, "p", val, mErr) && val.isNull());
  }

  void refusesWhatCannotBe() {
    CParamDefItem* item = mReader->addDef("p", PARAM_TYPE_STR, 7);
    file()->addParameter(file()->rootGroup(1), "p");
    int number = 3;
    QString text;
    QVERIFY(!mReader->getParam(1, "", "A", number, 5, mErr, 8, &item) && !item && number == 3);
    QVERIFY(!mReader->getParam(1, "q", "A", text, "default", mErr, 7) && text == "default");
    QVERIFY(!mReader->paramDefPtr("q", mErr));
    mReader->setAccessRights(ReadWrite);
    QVERIFY(mReader->setParam(1, "p", 5, mErr) && !mReader->setParam(1, "q", 5, mErr));
    QVERIFY(!mReader->deleteParam(1, "p", "", mErr));
    mReader->setAccessRights(ReadOnly);
    QVERIFY(!mReader->setParam(1, "p", 6, mErr) && !mReader->deleteGroup(1, "A", mErr));
    mReader->setSubDevType(1, SUB_DEV_TYPE_DEVICE);
    mReader->setSubDevName(1, "x");
    QVERIFY(!mReader->selectHardwareId("none"));
    QCOMPARE(file()->subDevName(1) + QString::number(file()->subDevType(1)), QString("0"));
    QCOMPARE(file()->paramValue("p", 1), CParamVal(5));
    QCOMPARE(mErr.split('\n'), NGoldenFiles::lines(data("reader/refusals.txt")));
  }

  void deletes_data() {
    NGoldenFiles::addTable("reader/deletions.txt", {"name", "group", "left", "message"});
  }
  void deletes() {
    auto [name, group] = textCells("name", "group");
    for (QString* cell : {&name, &group}) cell->remove('-');
    QString text;
    mReader->getParam(1, "p", "A/B", text, "text", mErr);
    mReader->getParam(1, "q", "A", text, "text", mErr);
    QVERIFY(name.isEmpty() ? mReader->deleteGroup(1, group, mErr)
                           : mReader->deleteParam(1, name, group, mErr));
    QTEST(mErr.trimmed(), "message");
    QTEST(file()->paramNames(1).join("").leftJustified(1, '-'), "left");
  }

 private:
  ICParameterFile* file() { return mReader->parameterFile(); }
  /// Compares with what the table says, in which words stand for what depends on the type.
  template <class T>
  void getNumber(T def) {
    constexpr bool kIsInteger = std::numeric_limits<T>::is_integer;
    const QString type = CParamDefItem::typeToString(CParamDefItem::type(def));
    const QString wrong =
        "Error while reading parameter \"p\" on subdevice 1 : Value \"%2 abc\" is not an " + type +
        " value.";
    const QString replaced = wrong + " Default Value " + QString::number(def) + " is taken.";
    const QString log = " CBaseParamReader::";
    const QString plainLog = log + "getUnsignedParam() " + wrong;
    const QString text = CParamVal(def);
    const QString min = CParamVal(std::numeric_limits<T>::min());
    QFETCH(QString, told);
    told.replace("$WRONG", "0 3 " + wrong + (kIsInteger ? plainLog : ""));
    told.replace("$REPLACED",
                 replaced + log + (kIsInteger ? "getSignedParam() " : "getParam(f64) ") + replaced);
    told.replace("$TYPE", type).replace("$DEF", text).replace("$NUMBER", QString::number(def));
    told.replace("$MIN", kIsInteger ? min : "").replace("$MAX", kIsInteger ? text : "");

    const auto [access, before] = textCells("access", "before");
    init();
    if (before != "nothing") mReader->addDef("p", PARAM_TYPE_STR, 7)->setMinVal("1");
    if (told.startsWith("1") || told.contains("%2"))
      file()->addParameter(file()->rootGroup(1), "p", before);
    file()->clearChanged();
    mReader->setAccessRights(EAccessRight(access.toInt()));
    T number = 3;
    CParamDefItem* item = nullptr;
    QStringList all;
    const auto tell = [&](bool isRead) {
      const QStringList messages{QString::number(int(isRead)), QString::number(number),
                                 mErr.trimmed(), mLog.lines.join("")};
      all += messages.join(' ').trimmed();
      mErr.clear();
      mLog.lines.clear();
    };
    tell(mReader->getParam(1, "p", number, mErr));
    QVERIFY(!mReader->changed());
    for (int i = 0; i < 2; ++i) {
      file()->clearChanged();
      tell(mReader->getParam(1, "p", "A/B", number, def, mErr, 7, &item));
    }
    QVERIFY(!mReader->changed());  // the second time nothing is left to do
    const QString value = file()->paramValue("p", 1);
    all += value.isEmpty() ? "-" : value;
    all += item != nullptr ? describe(*item) : "-";
    QCOMPARE(all.join("; "), told);
    QCOMPARE(item, mReader->paramDefPtr("p"));
    QVERIFY(!told.contains('|' + type + '|') || file()->existingSubGroup("A/B", 1)->childPtr("p"));
  }

  template <class... T>
  void getMaxima() {
    (getNumber(std::numeric_limits<T>::max()), ...);
  }

  /// Makes the pair of files a fresh copy of the example.
  void usePair() {
    mPair = mFolder->filePath("pair");
    mDef = mPair + ".xpdef";
    mVal = mPair + ".xparam";
    QVERIFY(write(mDef, read(example("TwoAxisDrive.xpdef"))));
    QVERIFY(write(mVal, read(example("TwoAxisDrive.xparam"))));
  }
  void change(ICSimpleParamReader& reader, const CParamVal& motorName) {
    QVERIFY(reader.load(mPair, mErr) && reader.setParam(kAxis, "MotorName", motorName, mErr));
  }

  SKeptMessages mBoard;
  CKeptLines mLog{ICLogfile::kLevelReadErrors};
  std::unique_ptr<ICSimpleParamReader> mReader;
  std::unique_ptr<QTemporaryDir> mFolder;
  QString mPair;
  QString mDef;
  QString mVal;
  QString mErr;
};

QTEST_GUILESS_MAIN(tst_CSimpleParamReader)
#include "tst_CSimpleParamReader.moc"
