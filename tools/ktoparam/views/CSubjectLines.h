#pragma once

#include <QString>

class CLabels;
class CLoadedFile;
class COutput;

/// Writes "subject = value" lines, each of which can be understood, compared and found alone.
/// Different files must give different lines: subjects have no "=" but in quotes, and names in them
/// are as SAddress::quoted() writes them.
class CSubjectLines {
 public:
  /// Each subject begins with the lead.
  explicit CSubjectLines(COutput& out, const QString& lead = {}) : mOut(out), mLead(lead) {}

  void add(const QString& subject, const QString& value);
  void addUnlessEmpty(const QString& subject, const QString& value);
  /// Lines of one thing, all with its name and "/" in front.
  CSubjectLines of(const QString& name) const;
  /// Type, version as it is written, author and comment. Not the date: each save renews it.
  void addHead(const CLoadedFile& loaded);
  /// For subjects, and for names, hints and the like, which are shortened when long.
  const CLabels& labels() const;
  /// A subject alone, for what has no value.
  void addBare(const QString& subject);

 private:
  COutput& mOut;
  const QString mLead;
};
