// Files that were edited by chance are saved, loaded and saved again: nothing may change, under any
// hash seed or locale. Qt's DOM has to see in the files what the library sees.

#include "CDomDoc.h"
#include "CParamVal.h"
#include "Formats.h"
#include "TestFiles.h"
#include "Torture.h"

#include <QCryptographicHash>
#include <QDomDocument>
#include <QLocale>

#include <clocale>

using namespace NTestFiles;
using namespace NTorture;

namespace {

/// Whether Qt sees the same element, and all beneath it. Text of blanks alone, no-break spaces and
/// their like too, is lost to it.
bool isSame(const QDomElement& qt, const CDomElement& own) {
  const bool isText = own.firstChildElement().isNull() && !own.text().trimmed().isEmpty();
  if (qt.tagName() != own.tagName() || (isText && qt.text() != own.text())) return false;
  const QDomNamedNodeMap attributes = qt.attributes();
  for (int i = 0; i < attributes.count(); ++i) {
    const QDomNode node = attributes.item(i);
    if (own.attribute(QLatin1String(node.nodeName().toLatin1())) != node.nodeValue()) return false;
  }
  QDomElement child = qt.firstChildElement();
  for (CDomElement o = own.firstChildElement(); !o.isNull(); o = o.nextSiblingElement()) {
    if (child.isNull() || !isSame(child, o)) return false;
    child = child.nextSiblingElement();
  }
  return child.isNull();
}

/// Edits of all numbers in every format, and a digest of all that was written.
QByteArray digestOf(int models, CTally& tally) {
  const CFolder folder;
  const QString file = folder.filePath("file");
  QCryptographicHash hash(QCryptographicHash::Sha256);
  for (quint32 i = 0; i < static_cast<quint32>(models); ++i) {
    for (const auto format : {NFormats::Definitions, NFormats::Values, NFormats::Settings,
                              NFormats::Compensation, NFormats::Migration}) {
      const QString name = NFormats::kHeld[format];
      const QString what = QString("%1, edit %2: ").arg(name).arg(i);
      QString error = NFormats::roundTrip(format, data(name), file, &i);
      tally.check(error.isEmpty(), what + error);
      const QByteArray bytes = read(file);
      QDomDocument qt;
      CDomDoc own;
      if (tally.check(qt.setContent(bytes, &error) && own.setContent(bytes, error), what + error))
        tally.check(isSame(qt.documentElement(), own.documentElement()), what + "Qt differs");
      hash.addData(bytes);
    }
  }
  return hash.result();
}

/// A text in an element and in an attribute: survives, or is refused when it has to be.
void checkText(const QString& text, bool isAllowed, CTally& tally) {
  CDomDoc document;
  CDomDoc again;
  QString error;
  for (const QString& encoding : {QStringLiteral("UTF-16"), QStringLiteral("UTF-8")}) {
    CDomElement root = document.createRoot("r");
    root.setAttribute(QLatin1String("a"), text);
    root.setText(text);
    const QByteArray bytes = document.toByteArray(encoding, error);
    const bool isKept = !bytes.isEmpty() && again.setContent(bytes, error) &&
                        again.documentElement().text() == text &&
                        again.documentElement().attribute(QLatin1String("a")) == text;
    tally.check(isAllowed ? isKept : bytes.isEmpty() && error.contains("which XML cannot hold"),
                QString("U+%1 %2").arg(text.at(text.size() / 2).unicode(), 4, 16).arg(error));
  }
}

void checkEveryUnit(CTally& tally, bool isLong) {
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    const QChar c(unit);
    const bool isControl = unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r';
    const bool isAllowed = !isControl && !c.isSurrogate() && unit < 0xFFFE;
    checkText(c, isAllowed, tally);
    checkText(QString('x') + c + 'y', isAllowed, tally);
    if (!c.isHighSurrogate()) continue;
    QString pairs;
    for (int low = 0xDC00; low <= 0xDFFF; low += isLong ? 1 : 341) pairs += QString(c) + QChar(low);
    checkText(pairs, true, tally);
    checkText(pairs.mid(1), false, tally);
  }
}

/// Texts that no file may hold are refused, whatever they would take.
void checkLargeTexts(CTally& tally, bool isLong) {
  // Of references 550 MiB in UTF-8; of other characters too many in UTF-16, or in either.
  for (const auto& [megabytes, character] : {std::pair{110, QChar('&')},
                                             {260, QChar('&')},
                                             {260, QChar(0x20AC)},
                                             {900, QChar(0x20AC)}}) {
    for (const char* encoding : {"UTF-16", "UTF-8"}) {
      CDomDoc document;
      QString error;
      document.createRoot("r").setText(QString(megabytes << 20, character));
      tally.check(document.toByteArray(encoding, error).isEmpty() && error.contains("read again"),
                  QString("a text of %1 million characters: %2").arg(megabytes).arg(error));
    }
    if (!isLong) return;
  }
}

/// Works under hash seeds and locales; what is written must be the same.
void checkSeeds(CTally& tally, int seeds, int models) {
  QByteArray digest;
  qputenv("LOCPATH", KTO_LOCALES);
  for (int seed = 0; seed < seeds; ++seed) {
    const bool hasComma = seed % 2 != 0;
    qSetGlobalQHashSeed(seed == 0 ? 0 : -1);
    QLocale::setDefault(hasComma ? QLocale(QLocale::German) : QLocale::c());
    const char* const locale = std::setlocale(LC_ALL, hasComma ? "de_DE.UTF-8" : "C");
    tally.check(locale != nullptr, "the locale de_DE.UTF-8 is missing");
    tally.check(CParamVal("1.5").asF64() == 1.5 && CParamVal(0.5).asStr() == "0.5",
                "the locale shows");
    const QByteArray found = digestOf(models, tally);
    if (seed == 0) digest = found;
    tally.check(found == digest, QString("seed %1").arg(seed));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  const int models = options.pick(300, 20000);
  const int seeds = options.pick(4, 20);
  CTally tally("round trip");
  checkSeeds(tally, seeds, models);
  checkEveryUnit(tally, options.isLong);
  checkLargeTexts(tally, options.isLong);
  return tally.finish(
      QString("%1 edits of each format, %2 hash seeds, 65,536 units").arg(models).arg(seeds));
}
