#include "CEditedParams.h"

#include "ICParameterFile.h"
#include "NShortText.h"
#include "NValueMeaning.h"
#include "Output.h"

namespace {

/// One word for people, one for programs: that of the counts.
struct SWords {
  const char* shown;
  const char* key;
};

SWords wordsOf(SEditedParam::EWhat what) {
  switch (what) {
    case SEditedParam::Taken:
      return {QT_TRANSLATE_NOOP("ktoparam", "taken"), "taken"};
    case SEditedParam::Defaulted:
      return {QT_TRANSLATE_NOOP("ktoparam", "default"), "defaulted"};
    case SEditedParam::Kept:
      return {QT_TRANSLATE_NOOP("ktoparam", "kept"), "kept"};
    case SEditedParam::Added:
      return {QT_TRANSLATE_NOOP("ktoparam", "added"), "added"};
    case SEditedParam::Unknown:
      return {QT_TRANSLATE_NOOP("ktoparam", "skipped"), "unknown"};
    case SEditedParam::Removed:
      return {QT_TRANSLATE_NOOP("ktoparam", "removed"), "removed"};
    default:
      return {"", ""};  // is not listed
  }
}

QString valueCell(const QString& value) {
  return value.isNull() ? QString() : NDisplayText::shown(value);
}

ICParamTreeNode* nodeIn(ICParameterFile& file, const SEditedParam& param) {
  // The root of a sub-device that is not there would be made.
  return file.doesSubDeviceExist(param.subDevId)
             ? file.findParameter(file.rootGroup(param.subDevId), param.name)
             : nullptr;
}

}  // namespace

CEditedParams::SValues CEditedParams::valuesOf(const SEditedParam& param) const {
  const bool hasNew = param.what == SEditedParam::Taken || param.what == SEditedParam::Defaulted ||
                      param.what == SEditedParam::Added;
  return {mBefore.paramValue(param.name, param.subDevId).asStr(),
          hasNew ? mAfter.paramValue(param.name, param.subDevId).asStr() : QString()};
}

QString CEditedParams::meaning(const SEditedParam& param, const SValues& values) const {
  const CParamDefItem definition = mAfter.paramDef(param.name);
  const auto& [oldValue, newValue] = values;
  if (values.areBoth() && oldValue != newValue)
    return NValueMeaning::change(definition, oldValue, newValue, mLabels);
  return NValueMeaning::meaning(definition, newValue.isNull() ? oldValue : newValue, mLabels);
}

QStringList CEditedParams::toCells(const SEditedParam& param) const {
  const SValues values = valuesOf(param);
  const bool isSame = values.areBoth() && values.newValue == values.oldValue;
  return {Tool::tr(wordsOf(param.what).shown),
          QString::number(param.subDevId),
          mLabels.shown(param.name),
          valueCell(values.oldValue),
          isSame ? Tool::tr("(unchanged)") : valueCell(values.newValue),
          meaning(param, values)};
}

void CEditedParams::print(const QVector<SEditedParam>& params, COutput& out) const {
  CTable table({Tool::tr("WHAT"), Tool::tr("SUB-DEVICE"), Tool::tr("NAME"), Tool::tr("OLD"),
                Tool::tr("NEW"), Tool::tr("MEANING")});
  for (const SEditedParam& param : params) table.addRow(toCells(param));
  table.print(out);
}

QJsonArray CEditedParams::toJson(const QVector<SEditedParam>& params) {
  QJsonArray array;
  for (const SEditedParam& param : params) {
    const SValues values = valuesOf(param);
    array.append(QJsonObject{{"subDevice", param.subDevId},
                             {"name", mLabels.of(param.name)},
                             {"group", presentOrNull(groupOf(param))},
                             {"what", wordsOf(param.what).key},
                             {"old", presentOrNull(values.oldValue)},
                             {"new", presentOrNull(values.newValue)}});
  }
  return array;
}

QString CEditedParams::groupOf(const SEditedParam& param) {
  const ICParamTreeNode* node = nodeIn(mAfter, param);
  if (node == nullptr) node = nodeIn(mBefore, param);
  if (node == nullptr) return {};
  const QString path = pathOf(node->parentPtr());
  return path.isNull() ? QStringLiteral("") : path;
}

const QString& CEditedParams::pathOf(const ICParamTreeNode* group) {
  const auto [known, isNew] = mPaths.try_emplace(group);
  if (isNew && group->parentPtr() != nullptr)
    known->second = NShortText::below(pathOf(group->parentPtr()), group->name());
  return known->second;
}
