#include "SEditCounts.h"

#include <array>

void SEditCounts::note(SEditedParam::EWhat what, quint8 subDevId, const QString& name) {
  using SCounts = SEditCounts;
  static constexpr std::array<int SCounts::*, 8> kCounts = {
      &SCounts::taken, &SCounts::equal,   &SCounts::defaulted, &SCounts::kept,
      &SCounts::added, &SCounts::unknown, &SCounts::removed,   &SCounts::failed};
  ++(this->*kCounts.at(static_cast<size_t>(what)));
  if (what != SEditedParam::Equal && what != SEditedParam::Failed)
    params.append({what, subDevId, name});
}
