#include "CParameterFileMotorReaderThread.h"
#include "TestRows.h"

#include "CMessageBoardHelper.h"
#include "CTestLogfile.h"
#include "MotorFiles.h"

#include <QtTest>

#include <atomic>
#include <memory>
#include <stdexcept>

using namespace NktoGlobal;

using CMotorNames = QMap<QString, CParamFileElement>;

class tst_CParameterFileMotorReaderThread : public QObject {
  Q_OBJECT
 private slots:
  void init() {
    mFolder = std::make_unique<CMotorFolder>();
    CMessageBoardHelper::setHandler([](CMessageBoardHelper::EMessageKind, const QString&) {});
  }

  void cleanup() { CMessageBoardHelper::setHandler(nullptr); }

  void readsAList() {
    mFolder->write("a", CMotorFolder::content({"M3", "M1"}, "two motors"));
    mFolder->write("b", CMotorFolder::content({"M2"}));
    CParamFileElement a = mFolder->element("a");
    a.setFileType(FILE_TYPE_PARAMETERS);  // a list is read whatever the types are
    a.setDefinitionFile({"/d", "a.xpdef"});
    const CParamFileElement b = mFolder->element("b");
    const CMotorNames names = readList({b, a});
    a.setComment("two motors");
    QCOMPARE(names, CMotorNames({{"M1", a}, {"M2", b}, {"M3", a}}));
  }

  void readsTheMotorFilesOfADevice() {
    const CMotorFolder other;
    mFolder->write("a", CMotorFolder::content({"A"}));
    mFolder->write("p", CMotorFolder::content({"parameters"}));
    other.write("b", CMotorFolder::content({"B"}));
    CDeviceElement device;
    device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"", "a"}});
    device.addParameterFile({FILE_TYPE_PARAMETERS, {"", "p"}});
    device.addParameterFile(other.element("b"));

    CParameterFileMotorReaderThread thread(nullptr);
    thread.setDeviceElement(device);
    thread.setPath(mFolder->path());
    thread.setMotorParameterFiles({mFolder->element("p")});  // not asked, since there is a device
    const CMotorNames names = read(thread);
    QCOMPARE(names.keys(), QStringList({"A", "B"}));
    QCOMPARE(names["A"].valueFile(), CFileElement(mFolder->path(), "a"));
    QCOMPARE(names["B"], other.element("b"));
    QVERIFY(thread.deviceElement().parameterFiles().first().projectPath().isEmpty());
  }

  void asksTheDeviceUnlessItIsNull() {
    mFolder->write("a", CMotorFolder::content({"A"}));
    CDeviceElement withoutMotors;
    withoutMotors.setName("Feeder");
    for (const CDeviceElement& device : {withoutMotors, CDeviceElement()}) {
      CParameterFileMotorReaderThread thread(nullptr);
      thread.setDeviceElement(device);
      thread.setMotorParameterFiles({mFolder->element("a")});
      QCOMPARE(read(thread).keys(), device.isNull() ? QStringList("A") : QStringList());
    }
  }

  void joinsPathAndName_data() {
    QTest::addColumn<QString>("pathEnd");
    QTest::addColumn<QString>("name");
    addRow("no separator", "", "a");
    addRow("separator of the path", "/", "a");
    addRow("separator of the name", "", "/a");
  }
  void joinsPathAndName() {
    QFETCH(QString, pathEnd);
    QFETCH(QString, name);
    mFolder->write("a", CMotorFolder::content({"A"}));
    const CFileElement file(mFolder->path() + pathEnd, name);
    QCOMPARE(readList({{FILE_TYPE_MOTOR_PARAMETERS, file}}).keys(), QStringList("A"));
    const CFileElement withoutPath("", mFolder->path() + '/' + name);
    QCOMPARE(readList({{FILE_TYPE_MOTOR_PARAMETERS, withoutPath}}).keys(), QStringList("A"));
  }

  void skipsWhatCannotBeRead_data() {
    QTest::addColumn<QByteArray>("content");
    const QByteArray good = CMotorFolder::content({"M"});
    QTest::newRow("missing") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("truncated") << good.chopped(good.size() / 2);
    QTest::newRow("no motor") << CMotorFolder::content({});
    QTest::newRow("doubled motor") << CMotorFolder::content({"M", "M"});
    QTest::newRow("other version") << CMotorFolder::content({"M"}, "", "2.0");
    QTest::newRow("other root") << QByteArray(good).replace("LumoMotorParameters",
                                                            "LumoParameters");
    addRow("definitions", QByteArray("<LumoParamDefinition version=\"1.0\"><Data/>"
                                     "</LumoParamDefinition>"));
  }
  void skipsWhatCannotBeRead() {
    QFETCH(QByteArray, content);
    if (!content.isNull()) mFolder->write("bad", content);
    mFolder->write("good", CMotorFolder::content({"Good"}, "", "1.7"));
    CTestLogfile logfile;
    const CMotorNames names = readList(
        {mFolder->element("bad"), mFolder->element("good"), CParamFileElement()}, &logfile);
    QCOMPARE(names.keys(), QStringList("Good"));
    QVERIFY2(logfile.errors().join('\n').contains(mFolder->filePath("bad")),
             qPrintable(logfile.errors().join('\n')));
  }

  void emptiesTheNamesFirst() {
    CParameterFileMotorReaderThread thread(nullptr);
    thread.addMotorName("M", CParamFileElement());
    QCOMPARE(thread.motorNames().size(), 1);
    QVERIFY(read(thread).isEmpty());
  }

  void removesANameWithoutTheLock() {
    CParameterFileMotorReaderThread thread(nullptr);
    thread.addMotorName("A", mFolder->element("a"));
    thread.addMotorName("B", mFolder->element("a"));
    thread.addMotorName("B", mFolder->element("b"));
    const CMotorNames before = thread.motorNames();
    thread.removeMotorName("A");
    thread.removeMotorName("C");
    QCOMPARE(thread.motorNames(), CMotorNames({{"B", mFolder->element("b")}}));
    QCOMPARE(before.size(), 2);
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

  void postsCriticalsFromItsThread() {
    std::atomic<int> criticals{0};
    std::atomic<int> fromHere{0};
    CMessageBoardHelper::setHandler([&](CMessageBoardHelper::EMessageKind kind, const QString&) {
      if (kind == CMessageBoardHelper::Critical) ++criticals;
      if (QThread::currentThread() == QCoreApplication::instance()->thread()) ++fromHere;
    });
    mFolder->write("bad", CMotorFolder::content({"M", "M"}));
    readList({mFolder->element("bad"), mFolder->element("bad")});
    QCOMPARE(criticals.load(), 2);
    QCOMPARE(fromHere.load(), 0);
  }

  void survivesExceptions() {
    mFolder->write("a", CMotorFolder::content({"A"}));
    mFolder->write("bad", CMotorFolder::content({"M", "M"}));
    mFolder->write("b", CMotorFolder::content({"B"}));
    const QList<CParamFileElement> files{mFolder->element("a"), mFolder->element("bad"),
                                         mFolder->element("b")};
    CTestLogfile throwing([] { throw std::runtime_error("disk"); });
    QCOMPARE(readList(files, &throwing).keys(), QStringList({"A", "B"}));

    CMessageBoardHelper::setHandler([](auto...) { throw std::runtime_error("board"); });
    QCOMPARE(readList(files).keys(), QStringList({"A", "B"}));
  }

 private:
  static CMotorNames read(CParameterFileMotorReaderThread& thread) {
    thread.start();
    thread.wait();
    return thread.motorNames();
  }

  static CMotorNames readList(const QList<CParamFileElement>& files, ICLogfile* logfile) {
    CParameterFileMotorReaderThread thread(nullptr);
    thread.setLogfile(logfile);
    thread.setMotorParameterFiles(files);
    return read(thread);
  }

  std::unique_ptr<CMotorFolder> mFolder;
};
QTEST_GUILESS_MAIN(tst_CParameterFileMotorReaderThread)
#include "tst_CParameterFileMotorReaderThread.moc"
