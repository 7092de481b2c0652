#pragma once

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

}  // namespace NThreeWay
