#include "CRenameGuess.h"

#include <algorithm>

namespace {

constexpr size_t kMostCompared = 500;  // names for each one that was removed

QChar firstOf(const QString& letters) {
  return letters.isEmpty() ? QChar() : letters.front();
}

/// Whether the shorter name is the longer one with letters left out: "VelLimit", "VelocityLimit".
bool isShortForm(const QString& a, const QString& b) {
  constexpr int kMinLetters = 3;
  constexpr int kMaxLetters = 100;
  const QString& shorter = a.size() <= b.size() ? a : b;
  const QString& longer = a.size() <= b.size() ? b : a;
  if (shorter.size() < kMinLetters || longer.size() > qMin(kMaxLetters, 4 * shorter.size()))
    return false;
  int found = 0;
  for (const QChar letter : longer)
    if (found < shorter.size() && shorter.at(found) == letter) ++found;
  return found == shorter.size();
}

}  // namespace

bool CRenameGuess::areAlike(const QString& a, const QString& b) {
  return isShortForm(a.toLower(), b.toLower());
}

void CRenameGuess::addNew(const CParamDefItem& definition, const QString& unit) {
  const CKind kind(definition.type(), unit);
  const QString letters = definition.name().toLower();
  mByName[kind][firstOf(letters)].push_back({definition.name(), letters});
  if (definition.hint().isEmpty()) return;
  const auto [known, isNew] = mByHint.try_emplace({kind, definition.hint()}, definition.name());
  if (!isNew) known->second = QString();
}

void CRenameGuess::addOld(const CParamDefItem& definition, const QString& unit) {
  ++mOldHints[{{definition.type(), unit}, definition.hint()}];
}

QString CRenameGuess::take(const CParamDefItem& removed, const QString& unit) {
  const CKind kind(removed.type(), unit);
  QString found = byHint({kind, removed.hint()});
  if (found.isNull()) found = byName(kind, removed.name());
  if (!found.isNull()) mTaken.insert(found);
  return found;
}

QString CRenameGuess::byHint(const CHint& hint) const {
  const auto found = mByHint.find(hint);
  const auto olds = mOldHints.find(hint);
  const bool isOnly = olds != mOldHints.end() && olds->second == 1;
  return isOnly && found != mByHint.end() && mTaken.count(found->second) == 0 ? found->second
                                                                              : QString();
}

QString CRenameGuess::byName(const CKind& kind, const QString& name) const {
  const auto ofKind = mByName.find(kind);
  if (ofKind == mByName.end()) return {};
  const QString letters = name.toLower();
  const auto names = ofKind->second.find(firstOf(letters));
  if (names == ofKind->second.end()) return {};
  QString found;
  for (size_t i = 0; i < std::min(names->second.size(), kMostCompared); ++i) {
    const SName& candidate = names->second.at(i);
    if (!isShortForm(letters, candidate.letters) || mTaken.count(candidate.name) > 0) continue;
    if (!found.isNull()) return {};
    found = candidate.name;
  }
  return found;
}
