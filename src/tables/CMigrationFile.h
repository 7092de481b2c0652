#pragma once

#include "CMigrationTable.h"
#include "CXmlAbstractLumoFile.h"

#include <QStringList>

/// The file of a migration table. People write it, so whatever is not known is refused: what was
/// mistyped would else be passed over, and with it a rule.
class CMigrationFile : public CXmlAbstractLumoFile {
  Q_DECLARE_TR_FUNCTIONS(CMigrationFile)

 public:
  /// The names of the ways to round, each at the position of its number.
  static const QStringList mRoundings;
  /// The tags of what a rule makes of the value, of which one is allowed at most.
  static QStringList conversionsOf(const SMigrationRule& rule);
  /// Whether a text is a decimal number or a fraction of two.
  static bool isNumber(const QString& text);
  static bool isZero(const QString& number);

  CMigrationFile();

  // On failure the error names the file.
  bool load(const QString& fileName, CMigrationTable& table, QString& error);
  bool save(const QString& fileName, const CMigrationTable& table, QString& error);
  bool save(QByteArray& buffer, const CMigrationTable& table, QString& error);

  bool handleVersionError(const QString& fileVersion, const QString& expectedVersion) override;

 private:
  using CXmlAbstractLumoFile::save;

  bool readTable(CMigrationTable& table);
  bool readEnds(CDomElement& element, CMigrationTable& table);
  bool readEnd(const CDomElement& element, QLatin1String tag, const QStringList& attributes,
               QString& release);
  bool readVersion(const CDomElement& element, QString& version);
  bool readGroup(const CDomElement& element, SMigrationGroup& group);
  bool readRule(const CDomElement& element, SMigrationRule& rule);
  bool readNames(const CDomElement& element, SMigrationRule& rule);
  bool readPart(const CDomElement& element, SMigrationRule& rule);
  bool readRescaling(const CDomElement& element, SMigrationRule& rule);
  bool readChoice(const CDomElement& element, SMigrationRule& rule);
  bool readBit(const CDomElement& element, SMigrationRule& rule);
  bool readMove(const CDomElement& element, SMigrationRule& rule);
  bool readValue(const CDomElement& element, SMigrationRule& rule);
  bool readDrop(const CDomElement& element, SMigrationRule& rule);
  bool readAsk(const CDomElement& element, SMigrationRule& rule);
  bool checkParts(const CDomElement& element, const SMigrationRule& rule);

  bool holdsOnly(const CDomElement& element, const QStringList& attributes);
  bool hasNoChildren(const CDomElement& element);
  bool hasNoAttributesBut(const CDomElement& element, const QStringList& attributes);
  bool readSentence(const CDomElement& element, QString& sentence);
  bool readAttribute(const CDomElement& element, QLatin1String name, QString& value);
  bool readNumber(const CDomElement& element, QLatin1String name, QString& number);
  bool readBitPosition(const CDomElement& element, QLatin1String name, int& position);
  bool readSubDeviceType(const CDomElement& element, QLatin1String name,
                         NParamDef::ESubDeviceTypes& type);

  bool isNot(const CDomElement& element, QLatin1String attribute, const QString& what);
  bool isUnknown(const CDomElement& element, const QString& parentTag);
  bool standsTwice(const CDomElement& element, bool isSet);
  bool fail(const CDomElement& element, const QString& text);

  bool makeDocument(const CMigrationTable& table, QString& error);
  static bool appendRule(CDomElement root, const SMigrationRule& rule, QString& error);
  static QString textOfProposal(const SMigrationRule& rule, QString& error);
  static void appendParameter(CDomElement root, const SMigrationRule& rule);
  static void appendParts(CDomElement parameter, const SMigrationRule& rule);
  bool canBeReadAgain(QString& error) const;

  QString mError;
  QString mName;  ///< of the parameter, or path of the group, that is read; null outside
};
