#include "SMigrationStep.h"

#include <iterator>

namespace {

/// In the order of the enumeration.
constexpr const char* kKinds[] = {"decide",     "not-allowed",  "dropped", "rounded",
                                  "converted",  "replaced",     "moved",   "renamed",
                                  "id-changed", "group-renamed"};
static_assert(std::size(kKinds) == SMigrationStep::GroupRenamed + 1);

}  // namespace

QString SMigrationStep::kindText(EKind kind) {
  return QString::fromLatin1(kKinds[kind]);
}
