#include "CSubDeviceTree.h"

#include <QElapsedTimer>
#include <QMap>
#include <QRandomGenerator>
#include <QtTest>

#include <utility>

namespace {

QString text(const char* latin1) {
  return QString::fromLatin1(latin1);
}

// Trees as texts: "A( p#1=x ) q#2=y" is a group A with the parameter p of id 1 and value x, then q.
void fill(CSubDeviceTree& tree, const QString& content) {
  CParamTreeNodeImpl* group = tree.root();
  for (const QString& token : content.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    if (token == QLatin1String(")")) {
      group = static_cast<CParamTreeNodeImpl*>(group->parent());
    } else if (token.endsWith(QLatin1Char('('))) {
      group = tree.addGroup(group, token.chopped(1));
    } else {
      const QStringList parts = token.split(QRegExp(text("[#=]")));
      QVERIFY(tree.addParameter(group, parts.at(0), parts.at(1).toUInt(), parts.at(2)));
    }
  }
}

QStringList tokens(const CSubDeviceTree& tree, const CParamTreeNodeImpl& group) {
  QStringList result;
  for (int i = 0; i < group.childCount(); ++i) {
    const CParamTreeNodeImpl& node = *group.childNode(i);
    if (node.isGroup()) {
      result << QString(node.name() + QLatin1Char('(')) << tokens(tree, node) << text(")");
    } else {
      result << text("%1#%2=%3")
                    .arg(node.name(), QString::number(node.id()), tree.value(node.name()).asStr());
    }
  }
  return result;
}

QString content(const CSubDeviceTree& tree) {
  return tokens(tree, *tree.root()).join(QLatin1Char(' '));
}

CSubDeviceTree treeOf(const QString& filling, quint8 subDevId = 1) {
  CSubDeviceTree tree(subDevId);
  fill(tree, filling);
  return tree;
}

void walk(CParamTreeNodeImpl* node, QList<CParamTreeNodeImpl*>& nodes) {
  nodes.append(node);
  for (int i = 0; i < node->childCount(); ++i) walk(node->childNode(i), nodes);
}

constexpr int kGroupNames = 4;

// Random edits of a tree, with a plain map beside it of what every parameter must be.
class CEditor {
 public:
  struct SExpected {
    quint32 id;
    QString value;
    bool operator==(const SExpected& other) const { return id == other.id && value == other.value; }
  };

  CEditor(quint8 subDevId, quint32 seed) : tree(subDevId), mRandom(seed) {}

  void edit() {
    switch (mRandom.bounded(12)) {
      case 0:
        tree.addGroup(anyNode(true), name("G", kGroupNames));
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
  QMap<QString, SExpected> expected;

 private:
  QString name(const char* prefix, int count) {
    return text(prefix) + QString::number(mRandom.bounded(count));
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
    const SExpected wanted = {mRandom.bounded(3U), name("v", 1000)};
    const bool added = tree.addParameter(anyNode(true), param, wanted.id, wanted.value);
    QCOMPARE(added, !expected.contains(param));
    if (added) expected.insert(param, wanted);
  }

  void setValue() {
    const QString param = name("p", 60);
    const QString value = name("v", 1000);
    QCOMPARE(tree.setValue(param, value), expected.contains(param));
    if (expected.contains(param)) expected[param].value = value;
  }

  void deleteNode() {
    CParamTreeNodeImpl* const node = anyNode(false);
    QList<CParamTreeNodeImpl*> beneath;
    walk(node, beneath);
    QStringList names;
    for (const CParamTreeNodeImpl* each : qAsConst(beneath)) names.append(each->name());
    const bool deletable = node != tree.root();
    QCOMPARE(tree.deleteNode(node), deletable);
    for (const QString& each : qAsConst(names)) {
      if (deletable) expected.remove(each);
    }
  }

  void merge() {
    CEditor other(9, mRandom.generate());
    for (int i = 0; i < 15; ++i) other.addParameter();
    other.tree.addGroup(other.tree.root(), name("G", kGroupNames));
    for (int i = 0; i < 15; ++i) other.addParameter();
    for (auto it = other.expected.cbegin(); it != other.expected.cend(); ++it) {
      const quint32 id = it->id == 0 ? expected.value(it.key(), {0, QString()}).id : it->id;
      expected.insert(it.key(), {id, it->value});
    }
    tree.merge(std::move(other.tree));
  }

  QRandomGenerator mRandom;
};

// Every group is found as a plain search finds it, and none that is gone.
void compareGroups(const CSubDeviceTree& tree, const CParamTreeNodeImpl& parent) {
  for (int i = 0; i < kGroupNames; ++i) {
    const QString name = text("G") + QString::number(i);
    const ICParamTreeNode* const expected = parent.childPtr(name);
    QCOMPARE(tree.group(&parent, name), expected);
  }
}

// Indexes, tree and expectation say the same.
void compare(const CEditor& editor) {
  const CSubDeviceTree& tree = editor.tree;
  QList<CParamTreeNodeImpl*> nodes;
  walk(tree.root(), nodes);
  QStringList names;
  for (CParamTreeNodeImpl* node : qAsConst(nodes)) {
    QCOMPARE(node->subDevId(), tree.subDevId());
    QVERIFY(tree.owns(node));
    if (!node->isParam()) {
      compareGroups(tree, *node);
      continue;
    }
    names.append(node->name());
    QCOMPARE(tree.node(node->name()), node);
    const CEditor::SExpected found = {node->id(), tree.value(node->name()).asStr()};
    QVERIFY(editor.expected.value(node->name()) == found);
  }
  QCOMPARE(tree.names(), names);
  QCOMPARE(tree.count(), names.size());
  QCOMPARE(tree.count(), editor.expected.size());
}

}  // namespace

class tst_CSubDeviceTree : public QObject {
  Q_OBJECT
 private slots:
  void startsWithARootGroup();
  void refusesWhatIsNoParameter();
  void deletesOnlyItsOwnNodes();
  void copiesAreIndependent();
  void merges_data();
  void merges();
  void mergeKeepsNodesAndProperties();
  void randomEditsKeepTheIndexInStep_data();
  void randomEditsKeepTheIndexInStep();
  void manyParametersAreLinear();
  void deepTreesWork();
};

void tst_CSubDeviceTree::startsWithARootGroup() {
  CSubDeviceTree tree(7);
  QCOMPARE(tree.root()->name(), QStringLiteral("rootGroup"));
  QVERIFY(tree.root()->isGroup());
  QCOMPARE(tree.root()->subDevId(), quint8(7));
  QVERIFY(tree.value(text("p")).isNull());
  QVERIFY(!tree.setValue(text("p"), 1));
  QVERIFY(!tree.contains(text("p")));
}

void tst_CSubDeviceTree::refusesWhatIsNoParameter() {
  CSubDeviceTree tree = treeOf(text("A( p#1=x )"));
  QVERIFY(!tree.addParameter(tree.root(), text("p"), 2, 1));
  QVERIFY(!tree.addParameter(tree.root(), text("q"), NParamDef::NO_ID, 1));
  QVERIFY(!tree.addParameter(tree.root(), text("[standard constructed]"), 3, 1));
  tree.addGroup(tree.root(), text("A"));
  QCOMPARE(content(tree), text("A( p#1=x ) A( )"));
}

void tst_CSubDeviceTree::deletesOnlyItsOwnNodes() {
  CSubDeviceTree tree = treeOf(text("A( p#1=x B( q#2=y ) ) r#3=z"));
  CSubDeviceTree other = tree.clone();
  QVERIFY(!tree.deleteNode(nullptr));
  QVERIFY(!tree.deleteNode(tree.root()));
  QVERIFY(!tree.deleteNode(other.node(text("p"))));
  QVERIFY(!tree.owns(other.root()));
  QVERIFY(tree.deleteNode(tree.root()->childNode(0)));
  QCOMPARE(content(tree), text("r#3=z"));
  QVERIFY(!tree.contains(text("q")));
  QVERIFY(tree.addParameter(tree.root(), text("q"), 2, 1));
}

void tst_CSubDeviceTree::copiesAreIndependent() {
  CSubDeviceTree tree = treeOf(text("A( p#1=x ) r#3=z"));
  CSubDeviceTree copy = tree.cloneAs(4);
  QCOMPARE(copy.subDevId(), quint8(4));
  QCOMPARE(copy.node(text("p"))->subDevId(), quint8(4));
  copy.setValue(text("p"), text("changed"));
  copy.deleteNode(copy.node(text("r")));
  copy.root()->setProperty(NParamDef::PROPERTY_CHANGED, true);
  QCOMPARE(content(tree), text("A( p#1=x ) r#3=z"));
  QCOMPARE(tree.node(text("p"))->subDevId(), quint8(1));
  QVERIFY(!tree.root()->property(NParamDef::PROPERTY_CHANGED).isValid());

  CParamTreeNodeImpl* const root = copy.root();
  const CSubDeviceTree moved = std::move(copy);
  QCOMPARE(moved.root(), root);
  QCOMPARE(content(moved), text("A( p#1=changed )"));
}

void tst_CSubDeviceTree::merges_data() {
  QTest::addColumn<QString>("target");
  QTest::addColumn<QString>("source");
  QTest::addColumn<QString>("expected");
  const auto row = [](const char* name, const char* target, const char* source,
                      const char* result) {
    QTest::newRow(name) << text(target) << text(source) << text(result);
  };
  row("into nothing", "", "A( p#1=x ) q#2=y A( )", "A( p#1=x ) q#2=y A( )");
  row("nothing", "A( p#1=x )", "", "A( p#1=x )");
  row("value and id", "A( p#1=x )", "A( p#2=y )", "A( p#2=y )");
  row("no id", "p#1=x", "p#0=y", "p#1=y");
  row("an empty value", "p#1=x", "p#1=", "p#1=");
  row("stays where it is", "A( p#1=x )", "B( p#1=y )", "A( p#1=y ) B( )");
  row("appended", "A( p#1=x ) r#3=z", "s#4=a A( q#2=y )", "A( p#1=x q#2=y ) r#3=z s#4=a");
  row("same name elsewhere", "A( B( p#1=x ) )", "B( q#2=y )", "A( B( p#1=x ) ) B( q#2=y )");
  row("doubled groups", "A( ) A( )", "A( p#1=x ) A( q#2=y ) A( r#3=z )",
      "A( p#1=x ) A( q#2=y ) A( r#3=z )");
  row("case", "A( p#1=x )", "a( P#1=x )", "A( p#1=x ) a( P#1=x )");
  row("a group called like a parameter", "p#1=x", "p( q#2=y )", "p#1=x p( q#2=y )");
}

void tst_CSubDeviceTree::merges() {
  QFETCH(QString, target);
  QFETCH(QString, source);
  CSubDeviceTree tree = treeOf(target);
  tree.merge(treeOf(source, 2));
  QTEST(content(tree), "expected");
  // Loading the same once more changes nothing.
  tree.merge(treeOf(source, 2));
  QTEST(content(tree), "expected");
}

void tst_CSubDeviceTree::mergeKeepsNodesAndProperties() {
  CSubDeviceTree tree = treeOf(text("A( p#1=x )"));
  CSubDeviceTree other = treeOf(text("A( p#2=y q#3=z ) B( )"), 2);
  const CParamTreeNodeImpl* const kept = tree.node(text("p"));
  tree.node(text("p"))->setProperty(NParamDef::PROPERTY_CHANGED, true);
  other.node(text("q"))->setProperty(NParamDef::PROPERTY_ERROR, 5);
  tree.merge(std::move(other));
  QCOMPARE(tree.node(text("p")), kept);
  QCOMPARE(kept->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
  QCOMPARE(tree.node(text("q"))->property(NParamDef::PROPERTY_ERROR), QVariant(5));
  QCOMPARE(tree.root()->childNode(1)->subDevId(), quint8(1));
}

void tst_CSubDeviceTree::randomEditsKeepTheIndexInStep_data() {
  QTest::addColumn<quint32>("seed");
  for (quint32 seed = 1; seed <= 8; ++seed) QTest::addRow("seed %u", seed) << seed;
}

void tst_CSubDeviceTree::randomEditsKeepTheIndexInStep() {
  QFETCH(quint32, seed);
  CEditor editor(3, seed);
  for (int i = 0; i < 600; ++i) {
    editor.edit();
    compare(editor);
    if (QTest::currentTestFailed()) return;
  }
}

// In one flat group and in as many groups of one name, where a search per node would be quadratic.
void tst_CSubDeviceTree::manyParametersAreLinear() {
  constexpr quint32 kCount = 100000;
  CSubDeviceTree tree(1);
  CSubDeviceTree other(1);
  QElapsedTimer timer;
  timer.start();
  for (CSubDeviceTree* each : {&tree, &other}) {
    each->reserve(kCount);
    CParamTreeNodeImpl* const flat = each->addGroup(each->root(), text("flat"));
    for (quint32 i = 0; i < kCount; ++i) {
      each->addParameter(flat, QString::number(i), i, 1);
      each->addGroup(each->root(), text("same"));
    }
  }
  tree.merge(std::move(other));
  QCOMPARE(tree.root()->childCount(), static_cast<int>(kCount) + 1);
  CSubDeviceTree copy = tree.cloneAs(2);
  QCOMPARE(copy.names(), tree.names());
  QVERIFY(copy.deleteNode(copy.root()->childNode(0)));
  QCOMPARE(copy.count(), 0);
  QVERIFY(timer.elapsed() < 10000);
}

void tst_CSubDeviceTree::deepTreesWork() {
  CSubDeviceTree tree(1);
  CParamTreeNodeImpl* group = tree.root();
  for (int i = 0; i < 1024; ++i) group = tree.addGroup(group, text("g"));
  tree.addParameter(group, text("p"), 1, 1);
  CSubDeviceTree other = tree.cloneAs(2);
  other.setValue(text("p"), 2);
  tree.merge(std::move(other));
  QCOMPARE(tree.value(text("p")), CParamVal(2));
  QCOMPARE(tree.names(), QStringList(text("p")));
}

QTEST_APPLESS_MAIN(tst_CSubDeviceTree)
#include "tst_CSubDeviceTree.moc"
