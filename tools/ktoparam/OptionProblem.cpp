#include "OptionProblem.h"

#include "Suggestion.h"
#include "Tool.h"

#include <algorithm>

namespace {

const QLatin1String kHelp("help");

/// A word such as "--def", "--def=FILE" or "-o".
struct SOptionWord {
  explicit SOptionWord(const QString& word)
      : text(word.section(QLatin1Char('='), 0, 0)),
        isLong(word.startsWith(QLatin1String("--"))),
        hasValue(word.contains(QLatin1Char('='))) {
    if (word.startsWith(QLatin1Char('-'))) name = text.mid(isLong ? 2 : 1);
  }

  bool means(const SOption& option) const {
    return name == option.name || (!isLong && name == option.letter);
  }

  QString text;
  QString name;  // empty for a word that is no option
  bool isLong;
  bool hasValue;
};

QString unknown(const SCommand& command, const SOptionWord& word) {
  QStringList known(kHelp);
  for (const SOption& option : command.options) known.append(option.name);
  const QString meant = Suggestion::closest(word.name, known);
  return meant.isNull()
             ? Tool::tr("There is no option \"%1\".").arg(word.text)
             : Tool::tr("There is no option \"%1\". Did you mean \"--%2\"?").arg(word.text, meant);
}

}  // namespace

QString OptionProblem::of(const SCommand& command, const QStringList& words) {
  for (int i = 0; i < words.size() && words.at(i) != QLatin1String("--"); ++i) {
    const SOptionWord word(words.at(i));
    if (word.name.isEmpty() || word.name == kHelp) continue;
    const auto option = std::find_if(command.options.begin(), command.options.end(),
                                     [&word](const SOption& each) { return word.means(each); });
    if (option == command.options.end()) return unknown(command, word);
    const bool takesValue = !option->valueName.isEmpty();
    if (!takesValue && word.hasValue) return Tool::tr("--%1 takes no value.").arg(option->name);
    if (!takesValue || word.hasValue) continue;
    ++i;  // the next word is its value, whatever it begins with
    if (i == words.size())
      return Tool::tr("%1 is missing after %2.").arg(option->valueName, word.text);
  }
  return {};
}
