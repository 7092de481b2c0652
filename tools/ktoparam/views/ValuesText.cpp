#include "CLabels.h"
#include "CLoadedFile.h"
#include "CSubjectLines.h"
#include "NShortText.h"
#include "SAddress.h"
#include "Views.h"

#include <functional>

namespace {

/// What is in front of the names in a group.
QString leadOf(const QString& place, const QString& path) {
  const QString lead = place + QLatin1Char('/');
  return path.isNull() ? lead : QString(lead + path + QLatin1Char('/'));
}

/// The place is hardware id and sub-device, the path that of the group.
void addGroup(const ICParamTreeNode& group, const QString& place, const QString& path,
              CSubjectLines& lines) {
  const QString lead = leadOf(place, path);
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    const QString part = SAddress::quoted(child.name());
    if (child.isParam()) {
      lines.add(lead + NShortText::of(part), child.value().asStr());
      continue;
    }
    const QString childPath = NShortText::below(path, part);
    if (child.childCnt() == 0) lines.addBare(leadOf(place, childPath));
    addGroup(child, place, childPath, lines);
  }
}

// A name is unique in its sub-device, so that an id stays the same line when its group changes.
void addIds(const ICParamTreeNode& group, const QString& place, CSubjectLines& lines) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isGroup())
      addIds(child, place, lines);
    else if (child.id() != 0)
      lines.add(place + QLatin1String(" id of ") + NShortText::of(SAddress::quoted(child.name())),
                QString::number(child.id()));
  }
}

void addSubDevice(ICParameterFile& file, quint8 id, const QString& place, CSubjectLines& lines) {
  lines.add(place + QLatin1String(" type"),
            ICParameterFile::subDeviceTypeToStr(file.subDevType(id)));
  lines.addUnlessEmpty(place + QLatin1String(" name"), lines.labels().of(file.subDevName(id)));
  addGroup(*file.rootGroup(id), place, {}, lines);
}

void forEachSubDevice(ICParameterFile& file,
                      const std::function<void(quint8 id, const QString& place)>& use) {
  for (const QString& hardwareId : file.hardwareIds()) {
    file.selectHardwareId(hardwareId);
    for (const quint8 id : file.subDeviceIds()) use(id, SAddress::place(hardwareId, id));
  }
}

}  // namespace

// Only a place has brackets that are not in quotes, and what follows them tells what a line is:
// "/" a parameter or an empty group, a blank and words something else. Ids come last, for the whole
// file: where definitions get other numbers, all that means something to a machine stands before.
void NViews::addValues(const CLoadedFile& loaded, CSubjectLines& lines) {
  ICParameterFile& file = loaded.file();
  forEachSubDevice(file,
                   [&](quint8 id, const QString& place) { addSubDevice(file, id, place, lines); });
  forEachSubDevice(
      file, [&](quint8 id, const QString& place) { addIds(*file.rootGroup(id), place, lines); });
}
