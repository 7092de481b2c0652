#include "KnownNames.h"

#include "CLoadedFile.h"
#include "CParamValueText.h"
#include "ParameterLookup.h"

#include <QSet>

namespace {

/// Those of the files that are of one kind, loaded one after the other.
template <class Visit>
void visit(const QStringList& files, SFileInfo::EKind kind, COutput& out, const Visit& visit) {
  for (const QString& fileName : files) {
    const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
    if (!info || info->kind != kind) continue;
    CLoadedFile loaded(out);
    const bool isLoaded = kind == SFileInfo::Definitions ? loaded.loadDefinitions(fileName)
                                                         : loaded.loadValues(fileName);
    if (isLoaded) visit(loaded.file());
  }
}

template <class Visit>
void visitHardwareIds(const QStringList& files, const QString& only, COutput& out,
                      const Visit& visitOne) {
  visit(files, SFileInfo::Values, out, [&](ICParameterFile& file) {
    for (const QString& hardwareId : file.hardwareIds()) {
      if (!only.isEmpty() && hardwareId != only) continue;
      if (file.selectHardwareId(hardwareId)) visitOne(file);
    }
  });
}

QStringList definedNames(const QStringList& files, COutput& out) {
  QStringList names;
  visit(files, SFileInfo::Definitions, out,
        [&names](const ICParameterFile& file) { names += file.defNames(); });
  return names;
}

}  // namespace

QStringList KnownNames::hardwareIds(const QStringList& files, COutput& out) {
  QStringList ids;
  visit(files, SFileInfo::Values, out,
        [&ids](const ICParameterFile& file) { ids += file.hardwareIds(); });
  return ids;
}

QStringList KnownNames::subDevices(const QStringList& files, const SPart& part, COutput& out) {
  QStringList ids;
  visitHardwareIds(files, part.hardwareId, out, [&ids](const ICParameterFile& file) {
    for (const quint8 id : file.subDeviceIds()) ids.append(QString::number(id));
  });
  return ids;
}

QStringList KnownNames::parameters(const QStringList& files, const SPart& part, COutput& out) {
  QStringList names;
  visitHardwareIds(files, part.hardwareId, out, [&](const ICParameterFile& file) {
    names += part.subDevice ? file.paramNames(*part.subDevice) : ParameterLookup::allNames(file);
  });
  return names.isEmpty() ? definedNames(files, out) : names;
}

QStringList KnownNames::choices(const QStringList& files, const QString& parameter, COutput& out) {
  QStringList names;
  visit(files, SFileInfo::Definitions, out, [&](const ICParameterFile& file) {
    for (const auto& each : CParamValueText::choices(file.paramDef(parameter))) names += each.name;
  });
  return names;
}
