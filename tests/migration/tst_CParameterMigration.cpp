#include "CRescaling.h"
#include "GoldenFiles.h"

#include "CParamDefItem.h"

#include <QtTest>

namespace {

QString rescaled(const SRescaling& rule, const QString& from, const QString& to,
                 CRescaling::EDirection direction, const QString& text) {
  const CRescaling rescaling(rule, CParamDefItem::typeFromString(from),
                             CParamDefItem::typeFromString(to), direction);
  const CRescaling::SResult result = rescaling.convert(text);
  if (result.text.isNull()) return "?";
  return result.text + (result.outcome == CRescaling::Rounded ? " rounded" : "");
}

}  // namespace

class tst_CParameterMigration : public QObject {
  Q_OBJECT

 private slots:
  void rescales_data() {
    NGoldenFiles::addTable("migration/rescaled.txt", {"factor", "offset", "rounding", "from", "to",
                                                      "text", "result", "back"});
  }
  void rescales() {
    QFETCH(QString, factor);
    QFETCH(QString, offset);
    QFETCH(QString, rounding);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, text);
    QFETCH(QString, back);
    const SRescaling rule{factor, offset, SRescaling::ERounding(rounding.toInt())};
    const QString result = rescaled(rule, from, to, CRescaling::Forward, text);
    QTEST(result, "result");
    const QString next = result == "?" ? text : result.section(' ', 0, 0);
    QCOMPARE(rescaled(rule, to, from, CRescaling::Back, next).section(' ', 0, 0),
             back.isEmpty() ? text : back);
  }
};

QTEST_GUILESS_MAIN(tst_CParameterMigration)
#include "tst_CParameterMigration.moc"
