#include "AnalysisFiles.h"
#include "CParameterFileComparison.h"
#include "CaseFile.h"
#include "NShortText.h"
#include "ParamFileText.h"

#include <QtTest>

using namespace NAnalysisFiles;

namespace {

QStringList texts(const CParamDifferences& differences) {
  QStringList result;
  for (const SParamDifference& d : differences) {
    result +=
        QStringLiteral("%1 %2:%3 %4 [%5>%6] %7>%8")
            .arg(SParamDifference::kindText(d.kind), d.hardwareId, QString::number(d.subDevId),
                 d.name, d.oldGroupPath, d.newGroupPath, d.oldValue, d.newValue);
  }
  return result;
}

}  // namespace

class tst_CParameterFileComparison : public QObject {
  Q_OBJECT

 private slots:
  void keepsLongPathsOnceAndShort() {
    const QString name(1001, 'g');
    const CParameterFilePtr before = fromText("[A:1] X=1 Y=1");
    const CParameterFilePtr after = fromText("[A:1] " + name + "( X=1 Y=1 )");
    const CParamDifferences moved = CParameterFileComparison::compare(*before, *after);
    QCOMPARE(moved.size(), 2);
    QCOMPARE(moved.at(0).newGroupPath, NShortText::of(name));
    QVERIFY(moved.at(0).newGroupPath.constData() == moved.at(1).newGroupPath.constData());
  }

  void listsDifferences_data() { NCaseFile::addRows("analysis/differences.cases"); }
  void listsDifferences() {
    QFETCH(NCaseFile::CCase, parts);
    const auto oldFile = fromText(NCaseFile::one(parts, "old"));
    const auto newFile = fromText(NCaseFile::one(parts, "new"));
    const QStringList expected = parts["difference"];
    QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile, newFile.get())), expected);
    const auto back = texts(CParameterFileComparison::compare(*newFile, *oldFile, newFile.get()));
    QCOMPARE(back.size(), expected.size());
    QCOMPARE(back.filter("removed").size(), expected.filter("added").size());
  }

  void comparesTwoVariantsAndRestores() {
    const auto file = fromText("[A:1] X=1 Y=1 [B:1] X=1 Y=2");
    file->addHardwareId("empty");
    const QString before = NParamFileText::all(*file);
    QCOMPARE(texts(CParameterFileComparison::compareHardwareIds(*file, "A", *file, "B")),
             QStringList("value-changed B:1 Y [>] 1>2"));
    QCOMPARE(texts(CParameterFileComparison::compareHardwareIds(*file, "A", *file, "none")),
             QStringList("sub-device-removed none:1  [>] >"));
    QVERIFY(CParameterFileComparison::compare(*file, *file).isEmpty());
    QCOMPARE(NParamFileText::all(*file), before);
  }
};

QTEST_GUILESS_MAIN(tst_CParameterFileComparison)
#include "tst_CParameterFileComparison.moc"
