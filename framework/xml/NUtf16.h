#pragma once

#include <QByteArray>

/// Texts in UTF-16 as files hold them.
namespace NUtf16 {

enum EOrder { None, LittleEndian, BigEndian };

/// The byte order, told by the byte order mark or by a first character "<"; None for other texts.
EOrder orderOf(const QByteArray& bytes);

/// Converts an even number of bytes, a byte order mark included. False at a surrogate that has no
/// partner; utf8 then holds what comes before.
bool toUtf8(const QByteArray& bytes, EOrder order, QByteArray& utf8);

}  // namespace NUtf16
