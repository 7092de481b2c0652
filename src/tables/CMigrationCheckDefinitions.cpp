// What a migration table leaves out: definitions whose meaning changed.

#include "CDefinitionComparison.h"
#include "CMigrationCheck.h"
#include "ICParameterFile.h"
#include "NShortText.h"

namespace {

using S = SDefinitionDifference;

/// Whether a rule says what becomes of values whose meaning changed in this way.
bool covers(const SMigrationRule& rule, S::EWhat what) {
  if (!rule.question.isNull() || rule.isDropped) return true;
  if (what == S::Id) return rule.newId.has_value();
  if (!rule.value.isNull()) return true;
  switch (what) {
    case S::Unit:
      return rule.rescaling.has_value();
    case S::Choices:
    case S::RadioButtons:
    case S::CheckBox:
      return !rule.choices.isEmpty();
    case S::Bits:
      return !rule.bits.isEmpty();
    case S::Default:  // of a unit: it counts where no value is stored
      return true;
    default:
      return false;
  }
}

/// What may cover it, as one writes it.
QString cure(S::EWhat what) {
  switch (what) {
    case S::Id:
      return QStringLiteral("newId");
    case S::Unit:
      return QStringLiteral("<Rescale>");
    case S::Choices:
    case S::RadioButtons:
    case S::CheckBox:
      return QStringLiteral("<Choice>");
    case S::Bits:
      return QStringLiteral("<Bit>");
    default:
      return QStringLiteral("<Value>");
  }
}

}  // namespace

void CMigrationCheck::checkDefinitions() {
  const std::unique_ptr<ICParameterFile> renamed = renamedDefinitions();
  const CDefinitionDifferences differences = CDefinitionComparison::compare(*renamed, mNewFile);
  for (int begin = 0; begin < differences.size();) {
    int end = begin + 1;
    while (end < differences.size() && differences.at(end).name == differences.at(begin).name)
      ++end;
    checkDifferences(differences.mid(begin, end - begin));
    begin = end;
  }
}

/// The old definitions under the names that the table gives them, so that each is compared with
/// what it becomes, and a renamed one that also has another unit is found.
std::unique_ptr<ICParameterFile> CMigrationCheck::renamedDefinitions() const {
  std::unique_ptr<ICParameterFile> renamed(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  QVector<CParamDefItem> dropped;
  for (const QString& name : mOld.names()) {
    CParamDefItem definition = mOld.find(name);
    const auto rule = mByName.find(name);
    const bool isDropped = rule != mByName.end() && rule->second->isDropped;
    if (rule != mByName.end() && !isDropped) definition.setName(newNameOf(*rule->second));
    if (isDropped)
      dropped.append(definition);
    else
      renamed->addDef(definition);
  }
  // Others may refer to them still. One whose name is taken cannot be added.
  for (const CParamDefItem& definition : qAsConst(dropped)) renamed->addDef(definition);
  return renamed;
}

/// The differences of one definition.
void CMigrationCheck::checkDifferences(const CDefinitionDifferences& differences) {
  const S& first = differences.first();
  const auto found = mByNewName.find(first.oldName);
  mRule = found == mByNewName.end() ? nullptr : found->second;
  mName = mRule == nullptr ? first.oldName : mRule->name;
  const bool isGone = first.what == S::Removed || first.name != first.oldName;
  if (isGone) {
    const bool isTold = mRule != nullptr || mByName.count(first.oldName) > 0;
    if (!first.oldName.isNull() && !isTold)
      warn(tr("the new definitions do not have it, and no rule is about it."));
    return;
  }
  bool isCovered = false;
  for (const S& each : differences)
    isCovered |= each.effect == S::MeaningChanged && mRule != nullptr && covers(*mRule, each.what);
  for (const S& each : differences)
    if (each.effect == S::MeaningChanged && (mRule == nullptr || !covers(*mRule, each.what)))
      checkMeaning(each, isCovered);
    else if (each.what == S::Id && each.effect == S::ValuesMayBreak && mRule == nullptr)
      warnOfId(each.oldText, each.newText);
}

/// A rule says one thing about a value only, so what else changed is told, but may be.
void CMigrationCheck::checkMeaning(const S& difference, bool isCoveredElsewhere) {
  if (mRule == nullptr && mByName.count(mName) > 0) return;  // dropped, and another has its name
  const QString text = mRule == nullptr
                           ? tr("its meaning changed, and no rule is about it (%1): %2")
                           : tr("its meaning changed, and the rule has no %3 for that (%1): %2");
  add(mRule == nullptr
          ? text.arg(S::whatText(difference.what), difference.reason)
          : text.arg(S::whatText(difference.what), difference.reason, cure(difference.what)),
      isCoveredElsewhere);
}
