#include "NSuggestion.h"

#include "NShortText.h"
#include "Tool.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace {

constexpr int kListedNames = 12;
constexpr int kMinBeginning = 3;

int toleratedErrors(const QString& text) {
  return qMin(text.size() / 3, 4);
}

// Characters to insert, delete, replace or swap with the next one; more than `limit` is just that.
int typingErrors(const QString& a, const QString& b, int limit) {
  if (qAbs(a.size() - b.size()) > limit) return limit + 1;
  QVector<int> beforeLast(b.size() + 1);
  QVector<int> last(b.size() + 1);
  QVector<int> current(b.size() + 1);
  std::iota(last.begin(), last.end(), 0);
  for (int i = 1; i <= a.size(); ++i) {
    current[0] = i;
    for (int j = 1; j <= b.size(); ++j) {
      const int replaced = last.at(j - 1) + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
      current[j] = std::min({last.at(j) + 1, current.at(j - 1) + 1, replaced});
      const bool swapped =
          i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1);
      if (swapped) current[j] = std::min(current.at(j), beforeLast.at(j - 2) + 1);
    }
    if (*std::min_element(current.cbegin(), current.cend()) > limit) return limit + 1;
    beforeLast.swap(last);
    last.swap(current);
  }
  return last.at(b.size());
}

QString onlyBeginning(const QString& text, const QStringList& candidates) {
  QString found;
  for (const QString& candidate : candidates) {
    if (!candidate.startsWith(text, Qt::CaseInsensitive)) continue;
    if (!found.isNull()) return {};
    found = candidate;
  }
  return found;
}

}  // namespace

QString NSuggestion::closest(const QString& text, const QStringList& candidates) {
  const QString wanted = text.toCaseFolded();
  QString best;
  int fewest = toleratedErrors(text) + 1;
  for (const QString& candidate : candidates) {
    const int errors = typingErrors(wanted, candidate.toCaseFolded(), fewest - 1);
    if (errors >= fewest) continue;
    fewest = errors;
    best = candidate;
    if (errors == 0) break;
  }
  return best.isNull() && text.size() >= kMinBeginning ? onlyBeginning(text, candidates) : best;
}

QString NSuggestion::didYouMean(const QString& text, const QStringList& candidates) {
  const QString best = closest(text, candidates);
  return best.isNull() ? QString() : Tool::tr(" Did you mean \"%1\"?").arg(NShortText::of(best));
}

QString NSuggestion::listed(const QStringList& names) {
  QStringList listed;
  for (const QString& name : names.mid(0, kListedNames)) listed.append(NShortText::of(name));
  const QString text = listed.join(QLatin1String(", "));
  return listsAll(names) ? text
                         : Tool::tr("%1, … (%2 in all)").arg(text, QString::number(names.size()));
}

bool NSuggestion::listsAll(const QStringList& names) {
  return names.size() <= kListedNames;
}
