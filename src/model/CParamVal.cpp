#include "CParamVal.h"

namespace {

constexpr int kHexBase = 16;
constexpr int kSignificantDigits = 15;

QString hexText(qulonglong number) {
  return QLatin1String("0x") + QString::number(number, kHexBase);
}

}  // namespace

CParamVal::CParamVal(const QString& text) : mText(text) {}
CParamVal::CParamVal(const char* latin1) : mText(QString::fromLatin1(latin1)) {}
CParamVal::CParamVal(unsigned char number) : mText(hexText(number)) {}
CParamVal::CParamVal(unsigned short number) : mText(hexText(number)) {}
CParamVal::CParamVal(unsigned int number) : mText(hexText(number)) {}
CParamVal::CParamVal(unsigned long long number) : mText(hexText(number)) {}
CParamVal::CParamVal(signed char number) : mText(QString::number(number)) {}
CParamVal::CParamVal(short number) : mText(QString::number(number)) {}
CParamVal::CParamVal(int number) : mText(QString::number(number)) {}
CParamVal::CParamVal(long long number) : mText(QString::number(number)) {}
CParamVal::CParamVal(double number) : mText(QString::number(number, 'g', kSignificantDigits)) {}
