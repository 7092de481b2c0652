#include "CCsv.h"
#include "CCsvTable.h"
#include "CParameterWords.h"
#include "Command.h"
#include "SValueView.h"

#include <functional>

namespace {

const QLatin1String kFormat("format");

/// A format of lines, each a row of fields.
struct SLineFormat {
  QChar separator;
  QString (*field)(const QString& text);
};

/// A field has neither tabs nor line ends; these become escapes.
QString tsvField(const QString& text) {
  QString escaped = text;
  escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
  escaped.replace(QLatin1Char('\t'), QLatin1String("\\t"));
  escaped.replace(QLatin1Char('\n'), QLatin1String("\\n"));
  escaped.replace(QLatin1Char('\r'), QLatin1String("\\r"));
  return escaped;
}

// The columns of a line; the others need definitions.
constexpr int kWithoutDefinitions = 6;

QStringList fields(const SValueView& view) {
  const QString id = view.id == 0 ? QString() : QString::number(view.id);
  const QString defaultText = view.defaultValue ? view.defaultValue->asStr() : QString();
  return {view.hardwareId,
          QString::number(view.subDevId),
          view.group,
          view.name,
          id,
          view.value.asStr(),
          view.unit,
          view.meaning,
          defaultText};
}

void printLine(const QStringList& texts, const SLineFormat& format, COutput& out) {
  QStringList shown;
  for (const QString& text : texts) shown.append(out.exact(format.field(text)));
  out.line(shown.join(format.separator));
}

/// All chosen values, by hardware id, sub-device and tree order.
void visitAll(CLoadedFile& loaded, CParameterWords& words, const CLabels& labels,
              const std::function<void(const SValueView&)>& visitor) {
  CValueViews views(loaded.file(), labels);
  for (const QString& hardwareId : loaded.chosenIds()) {
    loaded.selectHardwareId(hardwareId);
    words.look(loaded.file(), loaded.chosenSubDevice());
    for (const quint8 id : loaded.chosenSubDevices())
      views.visit(*loaded.file().rootGroup(id), words, visitor);
  }
}

void exportLines(CLoadedFile& loaded, CParameterWords& words, const SLineFormat& format,
                 COutput& out) {
  const QStringList headings = {NValueColumns::kHardwareId,
                                NValueColumns::kSubDevice,
                                "group",
                                NValueColumns::kName,
                                "id",
                                NValueColumns::kValue,
                                "unit",
                                "meaning",
                                "default"};
  const int columns = loaded.hasDefinitions() ? headings.size() : kWithoutDefinitions;
  printLine(headings.mid(0, columns), format, out);
  visitAll(loaded, words, out.labels(),
           [&](const SValueView& view) { printLine(fields(view).mid(0, columns), format, out); });
}

void exportJson(CLoadedFile& loaded, CParameterWords& words, COutput& out) {
  QJsonArray values;
  visitAll(loaded, words, out.labels(),
           [&](const SValueView& view) { values.append(view.toPlacedJson()); });
  out.json({{"file", loaded.fileName()},
            {"definitionFile", textOrNull(loaded.definitionFile())},
            {"values", values}});
}

EExitStatus exportValues(const CInvocation& invocation, COutput& out) {
  static const QMap<QString, SLineFormat> kLineFormats = {{"csv", {QLatin1Char(','), NCsv::field}},
                                                          {"tsv", {QLatin1Char('\t'), tsvField}}};
  const QString format = invocation.value(kFormat);
  const bool isJson = format == QLatin1String("json");
  if (!isJson && !kLineFormats.contains(format)) {
    return invocation.wrongUsage(
        Tool::tr("\"%1\" is not a format; use csv, tsv or json.").arg(format), out);
  }
  CLoadedFile loaded(out);
  CParameterWords words(invocation.argumentsFrom(1));
  const EExitStatus opened = words.openToRead(loaded, invocation, out);
  if (opened != ExitDone) return opened;
  if (isJson)
    exportJson(loaded, words, out);
  else
    exportLines(loaded, words, kLineFormats.value(format), out);
  return words.reportMissing(loaded, loaded.chosenIds()) ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> exportCommands() {
  return {{"export",
           Tool::tr("Print values for a spreadsheet or a program."),
           Tool::tr("One line for each value, after a line of headings, in UTF-8; or one JSON "
                    "object. CSV quotes fields as RFC 4180 says; in TSV, tabs and line breaks "
                    "become \\t, \\n and \\r, and \\ becomes \\\\.") +
               QLatin1Char('\n') +
               Tool::tr("In CSV, a text that a spreadsheet would run as a formula has an "
                        "apostrophe in front, and so has one that begins with an apostrophe. "
                        "\"import --csv\" takes the values back."),
           {NOptions::valueFile(), NOptions::parameters()},
           {NOptions::required(NOptions::choice(kFormat, {"csv", "tsv", "json"},
                                                Tool::tr("One of csv, tsv and json."))),
            NOptions::def(Tool::tr(
                "A definition file: adds units, the names of choices and bits, and defaults.")),
            NOptions::noDef(), NOptions::hardwareId(), NOptions::subDevice()},
           {"export TwoAxisDrive.xparam --format csv --def TwoAxisDrive.xpdef"},
           exportValues}};
}
