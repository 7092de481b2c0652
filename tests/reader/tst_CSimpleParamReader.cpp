#include "CParameterFileHelper.h"
#include "GoldenFiles.h"
#include "ICParameterFile.h"
#include "ICSimpleParamReader.h"
#include "KeptMessages.h"
#include "TestRows.h"

#include <QTemporaryDir>

#include <sys/stat.h>

#include <limits>
#include <variant>

using namespace NParamDef;
using namespace NTestFiles;

namespace {

constexpr quint8 kAxis = 2;
const QString kHardwareId = "KTO-2A-16";

/// Of all files: name, inode, time of the last change and bytes. The same when none was touched.
QByteArray state(const QString& folder) {
  QByteArray result;
  for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
    const QString path = folder + '/' + name;
    struct stat info = {};
    ::stat(qPrintable(path), &info);
    for (const auto number :
         {qint64(info.st_ino), qint64(info.st_ctim.tv_sec), qint64(info.st_ctim.tv_nsec)})
      result += QByteArray::number(number) + ' ';
    result += name.toUtf8() + read(path);
  }
  return result;
}

std::unique_ptr<ICSimpleParamReader> makeReader(EAccessRight access,
                                                const QString& hardwareId = kHardwareId,
                                                ICLogfile* logfile = nullptr) {
  return std::unique_ptr<ICSimpleParamReader>(ICSimpleParamReader::createSingle(
      NktoGlobal::FILE_TYPE_PARAMETERS, hardwareId, access, logfile, 0x10000, 0x10000));
}

template <typename T>
constexpr T kMax = std::numeric_limits<T>::max();

/// A number type, with the range that a getter gives a definition, and a default.
struct SType {
  const char* name;
  const char* min;
  const char* max;
  const char* defInMessage;
  std::variant<quint8, quint16, quint32, quint64, qint8, qint16, qint32, qint64, double> def;
};
const QVector<SType> kTypes = {
    {"u8", "0x0", "0xff", "255", kMax<quint8>},
    {"u16", "0x0", "0xffff", "65535", kMax<quint16>},
    {"u32", "0x0", "0xffffffff", "4294967295", kMax<quint32>},
    {"u64", "0x0", "0xffffffffffffffff", "18446744073709551615", kMax<quint64>},
    {"i8", "-128", "127", "127", kMax<qint8>},
    {"i16", "-32768", "32767", "32767", kMax<qint16>},
    {"i32", "-2147483648", "2147483647", "2147483647", kMax<qint32>},
    {"i64", "-9223372036854775808", "9223372036854775807", "9223372036854775807", kMax<qint64>},
    {"f64", "", "", "-1.23457e+06", -1234567.25}};

QString describe(const CParamDefItem& d) {
  return QStringList({QString::number(d.id()), d.typeStr(), d.defVal(), d.minVal(), d.maxVal()})
      .join(' ');
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
    const QStringList bases[] = {{"/no/pair", "/no/pair"},
                                 {"/no/pair.xpdef", "/no/pair"},
                                 {"/n.o/pair.xparam", "/n.o/pair"},
                                 {"no/pair", QDir::currentPath() + "/no/pair"}};
    const auto reader = makeReader(ReadOnly);
    for (const QStringList& each : bases) {
      QVERIFY(!reader->load(each.first(), mErr));
      QCOMPARE(reader->paramDefFileName(), QString(each.last() + ".xpdef"));
      QCOMPARE(reader->paramFileName(), QString(each.last() + ".xparam"));
    }
    QVERIFY(!reader->load("/no/pair.2.xpdef", mErr));
    QCOMPARE(reader->paramFileName(), QString("/no/pair.2"));
  }

  void loads() {
    const QString reason = "the file cannot be opened: No such file or directory.\n";
    const QString noDef = "File \"" + mDef + "\" parse error: " + reason;
    const QString noVal = "File \"" + mVal + "\": " + reason;
    for (int i = 0; i < 12; ++i) {
      const auto access = EAccessRight(i / 4);
      const bool full = access == FullAccess;
      const bool hasDef = i % 2 > 0;
      const bool hasVal = i % 4 > 1;
      usePair();
      if (!hasDef) QFile::remove(mDef);
      if (!hasVal) QFile::remove(mVal);
      const auto reader = makeReader(access);
      mErr.clear();
      QCOMPARE(reader->load(mPair, mErr), full || (hasDef && hasVal));
      QCOMPARE(mErr, QString((hasDef ? "" : noDef) + (!hasVal && (full || hasDef) ? noVal : "")));
      QCOMPARE(reader->containsDef("MotorName"), hasDef);
      QCOMPARE(reader->containsVal("MotorName", kAxis), hasVal && (full || hasDef));
      QVERIFY(!reader->changed());
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

  void savesValuesWithoutDefinitions() {
    const auto reader = makeReader(FullAccess);
    change(*reader, "new");
    reader->paramDefPtr("MotorName")->setHint("changed");
    QVERIFY(QFile::remove(mDef) && QDir().mkdir(mDef));
    const QByteArray before = read(mVal);
    QVERIFY(!reader->saveFiles());
    QVERIFY(read(mVal) != before);
  }

  void selectsHardwareIdsAndJoinsTheGroup() {
    const auto make = [](auto factory) {
      return std::unique_ptr<ICSimpleParamReader>(factory(
          NktoGlobal::FILE_TYPE_PARAMETERS, kHardwareId, ReadWrite, nullptr, 0x10000, 0x10000));
    };
    const auto reader = make(ICSimpleParamReader::create);
    QVERIFY(reader->load(mPair, mErr));
    QVERIFY(make(ICSimpleParamReader::create)->containsVal("MotorName", kAxis));
    QVERIFY(!make(ICSimpleParamReader::createSingle)->containsVal("MotorName", kAxis));
    QVERIFY(reader->selectHardwareId("KTO-2A-32"));
    QVERIFY(!reader->selectHardwareId("new") && reader->hardwareId() == "KTO-2A-32");
    reader->setAccessRights(FullAccess);
    QVERIFY(reader->selectHardwareId("new") && reader->hardwareId() == "new");
  }

  void readOnlyChangesNothing() {
    const QByteArray before = state(mFolder->path());
    const auto reader = makeReader(ReadOnly);
    int number = 0;
    QString text;
    QVERIFY(reader->load(mPair, mErr));
    reader->setParam(kAxis, "MotorName", "x", mErr);
    reader->deleteGroup(kAxis, "Motor/Rating", mErr);
    reader->deleteParam(kAxis, "MotorName", "Motor", mErr);
    reader->setSubDevType(kAxis, SUB_DEV_TYPE_DEVICE);
    reader->setSubDevName(kAxis, "x");
    reader->getParam(kAxis, "none", "Motor", number, 5, mErr, 50);
    reader->getParam(kAxis, "MotorName", "Motor", number, 5, mErr);
    reader->getParam(9, "none", "new", text, "x", mErr);
    QVERIFY(!reader->selectHardwareId("none") && reader->selectHardwareId("KTO-2A-32"));
    QVERIFY(!reader->changed() && reader->saveFiles() && reader->closeFiles(true));
    QCOMPARE(state(mFolder->path()), before);
  }

  void createsFilesFromNothing() {
    QVERIFY(QFile::remove(mDef) && QFile::remove(mVal));
    const auto gets = [&](ICSimpleParamReader& reader, qint64 def, const QString& textDef) {
      qint64 number = 0;
      QString text;
      return reader.getParam(3, "p", "G/S", number, def, mErr, 7) && number == -5 &&
             reader.getParam(4, "q", "G", text, textDef, mErr) && text == u8" \u00e4\n";
    };
    auto reader = makeReader(FullAccess);
    QVERIFY(reader->load(mPair, mErr) && gets(*reader, -5, u8" \u00e4\n"));
    reader->setMetaData("", "from nothing");
    reader.reset();
    reader = makeReader(ReadOnly);
    QVERIFY(reader->load(mPair, mErr) && gets(*reader, 0, ""));
    QCOMPARE(reader->parameterFile()->comment(), QString("from nothing"));
    QCOMPARE(reader->parameterFile()->defComment(), QString("from nothing"));
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files).size(), 2);
  }

  void failedSavesKeepTheFiles_data() {
    addColumns<QString, bool, QString>("motorName", "isOneFile", "message");
    addRow("bad text", "\x01", false,
           "File \"%2\": <Param> \"MotorName\": the text of <Value> holds the character \\u0001, "
           "which XML cannot hold.");
    addRow("one file", "new", true,
           "Definitions and values are not saved because \"%1\" and \"%2\" are the same file.");
  }
  void failedSavesKeepTheFiles() {
    QFETCH(QString, motorName);
    QFETCH(bool, isOneFile);
    QFETCH(QString, message);
    const auto reader = makeReader(ReadWrite);
    change(*reader, motorName);
    if (isOneFile) QVERIFY(QFile::remove(mDef) && QFile::link(mVal, mDef));
    const QByteArray before = state(mFolder->path());
    QVERIFY(!reader->saveFiles());
    QVERIFY(!reader->closeFiles(true));
    QCOMPARE(state(mFolder->path()), before);
    message = "2 " + message.replace("%1", mDef).replace("%2", mVal);
    QCOMPARE(mBoard.texts, QStringList({message, message}));
  }

  void keepsWhatWasNotLoaded_data() {
    addColumns<bool, bool>("def", "val");
    addRow("definitions", true, false);
    addRow("values", false, true);
    addRow("both", true, true);
    addRow("other hardware id", false, false);
  }
  void keepsWhatWasNotLoaded() {
    QFETCH(bool, def);
    QFETCH(bool, val);
    const QString hardwareId = def || val ? kHardwareId : "other";
    const QStringList kept =
        def && val ? QStringList({mDef, mVal}) : QStringList(def ? mDef : mVal);
    for (const char* backup : {".bak", ".bak.1", ".bak.2"}) {
      usePair();
      if (def) QVERIFY(write(mDef, backup));
      if (val) QVERIFY(write(mVal, backup));
      const QByteArray content = read(kept.last());
      const auto reader = makeReader(FullAccess, hardwareId);
      int number = 0;
      QVERIFY(reader->load(mPair, mErr) && reader->getParam(1, "new", "", number, 5, mErr));
      mBoard.texts.clear();
      QVERIFY(reader->saveFiles() && reader->saveFiles());  // the second replaces its own
      QCOMPARE(mBoard.texts.size(), kept.size());
      QCOMPARE(mBoard.texts.last(), QString("1 File \"%1\" was not loaded and is replaced. The old "
                                            "file is kept as \"%1%2\".")
                                        .arg(kept.last(), backup));
      QCOMPARE(read(kept.last() + backup), content);
      const auto again = makeReader(ReadOnly, hardwareId);
      QVERIFY(again->load(mPair, mErr) && again->containsVal("new", 1));
    }
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files).size(), 2 + 3 * kept.size());
  }

  void replacesNothingThatCannotBeKept() {
    const QString name = mFolder->filePath(QString(245, 'n') + ".xparam");  // no room for ".bak"
    QVERIFY(write(name, "damaged"));
    const auto reader = makeReader(FullAccess);
    int number = 0;
    QVERIFY(reader->load(mDef, name, mErr));
    QVERIFY(reader->getParam(1, "FanMode", "", number, 1, mErr));
    mBoard.texts.clear();
    QVERIFY(!reader->saveFiles());
    QCOMPARE(mBoard.texts, QStringList(QString("2 File \"%1\" was not loaded and is not replaced: "
                                               "the file cannot be kept as \"%1.bak\": File name "
                                               "too long.")
                                           .arg(name)));
    QCOMPARE("2 " + reader->parameterFile()->errorMsg(), mBoard.texts.first());
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
    addColumns<int, int, QString>("type", "access", "before");  // what is there
    for (int type = 0; type < kTypes.size(); ++type) {
      for (const int access : {0, 1, 2, 3}) {  // 3: neither read only nor full access
        for (const char* before : {"nothing", "definition", "0017", "%2 abc"}) {
          addRow(qPrintable(QString("%1, %2, ").arg(kTypes.at(type).name).arg(access) + before),
                 type, access, before);
        }
      }
    }
  }
  void getsNumbers() {
    QFETCH(int, type);
    QFETCH(int, access);
    QFETCH(QString, before);
    const QString typeName = kTypes.at(type).name;
    const bool isF64 = typeName == "f64";
    const bool isNumber = before == "0017";
    const bool hasValue = isNumber || before == "%2 abc";
    const bool isWrong = hasValue && !isNumber;
    const bool full = access == FullAccess;
    const QString old = hasValue ? before : QString();
    if (before != "nothing") mReader->addDef("p", PARAM_TYPE_STR, 7)->setMinVal("1");
    if (hasValue) file()->addParameter(file()->rootGroup(1), "p", before);
    file()->clearChanged();
    mReader->setAccessRights(EAccessRight(access));

    // Without a default: reads what is there.
    const QString wrong =
        "Error while reading parameter \"p\" on subdevice 1 : Value \"%2 abc\" "
        "is not an " +
        typeName + " value.\n";
    const QString none = "Error : Parameter \"p\" does not exist on subdevice 1.\n";
    QCOMPARE(get(type, false), isNumber);
    QCOMPARE(mErr, isNumber ? QString() : isWrong ? wrong : none);
    QCOMPARE(mNumber, QString(isNumber ? "17" : "3"));
    const QString logged = "CBaseParamReader::getUnsignedParam() " + wrong.chopped(1);
    QCOMPARE(mLog.lines, isWrong && !isF64 ? QStringList(logged) : QStringList());
    QVERIFY(!mReader->changed());

    // With a default: replaces what is no number, and with full access creates what is missing.
    const QString replaced =
        wrong.chopped(1) + " Default Value " + kTypes.at(type).defInMessage + " is taken.\n";
    const QString missing = before == "nothing"
                                ? "There is no parameter defined with name p.\n"
                                : "Error : Parameter \"p\" does nor exist on subdevice 1.\n";
    const bool there = hasValue || full;
    const bool written = !isNumber && there && access != ReadOnly;
    const QString def = isF64 ? "-1234567.25" : kTypes.at(type).max;
    mErr.clear();
    mLog.lines.clear();
    QCOMPARE(get(type, true), isNumber || written);
    QCOMPARE(mErr, !there ? missing : isWrong ? replaced : QString());
    QCOMPARE(mNumber, !there ? "3" : isNumber ? "17" : kTypes.at(type).defInMessage);
    QCOMPARE(file()->paramValue("p", 1).asStr(), written ? def : old);
    const QString operation = isF64 ? "getParam(f64) " : "getSignedParam() ";
    const QString line = "CBaseParamReader::" + operation + replaced.chopped(1);
    QCOMPARE(mLog.lines, isWrong ? QStringList(line) : QStringList());
    QCOMPARE(mDefinition, mReader->paramDefPtr("p"));
    if (mDefinition && before == "nothing") {
      QCOMPARE(
          describe(*mDefinition),
          QStringList({"7", typeName, def, kTypes.at(type).min, kTypes.at(type).max}).join(' '));
      QVERIFY(file()->existingSubGroup("A/B", 1)->childPtr("p"));
    } else if (mDefinition) {
      QCOMPARE(describe(*mDefinition), QString("7 str  1 ") + (full ? kTypes.at(type).max : ""));
    }
    // A second time nothing is left to do.
    file()->clearChanged();
    mErr.clear();
    QCOMPARE(get(type, true), isNumber || written);
    QCOMPARE(mErr.isEmpty(), isNumber || written);
    QVERIFY(!mReader->changed());
  }

  void getsTextsAndValues() {
    QString text;
    CParamVal val;
    QVERIFY(mReader->getParam(1, "p", "A\\B", text, u8" \u00fc ", mErr, 7, &mDefinition));
    QCOMPARE(describe(*mDefinition), QString(u8"7 str  \u00fc   "));
    QVERIFY(mReader->getParam(1, "v", "", PARAM_TYPE_U8, val, 300, mErr));
    QCOMPARE(describe(mReader->paramDef("v")), QString("0 u8 300  "));
    QVERIFY(mReader->getParam(1, "n", "", text, QString(), mErr));
    QVERIFY(mReader->containsVal("n", 1) && mReader->getParam(1, "n", text, mErr));
    // The default may be the very object that takes the value.
    QVERIFY(mReader->getParam(1, "p", "", text, text, mErr));
    QVERIFY(mReader->getParam(1, "v", "", PARAM_TYPE_U8, val, val, mErr));
    QCOMPARE(QString(text + val.asStr()), QString(u8" \u00fc 300"));
    QVERIFY(mReader->getParam(1, "p", val, mErr) && mReader->getParam(1, "v", text, mErr));
    QCOMPARE(QString(val.asStr() + text), QString(u8" \u00fc 300"));
    QVERIFY(mReader->containsVal("p", 1) && !mReader->containsVal("p", 2));

    // A failing getter with a default gives it, one without leaves the text alone.
    mReader->setAccessRights(ReadWrite);
    QVERIFY(!mReader->getParam(2, "p", "", text, "default", mErr));
    QVERIFY(!mReader->getParam(2, "p", text, mErr));
    QVERIFY(!mReader->getParam(2, "p", "", PARAM_TYPE_U8, val, 5, mErr));
    QCOMPARE(QString(val.asStr() + text), QString("5default"));
    QVERIFY(!mReader->getParam(2, "p", val, mErr) && val.isNull());
    QCOMPARE(mErr, QString("Error : Parameter \"p\" does nor exist on subdevice 2.\n"
                           "Error : Parameter \"p\" does not exist on subdevice 2.\n")
                       .repeated(2));
  }

  void definitionsThatCannotBe() {
    mDefinition = mReader->addDef("p", PARAM_TYPE_STR, 7);
    int number = 3;
    double real = 3;
    QString text;
    QVERIFY(!mReader->getParam(1, "", "A", number, 5, mErr, 8, &mDefinition) && !mDefinition);
    QVERIFY(!mReader->getParam(1, "q", "A", real, 5, mErr, 7));
    QVERIFY(!mReader->getParam(1, "q", "A", text, "default", mErr, 7));
    QVERIFY(number == 3 && real == 3 && text == "default" && !mReader->containsDef("q"));
    QVERIFY(!mReader->paramDefPtr("q", mErr));
    const QString taken = "Parameter \"q\" cannot have the id 7, which belongs to parameter \"p\".";
    QCOMPARE(mErr, QStringList({"A parameter definition needs a name.", taken, taken,
                                "There is no parameter defined with name q.", ""})
                       .join('\n'));
  }

  void setsExistingValues() {
    mReader->addDef("p", PARAM_TYPE_STR, 7);
    file()->addParameter(file()->rootGroup(1), "p");
    QVERIFY(!mReader->setParam(1, "q", 5, mErr));
    for (const EAccessRight access : {ReadWrite, ReadOnly}) {
      mReader->setAccessRights(access);
      QCOMPARE(mReader->setParam(1, "p", int(access), mErr), access == ReadWrite);
    }
    QCOMPARE(file()->paramValue("p", 1), CParamVal(int(ReadWrite)));
    QCOMPARE(mErr, QString("setParamValue() failed because there is no parameter value for sub "
                           "device 1 and name \"q\"\nError : Cannot change the value of parameter "
                           "\"p\" on sub device 1 because the file is write protected !\n"));
  }

  void deletes_data() {
    NGoldenFiles::addTable("reader/deletions.txt", {"name", "group", "left", "message"});
  }
  void deletes() {
    QFETCH(QString, name);
    QFETCH(QString, group);
    QFETCH(QString, left);
    QFETCH(QString, message);
    for (QString* cell : {&name, &group, &left}) cell->remove('-');
    if (!message.isEmpty()) message += '\n';
    QString text;
    mReader->getParam(1, "p", "A/B", text, "text", mErr);
    mReader->getParam(1, "q", "A", text, "text", mErr);
    const QString what = name.isEmpty() ? "Group \"" : "parameter \"";
    const QString path = name.isEmpty() ? group : QString(group + '/' + name);
    const QString refused = "Error : Cannot delete " + what + path +
                            "\" on sub device 1 because the file is write protected !\n";
    for (const EAccessRight access : {ReadOnly, ReadWrite, FullAccess}) {
      const bool full = access == FullAccess;
      mErr.clear();
      mReader->setAccessRights(access);
      QCOMPARE(name.isEmpty() ? mReader->deleteGroup(1, group, mErr)
                              : mReader->deleteParam(1, name, group, mErr),
               full);
      QCOMPARE(mErr, full ? message : refused);
      QCOMPARE(file()->paramNames(1).join(""), full ? left : "pq");
    }
    QVERIFY(mReader->containsDef("p"));
  }

 private:
  ICParameterFile* file() { return mReader->parameterFile(); }
  /// Reads p of sub-device 1 with the getter of a type; mNumber becomes what the variable is then.
  bool get(int type, bool withDefault) {
    const auto get = [&](auto def) {
      decltype(def) number = 3;
      const bool read = withDefault
                            ? mReader->getParam(1, "p", "A/B", number, def, mErr, 7, &mDefinition)
                            : mReader->getParam(1, "p", number, mErr);
      mNumber = QString::number(number);
      return read;
    };
    return std::visit(get, kTypes.at(type).def);
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
  CParamDefItem* mDefinition = nullptr;
  QString mNumber;
  std::unique_ptr<QTemporaryDir> mFolder;
  QString mPair;
  QString mDef;
  QString mVal;
  QString mErr;
};

QTEST_GUILESS_MAIN(tst_CSimpleParamReader)
#include "tst_CSimpleParamReader.moc"
