#include "CChoiceList.h"

#include <algorithm>
#include <limits>

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

qint64 CChoiceList::valueOfName(const QString& name, bool& ok) const {
  constexpr qint64 kNoValue = std::numeric_limits<qint64>::min();
  if (mChoices.isIndexed()) {
    ok = mValues.contains(name);
    return mValues.value(name, kNoValue);
  }
  const auto choice =
      std::find_if(list().cbegin(), list().cend(),
                   [&name](const SNamedI64Value& each) { return each.name == name; });
  ok = choice != list().cend();
  return ok ? choice->value : kNoValue;
}
