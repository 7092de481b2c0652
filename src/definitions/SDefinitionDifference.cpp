#include "SDefinitionDifference.h"

#include <iterator>

namespace {

/// In the order of the enumerations.
constexpr const char* kWhats[] = {"added",
                                  "removed",
                                  "name",
                                  "id",
                                  "type",
                                  "unit",
                                  "default",
                                  "minimum",
                                  "maximum",
                                  "minimum-parameters",
                                  "maximum-parameters",
                                  "choices",
                                  "radio-buttons",
                                  "check-box",
                                  "bits",
                                  "visibility",
                                  "hint"};
static_assert(std::size(kWhats) == SDefinitionDifference::Hint + 1);
constexpr const char* kEffects[] = {"safe", "values-may-break", "meaning-changed"};
static_assert(std::size(kEffects) == SDefinitionDifference::MeaningChanged + 1);

}  // namespace

QString SDefinitionDifference::whatText(EWhat what) {
  return QString::fromLatin1(kWhats[what]);
}

QString SDefinitionDifference::effectText(EEffect effect) {
  return QString::fromLatin1(kEffects[effect]);
}
