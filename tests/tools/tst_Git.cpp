#include "CWorkplace.h"

#include <QStandardPaths>
#include <QtTest>

namespace {

/// The lines of the README's code block that follows a text.
QStringList readmeBlock(const QString& behind) {
  const QString readme = QString::fromUtf8(NTestFiles::read(KTO_README));
  return readme.section(behind, 1).section("```", 1, 1).split('\n', Qt::SkipEmptyParts).mid(1);
}

/// A repository with the example files, set up with what the README tells and nothing else.
class CRepository {
 public:
  CRepository() {
    const QString attributes = readmeBlock("`.gitattributes`").join('\n') + '\n';
    NTestFiles::write(mPlace.path(".gitattributes"), attributes.toUtf8());
    git("init --quiet --initial-branch=main");
    for (const QString& line : readmeBlock("`git config`")) git(line.section(' ', 1));
    commit("Begin");
  }

  /// Without the settings of whoever runs the test.
  SRun git(const QString& words) const {
    return mPlace.shell(
        "export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_NOSYSTEM=1"
        " GIT_AUTHOR_NAME=Test GIT_AUTHOR_EMAIL=test@example.org"
        " GIT_COMMITTER_NAME=Test GIT_COMMITTER_EMAIL=test@example.org; git " +
        words);
  }

  bool commit(const QString& message) const {
    return git("add --all").status == 0 && git("commit --quiet -m " + message).status == 0;
  }

  /// With "ktoparam set", in the first hardware id and sub-device 2.
  bool set(const QString& assignment) const {
    return mPlace
               .runLine("set TwoAxisDrive.xparam " + assignment +
                        " --hardware-id KTO-2A-16 --sub-device 2")
               .status == 0;
  }
  QByteArray content() const { return NTestFiles::read(mPlace.path("TwoAxisDrive.xparam")); }

  /// A branch "other" with one edit and "main" with another.
  bool diverge(const char* others, const char* mine) const {
    return git("checkout --quiet -b other").status == 0 && set(others) && commit("Other") &&
           git("checkout --quiet main").status == 0 && set(mine) && commit("Mine");
  }

 private:
  CWorkplace mPlace;
};

}  // namespace

class tst_Git : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    if (QStandardPaths::findExecutable("git").isEmpty()) QSKIP("There is no git here.");
  }

  void diffsAreReadable() {
    const CRepository repository;
    QVERIFY(repository.set("VelocityLimit=900"));
    const SRun diff = repository.git("diff");
    QCOMPARE(diff.status, 0);
    // Removed and added lines, without those that name the file.
    const QRegularExpression changed("^[-+](?!(--|\\+\\+) )");
    QCOMPARE(diff.out.split('\n').filter(changed),
             QStringList({"-KTO-2A-16[2]/Motion/Limits/VelocityLimit (4413) = 1000",
                          "+KTO-2A-16[2]/Motion/Limits/VelocityLimit (4413) = 900"}));
  }

  void mergesAndReportsConflicts() {
    const CRepository byHand;
    QVERIFY(byHand.set("VelocityLimit=900") && byHand.set("FeedConstant=12.5"));
    const CRepository repository;
    QVERIFY(repository.diverge("VelocityLimit=900", "FeedConstant=12.5"));
    SRun merge = repository.git("merge --quiet --no-edit other");
    QVERIFY2(merge.status == 0, qPrintable(merge.out + merge.err));
    QVERIFY(repository.content() == byHand.content());

    QVERIFY(repository.git("branch --quiet -d other").status == 0);
    QVERIFY(repository.diverge("VelocityLimit=700", "VelocityLimit=800"));
    const QByteArray mine = repository.content();
    merge = repository.git("merge --quiet --no-edit other");
    QCOMPARE(merge.status, 1);
    QVERIFY2(merge.out.contains("VelocityLimit"), qPrintable(merge.out));
    QCOMPARE(repository.git("status --short --untracked-files=no").out, "UU TwoAxisDrive.xparam\n");
    QVERIFY(repository.content() == mine);
  }
};

QTEST_GUILESS_MAIN(tst_Git)
#include "tst_Git.moc"
