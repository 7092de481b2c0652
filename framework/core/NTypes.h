#pragma once

#include <limits>

/// Limits of the integer types that parameters have, each of exactly the type it limits.
namespace NTypes {

constexpr unsigned char U8_MIN = std::numeric_limits<unsigned char>::min();
constexpr unsigned char U8_MAX = std::numeric_limits<unsigned char>::max();
constexpr unsigned short U16_MIN = std::numeric_limits<unsigned short>::min();
constexpr unsigned short U16_MAX = std::numeric_limits<unsigned short>::max();
constexpr unsigned int U32_MIN = std::numeric_limits<unsigned int>::min();
constexpr unsigned int U32_MAX = std::numeric_limits<unsigned int>::max();
constexpr unsigned long long U64_MIN = std::numeric_limits<unsigned long long>::min();
constexpr unsigned long long U64_MAX = std::numeric_limits<unsigned long long>::max();
constexpr signed char I8_MIN = std::numeric_limits<signed char>::min();
constexpr signed char I8_MAX = std::numeric_limits<signed char>::max();
constexpr short I16_MIN = std::numeric_limits<short>::min();
constexpr short I16_MAX = std::numeric_limits<short>::max();
constexpr int I32_MIN = std::numeric_limits<int>::min();
constexpr int I32_MAX = std::numeric_limits<int>::max();
constexpr long long I64_MIN = std::numeric_limits<long long>::min();
constexpr long long I64_MAX = std::numeric_limits<long long>::max();

}  // namespace NTypes
