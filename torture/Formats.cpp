#include "Formats.h"

#include "ICCompensationFile.h"
#include "ICParameterFile.h"
#include "ICSettingsFile.h"
#include "ParamFileText.h"
#include "Torture.h"

#include <QRegularExpression>

namespace NFormats {

namespace {

constexpr quint32 kVersion = 0x10000;
const QString kVersionText = "1.0";

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
  QString content() override { return NParamFileText::content(*mFile); }
  QString state() override { return NParamFileText::all(*mFile); }
  void edit(unsigned choice) override {
    if (mValues)
      mFile->setMetaData("author", mFile->comment());
    else
      mFile->setDefMetaData("author", mFile->defComment());
    const QStringList definitions = mFile->defNames();
    if (!definitions.isEmpty()) {
      CParamDefItem* item = mFile->paramDefPtr(
          definitions.at(static_cast<int>(choice % unsigned(definitions.size()))));
      item->setHint("hint");
      item->addEnum(choice, "choice");
    }
    for (const quint8 id : mFile->subDeviceIds()) {
      for (const QString& name : mFile->paramNames(id)) mFile->setParamValue(name, choice, id);
      mFile->subGroup("new/group", id);
    }
    if (mFile->containsHardwareId(mFile->hardwareId()))
      mFile->cloneHardwareId(mFile->hardwareId(), "clone");
  }
  bool keepsContent() const override { return true; }

 private:
  const bool mValues;
  const std::unique_ptr<ICParameterFile> mFile;
};

class CSettingsFormat : public CFormat {
 public:
  bool load(const QString& fileName) override {
    mResult = mFile->load(fileName, kVersionText);
    return mResult == ICSettingsFile::NoError;
  }
  bool loadBuffer(const QByteArray& bytes) override {
    mResult = mFile->loadFromBuffer(bytes, kVersionText);
    return mResult == ICSettingsFile::NoError;
  }
  bool save(const QString& fileName) override {
    mResult = mFile->save(fileName, kVersionText);
    return mResult == ICSettingsFile::NoError;
  }
  QString told() const override {
    return QStringLiteral("%1: %2").arg(QString::number(mResult), mFile->errorMsg());
  }
  QString content() override {
    QString text;
    append(mFile->root(), 0, text);
    return text;
  }
  void edit(unsigned choice) override {
    ICSettingsTreeNode* node = mFile->root();
    while (node != nullptr) {
      node->setComment("comment");
      if (node->isParam()) node->setValue(choice);
      node = node->childPtr(node->childCnt() - 1);
    }
  }
  bool keepsContent() const override {
    return mResult == ICSettingsFile::OpenError || mResult == ICSettingsFile::VersionError;
  }

 private:
  static void append(const ICSettingsTreeNode* node, int depth, QString& text) {
    if (node == nullptr) return;
    text += QString(depth, ' ') +
            QStringList{QString::number(node->type()), node->name(), node->value(), node->unit(),
                        depth > 0 ? node->comment() : QString()}
                .join(';') +
            '\n';
    for (int i = 0; i < node->childCnt(); ++i) append(node->childPtr(i), depth + 1, text);
  }

  const std::unique_ptr<ICSettingsFile> mFile{ICSettingsFile::create(nullptr)};
  ICSettingsFile::ESettingsError mResult = ICSettingsFile::NoError;
};

class CCompensationFormat : public CFormat {
 public:
  bool load(const QString& fileName) override {
    mResult = mFile->load(fileName, kVersionText);
    return mResult == ICCompensationFile::Ok;
  }
  bool loadBuffer(const QByteArray& bytes) override {
    mResult = mFile->loadFromBuffer(bytes, kVersionText);
    return mResult == ICCompensationFile::Ok;
  }
  bool save(const QString& fileName) override {
    mResult = mFile->save(fileName, kVersionText);
    return mResult == ICCompensationFile::Ok;
  }
  QString told() const override {
    return QStringLiteral("%1: %2").arg(QString::number(mResult), mFile->errorMsg());
  }
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
  void edit(unsigned choice) override {
    CCompensationPoint point;
    point.setPosition(choice);
    mFile->appendPoint(point);
    mFile->setPoint(0, point);
    mFile->removePoint(1);
    mFile->checkAllPoints(nullptr);
  }
  bool keepsContent() const override { return false; }

 private:
  const std::unique_ptr<ICCompensationFile> mFile{ICCompensationFile::create(nullptr)};
  int mResult = ICCompensationFile::Ok;
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
  switch (format) {
    case Settings:
      return std::make_unique<CSettingsFormat>();
    case Compensation:
      return std::make_unique<CCompensationFormat>();
    default:
      return std::make_unique<CParameterFormat>(format == Values);
  }
}

QString roundTrip(EFormat format, const QString& fileName, const QString& scratch,
                  const unsigned* choice) {
  const auto first = make(format);
  const auto second = make(format);
  if (!first->load(fileName)) return "it is not loaded a second time";
  if (choice != nullptr) first->edit(*choice);
  if (!first->save(scratch)) return "what was loaded cannot be saved";
  if (!second->load(scratch)) return "what was saved cannot be loaded";
  const QString difference = firstDifference(kept(first->content()), kept(second->content()));
  if (!difference.isEmpty()) return "what was saved differs: " + difference;
  const QByteArray bytes = NTorture::readFile(scratch);
  if (!second->save(scratch)) return "what was saved and loaded cannot be saved";
  return bytes == NTorture::readFile(scratch) ? QString() : "saved again the bytes differ";
}

}  // namespace NFormats
