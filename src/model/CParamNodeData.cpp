#include "CParamNodeData.h"

const QString CParamNodeData::mStandardConstructedStr =
    NXmlText::toQString(CParamNodeData::kStandardConstructed);
