#include "SValueView.h"

#include "CLabels.h"
#include "CParamValueRules.h"
#include "CParamValueText.h"
#include "CParameterWords.h"
#include "ICParamTreeNode.h"
#include "ICParameterFile.h"
#include "JsonValues.h"
#include "NShortText.h"
#include "NValueMeaning.h"

namespace {

QString pathOf(const ICParamTreeNode* group) {
  const bool isRoot = group == nullptr || group->parentPtr() == nullptr;
  return isRoot ? QString() : NShortText::below(pathOf(group->parentPtr()), group->name());
}

QJsonArray toJson(const QList<int>& numbers) {
  QJsonArray array;
  for (const int number : numbers) array.append(number);
  return array;
}

}  // namespace

SValueView CValueViews::of(const ICParamTreeNode& node) {
  return of(node, pathOf(node.parentPtr()));
}

SValueView CValueViews::of(const ICParamTreeNode& node, const QString& groupPath) {
  const QString name = node.name();
  noteHardwareId();
  SValueView view;
  view.hardwareId = mHardwareIdLabel;
  view.group = groupPath;
  view.name = mLabels.of(name);
  view.id = node.id();
  view.subDevId = node.subDevId();
  view.value = node.value();

  const CParamDefItem definition = mFile.paramDef(name);
  if (definition.name().isEmpty()) return view;
  const std::optional<QStringList> bits = CParamValueText::activeBits(definition, view.value);
  const std::optional<QList<int>> others = CParamValueText::otherBits(definition, view.value);
  view.unit = unit(definition, view.subDevId);
  view.choice =
      mLabels.of(CParamValueText::choiceName(definition, view.value, CParamValueText::English));
  if (bits) view.bits = mLabels.of(*bits);
  if (others) view.otherBits = toJson(*others);
  view.meaning = NValueMeaning::meaning(definition, view.value, mLabels);
  view.defaultValue = CParamVal(mLabels.of(definition.defVal().asStr()));
  view.isDefault = CParamValueRules::areEqual(view.value, definition.defVal(), definition);
  return view;
}

QString CValueViews::unit(const CParamDefItem& definition, quint8 subDevId) {
  noteHardwareId();
  const auto [known, isNew] = mUnits.try_emplace({definition.unitId(), subDevId});
  if (isNew) known->second = mLabels.of(CParamValueText::unitName(mFile, definition, subDevId));
  return known->second;
}

void CValueViews::noteHardwareId() {
  const QString current = mFile.hardwareId();
  if (mHardwareId == current) return;
  mUnits.clear();
  mHardwareId = current;
  mHardwareIdLabel = mLabels.of(current);
}

void CValueViews::visit(const ICParamTreeNode& group, const CParameterWords& words,
                        const std::function<void(const SValueView&)>& visitor,
                        const QString& path) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isGroup())
      visit(child, words, visitor, NShortText::below(path, child.name()));
    else if (words.mean(child))
      visitor(of(child, path));
  }
}

QJsonObject SValueView::toPlacedJson() const {
  QJsonObject json = toJson();
  json.insert("hardwareId", hardwareId);
  json.insert("subDevice", subDevId);
  return json;
}

QJsonObject SValueView::toJson() const {
  const bool isDefined = defaultValue.has_value();
  return {{"group", group},
          {"name", name},
          {"id", id == 0 ? QJsonValue() : QJsonValue(qint64(id))},
          {"value", value.asStr()},
          {"unit", textOrNull(unit)},
          {"choice", textOrNull(choice)},
          {"bits", bits ? *bits : QJsonValue()},
          {"otherBits", otherBits ? *otherBits : QJsonValue()},
          {"default", isDefined ? defaultValue->asStr() : QJsonValue()},
          {"isDefault", isDefined ? QJsonValue(isDefault) : QJsonValue()}};
}
