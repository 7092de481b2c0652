// What a difference between definitions promises about values, and a table that is drafted of it.

#include "CDefinitionComparison.h"
#include "CExactNumber.h"
#include "CMigrationTable.h"
#include "CParamValueRules.h"
#include "CParamValueText.h"
#include "paramfile/ExampleDrive.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using namespace NParamDef;

namespace {

const QStringList kLimits = {{},     {},    "0",   "1",     "-5",  "3",
                             "0x10", "100", "200", "70000", "nan", "x"};
const QStringList kValues = {"-0",  "0",     "+1",  "2",     "3",   "0x3",        "5",    "-1",
                             "16",  "0x10",  "100", "127",   "128", "0xff",       "256",  "-129",
                             "300", "65536", "1.5", "1e1",   "nan", "inf",        "-inf", "text",
                             "",    "201",   "9",   "32768", "7",   "0xFFFFFFFF", "-5",   " 4 "};

/// Definitions at random: one of each respect, changed one by one.
class CRandomDefinition {
 public:
  explicit CRandomDefinition(quint32 seed) : mRandom(seed) {
    for (int step = 0; step < 4 * kRespects; ++step) change(step % kRespects);
  }

  void change() { change(below(kRespects)); }
  bool hasLimit() const { return mIsLimited; }
  int below(int end) { return mRandom.bounded(end); }

  /// "P" and the parameter that may limit it.
  CParameterFilePtr file() const {
    CParameterFilePtr file = makeFile();
    CParamDefItem* item = file->addDef("P", mType, 1);
    item->setMinVal(toValue(mMinimum));
    item->setMaxVal(toValue(mMaximum));
    item->addEnums(mChoices);
    item->setEnumEditable(mIsEditable);
    item->addRadios(mRadios);
    item->setCheckVals(mStates);
    item->addBits(mBits);
    if (mIsLimited) item->addMaxId(2);
    file->addDef("Limit", mIsLimitNumber ? PARAM_TYPE_U8 : PARAM_TYPE_STR, 2);
    return file;
  }

 private:
  static constexpr int kRespects = 10;
  static CParamVal toValue(const QString& text) {
    return text.isNull() ? CParamVal() : CParamVal(text);
  }
  QString oneOf(const QStringList& texts) { return texts.at(below(texts.size())); }

  void edit(QList<SNamedI64Value>& choices) {
    if (!choices.isEmpty() && below(3) == 0) choices.removeAt(below(choices.size()));
    const QString name = oneOf({"", "a", "b", "c", "d", "e", "f"});
    if (below(3) > 0) choices.append({below(7) - 1, name});
  }

  void change(int respect) {
    if (respect == 0) mType = EParamType(below(3) == 0 ? below(11) : below(9));
    if (respect == 1) mMinimum = oneOf(kLimits);
    if (respect == 2) mMaximum = oneOf(kLimits);
    if (respect == 3 && below(2) == 0) edit(mChoices);
    if (respect == 4) mIsEditable = below(3) > 0;
    if (respect == 5 && below(12) == 0) edit(mRadios);
    if (respect == 6) mStates = below(6) == 0 ? SCheckValues{below(3), below(3)} : SCheckValues();
    if (respect == 7 && below(3) == 0)
      mBits.append({below(8), oneOf({"A", "B", "C"}), below(3) == 0});
    if (respect == 7 && below(3) == 0) mBits.clear();
    if (respect == 9 && mChoices.size() > 1) std::swap(mChoices.first().name, mChoices.last().name);
    if (respect == 9 && !mBits.isEmpty())
      mBits.first() = {below(8), mBits.first().name, below(3) == 0};
    if (respect == 8) mIsLimited = below(3) == 0;
    if (respect == 8) mIsLimitNumber = below(3) > 0;
  }

  QRandomGenerator mRandom;
  EParamType mType = PARAM_TYPE_U8;
  QString mMinimum;
  QString mMaximum;
  QList<SNamedI64Value> mChoices;
  bool mIsEditable = true;
  QList<SNamedI64Value> mRadios;
  SCheckValues mStates;
  QList<SBitValue> mBits;
  bool mIsLimited = false;
  bool mIsLimitNumber = true;
};

bool areSafe(const CDefinitionDifferences& differences) {
  for (const SDefinitionDifference& each : differences)
    if (each.effect != SDefinitionDifference::Safe) return false;
  return true;
}

bool isAllowed(const ICParameterFile& file, const QString& value, const QString& limit) {
  const auto violations = CParamValueRules(file.paramDef("P"), file)
                              .violations(CParamVal(value), [&limit](const QString&) {
                                return limit.isNull() ? CParamVal() : CParamVal(limit);
                              });
  return std::all_of(violations.begin(), violations.end(),
                     [](const auto& violation) { return violation.isWarning(); });
}

/// What had a name has it still, and the number is the same.
bool meansTheSame(const CParamDefItem& before, const CParamDefItem& after, const QString& value) {
  const QString choice = CParamValueText::choiceName(before, value);
  if (!choice.isEmpty() && choice != CParamValueText::choiceName(after, value)) return false;
  const QStringList bits = CParamValueText::activeBits(before, value).value_or(QStringList());
  const QStringList bitsAfter = CParamValueText::activeBits(after, value).value_or(QStringList());
  for (const QString& bit : bits)
    if (!bitsAfter.contains(bit)) return false;
  const auto number = CExactNumber::of(CParamVal(value), before.type());
  const auto numberAfter = CExactNumber::of(CParamVal(value), after.type());
  const bool isNan = number && number->isNan();
  if (number.has_value() != numberAfter.has_value() || !number || isNan)
    return before.type() == after.type();
  return !(*number < *numberAfter) && !(*numberAfter < *number);
}

/// As the rule converts it.
QString migrated(const SMigrationRule& rule, const CExactNumber& number) {
  for (const auto& [from, to] : rule.choices)
    if (number.asI64() == from) return QString::number(to);
  quint64 bits = number.bits();
  for (const auto& [from, to] : rule.bits) bits &= ~(1ULL << from | 1ULL << to);
  for (const auto& [from, to] : rule.bits) bits |= (number.bits() >> from & 1U) << to;
  return rule.bits.isEmpty() ? number.decimal() : QString::number(bits);
}

}  // namespace

class tst_CDefinitionComparison : public QObject {
  Q_OBJECT

 private slots:
  void keepsWhatIsSafe() {
    int judged = 0;
    for (quint32 seed = 0; seed < 15000; ++seed) {
      CRandomDefinition definition(seed);
      const CParameterFilePtr before = definition.file();
      for (int changes = definition.below(3); changes >= 0; --changes) definition.change();
      const CParameterFilePtr after = definition.file();
      if (!areSafe(CDefinitionComparison::compare(*before, *after))) continue;
      for (const QString& limit : {QString(), QString("3"), QString("0x80"), QString("x")}) {
        for (const QString& value : kValues) {
          if (!isAllowed(*before, value, limit)) continue;
          ++judged;
          const bool isKept = isAllowed(*after, value, limit) &&
                              meansTheSame(before->paramDef("P"), after->paramDef("P"), value);
          QVERIFY2(isKept, qPrintable(QString("seed %1, value %2").arg(seed).arg(value)));
        }
      }
    }
    QVERIFY2(judged > 50000, qPrintable(QString::number(judged)));
  }

  void draftsRulesThatKeepMeanings() {
    int judged = 0;
    for (quint32 seed = 0; seed < 15000; ++seed) {
      CRandomDefinition definition(seed);
      const CParameterFilePtr before = definition.file();
      for (int changes = 0; changes < 3; ++changes) definition.change();
      const CParameterFilePtr after = definition.file();
      const CMigrationTable table = CMigrationTable::draft(*before, *after);
      QByteArray text;
      QString error;
      QVERIFY2(table.save(text, error), qPrintable(error));
      for (const CMigrationTable::SProblem& problem : table.problems(*before, *after))
        QVERIFY2(problem.isWarning, qPrintable(QString("seed %1: ").arg(seed) + problem.text));
      const auto changed = CDefinitionComparison::compare(*before, *after);
      const auto rule = std::find_if(table.rules.begin(), table.rules.end(),
                                     [](const SMigrationRule& each) { return each.name == "P"; });
      const bool hasRule = rule != table.rules.end();
      for (const SDefinitionDifference& each : changed)
        QVERIFY(each.effect != SDefinitionDifference::MeaningChanged || each.name != "P" ||
                hasRule);
      if (!hasRule || !rule->question.isNull()) continue;
      const CParamDefItem oldItem = before->paramDef("P");
      for (const QString& value : kValues) {
        const auto number = CExactNumber::of(CParamVal(value), oldItem.type());
        if (!number || number->decimal().startsWith('-') || !isAllowed(*before, value, {}))
          continue;
        const QString newValue = migrated(*rule, *number);
        if (!isAllowed(*after, newValue, {})) continue;
        ++judged;
        QVERIFY2(CParamValueText::choiceName(oldItem, value) ==
                         CParamValueText::choiceName(after->paramDef("P"), newValue) ||
                     CParamValueText::choiceName(oldItem, value).isEmpty(),
                 qPrintable(QString("seed %1, value %2").arg(seed).arg(value)));
        const QStringList bits =
            CParamValueText::activeBits(after->paramDef("P"), newValue).value_or(QStringList());
        for (const QString& bit :
             CParamValueText::activeBits(oldItem, value).value_or(QStringList()))
          QVERIFY2(bits.contains(bit), qPrintable(QString("seed %1, %2").arg(seed).arg(value)));
      }
    }
    QVERIFY2(judged > 300, qPrintable(QString::number(judged)));
  }

  /// A definition in which everything can be renumbered.
  void comparesInTimeThatGrowsWithTheSize() {
    constexpr int kMany = 50000;
    const auto make = [](int shift) {
      CParameterFilePtr file = makeFile();
      CParamDefItem large("Large", PARAM_TYPE_I64, 7000000);
      for (int i = 0; i < kMany; ++i) {
        file->addDef(QString("P%1").arg(i), PARAM_TYPE_U8, quint32(1000 + (i + shift) % kMany));
        large.addEnum(i + shift, QString("choice %1").arg(i));
        large.addMaxId(quint32(1000 + i));
      }
      file->addDef(large);
      return file;
    };
    const CParameterFilePtr before = make(0);
    const CParameterFilePtr after = make(1);
    QElapsedTimer timer;
    timer.start();
    const CDefinitionDifferences found = CDefinitionComparison::compare(*before, *after);
    QCOMPARE(found.size(), kMany + 1);
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString::number(timer.elapsed())));
  }
};

QTEST_GUILESS_MAIN(tst_CDefinitionComparison)

#include "tst_CDefinitionComparison.moc"
