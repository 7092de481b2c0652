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

CParamTreeNodeImpl* addNode(CParamTreeNodeImpl& parent, const char* name, quint32 id) {
  auto* const node = new CParamTreeNodeImpl(1, name, id);
  parent.addChild(node);
  return node;
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
      CNode* const child = parent.child(at);
      const bool isIndex = at >= 0 && at < plain.size();
      QCOMPARE(child != nullptr, isIndex);
      auto node = std::make_unique<CNode>();
      node->setData({i, life});
      int removed = isIndex ? 1 : 0;
      switch (const int count = random.bounded(5) - 1; random.bounded(8)) {
        case 0:
          removed = at >= 0 && at + count <= plain.size() ? count : 0;
          QCOMPARE(parent.removeChildren(at, count), at >= 0 && at + count <= plain.size());
          break;
        case 1:
          QCOMPARE(count > 1 ? parent.removeChild(at) : parent.removeChild(child), isIndex);
          break;
        case 2:
          node.reset(parent.takeChild(child));
          QVERIFY(isIndex ? !node->parent() && node->dataRef().number == plain.at(at) : !node);
          break;
        case 3:
          removed = 0;
          parent.addChild(node.release());
          plain.append(i);
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

  void tellsGroupsFromParameters() {
    const QString unset = "[standard constructed]";
    const CParamTreeNodeImpl group(2, "a", NParamDef::NO_ID);
    const CParamTreeNodeImpl param(2, "", 0);
    QVERIFY(group.isGroup() && !group.isParam() && !param.isGroup() && param.isParam());
    for (const quint32 id : {NParamDef::NO_ID, 5U}) {
      const CParamTreeNodeImpl neither(2, unset, id);
      QVERIFY(!neither.isGroup() && !neither.isParam());
    }
    const CTreeNode<CParamNodeData> bare;
    QVERIFY(bare.dataRef().name() == unset && bare.dataRef().subDevId() == 0xFF);
  }

  void findsItsWay() {
    CParamTreeNodeImpl root(1, "root", NParamDef::NO_ID);
    CParamTreeNodeImpl* const a = addNode(root, "a", 1);
    CParamTreeNodeImpl* const group = addNode(root, "g", NParamDef::NO_ID);
    CParamTreeNodeImpl* const b = addNode(*group, "b", 2);
    QVERIFY(b->rootPtr() == &root && root.rootPtr() == &root && b->parentPtr() == group);
    QVERIFY(!root.parentPtr() && group->siblingNo() == 1 && root.siblingNo() == 0);
    addNode(root, "a", 2);
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
