#pragma once

#include "ktoFramework_export.h"

#include <QDate>
#include <QString>

/// What the "Head" of a file says about it: date, author and comment. A plain value.
///
/// In the file the date is written as yyyy-MM-dd; a missing or unreadable date is a null date.
class KTOFRAMEWORK_EXPORT CXMLMetaData {
 public:
  CXMLMetaData() = default;

  QDate date() const { return mDate; }
  void setDate(const QDate& date) { mDate = date; }

  QString author() const { return mAuthor; }
  void setAuthor(const QString& author) { mAuthor = author; }

  QString comment() const { return mComment; }
  void setComment(const QString& comment) { mComment = comment; }

  /// True when there is no date, no author and no comment.
  bool isEmpty() const { return mDate.isNull() && mAuthor.isEmpty() && mComment.isEmpty(); }

 private:
  QDate mDate;
  QString mAuthor;
  QString mComment;
};
