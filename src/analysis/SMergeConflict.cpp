#include "SMergeConflict.h"

#include <QCoreApplication>

#include <iterator>

namespace {

// In the order of the enumerations.
constexpr const char* kSubjects[] = {"author",
                                     "comment",
                                     "version",
                                     "hardware-id",
                                     "sub-device",
                                     "sub-device-type",
                                     "sub-device-name",
                                     "parameter",
                                     "value",
                                     "group",
                                     "id",
                                     "definition",
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
static_assert(std::size(kSubjects) == SMergeConflict::Hint + 1);

constexpr const char* kKinds[] = {"both-changed", "both-added", "ours-removed", "theirs-removed"};
static_assert(std::size(kKinds) == SMergeConflict::TheirsRemoved + 1);

QString translated(const char* text) {
  return QCoreApplication::translate("SMergeConflict", text);
}

}  // namespace

QString SMergeConflict::subjectText(ESubject subject) {
  return QString::fromLatin1(kSubjects[subject]);
}

QString SMergeConflict::kindText(EKind kind) {
  return QString::fromLatin1(kKinds[kind]);
}

QString SMergeConflict::text() const {
  switch (kind) {
    case BothAdded:
      return translated(QT_TRANSLATE_NOOP("SMergeConflict",
                                          "Added as \"%1\" in ours, and as "
                                          "\"%2\" in theirs."))
          .arg(ours, theirs);
    case OursRemoved:
      return translated(QT_TRANSLATE_NOOP("SMergeConflict", "Removed in ours, changed in theirs."));
    case TheirsRemoved:
      return translated(QT_TRANSLATE_NOOP("SMergeConflict", "Changed in ours, removed in theirs."));
    default:
      return translated(QT_TRANSLATE_NOOP("SMergeConflict",
                                          "Changed from \"%1\" to \"%2\" in "
                                          "ours, and to \"%3\" in theirs."))
          .arg(base, ours, theirs);
  }
}
