#include "Generate.h"

#include <QFile>
#include <QTemporaryDir>

namespace NGenerate {

namespace {

const QString kHead = QStringLiteral(
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<%1 version=\"1.0\">\n <Head>\n"
    "  <Date>2026-01-01</Date>\n  <Author>Bench</Author>\n  <Comment>Generated</Comment>\n"
    " </Head>\n");

QByteArray utf16(const QString& text) {
  QByteArray bytes("\xFF\xFE");
  return bytes.append(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
}

QString parameter(int number, const QString& value) {
  return QStringLiteral(
             "    <Param id=\"%1\">\n     <Name>ControllerSetting%1</Name>\n     "
             "<Value>%2</Value>\n"
             "    </Param>\n")
      .arg(QString::number(number), value);
}

QString groups(int parameters) {
  QString text;
  for (int i = 0; i < parameters; ++i) {
    if (i % 100 == 0) text += QStringLiteral("   <Group>\n    <Name>Group%1</Name>\n").arg(i / 100);
    text += parameter(i + 1, i % 3 == 0 ? QString::number(i * 0.37, 'g', 15)
                                        : QStringLiteral("0x") + QString::number(i * 7919, 16));
    if (i % 100 == 99 || i + 1 == parameters) text += QLatin1String("   </Group>\n");
  }
  return text;
}

QString definition(int number) {
  QString text = QStringLiteral(
                     "  <Param id=\"%1\">\n   <Name>ControllerSetting%1</Name>\n"
                     "   <Type>u32</Type>\n   <Unit>1003</Unit>\n"
                     "   <Hint>Setting %1 of the cascaded controller</Hint>\n"
                     "   <DefVal>0x%2</DefVal>\n   <MinVal>0x0</MinVal>\n"
                     "   <MaxVal>0xffffffff</MaxVal>\n")
                     .arg(QString::number(number), QString::number(number, 16));
  if (number % 4 == 0) {
    text += QLatin1String(
        "   <Enum edit=\"false\">\n    <Item value=\"0\">Off</Item>\n"
        "    <Item value=\"1\">On</Item>\n    <Item value=\"2\">Automatic</Item>\n   </Enum>\n");
  }
  if (number % 8 == 0) text += QLatin1String("   <VisibleValues refId=\"5\">1 2</VisibleValues>\n");
  return text + QLatin1String("  </Param>\n");
}

}  // namespace

QByteArray valueFile(int parameters, int hardwareIds) {
  constexpr int kSubDevices = 4;
  QString text = kHead.arg(QLatin1String("LumoParameters"));
  for (int h = 0; h < hardwareIds; ++h) {
    text += QStringLiteral(" <Data hardwareId=\"HW%1\">\n").arg(h, 4, 10, QLatin1Char('0'));
    for (int s = 0; s < kSubDevices; ++s) {
      text += QStringLiteral("  <SubDevice id=\"%1\">\n   <Type>Drive</Type>\n").arg(s) +
              groups(parameters / hardwareIds / kSubDevices) + QLatin1String("  </SubDevice>\n");
    }
    text += QLatin1String(" </Data>\n");
  }
  return utf16(text + QLatin1String("</LumoParameters>\n"));
}

QByteArray definitionFile(int definitions) {
  QString text = kHead.arg(QLatin1String("LumoParamDefinition")) + QLatin1String(" <Data>\n");
  for (int i = 1; i <= definitions; ++i) text += definition(i);
  return utf16(text + QLatin1String(" </Data>\n</LumoParamDefinition>\n"));
}

QByteArray shortDefinitionFile(int definitions) {
  QString text = kHead.arg(QLatin1String("LumoParamDefinition")) + QLatin1String(" <Data>\n");
  for (int i = 1; i <= definitions; ++i) {
    text += QStringLiteral(
                "  <Param id=\"%1\">\n   <Name>ControllerSetting%1</Name>\n   <Type>%2</Type>\n"
                "   <DefVal>%1</DefVal>\n  </Param>\n")
                .arg(QString::number(i), QLatin1String(i % 3 == 1 ? "f64" : "u64"));
  }
  return utf16(text + QLatin1String(" </Data>\n</LumoParamDefinition>\n"));
}

QByteArray motorFile(int motors, int parameters) {
  QString text = kHead.arg(QLatin1String("LumoMotorParameters"));
  for (int m = 0; m < motors; ++m) {
    text += QStringLiteral(" <Data hardwareId=\"Motor%1\">\n  <SubDevice id=\"0\">\n").arg(m) +
            groups(parameters) + QLatin1String("  </SubDevice>\n </Data>\n");
  }
  return utf16(text + QLatin1String("</LumoMotorParameters>\n"));
}

QString asFile(const QByteArray& content, const QString& suffix) {
  static QTemporaryDir folder;
  static int count = 0;
  QFile file(folder.filePath(QString::number(count++) + QLatin1Char('.') + suffix));
  const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
  if (!written) qFatal("cannot write %s", qPrintable(file.fileName()));
  return file.fileName();
}

}  // namespace NGenerate
