#include "CSubDeviceTree.h"
#include "CaseFile.h"
#include "TreeText.h"

#include <QMap>
#include <QRandomGenerator>
#include <QtTest>

#include <utility>

using namespace NTreeText;

namespace {

void walk(CParamTreeNodeImpl* node, QList<CParamTreeNodeImpl*>& nodes) {
  nodes.append(node);
  for (int i = 0; i < node->childCount(); ++i) walk(node->childNode(i), nodes);
}

// Random edits of a tree, and a plain map of the id and value that every parameter must have.
class CEditor {
 public:
  CEditor(quint8 subDevId, quint32 seed) : tree(subDevId), mRandom(seed) {}

  void edit() {
    switch (mRandom.bounded(12)) {
      case 0:
        tree.addGroup(anyNode(true), name("G", 4));
        break;
      case 1:
        deleteNode();
        break;
      case 2:
        setValue();
        break;
      case 3:
        tree = mRandom.bounded(2) ? tree.clone() : tree.cloneAs(tree.subDevId());
        break;
      case 4:
        merge();
        break;
      default:
        addParameter();
    }
  }

  CSubDeviceTree tree;
  QMap<QString, QPair<quint32, QString>> expected;

 private:
  QString name(const char* prefix, int count) {
    return prefix + QString::number(mRandom.bounded(count));
  }

  CParamTreeNodeImpl* anyNode(bool group) {
    QList<CParamTreeNodeImpl*> nodes;
    walk(tree.root(), nodes);
    CParamTreeNodeImpl* node = nullptr;
    while (!node || (group && !node->isGroup())) node = nodes.at(mRandom.bounded(nodes.size()));
    return node;
  }

  void addParameter() {
    const QString param = name("p", 60);
    const quint32 id = mRandom.bounded(3U);
    const QString value = name("v", 1000);
    const bool isNew = !expected.contains(param);
    if (isNew) expected.insert(param, {id, value});
    QCOMPARE(tree.addParameter(anyNode(true), param, id, value) != nullptr, isNew);
  }

  void setValue() {
    const QString param = name("p", 60);
    const QString value = name("v", 1000);
    QCOMPARE(tree.setValue(param, value), expected.contains(param));
    if (expected.contains(param)) expected[param].second = value;
  }

  void deleteNode() {
    CParamTreeNodeImpl* const node = anyNode(false);
    const bool deletable = node != tree.root();
    QList<CParamTreeNodeImpl*> beneath;
    walk(node, beneath);
    for (const CParamTreeNodeImpl* each : qAsConst(beneath))
      if (deletable) expected.remove(each->name());
    QCOMPARE(tree.deleteNode(node), deletable);
  }

  void merge() {
    CEditor other(9, mRandom.generate());
    for (int i = 0; i < 15; ++i) other.addParameter();
    other.tree.addGroup(other.tree.root(), name("G", 4));
    for (int i = 0; i < 15; ++i) other.addParameter();
    for (const QString& param : other.expected.keys()) {
      const quint32 before = expected[param].first;
      expected[param] = other.expected[param];
      if (expected[param].first == 0) expected[param].first = before;
    }
    tree.merge(std::move(other.tree));
  }

  QRandomGenerator mRandom;
};

// Indexes, tree and expectation say the same.
void compare(const CEditor& editor) {
  const CSubDeviceTree& tree = editor.tree;
  QList<CParamTreeNodeImpl*> nodes;
  walk(tree.root(), nodes);
  QStringList names;
  for (CParamTreeNodeImpl* node : qAsConst(nodes)) {
    const QString name = node->name();
    QCOMPARE(node->subDevId(), tree.subDevId());
    QVERIFY(tree.owns(node));
    for (const char* group : {"G0", "G1", "G2", "G3"})
      QCOMPARE(tree.group(node, group), node->childPtr(group));
    if (!node->isParam()) continue;
    names.append(name);
    QCOMPARE(tree.node(name), node);
    QCOMPARE(qMakePair(node->id(), tree.value(name).asStr()), editor.expected.value(name));
  }
  QCOMPARE(tree.names(), names);
  QCOMPARE(tree.count(), names.size());
  QCOMPARE(tree.count(), editor.expected.size());
}

}  // namespace

class tst_CSubDeviceTree : public QObject {
  Q_OBJECT
 private slots:
  void refusesWhatIsNoParameter() {
    CSubDeviceTree tree = fromText("A( p#1=x )", 7);
    QVERIFY(tree.root()->isGroup() && tree.root()->name() == "rootGroup");
    QVERIFY(tree.value("q").isNull() && !tree.addParameter(tree.root(), "p", 2, 1));
    QVERIFY(!tree.addParameter(tree.root(), "q", NParamDef::NO_ID, 1));
    QVERIFY(!tree.addParameter(tree.root(), "[standard constructed]", 3, 1));
    tree.addGroup(tree.root(), "A");
    QCOMPARE(toText(tree), QString("A( p#1=x ) A( )"));
  }

  void copiesAreIndependent() {
    CSubDeviceTree tree = fromText("A( p#1=x B( q#2=y ) ) r#3=z");
    CSubDeviceTree copy = tree.cloneAs(4);
    QVERIFY(copy.subDevId() == 4 && copy.node("p")->subDevId() == 4);
    QVERIFY(!tree.owns(copy.root()) && !tree.deleteNode(nullptr));
    QVERIFY(!tree.deleteNode(tree.root()) && !tree.deleteNode(copy.node("p")));
    copy.setValue("p", "changed");
    copy.deleteNode(copy.node("r"));
    copy.root()->setProperty(NParamDef::PROPERTY_CHANGED, true);
    QVERIFY(tree.deleteNode(tree.root()->childNode(0)->childNode(1)) &&
            tree.addGroup(tree.root(), "q"));
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

  void randomEditsKeepTheIndexInStep() {
    for (quint32 seed = 1; seed <= 8; ++seed) {
      CEditor editor(3, seed);
      for (int i = 0; i < 600 && !QTest::currentTestFailed(); ++i) {
        editor.edit();
        compare(editor);
      }
    }
  }
};

QTEST_APPLESS_MAIN(tst_CSubDeviceTree)
#include "tst_CSubDeviceTree.moc"
