#pragma once

#include "NParamDef.h"
#include "ktoParameter_export.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QVector>

#include <optional>

/// How a number of an old definition becomes one of a new: new = old * factor + offset, computed
/// exactly on decimal texts.
struct SRescaling {
  /// What becomes of a result that the new type or its decimals cannot hold, each with its stable
  /// text.
  enum ERounding : int {
    Exact,        ///< "exact": it is not rounded, a human decides
    HalfEven,     ///< "half-even": to the nearest, of two to the even one
    HalfAway,     ///< "half-away": to the nearest, of two to the one farther from zero
    TowardsZero,  ///< "towards-zero"
    Down,         ///< "down": towards the smaller number
    Up            ///< "up": towards the greater number
  };

  QString factor = QStringLiteral("1");  ///< a decimal number or a fraction of two, "1/60"; not 0
  QString offset = QStringLiteral("0");  ///< likewise; in the new unit
  ERounding rounding = Exact;
};

/// What becomes of one parameter. Parts that are not set leave what they are about as it is;
/// `isDropped` goes alone, `question` with newName and newId only.
struct KTOPARAMETER_EXPORT SMigrationRule {
  QString name;                            ///< in the old definitions
  QString newName;                         ///< null: it keeps its name
  std::optional<quint32> newId;            ///< of the new definition
  std::optional<SRescaling> rescaling;     ///< goes without choices, bits and value
  QVector<QPair<qint64, qint64>> choices;  ///< old number, new number; others stay
  /// Old position, new position; others stay. What was active is active: a bit that only one of the
  /// definitions inverts is turned.
  QVector<QPair<int, int>> bits;
  QString value;  ///< the new text, whatever the old was; null: none
  /// The parameter moves from sub-devices of one type to that or those of another.
  std::optional<QPair<NParamDef::ESubDeviceTypes, NParamDef::ESubDeviceTypes>> move;
  bool isDropped = false;
  QString reason;    ///< of a drop
  QString question;  ///< for a human, who decides about the value; null: none
  QString note;      ///< a comment that a save writes before the rule; a load does not keep it
  bool isProposal = false;  ///< a save writes it as a comment, so it does not count
  int line = 0;             ///< in the file, from 1; 0 when it was not read from one
};

/// A group that has another name; what lies in it stays there.
struct SMigrationGroup {
  QString path;     ///< old names joined by "/"
  QString newName;  ///< of the last group of the path
  int line = 0;     ///< in the file, from 1; 0 when it was not read from one
};
