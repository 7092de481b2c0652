#pragma once

#include "CParamDefItem.h"

#include <QPair>
#include <QVector>

/// Choices and bits that got other numbers, and kept their names.
namespace NRenumbering {

using CNumberPairs = QVector<QPair<qint64, qint64>>;
using CBitPairs = QVector<QPair<int, int>>;

/// The numbers by which each choice gets the one that its name has now. None when a number that has
/// lost its name means something else now, or names are not unique.
CNumberPairs choices(const CParamDefItem& oldOne, const CParamDefItem& newOne);
/// Likewise the positions of bits, of which each must still be there.
CBitPairs bits(const CParamDefItem& oldOne, const CParamDefItem& newOne);

}  // namespace NRenumbering
