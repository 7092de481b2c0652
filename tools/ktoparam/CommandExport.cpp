#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "Commands.h"
#include "NShortText.h"
#include "SValueView.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

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

using CVisitor = std::function<void(const SValueView&)>;

void visit(CValueViews& views, const ICParamTreeNode& group, const QString& path,
           const CVisitor& visitor) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isGroup())
      visit(views, child, NShortText::below(path, child.name()), visitor);
    else
      visitor(views.of(child, path));
  }
}

/// All chosen values, by hardware id, sub-device and tree order.
void visitAll(CLoadedFile& loaded, const QStringList& hardwareIds, std::optional<quint8> subDevice,
              const CLabels& labels, const CVisitor& visitor) {
  ICParameterFile& file = loaded.file();
  CValueViews views(file, labels);
  for (const QString& hardwareId : hardwareIds) {
    loaded.selectHardwareId(hardwareId);
    for (const quint8 id : file.subDeviceIds())
      if (!subDevice || *subDevice == id) visit(views, *file.rootGroup(id), {}, visitor);
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

QStringList fields(const QString& hardwareId, const SValueView& view, bool hasDefinitions) {
  const QStringList always = {hardwareId,
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
    printLine(fields(out.labels().of(loaded.file().hardwareId()), view, loaded.hasDefinitions()),
              format, out);
  });
}

void exportJson(CLoadedFile& loaded, const QStringList& hardwareIds,
                std::optional<quint8> subDevice, COutput& out) {
  QJsonArray values;
  visitAll(loaded, hardwareIds, subDevice, out.labels(), [&](const SValueView& view) {
    QJsonObject value = view.toJson();
    value.insert(QStringLiteral("hardwareId"), out.labels().of(loaded.file().hardwareId()));
    value.insert(QStringLiteral("subDevice"), view.subDevId);
    values.append(value);
  });
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
        Tool::tr("\"%1\" is no format; there are csv, tsv and json.").arg(format), out);
  }
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), invocation)) return ExitFile;
  const QStringList hardwareIds = loaded.hardwareIds(invocation);
  if (hardwareIds.isEmpty() || !loaded.checkSubDevice(invocation.subDevice(), hardwareIds))
    return ExitFindings;
  if (isJson)
    exportJson(loaded, hardwareIds, invocation.subDevice(), out);
  else
    exportLines(loaded, hardwareIds, invocation.subDevice(), kLineFormats.value(format), out);
  return ExitDone;
}

}  // namespace

QVector<SCommand> exportCommands() {
  SCommand command;
  command.name = QStringLiteral("export");
  command.summary = Tool::tr("Print all values for a spreadsheet or a program.");
  command.details = Tool::tr(
      "One line for each value, behind a line of headings, in UTF-8; or one JSON object. CSV "
      "quotes fields as RFC 4180 says; in TSV, tabs and line breaks become \\t, \\n and \\r, and "
      "\\ becomes \\\\.");
  command.arguments = {{QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File}};
  command.options = {
      CommonOptions::required(CommonOptions::choice(
          kFormat, {QStringLiteral("csv"), QStringLiteral("tsv"), QStringLiteral("json")},
          Tool::tr("One of csv, tsv and json."))),
      CommonOptions::def(
          Tool::tr("A definition file: adds units, the names of choices and bits, and defaults.")),
      CommonOptions::hardwareId(Tool::tr("Only this hardware id.")),
      CommonOptions::subDevice(Tool::tr("Only this sub-device, 0 to 255."))};
  command.examples = QStringList(
      QStringLiteral("export TwoAxisDrive.xparam --format csv --def TwoAxisDrive.xpdef"));
  command.run = exportValues;
  return {command};
}
