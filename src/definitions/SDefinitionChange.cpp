#include "SDefinitionChange.h"

#include "CDefinitionComparison.h"
#include "NShortText.h"

QString SDefinitionChange::listed(const QStringList& entries) {
  constexpr int kMost = 12;
  if (entries.isEmpty()) return {};
  QStringList first;
  for (const QString& entry : entries.mid(0, kMost)) first.append(NShortText::of(entry));
  const QString text = first.join(QLatin1String(", "));
  return entries.size() <= kMost ? text
                                 : CDefinitionComparison::tr("%1, … (%2 in all)")
                                       .arg(text, QString::number(entries.size()));
}
