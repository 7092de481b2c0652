#pragma once

#include "CAtomicFile.h"

/// Limits that reading and writing share, so that what is written can be read.
namespace NXmlLimits {

constexpr int kMaxDepth = 1024;
constexpr int kMaxAttributes = 256;
constexpr size_t kMaxMarkUp = 5U << 20U;  ///< elements and attributes, which cost most to read
constexpr size_t kMaxNodes = 1U << 23U;   ///< of a document: the same and texts
constexpr size_t kMaxNames = 1U << 18U;   ///< different names of elements and attributes
constexpr qint64 kMaxBytes = CAtomicFile::kMaxBytes;
constexpr size_t kMaxText = 3 * kMaxBytes;  ///< in UTF-8; a file that may be read holds no more

}  // namespace NXmlLimits
