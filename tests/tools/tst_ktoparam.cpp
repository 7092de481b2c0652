#include "CWorkplace.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QtTest>

#include <memory>

namespace {

/// A command of a session file and what it must give. The lines of a session are "$ command",
/// "| result", "! message", "= exit status" when it is not 0, and "# comment".
struct SStep {
  QString command;
  int status = 0;
  QString out;
  QString err;
};

QVector<SStep> readSession(const QString& fileName) {
  QVector<SStep> steps;
  for (const QString& line :
       QString::fromUtf8(NTestFiles::read(fileName)).split(QLatin1Char('\n'))) {
    const QString text = line.mid(2);
    if (line.startsWith(QLatin1String("$ ktoparam"))) {
      steps.append({text, 0, {}, {}});
    } else if (line.startsWith(QLatin1Char('|'))) {
      steps.last().out += text + QLatin1Char('\n');
    } else if (line.startsWith(QLatin1Char('!'))) {
      steps.last().err += text + QLatin1Char('\n');
    } else if (line.startsWith(QLatin1Char('='))) {
      steps.last().status = text.toInt();
    }
  }
  return steps;
}

bool mayChangeFiles(const SStep& step) {
  const QStringList words = QProcess::splitCommand(step.command);
  static const QStringList kEdits = {QStringLiteral("set"), QStringLiteral("import"),
                                     QStringLiteral("defaults"), QStringLiteral("new")};
  static const QStringList kFamilies = {QStringLiteral("hardware-id"),
                                        QStringLiteral("sub-device")};
  if (words.value(1) == QLatin1String("merge")) return step.status <= 1;
  const bool isEdit = kEdits.contains(words.value(1)) || (kFamilies.contains(words.value(1)) &&
                                                          words.value(2) != QLatin1String("list"));
  return isEdit && step.status == 0 && !words.contains(QLatin1String("--dry-run"));
}

/// As lines, so that a test shows the one that differs.
QStringList lines(const SStep& step) {
  return QStringList(step.command) + step.out.split(QLatin1Char('\n')) +
         step.err.split(QLatin1Char('\n')) + QStringList(QString::number(step.status));
}

/// What lies at a path such as "files/0/version".
QJsonValue at(const QJsonObject& object, const QString& path) {
  QJsonValue value = object;
  for (const QString& piece : path.split(QLatin1Char('/'))) {
    value = value.isArray() ? value.toArray().at(piece.toInt()) : value.toObject().value(piece);
  }
  return value;
}

}  // namespace

class tst_ktoparam : public QObject {
  Q_OBJECT
 private slots:
  void followsSessions_data();
  void followsSessions();
  void examplesOfHelpWork_data();
  void examplesOfHelpWork();
  void commandsOfReadmeWork();
  void knowsTerminals_data();
  void knowsTerminals();
  void printsJson_data();
  void printsJson();
  void valuesAreNeverJsonNumbers();
  void changesOnlyWhatIsSet();
  void failedSaveLeavesTheFile();
  void reportsResultsThatCannotBeWritten();
};

void tst_ktoparam::followsSessions_data() {
  QTest::addColumn<QString>("fileName");
  const QDir folder(QStringLiteral(KTO_TOOL_TESTS "/sessions"));
  for (const QString& name : folder.entryList({QStringLiteral("*.session")})) {
    QTest::newRow(qPrintable(name)) << folder.filePath(name);
  }
}

void tst_ktoparam::followsSessions() {
  QFETCH(QString, fileName);
  const QVector<SStep> steps = readSession(fileName);
  QVERIFY(!steps.isEmpty());
  const bool isGerman = fileName.endsWith(QLatin1String(".de.session"));
  const CWorkplace workplace(isGerman ? "de_DE.UTF-8" : "C");
  for (const SStep& step : steps) {
    const QMap<QString, QByteArray> before = workplace.files();
    const SRun run = workplace.run(QProcess::splitCommand(step.command).mid(1));
    QCOMPARE(lines({step.command, run.status, run.out, run.err}), lines(step));
    QVERIFY2((workplace.files() != before) == mayChangeFiles(step), qPrintable(step.command));
  }
}

void tst_ktoparam::examplesOfHelpWork_data() {
  QTest::addColumn<QString>("example");
  const CWorkplace workplace;
  const QString overview = workplace.run({QStringLiteral("help")}).out;
  QRegularExpression command(QStringLiteral("^  ([a-z-]+(?: [a-z]+)?)  +[A-Z]"),
                             QRegularExpression::MultilineOption);
  QStringList commands;
  for (auto it = command.globalMatch(overview); it.hasNext();) commands += it.next().captured(1);
  commands.removeOne(QStringLiteral("--version"));
  for (const QString& name : commands) {
    const QString help =
        workplace.run(QStringList(QStringLiteral("help")) + name.split(QLatin1Char(' '))).out;
    const QString examples = help.section(QStringLiteral("Example:\n"), 1);
    QVERIFY2(!examples.isEmpty(), qPrintable(name));
    for (const QString& line : examples.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
      QTest::newRow(qPrintable(line)) << line.trimmed();
    }
  }
}

void tst_ktoparam::examplesOfHelpWork() {
  QFETCH(QString, example);
  const CWorkplace workplace;
  // Examples compare and merge other states of the example drive.
  for (const char* name : {"Delivered", "Base", "Ours", "Theirs"}) {
    QVERIFY(QFile::copy(workplace.path(QStringLiteral("TwoAxisDrive.xparam")),
                        workplace.path(QString::fromLatin1(name) + QLatin1String(".xparam"))));
  }
  const SRun run = workplace.run(QProcess::splitCommand(example).mid(1));
  QCOMPARE(run.err, QString());
  QVERIFY(run.status <= 1);  // a comparison may find differences
}

void tst_ktoparam::commandsOfReadmeWork() {
  QString script;
  for (const QString& block : QString::fromUtf8(NTestFiles::read(QStringLiteral(KTO_README)))
                                  .split(QStringLiteral("```sh\n"))) {
    const QString lines = block.section(QStringLiteral("```"), 0, 0);
    if (lines.contains(QLatin1String("\nktoparam "))) script += lines;
  }
  QVERIFY(script.contains(QLatin1String("ktoparam check")));
  script.remove(QStringLiteral("cd examples/data\n"));
  const SRun run = CWorkplace().shell(script);
  QCOMPARE(run.err, QString());
  QVERIFY(run.out.contains(QLatin1String("KTO-2A-64")));
}

void tst_ktoparam::knowsTerminals_data() {
  QTest::addColumn<QString>("script");
  QTest::addColumn<QString>("pattern");
  const auto row = [](const char* name, const char* script, const char* pattern) {
    QTest::newRow(name) << QString::fromLatin1(script) << QString::fromLatin1(pattern);
  };
  const char* const progress = "script -qec 'ktoparam detect * >/dev/null' /dev/null";
  row("progress, erased at the end", progress, "Reading .*\\(file 12\\).*\r\x1b\\[K$");
  row("no wider than the terminal",
      "d=$(printf %070d 0); mkdir $d; cp *.* $d; "
      "script -qec \"ktoparam detect $d/* >/dev/null\" /dev/null",
      "^(Reading [^\r]{71}\r\x1b\\[K)+$");
  row("messages without a terminal", "ktoparam detect * 2>&1 >/dev/null", "^$");
  row("bold", "script -qec 'ktoparam get Odd.xparam Counter' /dev/null", "\x1b\\[1m");
  row("yellow", "script -qec 'ktoparam check Odd.xpdef' /dev/null", "\x1b\\[33mwarning\x1b\\[0m: ");
  row("NO_COLOR", "NO_COLOR=1 script -qec 'ktoparam get Odd.xparam Counter' /dev/null",
      "^[^\x1b]+$");
  row("results without a terminal", "ktoparam get Odd.xparam Counter", "^[^\x1b]+$");
}

void tst_ktoparam::knowsTerminals() {
  QFETCH(QString, script);
  QFETCH(QString, pattern);
  const SRun run = CWorkplace().shell(QLatin1String("export TERM=xterm\n") + script);
  QCOMPARE(run.err, QString());
  QVERIFY2(QRegularExpression(pattern).match(run.out).hasMatch(), qPrintable(run.out));
}

void tst_ktoparam::printsJson_data() {
  QTest::addColumn<QString>("command");
  QTest::addColumn<QString>("path");
  QTest::addColumn<QJsonValue>("value");
  const QString define = QStringLiteral("show TwoAxisDrive.xpdef --json");
  const QString show = QStringLiteral(
      "show TwoAxisDrive.xparam --def TwoAxisDrive.xpdef --hardware-id KTO-2A-16 --json");
  const QString get = QStringLiteral(
      "get TwoAxisDrive.xparam SafetyFunctions VelocityLimit FanMode --def TwoAxisDrive.xpdef "
      "--json");
  const QString bare = QStringLiteral("get Odd.xparam Counter Loose --json");
  const auto row = [](const QString& command, const char* path, const QJsonValue& value) {
    QTest::newRow(qPrintable(command.section(QLatin1Char(' '), 0, 1) + QLatin1Char(' ') +
                             QLatin1String(path)))
        << command << QString::fromLatin1(path) << value;
  };
  row(define, "fileType", QStringLiteral("LumoParamDefinition"));
  row(define, "author", QStringLiteral("KTO application team"));
  row(define, "definitions/0/choices/1/value", QStringLiteral("1"));
  row(define, "definitions/0/choices/1/name", QStringLiteral("mm"));
  row(define, "definitions/0/unit", QJsonValue());
  row(define, "definitions/0/id", 1000);
  row(show, "version", QStringLiteral("1.0"));
  row(show, "date", QStringLiteral("2026-11-20"));
  row(show, "hardwareIds/0/id", QStringLiteral("KTO-2A-16"));
  row(show, "hardwareIds/1", QJsonValue(QJsonValue::Undefined));
  row(show, "hardwareIds/0/subDevices/1/type", QStringLiteral("PowerSupply"));
  row(show, "hardwareIds/0/subDevices/2/parameters/1/group", QStringLiteral("Motor/Rating"));
  row(show, "hardwareIds/0/subDevices/2/parameters/1/isDefault", false);
  row(get, "values/0/hardwareId", QStringLiteral("KTO-2A-16"));
  row(get, "values/0/bits/3", QStringLiteral("Configuration open"));
  row(get, "values/1/subDevice", 2);
  row(get, "values/1/value", QStringLiteral("1000"));
  row(get, "values/1/unit", QStringLiteral("mm/s"));
  row(get, "values/1/default", QStringLiteral("500"));
  row(get, "values/3/choice", QStringLiteral("By temperature"));
  row(bare, "values/0/value", QStringLiteral("0xfffffffffffffff0"));
  row(bare, "values/0/isDefault", QJsonValue());
  row(bare, "values/1/id", QJsonValue());
}

void tst_ktoparam::printsJson() {
  QFETCH(QString, command);
  QFETCH(QString, path);
  QFETCH(QJsonValue, value);
  QCOMPARE(at(CWorkplace().json(command), path), value);
}

void tst_ktoparam::valuesAreNeverJsonNumbers() {
  const CWorkplace workplace;
  const QJsonObject shown =
      workplace.json(QStringLiteral("show TwoAxisDrive.xparam --def TwoAxisDrive.xpdef --json"));
  int values = 0;
  for (const QJsonValue hardwareId : at(shown, QStringLiteral("hardwareIds")).toArray()) {
    for (const QJsonValue subDevice : hardwareId[QLatin1String("subDevices")].toArray()) {
      for (const QJsonValue parameter : subDevice[QLatin1String("parameters")].toArray()) {
        QVERIFY(parameter[QLatin1String("value")].isString());
        QVERIFY(!parameter[QLatin1String("default")].isDouble());
        ++values;
      }
    }
  }
  QCOMPARE(values, 2 * 233);
}

void tst_ktoparam::changesOnlyWhatIsSet() {
  const CWorkplace workplace;
  const QStringList show = QProcess::splitCommand(QStringLiteral("show TwoAxisDrive.xparam"));
  const QStringList before = workplace.run(show).out.split(QLatin1Char('\n'));
  const SRun set = workplace.run(QProcess::splitCommand(QStringLiteral(
      "set TwoAxisDrive.xparam VelocityLimit=999 --hardware-id KTO-2A-32 --sub-device 3")));
  QCOMPARE(set.status, 0);
  const QStringList after = workplace.run(show).out.split(QLatin1Char('\n'));
  QCOMPARE(after.size(), before.size());
  QStringList changed;
  for (int i = 1; i < before.size(); ++i) {  // the first line has the date
    if (before.at(i) != after.at(i))
      changed << before.at(i).simplified() << after.at(i).simplified();
  }
  QCOMPARE(changed,
           QStringList({QStringLiteral("VelocityLimit 500"), QStringLiteral("VelocityLimit 999")}));
}

void tst_ktoparam::failedSaveLeavesTheFile() {
  const CWorkplace workplace;
  const QMap<QString, QByteArray> before = workplace.files();
  const SRun run = workplace.run(
      {QStringLiteral("set"), QStringLiteral("Odd.xparam"), QStringLiteral("Loose=a\x1b[31mb")});
  QCOMPARE(run.status, 3);
  QVERIFY2(run.err.startsWith(QLatin1String("ktoparam: Odd.xparam: ")), qPrintable(run.err));
  QVERIFY2(run.err.contains(QLatin1String("Loose")), qPrintable(run.err));
  QCOMPARE(run.out, QString());
  QVERIFY(workplace.files() == before);
}

void tst_ktoparam::reportsResultsThatCannotBeWritten() {
  if (!QFile::exists(QStringLiteral("/dev/full"))) QSKIP("There is no /dev/full here.");
  const SRun run = CWorkplace().run({QStringLiteral("detect"), QStringLiteral("Odd.xparam")},
                                    QStringLiteral("/dev/full"));
  QCOMPARE(run.status, 3);
  QVERIFY(run.err.startsWith(QLatin1String("ktoparam: the results could not be written: ")));
}

QTEST_GUILESS_MAIN(tst_ktoparam)
#include "tst_ktoparam.moc"
