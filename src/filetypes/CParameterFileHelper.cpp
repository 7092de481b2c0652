#include "CParameterFileHelper.h"

#include "CAtomicFile.h"
#include "CDomDoc.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

using namespace NktoGlobal;
using namespace NLumoXmlTags;

namespace {

constexpr int kSearchedLines = 3;
// Enough for three lines; a file without a line break need not be read as a whole.
constexpr int kSearchedBytes = 1024 * 1024;
// Enough for any Head; the values behind it need not be read.
constexpr qint64 kHeadBytes = 16LL * 1024 * 1024;

bool beginsRootTag(const QString& line) {
  return line.startsWith(QLatin1String("<Lumo")) || line.startsWith(QLatin1String("<C_"));
}

/// By the first character, which is ASCII in all our files. Never the locale's codec.
const char* codecOf(const QByteArray& text) {
  if (text.size() < 2 || (text.at(0) != 0 && text.at(1) != 0)) return "UTF-8";
  return text.at(0) == 0 ? "UTF-16BE" : "UTF-16LE";
}

EParamFileType detect(const QByteArray& head) {
  QTextStream stream(head, QIODevice::ReadOnly);
  stream.setCodec(codecOf(head));  // unless a byte order mark says otherwise
  for (int i = 0; i < kSearchedLines && !stream.atEnd(); ++i) {
    const QString line = stream.readLine();
    if (beginsRootTag(line)) return CParameterFileHelper::fileTypeFromStr(line);
  }
  return FILE_TYPE_NONE;
}

/// Settings and compensation files spell the attribute with a capital letter.
QString versionOf(const CDomElement& root) {
  const QString tag = root.tagName();
  const bool isCapital = tag == TAG_ROOT_XML_SETTINGS || tag == TAG_ROOT_C_COMPENSATION;
  const QLatin1String name = isCapital ? ATTR_VERSION_CAPITAL : ATTR_VERSION;
  const QLatin1String other = isCapital ? ATTR_VERSION : ATTR_VERSION_CAPITAL;
  return root.attribute(root.hasAttribute(name) ? name : other);
}

QString commentOf(const CDomElement& root) {
  const CDomElement head = CDomDoc::existingSubElement(TAG_HEAD, root);
  return CDomDoc::existingSubElementAsString(TAG_COMMENT, head, QString());
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
  EParamFileType first = FILE_TYPE_NONE;
  int firstPosition = text.size();
  for (auto it = mFileTypeStrHash.cbegin(); it != mFileTypeStrHash.cend(); ++it) {
    const int position = text.indexOf(it.value());
    if (position >= 0 && position < firstPosition) {
      first = it.key();
      firstPosition = position;
    }
  }
  return first;
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

SFileBeginning CParameterFileHelper::readBeginning(const QByteArray& data) {
  SFileBeginning found;
  found.isRead = true;
  CDomDoc doc;
  if (!doc.setRoot(data, found.error)) return found;
  found.rootTag = doc.documentElement().tagName();
  found.version = versionOf(doc.documentElement());
  found.comment = comment(data);
  return found;
}

SFileBeginning CParameterFileHelper::readBeginning(const QString& fileName) {
  SFileBeginning found;
  QFile file(fileName);
  if (QFileInfo(fileName).isFile() && file.open(QIODevice::ReadOnly)) {
    found = readBeginning(file.read(kHeadBytes));
    if (!found.rootTag.isEmpty() || file.atEnd()) return found;
  }
  // It cannot be read, or not by that much: what a load reads tells.
  QByteArray content;
  found.isRead = CAtomicFile::read(fileName, content, found.error);
  return found.isRead ? readBeginning(content) : found;
}

QString CParameterFileHelper::comment(const QByteArray& data) {
  CDomDoc doc;
  QString error;
  return doc.setHead(data, error) ? commentOf(doc.documentElement()) : QString();
}

quint32 CParameterFileHelper::fileVersion(const QByteArray& data) {
  CDomDoc doc;
  QString error;
  if (!doc.setRoot(data, error)) return 0;
  quint32 revision = 0;
  CStr::stringToRevision(versionOf(doc.documentElement()), revision);
  return revision;
}

bool CParameterFileHelper::compareValues(const CParamVal& a, const CParamVal& b,
                                         const CParamDefItem& def) {
  const bool isUnsigned =
      def.type() >= NParamDef::PARAM_TYPE_U8 && def.type() <= NParamDef::PARAM_TYPE_U64;
  return isUnsigned ? a.asU64() == b.asU64() : a == b;
}
