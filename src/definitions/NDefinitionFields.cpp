#include "NDefinitionFields.h"

#include "CParamDefFile.h"
#include "NShortText.h"
#include "NThreeWay.h"
#include "SDefinitionChange.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using D = CParamDefItem;
using S = SMergeConflict;

struct SField {
  S::ESubject subject;
  bool (*areEqual)(const D& a, const D& b);
  QString (*text)(const D& definition);
  void (*copy)(const D& from, D& to);
};

template <auto... get>
bool areEqualIn(const D& a, const D& b) {
  return (... && ((a.*get)() == (b.*get)()));
}

QString numberText(quint32 number) {
  return NParamDef::isRealId(number) ? QString::number(number) : QString();
}

template <typename T>
QString numbersText(const QList<T>& numbers) {
  QStringList texts;
  for (const T number : numbers) texts.append(QString::number(number));
  return SDefinitionChange::listed(texts);
}

QString choicesText(const QList<NParamDef::SNamedI64Value>& choices) {
  QStringList texts;
  for (const NParamDef::SNamedI64Value& choice : choices)
    texts.append(
        QStringLiteral("%1 %2").arg(QString::number(choice.value), NShortText::of(choice.name)));
  return SDefinitionChange::listed(texts);
}

QString enumsText(const D& d) {
  return choicesText(d.enums()) + (d.isEnumEditable() ? QLatin1String(" …") : QLatin1String(""));
}

QString bitsText(const D& d) {
  QStringList texts;
  for (const NParamDef::SBitValue& bit : d.bitset()) {
    texts.append(QStringLiteral("%1%2 %3").arg(bit.invert ? QStringLiteral("!") : QString(),
                                               QString::number(bit.pos), NShortText::of(bit.name)));
  }
  return SDefinitionChange::listed(texts);
}

QString checkText(const D& d) {
  const NParamDef::SCheckValues values = d.checkVals();
  QList<qint64> states{values.checked, values.unchecked};
  if (values.hasUndefined) states.append(values.undefined);
  return values.isValid() ? numbersText(states) : QString();
}

QString rangeText(const D& d) {
  return QStringLiteral("%1: %2 … %3").arg(d.typeStr(), d.minVal().asStr(), d.maxVal().asStr());
}

QString visibilityText(const D& d) {
  if (!d.hasVisibleValues()) return {};
  return QStringLiteral("%1: %2").arg(numberText(d.visibleId()), numbersText(d.visibleVals()));
}

const SField kFields[] = {
    {S::Id, &areEqualIn<&D::id>, [](const D& d) { return numberText(d.id()); },
     [](const D& from, D& to) { to.setId(from.id()); }},
    {S::Type, &areEqualIn<&D::typeStr>, [](const D& d) { return d.typeStr(); },
     [](const D& from, D& to) { to.setType(from.type()); }},
    {S::Unit, &areEqualIn<&D::unitId>, [](const D& d) { return numberText(d.unitId()); },
     [](const D& from, D& to) { to.setUnitId(from.unitId()); }},
    {S::Default, &areEqualIn<&D::defVal>, [](const D& d) { return d.defVal().asStr(); },
     [](const D& from, D& to) { to.setDefVal(from.defVal()); }},
    {S::Minimum, &areEqualIn<&D::minVal>, [](const D& d) { return d.minVal().asStr(); },
     [](const D& from, D& to) { to.setMinVal(from.minVal()); }},
    {S::Maximum, &areEqualIn<&D::maxVal>, [](const D& d) { return d.maxVal().asStr(); },
     [](const D& from, D& to) { to.setMaxVal(from.maxVal()); }},
    {S::MinimumParameters, &areEqualIn<&D::minIds>,
     [](const D& d) { return numbersText(d.minIds()); },
     [](const D& from, D& to) { to.setMinIds(from.minIds()); }},
    {S::MaximumParameters, &areEqualIn<&D::maxIds>,
     [](const D& d) { return numbersText(d.maxIds()); },
     [](const D& from, D& to) { to.setMaxIds(from.maxIds()); }},
    {S::Choices, &areEqualIn<&D::enums, &D::isEnumEditable>, &enumsText,
     [](const D& from, D& to) {
       to.setEnumEditable(from.isEnumEditable());
       to.addEnums(from.enums());
     }},
    {S::RadioButtons, &areEqualIn<&D::radios>, [](const D& d) { return choicesText(d.radios()); },
     [](const D& from, D& to) { to.addRadios(from.radios()); }},
    {S::CheckBox, &areEqualIn<&D::checkVals>, &checkText,
     [](const D& from, D& to) { to.setCheckVals(from.checkVals()); }},
    {S::Bits, &areEqualIn<&D::bitset>, &bitsText,
     [](const D& from, D& to) { to.addBits(from.bitset()); }},
    {S::Visibility, &areEqualIn<&D::visibleId, &D::visibleVals>, &visibilityText,
     [](const D& from, D& to) {
       to.setVisibleId(from.visibleId());
       to.addVisibleValues(from.visibleVals());
     }},
    {S::Hint, &areEqualIn<&D::hint>, [](const D& d) { return d.hint(); },
     [](const D& from, D& to) { to.setHint(from.hint()); }}};

/// The definition whose field is taken, for each field.
using CSides = std::array<const D*, std::size(kFields)>;

D assembled(const QString& name, const CSides& sides) {
  D definition;
  definition.setName(name);
  for (size_t i = 0; i < sides.size(); ++i) kFields[i].copy(*sides.at(i), definition);
  return definition;
}

class CFieldMerge {
 public:
  CFieldMerge(const D* base, const D& ours, const D& theirs, CMergeConflicts& conflicts)
      : mBase(base), mOurs(ours), mTheirs(theirs), mConflicts(conflicts) {}

  D run() {
    for (size_t i = 0; i < mSides.size(); ++i) settle(i);
    D definition = assembled(mOurs.name(), mSides);
    if (CParamDefFile::limitsFit(definition)) return definition;
    keepOurLimits();
    return assembled(mOurs.name(), mSides);
  }

 private:
  static bool isOfLimits(S::ESubject subject) {
    return subject == S::Type || subject == S::Minimum || subject == S::Maximum;
  }

  /// Where the minimum of one side is above the maximum of the other, both sides' ranges conflict.
  void keepOurLimits() {
    S::ESubject subject = S::Type;
    for (size_t i = 0; i < mSides.size(); ++i) {
      if (!isOfLimits(kFields[i].subject) || mSides.at(i) != &mTheirs) continue;
      subject = kFields[i].subject;
      mSides.at(i) = &mOurs;
    }
    addConflict(subject, &rangeText);
  }

  void settle(size_t i) {
    const auto isSame = kFields[i].areEqual;
    mSides.at(i) = &mOurs;
    if (isSame(mOurs, mTheirs) || (mBase != nullptr && isSame(*mBase, mTheirs))) return;
    if (mBase != nullptr && isSame(*mBase, mOurs))
      mSides.at(i) = &mTheirs;
    else
      keepOurs(i);
  }

  void keepOurs(size_t i) {
    mSides.at(i) = &mOurs;
    addConflict(kFields[i].subject, kFields[i].text);
  }

  void addConflict(S::ESubject subject, QString (*text)(const D&)) {
    const QString base = mBase == nullptr ? QString() : text(*mBase);
    mConflicts.append(NThreeWay::conflict(subject, mBase == nullptr ? nullptr : &base, text(mOurs),
                                          text(mTheirs)));
    mConflicts.last().name = mOurs.name();
  }

  const D* mBase;
  const D& mOurs;
  const D& mTheirs;
  CMergeConflicts& mConflicts;
  CSides mSides{};
};

}  // namespace

bool NDefinitionFields::areEqual(const CParamDefItem& a, const CParamDefItem& b) {
  return std::all_of(std::begin(kFields), std::end(kFields),
                     [&](const SField& field) { return field.areEqual(a, b); });
}

CParamDefItem NDefinitionFields::merged(const CParamDefItem* base, const CParamDefItem& ours,
                                        const CParamDefItem& theirs, CMergeConflicts& conflicts) {
  return CFieldMerge(base, ours, theirs, conflicts).run();
}
