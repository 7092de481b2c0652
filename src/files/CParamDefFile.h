#pragma once

#include "CKeyedMap.h"
#include "CParamBaseFile.h"
#include "CParamDefItem.h"

#include <QVector>

using CParamDefinitions = CKeyedMap<QString, CParamDefItem>;

/// Reads and writes parameter definition files.
class CParamDefFile : public CParamBaseFile {
  Q_DECLARE_TR_FUNCTIONS(CParamDefFile)

 public:
  CParamDefFile(ICLogfile* logfile, CParameterFileErrorHandler* handler);

  using CXmlAbstractLumoFile::open;
  using CXmlAbstractLumoFile::save;

  /// Reads every definition; the first that fails ends it, with the reason in errorMsg().
  bool open(const QString& fileName, const QString& version);
  /// Writes the definitions by id and then by name. Fails, writing nothing, when two of them have
  /// one name or one id.
  bool save(const QString& fileName, const CParamDefinitions& definitions, const QString& version);
  /// The same for definitions that are in that order.
  bool save(const QString& fileName, const QVector<const CParamDefItem*>& sorted,
            const QString& version);

  static void sortByIdAndName(QVector<const CParamDefItem*>& definitions);

  /// What the last open() read.
  const CParamDefinitions& paramDefinitions() const { return mDefinitions; }
  const CKeyedMap<quint32, QString>& nameByIdHash() const { return mNameById; }

  /// Reads one "Param" into the definitions.
  bool readParamDefinitionFromDom(const CDomElement& param);
  bool readParamDefinitionFromDom(const QDomElement& param);
  bool readParameterTypeFromDom(const CDomElement& param, quint32 id, NParamDef::EParamType& type);
  bool readNamedI64ValuesFromDom(const CDomElement& section,
                                 QList<NParamDef::SNamedI64Value>& values);
  bool readBitsetFromDom(const CDomElement& section, QList<NParamDef::SBitValue>& bits);
  bool readBitsetFromDom(QDomElement& section, QList<NParamDef::SBitValue>& bits);
  /// Puts a definition under its name and id; false with a message when the name is taken.
  bool enterDefinition(const CParamDefItem& definition);

  static void appendParamDefinitionToDom(CDomElement data, const CParamDefItem& definition);
  static void appendParamDefinitionToDom(QDomElement& data, const CParamDefItem& definition);
  static void appendNamedI64ValuesToDom(CDomElement section,
                                        const QList<NParamDef::SNamedI64Value>& values);
  static void appendBitsetToDom(CDomElement section, const QList<NParamDef::SBitValue>& bits);

  // Lists of decimal numbers separated by single blanks; pieces that are not numbers are dropped.
  static QList<quint32> idListFromStr(const QString& text);
  static QString idListToStr(const QList<quint32>& ids);
  static QList<qint64> valueListFromStr(const QString& text);
  static QString valueListToStr(const QList<qint64>& values);

  /// Whether the minimum is not above the maximum.
  static bool limitsFit(const CParamDefItem& definition);

  bool handleVersionError(const QString& version, const QString& otherVersion) override;

 private:
  bool readDefinitions();
  bool readKey(const CDomElement& param, quint32& id, QString& name, NParamDef::EParamType& type);
  bool readPlainParts(const CDomElement& param, CParamDefItem& definition);
  bool readUnit(const CDomElement& param, CParamDefItem& definition);
  bool readChoices(const CDomElement& param, CParamDefItem& definition);
  bool readCheck(const CDomElement& param, CParamDefItem& definition);
  bool readBits(const CDomElement& param, CParamDefItem& definition);
  bool readVisibleValues(const CDomElement& param, CParamDefItem& definition);
  bool prefixSection(quint32 id, QLatin1String section);

  bool canBeReadAgain(const QVector<const CParamDefItem*>& sorted);
  static QString limitsMessage(const CParamDefItem& definition);
  static QString reservedNameMessage(quint32 id, const QString& name);
  static void appendChoicesToDom(CDomElement param, const CParamDefItem& definition);

  CParamDefinitions mDefinitions;
  CKeyedMap<quint32, QString> mNameById;  // of those that have an id
};
