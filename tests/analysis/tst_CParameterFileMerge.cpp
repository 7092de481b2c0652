#include "AnalysisFiles.h"
#include "CParameterFileMerge.h"
#include "CaseFile.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

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

QByteArray saved(ICParameterFile& file, const QTemporaryDir& folder) {
  const bool isSaved = file.saveParamFile(folder.filePath("f"), QString(), 0x10000);
  return isSaved ? NTestFiles::read(folder.filePath("f")) : QByteArray();
}

/// A file as it is after saving and loading.
CFilePtr reloaded(ICParameterFile& file, const QTemporaryDir& folder) {
  CFilePtr copy(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  saved(file, folder);
  return copy->loadParamFile(folder.filePath("f"), QString(), 0x10000) ? std::move(copy) : nullptr;
}

struct SMerge {
  CFilePtr base;
  CFilePtr ours;
  CFilePtr theirs;
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
  const QRegularExpression place("^\\[.*");
  if (from < 0 || to < 0 || tokens.lastIndexOf(place, from) != tokens.lastIndexOf(place, to))
    return;
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

  /// An edit that touches one side's chunks only: places are after its pins.
  CEdit edit(int side) {
    const QString chunk = QString::number(2 * below(mChunks / 2) + side);
    const QString pin = "K" + chunk + "=";
    const QString own = "F" + chunk + "abc"[below(3)];
    const QString fresh = "N" + QString::number(mNew++);
    const QStringList group{"G" + fresh + "(", "H(", ")", fresh + "=2", ")"};
    const CEdit edits[] = {[=](QStringList& t) { replace(t, own, {own + "#7=1"}, false); },
                           [=](QStringList& t) { replace(t, pin, {pin + "5"}, false); },
                           [=](QStringList& t) { replace(t, own, {}, false); },
                           [=](QStringList& t) { move(t, own, pin); },
                           [=](QStringList& t) { replace(t, pin, {fresh + "=1"}, true); },
                           [=](QStringList& t) { replace(t, pin, group, true); }};
    return edits[below(6)];
  }

  /// An edit of anything, anywhere.
  CEdit editAnything() {
    const QString own = "F" + QString::number(below(mChunks)) + "abc"[below(3)];
    const QString pin = "K" + QString::number(below(mChunks)) + "=";
    const QString value = "=" + QString::number(below(3));
    const QString fresh = "N" + QString::number(below(50)) + "=1";
    const int from = below(100);
    const CEdit edits[] = {[=](QStringList& t) { replace(t, own, {own + value}, false); },
                           [=](QStringList& t) { replace(t, pin, {}, false); },
                           [=](QStringList& t) { move(t, own, pin); },
                           [=](QStringList& t) { replace(t, pin, {fresh}, true); },
                           [=](QStringList& t) { removeGroup(t, from); }};
    return edits[below(5)];
  }

 private:
  QRandomGenerator mRandom;
  int mChunks = 0;
  int mNew = 0;
};

}  // namespace

class tst_CParameterFileMerge : public QObject {
  Q_OBJECT

 private slots:
  void merges_data() { NCaseFile::addRows("analysis/merges.cases"); }
  void merges() {
    QFETCH(NCaseFile::CCase, parts);
    const auto file = [&parts](const char* key) { return fromText(NCaseFile::one(parts, key)); };
    SMerge files{file("base"), file("ours"), file("theirs")};
    QVERIFY(files.merge.run());
    QCOMPARE(toText(*files.ours), NCaseFile::one(parts, "result"));
    QCOMPARE(texts(files.merge.conflicts()), parts["conflict"]);
    QCOMPARE(toText(*files.theirs), NCaseFile::one(parts, "theirs"));
  }

  void mergesWhatIsShared() {
    QTemporaryDir folder;
    const auto file = fromText("[A:1] X=1 [A:2] X=1 [B:3] X=1");
    file->setMetaData("me", "");
    file->setSubDevName(1, "one");
    file->setSubDevName(2, "two");
    file->setSubDevType(2, NParamDef::SUB_DEV_TYPE_DRIVE);
    const auto base = reloaded(*file, folder);
    const auto ours = reloaded(*file, folder);
    ours->setMetaData("me", "ours");
    ours->setSubDevType(1, NParamDef::SUB_DEV_TYPE_DEVICE);
    ours->setSubDevName(2, "zwei");
    treesOf(*ours).erase("B");
    auto theirs = reloaded(*file, folder);
    theirs->setMetaData("you", "");
    theirs->setSubDevName(1, "");
    theirs->setSubDevType(2, NParamDef::SUB_DEV_TYPE_UNDEFINED);
    theirs->selectHardwareId("A");
    theirs->copySubDevice(2, 4);
    theirs->setSubDevName(4, "four");
    theirs = reloaded(*theirs, folder);
    CParameterFileMerge merge(*base, *ours, *theirs);
    QVERIFY(merge.run());
    QCOMPARE(texts(merge.conflicts()), QStringList());
    file->clear();
    const auto hand = fromText("[A:1] X=1 [A:2] X=1 [A:4] X=1");
    hand->setMetaData("you", "ours");
    hand->setSubDevType(1, NParamDef::SUB_DEV_TYPE_DEVICE);
    hand->setSubDevName(2, "zwei");
    hand->setSubDevName(4, "four");
    QCOMPARE(saved(*ours, folder), saved(*hand, folder));

    theirs->setMetaData("him", "theirs");
    theirs->setSubDevName(2, "deux");
    theirs->setSubDevType(1, NParamDef::SUB_DEV_TYPE_DRIVE);
    CParameterFileMerge again(*base, *ours, *theirs);
    QVERIFY(again.run());
    QCOMPARE(texts(again.conflicts()),
             QStringList({"both-changed author :-1 / me>you|him",
                          "both-changed comment :-1 / >ours|theirs",
                          "both-changed sub-device-type :1 / Undefined>Device|Drive",
                          "both-changed sub-device-name :2 / two>zwei|deux"}));
    QCOMPARE(again.conflicts().last().text(),
             QString("Changed from \"two\" to \"zwei\" in ours, and to \"deux\" in theirs."));
    QCOMPARE(saved(*ours, folder), saved(*hand, folder));
  }

  void comparesAsDefined() {
    SMerge files{fromText("[A:1] X=1 Y=0x1 Z=1"), fromText("[A:1] X=0x10 Y=0x1 Z=x"),
                 fromText("[A:1] X=16 Y=1 Z=0")};
    for (const char* name : {"X", "Y", "Z"}) files.ours->addDef(name, NParamDef::PARAM_TYPE_U8, 0);
    QVERIFY(files.merge.run());
    QCOMPARE(texts(files.merge.conflicts()), QStringList("both-changed value A:1 /Z 1>x|0"));
    QCOMPARE(toText(*files.ours), QString("[A:1] X=0x10 Y=1 Z=x"));
  }

  void marksAndSelects() {
    SMerge files{fromText("[A:1] X=1 [B:1] X=1 [C:1] X=1"),
                 fromText("[A:1] X=1 [B:1] X=1 Y=1 [C:1] X=1 Z=1"),
                 fromText("[B:1] X=2 [C:1] X=1")};
    ICParameterFile& ours = *files.ours;
    for (const auto& name : {"X", "Y"})
      treesOf(ours).at("B").at(1).node(name)->setProperty(NParamDef::PROPERTY_CHANGED, true);
    QVERIFY(files.merge.run());
    QCOMPARE(ours.changedList(), QStringList({"A", "B"}));
    QCOMPARE(ours.hardwareId(), QString("B"));
    for (const char* name : {"X", "Y"}) {
      ICParamTreeNode* node = ours.rootGroup(1)->childPtr(QString(name));
      QVERIFY(node->property(NParamDef::PROPERTY_CHANGED).toBool());
      QCOMPARE(ours.findParameter(ours.rootGroup(1), name), node);
    }
  }

  /// Whoever merges into whom, and to the byte in the saved files.
  void equalsBothEditsByHand() {
    QTemporaryDir folder;
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
        const bool isSaved = seed % 30 == 0;
        const auto file = [&](const QStringList& tokens) {
          CFilePtr made = fromTokens(tokens);
          return isSaved ? reloaded(*made, folder) : std::move(made);
        };
        SMerge files{fromTokens(base), file(sides[side]), file(sides[1 - side])};
        QVERIFY(files.merge.run());
        QVERIFY2(files.merge.conflicts().isEmpty(), qPrintable(QString::number(seed)));
        if (toText(*files.ours) != toText(*expected))
          qInfo().noquote() << seed << base << sides[side] << sides[1 - side];
        QCOMPARE(toText(*files.ours), toText(*expected));
        if (isSaved) QCOMPARE(saved(*files.ours, folder), saved(*expected, folder));
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
        hand.editAnything()(hand.below(2) == 0 ? one : other);
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
