#include "CSettingsNodeData.h"

void CSettingsNodeData::setValue(const CParamVal& value) {
  mValue = isParam() ? value : CParamVal();
}

void CSettingsNodeData::setUnit(const QString& unit) {
  mUnit = isParam() ? unit : QString();
}
