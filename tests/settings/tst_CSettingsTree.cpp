#include "CSettingsTreeNodeImpl.h"

#include <QtTest>

using ESettingsType = ICSettingsTreeNode::ESettingsType;

class tst_CSettingsTree : public QObject {
  Q_OBJECT

 private slots:
  void kinds_data();
  void kinds();
  void navigation();
  void properties();
};

void tst_CSettingsTree::kinds_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<int>("type");
  QTest::addColumn<bool>("isGroup");
  QTest::addColumn<bool>("isParam");
  QTest::newRow("group") << "G" << 0 << true << false;
  QTest::newRow("unsigned value") << "V" << 1 << false << true;
  QTest::newRow("boolean value") << "V" << 11 << false << true;
  QTest::newRow("no name, no type") << "" << 0 << false << false;
  QTest::newRow("no name, but a type") << "" << 10 << false << false;
}

// Only a value carries a value and a unit; everything carries a comment.
void tst_CSettingsTree::kinds() {
  QFETCH(QString, name);
  QFETCH(int, type);
  QFETCH(bool, isGroup);
  QFETCH(bool, isParam);
  CSettingsTreeNodeImpl node(name, static_cast<ESettingsType>(type));
  QCOMPARE(node.name(), name);
  QCOMPARE(static_cast<int>(node.type()), type);
  QCOMPARE(node.isGroup(), isGroup);
  QCOMPARE(node.isParam(), isParam);
  QCOMPARE(node.dataRef().isValid(), isGroup || isParam);

  node.setValue(CParamVal("0x1"));
  node.setUnit(QStringLiteral("mm"));
  node.setComment(QStringLiteral("x"));
  QCOMPARE(node.value().asStr(), isParam ? QStringLiteral("0x1") : QString());
  QCOMPARE(node.value().isNull(), !isParam);
  QCOMPARE(node.unit(), isParam ? QStringLiteral("mm") : QString());
  QCOMPARE(node.comment(), QStringLiteral("x"));

  const CSettingsTreeNodeImpl copy(node.data());
  QCOMPARE(copy.value(), node.value());
  QCOMPARE(copy.unit(), node.unit());
  QCOMPARE(copy.comment(), node.comment());
}

void tst_CSettingsTree::navigation() {
  CSettingsTreeNodeImpl root(QStringLiteral("root"), ICSettingsTreeNode::TypeGroup);
  auto* const first = new CSettingsTreeNodeImpl(QStringLiteral("A"), ICSettingsTreeNode::TypeInt8);
  auto* const group = new CSettingsTreeNodeImpl(QStringLiteral("A"), ICSettingsTreeNode::TypeGroup);
  auto* const inner = new CSettingsTreeNodeImpl(QStringLiteral("B"), ICSettingsTreeNode::TypeInt8);
  root.addChild(first);
  root.addChild(group);
  group->addChild(inner);

  const ICSettingsTreeNode* const noNode = nullptr;
  QCOMPARE(root.childCnt(), 2);
  QCOMPARE(root.childPtr(0), static_cast<ICSettingsTreeNode*>(first));
  QCOMPARE(root.childPtr(1), static_cast<ICSettingsTreeNode*>(group));
  QCOMPARE(root.childPtr(2), noNode);
  QCOMPARE(root.childPtr(-1), noNode);
  QCOMPARE(root.parentPtr(), noNode);
  QCOMPARE(root.rootPtr(), static_cast<ICSettingsTreeNode*>(&root));
  QCOMPARE(inner->rootPtr(), static_cast<ICSettingsTreeNode*>(&root));
  QCOMPARE(inner->parentPtr(), static_cast<ICSettingsTreeNode*>(group));
  QCOMPARE(root.siblingNo(), 0);
  QCOMPARE(group->siblingNo(), 1);

  CSettingsTreeNodeImpl unlisted(QStringLiteral("C"), ICSettingsTreeNode::TypeInt8);
  unlisted.setParent(&root);
  QCOMPARE(unlisted.siblingNo(), -1);
}

void tst_CSettingsTree::properties() {
  CSettingsTreeNodeImpl node(QStringLiteral("A"), ICSettingsTreeNode::TypeInt8);
  QVERIFY(!node.property(QStringLiteral("key")).isValid());
  node.setProperty(QStringLiteral("key"), 1);
  node.setProperty(QStringLiteral("key"), 2);
  QCOMPARE(node.property(QStringLiteral("key")), QVariant(2));
  QVERIFY(!node.removeProperty(QStringLiteral("Key")));
  QVERIFY(node.removeProperty(QStringLiteral("key")));
  QVERIFY(!node.property(QStringLiteral("key")).isValid());
}

QTEST_APPLESS_MAIN(tst_CSettingsTree)
#include "tst_CSettingsTree.moc"
