#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTable.h"
#include "DisplayText.h"
#include "NShortText.h"
#include "SValueView.h"
#include "Show.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

const QLatin1String kChanged("changed");

/// Which of the values are shown.
struct SSelection {
  std::optional<quint8> subDevice;
  bool onlyChanged;

  QList<quint8> subDevices(const ICParameterFile& file) const {
    if (!subDevice) return file.subDeviceIds();
    return file.doesSubDeviceExist(*subDevice) ? QList<quint8>{*subDevice} : QList<quint8>();
  }
};

/// The tree of one sub-device as rows of a table. A group's row waits until a parameter below it
/// has one.
class CTreeRows {
 public:
  CTreeRows(const ICParameterFile& file, bool onlyChanged, const CLabels& labels)
      : mViews(file, labels),
        mLabels(labels),
        mOnlyChanged(onlyChanged),
        mTable({QString(), Tool::tr("NAME"), Tool::tr("VALUE"), Tool::tr("UNIT"),
                Tool::tr("MEANING")}) {}

  const CTable& addChildren(const ICParamTreeNode& group) {
    for (int i = 0; i < group.childCnt(); ++i) {
      const ICParamTreeNode& child = *group.childPtr(i);
      child.isGroup() ? addGroup(child) : addParameter(child);
    }
    return mTable;
  }

 private:
  QString indented(const ICParamTreeNode& node, int depth) const {
    return DisplayText::indented(mLabels.shown(node.name()), depth);
  }

  void addGroup(const ICParamTreeNode& group) {
    mGroups.append(&group);
    if (!mOnlyChanged) addWaitingGroups();
    addChildren(group);
    mGroups.removeLast();
    mWritten = qMin(mWritten, mGroups.size());
  }

  void addParameter(const ICParamTreeNode& node) {
    const SValueView view = mViews.of(node, {});
    if (mOnlyChanged && !view.isChanged()) return;
    addWaitingGroups();
    mTable.addRow({view.isChanged() ? QStringLiteral("*") : QString(),
                   indented(node, mGroups.size()), DisplayText::shown(view.value.asStr()),
                   DisplayText::shownOrNothing(view.unit), view.meaning},
                  view.isChanged());
  }

  void addWaitingGroups() {
    for (; mWritten < mGroups.size(); ++mWritten)
      mTable.addRow({QString(), indented(*mGroups.at(mWritten), mWritten)});
  }

  CValueViews mViews;
  const CLabels& mLabels;
  const bool mOnlyChanged;
  CTable mTable;
  QVector<const ICParamTreeNode*> mGroups;  // from the root's child down to the current one
  int mWritten = 0;                         // how many of them have their row
};

QString heading(const ICParameterFile& file, quint8 subDevId, const CLabels& labels) {
  const QString name = file.subDevName(subDevId);
  const QString text = Tool::tr("Hardware id %1, sub-device %2 (%3)")
                           .arg(labels.shown(file.hardwareId()), QString::number(subDevId),
                                ICParameterFile::subDeviceTypeToStr(file.subDevType(subDevId)));
  return name.isEmpty() ? text : text + QLatin1String(": ") + labels.shown(name);
}

void printSubDevice(ICParameterFile& file, quint8 subDevId, bool onlyChanged, COutput& out) {
  CTreeRows rows(file, onlyChanged, out.labels());
  const CTable& table = rows.addChildren(*file.rootGroup(subDevId));
  if (table.isEmpty() && onlyChanged) return;
  out.line({});
  out.line(heading(file, subDevId, out.labels()));
  if (!table.isEmpty()) table.print(out, QStringLiteral("  "));
}

void addParameters(CValueViews& views, const ICParamTreeNode& group, const QString& path,
                   bool onlyChanged, QJsonArray& parameters) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isGroup()) {
      addParameters(views, child, NShortText::below(path, child.name()), onlyChanged, parameters);
      continue;
    }
    const SValueView view = views.of(child, path);
    if (!onlyChanged || view.isChanged()) parameters.append(view.toJson());
  }
}

QJsonObject subDeviceJson(ICParameterFile& file, quint8 subDevId, bool onlyChanged,
                          const CLabels& labels) {
  QJsonArray parameters;
  CValueViews views(file, labels);
  addParameters(views, *file.rootGroup(subDevId), {}, onlyChanged, parameters);
  return {{QStringLiteral("id"), subDevId},
          {QStringLiteral("type"), ICParameterFile::subDeviceTypeToStr(file.subDevType(subDevId))},
          {QStringLiteral("name"), labels.of(file.subDevName(subDevId))},
          {QStringLiteral("parameters"), parameters}};
}

QJsonArray hardwareIdsJson(ICParameterFile& file, const QStringList& hardwareIds,
                           const SSelection& selection, const CLabels& labels) {
  QJsonArray array;
  for (const QString& hardwareId : hardwareIds) {
    file.selectHardwareId(hardwareId);
    QJsonArray subDevices;
    for (const quint8 id : selection.subDevices(file))
      subDevices.append(subDeviceJson(file, id, selection.onlyChanged, labels));
    array.append(QJsonObject{{QStringLiteral("id"), labels.of(hardwareId)},
                             {QStringLiteral("subDevices"), subDevices}});
  }
  return array;
}

}  // namespace

EExitStatus Show::values(const CInvocation& invocation, COutput& out) {
  const SSelection selection{invocation.subDevice(), invocation.isSet(kChanged)};
  if (selection.onlyChanged && !invocation.isSet(CommonOptions::kDef))
    return invocation.wrongUsage(Tool::tr("--changed needs --def, which tells the defaults."), out);
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), invocation)) return ExitFile;
  const QStringList hardwareIds = loaded.hardwareIds(invocation);
  if (hardwareIds.isEmpty() || !loaded.checkSubDevice(invocation.subDevice(), hardwareIds))
    return ExitFindings;
  ICParameterFile& file = loaded.file();
  const SHead head{file.date(), file.author(), file.comment()};
  if (invocation.wantsJson()) {
    QJsonObject object = headJson(loaded.fileName(), loaded.info(), head);
    object.insert(QStringLiteral("hardwareIds"),
                  hardwareIdsJson(file, hardwareIds, selection, out.labels()));
    out.json(object);
    return ExitDone;
  }
  out.line(headLine(loaded.info(), head));
  for (const QString& hardwareId : hardwareIds) {
    file.selectHardwareId(hardwareId);
    for (const quint8 id : selection.subDevices(file))
      printSubDevice(file, id, selection.onlyChanged, out);
  }
  return ExitDone;
}
