#include "CCompletion.h"

#include "CStr.h"
#include "CommonOptions.h"
#include "NShortText.h"
#include "UniqueNames.h"

#include <QDir>

#include <algorithm>

namespace {

const QLatin1String kDashes("--");
const QLatin1Char kEquals('=');

QString dashed(const QString& name) {
  return kDashes + name;
}

const SOption* findOption(const SCommand& command, const QString& dashedName) {
  const auto found = std::find_if(
      command.options.cbegin(), command.options.cend(), [&dashedName](const SOption& option) {
        return dashedName == dashed(option.name) || dashedName == QLatin1Char('-') + option.letter;
      });
  return found == command.options.cend() ? nullptr : &*found;
}

/// The shell does this to unquoted words only; one that is quoted names no such file.
QString withHome(const QString& fileName) {
  return fileName.startsWith(QLatin1String("~/")) ? QDir::homePath() + fileName.mid(1) : fileName;
}

bool isOneLine(const QString& text) {
  return std::none_of(text.cbegin(), text.cend(),
                      [](QChar c) { return c.category() == QChar::Other_Control; });
}

}  // namespace

CCompletion::CCompletion(const QVector<SCommand>& commands, const CShellLine& line)
    : mCommands(commands), mLine(line) {
  const QStringList words = line.before().mid(1);
  const auto named =
      std::find_if(commands.cbegin(), commands.cend(), [&words](const SCommand& command) {
        const QStringList name = command.name.split(QLatin1Char(' '));
        return words.mid(0, name.size()) == name;
      });
  if (named == commands.cend())
    expectCommand(words);
  else
    expect(*named, named->name.count(QLatin1Char(' ')) + 1);
}

void CCompletion::expectCommand(const QStringList& words) {
  const bool isHelp = words.value(0) == QLatin1String("help");
  const QStringList begun = words.mid(isHelp ? 1 : 0);
  for (const SCommand& command : mCommands) {
    const QStringList name = command.name.split(QLatin1Char(' '));
    if (name.size() > begun.size() && name.mid(0, begun.size()) == begun)
      mChoices.append(name.at(begun.size()));
  }
  if (words.isEmpty())
    mChoices += {QStringLiteral("help"), QStringLiteral("--help"), QStringLiteral("--version")};
}

void CCompletion::expect(const SCommand& command, int nameWords) {
  for (const QString& word : mLine.before().mid(1 + nameWords)) take(command, word);
  const SOption* option = mOpen;
  const QString& typed = mLine.current();
  const int sign = typed.indexOf(kEquals);
  if (!option && typed.startsWith(kDashes) && sign > 0) {
    option = findOption(command, typed.left(sign));
    mLead = typed.left(sign + 1);
  }
  if (option) {
    mWord = option->word;
    mChoices = option->choices;
  } else if (typed.startsWith(QLatin1Char('-'))) {
    for (const SOption& each : command.options)
      if (!mGiven.contains(each.name)) mChoices.append(dashed(each.name));
    mChoices.append(QStringLiteral("--help"));
  } else {
    expectArgument(command);
  }
  mOpen = nullptr;
  for (const QString& word : mLine.after()) take(command, word);
}

void CCompletion::expectArgument(const SCommand& command) {
  const QVector<SArgument>& known = command.arguments;
  if (known.isEmpty()) return;
  if (mArguments < known.size())
    mWord = known.at(mArguments).word;
  else if (known.last().mayRepeat())
    mWord = known.last().word;
}

void CCompletion::take(const SCommand& command, const QString& word) {
  if (mOpen) {
    takeValue(*mOpen, word);
    mOpen = nullptr;
  } else if (word.size() > 1 && word.startsWith(QLatin1Char('-'))) {
    takeOption(command, word);
  } else {
    const int place = std::min(mArguments++, command.arguments.size() - 1);
    if (place >= 0 && command.arguments.at(place).word == EWord::File)
      mFiles.append(withHome(word));
  }
}

void CCompletion::takeOption(const SCommand& command, const QString& word) {
  const int sign = word.indexOf(kEquals);
  const SOption* option = findOption(command, word.left(sign));
  if (!option) return;
  mGiven.insert(option->name, {});
  if (sign > 0)
    takeValue(*option, word.mid(sign + 1));
  else if (!option->valueName.isEmpty())
    mOpen = option;
}

void CCompletion::takeValue(const SOption& option, const QString& value) {
  mGiven.insert(option.name, value);
  if (option.word == EWord::File) mFiles.append(withHome(value));
}

QStringList CCompletion::candidates(COutput& out) const {
  KnownNames::SPart part{mGiven.value(CommonOptions::kHardwareId), {}};
  quint8 subDevice = 0;
  if (CStr::strToU8(mGiven.value(CommonOptions::kSubDevice), subDevice)) part.subDevice = subDevice;
  switch (mWord) {
    case EWord::HardwareId:
      return KnownNames::hardwareIds(mFiles, out);
    case EWord::SubDevice:
      return KnownNames::subDevices(mFiles, part, out);
    case EWord::Parameter:
      return KnownNames::parameters(mFiles, part, out);
    case EWord::Assignment:
      return assignments(part, out);
    case EWord::Text:
    case EWord::File:
      break;
  }
  return mChoices;
}

QStringList CCompletion::assignments(const KnownNames::SPart& part, COutput& out) const {
  const int sign = mLine.current().indexOf(kEquals);
  const QString name = mLine.current().left(sign);
  QStringList words;
  if (sign < 0)
    for (const QString& each : KnownNames::parameters(mFiles, part, out))
      words.append(each + kEquals);
  else
    for (const QString& each : KnownNames::choices(mFiles, name, out))
      words.append(name + kEquals + each);
  return words;
}

QStringList CCompletion::replacements(COutput& out) const {
  QStringList words;
  for (const QString& candidate : candidates(out)) {
    const QString word = mLead + candidate;
    // One that would be shortened when shown would not be the word any more.
    const bool isShown = candidate.size() <= NShortText::kLongest && isOneLine(word);
    if (word.startsWith(mLine.current()) && isShown) words.append(mLine.replacement(word));
  }
  return uniqueNames(words);
}
