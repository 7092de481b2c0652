#include "SValueView.h"

#include "CParamValueRules.h"
#include "CParamValueText.h"
#include "ICParamTreeNode.h"
#include "ICParameterFile.h"
#include "JsonTexts.h"
#include "ValueTexts.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString groupPath(const ICParamTreeNode& node) {
  QStringList names;
  const ICParamTreeNode* group = node.parentPtr();
  for (; group && group->parentPtr(); group = group->parentPtr()) names.prepend(group->name());
  return names.join(QLatin1Char('/'));
}

}  // namespace

SValueView SValueView::of(const ICParameterFile& file, const ICParamTreeNode& node) {
  SValueView view;
  view.group = groupPath(node);
  view.name = node.name();
  view.id = node.id();
  view.subDevId = node.subDevId();
  view.value = node.value();

  const CParamDefItem definition = file.paramDef(view.name);
  if (definition.name().isEmpty()) return view;
  view.unit = CParamValueText::unitName(file, definition, view.subDevId);
  view.choice = CParamValueText::choiceName(definition, view.value, CParamValueText::English);
  view.bits = CParamValueText::activeBits(definition, view.value);
  view.meaning = ValueTexts::meaning(definition, view.value);
  view.defaultValue = definition.defVal();
  view.isDefault = CParamValueRules::areEqual(view.value, definition.defVal(), definition);
  return view;
}

QJsonObject SValueView::toJson() const {
  const bool isDefined = defaultValue.has_value();
  return {{QStringLiteral("group"), group},
          {QStringLiteral("name"), name},
          {QStringLiteral("id"), id == 0 ? QJsonValue() : QJsonValue(qint64(id))},
          {QStringLiteral("value"), value.asStr()},
          {QStringLiteral("unit"), textOrNull(unit)},
          {QStringLiteral("choice"), textOrNull(choice)},
          {QStringLiteral("bits"), bits ? QJsonArray::fromStringList(*bits) : QJsonValue()},
          {QStringLiteral("default"), isDefined ? defaultValue->asStr() : QJsonValue()},
          {QStringLiteral("isDefault"), isDefined ? QJsonValue(isDefault) : QJsonValue()}};
}
