#include "CInvocation.h"

#include "COutput.h"
#include "CStr.h"
#include "OptionProblem.h"
#include "Tool.h"

CInvocation::CInvocation(const SCommand& command) : mCommand(command) {
  mParser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
  for (const SOption& option : command.options) {
    QStringList names(option.name);
    if (!option.letter.isEmpty()) names.append(option.letter);
    mParser.addOption({names, option.help, option.valueName});
  }
}

bool CInvocation::parse(const QStringList& words, COutput& out) {
  // The parser takes the first word for the program's name.
  const bool understood = mParser.parse(QStringList(mCommand.name) + words);
  if (understood && wantsHelp()) return true;

  QString problem = understood ? subDeviceProblem() : OptionProblem::of(mCommand, words);
  if (!understood && problem.isEmpty()) problem = mParser.errorText();
  if (problem.isEmpty()) problem = argumentProblem();
  if (problem.isEmpty()) problem = missingOption();
  if (problem.isEmpty()) problem = emptyFileName();
  if (problem.isEmpty()) return true;
  wrongUsage(problem, out);
  return false;
}

QString CInvocation::argumentProblem() const {
  const int given = mParser.positionalArguments().size();
  const QVector<SArgument>& expected = mCommand.arguments;
  const SArgument last = expected.isEmpty() ? SArgument() : expected.last();

  if (given < expected.size() - (last.mayBeMissing() ? 1 : 0))
    return Tool::tr("%1 is missing.").arg(expected.at(given).name);
  if (given > expected.size() && !last.mayRepeat())
    return Tool::tr("\"%1\" is one word too many.").arg(argument(expected.size()));
  return {};
}

QString CInvocation::missingOption() const {
  for (const SOption& option : mCommand.options)
    if (option.isRequired && !mParser.isSet(option.name))
      return Tool::tr("--%1 %2 is missing.").arg(option.name, option.valueName);
  return {};
}

QString CInvocation::emptyFileName() const {
  const QString text = Tool::tr("%1 is empty; it must be the name of a file.");
  for (const SOption& option : mCommand.options) {
    const bool isEmpty = mParser.isSet(option.name) && mParser.value(option.name).isEmpty();
    if (isEmpty && option.word == EWord::File) return text.arg(QLatin1String("--") + option.name);
  }
  const QStringList given = mParser.positionalArguments();
  for (int i = 0; i < given.size(); ++i) {
    const SArgument& expected = mCommand.arguments.at(qMin(i, mCommand.arguments.size() - 1));
    if (given.at(i).isEmpty() && expected.word == EWord::File) return text.arg(expected.name);
  }
  return {};
}

QString CInvocation::subDeviceProblem() const {
  QStringList numbers;
  for (const SOption& option : mCommand.options)
    if (option.word == EWord::SubDevice) numbers += mParser.values(option.name);
  for (int i = 0; i < mCommand.arguments.size(); ++i)
    if (mCommand.arguments.at(i).word == EWord::SubDevice) numbers += argumentsFrom(i).mid(0, 1);
  for (const QString& text : qAsConst(numbers))
    if (!toSubDevice(text))
      return Tool::tr("\"%1\" is no sub-device; these are numbers from 0 to 255.").arg(text);
  return {};
}

std::optional<quint8> CInvocation::toSubDevice(const QString& text) {
  quint8 number = 0;
  return CStr::strToU8(text, number) ? std::optional<quint8>(number) : std::nullopt;
}

EExitStatus CInvocation::wrongUsage(const QString& text, COutput& out) const {
  out.message(mCommand.name, Tool::tr("%1 See \"ktoparam help %2\".").arg(text, mCommand.name));
  return ExitUsage;
}
