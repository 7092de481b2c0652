#include "CParameterFileModel.h"

#include "CParamVal.h"
#include "GoldenFiles.h"
#include "ICParamTreeNode.h"
#include "paramfile/ExampleDrive.h"

#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

namespace {

using Model = CParameterFileModel;

/// The tree as the model shows it: names by depth, with the values of parameters.
QStringList outline(const Model& model, const QModelIndex& parent = {}, int depth = 0) {
  QStringList lines;
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex name = model.index(row, Model::NameColumn, parent);
    const QModelIndex value = name.siblingAtColumn(Model::ValueColumn);
    lines += QString(depth, ' ') + name.data().toString() + '=' +
             value.data(Model::RawValueRole).toString();
    lines += outline(model, name, depth + 1);
  }
  return lines;
}

/// The same as the file has it.
QStringList outline(const ICParameterFile& file, const ICParamTreeNode& node, int depth) {
  const QString name = depth == 0 ? file.subDevName(node.subDevId()) : node.name();
  QStringList lines(QString(depth, ' ') + name + '=' + node.value().asStr());
  for (int i = 0; i < node.childCnt(); ++i) lines += outline(file, *node.childPtr(i), depth + 1);
  return lines;
}

QStringList outline(ICParameterFile& file) {
  QStringList lines;
  for (const quint8 id : file.subDeviceIds()) lines += outline(file, *file.rootGroup(id), 0);
  return lines;
}

/// A file, its model, and Qt's own watch over the model.
struct SWatched {
  explicit SWatched(CParameterFilePtr given = loadDrive()) : file(std::move(given)) {}

  CParameterFilePtr file;
  Model model{file.get()};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};

  QModelIndex value(const QString& name, quint8 subDevId = 0) const {
    return model.indexOf(name, subDevId, Model::ValueColumn);
  }
};

int roleOf(const QString& name) {
  QHash<int, QByteArray> names = Model().roleNames();
  names.insert(Qt::CheckStateRole, "checkState");  // Qt has no name for it
  return names.key(name.toUtf8(), -1);
}

QVariant fromJson(const QString& value) {
  return QJsonDocument::fromJson('[' + value.toUtf8() + ']').array().at(0).toVariant();
}

}  // namespace

class tst_CParameterFileModel : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void showsTheTree() {
    SWatched drive;
    QCOMPARE(outline(drive.model), outline(*drive.file));
    QCOMPARE(drive.model.columnCount(), 5);
    QVERIFY(drive.model.selectHardwareId("KTO-2A-32"));
    QCOMPARE(outline(drive.model), outline(*drive.file));
    QVERIFY(!drive.model.selectHardwareId("other"));
    QCOMPARE(drive.model.errorMsg(), "Hardware id \"other\" does not exist. Select failed.");
    QCOMPARE(outline(drive.model), outline(*drive.file));
  }

  void isEmptyWithoutFile() {
    SWatched none(nullptr);
    Model& model = none.model;
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.indexOf("Speed", 1).isValid() && !model.selectHardwareId("A"));
    model.valueChanged("Speed", 1);
    const CParameterFilePtr file = makeSmall();
    model.setFile(file.get());
    QCOMPARE(outline(model),
             QStringList({"Sub-device 1=", " G=", "  Inner=", "   Speed=0xa", " Mode=-1"}));
    model.setFile(nullptr);
    QCOMPARE(model.rowCount(), 0);
  }

  void texts_data() {
    NGoldenFiles::addTable("qtmodel/shown.txt", {"name", "column", "role", "expected"});
  }
  void texts() {
    const auto [name, column, role] = textCells("name", "column", "role");
    const SWatched drive;
    QStringList columns;
    for (int i = 0; i < drive.model.columnCount(); ++i)
      columns += drive.model.headerData(i, Qt::Horizontal).toString();
    const QModelIndex index = drive.model.indexOf(name, 0, columns.indexOf(column));
    const QVariant shown = index.data(roleOf(role));
    const bool isList = shown.type() == QVariant::StringList;
    const QString text = isList ? shown.toStringList().join(", ") : shown.toString();
    QTEST(shown.isValid() ? text : "-", "expected");
  }

  void edits_data() {
    NGoldenFiles::addTable("qtmodel/edits.txt",
                           {"kind", "name", "role", "input", "stored", "reason"});
  }
  void edits() {
    const auto [name, role, input, stored, reason] =
        textCells("name", "role", "input", "stored", "reason");
    SWatched drive;
    QSignalSpy refused(&drive.model, &Model::editRefused);
    const QModelIndex index = drive.value(name);
    QVERIFY(index.flags() & Qt::ItemIsEditable);
    QCOMPARE(bool(index.flags() & Qt::ItemIsUserTristate),
             drive.file->paramDef(name).checkVals().hasUndefined);
    QCOMPARE(drive.model.setData(index, fromJson(input), roleOf(role)), reason.isEmpty());
    QCOMPARE(drive.file->paramValue(name, 0).asStr(), fromJson(stored).toString());
    QCOMPARE(drive.model.errorMsg(), reason);
    QCOMPARE(refused.count(), reason.isEmpty() ? 0 : 1);
    if (reason.isEmpty()) return;
    QCOMPARE(refused.at(0), QVariantList({index, reason}));
    QVERIFY(!drive.file->isChanged());
  }

  void anEditMarksAndTells() {
    SWatched drive;
    const QModelIndex index = drive.value("VelocityLimit", 2);
    QSignalSpy changed(&drive.model, &Model::dataChanged);
    // An editor that leaves the text as it was changes nothing.
    QVERIFY(drive.model.setData(index, index.data(Qt::EditRole)));
    QVERIFY(!drive.file->isChanged() && changed.isEmpty());
    QVERIFY(drive.model.setData(index, "700"));
    QCOMPARE(drive.file->changedList(), QStringList("KTO-2A-16"));
    QVERIFY(index.data(Model::ChangedRole).toBool());
    QVERIFY(!drive.value("VelocityLimit", 3).data(Model::ChangedRole).toBool());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), index.siblingAtColumn(0));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), index.siblingAtColumn(Model::ColumnCount - 1));

    drive.file->setParamValue("VelocityLimit", CParamVal(300), 2);
    drive.model.valueChanged("VelocityLimit", 2);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(index.data().toString(), "300");
  }

  /// What an editor is given, it may give back without changing anything, however odd the
  /// definition.
  void editors() {
    const CParameterFilePtr file = makeSmall();
    CParamDefItem* mode = file->paramDefPtr("Mode");
    mode->addEnums({{-1, "same"}, {2, "same"}, {3, "4"}, {4, "other"}});
    mode->setCheckVals({4, 3, true, -1});
    Model model(file.get());
    const QModelIndex index = model.indexOf("Mode", 1, Model::ValueColumn);
    file->setParamValue("Mode", CParamVal(2), 1);
    QVERIFY(model.setData(index, index.data(Qt::EditRole)));
    QCOMPARE(file->paramValue("Mode", 1).asStr(), "2");
    QVERIFY(!index.data(Qt::CheckStateRole).isValid());  // the choices are shown

    file->setParamValue("Speed", "abc", 1);
    const QModelIndex speed = model.indexOf("Speed", 1, Model::ValueColumn);
    QVERIFY(model.setData(speed, "0"));  // which "abc" counts as elsewhere
    QCOMPARE(speed.data(Model::RawValueRole).toString(), "0x0");
    QVERIFY(speed.data(Model::ChangedRole).toBool());
    file->paramDefPtr("Speed")->setDefVal("x");
    QVERIFY(!speed.data(Model::IsDefaultRole).toBool());

    file->clear();
    model.setFile(nullptr);
  }

  /// The group answers with the value of another one, an edit goes to the own.
  void showsItsOwnFileOfAGroup() {
    const auto make = [](const char* value) {
      CParameterFilePtr file(ICParameterFile::create(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
      file->addHardwareId("A");
      file->addDef(value, NParamDef::PARAM_TYPE_U8, NParamDef::NO_ID);
      file->addParameter(file->rootGroup(1), "0x1", value);
      return file;
    };
    const CParameterFilePtr first = make("0x1");
    SWatched second(make("0x2"));
    const QModelIndex index = second.value("0x1", 1);
    QCOMPARE(index.data(Model::RawValueRole).toString(), "0x2");
    QVERIFY(second.model.setData(index, "5"));
    QCOMPARE(index.data(Model::RawValueRole).toString(), "0x5");
  }

  void undefinedParameters() {
    SWatched drive;
    drive.model.change([](ICParameterFile& file) {
      file.clear();
      file.loadParamFile(NTestFiles::example("TwoAxisDrive.xparam"), "KTO-2A-32", 0x10000);
    });
    const QModelIndex index = drive.value("UnitTemperature");
    QVERIFY(!index.data(Model::IsDefinedRole).toBool() && !(index.flags() & Qt::ItemIsEditable));
    QVERIFY(!drive.model.setData(index, "0x1"));
    QCOMPARE(drive.model.errorMsg(), "The parameter is not defined.");
    QCOMPARE(index.data().toString(), "0x0");
  }

  void aUnitFollowsItsParameter() {
    SWatched drive;
    const QModelIndex unit = drive.model.indexOf("FanOffTemperature", 0, Model::UnitColumn);
    const QModelIndex ofAxis = drive.model.indexOf("VelocityLimit", 2, Model::UnitColumn);
    QCOMPARE(unit.data().toString(), "°C");
    QCOMPARE(ofAxis.data().toString(), "mm/s");
    QSignalSpy changed(&drive.model, &Model::dataChanged);
    QVERIFY(drive.model.setData(drive.value("UnitTemperature"), "K"));
    QVERIFY(drive.model.setData(drive.value("UnitVelocity"), "m/min"));
    QCOMPARE(unit.data().toString(), "K");
    QCOMPARE(ofAxis.data().toString(), "m/min");  // from another sub-device
    bool isTold = false;
    for (const QList<QVariant>& signal : qAsConst(changed)) {
      const QModelIndex first = signal.at(0).toModelIndex();
      isTold |= first.parent() == ofAxis.parent() && first.column() <= Model::UnitColumn &&
                signal.at(1).toModelIndex().row() >= ofAxis.row();
    }
    QVERIFY(isTold);
    changed.clear();
    drive.file->setParamValue("UnitTemperature", "0x0", 0);
    drive.model.valueChanged("UnitTemperature", 0);
    QVERIFY(changed.count() > 1 && unit.data() == "°C");
    changed.clear();
    const QModelIndex parameter = drive.value("UnitTemperature");
    QVERIFY(drive.model.removeRows(parameter.row(), 1, parameter.parent()));
    QVERIFY(!changed.isEmpty() && unit.data() == "°C");  // the default
  }

  void properties() {
    SWatched drive;
    const QModelIndex index = drive.model.indexOf("FanMode", 0);
    QSignalSpy changed(&drive.model, &Model::dataChanged);
    QVERIFY(drive.model.setData(index, "odd", Model::WarningMessageRole));
    QVERIFY(drive.model.setData(index, true, Model::WarningRole));
    QCOMPARE(index.data(Model::WarningRole), QVariant(true));
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), "odd");
    QCOMPARE(changed.count(), 2);
    drive.model.node(index)->setProperty(NParamDef::PROPERTY_ERROR, true);
    drive.model.node(index)->setProperty(NParamDef::PROPERTY_ERROR_MESSAGE, "wrong");
    QCOMPARE(index.data(Model::ErrorRole), QVariant(true));
    QCOMPARE(index.data(Model::ErrorMessageRole), QVariant("wrong"));
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), "wrong");
    QVERIFY(!drive.file->isChanged());
  }

  void addsOrRefusesNodes() {
    SWatched small(makeSmall());
    Model& model = small.model;
    const QModelIndex root = model.index(0, 0);
    const QModelIndex group = model.addGroup(root, "New");
    QCOMPARE(group.row(), 2);
    QCOMPARE(model.addGroup(root, "New"), group);
    QCOMPARE(model.addGroup(root, "G"), model.index(0, 0, root));
    const QModelIndex loose = model.addParameter(group, "Loose");
    QCOMPARE(loose.data().toString(), "Loose");
    QVERIFY(model.addParameter(group, "Name", "x").isValid());
    QCOMPARE(outline(model), outline(*small.file).replaceInStrings(QRegExp("^="), "Sub-device 1="));
    QCOMPARE(outline(model).mid(5), QStringList({" New=", "  Loose=0.5", "  Name=x"}));
    QCOMPARE(model.indexOf("Loose", 1), loose);

    small.file->clearChanged();
    const QString noGroup = "Only a sub-device or a group can hold groups and parameters.";
    QVERIFY(!model.addGroup(QModelIndex(), "New").isValid());
    QCOMPARE(model.errorMsg(), noGroup);
    QVERIFY(!model.addParameter(model.indexOf("Mode", 1), "Name").isValid());
    QCOMPARE(model.errorMsg(), noGroup);
    QVERIFY(!model.addParameter(root, "Speed").isValid());
    QCOMPARE(model.errorMsg(), small.file->errorMsg());
    QVERIFY(!model.removeRows(0, 1));
    const std::pair<int, int> none[] = {{0, 4}, {-1, 1}, {1, INT_MAX}, {0, 0}};
    for (const auto& [row, count] : none) QVERIFY(!model.removeRows(row, count, root));
    QCOMPARE(model.errorMsg(), "There are no such groups or parameters.");
    QVERIFY(!small.file->isChanged());
  }

  /// Groups that a view has looked into move up, or go with all that lies in them.
  void removesRows() {
    SWatched drive;
    const QModelIndex group = drive.model.indexOf("UnitPosition", 0).parent();
    const QPersistentModelIndex kept = drive.model.indexOf("UnitJerk", 0);
    const QPersistentModelIndex deep = drive.model.indexOf("FieldbusSyncSource", 0);
    const QPersistentModelIndex gone = drive.model.indexOf("UnitVelocity", 0);
    const QPersistentModelIndex goneToo = drive.model.indexOf("FanMode", 0);
    QVERIFY(drive.model.removeRows(1, 3, group));
    QCOMPARE(kept.row(), 1);
    QCOMPARE(kept.data().toString(), "UnitJerk");
    QVERIFY(!gone.isValid() && drive.file->paramValue("UnitVelocity", 0).isNull());
    QCOMPARE(drive.file->changedList(), QStringList("KTO-2A-16"));
    QCOMPARE(outline(drive.model), outline(*drive.file));
    QVERIFY(drive.model.removeRows(0, 2, drive.model.index(0, 0)));
    QVERIFY(!goneToo.isValid());
    QCOMPARE(deep.data().toString(), "FieldbusSyncSource");
    QCOMPARE(deep.parent().parent().row(), 0);
    QCOMPARE(deep, drive.model.indexOf("FieldbusSyncSource", 0));
    QCOMPARE(outline(drive.model), outline(*drive.file));
  }

  /// Rows are found by name while some go, whatever the order in which they do.
  void findsRowsAfterRemovals() {
    constexpr int kCount = 211;  // a prime, so that steps of any size reach all
    const CParameterFilePtr file = makeFile();
    file->addHardwareId("A");
    for (int i = 0; i < kCount; ++i) {
      file->addDef(QString::number(i), NParamDef::PARAM_TYPE_U32, 0);
      file->addParameter(file->rootGroup(1), QString::number(i));
    }
    Model model(file.get());
    const QModelIndex group = model.index(0, 0);
    for (int i = 0; i < kCount; ++i) {
      const QString name = QString::number(i * 47 % kCount);
      const QString other = QString::number((i + kCount / 2) * 47 % kCount);
      QCOMPARE(model.indexOf(other, 1).isValid(), i <= kCount / 2);
      if (i <= kCount / 2) QCOMPARE(model.indexOf(other, 1).data().toString(), other);
      QVERIFY(model.removeRows(model.indexOf(name, 1).row(), 1, group));
    }
    QCOMPARE(model.rowCount(group), 0);
  }

  void changesOfTheFile() {
    SWatched drive;
    QSignalSpy reset(&drive.model, &Model::modelReset);
    const std::function<void(ICParameterFile&)> edits[] = {
        [](auto& file) { file.cloneHardwareId("KTO-2A-16", "Copy"); },
        [](auto& file) { file.copySubDevice(2, 7); },
        [](auto& file) {
          file.loadParamFile(NTestFiles::example("TwoAxisDrive.xparam"), "KTO-2A-32", 0x10000);
        },
        [](auto& file) { file.removeHardwareId("KTO-2A-16"); }, [](auto& file) { file.clear(); }};
    for (const auto& edit : edits) {
      outline(drive.model);  // so that everything is looked into
      drive.model.change(edit);
      QCOMPARE(outline(drive.model), outline(*drive.file));
    }
    QCOMPARE(drive.model.rowCount(), 0);
    QCOMPARE(reset.count(), 5);
  }
};

QTEST_GUILESS_MAIN(tst_CParameterFileModel)
#include "tst_CParameterFileModel.moc"
