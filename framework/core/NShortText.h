#pragma once

#include "ktoFramework_export.h"

#include <QString>

/// Names and paths from a file in a length that output, messages and records can bear. A name of a
/// megabyte, or a path of long names, that stands beside each of ten thousand values would fill
/// gigabytes.
namespace NShortText {

/// Characters that a text may have to stay as it is.
constexpr int kLongest = 1000;

/// The text, or of a longer one its beginning and its end, and between them a number of 32
/// hexadecimal digits: "aaaa…#3f08…9c…zzzz", 235 characters. The number is made of the whole
/// text and is the same in every process; different texts give different results. So a text that
/// holds "…#" gets a number, too, and a result must not be shortened a second time.
KTOFRAMEWORK_EXPORT QString of(const QString& text);

/// The path of a group within another one, whose path is given, or null for the root: names joined
/// by "/", never null. A long one is shortened from group to group, in time that grows with the
/// names.
KTOFRAMEWORK_EXPORT QString below(const QString& path, const QString& name);

}  // namespace NShortText
