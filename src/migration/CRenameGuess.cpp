#include "CRenameGuess.h"

#include <algorithm>

namespace {

constexpr size_t kMostCompared = 500;  // names for each one that was removed

QChar firstLetter(const QString& name) {
  return name.isEmpty() ? QChar() : name.at(0).toLower();
}

/// Whether the shorter name is the longer one with letters left out: "VelLimit", "VelocityLimit".
bool isShortForm(const QString& a, const QString& b) {
  constexpr int kMinLetters = 3;
  const QString& shorter = a.size() <= b.size() ? a : b;
  const QString& longer = a.size() <= b.size() ? b : a;
  int found = 0;
  for (const QChar letter : longer)
    if (found < shorter.size() && shorter.at(found).toLower() == letter.toLower()) ++found;
  return shorter.size() >= kMinLetters && found == shorter.size();
}

}  // namespace

void CRenameGuess::add(const CParamDefItem& definition, const QString& unit) {
  const CKind kind(definition.type(), unit);
  mByName[kind][firstLetter(definition.name())].push_back(definition.name());
  if (definition.hint().isEmpty()) return;
  const auto [known, isNew] = mByHint.try_emplace({kind, definition.hint()}, definition.name());
  if (!isNew) known->second = QString();
}

QString CRenameGuess::take(const CParamDefItem& removed, const QString& unit) {
  const CKind kind(removed.type(), unit);
  QString found = byHint(kind, removed.hint());
  if (found.isNull()) found = byName(kind, removed.name());
  if (!found.isNull()) mTaken.insert(found);
  return found;
}

QString CRenameGuess::byHint(const CKind& kind, const QString& hint) const {
  const auto found = mByHint.find({kind, hint});
  return found != mByHint.end() && mTaken.count(found->second) == 0 ? found->second : QString();
}

QString CRenameGuess::byName(const CKind& kind, const QString& name) const {
  const auto ofKind = mByName.find(kind);
  if (ofKind == mByName.end()) return {};
  const auto names = ofKind->second.find(firstLetter(name));
  if (names == ofKind->second.end()) return {};
  QString found;
  for (size_t i = 0; i < std::min(names->second.size(), kMostCompared); ++i) {
    const QString& candidate = names->second.at(i);
    if (!isShortForm(name, candidate) || mTaken.count(candidate) > 0) continue;
    if (!found.isNull()) return {};
    found = candidate;
  }
  return found;
}
