#include "CInvocation.h"
#include "CLoadedFile.h"
#include "CParameterWords.h"
#include "Output.h"
#include "SValueView.h"
#include "Views.h"

namespace {

const QLatin1String kChanged("changed");

/// What of the values is shown.
struct SFilter {
  bool onlyChanged;
  CParameterWords words;

  bool leavesOut() const { return onlyChanged || !words.isEmpty(); }
};

/// The tree of one sub-device as rows of a table. A group's row waits until a parameter below it
/// has one.
class CTreeRows {
 public:
  CTreeRows(const ICParameterFile& file, const SFilter& filter, const CLabels& labels)
      : mViews(file, labels),
        mLabels(labels),
        mFilter(filter),
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
    return NDisplayText::indented(mLabels.shown(node.name()), depth);
  }

  void addGroup(const ICParamTreeNode& group) {
    mGroups.append(&group);
    if (!mFilter.leavesOut()) addWaitingGroups();
    addChildren(group);
    mGroups.removeLast();
    mWritten = qMin(mWritten, mGroups.size());
  }

  void addParameter(const ICParamTreeNode& node) {
    if (!mFilter.words.mean(node)) return;
    const SValueView view = mViews.of(node, {});
    if (mFilter.onlyChanged && !view.isChanged()) return;
    addWaitingGroups();
    mTable.addRow({view.isChanged() ? "*" : QString(), indented(node, mGroups.size()),
                   NDisplayText::shown(view.value.asStr()), NDisplayText::shownOrNothing(view.unit),
                   view.meaning},
                  view.isChanged());
  }

  void addWaitingGroups() {
    for (; mWritten < mGroups.size(); ++mWritten)
      mTable.addRow({QString(), indented(*mGroups.at(mWritten), mWritten)});
  }

  CValueViews mViews;
  const CLabels& mLabels;
  const SFilter& mFilter;
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

void printSubDevice(ICParameterFile& file, quint8 subDevId, const SFilter& filter, COutput& out) {
  CTreeRows rows(file, filter, out.labels());
  const CTable& table = rows.addChildren(*file.rootGroup(subDevId));
  if (table.isEmpty() && filter.leavesOut()) return;
  out.line({});
  out.line(heading(file, subDevId, out.labels()));
  table.print(out, "  ");
}

QJsonObject subDeviceJson(ICParameterFile& file, quint8 subDevId, const SFilter& filter,
                          const CLabels& labels) {
  QJsonArray parameters;
  CValueViews(file, labels)
      .visit(*file.rootGroup(subDevId), filter.words, [&](const SValueView& view) {
        if (!filter.onlyChanged || view.isChanged()) parameters.append(view.toJson());
      });
  return {{"id", subDevId},
          {"type", ICParameterFile::subDeviceTypeToStr(file.subDevType(subDevId))},
          {"name", labels.of(file.subDevName(subDevId))},
          {"parameters", parameters}};
}

}  // namespace

EExitStatus NViews::showValues(const CInvocation& invocation, COutput& out) {
  SFilter filter{invocation.isSet(kChanged), CParameterWords(invocation.argumentsFrom(1))};
  CLoadedFile loaded(out);
  const EExitStatus opened = filter.words.openToRead(loaded, invocation, out);
  if (opened != ExitDone) return opened;
  if (filter.onlyChanged && !loaded.hasDefinitions()) {
    return invocation.wrongUsage(
        Tool::tr("--changed needs a definition file, which tells the defaults."), out);
  }
  ICParameterFile& file = loaded.file();
  if (!invocation.wantsJson()) out.line(headLine(loaded));
  QJsonArray array;
  for (const QString& hardwareId : loaded.chosenIds()) {
    file.selectHardwareId(hardwareId);
    filter.words.look(file, loaded.chosenSubDevice());
    QJsonArray subDevices;
    for (const quint8 id : loaded.chosenSubDevices())
      if (invocation.wantsJson())
        subDevices.append(subDeviceJson(file, id, filter, out.labels()));
      else
        printSubDevice(file, id, filter, out);
    array.append(QJsonObject{{"id", out.labels().of(hardwareId)}, {"subDevices", subDevices}});
  }
  if (invocation.wantsJson()) {
    QJsonObject object = headJson(loaded);
    object.insert("definitionFile", textOrNull(loaded.definitionFile()));
    object.insert("hardwareIds", array);
    out.json(object);
  }
  return filter.words.reportMissing(loaded, loaded.chosenIds()) ? ExitDone : ExitFindings;
}
