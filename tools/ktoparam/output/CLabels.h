#pragma once

#include <QJsonArray>
#include <QStringList>

#include <map>
#include <mutex>

/// Names, paths, hints, units and other texts that are shown with values, shortened when they are
/// very long. Values are never shortened. Long ones are remembered, since one may be shown with
/// each of a hundred thousand values. Thread-safe.
class CLabels {
 public:
  /// As NShortText::of() shortens it.
  QString of(const QString& text) const;
  QJsonArray of(const QStringList& texts) const;
  /// The same, as DisplayText shows it.
  QString shown(const QString& text) const;
  QString shownOrNothing(const QString& text) const;

 private:
  struct SLong {
    QString text;  // kept, so that no other text comes to lie where it lies
    QString shortened;
  };
  mutable std::mutex mMutex;                    // of mLong
  mutable std::map<const QChar*, SLong> mLong;  // by where the text lies
};
