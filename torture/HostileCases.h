#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

/// Files that mean harm, with what is to become of each.
namespace NHostile {

enum EEncoding { Utf16Le, Utf16Be, Utf8, EncodingCount };

/// Encodes unit by unit, so that a text may hold what no text should.
QByteArray encode(const QString& text, EEncoding encoding);

struct SCase {
  QString name;
  std::function<QByteArray(EEncoding)> make;
  /// The whole message in UTF-16 and in UTF-8; empty when the file is to be read.
  QString utf16Message;
  QString utf8Message;
};

std::vector<SCase> allCases();

}  // namespace NHostile
