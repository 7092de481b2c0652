#pragma once

#include "CNodeText.h"
#include "NParamDef.h"

#include <QHash>
#include <QString>
#include <QVariant>

/// What a node of a parameter tree is: name, id, sub-device and free properties. The id alone tells
/// a group from a parameter. There are hundreds of thousands, so it is kept small.
class CParamNodeData {
 public:
  static constexpr quint8 kNoSubDevId = 0xFF;
  /// The name that marks a payload nobody has filled; it is neither group nor parameter.
  static constexpr std::string_view kStandardConstructed = "[standard constructed]";
  static const QString mStandardConstructedStr;  ///< the same

  CParamNodeData() = default;
  CParamNodeData(unsigned char subDevId, const QString& name, unsigned int id)
      : CParamNodeData(subDevId, CNodeText(name), id) {}
  CParamNodeData(unsigned char subDevId, CNodeText name, unsigned int id)
      : mName(std::move(name)), mId(id), mSubDevId(subDevId) {}

  bool isValid() const { return mName.view() != kStandardConstructed; }
  bool isGroup() const { return isValid() && mId == NParamDef::NO_ID; }
  bool isParam() const { return isValid() && mId != NParamDef::NO_ID; }

  QString name() const { return mName.toQString(); }
  std::string_view nameUtf8() const { return mName.view(); }  ///< without a copy
  unsigned int id() const { return mId; }
  void setId(unsigned int id) { mId = id; }
  unsigned char subDevId() const { return mSubDevId; }
  void setSubDevId(unsigned char subDevId) { mSubDevId = subDevId; }

  void setProperty(const QString& key, const QVariant& value) { mProperties.insert(key, value); }
  QVariant property(const QString& key) const { return mProperties.value(key); }
  bool removeProperty(const QString& key) { return mProperties.remove(key) > 0; }
  void removeAllProperties() { mProperties.clear(); }
  void setPropertiesOf(const CParamNodeData& other) { mProperties = other.mProperties; }

 private:
  CNodeText mName = CNodeText::pieceOf(kStandardConstructed);
  quint32 mId = NParamDef::NO_ID;
  quint8 mSubDevId = kNoSubDevId;
  QHash<QString, QVariant> mProperties;
};
