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

constexpr int kDeepest = 200;

/// Levels of groups and values.
int depthOf(const ICSettingsTreeNode& group) {
  int deepest = 0;
  for (int i = 0; i < group.childCnt(); ++i)
    deepest = qMax(deepest, 1 + depthOf(*group.childPtr(i)));
  return deepest;
}

void addRows(const ICSettingsTreeNode& group, int depth, const CLabels& labels, CTable& table) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *group.childPtr(i);
    const QString value = node.isGroup() ? QString() : DisplayText::shown(node.value().asStr());
    table.addRow({DisplayText::indented(labels.shown(node.name()), depth),
                  ICSettingsTreeNode::typeToStr(node.type()), value,
                  labels.shownOrNothing(node.unit()), labels.shownOrNothing(node.comment())});
    addRows(node, depth + 1, labels, table);
  }
}

QJsonArray childrenJson(const ICSettingsTreeNode& group, const CLabels& labels) {
  QJsonArray children;
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *group.childPtr(i);
    const bool isGroup = node.isGroup();
    children.append(QJsonObject{
        {QStringLiteral("name"), labels.of(node.name())},
        {QStringLiteral("type"), textOrNull(ICSettingsTreeNode::typeToStr(node.type()))},
        {QStringLiteral("value"), isGroup ? QJsonValue() : QJsonValue(node.value().asStr())},
        {QStringLiteral("unit"), textOrNull(labels.of(node.unit()))},
        {QStringLiteral("comment"), labels.of(node.comment())},
        {QStringLiteral("children"),
         isGroup ? QJsonValue(childrenJson(node, labels)) : QJsonValue()}});
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
    if (depthOf(root) > kDeepest) {
      out.message(fileName, Tool::tr("the settings are nested deeper than %1 levels, which is too "
                                     "deep for JSON; \"ktoparam text\" prints them.")
                                .arg(kDeepest));
      return ExitFile;
    }
    QJsonObject object = headJson(fileName, opened.info, {});
    object.insert(QStringLiteral("settings"), childrenJson(root, out.labels()));
    out.json(object);
    return ExitDone;
  }
  CTable table({Tool::tr("NAME"), Tool::tr("TYPE"), Tool::tr("VALUE"), Tool::tr("UNIT"),
                Tool::tr("COMMENT")});
  addRows(root, 0, out.labels(), table);
  out.line(headLine(opened.info, {}));
  if (!table.isEmpty()) table.print(out);
  return ExitDone;
}
