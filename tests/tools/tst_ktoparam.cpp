#include "CWorkplace.h"
#include "ICCompensationFile.h"
#include "ICParameterFile.h"
#include "ICSettingsFile.h"
#include "KeptMessages.h"
#include "TestRows.h"

#include <QDirIterator>
#include <QTextCodec>
#include <QtTest>

namespace {

/// A command of a session file and what it must give. The lines of a session are "$ command",
/// "| result", "! message", "= exit status" when it is not 0, and "# comment".
struct SStep {
  QString command;
  SRun run;
};

QVector<SStep> readSession(const QString& fileName) {
  QVector<SStep> steps;
  for (const QString& line : QString::fromUtf8(NTestFiles::read(fileName)).split('\n')) {
    const QString text = line.mid(2);
    if (line.startsWith("$ ktoparam")) steps.append({text, {0, "", ""}});
    if (line.startsWith('|')) steps.last().run.out += text + '\n';
    if (line.startsWith('!')) steps.last().run.err += text + '\n';
    if (line.startsWith('=')) steps.last().run.status = text.toInt();
  }
  return steps;
}

/// As one of all kinds of file.
bool loads(const QString& fileName) {
  using namespace NktoGlobal;
  const std::unique_ptr<ICSettingsFile> settings(ICSettingsFile::create(nullptr));
  const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(FILE_TYPE_PARAMETERS, nullptr));
  bool isLoaded = settings->load(fileName, "1.0") == ICSettingsFile::NoError ||
                  table->load(fileName, "1.0") == ICCompensationFile::Ok ||
                  file->loadParamDefFile(fileName, 0x10000);
  for (int type = FILE_TYPE_PARAMETERS; !isLoaded && type <= FILE_TYPE_OPTION_MODUL_DB; ++type) {
    file->setFileType(static_cast<EParamFileType>(type));
    isLoaded = file->loadParamFile(fileName, {}, 0x10000);
  }
  return isLoaded;
}

bool mayChangeFiles(const SStep& step) {
  const QStringList words = QProcess::splitCommand(step.command);
  const QString command = words.value(1);
  if (command == "merge") return step.run.status <= 1;
  const bool isEdit =
      QStringList({"set", "import", "defaults", "new"}).contains(command) ||
      (QStringList({"hardware-id", "sub-device"}).contains(command) && words.value(2) != "list");
  return isEdit && step.run.status == 0 && !words.contains("--dry-run");
}

/// As lines, so that a test shows the one that differs.
QStringList lines(const SStep& step) {
  return QStringList(step.command) + step.run.out.split('\n') + step.run.err.split('\n') +
         QStringList(QString::number(step.run.status));
}

}  // namespace

class tst_ktoparam : public QObject {
  Q_OBJECT

 private slots:
  void followsSessions_data() {
    QTest::addColumn<QString>("fileName");
    const QDir folder(KTO_TOOL_TESTS "/sessions");
    for (const QString& name : folder.entryList({"*.session"}))
      addRow(qPrintable(name), folder.filePath(name));
  }
  void followsSessions() {
    QFETCH(QString, fileName);
    const QVector<SStep> steps = readSession(fileName);
    QVERIFY(!steps.isEmpty());
    const CWorkplace workplace(fileName.endsWith(".de.session") ? "de_DE.UTF-8" : "C");
    for (const SStep& step : steps) {
      const QMap<QString, QByteArray> before = workplace.files();
      const SRun run = workplace.run(QProcess::splitCommand(step.command).mid(1));
      QCOMPARE(lines({step.command, run}), lines(step));
      QVERIFY2((workplace.files() != before) == mayChangeFiles(step), qPrintable(step.command));
    }
  }

  void knowsEveryFileThatLoads() {
    const SKeptMessages quiet;
    QStringList loaded;
    for (const char* folder : {KTO_TEST_DATA, KTO_TOOL_TESTS "/files", KTO_CORPUS}) {
      for (QDirIterator i(folder, QDir::Files, QDirIterator::Subdirectories); i.hasNext();)
        if (loads(i.next())) loaded.append(i.filePath());
    }
    QVERIFY(loaded.size() > 100);
    const SRun run = CWorkplace().run(QStringList("detect") + loaded);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, "");
  }

  void examplesOfHelpWork_data() {
    QTest::addColumn<QString>("example");
    const CWorkplace workplace;
    const QString overview = workplace.run({"help"}).out;
    const QRegularExpression command("^  ([a-z-]+(?: [a-z]+)?)  +[A-Z]",
                                     QRegularExpression::MultilineOption);
    for (auto it = command.globalMatch(overview); it.hasNext();) {
      const QString name = it.next().captured(1);
      if (name == "--version") continue;
      const QString help = workplace.runLine("help " + name).out;
      const QStringList examples = help.section("Example:\n", 1).split('\n', Qt::SkipEmptyParts);
      QVERIFY2(!examples.isEmpty(), qPrintable(name));
      for (const QString& line : examples) addRow(qPrintable(line), line.trimmed());
    }
  }
  void examplesOfHelpWork() {
    QFETCH(QString, example);
    const CWorkplace workplace;
    // Examples compare and merge other states of the example drive.
    for (const QString name : {"Delivered", "Base", "Ours", "Theirs"})
      QVERIFY(QFile::copy(workplace.path("TwoAxisDrive.xparam"), workplace.path(name + ".xparam")));
    const SRun run = workplace.run(QProcess::splitCommand(example).mid(1));
    QCOMPARE(run.err, "");
    QVERIFY(run.status <= 1);  // a comparison may find differences
  }

  void commandsOfReadmeWork() {
    QString script;
    for (const QString& block : QString::fromUtf8(NTestFiles::read(KTO_README)).split("```sh\n")) {
      const QString lines = block.section("```", 0, 0);
      if (lines.contains("\nktoparam ")) script += lines;
    }
    QVERIFY(script.contains("ktoparam check"));
    const SRun run = CWorkplace().shell(script.remove("cd examples/data\n"));
    QCOMPARE(run.err, "");
    QVERIFY(run.out.contains("KTO-2A-64"));
  }

  void knowsTerminals_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("pattern");
    addRow("progress, erased at the end", "script -qec 'ktoparam detect * >/dev/null' /dev/null",
           "Reading .*\\(file 12\\).*\r\x1b\\[K$");
    addRow("no wider than the terminal",
           "d=$(printf %070d 0); mkdir $d; cp *.* $d; "
           "script -qec \"ktoparam detect $d/* >/dev/null\" /dev/null",
           "^(Reading [^\r]{71}\r\x1b\\[K)+$");
    addRow("messages without a terminal", "ktoparam detect * 2>&1 >/dev/null", "^$");
    addRow("bold", "script -qec 'ktoparam get Odd.xparam Counter' /dev/null", "\x1b\\[1m");
    addRow("yellow", "script -qec 'ktoparam check Odd.xpdef' /dev/null",
           "\x1b\\[33mwarning\x1b\\[0m: ");
    addRow("NO_COLOR", "NO_COLOR=1 script -qec 'ktoparam get Odd.xparam Counter' /dev/null",
           "^[^\x1b]+$");
    addRow("results without a terminal", "ktoparam get Odd.xparam Counter", "^[^\x1b]+$");
  }
  void knowsTerminals() {
    QFETCH(QString, script);
    QFETCH(QString, pattern);
    const SRun run = CWorkplace().shell("export TERM=xterm\n" + script);
    QCOMPARE(run.err, "");
    QVERIFY2(QRegularExpression(pattern).match(run.out).hasMatch(), qPrintable(run.out));
  }

  /// The example is as the library writes it, so the way back ends at the same bytes.
  void convertsThereAndBack() {
    const CWorkplace place;
    const QString name = "SpindleCompensationOld.xcomp";
    const QByteArray old = place.files().value(name);
    for (const char* to : {"current", "old"}) {
      const SRun run = place.runLine("compensation convert " + name + " --to " + to);
      QCOMPARE(run.out + run.err, QString("Points converted to the %1 format: 12\n").arg(to));
      QCOMPARE(NTestFiles::read(place.path(name)) == old, QByteArray(to) == "old");
    }
  }

  void convertsAnyVersion() {
    const CWorkplace place;
    for (const char* version : {"1.0", "01.050", "0.0", "7", "beta", ""}) {
      const QByteArray root = QByteArray("<C_COMPENSATION_FORMAT Version=\"") + version + "\">";
      NTestFiles::write(place.path("F"), root +
                                             "<HEADER><MIN>0</MIN><MAX>1</MAX></HEADER><POINTLIST>"
                                             "<POINT><POSITION>0</POSITION><ADJUST>0</ADJUST>"
                                             "</POINT></POINTLIST></C_COMPENSATION_FORMAT>");
      QCOMPARE(place.runLine("compensation convert F --to old").err, "");
      const QByteArray bytes = NTestFiles::read(place.path("F"));
      const QString saved = QTextCodec::codecForUtfText(bytes)->toUnicode(bytes);
      QVERIFY(saved.contains(root) && saved.contains("<ERROR>"));
    }
  }

  void failedSaveLeavesTheFile() {
    const CWorkplace workplace;
    const QMap<QString, QByteArray> before = workplace.files();
    const SRun run = workplace.run({"set", "Odd.xparam", "Loose=a\x1b[31mb"});
    QCOMPARE(run.status, 3);
    QCOMPARE(run.err,
             "ktoparam: Odd.xparam: <Param> \"Loose\": the text of <Value> holds the "
             "character \\u001B, which XML cannot hold.\n");
    QCOMPARE(run.out, "");
    QVERIFY(workplace.files() == before);
  }

  void tellsWhatASaveLost() {
    const CWorkplace workplace;
    const QString other = "setpriv --reuid 101 --regid 201 --clear-groups ktoparam ";
    const QString prepare = "chmod 777 . && chown 100:200 Odd.xparam && ";
    if (workplace.shell(prepare + other + "--version").status != 0)
      QSKIP("Nobody else can run the tool here.");
    const SRun run = workplace.shell(other + "set Odd.xparam Loose=x");
    QCOMPARE(run.err,
             "ktoparam: Odd.xparam: the file is saved, but these could not be kept: owner, "
             "group.\n");
    QCOMPARE(run.status, 0);
  }

  void refusesWordsThatAreNoText() {
    const CWorkplace workplace;
    const QMap<QString, QByteArray> before = workplace.files();
    for (const char* word : {"Loose=\\377", "\\357\\273\\277Loose=x"}) {
      const SRun run =
          workplace.shell(QString("ktoparam set Odd.xparam \"$(printf '%1')\"").arg(word));
      QVERIFY(run.err.endsWith(": this is not valid text in the encoding of the locale.\n"));
      QCOMPARE(run.status, 2);
    }
    QVERIFY(workplace.files() == before);
  }

  void bearsHostileFiles_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    const QString ends("a{100}…#[0-9a-f]{32}…a{100}");
    addRow("a name of 1001 characters", "values H \"$(param $(letters 1001))\"; ktoparam text F", 0,
           "\nH\\[0\\]/" + ends + " = 1\n$", "");
    addRow("of 1000", "values H \"$(param $(letters 1000))\"; ktoparam text F", 0,
           "\nH\\[0\\]/a{1000} = 1\n$", "");
    addRow("names that differ in the middle",
           "letters=$(letters 500)\n"
           "values H \"$(param ${letters}x$letters)$(param ${letters}y$letters)\"\n"
           "ktoparam export F --format csv | cut -d , -f 4 | sort -u | wc -l",
           0, "^3\n$", "");
    addRow("a path, and a value as it is",
           "values H \"$(groups 3 400)$(param p $(letters 3000))</Group></Group></Group>\"\n"
           "ktoparam export F --format tsv",
           0, "\nH\t0\t" + ends + "\tp\t\ta{3000}\n$", "");
    addRow(
        "more than 20 times the file",
        "values H \"$(groups 1 990)$(seq -f $(param p%g) 2000)</Group>\"\n"
        "ktoparam export F --format csv | tail -n 1 | grep -c 'p[0-9]*,,1$'\n"
        "ktoparam export F --format csv >results; status=$?\n"
        "test $(wc -c <results) -le $((20 * $(wc -c <F) + 4096)) && exit $status",
        3, "^1\n$",
        "(ktoparam: the results are cut off here, since they are more than 20 times as long as the "
        "files\\.\n){2}");
    addRow("settings 200 levels deep", "settings 199; ktoparam show F --json | head -c 1", 0,
           "^\\{$", "");
    addRow("settings 201 levels deep", "settings 200; ktoparam show F --json", 3, "^$",
           "ktoparam: F: the settings are nested deeper than 200 levels, which is too deep for "
           "JSON; \"ktoparam text\" prints them\\.\n");
    addRow("a pattern that fits in many ways",
           "values H \"$(param $(letters 900))\"; timeout 20 ktoparam defaults F '*a*a*a*a*a*a*b' "
           "--def TwoAxisDrive.xpdef",
           1, "^$", "ktoparam: F: no parameter matches \"\\*a.*b\"\\.\n");
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    addRow("less and less memory",
           "values H \"$(seq -f $(param p%g) 20000)\"\n"
           "for size in $(seq 130000 -5000 60000); do\n"
           "  (ulimit -v $size; ktoparam export F --format json 2>&1 >/dev/null; echo $?)\n"
           "done | sort -u",
           0,
           "^0\n3\n(ktoparam: F: .*\n)*ktoparam: there is not enough memory for these files\\.\n",
           "");
#endif
  }
  void bearsHostileFiles() {
    QFETCH(QString, script);
    const SRun run = CWorkplace().shell(
        "letters() { printf %0$1d 0 | tr 0 a; }\n"
        "param() { printf '<Param><Name>%s</Name><Value>%s</Value></Param>' $1 ${2:-1}; }\n"
        "groups() { for i in $(seq $1); do printf '<Group><Name>%s</Name>' $(letters $2); done; }\n"
        "values() { printf '<LumoParameters version=\"1.0\">\\n<Data hardwareId=\"%s\"><SubDevice "
        "id=\"0\">%s</SubDevice></Data></LumoParameters>' \"$1\" \"$2\" >F; }\n"
        "settings() { printf '<C_SETTINGS_FORMAT Version=\"1.0\">%s<v Type=\"INT8\">1</v>%s"
        "</C_SETTINGS_FORMAT>' $(printf '<g>%.0s' $(seq $1)) $(printf '</g>%.0s' $(seq $1)) >F; "
        "}\n" +
        script);
    QTEST(run.status, "status");
    QFETCH(QString, out);
    QFETCH(QString, err);
    QVERIFY2(QRegularExpression(out).match(run.out).hasMatch(), qPrintable(run.out.left(5000)));
    QVERIFY2(QRegularExpression("^" + err + "$").match(run.err).hasMatch(), qPrintable(run.err));
  }

  void reportsResultsThatCannotBeWritten() {
    if (!QFile::exists("/dev/full")) QSKIP("There is no /dev/full here.");
    const SRun run = CWorkplace().run({"detect", "Odd.xparam"}, "/dev/full");
    QCOMPARE(run.status, 3);
    QVERIFY(run.err.startsWith("ktoparam: the results could not be written: "));
  }
};

QTEST_GUILESS_MAIN(tst_ktoparam)
#include "tst_ktoparam.moc"
