#include "CSettingsFileImpl.h"
#include "GoldenFiles.h"
#include "ICLogfile.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QTemporaryDir>

using namespace NTestFiles;
using CNode = CSettingsTreeNodeImpl;
using EError = ICSettingsFile::ESettingsError;
Q_DECLARE_METATYPE(ICSettingsFile::ESettingsError)

namespace {

const QString kVersion = "1.0";

QByteArray document(const QString& content) {
  return QString("<C_SETTINGS_FORMAT>" + content + "</C_SETTINGS_FORMAT>").toUtf8();
}

QString saved(ICSettingsFile& file) {
  QByteArray buffer;
  const EError result = file.saveToBuffer(buffer, kVersion);
  return result == EError::NoError
             ? QString::fromUtf16(reinterpret_cast<const ushort*>(buffer.constData()),
                                  buffer.size() / 2)
             : file.errorMsg();
}

}  // namespace

class tst_CSettingsFile : public QObject {
  Q_OBJECT

 private slots:
  void saveWithoutTree() {
    const QString name = mFolder.filePath("missing/%1");
    CSettingsFileImpl file(nullptr);
    ICSettingsFile& settings = file;
    QByteArray buffer = "before";
    QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::SaveError);
    QCOMPARE(buffer, "before");
    QCOMPARE(file.load(example("MachineSettings.xset"), kVersion), EError::NoError);
    QCOMPARE(settings.save(name, kVersion), EError::SaveError);
    QCOMPARE(
        file.errorMsg(),
        QString("File \"" + name + "\": the file cannot be written: No such file or directory."));
    file.clear();
    QVERIFY(file.root() == nullptr);
    QCOMPARE(settings.save(name, kVersion), EError::SaveError);
    QCOMPARE(file.errorMsg(), QString("File \"" + name + "\": There are no settings to save."));
  }

  /// Only a value carries a value and a unit; what has no name is neither value nor group.
  void nodesByKind() {
    for (int type = CNode::TypeGroup; type <= CNode::TypeBoolean; ++type) {
      for (const char* name : {"V", ""}) {
        const bool isParam = type > 0 && *name != 0;
        CNode node(name, CNode::ESettingsType(type));
        node.setValue("0x1");
        node.setUnit("mm");
        QCOMPARE(node.isGroup(), type == 0 && *name != 0);
        QCOMPARE(node.isParam(), isParam);
        QCOMPARE(node.dataRef().isValid(), *name != 0);
        QCOMPARE(node.value().isNull(), !isParam);
        QCOMPARE(node.unit(), isParam ? "mm" : "");
      }
    }
  }

  void navigation() {
    CNode root("root", CNode::TypeGroup);
    auto* const group = new CNode("A", CNode::TypeGroup);
    auto* const inner = new CNode("B", CNode::TypeInt8);
    root.addChild(new CNode("A", CNode::TypeInt8));
    root.addChild(group);
    group->addChild(inner);
    QVERIFY(root.childPtr(1) == group && !root.childPtr(2) && !root.parentPtr());
    QVERIFY(root.rootPtr() == &root && inner->rootPtr() == &root && inner->parentPtr() == group);
    inner->setProperty("key", 2);
    QVERIFY(group->siblingNo() == 1 && inner->property("key") == QVariant(2));
    QVERIFY(!inner->removeProperty("Key") && inner->removeProperty("key"));
  }

  void editedTreeIsSaved() {
    CSettingsFileImpl file(nullptr);
    QCOMPARE(
        file.loadFromBuffer(document("<A Type='UINT8' unit='m'>0x1</A><G><!-- --></G>"), kVersion),
        EError::NoError);
    QCOMPARE(file.root()->name(), "C_SETTINGS_FORMAT");
    file.root()->childPtr(0)->setValue(CParamVal(static_cast<unsigned char>(255)));
    file.root()->childPtr(0)->setUnit("");
    auto* const group = static_cast<CNode*>(file.root()->childPtr(1));
    group->setComment("c");
    // Nodes without a name are not written, nor does their group count as filled by them.
    group->addChild(new CNode("", CNode::TypeGroup));
    group->addChild(new CNode("", CNode::TypeInt8));
    QCOMPARE(saved(file).section('\n', 2),
             " <A Type=\"UINT8\">0xff</A>\n <G comment=\"c\"><!----></G>\n</C_SETTINGS_FORMAT>\n");
  }

  void savesWhatCanBeLoaded_data() {
    addColumns<QString, int, QString, QString, QString>("name", "type", "value", "unit", "message");
    const QString held = " holds the character \\u0007, which XML cannot hold.";
    addRow("value", "A", 10, "\x7", "m", "<A>: the text of <A>" + held);
    addRow("unit", "A", 10, "x", "\x7", "<A>: attribute \"unit\"" + held);
    addRow("name", "1", 10, "x", "m", "\"1\" cannot be the name of an XML element.");
    const QString missing =
        "The value <Port> of type %1 has no text, so it could not be loaded again.";
    for (int type = CNode::TypeUInt8; type <= CNode::TypeBoolean; ++type) {
      const QString& tag = CSettingsFileImpl::mTypeTags.at(type);
      const QString message = type == CNode::TypeString ? QString() : missing.arg(tag);
      addRow(qPrintable(tag + " empty"), "Port", type, "", "", message);
      addRow(qPrintable(tag + " blank"), "Port", type, " \t\r\n", "", message);
      addRow(qPrintable(tag + " no-break space"), "Port", type, u8"\u00a0", "", "");
    }
  }
  /// What a load would refuse is not written, however deep it lies: a save that fails leaves the
  /// old file and the old buffer. What is written can be loaded.
  void savesWhatCanBeLoaded() {
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(QString, value);
    QFETCH(QString, unit);
    QFETCH(QString, message);
    CSettingsFileImpl file(nullptr);
    ICSettingsFile& settings = file;
    QCOMPARE(file.loadFromBuffer(document("<G><H><!-- --></H></G>"), kVersion), EError::NoError);
    auto* const node = new CNode(name, CNode::ESettingsType(type));
    node->setValue(value);
    node->setUnit(unit);
    static_cast<CNode*>(file.root()->childPtr(0)->childPtr(0))->addChild(node);

    const bool isGood = message.isEmpty();
    const QString path = mFolder.filePath("file");
    QByteArray buffer = "old";
    QVERIFY(write(path, buffer));
    QCOMPARE(int(settings.save(path, kVersion)), isGood ? 0 : 5);
    QCOMPARE(file.errorMsg(), isGood ? QString() : QString("File \"" + path + "\": " + message));
    QCOMPARE(int(file.saveToBuffer(buffer, kVersion)), isGood ? 0 : 5);
    QCOMPARE(file.errorMsg(), message);
    QCOMPARE(read(path), buffer);
    QCOMPARE(file.loadFromBuffer(buffer, kVersion) == EError::NoError, isGood);
  }

  /// The deepest tree that a file can hold is read, written and read again; one more level is
  /// refused by both.
  void deepestTree() {
    const auto nested = [&](int groups) {
      return document(QString("<G>").repeated(groups) + "<A Type='UINT8'>0x1</A>" +
                      QString("</G>").repeated(groups));
    };
    CSettingsFileImpl file(nullptr);
    QCOMPARE(file.loadFromBuffer(nested(1023), kVersion), EError::OpenError);
    QCOMPARE(file.loadFromBuffer(nested(1022), kVersion), EError::NoError);
    const QString text = saved(file);
    QCOMPARE(file.loadFromBuffer(text.mid(text.indexOf('\n')).toUtf8(), kVersion), EError::NoError);
    QCOMPARE(saved(file), text);

    CTreeNode<CSettingsNodeData>* innermost = static_cast<CNode*>(file.root());
    while (innermost->childCount() > 0) innermost = innermost->child(0);
    auto* const group = new CNode("G", CNode::TypeGroup);
    group->addChild(new CNode("A", CNode::TypeString));
    innermost->parent()->addChild(group);
    QVERIFY(saved(file).contains("1024"));
  }

  /// Through Qt's document goes the same tree, in both directions.
  void qtDocument() {
    CSettingsFileImpl file(nullptr);
    QCOMPARE(file.load(data("settings/valid/groups.xml"), kVersion), EError::NoError);
    const QString text = saved(file);
    QDomDocument document;
    QDomElement root = document.createElement("C_SETTINGS_FORMAT");
    document.appendChild(root);
    QCOMPARE(file.appendGroupToDom(root, file.root()), EError::NoError);
    QCOMPARE(file.loadFromBuffer(document.toByteArray(), kVersion), EError::NoError);
    QCOMPARE(saved(file), text);

    EError error = EError::NoError;
    QVERIFY(!file.toValue(root, error));
    QCOMPARE(error, EError::NoError);
    QCOMPARE(file.toValue(root.lastChildElement(), error)->value(), CParamVal("0x2"));
    auto* const tree = static_cast<CNode*>(file.root());
    tree->removeAllChildren();
    QCOMPARE(file.readGroupFromDom(root, tree), EError::NoError);
    QCOMPARE(saved(file), text);

    tree->removeAllChildren();
    QVERIFY(document.setContent(read(data("settings/valid/escapes.xml"))));
    QCOMPARE(file.readGroupFromDom(document.documentElement(), tree), EError::NoError);
    QByteArray bytes;
    QCOMPARE(file.saveToBuffer(bytes, kVersion), EError::NoError);
    QCOMPARE(bytes, read(data("settings/saved/escapes.xml")));
  }

  /// A given logfile gets what is posted and stays the caller's; an own one leaves no file.
  void logfiles() {
    const QString name = mFolder.filePath("settings.log");
    const std::unique_ptr<ICLogfile> log(
        ICLogfile::createLogfile(ICLogfile::LogFile, name, ICLogfile::kLevelErrors));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mFolder.path()));
    for (ICLogfile* each : {log.get(), static_cast<ICLogfile*>(nullptr)}) {
      const std::unique_ptr<ICSettingsFile> file(ICSettingsFile::create(each));
      QCOMPARE(file->loadFromBuffer(document("<A/>"), kVersion), EError::TypeError);
      QVERIFY(read(name).contains(file->errorMsg().toUtf8()));
    }
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(log->isActive());
    QVERIFY(!QFile::exists(mFolder.filePath("ICSettingsFile.log")));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(tst_CSettingsFile)
#include "tst_CSettingsFile.moc"
