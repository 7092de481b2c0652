#include "SParamDifference.h"

#include <iterator>

namespace {

/// In the order of the enumeration.
constexpr const char* kKinds[] = {"sub-device-type-changed",
                                  "sub-device-name-changed",
                                  "hardware-id-added",
                                  "hardware-id-removed",
                                  "sub-device-added",
                                  "sub-device-removed",
                                  "parameter-added",
                                  "parameter-removed",
                                  "parameter-moved",
                                  "id-changed",
                                  "value-changed"};
static_assert(std::size(kKinds) == SParamDifference::ValueChanged + 1);

}  // namespace

QString SParamDifference::kindText(EKind kind) {
  return QString::fromLatin1(kKinds[kind]);
}
