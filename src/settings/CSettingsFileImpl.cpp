// What reading and writing share: the types, and which texts are values.

#include "CSettingsFileImpl.h"

#include "CStr.h"
#include "NLumoXmlTags.h"
#include "NXmlText.h"

#include <algorithm>

using namespace NLumoXmlTags;

const QStringList CSettingsFileImpl::mTypeTags = {
    QString(),       VAL_TYPE_UINT8,  VAL_TYPE_UINT16, VAL_TYPE_UINT32,
    VAL_TYPE_UINT64, VAL_TYPE_INT8,   VAL_TYPE_INT16,  VAL_TYPE_INT32,
    VAL_TYPE_INT64,  VAL_TYPE_REAL64, VAL_TYPE_STRING, VAL_TYPE_BOOLEAN,
};

namespace {

ICLogfile* makeSilentLogfile() {
  const QString name = CStr::createLogFileName(QStringLiteral("ICSettingsFile"));
  return ICLogfile::createLogfile(ICLogfile::LogFile, name, 0);
}

}  // namespace

CSettingsFileImpl::ESettingsType CSettingsFileImpl::typeFromTag(const QString& tag) {
  return static_cast<ESettingsType>(std::max(mTypeTags.indexOf(tag), 0));
}

QString CSettingsFileImpl::tagFromType(ESettingsType type) {
  return mTypeTags.value(type);
}

CSettingsFileImpl::CSettingsFileImpl(ICLogfile* logfile)
    : CXmlAbstractLumoFile(logfile != nullptr ? logfile : makeSilentLogfile(),
                           ATTR_VERSION_CAPITAL),
      mOwnLogfile(logfile != nullptr ? nullptr : this->logfile()) {}

bool CSettingsFileImpl::isMissing(const QString& text, ESettingsType type) {
  return type != ICSettingsTreeNode::TypeString &&
         std::all_of(text.begin(), text.end(),
                     [](QChar c) { return NXmlText::isSpace(c.unicode()); });
}

bool CSettingsFileImpl::handleVersionError(const QString& fileVersion,
                                           const QString& expectedVersion) {
  unsigned int file = 0;
  unsigned int expected = 0;
  const bool accepted =
      fileVersion.isEmpty() ||
      (CStr::stringToRevision(fileVersion, file) &&
       CStr::stringToRevision(expectedVersion, expected) && file >> 16 == expected >> 16);
  mVersionError = !accepted;
  return accepted;
}
