// The typed access of CDomDoc: one text of a message for each kind of failure.

#include "CDomDoc.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace {

using EResult = CDomDoc::EResult;

/// What a conversion of a text has to offer: the routine and the kind of number that it reads.
template <class T>
struct SNumber;
template <>
struct SNumber<quint8> {
  static constexpr auto kRead = &CStr::strToU8;
  static constexpr const char* kKind =
      QT_TRANSLATE_NOOP("CDomDoc", "an unsigned 8-bit number (0 to 255)");
};
template <>
struct SNumber<quint32> {
  static constexpr auto kRead = &CStr::strToU32;
  static constexpr const char* kKind = QT_TRANSLATE_NOOP("CDomDoc", "an unsigned 32-bit number");
};
template <>
struct SNumber<qint32> {
  static constexpr auto kRead = &CStr::strToI32;
  static constexpr const char* kKind = QT_TRANSLATE_NOOP("CDomDoc", "a signed 32-bit number");
};
template <>
struct SNumber<qint64> {
  static constexpr auto kRead = &CStr::strToI64;
  static constexpr const char* kKind = QT_TRANSLATE_NOOP("CDomDoc", "a signed 64-bit number");
};

/// Puts the line in front of a text; elements that were not read from a text have none.
QString withLine(const CDomElement& element, const QString& text) {
  return element.lineNumber() > 0
             ? CDomDoc::tr("Line %1: %2").arg(QString::number(element.lineNumber()), text)
             : text;
}

EResult invalidAttribute(QLatin1String name, const CDomElement& element, const QString& text,
                         const char* kind, QString& error) {
  error = withLine(element, CDomDoc::tr("attribute \"%1\" of <%2> is \"%3\", not %4.")
                                .arg(name, element.tagName(), text, CDomDoc::tr(kind)));
  return CDomDoc::Invalid;
}

EResult missingSubElement(QLatin1String tag, const CDomElement& parent, QString& error) {
  error = withLine(parent, CDomDoc::tr("<%1> in <%2> is missing.").arg(tag, parent.tagName()));
  return CDomDoc::Missing;
}

/// Reads plain decimal digits, as almost every number is written, without making a QString of them.
template <class T>
bool readDigits(std::string_view text, T& value) {
  T number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || stop != text.data() + text.size()) return false;
  value = number;
  return true;
}

template <class T>
EResult numberAttribute(QLatin1String name, const CDomElement& element, T& value, QString& error,
                        int base) {
  if ((base == 0 || base == 10) && readDigits(element.attributeUtf8(name), value))
    return CDomDoc::Ok;
  QString text;
  const EResult result = CDomDoc::existingAttribute(name, element, text, error);
  if (CDomDoc::fail(result)) return result;
  return SNumber<T>::kRead(text, value, base)
             ? CDomDoc::Ok
             : invalidAttribute(name, element, text, SNumber<T>::kKind, error);
}

}  // namespace

EResult CDomDoc::existingAttribute(QLatin1String name, const CDomElement& element, QString& value,
                                   QString& error) {
  const QString text = element.attribute(name);
  if (text.isNull()) {
    error =
        withLine(element, tr("attribute \"%1\" of <%2> is missing.").arg(name, element.tagName()));
    return Missing;
  }
  value = text;
  return Ok;
}

EResult CDomDoc::existingAttributeAsU8(QLatin1String name, const CDomElement& element,
                                       quint8& value, QString& error, int base) {
  return numberAttribute(name, element, value, error, base);
}

EResult CDomDoc::existingAttributeAsU32(QLatin1String name, const CDomElement& element,
                                        quint32& value, QString& error, int base) {
  return numberAttribute(name, element, value, error, base);
}

EResult CDomDoc::existingAttributeAsI32(QLatin1String name, const CDomElement& element,
                                        qint32& value, QString& error, int base) {
  return numberAttribute(name, element, value, error, base);
}

EResult CDomDoc::existingAttributeAsI64(QLatin1String name, const CDomElement& element,
                                        qint64& value, QString& error, int base) {
  return numberAttribute(name, element, value, error, base);
}

EResult CDomDoc::existingAttributeAsBool(QLatin1String name, const CDomElement& element,
                                         bool& value, QString& error) {
  QString text;
  const EResult result = existingAttribute(name, element, text, error);
  if (fail(result)) return result;
  const bool isTrue = text == NLumoXmlTags::VAL_TRUE;
  if (!isTrue && text != NLumoXmlTags::VAL_FALSE) {
    return invalidAttribute(name, element, text,
                            QT_TRANSLATE_NOOP("CDomDoc", "\"true\" or \"false\""), error);
  }
  value = isTrue;
  return Ok;
}

CDomElement CDomDoc::existingSubElement(QLatin1String tag, const CDomElement& parent) {
  return parent.firstChildElement(tag);
}

EResult CDomDoc::existingSubElementAsString(QLatin1String tag, const CDomElement& parent,
                                            QString& value, QString& error) {
  const CDomElement element = existingSubElement(tag, parent);
  if (element.isNull()) return missingSubElement(tag, parent, error);
  value = element.text();
  return Ok;
}

EResult CDomDoc::existingSubElementAsUtf8(QLatin1String tag, const CDomElement& parent,
                                          CElementText& value, QString& error) {
  const CDomElement element = existingSubElement(tag, parent);
  if (element.isNull()) return missingSubElement(tag, parent, error);
  value = element.textUtf8();
  return Ok;
}

QString CDomDoc::existingSubElementAsString(QLatin1String tag, const CDomElement& parent,
                                            const QString& defaultValue) {
  const CDomElement element = existingSubElement(tag, parent);
  return element.isNull() ? defaultValue : element.text();
}

EResult CDomDoc::existingSubElementAsI64(QLatin1String tag, const CDomElement& parent,
                                         qint64& value, QString& error, int base) {
  QString text;
  const EResult result = existingSubElementAsString(tag, parent, text, error);
  if (fail(result)) return result;
  if (!CStr::strToI64(text, value, base)) {
    error = withLine(existingSubElement(tag, parent),
                     tr("<%1> is \"%2\", not %3.").arg(tag, text, tr(SNumber<qint64>::kKind)));
    return Invalid;
  }
  return Ok;
}

void CDomDoc::setSubElementValue(QLatin1String tag, CDomElement parent, const QString& text) {
  CDomElement element = existingSubElement(tag, parent);
  if (element.isNull()) element = parent.appendElement(tag);
  element.setText(text);
}

void CDomDoc::setNodeValue(CDomElement element, const QString& text) {
  element.setText(text);
}
