#include "CDefinitionComparison.h"
#include "CDefinitionSide.h"
#include "CExactNumber.h"
#include "CMigrationTable.h"
#include "CParamValueText.h"
#include "CRenameGuess.h"
#include "ICParameterFile.h"
#include "NRenumbering.h"
#include "NRescalingGuess.h"
#include "NShortText.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

using S = SDefinitionDifference;
using NRenumbering::CBitPairs;
using NRenumbering::CNumberPairs;

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

  /// What renumbered choices and bits become is certain, unless they are of texts or a number
  /// has both; other meanings are asked for.
  void convert(const S& difference, SMigrationRule& rule, SMigrationRule& proposal,
               QStringList& questions) const {
    if (difference.effect != S::MeaningChanged) return;
    const bool isChoice = difference.what == S::Choices || difference.what == S::RadioButtons ||
                          difference.what == S::CheckBox;
    const bool isNumber = areNumbers();
    const bool hasBits = mOldItem.hasBitset() || mNewItem.hasBitset();
    const bool hasChoices = !CParamValueText::choices(mOldItem).isEmpty();
    const auto choices = isChoice && isNumber && !hasBits
                             ? NRenumbering::choices(mOldItem, mNewItem)
                             : CNumberPairs();
    const auto bits = difference.what == S::Bits && isNumber && !hasChoices
                          ? NRenumbering::bits(mOldItem, mNewItem)
                          : CBitPairs();
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
    const bool mayBe = has(S::Name) && (has(S::Type) || NRescalingGuess::isPowerOfTen(factor));
    return areNumbers() && (has(S::Unit) || mayBe);
  }

  bool areNumbers() const {
    return CExactNumber::isNumberType(mOldItem.type()) &&
           CExactNumber::isNumberType(mNewItem.type());
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
