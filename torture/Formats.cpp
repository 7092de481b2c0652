#include "Formats.h"

#include "CMigrationTable.h"
#include "ICCompensationFile.h"
#include "ICParameterFile.h"
#include "ICSettingsFile.h"
#include "ParamFileText.h"
#include "TestFiles.h"

#include <QRegularExpression>

namespace NFormats {

namespace {

constexpr quint32 kVersion = 0x10000;
const QString kVersionText = "1.0";

bool oneIn(QRandomGenerator& random, int times) {
  return random.bounded(times) == 0;
}

/// A text of what files mishandle: blanks, line ends, mark-up, odd characters, pairs.
QString text(QRandomGenerator& random) {
  static const QStringList kPieces =
      QString::fromUtf8(
          u8" |\t|\n|\r|\r\n|&|<|>|\"|'|]]>|&amp;|a|Z|0|0x1f|-1|1.5|"
          u8"1,5|nan|/|<!--|%1|%n|\u00A0|\u0085|\u2028|\uFEFF|\uFFFD|"
          u8"\uE000|\uD7FF|\u0301|µ°Ω²ßü|名前|\U0001F529\U0010FFFD")
          .split('|');
  QString result;
  for (int i = random.bounded(8); i > 0; --i) result += kPieces.at(random.bounded(kPieces.size()));
  return result;
}

QString name(QRandomGenerator& random, const QString& prefix, int number) {
  return prefix + QString::number(number) + (oneIn(random, 3) ? text(random) : QString());
}

qint64 number(QRandomGenerator& random) {
  return static_cast<qint64>(random.generate64()) >> random.bounded(64);
}

void addChoices(QRandomGenerator& random, CParamDefItem& item) {
  for (int i = random.bounded(4); i > 0; --i) item.addEnum(number(random), text(random));
  item.setEnumEditable(item.hasEnums() && oneIn(random, 2));
  for (int i = random.bounded(3); i > 0; --i) item.addRadio(number(random), text(random));
  for (int i = random.bounded(3); i > 0; --i)
    item.addBit(random.bounded(64), text(random), oneIn(random, 2));
  if (oneIn(random, 3)) {
    const bool third = oneIn(random, 2);
    item.setCheckVals({number(random), number(random), third, third ? number(random) : 0});
  }
  for (int i = random.bounded(3); i > 0; --i) {
    item.setVisibleId(static_cast<quint32>(random.bounded(100)));
    item.addVisibleValue(number(random));
  }
}

CParamDefItem definition(QRandomGenerator& random, int index) {
  const quint32 id = 100U + unsigned(index);
  const quint32 ids[] = {id, id, id, id, 0, NParamDef::NO_ID};
  const auto type = static_cast<NParamDef::EParamType>(random.bounded(11));
  CParamDefItem item(name(random, "P", index), type, ids[random.bounded(6)]);
  item.setHint(text(random));
  item.setUnitId(static_cast<quint32>(random.bounded(3)));
  const CParamVal defaults[] = {text(random), number(random), static_cast<quint64>(number(random)),
                                static_cast<double>(number(random)) / 7};
  item.setDefVal(defaults[random.bounded(4)]);
  if (oneIn(random, 2)) item.setMinVal(CParamVal(-5));
  if (oneIn(random, 2)) item.setMaxVal(CParamVal("0xffff"));
  for (int i = random.bounded(3); i > 0; --i) item.addMinId(static_cast<quint32>(number(random)));
  for (int i = random.bounded(3); i > 0; --i) item.addMaxId(static_cast<quint32>(number(random)));
  addChoices(random, item);
  return item;
}

void addTree(QRandomGenerator& random, ICParameterFile& file, quint8 subDevId) {
  file.setSubDevType(subDevId, static_cast<NParamDef::ESubDeviceTypes>(random.bounded(4)));
  if (oneIn(random, 2)) file.setSubDevName(subDevId, text(random));
  ICParamTreeNode* group = file.rootGroup(subDevId);
  int groups = 0;
  for (int i = 0; i < 8; ++i) {
    const QString parameter = name(random, "P", i);
    if (oneIn(random, 3)) group = file.addGroup(group, name(random, "G", ++groups));
    if (oneIn(random, 4)) group = group->rootPtr();
    if (oneIn(random, 2)) file.addParameter(group, parameter);
    if (oneIn(random, 2)) file.setParamValue(parameter, text(random), subDevId);
  }
}

class CParameterFormat : public CFormat {
 public:
  explicit CParameterFormat(bool values)
      : mValues(values),
        mFile(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr)) {}
  bool load(const QString& fileName) override {
    return mValues ? mFile->loadParamFile(fileName, QString(), kVersion)
                   : mFile->loadParamDefFile(fileName, kVersion);
  }
  bool save(const QString& fileName) override {
    return mValues ? mFile->saveParamFile(fileName, QString(), kVersion)
                   : mFile->saveParamDefFile(fileName, kVersion);
  }
  QString told() const override {
    return QStringLiteral("line %1: %2").arg(mFile->errorLine()).arg(mFile->errorMsg());
  }
  QString content() override {
    const QString all = NParamFileText::content(*mFile);
    return mValues ? all.mid(all.indexOf("\nhardware id ")) + mFile->author() + mFile->comment()
                   : all;
  }
  QString state() override { return NParamFileText::all(*mFile); }
  void edit(QRandomGenerator random) override {
    if (!mValues) {
      mFile->setDefMetaData("a" + text(random), text(random));
      for (int i = random.bounded(8); i > 0; --i) mFile->addDef(definition(random, i));
      return;
    }
    mFile->setMetaData("a" + text(random), text(random));
    for (const quint8 id : mFile->subDeviceIds())
      for (const QString& parameter : mFile->paramNames(id))
        mFile->setParamValue(parameter, text(random), id);
    if (mFile->containsHardwareId(mFile->hardwareId()))
      mFile->cloneHardwareId(mFile->hardwareId(), "clone");
    for (int i = random.bounded(3); i > 0; --i) {
      mFile->addHardwareId(name(random, "H", i) + "x");  // blanks at the ends are not kept
      for (const int id : {254, 127, 0})
        if (oneIn(random, 2)) addTree(random, *mFile, static_cast<quint8>(id));
    }
  }
  bool keepsContent() const override { return true; }

 private:
  const bool mValues;
  const std::unique_ptr<ICParameterFile> mFile;
};

/// The files that give a result, which is kOk where all went well.
template <class File, int kOk>
class CResultFormat : public CFormat {
 public:
  bool load(const QString& name) override { return isOk(mFile->load(name, kVersionText)); }
  bool loadBuffer(const QByteArray& b) override {
    return isOk(mFile->loadFromBuffer(b, kVersionText));
  }
  bool save(const QString& name) override { return isOk(mFile->save(name, kVersionText)); }
  QString told() const override { return QString("%1: %2").arg(mResult).arg(mFile->errorMsg()); }

 protected:
  const std::unique_ptr<File> mFile{File::create(nullptr)};
  int mResult = kOk;

 private:
  bool isOk(int result) { return (mResult = result) == kOk; }
};

class CSettingsFormat : public CResultFormat<ICSettingsFile, ICSettingsFile::NoError> {
 public:
  QString content() override {
    QString all;
    append(mFile->root(), 0, all);
    return all;
  }
  void edit(QRandomGenerator random) override { editBelow(mFile->root(), random); }
  bool keepsContent() const override {
    return mResult == ICSettingsFile::OpenError || mResult == ICSettingsFile::VersionError;
  }

 private:
  static void editBelow(ICSettingsTreeNode* parent, QRandomGenerator& random) {
    for (int i = 0; parent != nullptr && i < parent->childCnt(); ++i) {
      ICSettingsTreeNode* node = parent->childPtr(i);
      const bool isText = node->type() == ICSettingsTreeNode::TypeString;
      if (oneIn(random, 2)) node->setComment("c" + text(random));
      if (node->isParam() && oneIn(random, 2)) node->setUnit("u" + text(random));
      if (node->isParam())
        node->setValue(isText ? CParamVal(text(random)) : CParamVal(number(random)));
      editBelow(node, random);
    }
  }
  static void append(const ICSettingsTreeNode* node, int depth, QString& text) {
    if (node == nullptr) return;
    text += QString(depth, ' ') +
            QStringList{QString::number(node->type()), node->name(), node->value(), node->unit(),
                        depth > 0 ? node->comment() : QString()}
                .join(';') +
            '\n';
    for (int i = 0; i < node->childCnt(); ++i) append(node->childPtr(i), depth + 1, text);
  }
};

class CCompensationFormat : public CResultFormat<ICCompensationFile, ICCompensationFile::Ok> {
 public:
  QString state() override {
    return QStringLiteral("format %1\n").arg(mFile->detectedDataPointFormat()) + content();
  }
  QString content() override {
    const CXMLMetaData head = mFile->metaData();
    QStringList texts{head.date().toString(Qt::ISODate), head.author(), head.comment(),
                      mFile->header().minimum(), mFile->header().maximum()};
    for (const CCompensationPoint& point : mFile->allPoints())
      texts += point.position().asStr() + '=' + point.adjustment().asStr();
    return texts.join('\n');
  }
  void edit(QRandomGenerator random) override {
    CXMLMetaData head;
    head.setDate(QDate(2000 + random.bounded(100), 2, 28));
    head.setAuthor("a" + text(random));
    head.setComment(text(random));
    mFile->setMetaData(head);
    CCompensationPoint point;
    for (int i = random.bounded(10); i >= 0; --i) {
      point.setPosition(static_cast<double>(number(random)) / 3);
      point.setAdjustment(number(random));
      mFile->appendPoint(point);
    }
    mFile->setPoint(0, point);
    mFile->removePoint(1);
    mFile->checkAllPoints(nullptr);
  }
  bool keepsContent() const override { return false; }
};

class CMigrationFormat : public CFormat {
 public:
  bool load(const QString& name) override { return mTable.load(name, mTold); }
  bool save(const QString& name) override { return mTable.save(name, mTold); }
  QString told() const override { return mTold; }
  QString content() override { return text(false); }
  QString state() override { return text(true); }
  void edit(QRandomGenerator random) override {
    mTable.newRelease = NFormats::text(random);
    mTable.groups += {"new/" + NFormats::text(random), "G" + name(random, "", 1).remove('/')};
    for (int i = random.bounded(8); i > 0; --i) mTable.rules += randomRule(random, i);
  }
  bool keepsContent() const override { return true; }

 private:
  static SMigrationRule randomRule(QRandomGenerator& random, int i) {
    SMigrationRule rule;
    rule.name = name(random, "new", i);
    if (oneIn(random, 4)) {
      const QString sentence = "x" + NFormats::text(random);
      (oneIn(random, 2) ? rule.reason : rule.question) = sentence.simplified();
      rule.isDropped = rule.question.isNull();
      return rule;
    }
    rule.newName = name(random, "N", i);
    if (oneIn(random, 2)) rule.newId = random.generate();
    if (oneIn(random, 2))
      rule.move = {NParamDef::SUB_DEV_TYPE_DRIVE, NParamDef::SUB_DEV_TYPE_DEVICE};
    const int kind = random.bounded(4);
    if (kind == 0) rule.rescaling = {"-1.5/60", "2", SRescaling::ERounding(random.bounded(6))};
    if (kind == 1) rule.choices = {{number(random), number(random)}};
    if (kind == 2) rule.bits = {{random.bounded(64), random.bounded(64)}};
    if (kind == 3) rule.value = "" + NFormats::text(random);
    return rule;
  }
  QString text(bool withLines) const {
    const auto line = [=](int number) { return withLines ? QString("%1: ").arg(number) : ""; };
    QStringList lines{mTable.oldRelease + ';' + mTable.newRelease + ';' + mTable.newVersion};
    for (const SMigrationGroup& group : mTable.groups)
      lines += line(group.line) + group.path + " -> " + group.newName;
    for (const SMigrationRule& rule : mTable.rules) {
      lines += line(rule.line) + rule.name + " -> " + rule.newName;
      if (rule.newId) lines += QString(" id %1").arg(*rule.newId);
      if (rule.rescaling) {
        lines += QString(" * %1 + %2 rounding %3")
                     .arg(rule.rescaling->factor, rule.rescaling->offset)
                     .arg(rule.rescaling->rounding);
      }
      for (const auto& [from, to] : rule.choices) lines += QString(" %1 to %2").arg(from).arg(to);
      for (const auto& [from, to] : rule.bits) lines += QString(" bit %1 to %2").arg(from).arg(to);
      if (!rule.value.isNull()) lines += " value \"" + rule.value + '"';
      if (rule.move)
        lines += QString(" type %1 to %2").arg(rule.move->first).arg(rule.move->second);
      if (rule.isDropped) lines += " drop: " + rule.reason;
      if (!rule.question.isNull()) lines += " ask: " + rule.question;
    }
    return lines.join('\n');
  }

  CMigrationTable mTable;
  QString mTold;
};

/// A content without what no file keeps (which definitions refer to which, and what a definition
/// says of choices or values that it does not have) and without what a save makes of an empty Head.
QString kept(QString content) {
  static const QRegularExpression references("; used by [0-9|]*");
  static const QRegularExpression visibility(";[0-9]+;$", QRegularExpression::MultilineOption);
  content.remove(references).replace(visibility, ";;").replace(";edit;;", ";fixed;;");
  return content.remove("RX5").remove("automatic generated");
}

QString firstDifference(const QString& before, const QString& after) {
  const QStringList old = before.split('\n');
  const QStringList now = after.split('\n');
  for (int i = 0; i < qMax(old.size(), now.size()); ++i)
    if (old.value(i) != now.value(i) || (i < old.size()) != (i < now.size()))
      return "\"" + old.value(i) + "\", \"" + now.value(i) + '"';
  return QString();
}

}  // namespace

std::unique_ptr<CFormat> make(EFormat format) {
  if (format == Settings) return std::make_unique<CSettingsFormat>();
  if (format == Compensation) return std::make_unique<CCompensationFormat>();
  if (format == Migration) return std::make_unique<CMigrationFormat>();
  return std::make_unique<CParameterFormat>(format == Values);
}

QString roundTrip(EFormat format, const QString& fileName, const QString& scratch,
                  const quint32* choice) {
  const auto first = make(format);
  const auto second = make(format);
  if (!first->load(fileName)) return "it is not loaded a second time";
  if (choice != nullptr) first->edit(QRandomGenerator(*choice));
  if (!first->save(scratch)) return "what was loaded cannot be saved";
  if (!second->load(scratch)) return "what was saved cannot be loaded";
  const QString difference = firstDifference(kept(first->content()), kept(second->content()));
  if (!difference.isEmpty()) return "what was saved differs: " + difference;
  const QByteArray bytes = NTestFiles::read(scratch);
  if (!second->save(scratch)) return "what was saved and loaded cannot be saved";
  return bytes == NTestFiles::read(scratch) ? QString() : "saved again the bytes differ";
}

}  // namespace NFormats
