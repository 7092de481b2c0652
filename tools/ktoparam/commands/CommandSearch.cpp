#include "CParamValueRules.h"
#include "CParamValueText.h"
#include "CStr.h"
#include "Command.h"
#include "NSuggestion.h"
#include "UniqueNames.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <map>
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

/// A word that is looked for, and what else it may mean in a file.
class CWord {
 public:
  CWord(const QString& text, const ICParameterFile& file) : mText(text) {
    mIsId = CStr::strToU32(text, mId) && NParamDef::isRealId(mId);
    mIsNumber = CStr::strToI64(text, mNumber);
    for (const QString& name : file.defNames())
      if (name.compare(text, Qt::CaseInsensitive) == 0) mNamed.emplace(file.idByName(name), name);
  }

  bool isIn(const QString& text) const { return text.contains(mText, Qt::CaseInsensitive); }
  bool isIdOf(const CParamDefItem& definition) const { return mIsId && definition.id() == mId; }
  bool isLimit(const CParamVal& limit, const CParamDefItem& definition) const {
    return !limit.isEmpty() && CParamValueRules::areEqual(CParamVal(mText), limit, definition);
  }

  /// The names of choices that have it, or have it as their value.
  QStringList choicesOf(const CParamDefItem& definition) const {
    QStringList names = choiceNames(definition).filter(mText, Qt::CaseInsensitive);
    if (!mIsNumber) return names;
    for (const auto& each : CParamValueText::choices(definition, CParamValueText::English))
      if (each.value == mNumber) names.append(each.name);
    return names;
  }
  /// Which of these definitions have just this name.
  QStringList namesAmong(const QList<unsigned int>& ids) const {
    QStringList names;
    for (const unsigned int id : ids) {
      const auto named = mNamed.find(id);
      if (named != mNamed.end() && NParamDef::isRealId(id)) names.append(named->second);
    }
    return names;
  }

 private:
  QString mText;
  quint32 mId = 0;
  bool mIsId = false;
  qint64 mNumber = 0;
  bool mIsNumber = false;
  std::map<quint32, QString> mNamed;  // names that differ from it in capitals at most
};

/// A definition that has all words, each of them anywhere.
struct SHit {
  QString file;
  CParamDefItem definition;
  QStringList found = {};    ///< keys of what has a word
  QStringList choices = {};  ///< those with one of the words
  QStringList limits = {};   ///< likewise, as they are shown

  static std::optional<SHit> of(const QString& file, const CParamDefItem& definition,
                                const QVector<CWord>& words, const CLabels& labels) {
    SHit hit{file, definition};
    for (const CWord& word : words)
      if (!hit.has(word, labels)) return {};
    for (QStringList* each : {&hit.found, &hit.choices, &hit.limits}) *each = uniqueNames(*each);
    return hit;
  }

 private:
  bool has(const CWord& word, const CLabels& labels) {
    const int before = found.size();
    if (word.isIdOf(definition)) found.append("id");
    if (word.isIn(definition.name())) found.append("name");
    if (word.isIn(definition.hint())) found.append("hint");
    const QStringList names = word.choicesOf(definition);
    if (!names.isEmpty()) found.append("choices");
    choices += names;
    const QString minimum = Tool::tr("minimum %1");
    const QString maximum = Tool::tr("maximum %1");
    takeLimit("minimum", word.isLimit(definition.minVal(), definition), minimum,
              labels.shown(definition.minVal().asStr()));
    takeLimit("maximum", word.isLimit(definition.maxVal(), definition), maximum,
              labels.shown(definition.maxVal().asStr()));
    for (const QString& name : word.namesAmong(definition.minIds()))
      takeLimit("minimumParameters", true, minimum, labels.shown(name));
    for (const QString& name : word.namesAmong(definition.maxIds()))
      takeLimit("maximumParameters", true, maximum, labels.shown(name));
    return found.size() > before;
  }

  void takeLimit(const char* key, bool isFound, const QString& text, const QString& limit) {
    if (!isFound) return;
    found.append(key);
    limits.append(text.arg(limit));
  }
};

/// The file is shown where there are several.
void print(const CInvocation& invocation, const QVector<SHit>& hits, bool hasFile, COutput& out) {
  const CLabels& labels = out.labels();
  QJsonArray array;
  CTable table({Tool::tr("FILE"), Tool::tr("ID"), Tool::tr("NAME"), Tool::tr("TYPE"),
                Tool::tr("CHOICES FOUND"), Tool::tr("LIMITS FOUND"), Tool::tr("HINT")});
  for (const SHit& hit : hits) {
    const CParamDefItem& definition = hit.definition;
    const QJsonValue id = definition.valid() ? QJsonValue(qint64(definition.id())) : QJsonValue();
    QStringList choices;
    for (const QString& name : hit.choices) choices.append(labels.shown(name));
    table.addRow({hasFile ? NDisplayText::shown(hit.file) : QString(),
                  id.isNull() ? QString() : QString::number(definition.id()),
                  labels.shown(definition.name()), definition.typeStr(),
                  choices.join(QLatin1String(", ")), hit.limits.join(QLatin1String(", ")),
                  labels.shownOrNothing(definition.hint())});
    array.append(QJsonObject{{"file", hit.file},
                             {"id", id},
                             {"name", labels.of(definition.name())},
                             {"type", definition.typeStr()},
                             {"hint", labels.of(definition.hint())},
                             {"choices", labels.of(hit.choices)},
                             {"found", QJsonArray::fromStringList(hit.found)}});
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
  QVector<CWord> words;
  for (const QString& word : question.words) words.append(CWord(word, loaded.file()));
  for (const QString& name : loaded.file().defNames()) {
    const auto hit = SHit::of(fileName, loaded.file().paramDef(name), words, out.labels());
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
          ? Tool::tr("nothing has this word in its name, hint, choices or limits, or as its id.%1")
                .arg(all.suggestion)
          : Tool::tr("nothing has all these words in its name, hint, choices and limits, or as its "
                     "id.%1")
                .arg(all.suggestion));
  return qMax(all.status, ExitFindings);
}

}  // namespace

QVector<SCommand> searchCommands() {
  return {
      {"search",
       Tool::tr(
           "Find parameters by words in their names, hints and choices, by ids and by limits."),
       Tool::tr(
           "Lists the definitions that have all words, or parts of words; capitals make "
           "no difference. A number also finds the id, choices and limits that are that number, "
           "and the whole name of a parameter finds those that it limits. The first words that are "
           "names of files are searched as well. The exit "
           "status is 1 when nothing is found."),
       {{"DEF", Tool::tr("A definition file."), EWord::File},
        {"WORD", Tool::tr("What to look for."), EWord::Parameter, SArgument::OneOrMore}},
       {NOptions::json()},
       {"search TwoAxisDrive.xpdef velocity limit", "search TwoAxisDrive.xpdef 4413"},
       search}};
}
