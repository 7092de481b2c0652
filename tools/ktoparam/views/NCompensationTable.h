#pragma once

#include "CCompensationFindings.h"
#include "ICCompensationFile.h"

class COutput;
class QJsonArray;
class QJsonObject;

/// How compensation tables are shown, as texts and as JSON. Points are numbered from 1.
namespace NCompensationTable {

/// "current" or "old"; empty for a table without points.
QString formatName(ICCompensationFile::EDataPointFormat format);

/// The range, its problems and how many points there are.
void print(const ICCompensationFile& table, const CCompensationFindings& findings, COutput& out);
void addTable(const ICCompensationFile& table, const CCompensationFindings& findings,
              QJsonObject& object);

/// Which points are listed.
enum EPoints { AllPoints, WrongPoints };

/// A table of points. Among all of them, a "!" marks the wrong ones.
void printPoints(const ICCompensationFile& table, const CCompensationFindings& findings,
                 EPoints which, COutput& out);
QJsonArray pointsJson(const ICCompensationFile& table, const CCompensationFindings& findings,
                      EPoints which);

}  // namespace NCompensationTable
