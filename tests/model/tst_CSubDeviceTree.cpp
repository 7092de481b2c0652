#include "CSubDeviceTree.h"
#include "CaseFile.h"
#include "TreeText.h"

#include <QMap>
#include <QRandomGenerator>
#include <QtTest>

#include <utility>

using namespace NTreeText;

namespace {

using CNodes = QVector<CParamTreeNodeImpl*>;
using CExpected = QMap<QString, QPair<quint32, QString>>;  ///< id and value of each parameter

CNodes walk(CParamTreeNodeImpl* node) {
  CNodes nodes{node};
  for (int i = 0; i < node->childCount(); ++i) nodes += walk(node->childNode(i));
  return nodes;
}

CParamTreeNodeImpl* anyGroup(const CSubDeviceTree& tree, QRandomGenerator& random) {
  const CNodes nodes = walk(tree.root());
  CParamTreeNodeImpl* const node = nodes.at(random.bounded(nodes.size()));
  return node->isGroup() ? node : static_cast<CParamTreeNodeImpl*>(node->parentPtr());
}

/// Adds a random parameter somewhere, unless there is one of its name.
void addParameter(CSubDeviceTree& tree, CExpected& expected, QRandomGenerator& random) {
  const QString name = QString("p%1").arg(random.bounded(60));
  const quint32 id = random.bounded(3U);
  const QString value = QString::number(random.bounded(1000));
  const bool isNew = !expected.contains(name);
  if (isNew) expected.insert(name, {id, value});
  QCOMPARE(tree.addParameter(anyGroup(tree, random), name, id, value) != nullptr, isNew);
}

void merge(CSubDeviceTree& tree, CExpected& expected, QRandomGenerator& random) {
  CSubDeviceTree other(9);
  CExpected added;
  for (int i = 0; i < 15; ++i) addParameter(other, added, random);
  other.addGroup(other.root(), QString("G%1").arg(random.bounded(4)));
  for (int i = 0; i < 15; ++i) addParameter(other, added, random);
  for (const QString& name : added.keys()) {
    const quint32 before = expected.value(name).first;
    expected[name] = added[name];
    if (added[name].first == 0) expected[name].first = before;
  }
  tree.merge(std::move(other));
}

void edit(CSubDeviceTree& tree, CExpected& expected, QRandomGenerator& random) {
  const QString name = QString("p%1").arg(random.bounded(60));
  const CNodes nodes = walk(tree.root());
  CParamTreeNodeImpl* const node = nodes.at(random.bounded(nodes.size()));
  switch (random.bounded(12)) {
    case 0:
      tree.addGroup(anyGroup(tree, random), QString("G%1").arg(random.bounded(4)));
      break;
    case 1:
      for (const CParamTreeNodeImpl* each : walk(node))
        if (node != tree.root()) expected.remove(each->name());
      QCOMPARE(tree.deleteNode(node), node != tree.root());
      break;
    case 2:
      QCOMPARE(tree.setValue(name, CParamVal(name)), expected.contains(name));
      if (expected.contains(name)) expected[name].second = name;
      break;
    case 3:
      tree = random.bounded(2) ? tree.clone() : tree.cloneAs(tree.subDevId());
      break;
    case 4:
      merge(tree, expected, random);
      break;
    default:
      addParameter(tree, expected, random);
  }
}

// Indexes, tree and expectation say the same.
void compare(const CSubDeviceTree& tree, const CExpected& expected) {
  QStringList names;
  for (CParamTreeNodeImpl* node : walk(tree.root())) {
    const QString name = node->name();
    QCOMPARE(node->subDevId(), tree.subDevId());
    QVERIFY(tree.owns(node));
    if (node->isParam()) {
      names.append(name);
      QCOMPARE(tree.node(name), node);
      QCOMPARE(qMakePair(node->id(), tree.value(name).asStr()), expected.value(name));
    } else {
      for (const char* group : {"G0", "G1", "G2", "G3"})
        QCOMPARE(tree.group(node, group), node->childPtr(group));
    }
  }
  QCOMPARE(tree.names(), names);
  QCOMPARE(tree.count(), names.size());
  QCOMPARE(tree.count(), expected.size());
}

}  // namespace

class tst_CSubDeviceTree : public QObject {
  Q_OBJECT
 private slots:
  void copiesAreIndependent() {
    CSubDeviceTree tree = fromText("A( p#1=x B( q#2=y ) ) r#3=z");
    QVERIFY(tree.root()->isGroup() && tree.root()->name() == "rootGroup");
    QVERIFY(tree.value("n").isNull() && !tree.addParameter(tree.root(), "p", 2, 1));
    QVERIFY(!tree.addParameter(tree.root(), "n", NParamDef::NO_ID, 1));
    QVERIFY(!tree.addParameter(tree.root(), "[standard constructed]", 3, 1));
    CSubDeviceTree copy = tree.cloneAs(4);
    QVERIFY(copy.subDevId() == 4 && copy.node("p")->subDevId() == 4);
    QVERIFY(!tree.owns(copy.root()) && !tree.deleteNode(nullptr));
    QVERIFY(!tree.deleteNode(tree.root()) && !tree.deleteNode(copy.node("p")));
    copy.setValue("p", "changed");
    copy.deleteNode(copy.node("r"));
    copy.root()->setProperty(NParamDef::PROPERTY_CHANGED, true);
    QVERIFY(tree.deleteNode(tree.root()->childNode(0)->childNode(1)));
    QVERIFY(tree.addGroup(tree.root(), "q"));
    QCOMPARE(toText(tree), QString("A( p#1=x ) r#3=z q( )"));
    QCOMPARE(tree.node("p")->subDevId(), quint8(1));
    QVERIFY(!tree.root()->property(NParamDef::PROPERTY_CHANGED).isValid());
    CParamTreeNodeImpl* const root = copy.root();
    const CSubDeviceTree moved = std::move(copy);
    QCOMPARE(moved.root(), root);
    QCOMPARE(toText(moved), QString("A( p#1=changed B( q#2=y ) )"));
  }

  void merges_data() { NCaseFile::addRows("trees/merges.cases"); }
  void merges() {
    QFETCH(NCaseFile::CCase, parts);
    CSubDeviceTree tree = fromText(NCaseFile::one(parts, "target"));
    tree.root()->setProperty(NParamDef::PROPERTY_ERROR, 5);
    for (int i = 0; i < 2; ++i) {  // loading the same once more changes nothing
      tree.merge(fromText(NCaseFile::one(parts, "source"), 2));
      QCOMPARE(toText(tree), NCaseFile::one(parts, "result"));
    }
    QCOMPARE(tree.root()->property(NParamDef::PROPERTY_ERROR), QVariant(5));
  }

  /// Random edits of a tree, against a walk over it and a plain map.
  void randomEditsKeepTheIndexInStep() {
    for (quint32 seed = 1; seed <= 8; ++seed) {
      QRandomGenerator random(seed);
      CSubDeviceTree tree(3);
      CExpected expected;
      for (int i = 0; i < 600 && !QTest::currentTestFailed(); ++i) {
        edit(tree, expected, random);
        compare(tree, expected);
      }
    }
  }
};

QTEST_APPLESS_MAIN(tst_CSubDeviceTree)
#include "tst_CSubDeviceTree.moc"
