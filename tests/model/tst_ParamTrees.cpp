#include "CKeyedMap.h"
#include "CParamTreeNodeImpl.h"
#include "CSubDeviceTree.h"
#include "CTreeNode.h"
#include "CaseFile.h"
#include "TreeText.h"

#include <QMap>
#include <QRandomGenerator>
#include <QtTest>

#include <memory>
#include <set>
#include <utility>

using namespace NTreeText;

namespace {

/// A payload of which a leak or a double deletion shows in the count of its life's users.
struct SPayload {
  int number = -1;
  std::shared_ptr<int> life;
};

using CNode = CTreeNode<SPayload>;

QList<int> numbers(const CNode& parent) {
  QList<int> result;
  for (const CNode* child : parent.children()) result.append(child->dataRef().number);
  return result;
}

using CNodes = QVector<CParamTreeNodeImpl*>;
using CExpected = QMap<QString, QPair<quint32, QString>>;  ///< id and value of each parameter

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

class tst_ParamTrees : public QObject {
  Q_OBJECT
 private slots:
  /// The key of the hash belongs to the process; every character counts, wherever it is. Of a
  /// hash that is linear in the bits of a name, collisions could be computed.
  void namesHaveHashesOfTheirOwn() {
    const SKeyedHash hash;
    QVERIFY((hash("aaaa") ^ hash("baaa") ^ hash("aaba")) != hash("baba"));
    std::set<size_t> hashes{hash("Aa"), hash("BB")};
    qSetGlobalQHashSeed(0);
    QVERIFY(hashes.size() == 2 && hashes.count(hash("Aa")) == 1);
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

  /// Random edits of a node's children, with a plain list of what they must be.
  void childrenAreAsInAPlainList() {
    QRandomGenerator random(1);
    QList<int> plain;
    const auto life = std::make_shared<int>();
    CNode parent;
    for (int i = 0; i < 3000; ++i) {
      const int at = random.bounded(14) - 2;
      const int count = random.bounded(5) - 1;
      const bool isIndex = at >= 0 && at < plain.size();
      const bool hasMany = at >= 0 && at + count <= plain.size();
      auto node = std::make_unique<CNode>();
      node->setData({i, life});
      CNode* const child = parent.child(at);
      QCOMPARE(child != nullptr, isIndex);
      int removed = isIndex ? 1 : 0;
      switch (random.bounded(8)) {
        case 0:
          removed = hasMany ? count : 0;
          QCOMPARE(parent.removeChildren(at, count), hasMany);
          break;
        case 1:
          QCOMPARE(count > 1 ? parent.removeChild(at) : parent.removeChild(child), isIndex);
          break;
        case 2:
          node.reset(parent.takeChild(child));
          QVERIFY(isIndex ? !node->parent() && node->dataRef().number == plain.at(at) : !node);
          break;
        default:
          removed = 0;
          QCOMPARE(parent.insertChild(node.get(), at), at >= 0 && at <= plain.size());
          if (node->parent()) plain.insert(at, node.release()->dataRef().number);
      }
      for (int k = 0; k < removed; ++k) plain.removeAt(at);
      QCOMPARE(numbers(parent), plain);
      if (!plain.isEmpty()) QCOMPARE(parent.child(plain.size() - 1)->row(), plain.size() - 1);
      QCOMPARE(int(life.use_count()), 1 + plain.size() + (node ? 1 : 0));
    }
    const std::unique_ptr<CNode> copy(parent.clone());
    QVERIFY(parent.removeAllChildren() && parent.childCount() == 0 && parent.row() == 0);
    QCOMPARE(numbers(*copy), plain);
    QVERIFY(!parent.insertChild(nullptr, 0) && !parent.removeChildren(1, INT_MAX));
    CNode stray;
    stray.setParent(&parent);
    QCOMPARE(stray.row(), -1);
  }

  void findsItsWay() {
    CParamTreeNodeImpl root(1, "root", NParamDef::NO_ID);
    auto* const unset = new CParamTreeNodeImpl(1, "[standard constructed]", NParamDef::NO_ID);
    auto* const group = new CParamTreeNodeImpl(1, "g", NParamDef::NO_ID);
    auto* const param = new CParamTreeNodeImpl(1, "", 0);
    for (auto* node : {unset, group, new CParamTreeNodeImpl(1, "g", 2)}) root.addChild(node);
    group->addChild(param);
    QVERIFY(group->isGroup() && !group->isParam() && param->isParam() && !param->isGroup());
    QVERIFY(!unset->isGroup() && !unset->isParam());
    QVERIFY(param->rootPtr() == &root && param->parentPtr() == group && !root.parentPtr());
    QVERIFY(group->siblingNo() == 1 && root.siblingNo() == 0);
    QVERIFY(root.childPtr("g") == group && !root.childPtr(3) && !root.childPtr("G"));
    QVERIFY(!root.deleteChild(nullptr) && !root.deleteChild(param) && root.deleteChild(unset));
    QVERIFY(root.childPtr(0) == group && root.childCnt() == 2);
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

QTEST_APPLESS_MAIN(tst_ParamTrees)
#include "tst_ParamTrees.moc"
