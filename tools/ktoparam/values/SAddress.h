#pragma once

#include <QStringList>

#include <optional>

class ICParamTreeNode;

/// Where a parameter is, as `text` prints it: KTO-2A-16[2]/Motion/Limits/VelocityLimit.
struct SAddress {
  QString hardwareId;
  quint8 subDevId = 0;
  QStringList groups;  ///< from the outermost inwards; empty for a parameter that is in none
  QString name;

  /// Different addresses have different texts. All can be read again but those with very long names
  /// or paths, or the mark of shortened ones: NShortText gives them a number.
  QString toText() const;
  /// Hardware id and sub-device alone: KTO-2A-16[2]. A hardware id that begins with "-" is in
  /// quotes, too, so that no address looks like an option.
  static QString place(const QString& hardwareId, quint8 subDevId);
  /// A hardware id, or the name of a group or parameter, as a part of an address: as it is, or in
  /// double quotes with escapes as in JSON where it would mislead. That is when it is empty, begins
  /// or ends with a blank, or holds one of / " \ = [ ] or what NDisplayText escapes.
  static QString quoted(const QString& part);

  /// The groups that a node lies in, from the outermost inwards.
  static QStringList groupsOf(const ICParamTreeNode& node);

  /// The opposite of toText(); nothing for another text. Every part may be in quotes.
  static std::optional<SAddress> read(const QString& text);
  /// Of a text such as `KTO-2A-16[2]/"x = 1"=5`: how many characters there are before the first "="
  /// that is not in quotes; -1 when there is none. Whether they are an address is told by read().
  static int lengthOf(const QString& text);
};
