#pragma once

#include "SFileInfo.h"
#include "Show.h"

class COutput;

/// Writes "subject = value" lines, each of which can be understood, compared and found alone.
class CTextLines {
 public:
  explicit CTextLines(COutput& out) : mOut(out) {}

  void add(const QString& subject, const QString& value);
  void addUnlessEmpty(const QString& subject, const QString& value);
  /// Type, version, author and comment. Not the date: each save renews it.
  void addHead(const SFileInfo& info, const Show::SHead& head);
  /// A subject alone, for what has no value.
  void addBare(const QString& subject);

 private:
  COutput& mOut;
};
