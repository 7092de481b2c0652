#include "CDeviceElement.h"
#include "CParameterFileHelper.h"
#include "CParameterFileMotorReaderThread.h"
#include "KeptMessages.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <atomic>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace NktoGlobal;

using CMotorNames = QMap<QString, CParamFileElement>;

namespace {

constexpr int kTimeout = 60000;  // milliseconds; sanitizers and a busy machine are slow

const auto kNamesSignal =
    QOverload<const CMotorNames&>::of(&CParameterFileHelper::readMotorNamesFinisched);
const auto kEndSignal = QOverload<>::of(&CParameterFileHelper::readMotorNamesFinisched);

/// Keeps the errors that are written to it, and lets a test act at each in the thread that writes.
class CTestLogfile : public CKeptLines {
 public:
  explicit CTestLogfile(std::function<void()> onError = nullptr)
      : CKeptLines(kLevelErrors), mOnError(std::move(onError)) {}

  QString prefix() const override { return QStringLiteral("test"); }
  void write(quint32 level, const QString& text) override {
    if (mOnError && isLevelEnabled(level)) mOnError();
    const std::lock_guard lock(mMutex);
    CKeptLines::write(level, text);
  }
  int errors() const {
    const std::lock_guard lock(mMutex);
    return lines.size();
  }

 private:
  const std::function<void()> mOnError;
  mutable std::mutex mMutex;
};

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

/// A motor file with one parameter, in groups nested as deep as asked for, for each motor.
QByteArray content(const QStringList& motors, const QString& comment = {},
                   const QString& version = "1.0", int depth = 1) {
  QString text =
      QStringLiteral("<LumoMotorParameters version=\"%1\"><Head><Comment>%2</Comment></Head>")
          .arg(version, comment);
  for (const QString& motor : motors) {
    text += QStringLiteral(
                "<Data hardwareId=\"%1\"><SubDevice id=\"0\"><Type>Drive</Type><Name>M</Name>")
                .arg(motor) +
            QStringLiteral("<Group><Name>G</Name>").repeated(depth) +
            QStringLiteral("<Param id=\"4010\"><Name>PolePairs</Name><Value>0x4</Value></Param>") +
            QStringLiteral("</Group>").repeated(depth) + QStringLiteral("</SubDevice></Data>");
  }
  return (text + QStringLiteral("</LumoMotorParameters>\n")).toUtf8();
}

bool waitForEnd(QSignalSpy& spy) {
  return !spy.isEmpty() || spy.wait(kTimeout);
}

CMotorNames readList(const QList<CParamFileElement>& files, ICLogfile* logfile = nullptr) {
  CParameterFileMotorReaderThread thread(nullptr);
  thread.setLogfile(logfile);
  thread.setMotorParameterFiles(files);
  thread.start();
  thread.wait();
  return thread.motorNames();
}

}  // namespace

class tst_CParameterFileHelperMotors : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() {
    // Without a time zone in the environment the C library looks for it anew at each conversion,
    // under a lock that the thread sanitizer does not see.
    qputenv("TZ", "UTC");
  }
  void init() { mFolder = std::make_unique<QTemporaryDir>(); }

  void readsAFile_data() {
    addColumns<QByteArray, QStringList>("content", "names");
    const auto bad = [](const char* name, const QByteArray& text) {
      addRow(name, text, QStringList());
    };
    constexpr int kDepth = 1019;  // groups; 1,024 elements with those above and below them
    const QByteArray two = content({"B", " A "});
    addRow("two motors", two, QStringList({"A", "B"}));
    addRow("sub-version", content({"A"}, "", "1.7"), QStringList("A"));
    addRow("deepest nesting", content({"A"}, "", "1.0", kDepth), QStringList("A"));
    bad("too deep", content({"A"}, "", "1.0", kDepth * 100));
    bad("missing", QByteArray());
    bad("truncated", two.chopped(two.size() / 2));
    bad("no motor", content({}));
    bad("doubled motor", content({"M", "M"}));
    bad("next version", content({"A"}, "", "2.0"));
    bad("other root", QByteArray(two).replace("LumoMotorParameters", "LumoParameters"));
    bad("definitions", "<LumoParamDefinition version=\"1.0\"><Data/></LumoParamDefinition>");
  }
  void readsAFile() {
    QFETCH(QByteArray, content);
    QFETCH(QStringList, names);
    const QString path = mFolder->filePath("m.xparam");
    if (!content.isNull()) QVERIFY(NTestFiles::write(path, content));
    const SKeptMessages kept;
    CTestLogfile logfile;
    CParameterFileHelper helper(&logfile, nullptr);
    QCOMPARE(helper.readMotorNames(path), names);
    QCOMPARE(CParameterFileHelper::readMotorNames(path, nullptr), names);
    const int errors = logfile.lines.filter(path).size();
    QCOMPARE(errors > 0, names.isEmpty());
    QCOMPARE(readList({element("m.xparam"), put("good", {"Good"})}, &logfile).keys(),
             names + QStringList("Good"));
    QCOMPARE(logfile.lines.filter(path).size(), 2 * errors);
    QCOMPARE(kept.texts, QStringList());  // none for the user
  }

  void readsSeveralFiles() {
    CParamFileElement a = put("a", {"M3", "M1"}, "two motors");
    a.setFileType(FILE_TYPE_PARAMETERS);  // a list is read whatever the types are
    a.setDefinitionFile({"/d", "a.xpdef"});
    const auto b = put("b", {"M3", "M2"});
    const QString pathA = mFolder->filePath("a");
    const QString pathB = mFolder->filePath("b");
    const QMap<QString, QString> expected{{"M1", pathA}, {"M2", pathB}, {"M3", pathB}};
    CTestLogfile logfile;
    const CParameterFileHelper helper(&logfile, nullptr);
    QCOMPARE(helper.readMotorNames({pathA, mFolder->filePath("missing"), "", pathB}), expected);
    const QList<CParamFileElement> files{a, element("missing"), CParamFileElement(), b};
    QCOMPARE(CParameterFileHelper::readMotorNames(files, &logfile), expected);
    QCOMPARE(logfile.errors(), 2);
    CTestLogfile throwing([] { throw std::runtime_error("disk"); });
    const CMotorNames names = readList(files, &throwing);
    a.setComment("two motors");
    QCOMPARE(names, CMotorNames({{"M1", a}, {"M2", b}, {"M3", b}}));
  }

  void readsTheMotorFilesOfADevice() {
    put("a", {"A"});
    const auto p = put("p", {"parameters"});
    CDeviceElement device;
    device.setName("Feeder");
    CParameterFileMotorReaderThread thread(nullptr);
    thread.setPath(mFolder->path());
    thread.setMotorParameterFiles({p});  // not asked, since there is a device
    for (const QStringList& expected : {QStringList(), QStringList("A")}) {
      thread.setDeviceElement(device);
      thread.addMotorName("Old", p);
      thread.start();
      thread.wait();
      QCOMPARE(thread.motorNames().keys(), expected);
      device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"", "a"}});
      device.addParameterFile({FILE_TYPE_PARAMETERS, {"", "p"}});
    }
    QCOMPARE(thread.motorNames()["A"].valueFile(), CFileElement(mFolder->path(), "a"));
    QVERIFY(thread.deviceElement().parameterFiles().first().projectPath().isEmpty());
    thread.removeMotorName("A");
    QVERIFY(thread.motorNames().isEmpty());
  }

  void takesThePrefixOfAnActiveLogfile() {
    CParameterFileMotorReaderThread thread(nullptr);
    QCOMPARE(thread.logfilePrefix(), QString());
    CTestLogfile active;
    thread.setLogfile(&active);
    QCOMPARE(thread.logfilePrefix(), QString("test"));
    const std::unique_ptr<ICLogfile> silent(ICLogfile::createLogfile(ICLogfile::LogFile, "", 4));
    silent->setPrefix("silent");
    thread.setLogfile(silent.get());
    QCOMPARE(thread.logfilePrefix(), QString());
  }

  void readsTheFirstInputsAgain() {
    CDeviceElement named;
    named.setName("Feeder");
    CDeviceElement device = named;
    device.addParameterFile(put("b", {"B"}));
    CParameterFileHelper helper;
    QVERIFY(!helper.startReadMotorNames(CDeviceElement(), mFolder->path()));
    QVERIFY(!helper.startReadMotorNames(named, mFolder->path()));
    QVERIFY(!helper.startReadMotorNames(device, QString()));
    QVERIFY(!helper.startReadMotorNames({}));
    // What was refused are not the first inputs.
    for (const char* motor : {"A", "A2", "A3"}) {
      const auto a = put("a", {motor});
      QSignalSpy end(&helper, kEndSignal);
      QVERIFY(helper.motorNames().isEmpty() ? helper.startReadMotorNames({a})
                                            : helper.startReadMotorNames(device, "/elsewhere"));
      QVERIFY(waitForEnd(end));
      QCOMPARE(helper.motorNames().keys(), QStringList(motor));
    }
  }

  void tellsTheEndInItsThread() {
    CParamFileElement a = put("a", {"A"}, "comment");
    CParameterFileHelper helper;
    QStringList told;
    connect(&helper, kNamesSignal, &helper, [&](const CMotorNames& names) {
      told += names.keys();
      if (QThread::currentThread() != helper.thread()) told += "wrong thread";
    });
    connect(&helper, kEndSignal, &helper, [&] { told += "end"; });
    QSignalSpy names(&helper, SIGNAL(readMotorNamesFinisched(QMap<QString, CParamFileElement>)));
    QSignalSpy end(&helper, kEndSignal);
    QVERIFY(helper.startReadMotorNames({a}));
    QVERIFY(told.isEmpty());
    QVERIFY(waitForEnd(end));
    QCOMPARE(told, QStringList({"A", "end"}));
    a.setComment("comment");
    QCOMPARE(names.first().first().value<CMotorNames>(), CMotorNames({{"A", a}}));
    QCOMPARE(helper.motorNames(), CMotorNames({{"A", a}}));
  }

  void refusesASecondReadingAtOnce() {
    const auto a = put("a", {"A"});
    const auto b = put("b", {"B"});
    CGate gate;
    CTestLogfile logfile(gate.keeper());
    CParameterFileHelper helper(&logfile, nullptr);
    QSignalSpy end(&helper, kEndSignal);
    QVERIFY(helper.startReadMotorNames({a, element("missing"), b}));
    QVERIFY(gate.waitUntilReached());
    QVERIFY(!helper.startReadMotorNames({b}));
    QCOMPARE(helper.motorNames().keys(), QStringList("A"));
    gate.open();
    QVERIFY(waitForEnd(end));
    QCOMPARE(helper.motorNames().keys(), QStringList({"A", "B"}));
    QTest::qWait(50);
    QCOMPARE(end.size(), 1);
  }

  void mayBeDeletedByTheSignal() {
    const auto a = put("a", {"A"});
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
    for (int i = 0; i < kFiles; ++i) missing += element(QString::number(i));
    QVERIFY(helper->startReadMotorNames(missing));
    QVERIFY(gate.waitUntilReached());
    QCOMPARE(logfile.errors(), 0);
    std::thread opener([&gate] {
      QThread::msleep(50);  // the helper's destructor then waits already
      gate.open();
    });
    helper.reset();
    const int errors = logfile.errors();
    opener.join();
    QCOMPARE(errors, kFiles);
    QVERIFY(end.isEmpty());
  }

 private:
  CParamFileElement element(const QString& name) const {
    return {FILE_TYPE_MOTOR_PARAMETERS, {mFolder->path(), name}};
  }
  /// Writes a file of these motors.
  CParamFileElement put(const QString& name, const QStringList& motors,
                        const QString& comment = {}) const {
    NTestFiles::write(mFolder->filePath(name), content(motors, comment));
    return element(name);
  }

  std::unique_ptr<QTemporaryDir> mFolder;
};

QTEST_GUILESS_MAIN(tst_CParameterFileHelperMotors)
#include "tst_CParameterFileHelperMotors.moc"
