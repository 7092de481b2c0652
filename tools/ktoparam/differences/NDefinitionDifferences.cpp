#include "NDefinitionDifferences.h"

#include "CComparedFiles.h"
#include "CInvocation.h"
#include "Output.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>

namespace {

using S = SDefinitionDifference;

constexpr int kWhats = S::Hint + 1;
constexpr int kEffects = S::MeaningChanged + 1;
constexpr int kMostLines = 24;  // of a list that is seen at once

/// In the order of the enumerations.
constexpr std::array<const char*, kWhats> kWhatNames = {
    QT_TRANSLATE_NOOP("ktoparam", "added"),
    QT_TRANSLATE_NOOP("ktoparam", "removed"),
    QT_TRANSLATE_NOOP("ktoparam", "name"),
    QT_TRANSLATE_NOOP("ktoparam", "id"),
    QT_TRANSLATE_NOOP("ktoparam", "type"),
    QT_TRANSLATE_NOOP("ktoparam", "unit"),
    QT_TRANSLATE_NOOP("ktoparam", "default"),
    QT_TRANSLATE_NOOP("ktoparam", "minimum"),
    QT_TRANSLATE_NOOP("ktoparam", "maximum"),
    QT_TRANSLATE_NOOP("ktoparam", "minimum parameters"),
    QT_TRANSLATE_NOOP("ktoparam", "maximum parameters"),
    QT_TRANSLATE_NOOP("ktoparam", "choices"),
    QT_TRANSLATE_NOOP("ktoparam", "radio buttons"),
    QT_TRANSLATE_NOOP("ktoparam", "check box"),
    QT_TRANSLATE_NOOP("ktoparam", "bits"),
    QT_TRANSLATE_NOOP("ktoparam", "visibility"),
    QT_TRANSLATE_NOOP("ktoparam", "hint")};
constexpr std::array<const char*, kEffects> kEffectNames = {
    QT_TRANSLATE_NOOP("ktoparam", "safe"), QT_TRANSLATE_NOOP("ktoparam", "values may break"),
    QT_TRANSLATE_NOOP("ktoparam", "meaning changed")};

QString nameOf(S::EWhat what) {
  return Tool::tr(kWhatNames.at(static_cast<size_t>(what)));
}

QString nameOf(S::EEffect effect) {
  return Tool::tr(kEffectNames.at(static_cast<size_t>(effect)));
}

/// How many differences there are of each kind, and of each effect.
struct SCounts {
  explicit SCounts(const CDefinitionDifferences& differences) {
    for (const S& each : differences) {
      ++of.at(static_cast<size_t>(each.what)).at(static_cast<size_t>(each.effect));
      definitions.insert(each.name);
    }
  }
  int with(S::EEffect effect) const {
    int sum = 0;
    for (const auto& row : of) sum += row.at(static_cast<size_t>(effect));
    return sum;
  }

  std::array<std::array<int, kEffects>, kWhats> of = {};
  std::set<QString> definitions;
};

void printTable(const CDefinitionDifferences& differences, COutput& out) {
  CTable table(
      {Tool::tr("NAME"), Tool::tr("WHAT"), Tool::tr("OLD"), Tool::tr("NEW"), Tool::tr("EFFECT")});
  for (const S& each : differences) {
    const bool isName = each.what == S::Name;
    const auto cell = [&out, isName](const QString& text) {
      if (isName) return out.labels().shown(text);
      return text.isNull() ? QString() : NDisplayText::shown(out.labels().of(text));
    };
    table.addRow({out.labels().shown(each.name), nameOf(each.what), cell(each.oldText),
                  cell(each.newText), nameOf(each.effect)},
                 each.effect == S::MeaningChanged);
  }
  table.print(out);
}

void printCounts(const SCounts& counts, COutput& out) {
  CTable table({Tool::tr("WHAT"), nameOf(S::Safe).toUpper(), nameOf(S::ValuesMayBreak).toUpper(),
                nameOf(S::MeaningChanged).toUpper()});
  for (int what = 0; what < kWhats; ++what) {
    QStringList cells(nameOf(static_cast<S::EWhat>(what)));
    for (const int count : counts.of.at(static_cast<size_t>(what)))
      cells.append(count == 0 ? QString() : QString::number(count));
    if (!cells.mid(1).join(QString()).isEmpty()) table.addRow(cells);
  }
  table.print(out);
}

}  // namespace

bool NDefinitionDifferences::areMeant(const QString& oldFile, const QString& newFile) {
  const SFileInfo::EKind oldKind = SFileInfo::kindOf(oldFile);
  const SFileInfo::EKind newKind = SFileInfo::kindOf(newFile);
  const auto mayBe = [](SFileInfo::EKind kind) {
    return kind == SFileInfo::Definitions || kind == SFileInfo::Unknown;
  };
  return mayBe(oldKind) && mayBe(newKind) && (oldKind != newKind || oldKind != SFileInfo::Unknown);
}

QString NDefinitionDifferences::usageProblem(const CInvocation& invocation) {
  for (const QLatin1String option :
       {NOptions::kDef, NOptions::kNoDef, NOptions::kHardwareId, CComparedFiles::kNewHardwareId,
        NOptions::kSubDevice, CComparedFiles::kNewSubDevice, CComparedFiles::kOnly})
    if (invocation.isSet(option)) return Tool::tr("--%1 is for value files.").arg(option);
  return invocation.arguments().size() > 2
             ? Tool::tr("\"%1\" is one word too many.").arg(invocation.argument(2))
             : QString();
}

CDefinitionDifferences NDefinitionDifferences::breaking(const CDefinitionDifferences& differences) {
  CDefinitionDifferences found;
  std::copy_if(differences.begin(), differences.end(), std::back_inserter(found),
               [](const S& each) { return each.effect != S::Safe; });
  return found;
}

void NDefinitionDifferences::print(const CDefinitionDifferences& differences, COutput& out) {
  if (differences.isEmpty()) return;
  const SCounts counts(differences);
  printTable(differences, out);
  out.line({});
  if (differences.size() > kMostLines) printCounts(counts, out);
  QStringList effects;
  for (const S::EEffect effect : {S::MeaningChanged, S::ValuesMayBreak, S::Safe}) {
    const int count = counts.with(effect);
    if (count > 0)
      effects.append(QStringLiteral("%1 %2").arg(nameOf(effect), QString::number(count)));
  }
  out.line(Tool::tr("definitions %1, differences %2: %3")
               .arg(QString::number(counts.definitions.size()), QString::number(differences.size()),
                    effects.join(QLatin1String(", "))));
}

QJsonObject NDefinitionDifferences::summary(const CDefinitionDifferences& differences) {
  const SCounts counts(differences);
  QJsonObject whats;
  for (int what = 0; what < kWhats; ++what) {
    const auto& row = counts.of.at(static_cast<size_t>(what));
    whats.insert(S::whatText(static_cast<S::EWhat>(what)), row.at(0) + row.at(1) + row.at(2));
  }
  QJsonObject effects;
  for (const S::EEffect effect : {S::Safe, S::ValuesMayBreak, S::MeaningChanged})
    effects.insert(S::effectText(effect), counts.with(effect));
  return {{"definitions", static_cast<int>(counts.definitions.size())},
          {"what", whats},
          {"effect", effects}};
}

QJsonArray NDefinitionDifferences::toJson(const CDefinitionDifferences& differences,
                                          const CLabels& labels) {
  QJsonArray array;
  for (const S& each : differences) {
    array.append(QJsonObject{{"what", S::whatText(each.what)},
                             {"effect", S::effectText(each.effect)},
                             {"name", labels.of(each.name)},
                             {"oldName", presentOrNull(labels.of(each.oldName))},
                             {"old", presentOrNull(labels.of(each.oldText))},
                             {"new", presentOrNull(labels.of(each.newText))},
                             {"reason", each.reason}});
  }
  return array;
}
