#include "CLabels.h"

#include "NDisplayText.h"
#include "NShortText.h"

QString CLabels::of(const QString& text) const {
  if (text.size() <= NShortText::kLongest) return NShortText::of(text);
  const std::lock_guard lock(mMutex);
  const auto [known, isNew] = mLong.try_emplace(text.constData());
  if (isNew) known->second = {text, NShortText::of(text)};
  return known->second.shortened;
}

QJsonArray CLabels::of(const QStringList& texts) const {
  QJsonArray array;
  for (const QString& text : texts) array.append(of(text));
  return array;
}

QString CLabels::shown(const QString& text) const {
  return NDisplayText::shown(of(text));
}

QString CLabels::shownOrNothing(const QString& text) const {
  return NDisplayText::shownOrNothing(of(text));
}
