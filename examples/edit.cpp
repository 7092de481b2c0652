// Adds a slower variant of a drive to its file: edit DEFINITIONS VALUES
#include <ktoParameter/CParameterFileChecker.h>
#include <ktoParameter/ICParameterFile.h>

#include <QTextStream>

#include <memory>

namespace {

constexpr quint32 kVersion = 0x10000;  // "1.0"

//! [load]
std::unique_ptr<ICParameterFile> load(const QString& definitions, const QString& values,
                                      QString& reason) {
  std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  if (file->loadParamDefFile(definitions, kVersion) &&
      file->loadParamFile(values, "KTO-2A-16", kVersion)) {
    return file;
  }
  reason = file->errorMsg();  // with file, line and parameter
  return nullptr;
}
//! [load]

//! [edit]
bool slowDown(ICParameterFile& file) {
  if (!file.cloneHardwareId("KTO-2A-16", "KTO-2A-16-SLOW")) return false;
  // The new hardware id is the active one now, on which access works.
  const QList<quint8> axes = file.subDeviceIds(NParamDef::SUB_DEV_TYPE_DRIVE);
  for (const quint8 axis : axes) {
    const int limit = file.paramValue("VelocityLimit", axis).asI32();
    if (!file.setAndMarkParamValue("VelocityLimit", limit / 2, axis)) return false;
  }
  return true;
}
//! [edit]

//! [check]
bool check(ICParameterFile& file, QTextStream& out) {
  const CParamFindings findings = CParameterFileChecker::checkValues(
      file, file.hardwareId(), CParameterFileChecker::SkipMissing);
  bool isGood = true;
  for (const SParamFinding& finding : findings) {
    out << finding.name << ": " << finding.text << '\n';
    isGood = isGood && finding.severity != SParamFinding::Error;
  }
  return isGood;
}
//! [check]

//! [save]
bool save(ICParameterFile& file, const QString& values) {
  if (!file.isChanged()) return true;
  // An empty hardware id means all of them.
  if (!file.saveParamFile(values, QString(), file.paramFileVersion())) return false;
  file.clearChanged();
  return true;
}
//! [save]

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  QTextStream out(stdout);
  const QString values = QString::fromLocal8Bit(argv[2]);
  QString reason;
  const auto file = load(QString::fromLocal8Bit(argv[1]), values, reason);
  if (!file) {
    out << reason << '\n';
    return 1;
  }
  if (slowDown(*file) && check(*file, out) && save(*file, values)) return 0;
  out << file->errorMsg() << '\n';
  return 1;
}
