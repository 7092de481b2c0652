#pragma once

#include "CCompensationFindings.h"
#include "ICCompensationFile.h"

class COutput;
class QJsonObject;

/// How compensation tables are shown, as texts and as JSON. Points are numbered from 1.
namespace NCompensationTable {

/// "current" or "old"; empty for a table without points.
QString formatName(ICCompensationFile::EDataPointFormat format);

/// The range, its problems and how many points there are.
void print(const ICCompensationFile& table, const CCompensationFindings& findings, COutput& out);
void addTable(const ICCompensationFile& table, const CCompensationFindings& findings,
              QJsonObject& object);

/// Number, position, adjustment, problems.
QStringList pointCells(const ICCompensationFile& table, const CCompensationFindings& findings,
                       int index);
QJsonObject pointJson(const ICCompensationFile& table, const CCompensationFindings& findings,
                      int index);

}  // namespace NCompensationTable
