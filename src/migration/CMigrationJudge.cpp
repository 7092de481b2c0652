#include "CMigrationJudge.h"

#include "CSubDeviceTree.h"

void CMigrationJudge::beginSubDevice() {
  mRulesBefore.beginSubDevice();
  mRulesAfter.beginSubDevice();
}

QString CMigrationJudge::problem(const CRuleCache::SRuled* ruled, std::string_view value,
                                 const CSubDeviceTree& tree) {
  if (ruled == nullptr) return {};
  QStringList texts;
  const auto valueOf = [&tree](const QString& name) { return tree.value(name); };
  for (const auto& violation : ruled->rules.violationsOfUtf8(value, valueOf))
    if (!violation.isWarning()) texts.append(violation.text);
  return texts.join(QLatin1Char(' '));
}
