#pragma once

#include "CUniqueList.h"
#include "NParamDef.h"

#include <QHash>

namespace NParamDef {
inline uint qHash(const SNamedI64Value& choice, uint seed = 0) {
  return ::qHash(choice.name, seed) ^ ::qHash(choice.value);
}
}  // namespace NParamDef

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
  /// The first value of that name; false, and the value untouched, when there is none.
  bool valueOfName(const QString& name, qint64& value) const;

 private:
  void index(const NParamDef::SNamedI64Value& choice);

  CUniqueList<NParamDef::SNamedI64Value> mChoices;
  QHash<qint64, QString> mNames;   // of a long list only, else empty
  QHash<QString, qint64> mValues;  // likewise
};
