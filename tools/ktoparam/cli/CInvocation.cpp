#include "CInvocation.h"

#include "COutput.h"
#include "CStr.h"
#include "Tool.h"

bool CInvocation::check(COutput& out) const {
  const QString text = wantsHelp() ? mWords.problem() : problem();
  if (!text.isEmpty()) wrongUsage(text, out);
  return text.isEmpty();
}

QString CInvocation::problem() const {
  for (const QString& text :
       {mWords.problem(), subDeviceProblem(), argumentProblem(), missingOption(), emptyFileName()})
    if (!text.isEmpty()) return text;
  return {};
}

QString CInvocation::argumentProblem() const {
  const int given = mWords.arguments().size();
  const QVector<SArgument>& expected = mCommand.arguments;
  const bool mayBeFewer = !expected.isEmpty() && expected.last().mayBeMissing();
  if (given < expected.size() - (mayBeFewer ? 1 : 0))
    return Tool::tr("%1 is missing.").arg(expected.at(given).name);
  if (given > 0 && !mCommand.argumentAt(given - 1))
    return Tool::tr("\"%1\" is one word too many.").arg(argument(expected.size()));
  return {};
}

QString CInvocation::missingOption() const {
  for (const SOption& option : mCommand.options)
    if (option.isRequired && !mWords.isSet(option.name))
      return Tool::tr("--%1 %2 is missing.").arg(option.name, option.valueName);
  return {};
}

QString CInvocation::emptyFileName() const {
  const QString text = Tool::tr("%1 is empty; it must be the name of a file.");
  for (const SOption& option : mCommand.options) {
    const bool isEmpty = mWords.isSet(option.name) && mWords.value(option.name).isEmpty();
    if (isEmpty && option.word == EWord::File) return text.arg(QLatin1String("--") + option.name);
  }
  for (int i = 0; i < mWords.arguments().size(); ++i) {
    const SArgument* expected = mCommand.argumentAt(i);
    if (argument(i).isEmpty() && expected->word == EWord::File) return text.arg(expected->name);
  }
  return {};
}

QString CInvocation::subDeviceProblem() const {
  for (const QString& text : mWords.valuesOf(EWord::SubDevice))
    if (!toSubDevice(text))
      return Tool::tr("\"%1\" is not a sub-device; these are numbers from 0 to 255.").arg(text);
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
