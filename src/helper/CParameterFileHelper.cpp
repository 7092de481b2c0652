#include "CParameterFileHelper.h"

#include "CDomDoc.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

#include <QFile>
#include <QTextStream>

using namespace NktoGlobal;
using namespace NLumoXmlTags;

namespace {

constexpr int kSearchedLines = 3;
// Enough for three lines; a file without a line break need not be read as a whole.
constexpr int kSearchedBytes = 1024 * 1024;

bool beginsRootTag(const QString& line) {
  return line.startsWith(QLatin1String("<Lumo")) || line.startsWith(QLatin1String("<C_"));
}

EParamFileType detect(const QByteArray& head) {
  QTextStream stream(head, QIODevice::ReadOnly);
  stream.setCodec("UTF-8");  // unless a byte order mark says otherwise; never the locale's
  for (int i = 0; i < kSearchedLines && !stream.atEnd(); ++i) {
    const QString line = stream.readLine();
    if (beginsRootTag(line)) return CParameterFileHelper::fileTypeFromStr(line);
  }
  return FILE_TYPE_NONE;
}

}  // namespace

const QHash<EParamFileType, QString> CParameterFileHelper::mFileTypeStrHash = initFileTypeStrHash();

QHash<EParamFileType, QString> CParameterFileHelper::initFileTypeStrHash() {
  return {{FILE_TYPE_XML_SETTINGS, TAG_ROOT_XML_SETTINGS},
          {FILE_TYPE_COMPENSATION, TAG_ROOT_C_COMPENSATION},
          {FILE_TYPE_PARAMETERS, TAG_ROOT_PARAMETERS},
          {FILE_TYPE_CONFIG_PARAMS, TAG_ROOT_CONF_PARAM},
          {FILE_TYPE_DEVICE_DB, TAG_ROOT_DEVICE_DB},
          {FILE_TYPE_PLUGIN_PARAMS, TAG_ROOT_PLUGIN_PARAM},
          {FILE_TYPE_FIRMWARE_DB, TAG_ROOT_FIRMWARE_DB},
          {FILE_TYPE_LOGIC_DB, TAG_ROOT_LOGIC_DB},
          {FILE_TYPE_OEM_PARAMETERS, TAG_ROOT_OEM_PARAMETERS},
          {FILE_TYPE_MOTOR_PARAMETERS, TAG_ROOT_MOTOR_PARAMETERS},
          {FILE_TYPE_TYPEPLATE_DATA, TAG_ROOT_TYPEPLATE_DATA},
          {FILE_TYPE_OPTION_MODUL_DB, TAG_ROOT_OPTION_MODUL_DB}};
}

QString CParameterFileHelper::fileTypeToStr(EParamFileType type) {
  return mFileTypeStrHash.value(type);
}

EParamFileType CParameterFileHelper::fileTypeFromStr(const QString& text) {
  for (auto it = mFileTypeStrHash.cbegin(); it != mFileTypeStrHash.cend(); ++it) {
    if (text.contains(it.value())) return it.key();
  }
  return FILE_TYPE_NONE;
}

EParamFileType CParameterFileHelper::detectFileType(const QByteArray& data) {
  return detect(QByteArray::fromRawData(data.constData(), qMin(data.size(), kSearchedBytes)));
}

EParamFileType CParameterFileHelper::detectFileType(const QString& fileName) {
  // Not in text mode: that drops bytes of UTF-16. The line ends are the stream's business.
  QFile file(fileName);
  if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly)) return FILE_TYPE_NONE;
  return detect(file.read(kSearchedBytes));
}

QString CParameterFileHelper::comment(const QByteArray& data) {
  CDomDoc doc;
  QString error;
  if (!doc.setHead(data, error)) return {};
  const CDomElement head = CDomDoc::existingSubElement(TAG_HEAD, doc.documentElement());
  return CDomDoc::existingSubElementAsString(TAG_COMMENT, head, QString());
}

quint32 CParameterFileHelper::fileVersion(const QByteArray& data) {
  CDomDoc doc;
  QString error;
  if (!doc.setRoot(data, error)) return 0;
  const CDomElement root = doc.documentElement();
  const QLatin1String name = root.hasAttribute(ATTR_VERSION) ? ATTR_VERSION : ATTR_VERSION_CAPITAL;
  quint32 revision = 0;
  CStr::stringToRevision(root.attribute(name), revision);
  return revision;
}

bool CParameterFileHelper::compareValues(const CParamVal& a, const CParamVal& b,
                                         const CParamDefItem& def) {
  const bool isUnsigned =
      def.type() >= NParamDef::PARAM_TYPE_U8 && def.type() <= NParamDef::PARAM_TYPE_U64;
  return isUnsigned ? a.asU64() == b.asU64() : a == b;
}
