#include "CKeyedMap.h"
#include "CParamTreeNodeImpl.h"
#include "CSubDeviceTree.h"
#include "CTreeNode.h"
#include "GoldenFiles.h"
#include "TreeText.h"

#include <QMap>
#include <QRandomGenerator>
#include <QTest>

#include <memory>
#include <set>
#include <utility>

using namespace NTreeText;

namespace {

using CNode = CTreeNode<int>;

using CNodes = QVector<CParamTreeNodeImpl*>;
using CIdAndValue = QPair<quint32, QString>;  ///< id and value of a parameter
using CExpected = QMap<QString, CIdAndValue>;

CNodes walk(CParamTreeNodeImpl* node, CNodes nodes = {}) {
  nodes.append(node);
  for (int i = 0; i < node->childCount(); ++i) nodes = walk(node->childNode(i), std::move(nodes));
  return nodes;
}

CParamTreeNodeImpl* anyGroup(const CSubDeviceTree& tree, QRandomGenerator& random) {
  const CNodes nodes = walk(tree.root());
  CParamTreeNodeImpl* const node = nodes.at(random.bounded(nodes.size()));
  return node->isGroup() ? node : static_cast<CParamTreeNodeImpl*>(node->parentPtr());
}

void edit(CSubDeviceTree& tree, CExpected& expected, QRandomGenerator& random) {
  const QString name = QString("p%1").arg(random.bounded(60));
  const CNodes nodes = walk(tree.root());
  CParamTreeNodeImpl* const node = nodes.at(random.bounded(nodes.size()));
  switch (random.bounded(11)) {
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
    default: {
      const CIdAndValue added{random.bounded(3U), QString::number(random.bounded(1000))};
      const bool isNew = !expected.contains(name);
      if (isNew) expected.insert(name, added);
      CParamTreeNodeImpl* const group = anyGroup(tree, random);
      QCOMPARE(tree.addParameter(group, name, added.first, added.second) != nullptr, isNew);
    }
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

class tst_ParamTrees : public QObject {
  Q_OBJECT
 private slots:
  /// The key of the hash belongs to the process; every character counts, wherever it is. Of a
  /// hash that is linear in the bits of a name, collisions could be computed.
  void namesHaveHashesOfTheirOwn() {
    const SKeyedHash hash;
    QVERIFY((hash(QString("aaaa")) ^ hash(QString("baaa")) ^ hash(QString("aaba"))) !=
            hash(QString("baba")));
    std::set<size_t> hashes{hash(QString("Aa")), hash(QString("BB"))};
    qSetGlobalQHashSeed(0);
    QVERIFY(hashes.size() == 2 && hashes.count(hash(QString("Aa"))) == 1);
    qSetGlobalQHashSeed(-1);
    hashes.clear();
    QString text;
    for (int size = 0; size < 20; ++size, text += QChar(0)) {
      hashes.insert(hash(text));
      for (int i = 0; i < size; ++i)
        for (const QChar c : {QChar('x'), QChar(0x100)})
          hashes.insert(hash(QString(text).replace(i, 1, c)));
    }
    QCOMPARE(hashes.size(), size_t(20 + 2 * 190));
  }

  /// Who takes a child owns it, and bad indices change nothing.
  void childrenAreOwnedInTheirOrder() {
    CNode parent;
    QList<CNode*> nodes;
    for (int i = 0; i < 8; ++i) {
      nodes.insert(i / 2, new CNode);
      nodes.at(i / 2)->setData(i);
      QVERIFY(parent.insertChild(nodes.at(i / 2), i / 2));
    }
    QCOMPARE(parent.children(), nodes);
    for (int i = 0; i < 8; ++i) QCOMPARE(nodes.at(i)->row(), i);
    CNode stray;
    QVERIFY(!parent.insertChild(nullptr, 0) && !parent.insertChild(&stray, -1));
    QVERIFY(!parent.insertChild(&stray, 9) && !parent.takeChild(&stray));
    QVERIFY(!parent.removeChild(&stray) && !parent.removeChild(8) && !parent.removeChild(-1));
    QVERIFY(!parent.removeChildren(-1, 1) && !parent.removeChildren(7, 2));
    QVERIFY(!parent.removeChildren(1, INT_MAX) && parent.removeChildren(8, 0));
    QVERIFY(parent.removeChildren(6, 2) && parent.removeChild(nodes.at(1)) &&
            parent.removeChild(0));
    const std::unique_ptr<CNode> taken(parent.takeChild(nodes.at(3)));
    QVERIFY(taken.get() == nodes.at(3) && !taken->parent());
    const std::unique_ptr<CNode> copy(parent.clone());
    QVERIFY(parent.removeAllChildren() && parent.childCount() == 0 && parent.row() == 0);
    QCOMPARE(copy->childCount(), 3);
    QVERIFY(copy->child(0)->data() == 5 && copy->child(2)->data() == 4);
    stray.setParent(&parent);
    QCOMPARE(stray.row(), -1);
  }

  void findsItsWay() {
    CParamTreeNodeImpl root(1, "root", NParamDef::NO_ID);
    auto* const unset = new CParamTreeNodeImpl(1, "[standard constructed]", NParamDef::NO_ID);
    auto* const group = new CParamTreeNodeImpl(1, "g", NParamDef::NO_ID);
    for (auto* node : {unset, group}) root.addChild(node);
    QVERIFY(!unset->isGroup() && !unset->isParam() && group->isGroup());
    QVERIFY(group->rootPtr() == &root && group->siblingNo() == 1 && root.siblingNo() == 0);
    QVERIFY(root.childPtr("g") == group && !root.childPtr("G") && !root.childPtr(2));
    QVERIFY(!root.deleteChild(nullptr) && !group->deleteChild(unset) && root.deleteChild(unset));
    QVERIFY(!group->removeProperty(NParamDef::PROPERTY_CHANGED));
  }

  void copiesAreIndependent() {
    CSubDeviceTree tree = fromText("A( p#1=x B( q#2=y ) ) r#3=z");
    QVERIFY(!tree.addParameter(tree.root(), "n", NParamDef::NO_ID, 1) && tree.value("n").isNull());
    CSubDeviceTree copy = tree.cloneAs(4);
    QVERIFY(!tree.owns(copy.root()) && !tree.deleteNode(nullptr));
    QVERIFY(!tree.deleteNode(copy.node("p")) && copy.deleteNode(copy.node("r")));
    copy.setValue("p", "changed");
    copy.root()->setProperty(NParamDef::PROPERTY_CHANGED, true);
    QVERIFY(tree.deleteNode(tree.root()->childNode(0)->childNode(1)));
    QVERIFY(tree.addGroup(tree.root(), "q"));
    QCOMPARE(toText(tree), QString("A( p#1=x ) r#3=z q( )"));
    QVERIFY(copy.node("p")->subDevId() == 4 && tree.node("p")->subDevId() == 1);
    QVERIFY(!tree.root()->property(NParamDef::PROPERTY_CHANGED).isValid());
    CParamTreeNodeImpl* const root = copy.root();
    const CSubDeviceTree moved = std::move(copy);
    QVERIFY(moved.root() == root && toText(moved) == "A( p#1=changed B( q#2=y ) )");
  }

  void merges_data() { NGoldenFiles::addCases("trees/merges.cases"); }
  void merges() {
    QFETCH(NGoldenFiles::CCase, parts);
    CSubDeviceTree tree = fromText(NGoldenFiles::one(parts, "target"));
    tree.root()->setProperty(NParamDef::PROPERTY_ERROR, 5);
    for (int i = 0; i < 2; ++i) {  // loading the same once more changes nothing
      tree.merge(fromText(NGoldenFiles::one(parts, "source"), 2));
      QCOMPARE(toText(tree), NGoldenFiles::one(parts, "result"));
    }
    for (const CParamTreeNodeImpl* node : walk(tree.root())) QVERIFY(node->subDevId() == 1);
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

QTEST_APPLESS_MAIN(tst_ParamTrees)
#include "tst_ParamTrees.moc"
