#include "CInvocation.h"
#include "COutput.h"
#include "CTable.h"
#include "DisplayText.h"
#include "JsonTexts.h"
#include "OpenedFile.h"
#include "Show.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

void addRows(const ICSettingsTreeNode& group, int depth, CTable& table) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *group.childPtr(i);
    const QString value = node.isGroup() ? QString() : DisplayText::shown(node.value().asStr());
    table.addRow({QString(2 * depth, QLatin1Char(' ')) + DisplayText::shown(node.name()),
                  ICSettingsTreeNode::typeToStr(node.type()), value,
                  DisplayText::shownOrNothing(node.unit()),
                  DisplayText::shownOrNothing(node.comment())});
    addRows(node, depth + 1, table);
  }
}

QJsonArray childrenJson(const ICSettingsTreeNode& group) {
  QJsonArray children;
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *group.childPtr(i);
    const bool isGroup = node.isGroup();
    children.append(QJsonObject{
        {QStringLiteral("name"), node.name()},
        {QStringLiteral("type"), textOrNull(ICSettingsTreeNode::typeToStr(node.type()))},
        {QStringLiteral("value"), isGroup ? QJsonValue() : QJsonValue(node.value().asStr())},
        {QStringLiteral("unit"), textOrNull(node.unit())},
        {QStringLiteral("comment"), node.comment()},
        {QStringLiteral("children"), isGroup ? QJsonValue(childrenJson(node)) : QJsonValue()}});
  }
  return children;
}

}  // namespace

EExitStatus Show::settings(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const SOpenedFile<ICSettingsFile> opened = OpenedFile::settings(fileName, out);
  if (!opened.file) return ExitFile;
  const ICSettingsTreeNode& root = *opened.file->root();
  if (invocation.wantsJson()) {
    QJsonObject object = headJson(fileName, opened.info, {});
    object.insert(QStringLiteral("settings"), childrenJson(root));
    out.json(object);
    return ExitDone;
  }
  CTable table({Tool::tr("NAME"), Tool::tr("TYPE"), Tool::tr("VALUE"), Tool::tr("UNIT"),
                Tool::tr("COMMENT")});
  addRows(root, 0, table);
  out.line(headLine(opened.info, {}));
  if (!table.isEmpty()) table.print(out);
  return ExitDone;
}
