#pragma once

#include "CMigrationTable.h"
#include "CParameterMigration.h"
#include "paramfile/ExampleDrive.h"

#include <QRandomGenerator>

/// Two sets of random definitions, a table between them, and values of the old ones. Only a
/// reversible table has nothing that cannot come back.
class CRandomMigration {
 public:
  CRandomMigration(quint32 seed, bool isReversible) : mRandom(seed), mIsReversible(isReversible) {
    table.oldRelease = "old";
    table.newRelease = "new";
    const int count = 2 + below(5);
    for (int i = 0; i < count; ++i) define(i);
    for (const char* path : {"G", "G/H", "I"})
      if (below(3) == 0) table.groups.append({path, QString("N%1").arg(table.groups.size()), 0});
    const int subDevices = 1 + below(4);
    for (int i = 0; i < subDevices; ++i)
      values->setSubDevType(quint8(i), NParamDef::ESubDeviceTypes(below(4)));
    for (int id = below(2); id < 2; ++id) {
      values->addHardwareId(QString::number(id));
      for (int i = 0; i < subDevices; ++i) fill(quint8(i), count);
    }
    values->clearChanged();
  }

  CParameterFilePtr oldDefinitions = makeFile();
  CParameterFilePtr newDefinitions = makeFile();
  CParameterFilePtr values = makeFile();
  CMigrationTable table;

  QVector<CParameterMigration::SRelease> releases() const {
    return {{table, oldDefinitions.get(), newDefinitions.get()}};
  }

 private:
  using EType = NParamDef::EParamType;

  int below(int end) { return mRandom.bounded(end); }
  QString one(const QStringList& texts) { return texts.at(below(texts.size())); }

  void define(int i) {
    const QString name = QString("P%1").arg(i);
    const auto id = quint32(i + 1);
    CParamDefItem old(name, EType(1 + below(NParamDef::PARAM_TYPE_STR)), id);
    if (!mIsReversible && below(3) == 0) old.setMaxVal(CParamVal("100"));
    CParamDefItem current = old;
    SMigrationRule rule;
    rule.name = name;
    // In a circle, so that new names are old ones.
    if (below(2) == 0)
      rule.newName = QString("P%1").arg(i % 2 == 0 ? i + 1 : i - 1) + one({"", "x"});
    if (below(3) == 0) rule.newId = id + 100;
    if (old.type() < NParamDef::PARAM_TYPE_F64) rescaleOrRenumber(old, current, rule);
    if (old.type() == NParamDef::PARAM_TYPE_F64) rescale(rule, {"0.001", "0.25", "60", "-2.5"});
    if (below(4) == 0)
      rule.move = qMakePair(NParamDef::SUB_DEV_TYPE_DRIVE, NParamDef::SUB_DEV_TYPE_DEVICE);
    if (!mIsReversible && below(2) == 0) {
      current = old;
      lose(rule);
    }
    if (!rule.newName.isNull() && newDefinitions->idByName(rule.newName) != NParamDef::NO_ID)
      rule.newName = QString();
    const QString newName = rule.newName.isNull() ? name : rule.newName;
    if (!rule.isDropped && newDefinitions->idByName(newName) != NParamDef::NO_ID)
      rule.newName = name + "y";
    current.setName(rule.newName.isNull() ? name : rule.newName);
    if (rule.newId) current.setId(*rule.newId);
    oldDefinitions->addDef(old);
    if (!rule.isDropped) newDefinitions->addDef(current);
    if (rule.move) mMoved.insert(i);
    if (rule.isDropped || rule.newId || rule.rescaling || rule.move || !rule.newName.isNull() ||
        !rule.choices.isEmpty() || !rule.bits.isEmpty() || !rule.value.isNull() ||
        !rule.question.isNull())
      table.rules.append(rule);
  }

  void rescaleOrRenumber(CParamDefItem& old, CParamDefItem& current, SMigrationRule& rule) {
    switch (below(4)) {
      case 0:
        rescale(rule,
                mIsReversible ? QStringList{"1/3", "10", "3"} : QStringList{"1/60", "-1/7", "3"});
        break;
      case 1:
        for (int number = 0; number < 4; ++number) {
          old.addEnum(number, QString::number(number));
          current.addEnum(number ^ 1, QString::number(number));
          rule.choices.append(qMakePair(qint64(number), qint64(number ^ 1)));
        }
        old.setEnumEditable(true);
        current.setEnumEditable(true);
        break;
      case 2:
        for (int bit = 0; bit < 4; ++bit) {
          old.addBit(bit, QString::number(bit), false);
          current.addBit((bit + 1) % 4, QString::number(bit), false);
          rule.bits.append(qMakePair(bit, (bit + 1) % 4));
        }
        break;
      default:
        break;
    }
  }

  void rescale(SMigrationRule& rule, const QStringList& factors) {
    rule.rescaling =
        SRescaling{one(factors), one({"0", "0", "3"}), SRescaling::ERounding(below(6))};
  }

  void lose(SMigrationRule& rule) {
    rule.rescaling.reset();
    rule.choices.clear();
    rule.bits.clear();
    const int kind = below(4);
    if (kind == 0) rule.value = "1";
    if (kind == 1) rule.question = "?";
    if (kind >= 1) rule.move.reset();
    if (kind < 2) return;
    rule.newId.reset();
    rule.newName = QString();
    rule.isDropped = kind == 2;
    rule.reason = "gone";
  }

  void fill(quint8 subDevId, int count) {
    for (int i = 0; i < count; ++i) {
      const int number = (i + below(2)) % count;
      const QString name = QString("P%1").arg(number);
      // What is where a rule moves it to looks like moved already.
      if (mMoved.contains(number) && values->subDevType(subDevId) == NParamDef::SUB_DEV_TYPE_DEVICE)
        continue;
      auto* const group = static_cast<CParamTreeNodeImpl*>(
          values->subGroup(one({"", "G", "G/H", "I", "I/J"}), subDevId));
      CSubDeviceTree& tree = treeOf(subDevId);
      const CParamDefItem definition = oldDefinitions->paramDef(name);
      const bool isReal = definition.type() == NParamDef::PARAM_TYPE_F64;
      const bool isOdd = below(mIsReversible ? 50 : 4) == 0;
      const QString text = isReal ? one({isOdd ? "inf" : "1.50", "0.000", "-120.25", "1e-05"})
                                  : one({isOdd ? "x" : "0x9", "12", "0x3", "6", isOdd ? "1" : "0"});
      tree.addParameter(group, name, below(3) == 0 ? 0 : definition.id(), CParamVal(text));
    }
  }

  CSubDeviceTree& treeOf(quint8 subDevId) {
    auto& trees = dynamic_cast<CParameterFileBaseImpl&>(*values).allTrees();
    return trees.at(values->hardwareId()).at(subDevId);
  }

  QRandomGenerator mRandom;
  const bool mIsReversible;
  QSet<int> mMoved;
};
