#include "CCompensationPlot.h"
#include "CCompensationReport.h"
#include "Command.h"
#include "NSafeWrite.h"

#include <algorithm>

namespace {

using EFormat = ICCompensationFile::EDataPointFormat;

const QLatin1String kTo("to");
const QLatin1String kUnit("unit");
const QLatin1String kAdjustmentUnit("adjustment-unit");
const QLatin1String kTitle("title");

// --- check

EExitStatus check(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  CLoadedFile loaded(out);
  if (!loaded.load(fileName, SFileInfo::Compensation)) return ExitFile;
  const CCompensationReport table(*loaded.compensation());
  if (invocation.wantsJson()) {
    QJsonObject object{{"file", fileName}};
    table.addTo(object);
    object.insert("wrongPoints", table.pointsJson(CCompensationReport::WrongPoints));
    out.json(object);
  } else {
    table.print(out);
    table.printPoints(CCompensationReport::WrongPoints, out);
    if (table.isGood()) out.line(Tool::tr("Nothing is wrong."));
  }
  return table.isGood() ? ExitDone : ExitFindings;
}

// --- convert

// Reading takes the adjustments of one format only, so those of the other would be gone.
bool losesAdjustments(const ICCompensationFile& table) {
  const QList<CCompensationPoint> points = table.allPoints();
  return std::any_of(points.begin(), points.end(), [](const CCompensationPoint& point) {
    return point.gaps().testFlag(CCompensationPoint::OtherAdjustment);
  });
}

void printConversion(const CInvocation& invocation, const ICCompensationFile& table,
                     const QString& to, const QString& written, COutput& out) {
  const QString from = CCompensationReport::formatName(table.detectedDataPointFormat());
  if (invocation.wantsJson()) {
    out.json({{"file", invocation.argument(0)},
              {"from", textOrNull(from)},
              {"to", to},
              {"count", table.count()},
              {"written", textOrNull(written)}});
  } else if (table.count() == 0) {
    out.line(Tool::tr("The table has no points to convert; nothing was written."));
  } else if (written.isEmpty()) {
    out.line(Tool::tr("The points are in the %1 format already; nothing was written.").arg(to));
  } else {
    out.line(
        Tool::tr("Points converted to the %1 format: %2").arg(to, QString::number(table.count())));
  }
}

EExitStatus convert(const CInvocation& invocation, COutput& out) {
  const QString current = CCompensationReport::formatName(ICCompensationFile::CurrentFormat);
  const QString old = CCompensationReport::formatName(ICCompensationFile::OldFormat);
  const QString to = invocation.value(kTo, current);
  if (to != current && to != old) {
    return invocation.wrongUsage(
        Tool::tr("\"%1\" is not a format of points; use \"%2\" or \"%3\".").arg(to, current, old),
        out);
  }
  const EFormat wanted =
      to == old ? ICCompensationFile::OldFormat : ICCompensationFile::CurrentFormat;
  const QString fileName = invocation.argument(0);
  const QString target = invocation.value(NOptions::kOutput, fileName);
  CLoadedFile loaded(out);
  if (!loaded.lock(target, invocation) || !loaded.load(fileName, SFileInfo::Compensation))
    return ExitFile;
  ICCompensationFile& table = *loaded.compensation();
  if (losesAdjustments(table)) {
    loaded.message(
        Tool::tr("there are adjustments in both formats, and only those in the format "
                 "of the first point are read; converting would lose the others."));
    return ExitFindings;
  }
  QString written;
  if (table.count() > 0 && table.detectedDataPointFormat() != wanted) {
    written = target;
    if (!SFileInfo::mayReplace(written, SFileInfo::Compensation, out)) return ExitFile;
    table.setDataPointSaveFormat(wanted);
    if (!loaded.saveCompensation(written)) return ExitFile;
  }
  printConversion(invocation, table, to, written, out);
  return ExitDone;
}

// --- plot

EExitStatus plot(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const QString picture = invocation.value(NOptions::kOutput);
  CLoadedFile loaded(out);
  if (!loaded.lock(picture, invocation) || !loaded.load(fileName, SFileInfo::Compensation))
    return ExitFile;
  if (!SFileInfo::mayReplace(picture, SFileInfo::Unknown, out)) return ExitFile;

  const CCompensationReport table(*loaded.compensation());
  const QString unit = invocation.value(kUnit);
  const CCompensationPlot image(*loaded.compensation(), {invocation.value(kTitle), unit,
                                                         invocation.value(kAdjustmentUnit, unit)});
  if (!NSafeWrite::bytes(picture, image.toSvg(), out)) return ExitFile;
  if (invocation.wantsJson()) {
    QJsonObject object{
        {"file", fileName}, {"written", picture}, {"notShown", image.skippedPoints()}};
    table.addTo(object);
    out.json(object);
  } else {
    table.print(out);
    if (image.skippedPoints() > 0)
      out.line(Tool::tr("Points not shown: %1").arg(image.skippedPoints()));
  }
  return ExitDone;
}

SArgument fileArgument() {
  return {"FILE", Tool::tr("A compensation file."), EWord::File};
}

}  // namespace

QVector<SCommand> compensationCommands() {
  return {{"compensation check",
           Tool::tr("Tell what is wrong with a table, point by point."),
           Tool::tr("The range must not be empty, and the positions must lie in it and grow; only "
                    "the first %1 points are ever valid. After a point that is too far, all points "
                    "not beyond it are wrong, too. Texts that are not numbers and points that lack "
                    "something are also listed. The exit status is 1 when there is anything.")
               .arg(ICCompensationFile::kMaxPoints),
           {fileArgument()},
           {NOptions::json()},
           {"compensation check SpindleCompensation.xcomp"},
           check},
          {"compensation convert",
           Tool::tr("Write the points of a table in the current format, or in the old one."),
           Tool::tr(
               "The formats differ in the name of an element only; the texts of all values stay as "
               "they are. A file whose points are in that format already is left alone."),
           {fileArgument()},
           {NOptions::choice(kTo, {"current", "old"},
                             Tool::tr("\"current\", unless given, or \"old\".")),
            NOptions::output(Tool::tr("Write here, and leave FILE as it is.")), NOptions::noWait(),
            NOptions::json()},
           {"compensation convert SpindleCompensationOld.xcomp",
            "compensation convert SpindleCompensation.xcomp --to old -o ForTheOldDrive.xcomp"},
           convert},
          {"compensation plot",
           Tool::tr("Draw a table as an SVG picture that fills a page when printed."),
           Tool::tr(
               "Shows the points, the linear course between them, wrong points with their numbers, "
               "and the range. Units are printed with the axes; no value is converted."),
           {fileArgument()},
           {NOptions::required(NOptions::output(Tool::tr("The picture to write."))),
            {kUnit, "UNIT", Tool::tr("The unit of the positions in the file.")},
            {kAdjustmentUnit, "UNIT",
             Tool::tr("The unit of the adjustments in the file; that of --unit unless given.")},
            {kTitle, "TEXT", Tool::tr("The title, instead of the comment in the file.")},
            NOptions::noWait(),
            NOptions::json()},
           {"compensation plot SpindleCompensation.xcomp -o SpindleCompensation.svg --unit mm"},
           plot}};
}
