#include "CDeviceElement.h"
#include "CParameterFileHelper.h"
#include "CParameterFileMotorReaderThread.h"
#include "GoldenFiles.h"
#include "KeptMessages.h"
#include "TestFiles.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextCodec>

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
  void write(quint32 level, const QString& text) override {
    if (isLevelEnabled(level)) onError();
    CKeptLines::write(level, text);
  }
  std::function<void()> onError = [] {};
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

class tst_CParameterFileHelper : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() {
    // Without a time zone in the environment the C library looks for it anew at each conversion,
    // under a lock that the thread sanitizer does not see.
    qputenv("TZ", "UTC");
  }
  void init() { mFolder = std::make_unique<QTemporaryDir>(); }

  void namesFileTypes() {
    const QStringList names = {
        "C_SETTINGS_FORMAT",    "C_COMPENSATION_FORMAT", "LumoParameters",
        "LumoConfigParams",     "LumoDeviceDatabase",    "LumoPluginParameters",
        "LumoFirmwareDataBase", "LumoLogicDataBase",     "LumoOemParameters",
        "LumoMotorParameters",  "LumoTypePlateData",     "LumoOptionModulDatabase"};
    for (int type = -1; type < 13; ++type) {
      QCOMPARE(CParameterFileHelper::fileTypeToStr(EParamFileType(type)), names.value(type));
      // Of several the first in the text, whatever the order in which they are kept.
      for (const QString& other : names)
        QCOMPARE(int(CParameterFileHelper::fileTypeFromStr(names.value(type, "-") + other)),
                 type == -1 || type == 12 ? names.indexOf(other) : type);
    }
  }

  void readsBeginnings_data() {
    NGoldenFiles::addTable("filetypes/beginnings.txt", {"codec", "text", "type", "beginning"});
  }
  void readsBeginnings() {
    auto [codec, text] = textCells("codec", "text");
    text.replace("\\n", "\n").replace("\\r", "\r").replace("\\t", "\t").remove("NOTHING");
    text.replace("MARK", QChar(QChar::ByteOrderMark)).replace("FAR", QString(17 << 20, 'x'));
    text.replace("ZEROS", QString(3000000, QChar(0)));
    QTextEncoder encoder(QTextCodec::codecForName(codec.toLatin1()), QTextCodec::IgnoreHeader);
    const QByteArray data = encoder.fromUnicode(text);
    const QString fileName = mFolder->filePath("file");
    QVERIFY(NTestFiles::write(fileName, data));
    QTEST(QString::number(CParameterFileHelper::detectFileType(data)), "type");
    QTEST(QString::number(CParameterFileHelper::detectFileType(fileName)), "type");
    const QString revision = QString::number(CParameterFileHelper::fileVersion(data), 16);
    for (const SFileBeginning& found : {CParameterFileHelper::readBeginning(data),
                                        CParameterFileHelper::readBeginning(fileName)}) {
      QVERIFY(found.isRead);
      QTEST(QStringList({found.rootTag, found.version, revision, found.comment, found.error})
                .join('|')
                .replace('\n', "\\n"),
            "beginning");
    }
    for (const QString& none : {mFolder->filePath("missing"), mFolder->path()}) {
      QCOMPARE(CParameterFileHelper::detectFileType(none), FILE_TYPE_NONE);
      QVERIFY(!CParameterFileHelper::readBeginning(none).isRead);
    }
  }

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
    addRow("next version", content({"A"}, "", "2.0"), "");
    addRow("other root", QByteArray(two).replace("LumoMotorParameters", "LumoParameters"), "");
  }
  void readsAFile() {
    const auto [content, names] = cells<QByteArray, QString>("content", "names");
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

  void readsTheFirstInputsAgainAndTellsTheEnd() {
    CDeviceElement device;
    device.setName("Feeder");
    CParameterFileHelper helper;
    QVERIFY(!helper.startReadMotorNames(CDeviceElement(), mFolder->path()));
    QVERIFY(!helper.startReadMotorNames(device, mFolder->path()));
    device.addParameterFile(put("b", {"B"}));
    QVERIFY(!helper.startReadMotorNames(device, QString()) && !helper.startReadMotorNames({}));
    // What was refused are not the first inputs.
    for (const char* motor : {"A", "A2", "A3"}) {
      auto a = put("a", {motor}, "comment");
      QSignalSpy names(&helper, SIGNAL(readMotorNamesFinisched(QMap<QString, CParamFileElement>)));
      QSignalSpy end(&helper, kEndSignal);
      QVERIFY(helper.motorNames().isEmpty() ? helper.startReadMotorNames({a})
                                            : helper.startReadMotorNames(device, "/elsewhere"));
      QVERIFY(end.wait(kTimeout));
      a.setComment("comment");
      QCOMPARE(helper.motorNames(), CMotorNames({{motor, a}}));
      QCOMPARE(names.first().first().value<CMotorNames>(), helper.motorNames());
    }
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
    QSemaphore reached;
    QSemaphore open;
    STestLogfile logfile;
    logfile.onError = [&] {  // holds the thread at the first error
      if (!logfile.lines.isEmpty()) return;
      reached.release();
      open.acquire();
    };
    auto helper = std::make_unique<CParameterFileHelper>(&logfile, nullptr);
    QSignalSpy end(helper.get(), kEndSignal);
    const auto a = put("a", {"A"});
    QVERIFY(helper->startReadMotorNames({a, element("1"), element("2"), element("3")}));
    QVERIFY(reached.tryAcquire(1, kTimeout));
    QVERIFY(!helper->startReadMotorNames({put("b", {"B"})}));
    QCOMPARE(helper->motorNames().keys(), QStringList("A"));
    std::thread opener([&open] {
      QThread::msleep(50);  // the helper's destructor then waits already
      open.release();
    });
    helper.reset();
    const int errors = logfile.lines.size();
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

QTEST_GUILESS_MAIN(tst_CParameterFileHelper)
#include "tst_CParameterFileHelper.moc"
