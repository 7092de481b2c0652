#include "CLoadedFile.h"
#include "CSubjectLines.h"
#include "NShortText.h"
#include "Output.h"
#include "Views.h"

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
    const QString value = node.isGroup() ? QString() : NDisplayText::shown(node.value().asStr());
    table.addRow({NDisplayText::indented(labels.shown(node.name()), depth),
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
    children.append(
        QJsonObject{{"name", labels.of(node.name())},
                    {"type", textOrNull(ICSettingsTreeNode::typeToStr(node.type()))},
                    {"value", isGroup ? QJsonValue() : QJsonValue(node.value().asStr())},
                    {"unit", textOrNull(labels.of(node.unit()))},
                    {"comment", labels.of(node.comment())},
                    {"children", isGroup ? QJsonValue(childrenJson(node, labels)) : QJsonValue()}});
  }
  return children;
}

// --- text

/// Names are tags, which hold nothing that would mislead.
void addNodes(const ICSettingsTreeNode& group, const QString& path, CSubjectLines& lines) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *group.childPtr(i);
    const QString subject =
        (path.isNull() ? QString() : path + QLatin1Char('/')) + lines.labels().of(node.name());
    if (node.isGroup()) {
      lines.addBare(subject + QLatin1Char('/'));
    } else {
      const QString type = ICSettingsTreeNode::typeToStr(node.type());
      lines.add(QStringLiteral("%1 (%2)").arg(subject, type), node.value().asStr());
    }
    lines.addUnlessEmpty(subject + QLatin1String(" unit"), lines.labels().of(node.unit()));
    lines.addUnlessEmpty(subject + QLatin1String(" comment"), lines.labels().of(node.comment()));
    addNodes(node, NShortText::below(path, node.name()), lines);
  }
}

}  // namespace

EExitStatus NViews::showSettings(const CLoadedFile& loaded, bool isJson, COutput& out) {
  const ICSettingsTreeNode& root = *loaded.settings()->root();
  if (isJson) {
    if (depthOf(root) > kDeepest) {
      loaded.message(Tool::tr("the settings are nested deeper than %1 levels, which is too "
                              "deep for JSON; \"ktoparam text\" prints them.")
                         .arg(kDeepest));
      return ExitFile;
    }
    QJsonObject object = headJson(loaded);
    object.insert("settings", childrenJson(root, out.labels()));
    out.json(object);
    return ExitDone;
  }
  CTable table({Tool::tr("NAME"), Tool::tr("TYPE"), Tool::tr("VALUE"), Tool::tr("UNIT"),
                Tool::tr("COMMENT")});
  addRows(root, 0, out.labels(), table);
  out.line(headLine(loaded));
  table.print(out);
  return ExitDone;
}

void NViews::addSettings(const CLoadedFile& loaded, CSubjectLines& lines) {
  addNodes(*loaded.settings()->root(), {}, lines);
}
