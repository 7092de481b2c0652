#include "AnalysisFiles.h"
#include "CParameterFileMerge.h"
#include "GoldenFiles.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace NAnalysisFiles;

namespace {

/// "kind subject hardware id:sub-device group/name base>ours|theirs" of each.
QStringList texts(const CMergeConflicts& conflicts) {
  QStringList result;
  for (const SMergeConflict& c : conflicts) {
    result += QStringLiteral("%1 %2 %3:%4 %5/%6 %7>%8|%9")
                  .arg(SMergeConflict::kindText(c.kind), SMergeConflict::subjectText(c.subject),
                       c.hardwareId, QString::number(c.subDevId), c.groupPath, c.name, c.base,
                       c.ours, c.theirs);
  }
  return result;
}

struct SMerge {
  CParameterFilePtr base;
  CParameterFilePtr ours;
  CParameterFilePtr theirs;
  CParameterFileMerge merge{*base, *ours, *theirs};
};

using CEdit = std::function<void(QStringList& tokens)>;

int find(const QStringList& tokens, const QString& prefix) {
  for (int i = 0; i < tokens.size(); ++i)
    if (tokens.at(i).startsWith(prefix)) return i;
  return -1;
}

/// Puts other tokens in the place of the one with this prefix, or after it.
void replace(QStringList& tokens, const QString& prefix, const QStringList& by, bool isKept) {
  const int index = find(tokens, prefix);
  if (index < 0 || (isKept && find(tokens, by.first()) >= 0)) return;
  const QStringList kept = isKept ? QStringList(tokens.at(index)) : QStringList();
  tokens = tokens.mid(0, index) + kept + by + tokens.mid(index + 1);
}

/// Within a sub-device.
void move(QStringList& tokens, const QString& prefix, const QString& after) {
  const int from = find(tokens, prefix);
  const int to = find(tokens, after);
  static const QRegularExpression place("^\\[.*");
  const bool isOfOne = tokens.lastIndexOf(place, from) == tokens.lastIndexOf(place, to);
  if (from < 0 || to < 0 || !isOfOne) return;
  const QString token = tokens.takeAt(from);
  tokens.insert(find(tokens, after) + 1, token);
}

void removeGroup(QStringList& tokens, int from) {
  const int end = tokens.indexOf(")", from);
  const int group = tokens.lastIndexOf(QRegularExpression(".*\\($"), end);
  if (end >= 0) tokens.erase(tokens.begin() + group, tokens.begin() + end + 1);
}

/// Edits of a file's tokens by hand, all at random.
class CHand {
 public:
  explicit CHand(unsigned seed) : mRandom(seed) {}

  int below(int end) { return mRandom.bounded(end); }

  /// Chunks of a pin K and three free parameters F, in turn of side 0 and side 1, in groups at
  /// random; sub-devices 1 and 2 of A and B.
  QStringList base(bool hasOneGroupName) {
    QStringList tokens;
    for (const char* place : {"[A:1]", "[A:2]", "[B:1]", "[B:2]"}) {
      tokens += place;
      int depth = 0;
      for (int chunk = 0; chunk < 8; ++chunk) {
        const QString number = QString::number(mChunks++);
        tokens += "K" + number + "=0";
        for (const char* each : {"a", "b", "c"}) tokens += "F" + number + each + "=0";
        const bool goesOut = depth > 0 && below(3) == 0;
        if (!goesOut && below(3) != 0) continue;
        tokens += goesOut ? QString(")") : "G" + (hasOneGroupName ? QString() : number) + "(";
        depth += goesOut ? -1 : 1;
      }
      for (; depth > 0; --depth) tokens += ")";
    }
    return tokens;
  }

  /// An edit that touches one side's chunks only: places are after its pins. Or one of anything.
  CEdit edit(int side, bool isOfAnything = false) {
    const int number = 2 * below(mChunks / 2) + side;
    const QString own = "F" + QString::number(number) + "abc"[below(3)];
    const QString pin = "K" + QString::number(isOfAnything ? below(mChunks) : number) + "=";
    const QString value = QString::number(below(3));
    const QString fresh = QString::number(2 * below(50) + side);
    const QStringList group{"G" + fresh + "n(", "H(", ")", "M" + fresh + "=2", ")"};
    const int from = below(100);
    const CEdit edits[] = {[=](QStringList& t) { replace(t, own, {own + "#7=" + value}, false); },
                           [=](QStringList& t) { replace(t, pin, {pin + value}, false); },
                           [=](QStringList& t) { replace(t, own, {}, false); },
                           [=](QStringList& t) { move(t, own, pin); },
                           [=](QStringList& t) { replace(t, pin, {"N" + fresh + "=1"}, true); },
                           [=](QStringList& t) { replace(t, pin, group, true); },
                           [=](QStringList& t) { replace(t, pin, {}, false); },
                           [=](QStringList& t) { removeGroup(t, from); }};
    return edits[below(isOfAnything ? 8 : 6)];
  }

 private:
  QRandomGenerator mRandom;
  int mChunks = 0;
};

}  // namespace

class tst_CParameterFileMerge : public QObject {
  Q_OBJECT

 private slots:
  void merges_data() { NGoldenFiles::addCases("analysis/merges.cases"); }
  void merges() {
    QFETCH(NGoldenFiles::CCase, parts);
    const auto file = [&parts](const char* key) { return fromText(NGoldenFiles::one(parts, key)); };
    SMerge files{file("base"), file("ours"), file("theirs")};
    QVERIFY(files.merge.run());
    QCOMPARE(toText(*files.ours), toText(*file("result")));
    QCOMPARE(texts(files.merge.conflicts()), parts["conflict"]);
    QCOMPARE(toText(*files.theirs), toText(*file("theirs")));
  }

  void marksAndSelects() {
    SMerge files{fromText("[A:1] X=1 [B:1] X=1 [C:1] X=1"),
                 fromText("[A:1] X=1 [B:1] X=1 Y=1 [C:1] X=1 Z=1"),
                 fromText("[B:1] X=2 Y=2 [C:1] X=1")};
    ICParameterFile& ours = *files.ours;
    for (const auto& name : {"X", "Y"})
      treesOf(ours).at("B").at(1).node(name)->setProperty(NParamDef::PROPERTY_CHANGED, true);
    QVERIFY(files.merge.run());
    QCOMPARE(ours.changedList(), QStringList({"A", "B"}));
    QCOMPARE(files.merge.conflicts().first().text(),
             QString("Added as \"1\" in ours, and as \"2\" in theirs."));
    QCOMPARE(ours.hardwareId(), QString("B"));
    for (const char* name : {"X", "Y"}) {
      ICParamTreeNode* node = ours.rootGroup(1)->childPtr(QString(name));
      QVERIFY(node->property(NParamDef::PROPERTY_CHANGED).toBool());
      QCOMPARE(ours.findParameter(ours.rootGroup(1), name), node);
    }
  }

  /// Whoever merges into whom, and to the byte in the saved files.
  void equalsBothEditsByHand() {
    const QTemporaryDir folder;
    const QString names[] = {folder.filePath("merged"), folder.filePath("by hand")};
    for (unsigned seed = 0; seed < 300; ++seed) {
      CHand hand(seed);
      const QStringList base = hand.base(true);
      QStringList sides[] = {base, base};
      QStringList both = base;
      for (int i = hand.below(40); i >= 0; --i) {
        const int side = hand.below(2);
        const auto edit = hand.edit(side);
        edit(sides[side]);
        edit(both);
      }
      const auto expected = fromTokens(both);
      for (const int side : {0, 1}) {
        SMerge files{fromTokens(base), fromTokens(sides[side]), fromTokens(sides[1 - side])};
        QVERIFY(files.merge.run() && files.merge.conflicts().isEmpty());
        QVERIFY2(toText(*files.ours) == toText(*expected), qPrintable(QString::number(seed)));
        if (seed % 30 != 0) continue;
        QVERIFY2(files.ours->saveParamFile(names[0], QString(), 0x10000),
                 qPrintable(files.ours->errorMsg()));
        QVERIFY(expected->saveParamFile(names[1], QString(), 0x10000));
        QCOMPARE(NTestFiles::read(names[0]), NTestFiles::read(names[1]));
      }
    }
  }

  /// With edits of anything: what one side did stays exactly, and merging twice adds nothing.
  void takesOneSideAsItIs() {
    for (unsigned seed = 0; seed < 300; ++seed) {
      CHand hand(seed);
      const QStringList base = hand.base(false);
      QStringList one = base;
      QStringList other = base;
      for (int i = hand.below(40); i >= 0; --i)
        hand.edit(hand.below(2), true)(hand.below(2) == 0 ? one : other);
      const auto result = [&base](const QStringList& ours, const QStringList& theirs) {
        SMerge files{fromTokens(base), fromTokens(ours), fromTokens(theirs)};
        return files.merge.run() ? toText(*files.ours) : QString();
      };
      // A third parameter keeps the trees from being equal as a whole.
      const auto touched = [](QStringList tokens) {
        tokens.insert(1, "Q=1");
        return tokens;
      };
      QCOMPARE(result(touched(base), one), toText(*fromTokens(touched(one))));
      QCOMPARE(result(base, one), toText(*fromTokens(one)));
      const QString merged = result(one, other);
      QCOMPARE(result(merged.split(' '), other), merged);
    }
  }
};

QTEST_GUILESS_MAIN(tst_CParameterFileMerge)
#include "tst_CParameterFileMerge.moc"
