#pragma once

#include "SMigrationStep.h"

#include <QStringList>

class CLabels;
class COutput;
class QJsonArray;
class QJsonObject;

/// The plan of a migration, as texts and as JSON.
namespace NMigrationPlan {

/// A list with more lines is not seen at once.
inline constexpr int kMostLines = 24;

/// A table. What is done in the same way in several places stands in it once, with their number.
void print(const CMigrationSteps& steps, COutput& out);
/// How many steps there are of each kind, and which parameters a human has to look at: 13 lines at
/// most.
void printSummary(const CMigrationSteps& steps, bool isBack, COutput& out);
/// What keeps a migration back from being done: parameters that would not be the same when they are
/// migrated again, unless a human gave their values.
QStringList lostOnTheWayBack(const CMigrationSteps& steps);

/// The counts by the texts of the kinds, of which all are there.
QJsonObject countsToJson(const CMigrationSteps& steps);
QJsonArray toJson(const CMigrationSteps& steps, const CLabels& labels);

}  // namespace NMigrationPlan
