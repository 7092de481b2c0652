#include "CChoiceList.h"

using NParamDef::SNamedI64Value;

bool CChoiceList::add(const SNamedI64Value& choice) {
  const bool wasIndexed = mChoices.isIndexed();
  if (!mChoices.add(choice)) return false;
  if (wasIndexed)
    index(choice);
  else if (mChoices.isIndexed())
    for (const SNamedI64Value& each : list()) index(each);
  return true;
}

void CChoiceList::index(const SNamedI64Value& choice) {
  if (!choice.name.isEmpty() && !mNames.contains(choice.value))
    mNames.insert(choice.value, choice.name);
  if (!mValues.contains(choice.name)) mValues.insert(choice.name, choice.value);
}

QString CChoiceList::nameOfValue(qint64 value) const {
  if (mChoices.isIndexed()) return mNames.value(value);
  for (const SNamedI64Value& choice : list())
    if (choice.value == value && !choice.name.isEmpty()) return choice.name;
  return {};
}

bool CChoiceList::valueOfName(const QString& name, qint64& value) const {
  if (mChoices.isIndexed()) {
    const auto it = mValues.constFind(name);
    if (it == mValues.constEnd()) return false;
    value = it.value();
    return true;
  }
  for (const SNamedI64Value& choice : list()) {
    if (choice.name != name) continue;
    value = choice.value;
    return true;
  }
  return false;
}
