#pragma once

#include "SMergeConflict.h"

/// The rule of every merge, for one thing that may have changed.
namespace NThreeWay {

enum EChoice { Ours, Theirs, Conflict };

/// Without a base (a null pointer) both sides added the thing.
template <typename T>
EChoice choose(const T* base, const T& ours, const T& theirs) {
  if (base != nullptr && theirs == *base) return Ours;
  if (base != nullptr && ours == *base) return Theirs;
  return ours == theirs ? Ours : Conflict;
}

/// A conflict without its place. Texts; the base is a null pointer when both sides added the thing.
inline SMergeConflict conflict(SMergeConflict::ESubject subject, const QString* base,
                               const QString& ours, const QString& theirs) {
  SMergeConflict made;
  made.subject = subject;
  made.kind = base != nullptr ? SMergeConflict::BothChanged : SMergeConflict::BothAdded;
  made.base = base != nullptr ? *base : QString();
  made.ours = ours;
  made.theirs = theirs;
  return made;
}

}  // namespace NThreeWay
