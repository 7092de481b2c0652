#pragma once

#include "ICParameterFile.h"

#include <QStringList>

/// The whole content of a parameter file object as text, so that two of them can be compared.
namespace NParamFileText {

inline QString choices(const QList<NParamDef::SNamedI64Value>& values) {
  QStringList texts;
  for (const auto& value : values) texts += QString::number(value.value) + '=' + value.name;
  return texts.join('|');
}

template <class T>
QString numbers(const QList<T>& values) {
  QStringList texts;
  for (const T value : values) texts += QString::number(value);
  return texts.join('|');
}

inline QString definition(const CParamDefItem& d) {
  QStringList bits;
  for (const auto& bit : d.bitset())
    bits += QStringLiteral("%1=%2%3").arg(bit.pos).arg(bit.invert ? "!" : "", bit.name);
  const auto check = d.checkVals();
  return QStringList{
      QString::number(d.id()),
      d.name(),
      d.typeStr(),
      QString::number(d.unitId()),
      d.hint(),
      d.defVal().asStr(),
      d.minVal().asStr(),
      d.maxVal().asStr(),
      numbers(d.minIds()),
      numbers(d.maxIds()),
      d.isEnumEditable() ? "edit" : "fixed",
      choices(d.enums()),
      choices(d.radios()),
      numbers(QList<qint64>{check.checked, check.unchecked, check.hasUndefined, check.undefined}),
      bits.join('|'),
      QString::number(d.visibleId()),
      numbers(d.visibleVals())}
      .join(';');
}

inline void tree(ICParameterFile& file, ICParamTreeNode* node, int depth, QStringList& lines) {
  const QString value =
      node->isParam() ? file.paramValue(node->name(), node->subDevId()).asStr() : QString();
  lines += QString(depth, ' ') + QStringLiteral("%1 %2 %3 '%4' %5")
                                     .arg(node->isGroup() ? "group" : "param", node->name(),
                                          QString::number(node->id()), value,
                                          node->property(NParamDef::PROPERTY_CHANGED).toString());
  for (int i = 0; i < node->childCnt(); ++i) tree(file, node->childPtr(i), depth + 1, lines);
}

/// Everything but the active hardware id's name and the marks of changes.
inline QString content(ICParameterFile& file) {
  QStringList lines{file.defAuthor(), file.defComment(), file.author(), file.comment()};
  for (const QString& name : file.defNames()) {
    lines += definition(file.paramDef(name)) + "; used by " +
             numbers(file.referencedBy(file.paramDef(name).id()));
  }
  const QString active = file.hardwareId();
  for (const QString& id : file.hardwareIds()) {
    file.selectHardwareId(id);
    lines += "hardware id " + id;
    for (const quint8 subDevId : file.subDeviceIds()) {
      lines += QStringLiteral("sub device %1 %2 %3")
                   .arg(subDevId)
                   .arg(file.subDevType(subDevId))
                   .arg(file.subDevName(subDevId));
      tree(file, file.rootGroup(subDevId), 1, lines);
    }
  }
  if (!file.selectHardwareId(active)) file.addHardwareId(active);
  return lines.join('\n');
}

/// Everything.
inline QString all(ICParameterFile& file) {
  return QStringLiteral("%1 %2 %3 %4\n%5 %6\n")
             .arg(file.fileType())
             .arg(file.hardwareId())
             .arg(file.paramFileVersion())
             .arg(file.defChanged())
             .arg(file.defDate().toString(Qt::ISODate), file.date().toString(Qt::ISODate)) +
         file.changedList().join('|') + '\n' + content(file);
}

}  // namespace NParamFileText
