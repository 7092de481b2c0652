#include "Command.h"
#include "SValueView.h"

#include <functional>
#include <optional>

namespace {

const QLatin1String kFormat("format");

/// A format of lines, each a row of fields.
struct SLineFormat {
  QChar separator;
  QString (*field)(const QString& text);
};

/// Quoted where it must be, as in RFC 4180.
QString csvField(const QString& text) {
  static const QString kSpecial = QStringLiteral(",\"\r\n");
  bool isPlain = text == text.trimmed();
  for (const QChar c : text) isPlain = isPlain && !kSpecial.contains(c);
  if (isPlain) return text;
  QString quoted = text;
  quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
  return QLatin1Char('"') + quoted + QLatin1Char('"');
}

/// A field has neither tabs nor line ends; these become escapes.
QString tsvField(const QString& text) {
  QString escaped = text;
  escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
  escaped.replace(QLatin1Char('\t'), QLatin1String("\\t"));
  escaped.replace(QLatin1Char('\n'), QLatin1String("\\n"));
  escaped.replace(QLatin1Char('\r'), QLatin1String("\\r"));
  return escaped;
}

void printLine(const QStringList& fields, const SLineFormat& format, COutput& out) {
  QStringList texts;
  for (const QString& field : fields) texts.append(format.field(field));
  out.line(texts.join(format.separator));
}

/// All chosen values, by hardware id, sub-device and tree order.
void visitAll(CLoadedFile& loaded, const QStringList& hardwareIds, std::optional<quint8> subDevice,
              const CLabels& labels, const std::function<void(const SValueView&)>& visitor) {
  CValueViews views(loaded.file(), labels);
  for (const QString& hardwareId : hardwareIds) {
    loaded.selectHardwareId(hardwareId);
    for (const quint8 id : loaded.subDevices(subDevice))
      views.visit(*loaded.file().rootGroup(id), visitor);
  }
}

QStringList headings(bool hasDefinitions) {
  const QStringList always = {QStringLiteral("hardwareId"), QStringLiteral("subDevice"),
                              QStringLiteral("group"),      QStringLiteral("name"),
                              QStringLiteral("id"),         QStringLiteral("value")};
  if (!hasDefinitions) return always;
  return always +
         QStringList{QStringLiteral("unit"), QStringLiteral("meaning"), QStringLiteral("default")};
}

QStringList fields(const SValueView& view, bool hasDefinitions) {
  const QStringList always = {view.hardwareId,
                              QString::number(view.subDevId),
                              view.group,
                              view.name,
                              view.id == 0 ? QString() : QString::number(view.id),
                              view.value.asStr()};
  if (!hasDefinitions) return always;
  return always + QStringList{view.unit, view.meaning,
                              view.defaultValue ? view.defaultValue->asStr() : QString()};
}

void exportLines(CLoadedFile& loaded, const QStringList& hardwareIds,
                 std::optional<quint8> subDevice, const SLineFormat& format, COutput& out) {
  printLine(headings(loaded.hasDefinitions()), format, out);
  visitAll(loaded, hardwareIds, subDevice, out.labels(), [&](const SValueView& view) {
    printLine(fields(view, loaded.hasDefinitions()), format, out);
  });
}

void exportJson(CLoadedFile& loaded, const QStringList& hardwareIds,
                std::optional<quint8> subDevice, COutput& out) {
  QJsonArray values;
  visitAll(loaded, hardwareIds, subDevice, out.labels(),
           [&](const SValueView& view) { values.append(view.toPlacedJson()); });
  out.json({{QStringLiteral("file"), loaded.fileName()}, {QStringLiteral("values"), values}});
}

EExitStatus exportValues(const CInvocation& invocation, COutput& out) {
  static const QMap<QString, SLineFormat> kLineFormats = {
      {QStringLiteral("csv"), {QLatin1Char(','), csvField}},
      {QStringLiteral("tsv"), {QLatin1Char('\t'), tsvField}}};
  const QString format = invocation.value(kFormat);
  const bool isJson = format == QLatin1String("json");
  if (!isJson && !kLineFormats.contains(format)) {
    return invocation.wrongUsage(
        Tool::tr("\"%1\" is not a format; use csv, tsv or json.").arg(format), out);
  }
  CLoadedFile loaded(out);
  QStringList hardwareIds;
  const EExitStatus opened = loaded.openToRead(invocation, hardwareIds);
  if (opened != ExitDone) return opened;
  if (isJson)
    exportJson(loaded, hardwareIds, invocation.subDevice(), out);
  else
    exportLines(loaded, hardwareIds, invocation.subDevice(), kLineFormats.value(format), out);
  return ExitDone;
}

}  // namespace

QVector<SCommand> exportCommands() {
  return {{QStringLiteral("export"),
           Tool::tr("Print all values for a spreadsheet or a program."),
           Tool::tr("One line for each value, after a line of headings, in UTF-8; or one JSON "
                    "object. CSV quotes fields as RFC 4180 says; in TSV, tabs and line breaks "
                    "become \\t, \\n and \\r, and \\ becomes \\\\."),
           {{QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File}},
           {NOptions::required(NOptions::choice(
                kFormat, {QStringLiteral("csv"), QStringLiteral("tsv"), QStringLiteral("json")},
                Tool::tr("One of csv, tsv and json."))),
            NOptions::def(Tool::tr(
                "A definition file: adds units, the names of choices and bits, and defaults.")),
            NOptions::hardwareId(Tool::tr("Only this hardware id.")),
            NOptions::subDevice(Tool::tr("Only this sub-device, 0 to 255."))},
           {QStringLiteral("export TwoAxisDrive.xparam --format csv --def TwoAxisDrive.xpdef")},
           exportValues}};
}
