// Writing of settings files.

#include "CSettingsFileImpl.h"
#include "NLumoXmlTags.h"

#include <QDomElement>

using namespace NLumoXmlTags;

namespace {

void setOptionalAttribute(CDomElement element, QLatin1String name, const QString& value) {
  if (!value.isEmpty()) element.setAttribute(name, value);
}

}  // namespace

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
