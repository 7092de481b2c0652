#pragma once

#include "CSettingsTreeNodeImpl.h"
#include "CXmlAbstractLumoFile.h"
#include "ICLogfile.h"
#include "ICSettingsFile.h"

#include <QStringList>

#include <memory>

class QDomElement;

/// The settings file: turns the document's elements into the tree and back.
class CSettingsFileImpl : public ICSettingsFile, public CXmlAbstractLumoFile {
  Q_DECLARE_TR_FUNCTIONS(CSettingsFileImpl)

 public:
  using ESettingsType = ICSettingsTreeNode::ESettingsType;

  /// The type names, each at the position of its type.
  static const QStringList mTypeTags;
  static ESettingsType typeFromTag(const QString& tag);  ///< exact; the group for an unknown name
  static QString tagFromType(ESettingsType type);        ///< empty for an unknown type

  explicit CSettingsFileImpl(ICLogfile* logfile);

  QString errorMsg() const override { return mErrorMsg; }
  void clear() override { mRoot.reset(); }
  ESettingsError load(const QString& fileName, const QString& version) override;
  ESettingsError loadFromBuffer(const QByteArray& buffer, const QString& version) override;
  ESettingsError save(const QString& fileName, const QString& version) override;
  ESettingsError saveToBuffer(QByteArray& buffer, const QString& version) override;
  ICSettingsTreeNode* root() override { return mRoot.get(); }
  bool handleVersionError(const QString& fileVersion, const QString& expectedVersion) override;

  /// The value of an element; null for a group, and with an error for a value that is faulty.
  std::unique_ptr<CSettingsTreeNodeImpl> toValue(const CDomElement& element, ESettingsError& error);
  /// Appends the element's children to the node until one is faulty.
  ESettingsError readGroupFromDom(const CDomElement& element, CSettingsTreeNodeImpl* parent);
  /// Appends the node's children to the element until one could not be loaded again.
  ESettingsError appendGroupToDom(CDomElement element, const ICSettingsTreeNode* node);

  // The same on Qt's document.
  std::unique_ptr<CSettingsTreeNodeImpl> toValue(const QDomElement& element, ESettingsError& error);
  ESettingsError readGroupFromDom(const QDomElement& element, CSettingsTreeNodeImpl* parent);
  ESettingsError appendGroupToDom(QDomElement& element, const ICSettingsTreeNode* node);

 private:
  using CXmlAbstractLumoFile::save;

  /// Whether a value of that type lacks its text. White space alone is a text for strings only.
  static bool isMissing(const QString& text, ESettingsType type);

  void startLoad();
  ESettingsError finishLoad(bool opened, const QString& prefix);
  bool makeDocument(const QString& version);
  ESettingsError appendValue(CDomElement parent, const ICSettingsTreeNode& node);
  ESettingsError finishSave(bool saved);

  QString mErrorMsg;
  bool mVersionError = false;
  std::unique_ptr<CSettingsTreeNodeImpl> mRoot;
  const std::unique_ptr<ICLogfile> mOwnLogfile;  ///< null when the application gave one
};
