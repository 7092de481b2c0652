// What reading and writing share: the rules that a definition must keep, and the order.

#include "CParamDefFile.h"

#include <algorithm>
#include <utility>
#include <vector>

CParamDefFile::CParamDefFile(ICLogfile* logfile, CParameterFileErrorHandler* handler)
    : CParamBaseFile(logfile, handler) {}

bool CParamDefFile::handleVersionError(const QString& version, const QString& otherVersion) {
  return handleValueFileVersionError(version, otherVersion);
}

// The ids are copied out of the definitions, which lie all over the memory.
void CParamDefFile::sortByIdAndName(QVector<const CParamDefItem*>& definitions) {
  using CEntry = std::pair<quint32, const CParamDefItem*>;
  std::vector<CEntry> entries;
  entries.reserve(static_cast<size_t>(definitions.size()));
  for (const CParamDefItem* definition : definitions)
    entries.emplace_back(definition->id(), definition);
  std::sort(entries.begin(), entries.end(), [](const CEntry& a, const CEntry& b) {
    return a.first != b.first ? a.first < b.first : a.second->name() < b.second->name();
  });
  std::transform(entries.begin(), entries.end(), definitions.begin(),
                 [](const CEntry& entry) { return entry.second; });
}

bool CParamDefFile::limitsFit(const CParamDefItem& definition) {
  const CParamVal min = definition.minVal();
  const CParamVal max = definition.maxVal();
  if (min.isEmpty() || max.isEmpty()) return true;
  switch (definition.type()) {
    case NParamDef::PARAM_TYPE_U8:
    case NParamDef::PARAM_TYPE_U16:
    case NParamDef::PARAM_TYPE_U32:
    case NParamDef::PARAM_TYPE_U64:
      return min.asU64() <= max.asU64();
    case NParamDef::PARAM_TYPE_I8:
    case NParamDef::PARAM_TYPE_I16:
    case NParamDef::PARAM_TYPE_I32:
    case NParamDef::PARAM_TYPE_I64:
      return min.asI64() <= max.asI64();
    case NParamDef::PARAM_TYPE_F64:
      return !(min.asF64() > max.asF64());
    default:
      return true;
  }
}

QString CParamDefFile::limitsMessage(const CParamDefItem& definition) {
  return tr("Parameter '%1' -> Minimum exceeds Maximum.").arg(definition.name());
}

QString CParamDefFile::reservedNameMessage(quint32 id, const QString& name) {
  return tr("Parameter (Id=%1) -> The name \"%2\" is reserved.").arg(QString::number(id), name);
}
