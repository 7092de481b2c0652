#include "CParamTreeNodeImpl.h"
#include "CTreeNode.h"
#include "TestRows.h"

#include <limits>
#include <memory>

namespace {

// A payload that counts its living objects, so that a leak or a double deletion shows.
struct SCounted {
  static int sLiving;
  int number = -1;

  explicit SCounted(int n = -1) : number(n) { ++sLiving; }
  SCounted(const SCounted& other) : number(other.number) { ++sLiving; }
  SCounted& operator=(const SCounted&) = default;
  ~SCounted() { --sLiving; }
};
int SCounted::sLiving = 0;

using Node = CTreeNode<SCounted>;

Node* newNode(int number) {
  auto* const node = new Node;
  node->setData(SCounted(number));
  return node;
}

std::unique_ptr<Node> newParent(int childCount) {
  std::unique_ptr<Node> parent(newNode(100));
  for (int i = 0; i < childCount; ++i) parent->addChild(newNode(i));
  return parent;
}

QList<int> numbers(const Node& parent) {
  QList<int> result;
  for (const Node* child : parent.children()) result.append(child->dataRef().number);
  return result;
}

CParamTreeNodeImpl* addNode(CParamTreeNodeImpl& parent, const char* name, quint32 id) {
  auto* const node = new CParamTreeNodeImpl(1, name, id);
  parent.addChild(node);
  return node;
}

// A parameter, and a group with another.
struct SParams {
  CParamTreeNodeImpl root{1, "root", NParamDef::NO_ID};
  CParamTreeNodeImpl* const a = addNode(root, "a", 1);
  CParamTreeNodeImpl* const group = addNode(root, "g", NParamDef::NO_ID);
  CParamTreeNodeImpl* const b = addNode(*group, "b", 2);
};

}  // namespace

Q_DECLARE_METATYPE(QList<int>)

class tst_CParamTree : public QObject {
  Q_OBJECT
 private slots:
  void cleanup() {
    // One payload may live on: the empty value that nodes without payload show.
    QVERIFY(SCounted::sLiving <= 1);
  }

  void findsChildrenByIndex() {
    const auto parent = newParent(2);
    QVERIFY(!parent->child(-1));
    QVERIFY(!parent->child(2));
    QCOMPARE(parent->child(1)->dataRef().number, 1);
    QCOMPARE(parent->child(1)->row(), 1);
    QCOMPARE(parent->row(), 0);
    Node stray;
    stray.setParent(parent.get());
    QCOMPARE(stray.row(), -1);
  }

  void insertsWithinTheList() {
    const auto parent = newParent(2);
    QVERIFY(parent->insertChild(newNode(8), 0));
    QVERIFY(parent->insertChild(newNode(9), 3));
    const auto refused = newParent(0);
    QVERIFY(!parent->insertChild(refused.get(), 5));
    QVERIFY(!parent->insertChild(refused.get(), -1));
    QVERIFY(!parent->insertChild(nullptr, 0));
    QVERIFY(!refused->parent());
    QCOMPARE(numbers(*parent), (QList<int>{8, 0, 1, 9}));
    QCOMPARE(parent->child(3)->parent(), parent.get());
  }

  void removesRuns_data() {
    addColumns<int, int, bool, QList<int>>("first", "count", "ok", "expected");
    const QList<int> all = {0, 1, 2};
    addRow("nothing", 0, 0, true, all);
    addRow("less than nothing", 2, -1, true, all);
    addRow("the end", 1, 2, true, QList<int>{0});
    addRow("all", 0, 3, true, QList<int>{});
    addRow("one too many", 1, 3, false, all);
    addRow("far too many", 1, std::numeric_limits<int>::max(), false, all);
    addRow("negative", -1, 1, false, all);
  }
  void removesRuns() {
    QFETCH(int, first);
    QFETCH(int, count);
    const auto parent = newParent(3);
    QTEST(parent->removeChildren(first, count), "ok");
    QTEST(numbers(*parent), "expected");
  }

  void removesSingleChildren() {
    const auto parent = newParent(4);
    const auto stranger = newParent(0);
    QVERIFY(!parent->removeChild(stranger.get()));
    QVERIFY(!parent->removeChild(4));
    QVERIFY(!parent->removeChild(-1));
    QVERIFY(parent->removeChild(parent->child(2)));
    QVERIFY(parent->removeChild(0));
    QCOMPARE(numbers(*parent), (QList<int>{1, 3}));
    QVERIFY(parent->removeAllChildren());
    QCOMPARE(parent->childCount(), 0);
  }

  void takesChildren() {
    auto parent = newParent(2);
    const auto stranger = newParent(0);
    QVERIFY(!parent->takeChild(stranger.get()));
    const std::unique_ptr<Node> taken(parent->takeChild(parent->child(0)));
    QVERIFY(!taken->parent());
    parent.reset();
    QCOMPARE(taken->dataRef().number, 0);
  }

  void clonesDeeply() {
    const auto parent = newParent(2);
    parent->child(1)->addChild(newNode(7));
    parent->child(0)->addChild(new Node);
    const std::unique_ptr<Node> copy(parent->child(1)->clone());
    QVERIFY(!copy->parent());
    copy->child(0)->setData(SCounted(8));
    QCOMPARE(numbers(*parent->child(1)), QList<int>{7});
    const std::unique_ptr<Node> whole(parent->clone());
    QCOMPARE(numbers(*whole), (QList<int>{0, 1}));
    QVERIFY(whole->child(0)->child(0)->isValid());  // a missing payload becomes an empty one
  }

  void tellsGroupsFromParameters() {
    const CParamTreeNodeImpl group(2, "a", NParamDef::NO_ID);
    QVERIFY(group.isGroup() && !group.isParam());
    const CParamTreeNodeImpl param(2, "", 0);
    QVERIFY(!param.isGroup() && param.isParam());
    const QString unset = "[standard constructed]";
    for (const quint32 id : {NParamDef::NO_ID, 5U}) {
      const CParamTreeNodeImpl neither(2, unset, id);
      QVERIFY(!neither.isGroup() && !neither.isParam());
    }
    const CTreeNode<CParamNodeData> bare;
    QCOMPARE(bare.dataRef().name(), unset);
    QCOMPARE(bare.dataRef().subDevId(), quint8(0xFF));
  }

  void findsItsWay() {
    SParams tree;
    QCOMPARE(tree.b->rootPtr(), &tree.root);
    QCOMPARE(tree.root.rootPtr(), &tree.root);
    QCOMPARE(tree.b->parentPtr(), tree.group);
    QVERIFY(!tree.root.parentPtr());
    QCOMPARE(tree.group->siblingNo(), 1);
    QCOMPARE(tree.root.siblingNo(), 0);
    QCOMPARE(tree.root.childPtr(1), tree.group);
    QVERIFY(!tree.root.childPtr(2));
    addNode(tree.root, "a", 2);
    QCOMPARE(tree.root.childPtr("a"), tree.a);
    QVERIFY(!tree.root.childPtr("A"));
    QVERIFY(!tree.root.childPtr("b"));
  }

  void deletesChildrenByInterface() {
    SParams tree;
    QVERIFY(!tree.root.deleteChild(nullptr));
    QVERIFY(!tree.root.deleteChild(tree.b));
    QVERIFY(tree.root.deleteChild(tree.a));
    QCOMPARE(tree.root.childPtr(0), tree.group);
    QCOMPARE(tree.root.childCnt(), 1);
  }

  void setsSubDeviceEverywhere() {
    SParams tree;
    const auto* const deep = addNode(*addNode(*tree.group, "h", NParamDef::NO_ID), "c", 3);
    tree.group->setSubDevId(3);
    QCOMPARE(tree.root.subDevId(), quint8(1));
    QCOMPARE(tree.group->subDevId(), quint8(3));
    QCOMPARE(deep->subDevId(), quint8(3));
  }

  void clonesParameterTrees() {
    SParams tree;
    tree.b->setProperty(NParamDef::PROPERTY_CHANGED, true);
    const std::unique_ptr<CParamTreeNodeImpl> copy(tree.group->cloneMe());
    QVERIFY(!copy->parentPtr());
    ICParamTreeNode* const param = copy->childPtr(0);
    QCOMPARE(param->id(), 2U);
    QCOMPARE(param->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
    QVERIFY(param->removeProperty(NParamDef::PROPERTY_CHANGED));
    QVERIFY(!param->removeProperty(NParamDef::PROPERTY_CHANGED));
    copy->removeAllChildren();
    QCOMPARE(tree.b->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
  }
};

QTEST_APPLESS_MAIN(tst_CParamTree)
#include "tst_CParamTree.moc"
