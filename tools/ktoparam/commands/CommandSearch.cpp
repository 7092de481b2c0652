#include "Command.h"
#include "NSuggestion.h"
#include "UniqueNames.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <set>

namespace {

/// Names of choices, radio buttons and bits.
QStringList choiceNames(const CParamDefItem& definition) {
  QStringList names;
  for (const NParamDef::SNamedI64Value& each : definition.enums()) names.append(each.name);
  for (const NParamDef::SNamedI64Value& each : definition.radios()) names.append(each.name);
  for (const NParamDef::SBitValue& each : definition.bitset()) names.append(each.name);
  return names;
}

/// A definition that has all words, each of them anywhere.
struct SHit {
  QString file;
  CParamDefItem definition;
  QStringList choices;  ///< those with one of the words

  static std::optional<SHit> of(const QString& file, const CParamDefItem& definition,
                                const QStringList& words) {
    SHit hit{file, definition, {}};
    const QStringList names = choiceNames(definition);
    const QStringList texts = {definition.name(), definition.hint()};
    for (const QString& word : words) {
      const QStringList found = names.filter(word, Qt::CaseInsensitive);
      if (found.isEmpty() && texts.filter(word, Qt::CaseInsensitive).isEmpty()) return {};
      hit.choices += found;
    }
    hit.choices = uniqueNames(hit.choices);
    return hit;
  }
};

/// The file is shown where there are several.
void print(const CInvocation& invocation, const QVector<SHit>& hits, bool hasFile, COutput& out) {
  const CLabels& labels = out.labels();
  QJsonArray array;
  CTable table({Tool::tr("FILE"), Tool::tr("ID"), Tool::tr("NAME"), Tool::tr("TYPE"),
                Tool::tr("CHOICES FOUND"), Tool::tr("HINT")});
  for (const SHit& hit : hits) {
    const CParamDefItem& definition = hit.definition;
    const QJsonValue id = definition.valid() ? QJsonValue(qint64(definition.id())) : QJsonValue();
    QStringList choices;
    for (const QString& name : hit.choices) choices.append(labels.shown(name));
    table.addRow({hasFile ? NDisplayText::shown(hit.file) : QString(),
                  id.isNull() ? QString() : QString::number(definition.id()),
                  labels.shown(definition.name()), definition.typeStr(),
                  choices.join(QLatin1String(", ")), labels.shownOrNothing(definition.hint())});
    array.append(QJsonObject{{"file", hit.file},
                             {"id", id},
                             {"name", labels.of(definition.name())},
                             {"type", definition.typeStr()},
                             {"hint", labels.of(definition.hint())},
                             {"choices", labels.of(hit.choices)}});
  }
  invocation.print(table, {{"file", invocation.argument(0)}, {"definitions", array}}, out);
}

/// The words of names such as "VelocityLimit", of hints and of choices.
QStringList knownWords(const ICParameterFile& file) {
  static const QRegularExpression kWord("\\p{L}\\p{Ll}+");
  std::set<QString> found;
  for (const QString& name : file.defNames()) {
    const CParamDefItem definition = file.paramDef(name);
    const QStringList texts = QStringList{name, definition.hint()} + choiceNames(definition);
    for (auto it = kWord.globalMatch(texts.join(QLatin1Char(' '))); it.hasNext();)
      found.insert(it.next().captured().toCaseFolded());
  }
  return QStringList(found.begin(), found.end());
}

/// For the first word that is in no name, hint or choice.
QString suggestionFor(const ICParameterFile& file, const QStringList& words) {
  const QStringList known = knownWords(file);
  for (const QString& word : words)
    if (known.filter(word, Qt::CaseInsensitive).isEmpty())
      return NSuggestion::didYouMean(word, known);
  return {};
}

/// The arguments: files first, at least one, then the words.
struct SQuestion {
  explicit SQuestion(const QStringList& arguments) : files(arguments.mid(0, 1)) {
    while (files.size() < arguments.size() - 1 && QFileInfo(arguments.at(files.size())).isFile())
      files.append(arguments.at(files.size()));
    words = arguments.mid(files.size());
  }

  QStringList files;
  QStringList words;
};

struct SFound {
  EExitStatus status = ExitDone;
  QVector<SHit> hits;
  QString suggestion = {};
};

SFound searchFile(const QString& fileName, const SQuestion& question, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(fileName, SFileInfo::Definitions)) return {ExitFile, {}};
  SFound found;
  for (const QString& name : loaded.file().defNames()) {
    const auto hit = SHit::of(fileName, loaded.file().paramDef(name), question.words);
    if (hit) found.hits.append(*hit);
  }
  if (found.hits.isEmpty() && question.files.size() == 1)
    found.suggestion = suggestionFor(loaded.file(), question.words);
  return found;
}

EExitStatus search(const CInvocation& invocation, COutput& out) {
  const SQuestion question(invocation.arguments());
  SFound all;
  const auto searchOne = [&](int i) { return searchFile(question.files.at(i), question, out); };
  inOrder(question.files.size(), out, searchOne, [&](int, const SFound& found) {
    all.hits += found.hits;
    all.status = qMax(all.status, found.status);
    all.suggestion = found.suggestion;
    return true;
  });
  if (all.status == ExitFile && question.files.size() == 1) return ExitFile;
  print(invocation, all.hits, question.files.size() > 1, out);
  if (!all.hits.isEmpty()) return all.status;
  out.message(
      question.files.join(QLatin1String(", ")),
      question.words.size() == 1
          ? Tool::tr("nothing has this word in its name, hint or choices.%1").arg(all.suggestion)
          : Tool::tr("nothing has all these words in its name, hint and choices.%1")
                .arg(all.suggestion));
  return qMax(all.status, ExitFindings);
}

}  // namespace

QVector<SCommand> searchCommands() {
  return {
      {"search",
       Tool::tr("Find parameters by words in their names, hints and choices."),
       Tool::tr(
           "Lists the definitions that have all words, or parts of words; capitals make "
           "no difference. The first words that are names of files are searched as well. The exit "
           "status is 1 when nothing is found."),
       {{"DEF", Tool::tr("A definition file."), EWord::File},
        {"WORD", Tool::tr("What to look for."), EWord::Parameter, SArgument::OneOrMore}},
       {NOptions::json()},
       {"search TwoAxisDrive.xpdef velocity limit"},
       search}};
}
