#include "Models.h"

#include "CDomDoc.h"
#include "ICCompensationFile.h"
#include "ICParameterFile.h"

#include <QStringList>

using NTorture::CRandom;

namespace NModels {

namespace {

QString name(CRandom& random, const QString& prefix, int number) {
  return prefix + QString::number(number) + (random.oneIn(3) ? text(random) : QString());
}

qint64 number(CRandom& random) {
  const qint64 bits = (static_cast<qint64>(random.below(1 << 30)) << 34) ^ random.below(1 << 30);
  return bits >> random.below(64);
}

QString value(CRandom& random, NParamDef::EParamType type) {
  switch (random.below(3)) {
    case 0:
      return text(random);
    case 1:
      return CParamVal(number(random));
    default:
      return type == NParamDef::PARAM_TYPE_F64 ? CParamVal(static_cast<double>(number(random)) / 7)
                                               : CParamVal(static_cast<quint64>(number(random)));
  }
}

void addChoices(CRandom& random, CParamDefItem& item) {
  for (int i = random.below(4); i > 0; --i) item.addEnum(number(random), text(random));
  item.setEnumEditable(item.hasEnums() && random.oneIn(2));
  for (int i = random.below(3); i > 0; --i) item.addRadio(number(random), text(random));
  for (int i = random.below(3); i > 0; --i)
    item.addBit(random.below(64), text(random), random.oneIn(2));
  if (random.oneIn(3)) {
    const bool third = random.oneIn(2);
    item.setCheckVals({number(random), number(random), third, third ? number(random) : 0});
  }
  for (int i = random.below(3); i > 0; --i) {
    item.setVisibleId(static_cast<quint32>(random.below(100)));
    item.addVisibleValue(number(random));
  }
}

CParamDefItem definition(CRandom& random, int index) {
  const auto type = static_cast<NParamDef::EParamType>(random.below(11));
  const quint32 id = random.oneIn(5)   ? 0
                     : random.oneIn(9) ? NParamDef::NO_ID
                                       : 100U + unsigned(index);
  CParamDefItem item(name(random, "P", index), type, id);
  item.setHint(text(random));
  item.setUnitId(static_cast<quint32>(random.below(3)));
  item.setDefVal(value(random, type));
  if (random.oneIn(2)) item.setMinVal(CParamVal(-5));
  if (random.oneIn(2)) item.setMaxVal(CParamVal("0xffff"));
  for (int i = random.below(3); i > 0; --i) item.addMinId(static_cast<quint32>(number(random)));
  for (int i = random.below(3); i > 0; --i) item.addMaxId(static_cast<quint32>(number(random)));
  addChoices(random, item);
  return item;
}

void addTree(CRandom& random, ICParameterFile& file, quint8 subDevId) {
  file.setSubDevType(subDevId, static_cast<NParamDef::ESubDeviceTypes>(random.below(4)));
  if (random.oneIn(2)) file.setSubDevName(subDevId, text(random));
  ICParamTreeNode* group = file.rootGroup(subDevId);
  int groups = 0;
  for (const QString& parameter : file.defNames()) {
    if (random.oneIn(3)) group = file.addGroup(group, name(random, "G", ++groups));
    if (random.oneIn(4)) group = group->rootPtr();
    if (random.oneIn(2)) file.addParameter(group, parameter);
    if (random.oneIn(2)) file.setParamValue(parameter, text(random), subDevId);
  }
}

void addSettings(CRandom& random, CDomElement group, int depth) {
  static const char* const kTypes[] = {"UINT8", "INT64", "REAL64", "BOOLEAN", "STRING", "STRING"};
  const int children = 1 + random.below(4);
  for (int i = 0; i < children; ++i) {
    CDomElement child = group.appendElement(QString("N%1").arg(random.below(100)));
    const bool isGroup = depth < 6 && random.oneIn(3);
    const int type = random.below(6);
    if (!isGroup) child.setAttribute(QLatin1String("Type"), kTypes[type]);
    if (!isGroup && random.oneIn(2)) child.setAttribute(QLatin1String("unit"), "u" + text(random));
    if (random.oneIn(2)) child.setAttribute(QLatin1String("comment"), "c" + text(random));
    if (isGroup)
      addSettings(random, child, depth + 1);
    else
      child.setText(type >= 4 ? text(random) : "7" + text(random));
  }
}

}  // namespace

QString text(CRandom& random) {
  static const QStringList kPieces{" ",
                                   "\t",
                                   "\n",
                                   "\r",
                                   "\r\n",
                                   "&",
                                   "<",
                                   ">",
                                   "\"",
                                   "'",
                                   "]]>",
                                   "&amp;",
                                   "a",
                                   "Z",
                                   "0",
                                   "0x1f",
                                   "-1",
                                   "1.5",
                                   "1,5",
                                   "nan",
                                   "/",
                                   "<!--",
                                   "%1",
                                   "%n",
                                   QChar(0xA0),
                                   QChar(0x85),
                                   QChar(0x2028),
                                   QChar(0xFEFF),
                                   QChar(0xFFFD),
                                   QChar(0xE000),
                                   QChar(0xD7FF),
                                   QChar(0x301),
                                   QString::fromUtf8("µ°Ω²ßü"),
                                   QString::fromUtf8("名前"),
                                   QString::fromUtf8("\xF0\x9F\x94\xA9\xF4\x8F\xBF\xBD")};
  QString result;
  for (int i = random.below(8); i > 0; --i) result += kPieces.at(random.below(kPieces.size()));
  return result;
}

std::unique_ptr<ICParameterFile> parameterFile(CRandom& random) {
  std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  file->setMetaData("a" + text(random), text(random));
  file->setDefMetaData("a" + text(random), text(random));
  const int definitions = 1 + random.below(8);
  for (int i = 0; i < definitions; ++i) file->addDef(definition(random, i));
  const int hardwareIds = 1 + random.below(3);
  for (int i = 0; i < hardwareIds; ++i) {
    // Blanks round a hardware id are not kept.
    file->addHardwareId(name(random, "H", i) + "x");
    for (int j = random.below(3); j >= 0; --j) addTree(random, *file, static_cast<quint8>(j * 127));
  }
  return file;
}

QByteArray settingsFile(CRandom& random) {
  CDomDoc document;
  CDomElement root = document.createRoot("C_SETTINGS_FORMAT");
  root.setAttribute(QLatin1String("Version"), "1.0");
  addSettings(random, root, 0);
  QString error;
  return document.toByteArray("UTF-16", error);
}

QByteArray compensationFile(CRandom& random) {
  const std::unique_ptr<ICCompensationFile> file(ICCompensationFile::create(nullptr));
  CXMLMetaData head;
  head.setDate(QDate(2000 + random.below(100), 2, 28));
  head.setAuthor(text(random));
  head.setComment(text(random));
  file->setMetaData(head);
  CCompensationHeader header;
  header.setMinimum(text(random));
  header.setMaximum(static_cast<double>(number(random)) / 3);
  file->setHeader(header);
  for (int i = random.below(10); i > 0; --i) {
    CCompensationPoint point;
    point.setPosition(static_cast<double>(number(random)) / 3);
    point.setAdjustment(text(random));
    file->appendPoint(point);
  }
  file->setDataPointSaveFormat(random.oneIn(2) ? ICCompensationFile::CurrentFormat
                                               : ICCompensationFile::OldFormat);
  QByteArray bytes;
  file->saveToBuffer(bytes, "1.0");
  return bytes;
}

}  // namespace NModels
