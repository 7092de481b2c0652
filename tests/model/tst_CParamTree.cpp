#include "CParamTreeNodeImpl.h"
#include "CTreeNode.h"

#include <QtTest>

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
  auto* const node = new CParamTreeNodeImpl(1, QString::fromLatin1(name), id);
  parent.addChild(node);
  return node;
}

}  // namespace

Q_DECLARE_METATYPE(QList<int>)

class tst_CParamTree : public QObject {
  Q_OBJECT
 private slots:
  void cleanup();
  void findsChildrenByIndex();
  void insertsWithinTheList();
  void removesRuns_data();
  void removesRuns();
  void removesSingleChildren();
  void takesChildren();
  void clonesDeeply();

  void tellsGroupsFromParameters();
  void walksTheTree();
  void findsChildrenByName();
  void deletesChildrenByInterface();
  void setsSubDeviceEverywhere();
  void clonesParameterTrees();
};

void tst_CParamTree::cleanup() {
  // One payload may live on: the empty value that nodes without payload show.
  QVERIFY(SCounted::sLiving <= 1);
}

void tst_CParamTree::findsChildrenByIndex() {
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

void tst_CParamTree::insertsWithinTheList() {
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

void tst_CParamTree::removesRuns_data() {
  QTest::addColumn<int>("first");
  QTest::addColumn<int>("count");
  QTest::addColumn<bool>("ok");
  QTest::addColumn<QList<int>>("expected");
  const QList<int> all = {0, 1, 2};
  QTest::newRow("nothing") << 0 << 0 << true << all;
  QTest::newRow("less than nothing") << 2 << -1 << true << all;
  QTest::newRow("the end") << 1 << 2 << true << QList<int>{0};
  QTest::newRow("all") << 0 << 3 << true << QList<int>{};
  QTest::newRow("one too many") << 1 << 3 << false << all;
  QTest::newRow("far too many") << 1 << std::numeric_limits<int>::max() << false << all;
  QTest::newRow("negative") << -1 << 1 << false << all;
}

void tst_CParamTree::removesRuns() {
  QFETCH(int, first);
  QFETCH(int, count);
  const auto parent = newParent(3);
  QTEST(parent->removeChildren(first, count), "ok");
  QTEST(numbers(*parent), "expected");
}

void tst_CParamTree::removesSingleChildren() {
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

void tst_CParamTree::takesChildren() {
  auto parent = newParent(2);
  const auto stranger = newParent(0);
  QVERIFY(!parent->takeChild(stranger.get()));
  const std::unique_ptr<Node> taken(parent->takeChild(parent->child(0)));
  QVERIFY(!taken->parent());
  parent.reset();
  QCOMPARE(taken->dataRef().number, 0);
}

void tst_CParamTree::clonesDeeply() {
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

void tst_CParamTree::tellsGroupsFromParameters() {
  const CParamTreeNodeImpl group(2, QStringLiteral("a"), NParamDef::NO_ID);
  QVERIFY(group.isGroup() && !group.isParam());
  const CParamTreeNodeImpl param(2, QString(), 0);
  QVERIFY(!param.isGroup() && param.isParam());
  const QString unset = QStringLiteral("[standard constructed]");
  for (const quint32 id : {NParamDef::NO_ID, 5U}) {
    const CParamTreeNodeImpl neither(2, unset, id);
    QVERIFY(!neither.isGroup() && !neither.isParam());
  }
  const CTreeNode<CParamNodeData> bare;
  QCOMPARE(bare.dataRef().name(), unset);
  QCOMPARE(bare.dataRef().subDevId(), quint8(0xFF));
}

void tst_CParamTree::walksTheTree() {
  CParamTreeNodeImpl root(1, QStringLiteral("root"), NParamDef::NO_ID);
  addNode(root, "a", 1);
  CParamTreeNodeImpl* const group = addNode(root, "g", NParamDef::NO_ID);
  CParamTreeNodeImpl* const param = addNode(*group, "b", 2);
  QCOMPARE(param->rootPtr(), &root);
  QCOMPARE(root.rootPtr(), &root);
  QCOMPARE(param->parentPtr(), group);
  QVERIFY(!root.parentPtr());
  QCOMPARE(group->siblingNo(), 1);
  QCOMPARE(root.siblingNo(), 0);
  QCOMPARE(root.childPtr(1), group);
  QVERIFY(!root.childPtr(2));
}

void tst_CParamTree::findsChildrenByName() {
  CParamTreeNodeImpl root(1, QStringLiteral("root"), NParamDef::NO_ID);
  CParamTreeNodeImpl* const first = addNode(root, "A", 1);
  addNode(*addNode(root, "A", 2), "deeper", 3);
  QCOMPARE(root.childPtr(QStringLiteral("A")), first);
  QVERIFY(!root.childPtr(QStringLiteral("a")));
  QVERIFY(!root.childPtr(QStringLiteral("deeper")));
}

void tst_CParamTree::deletesChildrenByInterface() {
  CParamTreeNodeImpl root(1, QStringLiteral("root"), NParamDef::NO_ID);
  addNode(root, "a", 1);
  ICParamTreeNode* const deeper = addNode(*addNode(root, "g", NParamDef::NO_ID), "b", 2);
  QVERIFY(!root.deleteChild(nullptr));
  QVERIFY(!root.deleteChild(deeper));
  QVERIFY(root.deleteChild(root.childPtr(0)));
  QCOMPARE(root.childCnt(), 1);
}

void tst_CParamTree::setsSubDeviceEverywhere() {
  CParamTreeNodeImpl root(1, QStringLiteral("root"), NParamDef::NO_ID);
  CParamTreeNodeImpl* const group = addNode(root, "g", NParamDef::NO_ID);
  CParamTreeNodeImpl* const param = addNode(*addNode(*group, "h", NParamDef::NO_ID), "b", 2);
  group->setSubDevId(3);
  QCOMPARE(root.subDevId(), quint8(1));
  QCOMPARE(group->subDevId(), quint8(3));
  QCOMPARE(param->subDevId(), quint8(3));
}

void tst_CParamTree::clonesParameterTrees() {
  CParamTreeNodeImpl root(1, QStringLiteral("root"), NParamDef::NO_ID);
  CParamTreeNodeImpl* const group = addNode(root, "g", NParamDef::NO_ID);
  addNode(*group, "b", 2)->setProperty(NParamDef::PROPERTY_CHANGED, true);
  const std::unique_ptr<CParamTreeNodeImpl> copy(group->cloneMe());
  QVERIFY(!copy->parentPtr());
  QCOMPARE(copy->childPtr(0)->id(), 2U);
  QCOMPARE(copy->childPtr(0)->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
  QVERIFY(copy->childPtr(0)->removeProperty(NParamDef::PROPERTY_CHANGED));
  QVERIFY(!copy->childPtr(0)->removeProperty(NParamDef::PROPERTY_CHANGED));
  copy->removeAllChildren();
  QCOMPARE(group->childPtr(0)->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
}

QTEST_APPLESS_MAIN(tst_CParamTree)
#include "tst_CParamTree.moc"
