#include "CParamNodeData.h"

const QString CParamNodeData::mStandardConstructedStr = QStringLiteral("[standard constructed]");
