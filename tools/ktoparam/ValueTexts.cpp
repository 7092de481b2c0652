#include "ValueTexts.h"

#include "CParamValueText.h"
#include "DisplayText.h"

namespace {

// In decimal when it stands there in hexadecimal and that makes a difference.
QString decimal(const CParamDefItem& definition, const CParamVal& value) {
  const QString text = CParamValueText::editable(definition, value);
  const bool isHexadecimal = value.asStr().contains(QLatin1Char('x'), Qt::CaseInsensitive);
  return isHexadecimal && text.size() > 1 && text != value.asStr() ? text : QString();
}

}  // namespace

QString ValueTexts::meaning(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = CParamValueText::choiceName(definition, value, CParamValueText::English);
  const std::optional<QStringList> bits = CParamValueText::activeBits(definition, value);
  QStringList parts;
  for (const QString& name :
       (choice.isEmpty() ? QStringList() : QStringList(choice)) + bits.value_or(QStringList())) {
    parts.append(DisplayText::shown(name));
  }
  return parts.isEmpty() && !bits ? decimal(definition, value) : parts.join(QLatin1String(" | "));
}

QString ValueTexts::change(const CParamDefItem& definition, const CParamVal& oldValue,
                           const CParamVal& newValue) {
  const QString from = meaning(definition, oldValue);
  const QString to = meaning(definition, newValue);
  if (from == to) return {};
  return QStringLiteral("%1 → %2").arg(from.isEmpty() ? DisplayText::shown(oldValue.asStr()) : from,
                                       to.isEmpty() ? DisplayText::shown(newValue.asStr()) : to);
}
