// Reading of settings files.

#include "CSettingsFileImpl.h"
#include "NLumoXmlTags.h"

#include <QDomElement>

using namespace NLumoXmlTags;

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

std::unique_ptr<CSettingsTreeNodeImpl> CSettingsFileImpl::toValue(const QDomElement& element,
                                                                  ESettingsError& error) {
  return toValue(CDomDoc::fromDom(element).documentElement(), error);
}

ICSettingsFile::ESettingsError CSettingsFileImpl::readGroupFromDom(const QDomElement& element,
                                                                   CSettingsTreeNodeImpl* parent) {
  return readGroupFromDom(CDomDoc::fromDom(element).documentElement(), parent);
}
