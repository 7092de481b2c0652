#include "CSettingsFileImpl.h"

#include "CStr.h"
#include "ICLogfile.h"
#include "NLumoXmlTags.h"
#include "XmlText.h"

#include <QDomElement>

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

bool isBlank(const QString& text) {
  return std::all_of(text.begin(), text.end(),
                     [](QChar c) { return NXmlText::isSpace(c.unicode()); });
}

void setOptionalAttribute(CDomElement element, QLatin1String name, const QString& value) {
  if (!value.isEmpty()) element.setAttribute(name, value);
}

/// Whether a value of that type lacks its text. For all but strings white space is none.
bool isMissing(const QString& text, ICSettingsTreeNode::ESettingsType type) {
  return type != ICSettingsTreeNode::TypeString && isBlank(text);
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

ICSettingsFile::ESettingsError CSettingsFileImpl::load(const QString& fileName,
                                                       const QString& version) {
  startLoad();
  QString error;
  const bool opened = open(fileName, TAG_ROOT_XML_SETTINGS, version, error);
  return finishLoad(opened, tr("File \"%1\" parse error: ").arg(fileName));
}

ICSettingsFile::ESettingsError CSettingsFileImpl::loadFromBuffer(const QByteArray& buffer,
                                                                 const QString& version) {
  startLoad();
  QString error;
  const bool opened = open(buffer, TAG_ROOT_XML_SETTINGS, version, error) == Opened;
  return finishLoad(opened, tr("Bytearray parse error: "));
}

void CSettingsFileImpl::startLoad() {
  mErrorMsg.clear();
  mVersionError = false;
}

ICSettingsFile::ESettingsError CSettingsFileImpl::finishLoad(bool opened, const QString& prefix) {
  ESettingsError result = mVersionError ? VersionError : OpenError;
  if (opened) {
    mRoot = std::make_unique<CSettingsTreeNodeImpl>(TAG_ROOT_XML_SETTINGS,
                                                    ICSettingsTreeNode::TypeGroup);
    result = readGroupFromDom(domDocument().documentElement(), mRoot.get());
  } else {
    mErrorMsg = openError();
  }
  domDocument().clear();
  if (result != NoError) mErrorMsg.prepend(prefix);
  if (opened && result != NoError) setMessageBoardCritical(mErrorMsg);
  return result;
}

ICSettingsFile::ESettingsError CSettingsFileImpl::readGroupFromDom(const CDomElement& element,
                                                                   CSettingsTreeNodeImpl* parent) {
  ESettingsError error = NoError;
  for (CDomElement child = element.firstChildElement(); !child.isNull() && error == NoError;
       child = child.nextSiblingElement()) {
    std::unique_ptr<CSettingsTreeNodeImpl> value = toValue(child, error);
    if (value) {
      parent->addChild(value.release());
    } else if (error == NoError) {
      auto* const group = new CSettingsTreeNodeImpl(child.tagName(), ICSettingsTreeNode::TypeGroup);
      group->setComment(child.attribute(ATTR_COMMENT));
      parent->addChild(group);
      error = readGroupFromDom(child, group);
    }
  }
  return error;
}

std::unique_ptr<CSettingsTreeNodeImpl> CSettingsFileImpl::toValue(const CDomElement& element,
                                                                  ESettingsError& error) {
  if (!element.hasOnlyText()) return nullptr;
  const ESettingsType type = typeFromTag(element.attribute(ATTR_TYPE));
  const QString line = QString::number(element.lineNumber());
  if (type == ICSettingsTreeNode::TypeGroup) {
    error = TypeError;
    mErrorMsg += tr("Error while parsing TAG <%1> in line %2 : "
                    "Unknown or missing attribute \"%3\".")
                     .arg(element.tagName(), line, ATTR_TYPE);
    return nullptr;
  }
  const QString text = element.lastText();
  if (isMissing(text, type)) {
    error = ValueError;
    mErrorMsg += tr("Error while parsing TAG <%1> in line %2 : Missing value Text.")
                     .arg(element.tagName(), line);
    return nullptr;
  }
  auto value = std::make_unique<CSettingsTreeNodeImpl>(element.tagName(), type);
  value->setValue(text);
  value->setUnit(element.attribute(ATTR_UNIT));
  value->setComment(element.attribute(ATTR_COMMENT));
  return value;
}

ICSettingsFile::ESettingsError CSettingsFileImpl::save(const QString& fileName,
                                                       const QString& version) {
  if (!makeDocument(version)) {
    mErrorMsg = tr("File \"%1\": %2").arg(fileName, mErrorMsg);
    return finishSave(false);
  }
  return finishSave(CXmlAbstractLumoFile::save(fileName, mErrorMsg));
}

ICSettingsFile::ESettingsError CSettingsFileImpl::saveToBuffer(QByteArray& buffer,
                                                               const QString& version) {
  return finishSave(makeDocument(version) && CXmlAbstractLumoFile::save(buffer, mErrorMsg));
}

bool CSettingsFileImpl::makeDocument(const QString& version) {
  if (!mRoot) {
    mErrorMsg = tr("There are no settings to save.");
    return false;
  }
  mErrorMsg.clear();
  createNewDocument(TAG_ROOT_XML_SETTINGS, version);
  return appendGroupToDom(domDocument().documentElement(), mRoot.get()) == NoError;
}

ICSettingsFile::ESettingsError CSettingsFileImpl::finishSave(bool saved) {
  domDocument().clear();
  return saved ? NoError : SaveError;
}

ICSettingsFile::ESettingsError CSettingsFileImpl::appendGroupToDom(CDomElement element,
                                                                   const ICSettingsTreeNode* node) {
  ESettingsError error = NoError;
  for (int i = 0; i < node->childCnt() && error == NoError; ++i) {
    const ICSettingsTreeNode* const child = node->childPtr(i);
    if (child->isParam()) {
      error = appendValue(element, *child);
    } else if (child->isGroup()) {
      CDomElement group = element.appendElement(child->name());
      setOptionalAttribute(group, ATTR_COMMENT, child->comment());
      error = appendGroupToDom(group, child);
      if (group.hasOnlyText())  // it would be read as a value
        group.appendComment();
    }
  }
  return error;
}

ICSettingsFile::ESettingsError CSettingsFileImpl::appendValue(CDomElement parent,
                                                              const ICSettingsTreeNode& node) {
  const QString type = tagFromType(node.type());
  const QString text = node.value().asStr();
  if (isMissing(text, node.type())) {
    mErrorMsg = tr("The value <%1> of type %2 has no text, so it could not be loaded again.")
                    .arg(node.name(), type);
    return SaveError;
  }
  CDomElement element = parent.appendElement(node.name());
  element.setAttribute(ATTR_TYPE, type);
  setOptionalAttribute(element, ATTR_UNIT, node.unit());
  setOptionalAttribute(element, ATTR_COMMENT, node.comment());
  CDomDoc::setNodeValue(element, text);
  return NoError;
}

std::unique_ptr<CSettingsTreeNodeImpl> CSettingsFileImpl::toValue(const QDomElement& element,
                                                                  ESettingsError& error) {
  return toValue(CDomDoc::fromDom(element).documentElement(), error);
}

ICSettingsFile::ESettingsError CSettingsFileImpl::readGroupFromDom(const QDomElement& element,
                                                                   CSettingsTreeNodeImpl* parent) {
  return readGroupFromDom(CDomDoc::fromDom(element).documentElement(), parent);
}

ICSettingsFile::ESettingsError CSettingsFileImpl::appendGroupToDom(QDomElement& element,
                                                                   const ICSettingsTreeNode* node) {
  CDomDoc document;
  const CDomElement group = document.createRoot(element.tagName());
  const ESettingsError result = appendGroupToDom(group, node);
  for (CDomElement child = group.firstChildElement(); !child.isNull();
       child = child.nextSiblingElement()) {
    child.toDom(element);
  }
  return result;
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
