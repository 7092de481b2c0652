#include "SParamFinding.h"

#include <QCoreApplication>

namespace {

struct SCode {
  const char* text;
  SParamFinding::ESeverity severity;
};

/// In the order of the enumeration.
constexpr SCode kCodes[] = {
    {"value-not-of-type", SParamFinding::Error},
    {"value-not-comparable", SParamFinding::Error},
    {"value-below-minimum", SParamFinding::Error},
    {"value-above-maximum", SParamFinding::Error},
    {"value-below-limit-parameter", SParamFinding::Error},
    {"value-above-limit-parameter", SParamFinding::Error},
    {"value-not-a-choice", SParamFinding::Error},
    {"value-unnamed-bits", SParamFinding::Warning},
    {"parameter-not-defined", SParamFinding::Warning},
    {"parameter-missing", SParamFinding::Info},
    {"id-mismatch", SParamFinding::Error},
    {"name-mismatch", SParamFinding::Error},
    {"default-not-of-type", SParamFinding::Error},
    {"default-not-comparable", SParamFinding::Error},
    {"default-below-minimum", SParamFinding::Error},
    {"default-above-maximum", SParamFinding::Error},
    {"default-below-limit-parameter", SParamFinding::Error},
    {"default-above-limit-parameter", SParamFinding::Error},
    {"default-not-a-choice", SParamFinding::Error},
    {"default-unnamed-bits", SParamFinding::Warning},
    {"limit-not-of-type", SParamFinding::Error},
    {"limit-dangling", SParamFinding::Error},
    {"limit-parameter-no-number", SParamFinding::Warning},
    {"minimum-above-maximum", SParamFinding::Error},
    {"visibility-dangling", SParamFinding::Error},
    {"unit-dangling", SParamFinding::Error},
    {"choice-value-doubled", SParamFinding::Warning},
    {"choice-name-doubled", SParamFinding::Warning},
    {"choice-not-of-type", SParamFinding::Warning},
    {"bit-doubled", SParamFinding::Warning},
    {"bit-not-of-type", SParamFinding::Warning},
    {"check-values-not-valid", SParamFinding::Error},
    {"definition-id-doubled", SParamFinding::Error},
    {"sub-device-type-replaced", SParamFinding::Warning},
    {"sub-device-name-replaced", SParamFinding::Warning},
};
static_assert(std::size(kCodes) == SParamFinding::SubDeviceNameReplaced + 1);

}  // namespace

QString SParamFinding::codeText(ECode code) {
  return QString::fromLatin1(kCodes[code].text);
}

SParamFinding::ESeverity SParamFinding::severityOf(ECode code) {
  return kCodes[code].severity;
}

QString SParamFinding::severityText(ESeverity severity) {
  static constexpr const char* kTexts[] = {QT_TRANSLATE_NOOP("SParamFinding", "info"),
                                           QT_TRANSLATE_NOOP("SParamFinding", "warning"),
                                           QT_TRANSLATE_NOOP("SParamFinding", "error")};
  return QCoreApplication::translate("SParamFinding", kTexts[severity]);
}
