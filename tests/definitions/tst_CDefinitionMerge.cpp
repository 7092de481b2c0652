#include "CDefinitionMerge.h"
#include "ParamFileText.h"
#include "TestRows.h"
#include "paramfile/ExampleDrive.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

#include <functional>
#include <map>

namespace {

using CDefinitions = std::map<QString, CParamDefItem>;
using CEdit = std::function<void(CDefinitions&)>;

CParameterFilePtr fileOf(const CDefinitions& definitions) {
  CParameterFilePtr file = makeFile();
  for (const auto& [name, definition] : definitions) file->addDef(definition);
  return file;
}

QString name(int number) {
  return "P" + QString::number(number);
}

/// One of each field; those of one kind of one definition exclude each other.
void editField(CParamDefItem& d, int field, int value) {
  const auto id = static_cast<quint32>(value);
  const CParamVal number(value);
  const std::function<void()> edits[] = {[&] { d.setHint(QString::number(value)); },
                                         [&] { d.setUnitId(id); },
                                         [&] { d.setDefVal(number); },
                                         [&] { d.setMaxVal(number); },
                                         [&] { d.addMinId(id); },
                                         [&] { d.addMaxId(id); },
                                         [&] { d.addEnum(value, "x"); },
                                         [&] { d.addRadio(value, "x"); },
                                         [&] { d.addBit(value % 64, "x", true); },
                                         [&] { d.addVisibleValue(value); },
                                         [&] { d.setVisibleId(id); },
                                         [&] { d.setId(10000 + id); },
                                         [&] { d.setType("i64"); },
                                         [&] {
                                           d.setCheckVals({value, 0, false, 0});
                                         }};
  edits[field]();
}

constexpr int kCount = 20;

CDefinitions randomDefinitions(QRandomGenerator& random) {
  CDefinitions made;
  for (int p = 0; p < kCount; ++p) {
    CParamDefItem& d = made[name(p)];
    d = CParamDefItem(name(p), NParamDef::PARAM_TYPE_I32, 100U + unsigned(p));
    d.setMinVal(CParamVal(-1));
    for (int field = 0; field < 10; ++field)
      if (random.bounded(3) == 0) editField(d, field, 1000 + field);
  }
  return made;
}

}  // namespace

class tst_CDefinitionMerge : public QObject {
  Q_OBJECT

 private slots:
  /// Edits of both sides, on different fields and definitions, give what one hand would make.
  void mergesLikeByHand() {
    QRandomGenerator random(19);
    for (int i = 0; i < 200; ++i) {
      const CDefinitions base = randomDefinitions(random);
      CDefinitions sides[] = {base, base};
      CDefinitions both = base;
      const auto edit = [&](const CEdit& apply) {
        apply(sides[random.bounded(2)]);
        apply(both);
      };
      for (int p = 0; p < kCount; ++p) {
        const int value = 1 + 20 * i + p;
        const QString added = "N" + QString::number(p);
        if (p % 4 == 0) edit([&](CDefinitions& all) { all.erase(name(p)); });
        if (p % 4 == 1)
          edit([&](CDefinitions& all) { all[added] = CParamDefItem(added, {}, unsigned(p)); });
        for (int field = 0; p % 4 > 1 && field < 14; ++field) {
          // The two edits of the visibility are one field.
          if (field != 10 && random.bounded(2) == 0)
            edit([&](CDefinitions& all) { editField(all[name(p)], field, value); });
        }
      }
      const QString expected = NParamFileText::content(*fileOf(both));
      for (const int ours : {0, 1}) {
        const CParameterFilePtr common = fileOf(base);
        const CParameterFilePtr merged = fileOf(sides[ours]);
        const CParameterFilePtr theirs = fileOf(sides[1 - ours]);
        CDefinitionMerge merge(*common, *merged, *theirs);
        QVERIFY(merge.run() && merge.conflicts().isEmpty());
        QCOMPARE(NParamFileText::content(*merged), expected);
      }
    }
  }

  /// Whatever both sides did, the result can be saved.
  void canBeSaved() {
    QRandomGenerator random(20);
    int conflicts = 0;
    for (int i = 0; i < 300; ++i) {
      CParameterFilePtr files[3];
      for (CParameterFilePtr& file : files) {
        file = makeFile();
        for (int p = 0; p < 8; ++p) {
          const auto id = 1 + unsigned(random.bounded(9));
          if (CParamDefItem* d = file->addDef(name(p), NParamDef::PARAM_TYPE_I32, id)) {
            const int minimum = random.bounded(3);
            d->setMinVal(CParamVal(minimum));
            d->setMaxVal(CParamVal(minimum + random.bounded(3)));
          }
        }
      }
      CDefinitionMerge merge(*files[0], *files[1], *files[2]);
      QVERIFY(merge.run());
      conflicts += merge.conflicts().size();
      QVERIFY2(files[1]->saveParamDefFile(mFolder.filePath("d"), 0x10000),
               qPrintable(files[1]->errorMsg()));
    }
    QVERIFY(conflicts > 300);
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_CDefinitionMerge)
#include "tst_CDefinitionMerge.moc"
