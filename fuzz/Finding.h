#pragma once

#include <QString>

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size);

/// A broken promise ends the process, which is what fuzzers look for.
namespace NFuzz {

/// Whether the last input was a file that could be loaded.
inline bool isLoaded = false;

inline void require(bool isKept, const QString& promise) {
  if (!isKept) {
    std::fprintf(stderr, "BROKEN: %s\n", qPrintable(promise));
    std::abort();
  }
}

}  // namespace NFuzz
