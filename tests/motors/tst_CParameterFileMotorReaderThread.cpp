#include "CParameterFileMotorReaderThread.h"

#include "CParameterFileHelper.h"
#include "CTestLogfile.h"
#include "KeptMessages.h"
#include "MotorFiles.h"

#include <QtTest>

#include <memory>
#include <stdexcept>

using namespace NktoGlobal;

using CMotorNames = QMap<QString, CParamFileElement>;

class tst_CParameterFileMotorReaderThread : public QObject {
  Q_OBJECT
 private slots:
  void init() { mFolder = std::make_unique<CMotorFolder>(); }

  void readsAList() {
    CParamFileElement a = mFolder->put("a", {"M3", "M1"}, "two motors");
    a.setFileType(FILE_TYPE_PARAMETERS);  // a list is read whatever the types are
    a.setDefinitionFile({"/d", "a.xpdef"});
    const auto b = mFolder->put("b", {"M2"});
    const CMotorNames names = readList({b, a});
    a.setComment("two motors");
    QCOMPARE(names, CMotorNames({{"M1", a}, {"M2", b}, {"M3", a}}));
  }

  void readsTheMotorFilesOfADevice() {
    const CMotorFolder other;
    mFolder->put("a", {"A"});
    const auto p = mFolder->put("p", {"parameters"});
    const auto b = other.put("b", {"B"});
    CDeviceElement device;
    device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"", "a"}});
    device.addParameterFile({FILE_TYPE_PARAMETERS, {"", "p"}});
    device.addParameterFile(b);

    CParameterFileMotorReaderThread thread(nullptr);
    thread.setDeviceElement(device);
    thread.setPath(mFolder->path());
    thread.setMotorParameterFiles({p});  // not asked, since there is a device
    const CMotorNames names = read(thread);
    QCOMPARE(names.keys(), QStringList({"A", "B"}));
    QCOMPARE(names["A"].valueFile(), CFileElement(mFolder->path(), "a"));
    QCOMPARE(names["B"], b);
    QVERIFY(thread.deviceElement().parameterFiles().first().projectPath().isEmpty());
  }

  void readsNothingOfADeviceWithoutMotors() {
    CDeviceElement device;
    device.setName("Feeder");
    CParameterFileMotorReaderThread thread(nullptr);
    thread.setDeviceElement(device);
    thread.setMotorParameterFiles({mFolder->put("a", {"A"})});
    QVERIFY(read(thread).isEmpty());
  }

  void holdsNamesUntilItReads() {
    CParameterFileMotorReaderThread thread(nullptr);
    const auto b = mFolder->element("b");
    for (const char* name : {"A", "B"}) thread.addMotorName(name, mFolder->element("a"));
    thread.addMotorName("B", b);
    const CMotorNames before = thread.motorNames();
    for (const char* name : {"A", "C"}) thread.removeMotorName(name);
    QCOMPARE(thread.motorNames(), CMotorNames({{"B", b}}));
    QCOMPARE(before.size(), 2);
    QVERIFY(read(thread).isEmpty());
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

  void readsTheDeepestNesting() {
    constexpr int kDepth = 1019;  // groups; 1,024 elements with those above and below them
    mFolder->write("deep", CMotorFolder::content({"Deep"}, "", "1.0", kDepth));
    mFolder->write("deeper", CMotorFolder::content({"Deeper"}, "", "1.0", kDepth * 100));
    const CMotorNames names = readList({mFolder->element("deep"), mFolder->element("deeper")});
    QCOMPARE(names.keys(), QStringList("Deep"));
  }

  void passesOverFilesInSilence() {
    const SKeptMessages kept;
    CTestLogfile logfile;
    const auto bad = mFolder->put("bad", {"M", "M"});
    readList({bad, bad}, &logfile);
    CParameterFileHelper::readMotorNames(mFolder->path() + "/bad", &logfile);
    QCOMPARE(kept.texts, QStringList());
    QCOMPARE(logfile.errors().size(), 3);
  }

  void survivesExceptions() {
    const QList<CParamFileElement> files{mFolder->put("a", {"A"}), mFolder->put("bad", {"M", "M"}),
                                         mFolder->put("b", {"B"})};
    CTestLogfile throwing([] { throw std::runtime_error("disk"); });
    QCOMPARE(readList(files, &throwing).keys(), QStringList({"A", "B"}));
  }

 private:
  static CMotorNames read(CParameterFileMotorReaderThread& thread) {
    thread.start();
    thread.wait();
    return thread.motorNames();
  }

  static CMotorNames readList(const QList<CParamFileElement>& files, ICLogfile* logfile = nullptr) {
    CParameterFileMotorReaderThread thread(nullptr);
    thread.setLogfile(logfile);
    thread.setMotorParameterFiles(files);
    return read(thread);
  }

  std::unique_ptr<CMotorFolder> mFolder;
};

QTEST_GUILESS_MAIN(tst_CParameterFileMotorReaderThread)
#include "tst_CParameterFileMotorReaderThread.moc"
