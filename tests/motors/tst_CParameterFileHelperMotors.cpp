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
#include <stdexcept>
#include <thread>

using namespace NktoGlobal;

using CMotorNames = QMap<QString, CParamFileElement>;

namespace {

constexpr int kTimeout = 60000;  // milliseconds; sanitizers and a busy machine are slow

const auto kNamesSignal =
    QOverload<const CMotorNames&>::of(&CParameterFileHelper::readMotorNamesFinisched);
const auto kEndSignal = QOverload<>::of(&CParameterFileHelper::readMotorNamesFinisched);

/// Keeps the errors that are written to it; a test acts at each in the thread that writes.
struct STestLogfile : CKeptLines {
  STestLogfile() : CKeptLines(kLevelErrors) {}
  QString prefix() const override { return QStringLiteral("test"); }
  void write(quint32 level, const QString& text) override {
    if (isLevelEnabled(level)) onError();
    CKeptLines::write(level, text);
  }
  std::function<void()> onError = [] {};
};

/// Holds the thread that writes the first error until the test lets it go on.
struct SGate : STestLogfile {
  SGate() {
    onError = [this] {
      if (isHeld.exchange(true)) return;
      reached.release();
      open.acquire();
    };
  }
  std::atomic<bool> isHeld{false};
  QSemaphore reached;
  QSemaphore open;
};

/// A motor file with one parameter, in groups nested as deep as asked for, for each motor.
QByteArray content(const QStringList& motors, const QString& comment = {},
                   const QString& version = "1.0", int depth = 1) {
  QString text = QString(R"(<LumoMotorParameters version="%1"><Head><Comment>%2</Comment></Head>)")
                     .arg(version, comment);
  for (const QString& motor : motors) {
    text += QString(R"(<Data hardwareId="%1"><SubDevice id="0"><Type>Drive</Type><Name>M</Name>%2
                         <Param id="4010"><Name>PolePairs</Name><Value>0x4</Value></Param>%3
                       </SubDevice></Data>)")
                .arg(motor, QString("<Group><Name>G</Name>").repeated(depth),
                     QString("</Group>").repeated(depth));
  }
  return (text + "</LumoMotorParameters>").toUtf8();
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
    addColumns<QByteArray, QString>("content", "names");
    constexpr int kDepth = 1019;  // groups; 1,024 elements with those above and below them
    const QByteArray two = content({"B", " A "});
    addRow("two motors", two, "AB");
    addRow("sub-version", content({"A"}, "", "1.7"), "A");
    addRow("deepest nesting", content({"A"}, "", "1.0", kDepth), "A");
    addRow("too deep", content({"A"}, "", "1.0", kDepth * 100), "");
    addRow("missing", QByteArray(), "");
    addRow("truncated", two.chopped(two.size() / 2), "");
    addRow("no motor", content({}), "");
    addRow("doubled motor", content({"M", "M"}), "");
    addRow("next version", content({"A"}, "", "2.0"), "");
    addRow("other root", QByteArray(two).replace("LumoMotorParameters", "LumoParameters"), "");
    addRow("definitions", QByteArray("<LumoParamDefinition version=\"1.0\"/>"), "");
  }
  void readsAFile() {
    QFETCH(QByteArray, content);
    QFETCH(QString, names);
    const QString path = mFolder->filePath("m.xparam");
    if (!content.isNull()) QVERIFY(NTestFiles::write(path, content));
    const SKeptMessages kept;
    STestLogfile logfile;
    CParameterFileHelper helper(&logfile, nullptr);
    QCOMPARE(helper.readMotorNames(path).join(""), names);
    const int errors = logfile.lines.filter(path).size();
    QCOMPARE(errors > 0, names.isEmpty());
    const auto read = readList({element("m.xparam"), put("good", {"Good"})}, &logfile);
    QCOMPARE(read.keys().join(""), names + "Good");
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
    STestLogfile logfile;
    const CParameterFileHelper helper(&logfile, nullptr);
    QCOMPARE(helper.readMotorNames({pathA, mFolder->filePath("missing"), "", pathB}), expected);
    const QList<CParamFileElement> files{a, element("missing"), CParamFileElement(), b};
    QCOMPARE(CParameterFileHelper::readMotorNames(files, &logfile), expected);
    QCOMPARE(logfile.lines.size(), 2);
    STestLogfile throwing;
    throwing.onError = [] { throw std::runtime_error("disk"); };
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
    QCOMPARE(thread.logfilePrefix(), QString());
    STestLogfile logfile;
    thread.setLogfile(&logfile);
    QCOMPARE(thread.logfilePrefix(), QString("test"));
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

  void readsTheFirstInputsAgain() {
    CDeviceElement device;
    device.setName("Feeder");
    CParameterFileHelper helper;
    QVERIFY(!helper.startReadMotorNames(CDeviceElement(), mFolder->path()));
    QVERIFY(!helper.startReadMotorNames(device, mFolder->path()));
    device.addParameterFile(put("b", {"B"}));
    QVERIFY(!helper.startReadMotorNames(device, QString()) && !helper.startReadMotorNames({}));
    // What was refused are not the first inputs.
    for (const char* motor : {"A", "A2", "A3"}) {
      const auto a = put("a", {motor});
      QSignalSpy end(&helper, kEndSignal);
      QVERIFY(helper.motorNames().isEmpty() ? helper.startReadMotorNames({a})
                                            : helper.startReadMotorNames(device, "/elsewhere"));
      QVERIFY(end.wait(kTimeout));
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
    QSignalSpy names(&helper, SIGNAL(readMotorNamesFinisched(QMap<QString, CParamFileElement>)));
    QSignalSpy end(&helper, kEndSignal);
    QVERIFY(helper.startReadMotorNames({a}) && told.isEmpty());
    QVERIFY(end.wait(kTimeout));
    QCOMPARE(told, QStringList("A"));
    a.setComment("comment");
    QCOMPARE(names.first().first().value<CMotorNames>(), CMotorNames({{"A", a}}));
    QCOMPARE(helper.motorNames(), CMotorNames({{"A", a}}));
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

  void refusesASecondReadingAndWaitsForItsThread() {
    SGate gate;
    auto helper = std::make_unique<CParameterFileHelper>(&gate, nullptr);
    QSignalSpy end(helper.get(), kEndSignal);
    const auto a = put("a", {"A"});
    QVERIFY(helper->startReadMotorNames({a, element("1"), element("2"), element("3")}));
    QVERIFY(gate.reached.tryAcquire(1, kTimeout));
    QVERIFY(!helper->startReadMotorNames({put("b", {"B"})}));
    QCOMPARE(helper->motorNames().keys(), QStringList("A"));
    std::thread opener([&gate] {
      QThread::msleep(50);  // the helper's destructor then waits already
      gate.open.release();
    });
    helper.reset();
    const int errors = gate.lines.size();
    opener.join();
    QCOMPARE(errors, 3);
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
