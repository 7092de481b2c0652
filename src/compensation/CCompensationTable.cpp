#include "CCompensationTable.h"

#include <algorithm>

void CCompensationTable::clear() {
  mMetaData = CXMLMetaData();
  mHeader.clear();
  mPoints.clear();
}

bool CCompensationTable::setPoint(int index, const CCompensationPoint& point) {
  if (!hasPoint(index)) return false;
  mPoints[index] = point;
  return true;
}

bool CCompensationTable::insertPoint(int index, const CCompensationPoint& point) {
  if (!hasPoint(index)) return false;
  mPoints.insert(index, point);
  return true;
}

bool CCompensationTable::removePoint(int index) {
  if (!hasPoint(index)) return false;
  mPoints.removeAt(index);
  return true;
}

bool CCompensationTable::checkHeader() const {
  return minimum() < maximum();
}

bool CCompensationTable::checkPoint(int index) const {
  if (!hasPoint(index) || index >= kMaxPoints) return false;
  const double here = position(index);
  return minimum() <= here && here <= maximum() && (index == 0 || position(index - 1) < here) &&
         (index == count() - 1 || here < position(index + 1));
}

bool CCompensationTable::checkAllPoints(QList<int>* badIndices) const {
  QList<int> bad;
  const double upper = maximum();
  double lower = minimum();
  for (int i = 0; i < count(); ++i) {
    const double here = position(i);
    const bool above = i == 0 ? lower <= here : lower < here;
    if (i >= kMaxPoints || !above || !(here <= upper)) bad.append(i);
    lower = std::max(lower, here);  // keeps the bound when the position is not a number
  }
  if (badIndices != nullptr) *badIndices = bad;
  return bad.isEmpty();
}

int CCompensationTable::checkAll() const {
  if (!checkHeader()) return BadHeader;
  return checkAllPoints(nullptr) ? CheckOk : BadPoints;
}
