#include "CParamTreeNodeImpl.h"
#include "CTreeNode.h"

#include <QRandomGenerator>
#include <QtTest>

#include <memory>

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

}  // namespace

class tst_CParamTree : public QObject {
  Q_OBJECT
 private slots:
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
    const QString unset = CTreeNode<CParamNodeData>().dataRef().name();
    QCOMPARE(unset, QString("[standard constructed]"));
    QVERIFY(CParamTreeNodeImpl(2, "", 0).isParam() && !CParamTreeNodeImpl(2, "", 0).isGroup());
    for (const quint32 id : {NParamDef::NO_ID, 5U}) {
      const CParamTreeNodeImpl neither(2, unset, id);
      QVERIFY(!neither.isGroup() && !neither.isParam());
    }
    CParamTreeNodeImpl root(1, "root", NParamDef::NO_ID);
    auto* const a = new CParamTreeNodeImpl(1, "a", 1);
    auto* const group = new CParamTreeNodeImpl(1, "g", NParamDef::NO_ID);
    auto* const b = new CParamTreeNodeImpl(1, "b", 2);
    for (auto* node : {a, group, new CParamTreeNodeImpl(1, "a", 2)}) root.addChild(node);
    group->addChild(b);
    QVERIFY(group->isGroup() && !group->isParam() && a->isParam());
    QVERIFY(b->rootPtr() == &root && root.rootPtr() == &root && b->parentPtr() == group);
    QVERIFY(!root.parentPtr() && group->siblingNo() == 1 && root.siblingNo() == 0);
    QVERIFY(root.childPtr(1) == group && root.childPtr("a") == a);
    QVERIFY(!root.childPtr(3) && !root.childPtr("A") && !root.childPtr("b"));

    b->setProperty(NParamDef::PROPERTY_CHANGED, true);
    group->setSubDevId(3);
    QVERIFY(root.subDevId() == 1 && group->subDevId() == 3 && b->subDevId() == 3);
    const std::unique_ptr<CParamTreeNodeImpl> copy(group->cloneMe());
    ICParamTreeNode* const param = copy->childPtr(0);
    QVERIFY(!copy->parentPtr() && param->id() == 2);
    QVERIFY(param->removeProperty(NParamDef::PROPERTY_CHANGED));
    QVERIFY(!param->removeProperty(NParamDef::PROPERTY_CHANGED));
    QCOMPARE(b->property(NParamDef::PROPERTY_CHANGED), QVariant(true));

    QVERIFY(!root.deleteChild(nullptr) && !root.deleteChild(b) && root.deleteChild(a));
    QVERIFY(root.childPtr(0) == group && root.childCnt() == 2);
  }
};

QTEST_APPLESS_MAIN(tst_CParamTree)
#include "tst_CParamTree.moc"
