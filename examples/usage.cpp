// One short use of each public class, as the pages of the interface quote them: usage FOLDER, with
// copies of the files in examples/data
#include <CAtomicFile.h>
#include <CFolderLock.h>
#include <CMessageBoardHelper.h>
#include <ICLogfile.h>
#include <ktoParameter/CDefinitionComparison.h>
#include <ktoParameter/CDefinitionMerge.h>
#include <ktoParameter/CMigrationTable.h>
#include <ktoParameter/CParamLineIndex.h>
#include <ktoParameter/CParamValueRules.h>
#include <ktoParameter/CParamValueText.h>
#include <ktoParameter/CParameterFileChecker.h>
#include <ktoParameter/CParameterFileComparison.h>
#include <ktoParameter/CParameterFileErrorHandler.h>
#include <ktoParameter/CParameterFileHelper.h>
#include <ktoParameter/CParameterFileMerge.h>
#include <ktoParameter/CParameterFileModel.h>
#include <ktoParameter/CParameterMigration.h>
#include <ktoParameter/ICCompensationFile.h>
#include <ktoParameter/ICParameterFile.h>
#include <ktoParameter/ICSettingsFile.h>
#include <ktoParameter/ICSimpleParamReader.h>

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <memory>

namespace {

constexpr quint32 kVersion = 0x10000;  // "1.0"
constexpr quint8 kAxisX = 2;

using CParameterFilePtr = std::unique_ptr<ICParameterFile>;

//! [ICParameterFile]
CParameterFilePtr loadDrive(QTextStream& out) {
  CParameterFilePtr file(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  if (!file->loadParamDefFile("TwoAxisDrive.xpdef", kVersion) ||
      !file->loadParamFile("TwoAxisDrive.xparam", QString(), kVersion))
    out << file->errorMsg() << '\n';  // with file, line and parameter
  return file;
}
//! [ICParameterFile]

//! [CParamVal]
bool valuesAreTexts() {
  const CParamVal unsignedNumber(16U);
  quint16 number = 0;
  return unsignedNumber.asStr() == "0x10" && CParamVal(-5).asStr() == "-5" &&
         CParamVal("12").value(number) && number == 12 &&  // tells whether it is such a number
         CParamVal("abc").asU16() == 0;                    // 0 when it is not
}
//! [CParamVal]

//! [CParamDefItem]
CParamDefItem makeDefinition() {
  CParamDefItem mode("Mode", NParamDef::PARAM_TYPE_U8, 102);
  mode.setHint("What the pump does after power-on");
  mode.setDefVal(CParamVal(0U));
  mode.addEnums({{0, "off"}, {1, "manual"}, {2, "automatic"}});
  return mode;
}
//! [CParamDefItem]

//! [ICParamTreeNode]
int countParameters(const ICParamTreeNode& node) {
  if (node.isParam()) return 1;
  int count = 0;
  for (int i = 0; i < node.childCnt(); ++i) count += countParameters(*node.childPtr(i));
  return count;
}
//! [ICParamTreeNode]

//! [CParamValueRules]
bool setTyped(ICParameterFile& file, const QString& name, const QString& typed, QString& problem) {
  const CParamValueRules rules(file.paramDef(name), file);
  CParamVal value;
  if (!rules.read(typed, value, problem)) return false;
  const QVector<CParamValueRules::SViolation> violations = rules.violations(value, file, kAxisX);
  for (const CParamValueRules::SViolation& violation : violations) {
    problem = violation.text;
    if (!violation.isWarning()) return false;
  }
  return file.setAndMarkParamValue(name, value, kAxisX);
}
//! [CParamValueRules]

//! [CParamValueText]
QString shown(const ICParameterFile& file, const QString& name) {
  const CParamDefItem definition = file.paramDef(name);
  return CParamValueText::shown(definition, file.paramValue(name, kAxisX)) + ' ' +
         CParamValueText::unitName(file, definition, kAxisX);
}
//! [CParamValueText]

//! [CParameterFileChecker]
int check(ICParameterFile& file, QTextStream& out) {
  CParamFindings findings = CParameterFileChecker::checkValues(file);
  CParamLineIndex lines;
  if (lines.read("TwoAxisDrive.xparam")) lines.addLines(findings);
  int errors = 0;
  for (const SParamFinding& finding : qAsConst(findings)) {
    if (finding.severity != SParamFinding::Error) continue;
    out << finding.line << ": " << finding.name << ": " << finding.text << '\n';
    ++errors;
  }
  return errors;
}
//! [CParameterFileChecker]

//! [CParameterFileComparison]
QStringList changedNames(ICParameterFile& before, ICParameterFile& after) {
  QStringList names;
  const CParamDifferences differences = CParameterFileComparison::compare(before, after, &before);
  for (const SParamDifference& difference : differences)
    if (difference.kind == SParamDifference::ValueChanged) names += difference.name;
  return names;
}
//! [CParameterFileComparison]

//! [CDefinitionComparison]
QStringList breakingChanges(const ICParameterFile& before, const ICParameterFile& after) {
  QStringList texts;
  for (const SDefinitionDifference& difference : CDefinitionComparison::compare(before, after))
    if (difference.effect != SDefinitionDifference::Safe)
      texts += difference.name + ": " + difference.reason;
  return texts;
}
//! [CDefinitionComparison]

//! [CParameterFileMerge]
bool takeTheirs(const ICParameterFile& base, ICParameterFile& ours, const ICParameterFile& theirs,
                QTextStream& out) {
  CParameterFileMerge merge(base, ours, theirs);
  if (!merge.run()) out << merge.errorMsg() << '\n';
  for (const SMergeConflict& conflict : merge.conflicts())
    out << conflict.name << ": " << conflict.text() << '\n';  // ours stays
  return merge.errorMsg().isEmpty() && merge.conflicts().isEmpty();
}
//! [CParameterFileMerge]

//! [CDefinitionMerge]
bool takeTheirDefinitions(const ICParameterFile& base, ICParameterFile& ours,
                          const ICParameterFile& theirs, QTextStream& out) {
  CDefinitionMerge merge(base, ours, theirs);
  if (!merge.run()) out << merge.errorMsg() << '\n';
  for (const SMergeConflict& conflict : merge.conflicts())
    out << conflict.name << ": " << conflict.text() << '\n';  // ours stays
  return merge.errorMsg().isEmpty() && merge.conflicts().isEmpty();
}
//! [CDefinitionMerge]

//! [CMigrationTable]
bool writeTable(const ICParameterFile& oldDefinitions, const ICParameterFile& newDefinitions,
                QTextStream& out) {
  SMigrationRule rule;
  rule.name = "VelocityLimit";
  rule.rescaling = SRescaling{"1/60", "0", SRescaling::HalfEven};  // from minutes to seconds
  CMigrationTable table;
  table.newVersion = "1.1";  // which tells that a file was migrated
  table.rules = {rule};
  for (const CMigrationTable::SProblem& problem : table.problems(oldDefinitions, newDefinitions))
    out << problem.line << ": " << problem.text << '\n';
  QString error;
  if (!table.save("Next.xmig", error) || !table.load("Next.xmig", error)) out << error << '\n';
  return error.isEmpty() && table.rules.first().line == 5;
}
//! [CMigrationTable]

//! [CParameterMigration]
/// What a human has to decide before; nothing is done until then.
QStringList takeToNext(ICParameterFile& values, const ICParameterFile& oldDefinitions,
                       const ICParameterFile& newDefinitions) {
  CMigrationTable table;
  QString error;
  if (!table.load("Next.xmig", error)) return {error};
  CParameterMigration migration(values, {{table, &oldDefinitions, &newDefinitions}});
  if (!migration.plan()) return {migration.errorMsg()};
  QStringList questions;
  for (const SMigrationStep& step : migration.steps())
    if (step.kind <= SMigrationStep::NotAllowed) questions += step.name + ": " + step.text;
  if (questions.isEmpty() && migration.run())
    values.saveParamFile("Next.xparam", QString(), migration.version());
  return questions;
}
//! [CParameterMigration]

//! [CParameterFileErrorHandler]
/// Takes files of every version.
class CAnyVersion : public CParameterFileErrorHandler {
 public:
  CAnyVersion() : CParameterFileErrorHandler(nullptr) {}
  bool handleFileVersionError(const QString& /*version*/,
                              const QString& /*otherVersion*/) override {
    return true;
  }
};

bool loadOfAnyVersion(ICParameterFile& file, const QString& fileName) {
  CAnyVersion handler;
  file.setErrorHandler(&handler);
  const bool isLoaded = file.loadParamFile(fileName, QString(), 0x90000);
  file.setErrorHandler(nullptr);  // the handler goes
  return isLoaded;
}
//! [CParameterFileErrorHandler]

//! [CParameterFileHelper]
bool isMotorFile(const QString& fileName) {
  const SFileBeginning beginning = CParameterFileHelper::readBeginning(fileName);
  return beginning.rootTag ==
         CParameterFileHelper::fileTypeToStr(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS);
}

QStringList motorNames(const QString& fileName) {
  return CParameterFileHelper::readMotorNames(fileName, nullptr);
}
//! [CParameterFileHelper]

//! [CParameterFileModel]
bool editInModel(ICParameterFile& file) {
  CParameterFileModel model(&file);  // for any view of Qt
  const QModelIndex value =
      model.indexOf("OperatingMode", kAxisX, CParameterFileModel::ValueColumn);
  return model.setData(value, "Homing") && model.data(value).toString() == "Homing";
}
//! [CParameterFileModel]

//! [ICSettingsFile]
bool moveMachine(QTextStream& out) {
  const std::unique_ptr<ICSettingsFile> settings(ICSettingsFile::create(nullptr));
  if (settings->load("MachineSettings.xset", "1.0") != ICSettingsFile::NoError) {
    out << settings->errorMsg() << '\n';
    return false;
  }
  ICSettingsTreeNode* machine = settings->root()->childPtr(0);
  for (int i = 0; i < machine->childCnt(); ++i)
    if (machine->childPtr(i)->name() == "Location") machine->childPtr(i)->setValue("Hall 4");
  return settings->save("MachineSettings.xset", "1.0") == ICSettingsFile::NoError;
}
//! [ICSettingsFile]

//! [ICCompensationFile]
bool shiftTable(double offset, QTextStream& out) {
  const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  if (table->load("SpindleCompensation.xcomp", "1.0") != ICCompensationFile::Ok) {
    out << table->errorMsg() << '\n';
    return false;
  }
  for (int i = 0; i < table->count(); ++i) {
    CCompensationPoint point = table->point(i);
    point.setAdjustment(point.adjustment().asF64() + offset);
    table->setPoint(i, point);
  }
  return table->checkAll() == ICCompensationFile::CheckOk &&
         table->save("SpindleCompensation.xcomp", "1.0") == ICCompensationFile::Ok;
}
//! [ICCompensationFile]

//! [ICSimpleParamReader]
bool halveVelocity(QString& err) {
  const std::unique_ptr<ICSimpleParamReader> reader(
      ICSimpleParamReader::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, "KTO-2A-16",
                                        NParamDef::ReadWrite, nullptr, kVersion, kVersion));
  int velocity = 0;
  return reader->load("TwoAxisDrive", err) &&
         reader->getParam(kAxisX, "VelocityLimit", "Motion/Limits", velocity, 500, err) &&
         reader->setParam(kAxisX, "VelocityLimit", velocity / 2, err) && reader->closeFiles(true);
}
//! [ICSimpleParamReader]

//! [ICLogfile]
std::unique_ptr<ICLogfile> openLogfile() {
  std::unique_ptr<ICLogfile> logfile(ICLogfile::createLogfile(
      ICLogfile::LogFile, "usage.log", ICLogfile::kLevelErrors | ICLogfile::kLevelDetail));
  logfile->setPrefix("usage");
  logfile->write(ICLogfile::kLevelErrors, "opened");  // "usage: opened"
  return logfile;
}
//! [ICLogfile]

//! [CMessageBoardHelper]
void showMessages(QStringList& shownMessages) {
  CMessageBoardHelper::setHandler(
      [&shownMessages](CMessageBoardHelper::EMessageKind kind, const QString& text) {
        if (kind == CMessageBoardHelper::Critical) shownMessages += text;
      });
}
//! [CMessageBoardHelper]

//! [CAtomicFile]
bool writeReport(const QByteArray& report, QTextStream& out) {
  QString error;
  if (CAtomicFile::write("report.txt", report, QFileDevice::Permissions(), error)) return true;
  out << "report.txt: " << error << '\n';
  return false;
}
//! [CAtomicFile]

//! [CFolderLock]
bool saveUnlessChanged(ICParameterFile& file, const QString& fileName, QTextStream& out) {
  CFolderLock lock;
  if (lock.lock({fileName}, 10000) == CFolderLock::Busy) {
    out << fileName << ": another program is changing a file in the same folder\n";
    return false;
  }
  if (file.hasChangedOnDisk(fileName)) {
    out << fileName << ": somebody has changed the file since it was loaded\n";
    return false;
  }
  return file.saveParamFile(fileName, QString(), kVersion);
}
//! [CFolderLock]

/// What the examples above give on the example files.
bool areFine(QTextStream& out) {
  const CParameterFilePtr base = loadDrive(out);
  const CParameterFilePtr ours = loadDrive(out);
  const CParameterFilePtr theirs = loadDrive(out);
  QString problem;
  return valuesAreTexts() && makeDefinition().enumNameOfValue(2) == "automatic" &&
         countParameters(*base->rootGroup(kAxisX)) == base->paramNames(kAxisX).size() &&
         check(*base, out) == 0 && setTyped(*theirs, "VelocityLimit", "800", problem) &&
         !setTyped(*theirs, "VelocityLimit", "fast", problem) &&
         shown(*theirs, "VelocityLimit") == "800 mm/s" &&
         changedNames(*base, *theirs) == QStringList("VelocityLimit") &&
         breakingChanges(*base, *theirs).isEmpty() && takeTheirs(*base, *ours, *theirs, out) &&
         takeTheirDefinitions(*base, *ours, *theirs, out) && writeTable(*base, *ours, out) &&
         takeToNext(*loadDrive(out), *base, *ours).size() == 6 && editInModel(*ours) &&
         loadOfAnyVersion(*ours, "TwoAxisDrive.xparam") && isMotorFile("Motors.xparam") &&
         !motorNames("Motors.xparam").isEmpty() && moveMachine(out) && shiftTable(0.001, out) &&
         saveUnlessChanged(*base, "TwoAxisDrive.xparam", out) && halveVelocity(problem) &&
         base->hasChangedOnDisk("TwoAxisDrive.xparam") && openLogfile()->isActive() &&
         writeReport("fine\n", out);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || !QDir::setCurrent(QString::fromLocal8Bit(argv[1]))) return 2;
  const QCoreApplication application(argc, argv);
  QTextStream out(stdout);
  QStringList messages;
  showMessages(messages);
  const bool isFine = areFine(out) && messages.isEmpty();
  CMessageBoardHelper::setHandler(nullptr);
  if (isFine) out << "fine\n";
  return isFine ? 0 : 1;
}
