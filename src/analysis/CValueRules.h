#pragma once

#include "CExactNumber.h"
#include "CParamDefItem.h"

#include <QCoreApplication>
#include <QSet>
#include <QVector>

#include <functional>
#include <optional>

/// What a definition demands of a value, made once so that thousands of values are judged quickly,
/// however many choices there are.
class CValueRules {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileChecker)

 public:
  /// In the order of the codes of SParamFinding.
  enum EKind {
    NotOfType,
    NotComparable,
    BelowMinimum,
    AboveMaximum,
    BelowLimitParameter,
    AboveLimitParameter,
    NotAChoice,
    UnnamedBits
  };
  struct SViolation {
    EKind kind;
    QString text;
  };
  using CDefinitionById = std::function<CParamDefItem(quint32 id)>;
  /// The value of a limit parameter, null when there is none.
  using CValueByName = std::function<CParamVal(const QString& name)>;

  CValueRules(const CParamDefItem& definition, const CDefinitionById& definitionById);

  QVector<SViolation> violations(const CParamVal& value, const CValueByName& valueByName) const;

  /// Nothing when there is no such limit, or it is no number of the type.
  std::optional<CExactNumber> minimum() const { return mMinimum.number; }
  std::optional<CExactNumber> maximum() const { return mMaximum.number; }

 private:
  struct SLimit {
    CParamVal text;
    std::optional<CExactNumber> number;
  };
  struct SLimitParameter {
    QString name;
    NParamDef::EParamType type;
  };
  struct SChoices {
    QString message;
    QSet<qint64> values;
  };

  SLimit limit(const CParamVal& text) const;
  static QVector<SLimitParameter> limitParameters(const QList<quint32>& ids,
                                                  const CDefinitionById& definitionById);
  void readChoices(const CParamDefItem& definition);
  bool hasLimits() const;
  void compareWithLimits(const CParamVal& value, const CExactNumber& number,
                         QVector<SViolation>& found) const;
  void compareWithParameters(const CParamVal& value, const CExactNumber& number,
                             const CValueByName& valueByName, QVector<SViolation>& found) const;
  void compareWithChoices(const CParamVal& value, const CExactNumber& number,
                          QVector<SViolation>& found) const;
  void compareWithBits(const CExactNumber& number, QVector<SViolation>& found) const;

  NParamDef::EParamType mType;
  SLimit mMinimum;
  SLimit mMaximum;
  QVector<SLimitParameter> mMinimumParameters;
  QVector<SLimitParameter> mMaximumParameters;
  QVector<SChoices> mChoices;
  std::optional<quint64> mUnnamedBits;  // that the type has; nothing without named bits
};
