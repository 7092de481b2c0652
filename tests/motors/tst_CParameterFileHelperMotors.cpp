#include "CDeviceElement.h"
#include "CParameterFileHelper.h"
#include "CTestLogfile.h"
#include "MotorFiles.h"
#include "TestRows.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QThread>

#include <atomic>
#include <memory>
#include <thread>

using namespace NktoGlobal;

using CMotorNames = QMap<QString, CParamFileElement>;

namespace {

constexpr int kTimeout = 60000;  // milliseconds; sanitizers and a busy machine are slow

/// Holds the thread that writes the first error until the test lets it go on.
class CGate {
 public:
  std::function<void()> keeper() {
    return [this] {
      if (mIsOpen.exchange(true)) return;
      mReached.release();
      mOpen.acquire();
    };
  }
  bool waitUntilReached() { return mReached.tryAcquire(1, kTimeout); }
  void open() { mOpen.release(); }

 private:
  std::atomic<bool> mIsOpen{false};
  QSemaphore mReached;
  QSemaphore mOpen;
};

}  // namespace

static const auto kNamesSignal =
    QOverload<const CMotorNames&>::of(&CParameterFileHelper::readMotorNamesFinisched);
static const auto kEndSignal = QOverload<>::of(&CParameterFileHelper::readMotorNamesFinisched);

class tst_CParameterFileHelperMotors : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() {
    // Without a time zone in the environment the C library looks for it anew at each conversion,
    // under a lock that the thread sanitizer does not see.
    qputenv("TZ", "UTC");
  }

  void init() { mFolder = std::make_unique<CMotorFolder>(); }

  void readsAFile_data() {
    addColumns<QString, QByteArray, QStringList>("fileName", "content", "names");
    const auto bad = [](const char* name, const QByteArray& content) {
      addRow(name, "m.xparam", content, QStringList());
    };
    const QByteArray two = CMotorFolder::content({"B", " A "});
    const QByteArray definitions =
        "<LumoParamDefinition version=\"1.0\"><Data/></LumoParamDefinition>";
    addRow("two motors", "m.xparam", two, QStringList({"A", "B"}));
    bad("missing", QByteArray());
    bad("empty", "");
    bad("damaged", two.chopped(5));
    bad("truncated", two.chopped(two.size() / 2));
    bad("no motor", CMotorFolder::content({}));
    bad("doubled motor", CMotorFolder::content({"M", "M"}));
    bad("next version", CMotorFolder::content({"A"}, "", "2.0"));
    bad("other root", QByteArray(two).replace("LumoMotorParameters", "LumoParameters"));
    bad("definitions", definitions);
    addRow("definitions beside values", "m.xpdef", definitions, QStringList());
  }
  void readsAFile() {
    QFETCH(QString, fileName);
    QFETCH(QByteArray, content);
    QFETCH(QStringList, names);
    if (!content.isNull()) mFolder->write(fileName, content);
    // The motors of the value file are not those of the definition file.
    if (fileName.endsWith("xpdef")) mFolder->put("m.xparam", {"A"});
    mFolder->write("good", CMotorFolder::content({"Good"}, "", "1.7"));
    const QString path = mFolder->filePath(fileName);
    CTestLogfile logfile;
    CParameterFileHelper helper(&logfile, nullptr);
    QCOMPARE(helper.readMotorNames(path), names);
    QCOMPARE(CParameterFileHelper::readMotorNames(path, nullptr), names);
    const int errors = logfile.errors().filter(path).size();
    QCOMPARE(errors > 0, names.isEmpty());

    QSignalSpy end(&helper, kEndSignal);
    QVERIFY(helper.startReadMotorNames(
        {mFolder->element(fileName), mFolder->element("good"), CParamFileElement()}));
    QVERIFY(waitForEnd(end));
    QCOMPARE(helper.motorNames().keys(), names + QStringList("Good"));
    QCOMPARE(logfile.errors().filter(path).size(), 2 * errors);
  }

  void readsSeveralFiles() {
    const auto a = mFolder->put("a", {"MotorA", "MotorB"});
    const auto b = mFolder->put("b", {"MotorA", "MotorC"});
    const QString pathA = mFolder->filePath("a");
    const QString pathB = mFolder->filePath("b");
    const QMap<QString, QString> expected{{"MotorA", pathB}, {"MotorB", pathA}, {"MotorC", pathB}};
    CTestLogfile own;
    const CParameterFileHelper helper(&own, nullptr);
    QCOMPARE(helper.readMotorNames({pathA, mFolder->filePath("missing"), "", pathB}), expected);
    CTestLogfile other;
    const QList<CParamFileElement> files{a, mFolder->element("missing"), CParamFileElement(), b};
    QCOMPARE(CParameterFileHelper::readMotorNames(files, &other), expected);
    for (const CTestLogfile* logfile : {&own, &other}) QCOMPARE(logfile->errors().size(), 1);
    QVERIFY(CParameterFileHelper::readMotorNames(QStringList(), nullptr).isEmpty());
  }

  void refusesToStartWithoutInputs() {
    mFolder->put("a", {"A"});
    CDeviceElement named;
    named.setName("Feeder");
    CDeviceElement device = named;
    device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"", "a"}});
    CParameterFileHelper helper;
    QSignalSpy names(&helper, kNamesSignal);
    QVERIFY(!helper.startReadMotorNames(CDeviceElement(), mFolder->path()));
    QVERIFY(!helper.startReadMotorNames(named, mFolder->path()));
    QVERIFY(!helper.startReadMotorNames(device, QString()));
    QVERIFY(!helper.startReadMotorNames({}));
    QVERIFY(helper.motorNames().isEmpty());
    // What was refused are not the first inputs.
    QVERIFY(helper.startReadMotorNames(device, mFolder->path()));
    QVERIFY(waitForEnd(names));
    QCOMPARE(names.size(), 1);
    QCOMPARE(helper.motorNames().keys(), QStringList("A"));
  }

  void tellsTheEndInItsThread() {
    CParamFileElement a = mFolder->put("a", {"A"}, "comment");
    CParameterFileHelper helper;
    QStringList told;
    QStringList queued;
    connect(&helper, kNamesSignal, &helper, [&](const CMotorNames& names) {
      told += names.keys();
      if (QThread::currentThread() != helper.thread()) told += "wrong thread";
    });
    connect(
        &helper, kNamesSignal, this, [&](const CMotorNames& names) { queued = names.keys(); },
        Qt::QueuedConnection);
    connect(&helper, kEndSignal, &helper, [&] { told += "end"; });
    QSignalSpy names(&helper, SIGNAL(readMotorNamesFinisched(QMap<QString, CParamFileElement>)));
    QSignalSpy end(&helper, kEndSignal);
    QVERIFY(helper.startReadMotorNames({a}));
    QVERIFY(told.isEmpty());
    QVERIFY(waitForEnd(end));
    QCOMPARE(told, QStringList({"A", "end"}));
    QCOMPARE(names.size(), 1);
    a.setComment("comment");
    QCOMPARE(names.first().first().value<CMotorNames>(), CMotorNames({{"A", a}}));
    QCOMPARE(helper.motorNames(), CMotorNames({{"A", a}}));
    QTRY_COMPARE_WITH_TIMEOUT(queued, QStringList("A"), kTimeout);
  }

  void refusesASecondReadingAtOnce() {
    const auto a = mFolder->put("a", {"A"});
    const auto b = mFolder->put("b", {"B"});
    CGate gate;
    CTestLogfile logfile(gate.keeper());
    CParameterFileHelper helper(&logfile, nullptr);
    QSignalSpy end(&helper, kEndSignal);
    CDeviceElement device;
    device.addParameterFile(b);
    QVERIFY(helper.startReadMotorNames({a, mFolder->element("missing"), b}));
    QVERIFY(gate.waitUntilReached());
    QVERIFY(!helper.startReadMotorNames({b}));
    QVERIFY(!helper.startReadMotorNames(device, mFolder->path()));
    QCOMPARE(helper.motorNames().keys(), QStringList("A"));
    gate.open();
    QVERIFY(waitForEnd(end));
    QCOMPARE(helper.motorNames().keys(), QStringList({"A", "B"}));
    QTest::qWait(50);
    QCOMPARE(end.size(), 1);
  }

  void readsTheFirstInputsAgain() {
    const auto b = mFolder->put("b", {"B"});
    CDeviceElement device;
    device.addParameterFile(b);
    CParameterFileHelper helper;
    for (const char* motor : {"A", "A2", "A3"}) {
      const auto a = mFolder->put("a", {motor});
      QSignalSpy end(&helper, kEndSignal);
      QVERIFY(helper.motorNames().isEmpty() ? helper.startReadMotorNames({a})
                                            : helper.startReadMotorNames(device, "/elsewhere"));
      QVERIFY(waitForEnd(end));
      QCOMPARE(helper.motorNames().keys(), QStringList(motor));
    }
    QFile::remove(mFolder->filePath("a"));
    QSignalSpy names(&helper, kNamesSignal);
    QVERIFY(helper.startReadMotorNames({b}));
    QVERIFY(waitForEnd(names));
    QVERIFY(names.first().first().value<CMotorNames>().isEmpty());
  }

  void startsAgainFromTheSignal() {
    constexpr int kReadings = 50;
    const auto a = mFolder->put("a", {"A"});
    CParameterFileHelper helper;
    int started = 1;
    int refused = 0;
    QSignalSpy end(&helper, kEndSignal);
    connect(&helper, kEndSignal, &helper, [&] {
      if (started == kReadings) return;
      ++started;
      if (!helper.startReadMotorNames({a})) ++refused;
    });
    QVERIFY(helper.startReadMotorNames({a}));
    QTRY_COMPARE_WITH_TIMEOUT(end.size(), kReadings, kTimeout);
    QCOMPARE(refused, 0);
  }

  void mayBeDeletedByTheSignal() {
    const auto a = mFolder->put("a", {"A"});
    auto helper = std::make_unique<CParameterFileHelper>();
    QSignalSpy end(helper.get(), kEndSignal);
    connect(helper.get(), kNamesSignal, this, [&] { helper.reset(); });
    QVERIFY(helper->startReadMotorNames({a}));
    QTRY_VERIFY_WITH_TIMEOUT(!helper, kTimeout);
    QVERIFY(end.isEmpty());
  }

  void waitsForItsThread() {
    constexpr int kFiles = 20;
    CGate gate;
    CTestLogfile logfile(gate.keeper());
    auto helper = std::make_unique<CParameterFileHelper>(&logfile, nullptr);
    QSignalSpy end(helper.get(), kEndSignal);
    QList<CParamFileElement> missing;
    for (int i = 0; i < kFiles; ++i) missing += mFolder->element(QString::number(i));
    QVERIFY(helper->startReadMotorNames(missing));
    QVERIFY(gate.waitUntilReached());
    QVERIFY(logfile.errors().isEmpty());
    std::thread opener([&gate] {
      QThread::msleep(50);  // the helper's destructor then waits already
      gate.open();
    });
    helper.reset();
    const int errors = logfile.errors().size();
    opener.join();
    QCOMPARE(errors, kFiles);
    QVERIFY(end.isEmpty());
  }

  void readsHundredsOfFiles() {
    const QList<CParamFileElement> files = writeHundredsOfFiles();
    QMap<QString, QString> expected;
    for (int i = 0; i < files.size(); ++i) {
      if (i % 6 < 4) continue;
      const QString name = QString::number(i);
      for (const QString& motor : QStringList{"M" + name, "N" + name, "Common"})
        expected.insert(motor, mFolder->filePath(name));
    }
    QCOMPARE(CParameterFileHelper::readMotorNames(files, nullptr), expected);

    CParameterFileHelper helper;
    QSignalSpy end(&helper, kEndSignal);
    for (int reading = 1; reading <= 2; ++reading) {
      QVERIFY(helper.startReadMotorNames(files));
      int known = 0;
      while (end.size() < reading) {
        // A partial result is whole in itself; the first may be that of the reading before.
        const CMotorNames names = helper.motorNames();
        for (auto it = names.cbegin(); it != names.cend(); ++it) {
          QVERIFY(expected.contains(it.key()));
          QCOMPARE(it->comment(), it->valueFileName());
        }
        QVERIFY(reading > 1 || names.size() >= known);
        known = names.size();
        QCoreApplication::processEvents();
      }
      QMap<QString, QString> found;
      const CMotorNames names = helper.motorNames();
      for (auto it = names.cbegin(); it != names.cend(); ++it)
        found.insert(it.key(), it->valueFile().projectFilePath());
      QCOMPARE(found, expected);
    }
  }

  void endsAtAnyMoment() {
    const QList<CParamFileElement> files = writeHundredsOfFiles().mid(0, 60);
    for (int rounds = 0; rounds < 40; ++rounds) {
      CParameterFileHelper helper;
      int ends = 0;
      connect(&helper, kEndSignal, this, [&ends] { ++ends; });
      int started = 0;
      for (int i = 0; i < rounds * 5; ++i) {
        started += helper.startReadMotorNames(files) ? 1 : 0;
        if (helper.motorNames().size() > rounds) break;
        QCoreApplication::processEvents();
      }
      QVERIFY(ends <= started);
    }
  }

  void readersDoNotDisturbEachOther() {
    const QList<CParamFileElement> files = writeHundredsOfFiles();
    CTestLogfile logfile;
    const QMap<QString, QString> expected = CParameterFileHelper::readMotorNames(files, &logfile);
    const int errorsOfOne = logfile.errors().size();

    CParameterFileHelper first(&logfile, nullptr);
    CParameterFileHelper second(&logfile, nullptr);
    QSignalSpy firstEnd(&first, kEndSignal);
    QSignalSpy secondEnd(&second, kEndSignal);
    QVERIFY(first.startReadMotorNames(files));
    QVERIFY(second.startReadMotorNames(files));
    QCOMPARE(CParameterFileHelper::readMotorNames(files, &logfile), expected);
    QVERIFY(waitForEnd(firstEnd) && waitForEnd(secondEnd));
    QCOMPARE(first.motorNames().keys(), expected.keys());
    QCOMPARE(second.motorNames(), first.motorNames());
    QCOMPARE(logfile.errors().size(), 4 * errorsOfOne);
  }

 private:
  /// Good files with motors of their own and a common one, mixed with missing, damaged, doubled and
  /// foreign ones.
  QList<CParamFileElement> writeHundredsOfFiles() const {
    constexpr int kFiles = 300;
    QList<CParamFileElement> files;
    for (int i = 0; i < kFiles; ++i) {
      const QString name = QString::number(i);
      const QByteArray good = CMotorFolder::content({"M" + name, "N" + name, "Common"}, name);
      const QByteArray contents[] = {{},  // missing
                                     good.left(good.size() * (i % 100) / 100),
                                     CMotorFolder::content({"M" + name, "M" + name}),
                                     QByteArray(good).replace("LumoMotor", "LumoOem"),
                                     good,
                                     good};
      if (i % 6 != 0) mFolder->write(name, contents[i % 6]);
      files += mFolder->element(name);
    }
    return files;
  }

  static bool waitForEnd(QSignalSpy& spy) { return !spy.isEmpty() || spy.wait(kTimeout); }

  std::unique_ptr<CMotorFolder> mFolder;
};

QTEST_GUILESS_MAIN(tst_CParameterFileHelperMotors)
#include "tst_CParameterFileHelperMotors.moc"
