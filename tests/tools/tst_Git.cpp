#include "CWorkplace.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QtTest>

namespace {

const QLatin1String kFile("TwoAxisDrive.xparam");

/// The code block of the README that follows a line with the given text.
QStringList readmeBlock(const QString& behind) {
  const QString readme = QString::fromUtf8(NTestFiles::read(QStringLiteral(KTO_README)));
  return readme.section(behind, 1)
      .section(QStringLiteral("```"), 1, 1)
      .split(QLatin1Char('\n'), Qt::SkipEmptyParts)
      .mid(1);
}

QString joined(const QStringList& lines) {
  return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

/// A repository with the example files, set up with what the README tells and nothing else.
class CRepository {
 public:
  CRepository() {
    NTestFiles::write(mPlace.path(QStringLiteral(".gitattributes")),
                      joined(readmeBlock(QStringLiteral("`.gitattributes`"))).toUtf8());
    git("init --quiet --initial-branch=main");
    for (const QString& line : readmeBlock(QStringLiteral("`git config`"))) {
      git(line.section(QLatin1Char(' '), 1));
    }
    commit("Begin");
  }

  SRun git(const QString& words) const {
    QProcess process;
    process.setWorkingDirectory(mPlace.path({}));
    process.setProcessEnvironment(environment());
    process.start(QStringLiteral("git"), QProcess::splitCommand(words));
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
      return {-1, {}, {}};
    }
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }
  SRun git(const char* words) const { return git(QString::fromLatin1(words)); }

  bool commit(const char* message) const {
    return git("add --all").status == 0 &&
           git(QStringLiteral("commit --quiet -m \"%1\"").arg(QLatin1String(message))).status == 0;
  }

  /// With "ktoparam set", in the first hardware id and sub-device 2.
  bool set(const char* assignment) const {
    return mPlace
               .run({QStringLiteral("set"), kFile, QString::fromLatin1(assignment),
                     QStringLiteral("--hardware-id"), QStringLiteral("KTO-2A-16"),
                     QStringLiteral("--sub-device"), QStringLiteral("2")})
               .status == 0;
  }
  QByteArray content() const { return NTestFiles::read(mPlace.path(kFile)); }

  /// A branch "other" with one edit and "main" with another.
  bool diverge(const char* others, const char* mine) const {
    return git("checkout --quiet -b other").status == 0 && set(others) && commit("Other") &&
           git("checkout --quiet main").status == 0 && set(mine) && commit("Mine");
  }

 private:
  /// Without the settings of whoever runs the test; "ktoparam" is the one that was built.
  static QProcessEnvironment environment() {
    QProcessEnvironment values = QProcessEnvironment::systemEnvironment();
    const QString tools = QFileInfo(QStringLiteral(KTO_TOOL)).path();
    values.insert(QStringLiteral("PATH"),
                  tools + QLatin1Char(':') + values.value(QStringLiteral("PATH")));
    values.insert(QStringLiteral("GIT_CONFIG_GLOBAL"), QStringLiteral("/dev/null"));
    values.insert(QStringLiteral("GIT_CONFIG_NOSYSTEM"), QStringLiteral("1"));
    for (const char* who : {"AUTHOR", "COMMITTER"}) {
      const QString prefix = QStringLiteral("GIT_%1_").arg(QLatin1String(who));
      values.insert(prefix + QLatin1String("NAME"), QStringLiteral("Test"));
      values.insert(prefix + QLatin1String("EMAIL"), QStringLiteral("test@example.org"));
    }
    values.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    return values;
  }

  CWorkplace mPlace;
};

/// The lines of a diff that were removed or added, without those that name the file.
QStringList changedLines(const QString& diff) {
  return diff.split(QLatin1Char('\n'))
      .filter(QRegularExpression(QStringLiteral("^[-+]")))
      .filter(QRegularExpression(QStringLiteral("^(?!(---|\\+\\+\\+) )")));
}

}  // namespace

class tst_Git : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase();
  void diffsAreReadable();
  void mergesDifferentParameters();
  void reportsConflicts();
};

void tst_Git::initTestCase() {
  if (QStandardPaths::findExecutable(QStringLiteral("git")).isEmpty()) {
    QSKIP("There is no git here.");
  }
}

void tst_Git::diffsAreReadable() {
  const CRepository repository;
  QVERIFY(repository.set("VelocityLimit=900"));
  const SRun diff = repository.git("diff");
  QCOMPARE(diff.status, 0);
  QCOMPARE(changedLines(diff.out),
           QStringList({QStringLiteral("-KTO-2A-16[2]/Motion/Limits/VelocityLimit (4413) = 1000"),
                        QStringLiteral("+KTO-2A-16[2]/Motion/Limits/VelocityLimit (4413) = 900")}));
}

void tst_Git::mergesDifferentParameters() {
  const CRepository byHand;
  QVERIFY(byHand.set("VelocityLimit=900"));
  QVERIFY(byHand.set("FeedConstant=12.5"));

  const CRepository repository;
  QVERIFY(repository.diverge("VelocityLimit=900", "FeedConstant=12.5"));
  const SRun merge = repository.git("merge --quiet --no-edit other");
  QVERIFY2(merge.status == 0, qPrintable(merge.out + merge.err));
  QVERIFY(repository.content() == byHand.content());
}

void tst_Git::reportsConflicts() {
  const CRepository repository;
  QVERIFY(repository.diverge("VelocityLimit=900", "VelocityLimit=800"));
  const QByteArray mine = repository.content();
  const SRun merge = repository.git("merge --quiet --no-edit other");
  QCOMPARE(merge.status, 1);
  QVERIFY2(merge.out.contains(QLatin1String("VelocityLimit")), qPrintable(merge.out));
  QCOMPARE(repository.git("status --short --untracked-files=no").out,
           QStringLiteral("UU TwoAxisDrive.xparam\n"));
  QVERIFY(repository.content() == mine);
}

QTEST_GUILESS_MAIN(tst_Git)
#include "tst_Git.moc"
