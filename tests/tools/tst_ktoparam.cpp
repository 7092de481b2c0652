#include "ICCompensationFile.h"
#include "ICParameterFile.h"
#include "ICSettingsFile.h"
#include "KeptMessages.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QDirIterator>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int kPatienceMs = 300000;  // a machine that checks may be slow

/// How a command ended, and what it wrote.
struct SRun {
  int status;
  QString out;
  QString err;
};

/// A folder of its own with copies of the example files, their folders, and those in "files".
class CWorkplace {
 public:
  /// Commands run in the locale, which need not be installed on the machine.
  explicit CWorkplace(const QString& locale = "C") {
    for (const char* folder : {KTO_EXAMPLE_DATA, KTO_TOOL_TESTS "/files"}) {
      QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
      while (files.hasNext()) {
        const QString copy = path(QDir(folder).relativeFilePath(files.next()));
        QDir().mkpath(QFileInfo(copy).path());
        QFile::copy(files.filePath(), copy);
      }
    }
    mEnvironment.insert("LC_ALL", locale);
    mEnvironment.remove("LANGUAGE");
    mEnvironment.insert("LOCPATH", KTO_LOCALES);
    mEnvironment.insert("PATH", QFileInfo(KTO_TOOL).path() + ':' + mEnvironment.value("PATH"));
    mEnvironment.insert("BASH_ENV", KTO_TOOL_TESTS "/functions.bash");
    mEnvironment.insert("README", KTO_README);
  }

  /// A command of bash, for which "ktoparam" is the one that was built.
  SRun run(const QString& command) const {
    QProcess process;
    process.setWorkingDirectory(mFolder.path());
    process.setProcessEnvironment(mEnvironment);
    process.start("bash", {"-o", "pipefail", "-c", command});
    if (!process.waitForFinished(kPatienceMs) || process.exitStatus() != QProcess::NormalExit)
      return {-1, {}, {}};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }

  QString path(const QString& name) const { return mFolder.filePath(name); }
  void write(const QString& name, const QString& text) const {
    QFile file(mFolder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0);
  }

  QMap<QString, QByteArray> files() const {
    QMap<QString, QByteArray> contents;
    for (const auto& file : QDir(mFolder.path()).entryInfoList(QDir::Files | QDir::Hidden))
      contents.insert(file.fileName(), NTestFiles::read(file.filePath()));
    return contents;
  }

 private:
  QProcessEnvironment mEnvironment = QProcessEnvironment::systemEnvironment();
  QTemporaryDir mFolder;
};

/// A command of a session file and what it must give. The lines of a session are "$ command",
/// "| result", "! message", "= exit status" when it is not 0, "? command" which must succeed for
/// the rest to make sense on a machine, and "# comment".
struct SStep {
  QString command;
  SRun run;
  bool isCondition;
};

QVector<SStep> readSession(const QString& fileName) {
  QVector<SStep> steps;
  for (const QString& line : QString::fromUtf8(NTestFiles::read(fileName)).split('\n')) {
    const QString text = line.mid(2);
    if (line.startsWith('$') || line.startsWith('?'))
      steps.append({text, {0, "", ""}, line.startsWith('?')});
    if (line.startsWith('|')) steps.last().run.out += text + '\n';
    if (line.startsWith('!')) steps.last().run.err += text + '\n';
    if (line.startsWith('=')) steps.last().run.status = text.toInt();
  }
  return steps;
}

/// Whether a command of the tool alone changes files.
bool changesFiles(const SStep& step) {
  const QStringList words = QProcess::splitCommand(step.command);
  const QString command = words.value(1);
  if (command == "merge") return step.run.status <= 1;
  const bool isEdit =
      (command == "migration" && words.contains("-o")) ||
      QStringList({"set", "import", "defaults", "new", "migrate"}).contains(command) ||
      (QStringList({"hardware-id", "sub-device"}).contains(command) && words.value(2) != "list");
  const bool isDone = step.run.status == 0 || step.run.err.contains("they were saved all the same");
  return isEdit && isDone && !words.contains("--dry-run");
}

/// What a rule of a grammar gives, see alike.grammar.
QString expanded(const QMap<QString, QStringList>& grammar, const QString& rule,
                 QRandomGenerator& random) {
  const QStringList& choices = grammar[rule];
  QString text = choices.at(random.bounded(choices.size()));
  for (int i = text.indexOf('$'); i >= 0; i = text.indexOf('$', i)) {
    const QString part = expanded(grammar, text.mid(i + 1, 1), random);
    text.replace(i, 2, part);
    i += part.size();
  }
  return text;
}

/// As lines, so that a test shows the one that differs.
QStringList lines(const QString& command, const SRun& run) {
  return QStringList(command) + run.out.split('\n') + run.err.split('\n') +
         QStringList(QString::number(run.status));
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

}  // namespace

class tst_ktoparam : public QObject {
  Q_OBJECT

 private slots:
  void followsSessions_data() {
    QTest::addColumn<QString>("fileName");
    for (const QFileInfo& file : QDir(KTO_TOOL_TESTS "/sessions").entryInfoList(QDir::Files))
      addRow(qPrintable(file.fileName()), file.filePath());
  }
  void followsSessions() {
    QFETCH(QString, fileName);
    const QVector<SStep> steps = readSession(fileName);
    QVERIFY(!steps.isEmpty());
    const CWorkplace workplace(fileName.endsWith(".de.session") ? "de_DE.UTF-8" : "C");
    for (const SStep& step : steps) {
      const QMap<QString, QByteArray> before = workplace.files();
      const SRun run = workplace.run(step.command);
      if (step.isCondition && run.status != 0) QSKIP(qPrintable(step.command));
      if (step.isCondition) continue;
      QCOMPARE(lines(step.command, run), lines(step.command, step.run));
      if (step.command.startsWith("ktoparam "))
        QVERIFY2((workplace.files() != before) == changesFiles(step), qPrintable(step.command));
    }
  }

  void textTellsFilesApart() {
    QMap<QString, QStringList> grammar;
    for (const QString& line :
         QString(NTestFiles::read(KTO_TOOL_TESTS "/alike.grammar")).split('\n'))
      if (!line.startsWith('#')) grammar[line.left(1)] += line.mid(2);
    const CWorkplace workplace;
    QRandomGenerator random(1);
    QSet<QString> contents;
    while (contents.size() < 10000) contents.insert(expanded(grammar, "F", random));
    int count = 0;
    for (const QString& content : qAsConst(contents))
      NTestFiles::write(workplace.path(QString::number(count++)), content.toUtf8());
    const SRun run = workplace.run("ktoparam text {0..9999}");
    QCOMPARE(run.err, "");
    QMap<QString, QString> texts;  // by file
    for (const QString& line : run.out.split('\n', Qt::SkipEmptyParts))
      texts[line.section(": ", 0, 0)] += line.section(": ", 1) + '\n';
    QMap<QString, QString> files;  // by text
    for (auto i = texts.cbegin(); i != texts.cend(); ++i) {
      const QString other = files.value(i.value());
      QVERIFY2(other.isNull(),
               qPrintable(i.value() + "by " + contents.values().at(i.key().toInt()) + "\nand " +
                          contents.values().at(other.toInt())));
      files.insert(i.value(), i.key());
    }
    QCOMPARE(files.size(), contents.size());
  }

  void knowsEveryFileThatLoads() {
    const SKeptMessages quiet;
    QString command = "ktoparam detect";
    for (const char* folder : {KTO_TEST_DATA, KTO_TOOL_TESTS "/files", KTO_CORPUS})
      for (QDirIterator i(folder, QDir::Files, QDirIterator::Subdirectories); i.hasNext();)
        if (loads(i.next())) command += " '" + i.filePath() + '\'';
    QVERIFY(command.count('\'') > 200);
    const SRun run = CWorkplace().run(command);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, "");
  }

  /// Whatever names and values hold, a table takes them to another file.
  void keepsTextsInTables() {
    const QString pieces = QString::fromUtf8("=+-@\t\r\n'\",; 1eä…#\\");
    QRandomGenerator random(1);
    QString files[2];
    for (int i = 0; i < 3000; ++i) {
      QString texts[2];
      for (QString& text : texts)
        for (int size = random.bounded(6); size > 0; --size)
          text += QString("&#%1;").arg(pieces.at(random.bounded(pieces.size())).unicode());
      for (QString& file : files)
        file += QString("<Param><Name>%1_%2</Name><Value>%3</Value></Param>")
                    .arg(texts[0], QString::number(i), &file == files ? texts[1] : "x");
    }
    const CWorkplace workplace;
    for (int i = 0; i < 2; ++i)
      workplace.write(i == 0 ? "A" : "B",
                      "<LumoParameters version='1.0'><Data hardwareId='=H'><SubDevice id='0'>" +
                          files[i] + "</SubDevice></Data></LumoParameters>");
    const SRun run = workplace.run(
        "cp A Before && ktoparam export A --format csv >Table && ktoparam import A --csv Table && "
        "cmp A Before && ktoparam import B --csv Table >/dev/null && ktoparam diff A B");
    QCOMPARE(lines("", run), lines("", {0, "changed 0, equal 3000, skipped 0\n", ""}));
  }

  void documentedCommandsWork_data() {
    QTest::addColumn<QString>("commands");
    const CWorkplace workplace;
    const QRegularExpression command("^  ([a-z][a-z-]+(?: [a-z]+)?)  +[A-Z]",
                                     QRegularExpression::MultilineOption);
    for (auto i = command.globalMatch(workplace.run("ktoparam help").out); i.hasNext();) {
      const QString name = i.next().captured(1);
      const QString help = workplace.run("ktoparam help " + name).out;
      addRow(qPrintable(name), help.section("Example:\n", 1));
    }
    const QString readme = QString::fromUtf8(NTestFiles::read(KTO_README));
    const QRegularExpression block("```sh\n(?:cd .*\n)?([^`]*\nktoparam [^`]*)```");
    QString script;
    for (auto i = block.globalMatch(readme); i.hasNext();) script += i.next().captured(1);
    addRow("README", script);
  }
  void documentedCommandsWork() {
    QFETCH(QString, commands);
    QVERIFY(commands.contains("ktoparam "));
    // Examples compare and merge other states of the example drive.
    const SRun run = CWorkplace().run(
        "for name in Delivered Base Ours Theirs; do cp TwoAxisDrive.xparam $name.xparam; done\n" +
        commands);
    const QString found = "ktoparam: [^:]*: the definitions are those of [^:]*\\.xpdef\\.\n";
    QCOMPARE(QString(run.err).remove(QRegularExpression(found)), "");
    QVERIFY(run.status <= 1);  // a comparison may find differences
  }
};

QTEST_GUILESS_MAIN(tst_ktoparam)
#include "tst_ktoparam.moc"
