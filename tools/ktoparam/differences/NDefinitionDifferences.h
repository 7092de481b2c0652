#pragma once

#include "SDefinitionDifference.h"

class CInvocation;
class CLabels;
class COutput;
class QJsonArray;
class QJsonObject;

/// Differences between two sets of definitions, as texts and as JSON.
namespace NDefinitionDifferences {

/// Shows only what is not safe.
inline const QLatin1String kBreaking("breaking");

/// Whether two files are to be compared as definition files: one is, and the other is of no kind
/// that can be told.
bool areMeant(const QString& oldFile, const QString& newFile);
/// What is wrong with the command line for definition files; empty when nothing is.
QString usageProblem(const CInvocation& invocation);
/// Those that are not safe, in their order.
CDefinitionDifferences breaking(const CDefinitionDifferences& differences);
/// A table and the counts; nothing when there are none.
void print(const CDefinitionDifferences& differences, COutput& out);
/// The counts by what differs and by effect, all of which are there.
QJsonObject summary(const CDefinitionDifferences& differences);
QJsonArray toJson(const CDefinitionDifferences& differences, const CLabels& labels);

}  // namespace NDefinitionDifferences
