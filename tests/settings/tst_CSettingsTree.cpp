#include "CSettingsTreeNodeImpl.h"
#include "TestRows.h"

using Node = CSettingsTreeNodeImpl;

class tst_CSettingsTree : public QObject {
  Q_OBJECT

 private slots:
  void kinds_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isGroup");
    QTest::addColumn<bool>("isParam");
    addRow("group", "G", 0, true, false);
    addRow("unsigned value", "V", 1, false, true);
    addRow("boolean value", "V", 11, false, true);
    addRow("no name, no type", "", 0, false, false);
    addRow("no name, but a type", "", 10, false, false);
  }

  /// Only a value carries a value and a unit; everything carries a comment.
  void kinds() {
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(bool, isGroup);
    QFETCH(bool, isParam);
    Node node(name, Node::ESettingsType(type));
    node.setValue(CParamVal("0x1"));
    node.setUnit("mm");
    node.setComment("x");
    const Node copy(node.data());
    for (const Node* each : {static_cast<const Node*>(&node), &copy}) {
      QCOMPARE(each->name(), name);
      QCOMPARE(int(each->type()), type);
      QCOMPARE(each->isGroup(), isGroup);
      QCOMPARE(each->isParam(), isParam);
      QCOMPARE(each->dataRef().isValid(), isGroup || isParam);
      QCOMPARE(each->value().asStr(), isParam ? "0x1" : "");
      QCOMPARE(each->value().isNull(), !isParam);
      QCOMPARE(each->unit(), isParam ? "mm" : "");
      QCOMPARE(each->comment(), "x");
    }
  }

  void navigation() {
    Node root("root", Node::TypeGroup);
    auto* const first = new Node("A", Node::TypeInt8);
    auto* const group = new Node("A", Node::TypeGroup);
    auto* const inner = new Node("B", Node::TypeInt8);
    root.addChild(first);
    root.addChild(group);
    group->addChild(inner);
    QCOMPARE(root.childCnt(), 2);
    QVERIFY(root.childPtr(0) == first && root.childPtr(1) == group);
    QVERIFY(!root.childPtr(2) && !root.childPtr(-1) && !root.parentPtr());
    QVERIFY(root.rootPtr() == &root && inner->rootPtr() == &root);
    QVERIFY(inner->parentPtr() == group);
    QCOMPARE(root.siblingNo(), 0);
    QCOMPARE(group->siblingNo(), 1);

    Node unlisted("C", Node::TypeInt8);
    unlisted.setParent(&root);
    QCOMPARE(unlisted.siblingNo(), -1);
  }

  void properties() {
    Node node("A", Node::TypeInt8);
    QVERIFY(!node.property("key").isValid());
    node.setProperty("key", 1);
    node.setProperty("key", 2);
    QCOMPARE(node.property("key"), QVariant(2));
    QVERIFY(!node.removeProperty("Key"));
    QVERIFY(node.removeProperty("key"));
    QVERIFY(!node.property("key").isValid());
  }
};

QTEST_APPLESS_MAIN(tst_CSettingsTree)
#include "tst_CSettingsTree.moc"
