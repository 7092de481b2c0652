// What reading and writing share: the words and the numbers.

#include "CMigrationFile.h"

#include "CStr.h"
#include "NLumoXmlTags.h"

#include <QRegularExpression>

using namespace NLumoXmlTags;

const QStringList CMigrationFile::mRoundings = {
    QStringLiteral("exact"),        QStringLiteral("half-even"), QStringLiteral("half-away"),
    QStringLiteral("towards-zero"), QStringLiteral("down"),      QStringLiteral("up"),
};

CMigrationFile::CMigrationFile() : CXmlAbstractLumoFile(nullptr, ATTR_VERSION) {}

bool CMigrationFile::handleVersionError(const QString& fileVersion,
                                        const QString& expectedVersion) {
  return CStr::haveSameMainNumber(fileVersion, expectedVersion) == true;
}

QStringList CMigrationFile::conversionsOf(const SMigrationRule& rule) {
  QStringList tags;
  const auto add = [&tags](bool isSet, QLatin1String tag) {
    if (isSet) tags += tag;
  };
  add(rule.rescaling.has_value(), TAG_RESCALE);
  add(!rule.choices.isEmpty(), TAG_CHOICE);
  add(!rule.bits.isEmpty(), TAG_BIT);
  add(!rule.value.isNull(), TAG_VALUE);
  add(rule.isDropped, TAG_DROP);
  add(!rule.question.isNull(), TAG_ASK);
  return tags;
}

bool CMigrationFile::isNumber(const QString& text) {
  // More digits than anybody needs, and few enough to compute with.
  static const QRegularExpression number(QRegularExpression::anchoredPattern(
      QStringLiteral("[+-]?[0-9]{1,40}(\\.[0-9]{1,40})?(/[0-9]{1,40}(\\.[0-9]{1,40})?)?")));
  const bool hasDivisor = text.contains(QLatin1Char('/'));
  return number.match(text).hasMatch() &&
         (!hasDivisor || !isZero(text.section(QLatin1Char('/'), 1)));
}

bool CMigrationFile::isZero(const QString& number) {
  static const QRegularExpression digit(QStringLiteral("[1-9]"));
  return !number.section(QLatin1Char('/'), 0, 0).contains(digit);
}
