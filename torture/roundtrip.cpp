// Models made by chance are saved, loaded and saved again: nothing may change, in any process,
// under any hash seed or locale. Qt's DOM has to see in the files what the library sees.

#include "CDomDoc.h"
#include "CParamDefFile.h"
#include "Formats.h"
#include "ICParameterFile.h"
#include "Models.h"
#include "ParamFileText.h"
#include "Torture.h"

#include <QCryptographicHash>
#include <QDomDocument>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>

using namespace NTorture;

namespace {

constexpr quint32 kVersion = 0x10000;

/// What Qt drops: no-break spaces and their like are blanks to it.
bool isBlank(const QString& text) {
  return text.trimmed().isEmpty();
}

/// Whether Qt sees the same element, and all beneath it. Text of blanks alone is lost to it.
bool isSame(const QDomElement& qt, const CDomElement& own, bool& lost) {
  const bool loses =
      own.firstChildElement().isNull() && isBlank(own.text()) && !own.text().isEmpty();
  lost |= loses;
  const bool isLeaf = own.firstChildElement().isNull();
  if (qt.tagName() != own.tagName() || (isLeaf && !loses && qt.text() != own.text())) return false;
  const QDomNamedNodeMap attributes = qt.attributes();
  for (int i = 0; i < attributes.count(); ++i) {
    const QByteArray name = attributes.item(i).nodeName().toLatin1();
    if (own.attribute(QLatin1String(name)) != attributes.item(i).nodeValue()) return false;
  }
  QDomElement child = qt.firstChildElement();
  for (CDomElement o = own.firstChildElement(); !o.isNull(); o = o.nextSiblingElement()) {
    if (child.isNull() || !isSame(child, o, lost)) return false;
    child = child.nextSiblingElement();
  }
  return child.isNull();
}

/// The definitions as they come through Qt's DOM.
QStringList definitionsViaQt(const QDomElement& root) {
  CParamDefFile file(nullptr, nullptr);
  QStringList texts;
  for (QDomElement param = root.firstChildElement("Data").firstChildElement("Param");
       !param.isNull(); param = param.nextSiblingElement("Param")) {
    file.readParamDefinitionFromDom(param);
  }
  for (const auto& [name, definition] : file.paramDefinitions())
    texts += NParamFileText::definition(definition);
  texts.sort();
  return texts;
}

QStringList definitionsOf(const ICParameterFile& file) {
  QStringList texts;
  for (const QString& name : file.defNames())
    texts += NParamFileText::definition(file.paramDef(name));
  texts.sort();
  return texts;
}

/// One process: the models of all numbers, and a digest of all that was written.
class CWorker {
 public:
  CWorker(int models, CTally& tally) : mTally(tally) {
    for (int i = 0; i < models; ++i) {
      mModel = QString("model %1").arg(i);
      CRandom random(static_cast<unsigned>(i));
      const auto file = NModels::parameterFile(random);
      checkParameterFile(*file);
      writeFile(mFile, NModels::settingsFile(random));
      checkFile(NFormats::Settings, true);
      writeFile(mFile, NModels::compensationFile(random));
      checkFile(NFormats::Compensation, !readFile(mFile).contains("E\0R\0R\0O\0R"));
    }
  }
  QByteArray digest() const { return mHash.result().toHex(); }

 private:
  void checkParameterFile(ICParameterFile& file) {
    const std::unique_ptr<ICParameterFile> again(
        ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
    mTally.check(file.saveParamDefFile(mFile, kVersion), mModel + ": " + file.errorMsg());
    mTally.check(again->loadParamDefFile(mFile, kVersion), mModel + ": " + again->errorMsg());
    checkFile(NFormats::Definitions, true, definitionsOf(file));
    mTally.check(file.saveParamFile(mFile, QString(), kVersion), mModel + ": " + file.errorMsg());
    mTally.check(again->loadParamFile(mFile, file.hardwareId(), kVersion),
                 mModel + ": " + again->errorMsg());
    checkFile(NFormats::Values, true);
    mTally.check(definitionsOf(*again) == definitionsOf(file) && values(*again) == values(file) &&
                     again->hardwareId() == file.hardwareId(),
                 mModel + ": what was loaded differs");
  }

  static QString values(ICParameterFile& file) {
    const QString text = NParamFileText::content(file);
    return text.mid(text.indexOf("\nhardware id "));
  }

  /// Loading and saving must not change a byte where a load decides nothing.
  void checkFile(NFormats::EFormat format, bool isFinal, const QStringList& definitions = {}) {
    const QByteArray bytes = readFile(mFile);
    const QString error = NFormats::roundTrip(format, mFile, mAgain);
    const QString what = QString("%1, format %2: ").arg(mModel).arg(format);
    mTally.check(error.isEmpty(), what + error);
    mTally.check(!isFinal || readFile(mAgain) == bytes, what + "other bytes");
    checkWithQt(bytes, definitions, what);
    mHash.addData(bytes);
  }

  void checkWithQt(const QByteArray& bytes, const QStringList& definitions, const QString& what) {
    QDomDocument qt;
    CDomDoc own;
    QString error;
    bool lost = false;
    if (!mTally.check(qt.setContent(bytes, &error) && own.setContent(bytes, error), what + error))
      return;
    mTally.check(isSame(qt.documentElement(), own.documentElement(), lost), what + "Qt differs");
    mTally.check(
        lost || definitions.isEmpty() || definitionsViaQt(qt.documentElement()) == definitions,
        what + "definitions through Qt's DOM differ");
  }

  CTally& mTally;
  const CFolder mFolder;
  const QString mFile = mFolder.path("file");
  const QString mAgain = mFolder.path("again");
  QString mModel;
  QCryptographicHash mHash{QCryptographicHash::Sha256};
};

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
  QList<QPair<int, QChar>> texts{{110, '&'}};  // 550 MiB of references in UTF-8
  for (const int megabytes : {260, 500, 900})
    if (isLong) texts << qMakePair(megabytes, QChar('&')) << qMakePair(megabytes, QChar(0x20AC));
  for (const auto& [megabytes, character] : texts) {
    for (const QString& encoding : {QStringLiteral("UTF-16"), QStringLiteral("UTF-8")}) {
      CDomDoc document;
      QString error;
      document.createRoot("r").setText(QString(megabytes << 20, character));
      tally.check(document.toByteArray(encoding, error).isEmpty() && error.contains("read again"),
                  QString("a text of %1 million characters: %2").arg(megabytes).arg(error));
    }
  }
}

/// A process under one hash seed and locale, and the first line that it prints.
QString runWorker(const char* program, const SOptions& options, int seed) {
  qputenv("QT_HASH_SEED", QByteArray::number(seed));
  qputenv("LOCPATH", KTO_LOCALES);
  qputenv("LC_ALL", seed % 2 == 0 ? "C" : "de_DE.UTF-8");
  const QByteArray command =
      QByteArray(program) + (options.isLong ? " --worker --long" : " --worker");
  FILE* output = ::popen(command.constData(), "r");
  std::array<char, 200> line{};
  const bool hasLine = output != nullptr && std::fgets(line.data(), line.size(), output) != nullptr;
  const bool done = output != nullptr && ::pclose(output) == 0;
  return hasLine && done ? QString::fromLatin1(line.data()).trimmed() : QString();
}

int work(int models) {
  std::setlocale(LC_ALL, "");
  CTally tally("round trip, one process");
  const CWorker worker(models, tally);
  tally.check(CParamVal("1.5").asF64() == 1.5 && CParamVal(0.5).asStr() == "0.5",
              "the locale shows");
  std::printf("%s %s\n", worker.digest().constData(), std::localeconv()->decimal_point);
  return tally.finish(QString("%1 models").arg(models));
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  const int models = options.pick(300, 20000);
  if (qstrcmp(argv[argc > 1 ? 1 : 0], "--worker") == 0) return work(models);

  const int seeds = options.pick(4, 20);
  CTally tally("round trip");
  QString digest;
  for (int seed = 0; seed < seeds; ++seed) {
    const QStringList line = runWorker(argv[0], options, seed).split(' ');
    if (digest.isEmpty()) digest = line.first();
    tally.check(line.first() == digest && !digest.isEmpty(), QString("seed %1").arg(seed));
    tally.check(line.last() == (seed % 2 == 0 ? "." : ","), "the locale de_DE.UTF-8 is missing");
  }
  checkEveryUnit(tally, options.isLong);
  checkLargeTexts(tally, options.isLong);
  return tally.finish(
      QString("%1 models under %2 hash seeds and two locales, 65,536 units of UTF-16")
          .arg(models)
          .arg(seeds));
}
