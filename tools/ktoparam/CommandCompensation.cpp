#include "CAtomicFile.h"
#include "CCompensationPlot.h"
#include "CInvocation.h"
#include "COutput.h"
#include "CSignalShield.h"
#include "CTable.h"
#include "CTableFindings.h"
#include "Commands.h"
#include "CompensationTexts.h"
#include "FileHints.h"
#include "LibraryMessage.h"
#include "OpenedFile.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace {

using EFormat = ICCompensationFile::EDataPointFormat;

const QLatin1String kTo("to");
const QLatin1String kUnit("unit");
const QLatin1String kAdjustmentUnit("adjustment-unit");
const QLatin1String kTitle("title");

// --- check

void printFindings(const ICCompensationFile& table, const CTableFindings& findings, COutput& out) {
  CompensationTexts::printTable(table, findings, out);
  CTable rows({Tool::tr("NO"), Tool::tr("POSITION"), Tool::tr("ADJUSTMENT"), Tool::tr("PROBLEM")});
  for (const int index : findings.ofPoints().keys())
    rows.addRow(CompensationTexts::pointCells(table, findings, index));
  if (!rows.isEmpty()) rows.print(out, QStringLiteral("  "));
  if (findings.isEmpty()) out.line(Tool::tr("Nothing is wrong."));
}

EExitStatus check(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const SOpenedFile<ICCompensationFile> opened = OpenedFile::compensation(fileName, out);
  if (!opened.file) return ExitFile;
  const ICCompensationFile& table = *opened.file;
  const CTableFindings findings(table);
  if (invocation.wantsJson()) {
    QJsonObject object{{QStringLiteral("file"), fileName}};
    CompensationTexts::addTable(table, findings, object);
    QJsonArray points;
    for (const int index : findings.ofPoints().keys())
      points.append(CompensationTexts::pointJson(table, findings, index));
    object.insert(QStringLiteral("wrongPoints"), points);
    out.json(object);
  } else {
    printFindings(table, findings, out);
  }
  return findings.isEmpty() ? ExitDone : ExitFindings;
}

// --- convert

// Reading takes the adjustments of one format only, so those of the other would be gone.
bool losesAdjustments(const ICCompensationFile& table) {
  const QList<CCompensationPoint> points = table.allPoints();
  return std::any_of(points.begin(), points.end(), [](const CCompensationPoint& point) {
    return point.gaps().testFlag(CCompensationPoint::OtherAdjustment);
  });
}

void printConversion(const CInvocation& invocation, const ICCompensationFile& table, EFormat wanted,
                     const QString& written, COutput& out) {
  const QString to = CompensationTexts::formatName(wanted);
  if (invocation.wantsJson()) {
    const QString from = CompensationTexts::formatName(table.detectedDataPointFormat());
    out.json({{QStringLiteral("file"), invocation.argument(0)},
              {QStringLiteral("from"), from.isEmpty() ? QJsonValue() : QJsonValue(from)},
              {QStringLiteral("to"), to},
              {QStringLiteral("count"), table.count()},
              {QStringLiteral("written"), written.isEmpty() ? QJsonValue() : QJsonValue(written)}});
  } else if (table.count() == 0) {
    out.line(Tool::tr("The table has no points to convert; nothing was written."));
  } else if (written.isEmpty()) {
    out.line(Tool::tr("The points are in the %1 format already; nothing was written.").arg(to));
  } else {
    out.line(
        Tool::tr("Points converted to the %1 format: %2").arg(to, QString::number(table.count())));
  }
}

EExitStatus convertTo(EFormat wanted, const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const SOpenedFile<ICCompensationFile> opened = OpenedFile::compensation(fileName, out);
  if (!opened.file) return ExitFile;
  ICCompensationFile& table = *opened.file;
  const EFormat found = table.detectedDataPointFormat();
  if (losesAdjustments(table)) {
    out.message(fileName, Tool::tr("there are adjustments in both formats, and only those in the "
                                   "format of the first point are read; converting would lose the "
                                   "others."));
    return ExitFindings;
  }
  QString written;
  if (table.count() > 0 && found != wanted) {
    const bool isInPlace = !invocation.isSet(CommonOptions::kOutput);
    written = isInPlace ? fileName : invocation.value(CommonOptions::kOutput);
    if (!SFileInfo::mayReplace(written, SFileInfo::Compensation, out)) return ExitFile;
    table.setDataPointSaveFormat(wanted);
    const CSignalShield shield;
    if (table.save(written, opened.info.writtenVersion) != ICCompensationFile::Ok) {
      out.message(written, LibraryMessage::withoutFileName(table.errorMsg(), written));
      FileHints::tellWhyUnsaved(written, out);
      return ExitFile;
    }
  }
  printConversion(invocation, table, wanted, written, out);
  return ExitDone;
}

EExitStatus convert(const CInvocation& invocation, COutput& out) {
  const QString current = CompensationTexts::formatName(ICCompensationFile::CurrentFormat);
  const QString old = CompensationTexts::formatName(ICCompensationFile::OldFormat);
  const QString to = invocation.isSet(kTo) ? invocation.value(kTo) : current;
  if (to == current) return convertTo(ICCompensationFile::CurrentFormat, invocation, out);
  if (to == old) return convertTo(ICCompensationFile::OldFormat, invocation, out);
  return invocation.wrongUsage(
      Tool::tr("\"%1\" is no format of points; these are \"%2\" and \"%3\".").arg(to, current, old),
      out);
}

// --- plot

EExitStatus plot(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const QString picture = invocation.value(CommonOptions::kOutput);
  const SOpenedFile<ICCompensationFile> opened = OpenedFile::compensation(fileName, out);
  if (!opened.file) return ExitFile;
  if (!SFileInfo::mayReplace(picture, SFileInfo::Unknown, out)) return ExitFile;

  const CTableFindings findings(*opened.file);
  const QString unit = invocation.value(kUnit);
  const QString adjustmentUnit =
      invocation.isSet(kAdjustmentUnit) ? invocation.value(kAdjustmentUnit) : unit;
  const CCompensationPlot image(*opened.file, findings,
                                {invocation.value(kTitle), unit, adjustmentUnit});
  QString error;
  QString notKept;
  const CSignalShield shield;
  if (!CAtomicFile::write(picture, image.toSvg(), {}, error, &notKept)) {
    out.message(picture, error);
    FileHints::tellWhyUnsaved(picture, out);
    return ExitFile;
  }
  if (!notKept.isEmpty()) out.message(picture, notKept);
  if (invocation.wantsJson()) {
    QJsonObject object{{QStringLiteral("file"), fileName},
                       {QStringLiteral("written"), picture},
                       {QStringLiteral("notShown"), image.skipped()}};
    CompensationTexts::addTable(*opened.file, findings, object);
    out.json(object);
  } else {
    CompensationTexts::printTable(*opened.file, findings, out);
    if (image.skipped() > 0) out.line(Tool::tr("Points not shown: %1").arg(image.skipped()));
  }
  return ExitDone;
}

// --- The records

SArgument fileArgument() {
  return {QStringLiteral("FILE"), Tool::tr("A compensation file."), EWord::File};
}

SCommand checkCommand() {
  SCommand command;
  command.name = QStringLiteral("compensation check");
  command.summary = Tool::tr("Tell what is wrong with a table, point by point.");
  command.details =
      Tool::tr(
          "The range must not be empty, and the positions must lie in it and grow; only the first "
          "%1 "
          "points are ever valid. After a point that lies too far, all that do not lie beyond it "
          "are "
          "wrong too. Texts that are no numbers and points that lack something are also told. The "
          "exit status is 1 when there is anything.")
          .arg(ICCompensationFile::kMaxPoints);
  command.arguments = {fileArgument()};
  command.options = {CommonOptions::json()};
  command.examples = QStringList(QStringLiteral("compensation check SpindleCompensation.xcomp"));
  command.run = check;
  return command;
}

SCommand convertCommand() {
  SCommand command;
  command.name = QStringLiteral("compensation convert");
  command.summary =
      Tool::tr("Write the points of a table in the current format, or in the old one.");
  command.details = Tool::tr(
      "The formats differ in the name of an element only; the texts of all values stay as they "
      "are. "
      "A file whose points are in that format already is left alone.");
  command.arguments = {fileArgument()};
  command.options = {CommonOptions::choice(kTo, {QStringLiteral("current"), QStringLiteral("old")},
                                           Tool::tr("\"current\", unless given, or \"old\".")),
                     CommonOptions::output(Tool::tr("Write here, and leave FILE as it is.")),
                     CommonOptions::json()};
  command.examples =
      QStringList{QStringLiteral("compensation convert SpindleCompensationOld.xcomp"),
                  QStringLiteral("compensation convert SpindleCompensation.xcomp --to old -o "
                                 "ForTheOldDrive.xcomp")};
  command.run = convert;
  return command;
}

SCommand plotCommand() {
  SCommand command;
  command.name = QStringLiteral("compensation plot");
  command.summary = Tool::tr("Draw a table as an SVG picture that fills a page when printed.");
  command.details = Tool::tr(
      "Shows the points, the linear course between them, wrong points with their numbers, and the "
      "range. Units are printed with the axes; no value is converted.");
  command.arguments = {fileArgument()};
  command.options = {
      CommonOptions::required(CommonOptions::output(Tool::tr("The picture to write."))),
      {kUnit, QStringLiteral("UNIT"), Tool::tr("The unit of the positions in the file.")},
      {kAdjustmentUnit, QStringLiteral("UNIT"),
       Tool::tr("The unit of the adjustments in the file; that of --unit unless given.")},
      {kTitle, QStringLiteral("TEXT"), Tool::tr("The title, instead of the comment in the file.")},
      CommonOptions::json()};
  command.examples = QStringList(QStringLiteral(
      "compensation plot SpindleCompensation.xcomp -o SpindleCompensation.svg --unit mm"));
  command.run = plot;
  return command;
}

}  // namespace

QVector<SCommand> compensationCommands() {
  return {checkCommand(), convertCommand(), plotCommand()};
}
