#pragma once

#include "CUniqueList.h"
#include "NParamDef.h"

#include <QMap>

#include <set>
#include <tuple>

/// The choices of an enumeration or of radio buttons, found by value and by name. Enumerations with
/// tens of thousands of choices exist, so a long list also has an index for both.
class CChoiceList {
 public:
  const QList<NParamDef::SNamedI64Value>& list() const { return mChoices.list(); }
  bool isEmpty() const { return mChoices.isEmpty(); }
  bool contains(const NParamDef::SNamedI64Value& choice) const { return mChoices.contains(choice); }
  bool add(const NParamDef::SNamedI64Value& choice);

  /// The first name of that value that is not empty; null when there is none.
  QString nameOfValue(qint64 value) const;
  /// The first value of that name; the smallest 64-bit number when there is none.
  qint64 valueOfName(const QString& name, bool& ok) const;

 private:
  void index(const NParamDef::SNamedI64Value& choice);

  struct SLess {
    bool operator()(const NParamDef::SNamedI64Value& a, const NParamDef::SNamedI64Value& b) const {
      return std::tie(a.value, a.name) < std::tie(b.value, b.name);
    }
  };

  CUniqueList<NParamDef::SNamedI64Value, std::set<NParamDef::SNamedI64Value, SLess>> mChoices;
  QMap<qint64, QString> mNames;   // of a long list only, else empty
  QMap<QString, qint64> mValues;  // likewise
};
