#pragma once

#include "CTableFindings.h"

class COutput;
class QJsonObject;

/// How compensation tables are shown, as texts and as JSON. Points are numbered from 1.
namespace CompensationTexts {

/// "current" or "old"; empty for a table without points.
QString formatName(ICCompensationFile::EDataPointFormat format);

/// The range, its problems and how many points there are.
void printTable(const ICCompensationFile& table, const CTableFindings& findings, COutput& out);
void addTable(const ICCompensationFile& table, const CTableFindings& findings, QJsonObject& object);

/// Number, position, adjustment, problems.
QStringList pointCells(const ICCompensationFile& table, const CTableFindings& findings, int index);
QJsonObject pointJson(const ICCompensationFile& table, const CTableFindings& findings, int index);

}  // namespace CompensationTexts
