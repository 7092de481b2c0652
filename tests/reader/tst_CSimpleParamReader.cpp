#include "CParameterFileHelper.h"
#include "ReaderTest.h"
#include "TestFiles.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/mount.h>
#include <sys/stat.h>

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
    const QString seen = QString("%1 %2 %3.%4 ")
                             .arg(name)
                             .arg(info.st_ino)
                             .arg(info.st_ctim.tv_sec)
                             .arg(info.st_ctim.tv_nsec);
    result += seen.toUtf8() + read(path);
  }
  return result;
}

/// A variable of each type that has a getter.
using CAnyValue =
    std::variant<quint8, quint16, quint32, quint64, qint8, qint16, qint32, qint64, double, QString>;
const QVector<CAnyValue> kKinds = {quint8(0), quint16(0), 0U,  0ULL, qint8(0),
                                   qint16(0), 0,          0LL, 0.0,  QString()};

template <typename T>
T valueOf(quint64 bits) {
  if constexpr (std::is_same_v<T, QString>)
    return QString(u8" \u00e4 %1\n").arg(bits);
  else if constexpr (std::is_same_v<T, double>)
    return double(bits >> 24U) / 16;  // 15 digits hold it
  else
    return static_cast<T>(bits);
}

}  // namespace

class tst_CSimpleParamReader : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    mFolder = std::make_unique<QTemporaryDir>();
    usePair(mFolder->path());
    mBoard.texts.clear();
    mErr.clear();
  }

  void namesFiles() {
    const QString here = QDir::currentPath();
    const QMap<QString, QString> bases = {{"/no/pair", "/no/pair"},
                                          {"/no/pair.xpdef", "/no/pair"},
                                          {"/n.o/pair.xparam", "/n.o/pair"},
                                          {"no/pair", here + "/no/pair"},
                                          {"/no/pair.2.xpdef", "/no/pair.2"}};
    for (auto it = bases.begin(); it != bases.end(); ++it) {
      const bool dotted = it.value().endsWith(".2");
      const auto reader = makeReader(ReadOnly);
      QVERIFY(!reader->load(it.key(), mErr));
      QCOMPARE(reader->paramDefFileName(), QString(it.value() + (dotted ? "" : ".xpdef")));
      QCOMPARE(reader->paramFileName(), QString(it.value() + (dotted ? "" : ".xparam")));
    }
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
      usePair(mFolder->path());
      if (!hasDef) QFile::remove(mDef);
      if (!hasVal) QFile::remove(mVal);
      const auto reader = makeReader(access, kHardwareId);
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
    const auto reader = makeReader(FullAccess, kHardwareId);
    change(*reader, "new");
    reader->paramDefPtr("MotorName")->setHint("changed");
    QVERIFY(QFile::remove(mDef) && QDir().mkdir(mDef));
    const QByteArray before = read(mVal);
    QVERIFY(!reader->saveFiles());
    QVERIFY(read(mVal) != before);
  }

  void selectsHardwareIds() {
    const auto reader = makeReader(ReadWrite, kHardwareId);
    QVERIFY(reader->load(mPair, mErr) && reader->selectHardwareId("KTO-2A-32"));
    QVERIFY(!reader->selectHardwareId("new") && reader->hardwareId() == "KTO-2A-32");
    reader->setAccessRights(FullAccess);
    QVERIFY(reader->selectHardwareId("new") && reader->hardwareId() == "new");
  }

  void createJoinsTheGroup() {
    const auto make = [](auto factory) {
      return std::unique_ptr<ICSimpleParamReader>(factory(
          NktoGlobal::FILE_TYPE_PARAMETERS, kHardwareId, ReadOnly, nullptr, 0x10000, 0x10000));
    };
    const auto loaded = make(ICSimpleParamReader::create);
    QVERIFY(loaded->load(mPair, mErr));
    QVERIFY(make(ICSimpleParamReader::create)->containsVal("MotorName", kAxis));
    QVERIFY(!make(ICSimpleParamReader::createSingle)->containsVal("MotorName", kAxis));
  }

  void readOnlyChangesNothing_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 6; ++seed) QTest::addRow("%u", seed) << seed;
  }
  void readOnlyChangesNothing() {
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const QByteArray before = state(mFolder->path());
    auto reader = makeReader(ReadOnly, kHardwareId);
    const QStringList names = {"MotorName", "VelocityLimit", "CommissioningNote", "none", ""};
    const QStringList groups = {"Motor/Rating", "Motion/Limits", "none", ""};
    reader->load(mPair, mErr);
    for (int i = 0; i < 300; ++i) {
      const QString& name = names.at(random.bounded(names.size()));
      const QString& group = groups.at(random.bounded(groups.size()));
      const auto device = quint8(random.bounded(5));
      const QVector<std::function<void()>> operations = {
          [&] { reader->setParam(device, name, 5, mErr); },
          [&] { reader->deleteGroup(device, group, mErr); },
          [&] { reader->deleteParam(device, name, group, mErr); },
          [&] { reader->selectHardwareId(random.bounded(2) == 0 ? "KTO-2A-32" : "none"); },
          [&] { reader->setSubDevType(device, SUB_DEV_TYPE_DEVICE); },
          [&] { reader->setSubDevName(device, name); },
          [&] { random.bounded(9) == 0 && reader->closeFiles(true) && reader->load(mPair, mErr); }};
      const auto get = [&](auto value) {
        reader->getParam(device, name, group, value, valueOf<decltype(value)>(5), mErr, 50);
        reader->getParam(device, name, value, mErr);
      };
      operations.at(random.bounded(operations.size()))();
      std::visit(get, kKinds.at(random.bounded(kKinds.size())));
    }
    QVERIFY(!reader->changed());
    reader.reset();
    QCOMPARE(state(mFolder->path()), before);
    QCOMPARE(mBoard.texts, QStringList());
  }

  void createsFilesFromNothing() {
    constexpr int kCount = 1000;
    QVector<quint64> bits(kCount);
    QRandomGenerator(7).fillRange(bits.data(), kCount);
    const auto getsAll = [&](ICSimpleParamReader& reader, bool creating) {
      int good = 0;
      for (int i = 0; i < kCount; ++i) {
        const auto get = [&](auto value) {
          const auto expected = valueOf<decltype(value)>(bits.at(i));
          const QString group = QString("G%1/S%2").arg(i % 7).arg(i % 3);
          const auto def = creating ? expected : decltype(value)();
          good += reader.getParam(quint8(i % 4), QString("P%1").arg(i), group, value, def, mErr,
                                  quint32(i + 1)) &&
                  value == expected;
        };
        std::visit(get, kKinds.at(i % kKinds.size()));
      }
      return good == kCount && mErr.isEmpty();
    };
    QVERIFY(QFile::remove(mDef) && QFile::remove(mVal));
    auto reader = makeReader(FullAccess);
    QVERIFY(reader->load(mPair, mErr));
    mErr.clear();
    QVERIFY(getsAll(*reader, true));
    reader->setMetaData("", "from nothing");
    reader.reset();
    reader = makeReader(ReadOnly);
    QVERIFY2(reader->load(mPair, mErr) && getsAll(*reader, false), qPrintable(mErr));
    QCOMPARE(reader->parameterFile()->comment(), QString("from nothing"));
    QCOMPARE(reader->parameterFile()->defComment(), QString("from nothing"));
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files).size(), 2);
  }

  void failedSavesKeepTheFiles_data() {
    QTest::addColumn<QString>("reason");
    QTest::newRow("bad text") << "<Param> \"MotorName\": the text of <Value> holds the character "
                                 "\\u0001, which XML cannot hold.";
    QTest::newRow("folder gone") << "the file cannot be written: No such file or directory.";
    QTest::newRow("no file") << "this is not a regular file and is not replaced.";
    QTest::newRow("one file")
        << "Definitions and values are not saved because \"%1\" and \"%2\" are "
           "the same file.";
    QTest::newRow("disk full") << "the file cannot be written, the old one is kept: No space left "
                                  "on device.";
  }
  void failedSavesKeepTheFiles() {
    QFETCH(QString, reason);
    const QString kind = QTest::currentDataTag();
    const QString disk = mFolder->filePath("disk");
    QVERIFY(QDir().mkdir(disk));
    const bool full = kind == "disk full";
    if (full && ::mount("tmpfs", qPrintable(disk), "tmpfs", 0, "size=2m") != 0)
      QSKIP("This needs the right to mount a file system.");
    const auto unmount = qScopeGuard([&] { ::umount(qPrintable(disk)); });
    usePair(disk);
    const auto reader = makeReader(ReadWrite, kHardwareId);
    change(*reader, kind == "bad text" ? "\x01" : "new");
    if (kind == "folder gone") QVERIFY(QDir(disk).removeRecursively());
    if (kind == "no file") QVERIFY(QFile::remove(mVal) && QDir().mkdir(mVal));
    const bool oneFile = kind == "one file";
    if (oneFile) QVERIFY(QFile::remove(mDef) && QFile::link(mVal, mDef));
    QFile filler(disk + "/filler");
    if (full) QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (full && filler.write(QByteArray(4096, 'x')) > 0) {
    }
    const QByteArray before = state(disk);
    QVERIFY(!reader->saveFiles());
    QVERIFY(!reader->closeFiles(true));
    QCOMPARE(state(disk), before);
    const QString message =
        "2 " + (oneFile ? reason.arg(mDef, mVal) : "File \"" + mVal + "\": " + reason);
    QCOMPARE(mBoard.texts, QStringList({message, message}));
  }

  void keepsWhatWasNotLoaded_data() {
    QTest::addColumn<bool>("def");
    QTest::addColumn<bool>("val");
    QTest::newRow("definitions") << true << false;
    QTest::newRow("values") << false << true;
    QTest::newRow("both") << true << true;
    QTest::newRow("other hardware id") << false << false;
  }
  void keepsWhatWasNotLoaded() {
    QFETCH(bool, def);
    QFETCH(bool, val);
    const QString hardwareId = def || val ? kHardwareId : "other";
    const QStringList kept =
        def && val ? QStringList({mDef, mVal}) : QStringList(def ? mDef : mVal);
    for (const char* backup : {".bak", ".bak.1", ".bak.2"}) {
      usePair(mFolder->path());
      if (def) QVERIFY(write(mDef, backup));
      if (val) QVERIFY(write(mVal, backup));
      const QByteArray content = read(kept.last());
      const auto reader = makeReader(FullAccess, hardwareId);
      int number = 0;
      QVERIFY(reader->load(mPair, mErr));
      QVERIFY(reader->getParam(1, "new", "", number, 5, mErr));
      mBoard.texts.clear();
      QVERIFY(reader->saveFiles() && reader->saveFiles());  // the second replaces its own
      QStringList messages;
      for (const QString& name : kept) {
        messages += QString(
                        "1 File \"%1\" was not loaded and is replaced. The old file is kept as "
                        "\"%1%2\".")
                        .arg(name, backup);
      }
      QCOMPARE(mBoard.texts, messages);
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

 private:
  /// Makes a folder's pair of files a fresh copy of the example.
  void usePair(const QString& folder) {
    mPair = folder + "/pair";
    mDef = mPair + ".xpdef";
    mVal = mPair + ".xparam";
    QVERIFY(write(mDef, read(example("TwoAxisDrive.xpdef"))));
    QVERIFY(write(mVal, read(example("TwoAxisDrive.xparam"))));
  }
  void change(ICSimpleParamReader& reader, const CParamVal& motorName) {
    QVERIFY(reader.load(mPair, mErr) && reader.setParam(kAxis, "MotorName", motorName, mErr));
  }

  SKeptMessages mBoard;
  std::unique_ptr<QTemporaryDir> mFolder;
  QString mPair;
  QString mDef;
  QString mVal;
  QString mErr;
};

QTEST_GUILESS_MAIN(tst_CSimpleParamReader)
#include "tst_CSimpleParamReader.moc"
