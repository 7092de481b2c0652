#include "CMigrationCheck.h"

#include "CExactNumber.h"
#include "CParamValueText.h"
#include "ICParameterFile.h"
#include "NShortText.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

/// Whether values of a definition can be renumbered, or its bits moved.
bool hasNumbers(const CParamDefItem& definition) {
  return CExactNumber::isNumberType(definition.type());
}

CParamVal noValue(const QString& /*name*/) {
  return {};
}

/// The first reason for which a value is not allowed, limit parameters aside; null for none.
QString refusalOf(const CParamValueRules& rules, const CParamVal& value) {
  for (const CParamValueRules::SViolation& violation : rules.violations(value, &noValue))
    if (!violation.isWarning()) return violation.text;
  return {};
}

std::set<qint64> choicesOf(const CParamDefItem& definition) {
  std::set<qint64> numbers;
  for (const NParamDef::SNamedI64Value& choice : CParamValueText::choices(definition))
    numbers.insert(choice.value);
  return numbers;
}

std::set<int> bitsOf(const CParamDefItem& definition) {
  std::set<int> positions;
  for (const NParamDef::SBitValue& bit : definition.bitset()) positions.insert(bit.pos);
  return positions;
}

}  // namespace

QList<CMigrationTable::SProblem> CMigrationTable::problems(
    const ICParameterFile& oldDefinitions, const ICParameterFile& newDefinitions) const {
  return CMigrationCheck(*this, oldDefinitions, newDefinitions).run();
}

CMigrationCheck::CMigrationCheck(const CMigrationTable& table,
                                 const ICParameterFile& oldDefinitions,
                                 const ICParameterFile& newDefinitions)
    : mTable(table),
      mOldFile(oldDefinitions),
      mNewFile(newDefinitions),
      mOld(oldDefinitions),
      mNew(newDefinitions) {
  for (const SMigrationRule& rule : table.rules) {
    if (rule.isProposal) continue;
    mByName.emplace(rule.name, &rule);
    if (!rule.isDropped) mByNewName.emplace(newNameOf(rule), &rule);
  }
}

QList<CMigrationTable::SProblem> CMigrationCheck::run() {
  mProblems.clear();
  checkTable();
  for (const SMigrationRule& rule : mTable.rules) {
    if (rule.isProposal) continue;
    mRule = &rule;
    mName = rule.name;
    checkRule();
  }
  mRule = nullptr;
  checkDefinitions();
  std::stable_sort(mProblems.begin(), mProblems.end(),
                   [](const auto& a, const auto& b) { return a.line < b.line; });
  return mProblems;
}

// --- The table

void CMigrationCheck::checkTable() {
  checkRelease(mTable.oldRelease, mOldFile.defComment(),
               tr("the Head comment of the old definitions does not name the release \"%1\"."));
  checkRelease(mTable.newRelease, mNewFile.defComment(),
               tr("the Head comment of the new definitions does not name the release \"%1\"."));
  checkMark();
  QByteArray buffer;
  QString error;
  if (!mTable.save(buffer, error)) add(tr("the rules cannot be saved: %1").arg(error));
}

void CMigrationCheck::checkRelease(const QString& release, const QString& comment,
                                   const QString& text) {
  if (!comment.contains(release)) warn(text.arg(NShortText::of(release)));
}

/// Values are converted once more when nothing tells that they were.
void CMigrationCheck::checkMark() {
  const auto converts = [](const SMigrationRule& rule) {
    return !rule.isProposal && (rule.rescaling || !rule.choices.isEmpty() || !rule.bits.isEmpty());
  };
  const auto renames = [](const SMigrationRule& rule) {
    return !rule.isProposal && !rule.newName.isNull();
  };
  const bool hasMark = !mTable.newVersion.isEmpty() ||
                       std::any_of(mTable.rules.begin(), mTable.rules.end(), renames);
  if (!hasMark && std::any_of(mTable.rules.begin(), mTable.rules.end(), converts))
    warn(tr("nothing tells a migrated file from one that is not; give <To> a version."));
}

// --- One rule

QString CMigrationCheck::newNameOf(const SMigrationRule& rule) {
  return rule.newName.isNull() ? rule.name : rule.newName;
}

void CMigrationCheck::checkRule() {
  const CParamDefItem oldOne = mOld.find(mRule->name);
  const bool isKnown = !oldOne.name().isEmpty();
  if (!isKnown) add(tr("the old definitions have no parameter of this name."));
  if (mByName.at(mRule->name) != mRule) return;  // which the table tells
  if (mRule->isDropped) {
    const bool isDefined = !mNew.find(mRule->name).name().isEmpty();
    if (isDefined && mByNewName.count(mRule->name) == 0)
      warn(tr("it is dropped, and the new definitions still have it."));
    return;
  }
  checkPlace();
  const CParamDefItem newOne = mNew.find(newNameOf(*mRule));
  if (!isKnown || newOne.name().isEmpty()) return;
  checkId(oldOne, newOne);
  checkValue(oldOne, newOne);
}

/// The name that it gets: one that there is, and that nothing else gets.
void CMigrationCheck::checkPlace() {
  const QString newName = newNameOf(*mRule);
  const QString shortName = NShortText::of(newName);
  if (mNew.find(newName).name().isEmpty()) {
    const bool isAsked = mRule->newName.isNull() && !mRule->question.isNull();
    add(mRule->newName.isNull()
            ? tr("the new definitions have no parameter of this name; give it a new name, or drop "
                 "it.")
            : tr("the new definitions have no \"%1\".").arg(shortName),
        isAsked);
  }
  const SMigrationRule* other = mByNewName.at(newName);
  if (other != mRule) {
    add(tr("\"%1\" becomes \"%2\", too.").arg(NShortText::of(other->name), shortName));
  } else if (newName != mRule->name && mByName.count(newName) == 0 &&
             !mOld.find(newName).name().isEmpty()) {
    add(tr("the old definitions have \"%1\" already, which no rule drops or renames.")
            .arg(shortName));
  }
}

void CMigrationCheck::checkId(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  const QString id = QString::number(newOne.id());
  if (mRule->newId && *mRule->newId != newOne.id())
    add(tr("its new id is %1, not %2.").arg(id, QString::number(*mRule->newId)));
  else if (!mRule->newId && newOne.id() != oldOne.id() && NParamDef::isRealId(newOne.id()))
    warnOfId(QString::number(oldOne.id()), id);
}

void CMigrationCheck::warnOfId(const QString& oldId, const QString& newId) {
  warn(tr("its new id is %1, and values keep the old one, %2.").arg(newId, oldId));
}

void CMigrationCheck::checkValue(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  const bool isConverted = mRule->rescaling || !mRule->choices.isEmpty() || !mRule->bits.isEmpty();
  for (const CParamDefItem* definition : {&oldOne, &newOne}) {
    if (isConverted && !hasNumbers(*definition)) {
      add(tr("values of the type %1 are no numbers that could be converted.")
              .arg(definition->typeStr()));
      return;
    }
  }
  if (!mRule->choices.isEmpty()) checkChoices(oldOne, newOne);
  if (!mRule->bits.isEmpty()) checkBits(oldOne, newOne);
  if (mRule->value.isNull()) return;
  const QString refusal = refusalOf(mNew.rulesOf(newOne), CParamVal(mRule->value));
  if (!refusal.isEmpty())
    add(tr("the new definition does not allow the value \"%1\": %2")
            .arg(NShortText::of(mRule->value), refusal));
}

void CMigrationCheck::checkChoices(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  const CParamValueRules oldRules = mOld.rulesOf(oldOne);
  const CParamValueRules newRules = mNew.rulesOf(newOne);
  const std::set<qint64> oldChoices = choicesOf(oldOne);
  const std::set<qint64> newChoices = choicesOf(newOne);
  for (const auto& [from, to] : mRule->choices) {
    const QString oldRefusal = refusalOf(oldRules, CParamVal(QString::number(from)));
    const QString newRefusal = refusalOf(newRules, CParamVal(QString::number(to)));
    if (!oldRefusal.isEmpty())
      add(tr("the old definition does not allow %1: %2").arg(QString::number(from), oldRefusal));
    else if (!oldChoices.empty() && oldChoices.count(from) == 0)
      warn(tr("%1 is not a choice of the old definition.").arg(from));
    if (!newRefusal.isEmpty())
      add(tr("the new definition does not allow %1: %2").arg(QString::number(to), newRefusal));
    else if (!newChoices.empty() && newChoices.count(to) == 0)
      warn(tr("%1 is not a choice of the new definition.").arg(to));
  }
  checkMerging(oldChoices);
}

/// Two that become one may be meant, but do not come back.
void CMigrationCheck::checkMerging(const std::set<qint64>& oldChoices) {
  std::map<qint64, qint64> before;  // by the number after it
  std::set<qint64> renumbered;
  for (const auto& choice : mRule->choices) renumbered.insert(choice.first);
  for (const qint64 choice : oldChoices)
    if (renumbered.count(choice) == 0) before.emplace(choice, choice);
  for (const auto& [from, to] : mRule->choices) {
    const auto [known, isNew] = before.emplace(to, from);
    if (!isNew) {
      warn(tr("%1 and %2 both become %3.")
               .arg(QString::number(known->second), QString::number(from), QString::number(to)));
    }
  }
}

void CMigrationCheck::checkBits(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  for (const CParamDefItem* definition : {&oldOne, &newOne}) {
    if (CExactNumber::widthOf(definition->type()) == 0) {
      add(tr("values of the type %1 have no bits.").arg(definition->typeStr()));
      return;
    }
  }
  const std::set<int> oldBits = bitsOf(oldOne);
  const std::set<int> newBits = bitsOf(newOne);
  std::map<int, int> before;  // by the position after it
  std::set<int> moved;
  for (const auto& bit : mRule->bits) moved.insert(bit.first);
  for (const int bit : oldBits)
    if (moved.count(bit) == 0) before.emplace(bit, bit);
  for (const auto& [from, to] : mRule->bits) {
    checkBit(from, oldOne, oldBits, tr("the old type %1 has no bit %2."),
             tr("the bit %1 has no name in the old definition."));
    checkBit(to, newOne, newBits, tr("the new type %1 has no bit %2."),
             tr("the bit %1 has no name in the new definition."));
    const auto [known, isNew] = before.emplace(to, from);
    if (!isNew) {
      add(tr("the bits %1 and %2 both become %3.")
              .arg(QString::number(known->second), QString::number(from), QString::number(to)));
    }
  }
}

void CMigrationCheck::checkBit(int position, const CParamDefItem& definition,
                               const std::set<int>& named, const QString& noBit,
                               const QString& noName) {
  if (position >= CExactNumber::widthOf(definition.type()))
    add(noBit.arg(definition.typeStr(), QString::number(position)));
  else if (!named.empty() && named.count(position) == 0)
    warn(noName.arg(position));
}

// --- Messages

void CMigrationCheck::add(const QString& text, bool isWarning) {
  const QString told = mName.isNull() ? text : tr("\"%1\": %2").arg(NShortText::of(mName), text);
  mProblems.append({told, mRule == nullptr ? 0 : mRule->line, isWarning});
}
