#include "NValueMeaning.h"

#include "CLabels.h"
#include "CParamValueText.h"
#include "NDisplayText.h"
#include "NShortText.h"

namespace {

// In decimal, when the file has it in hexadecimal and that makes a difference.
QString decimal(const CParamDefItem& definition, const CParamVal& value) {
  const QString text = CParamValueText::editable(definition, value);
  const bool isHexadecimal = value.asStr().contains(QLatin1Char('x'), Qt::CaseInsensitive);
  return isHexadecimal && text.size() > 1 && text != value.asStr() ? text : QString();
}

}  // namespace

QString NValueMeaning::meaning(const CParamDefItem& definition, const CParamVal& value,
                               const CLabels& labels) {
  const QString choice = CParamValueText::choiceName(definition, value, CParamValueText::English);
  const QStringList names =
      choice.isEmpty() ? CParamValueText::bits(definition, value) : QStringList(choice);
  if (names.isEmpty()) return decimal(definition, value);
  QStringList parts;
  for (const QString& name : names) parts.append(labels.shown(name));
  const QString joined = parts.join(QLatin1String(" | "));
  return joined.size() > NShortText::kLongest ? NShortText::of(joined) : joined;
}

QString NValueMeaning::change(const CParamDefItem& definition, const CParamVal& oldValue,
                              const CParamVal& newValue, const CLabels& labels) {
  const QString from = meaning(definition, oldValue, labels);
  const QString to = meaning(definition, newValue, labels);
  if (from == to) return {};
  return QStringLiteral("%1 → %2").arg(
      from.isEmpty() ? NDisplayText::shown(oldValue.asStr()) : from,
      to.isEmpty() ? NDisplayText::shown(newValue.asStr()) : to);
}
