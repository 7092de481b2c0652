#pragma once

#include "ICParameterFile.h"

#include <QStringList>
#include <QTextStream>

/// The whole content of a parameter file object as text, so that two of them can be compared.
namespace NParamFileText {

template <class List, class Text>
QString joined(const List& values, const Text& text) {
  QStringList texts;
  for (const auto& value : values) texts += text(value);
  return texts.join('|');
}

template <class T>
QString numbers(const QList<T>& values) {
  return joined(values, [](T value) { return QString::number(value); });
}

inline QString definition(const CParamDefItem& d) {
  const auto choice = [](const auto& value) -> QString {
    return QString::number(value.value) + '=' + value.name;
  };
  const auto bit = [](const auto& value) -> QString {
    return QString::number(value.pos) + (value.invert ? "=!" : "=") + value.name;
  };
  const auto check = d.checkVals();
  QString text;
  QTextStream(&text) << d.id() << ';' << d.name() << ';' << d.typeStr() << ';' << d.unitId() << ';'
                     << d.hint() << ';' << d.defVal().asStr() << ';' << d.minVal().asStr() << ';'
                     << d.maxVal().asStr() << ';' << numbers(d.minIds()) << ';'
                     << numbers(d.maxIds()) << ';' << (d.isEnumEditable() ? "edit" : "fixed") << ';'
                     << joined(d.enums(), choice) << ';' << joined(d.radios(), choice) << ';'
                     << check.checked << '|' << check.unchecked << '|' << int(check.hasUndefined)
                     << '|' << check.undefined << ';' << joined(d.bitset(), bit) << ';'
                     << d.visibleId() << ';' << numbers(d.visibleVals());
  return text;
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
  const QStringList first{QString::number(file.fileType()), file.hardwareId(),
                          QString::number(file.paramFileVersion()),
                          QString::number(int(file.defChanged()))};
  const QString dates =
      file.defDate().toString(Qt::ISODate) + ' ' + file.date().toString(Qt::ISODate);
  return QStringList{first.join(' '), dates, file.changedList().join('|'), content(file)}.join(
      '\n');
}

}  // namespace NParamFileText
