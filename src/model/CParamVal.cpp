#include "CParamVal.h"

#include "CStr.h"

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

bool CParamVal::value(unsigned char& number) const {
  return CStr::strToU8(mText, number, 0);
}

bool CParamVal::value(unsigned short& number) const {
  return CStr::strToU16(mText, number, 0);
}

bool CParamVal::value(unsigned int& number) const {
  return CStr::strToU32(mText, number, 0);
}

bool CParamVal::value(unsigned long long& number) const {
  return CStr::strToU64(mText, number, 0);
}

bool CParamVal::value(signed char& number) const {
  return CStr::strToI8(mText, number, 0);
}

bool CParamVal::value(short& number) const {
  return CStr::strToI16(mText, number, 0);
}

bool CParamVal::value(int& number) const {
  return CStr::strToI32(mText, number, 0);
}

bool CParamVal::value(long long& number) const {
  return CStr::strToI64(mText, number, 0);
}

bool CParamVal::value(double& number) const {
  return CStr::strToF64(mText, number);
}
