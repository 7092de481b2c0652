#include "CAllowedNumbers.h"
#include "CDefinitionComparison.h"
#include "CDefinitionSide.h"
#include "CMigrationTable.h"
#include "CParamValueText.h"
#include "CRenameGuess.h"
#include "ICParameterFile.h"
#include "NRescalingGuess.h"
#include "NShortText.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>

namespace {

using S = SDefinitionDifference;
using CNumberPairs = QVector<QPair<qint64, qint64>>;
using CBitPairs = QVector<QPair<int, int>>;

/// The version in a Head comment and the word before it, such as "release 4.5"; empty when there is
/// none.
QString releaseIn(const QString& comment) {
  static const QRegularExpression version(QStringLiteral("[0-9][.][0-9]"));
  constexpr int kLongestWord = 40;
  QString before;
  for (QString word : comment.simplified().split(QLatin1Char(' '))) {
    while (!word.isEmpty() && word.back().isPunct()) word.chop(1);
    if (word.size() <= kLongestWord && version.match(word).hasMatch()) {
      const QString text = QStringLiteral("%1 %2").arg(before, word);
      return before.size() <= kLongestWord && comment.contains(text) ? text.trimmed() : word;
    }
    before = word;
  }
  return {};
}

/// Numbers by which each choice gets the number that its name has now. Nothing when a number that
/// has lost its name means something else now, or names are not unique.
CNumberPairs movedChoices(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  const CAllowedNumbers oldNumbers(oldOne);
  const CAllowedNumbers newNumbers(newOne);
  const SChoiceNames& before = oldNumbers.all();
  const SChoiceNames& after = newNumbers.all();
  const auto isUnique = [](const SChoiceNames& names, const CParamDefItem& item) {
    const auto count = static_cast<size_t>(CParamValueText::choices(item).size());
    return names.names.size() == count && names.numbers.size() == count;
  };
  if (!isUnique(before, oldOne) || !isUnique(after, newOne)) return {};
  CNumberPairs moved;
  for (const auto& [number, name] : before.names) {
    const auto now = after.numbers.find(name);
    if (now == after.numbers.end() && after.names.count(number) > 0) return {};
    if (now != after.numbers.end() && now->second != number) moved.append({number, now->second});
  }
  return moved;
}

using CBitsByName = std::map<QString, NParamDef::SBitValue>;

/// Nothing when names or positions are not unique.
std::optional<CBitsByName> bitsByName(const CParamDefItem& definition) {
  CBitsByName bits;
  quint64 positions = 0;
  for (const NParamDef::SBitValue& bit : definition.bitset()) {
    const quint64 mask = 1ULL << bit.pos;
    if ((positions & mask) != 0 || !bits.try_emplace(bit.name, bit).second) return {};
    positions |= mask;
  }
  return bits;
}

/// The same for bits, of which each must still be there.
CBitPairs movedBits(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  const std::optional<CBitsByName> before = bitsByName(oldOne);
  const std::optional<CBitsByName> after = bitsByName(newOne);
  if (!before || !after) return {};
  CBitPairs moved;
  for (const auto& [name, bit] : *before) {
    const auto now = after->find(name);
    if (now == after->end() || now->second.invert != bit.invert) return {};
    if (now->second.pos != bit.pos) moved.append({bit.pos, now->second.pos});
  }
  std::sort(moved.begin(), moved.end());
  return moved;
}

/// What a question tells of a difference.
QString textOf(const S& difference) {
  const auto shown = [](const QString& text) {
    return text.isNull() ? QStringLiteral("–") : NShortText::of(text);
  };
  return QStringLiteral("%1: %2 → %3. %4")
      .arg(S::whatText(difference.what), shown(difference.oldText), shown(difference.newText),
           difference.reason);
}

class CDraft {
 public:
  CDraft(const ICParameterFile& oldFile, const ICParameterFile& newFile)
      : mOldFile(oldFile), mNewFile(newFile), mOld(oldFile), mNew(newFile) {}

  CMigrationTable run() {
    nameReleases();
    const CDefinitionDifferences all = CDefinitionComparison::compare(mOldFile, mNewFile);
    for (const S& each : all) {
      const CParamDefItem oldItem = mOldFile.paramDef(each.name);
      const CParamDefItem newItem = mNewFile.paramDef(each.name);
      if (each.what == S::Added) mRenames.addNew(newItem, mNew.unitOf(newItem).text());
      if (each.what == S::Removed) mRenames.addOld(oldItem, mOld.unitOf(oldItem).text());
    }
    for (int begin = 0, end = 0; begin < all.size(); begin = end) {
      while (end < all.size() && all.at(end).name == all.at(begin).name) ++end;
      draft(all.mid(begin, end - begin));
    }
    return mTable;
  }

 private:
  void nameReleases() {
    const QString oldRelease = releaseIn(mOldFile.defComment());
    const QString newRelease = releaseIn(mNewFile.defComment());
    if (oldRelease == newRelease) return;  // they do not tell which is which
    mTable.oldRelease = oldRelease;
    mTable.newRelease = newRelease;
  }

  /// All differences of one definition.
  void draft(const CDefinitionDifferences& differences) {
    const S::EWhat what = differences.first().what;
    if (what == S::Removed) return draftRemoved(differences.first().name);
    if (what == S::Added) return;
    mOldItem = mOldFile.paramDef(differences.first().oldName);
    mNewItem = mNewFile.paramDef(differences.first().name);
    SMigrationRule rule = nameAndId();
    SMigrationRule proposal = rule;
    QStringList questions;
    for (const S& each : differences) convert(each, rule, proposal, questions);
    if (isOther())
      questions.append(
          CMigrationTable::tr("Name and hint are others under this id: is it the same parameter?"));
    const QString factor = NRescalingGuess::factor(mOldItem, mNewItem);
    if (isRescaled(differences, factor)) propose(factor, proposal, questions);
    if (!questions.isEmpty()) ask(questions, rule);
    addRule(rule);
    if (!questions.isEmpty()) addProposal(proposal);
  }

  SMigrationRule nameAndId() const {
    SMigrationRule rule;
    rule.name = mOldItem.name();
    if (mNewItem.name() != mOldItem.name()) rule.newName = mNewItem.name();
    if (mNewItem.id() != mOldItem.id() && NParamDef::isRealId(mNewItem.id()))
      rule.newId = mNewItem.id();
    return rule;
  }

  /// An id that was free may have been given to another parameter.
  bool isOther() const {
    return !mOldItem.hint().isEmpty() && !mNewItem.hint().isEmpty() &&
           mOldItem.hint() != mNewItem.hint() && mOldItem.name() != mNewItem.name() &&
           !CRenameGuess::areAlike(mOldItem.name(), mNewItem.name());
  }

  /// What renumbered choices and bits become is certain, unless a number has both; other meanings
  /// are asked for.
  void convert(const S& difference, SMigrationRule& rule, SMigrationRule& proposal,
               QStringList& questions) const {
    if (difference.effect != S::MeaningChanged) return;
    const bool isChoice = difference.what == S::Choices || difference.what == S::RadioButtons ||
                          difference.what == S::CheckBox;
    const bool hasBits = mOldItem.hasBitset() || mNewItem.hasBitset();
    const bool hasChoices = !CParamValueText::choices(mOldItem).isEmpty();
    const auto choices = isChoice && !hasBits ? movedChoices(mOldItem, mNewItem) : CNumberPairs();
    const auto bits =
        difference.what == S::Bits && !hasChoices ? movedBits(mOldItem, mNewItem) : CBitPairs();
    if (!choices.isEmpty()) {
      rule.choices = choices;
      proposal.choices = choices;
    } else if (!bits.isEmpty()) {
      rule.bits = bits;
      proposal.bits = bits;
    } else {
      questions.append(textOf(difference));
    }
  }

  /// Another unit, or a rename beside which the limits look like those of another unit.
  bool isRescaled(const CDefinitionDifferences& differences, const QString& factor) const {
    const auto has = [&differences](S::EWhat what) {
      return std::any_of(differences.begin(), differences.end(),
                         [what](const S& each) { return each.what == what; });
    };
    const bool isNumber =
        CExactNumber::isNumberType(mOldItem.type()) && CExactNumber::isNumberType(mNewItem.type());
    const bool mayBe = has(S::Name) && (has(S::Type) || NRescalingGuess::isPowerOfTen(factor));
    return isNumber && (has(S::Unit) || mayBe);
  }

  void propose(const QString& factor, SMigrationRule& proposal, QStringList& questions) const {
    if (questions.isEmpty())
      questions.append(CMigrationTable::tr("It has another name, and may count in another unit."));
    if (factor.isNull()) return;
    proposal.choices.clear();
    proposal.bits.clear();
    proposal.rescaling = SRescaling();
    proposal.rescaling->factor = factor;
    proposal.note = CMigrationTable::tr(
                        "Likely, in place of the question: its limits, or its default, "
                        "changed by the factor %1.")
                        .arg(factor);
  }

  /// A question stands beside the name and the id only.
  static void ask(const QStringList& questions, SMigrationRule& rule) {
    rule.choices.clear();
    rule.bits.clear();
    rule.question = questions.join(QLatin1Char(' '));
  }

  void draftRemoved(const QString& name) {
    const CParamDefItem removed = mOldFile.paramDef(name);
    SMigrationRule rule;
    rule.name = name;
    rule.question = CMigrationTable::tr(
        "It is no longer defined: does another parameter take its "
        "value, or is it dropped?");
    mTable.rules.append(rule);
    SMigrationRule proposal;
    proposal.name = name;
    proposal.newName = mRenames.take(removed, mOld.unitOf(removed).text());
    if (proposal.newName.isNull()) return;
    const quint32 id = mNewFile.paramDef(proposal.newName).id();
    if (NParamDef::isRealId(id)) proposal.newId = id;
    proposal.note = CMigrationTable::tr(
        "Likely, in place of the question: type and unit are the same, and "
        "hint or name are alike.");
    mTable.rules.append(markedAsProposal(proposal));
  }

  void addRule(const SMigrationRule& rule) {
    const bool isSet = !rule.newName.isNull() || rule.newId || !rule.choices.isEmpty() ||
                       !rule.bits.isEmpty() || !rule.question.isNull();
    if (isSet) mTable.rules.append(rule);
  }

  void addProposal(SMigrationRule proposal) {
    if (!proposal.rescaling && proposal.choices.isEmpty() && proposal.bits.isEmpty()) return;
    if (proposal.note.isNull())
      proposal.note = CMigrationTable::tr(
          "Likely, beside an answer to the question: these have the same "
          "names as before.");
    mTable.rules.append(markedAsProposal(proposal));
  }

  static SMigrationRule markedAsProposal(SMigrationRule rule) {
    rule.isProposal = true;
    return rule;
  }

  const ICParameterFile& mOldFile;
  const ICParameterFile& mNewFile;
  CDefinitionSide mOld;
  CDefinitionSide mNew;
  CParamDefItem mOldItem;  // that a rule is made for
  CParamDefItem mNewItem;
  CRenameGuess mRenames;
  CMigrationTable mTable;
};

}  // namespace

CMigrationTable CMigrationTable::draft(const ICParameterFile& oldDefinitions,
                                       const ICParameterFile& newDefinitions) {
  return CDraft(oldDefinitions, newDefinitions).run();
}
