#pragma once

#include <QStringList>

class CLoadedFile;

/// Definitions by what is typed.
namespace NDefinitionLookup {

/// The names that are meant by words: the definition of that name, or of the name in an address;
/// else, for a word with "*" or "?", all that it matches; else the one with that id, in decimal or
/// with "0x". Each is listed
/// once, in the order of the words and then of the file. Words that mean none are reported and
/// added to `unknown`.
QStringList namesOf(const QStringList& words, const CLoadedFile& loaded, QStringList& unknown);

}  // namespace NDefinitionLookup
