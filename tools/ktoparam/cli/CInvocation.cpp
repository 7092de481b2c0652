#include "CInvocation.h"

#include "CStr.h"
#include "Output.h"

#include <QJsonObject>

bool CInvocation::check(COutput& out) const {
  QStringList problems(optionProblem());
  if (!wantsHelp())
    problems +=
        {subDeviceProblem(), argumentProblem(), missingOption(), contradiction(), emptyFileName()};
  for (const QString& text : qAsConst(problems)) {
    if (text.isEmpty()) continue;
    wrongUsage(text, out);
    return false;
  }
  return true;
}

QString CInvocation::argumentProblem() const {
  const int given = arguments().size();
  const QVector<SArgument>& expected = command().arguments;
  if (given < expected.size() && !expected.at(given).mayBeMissing())
    return Tool::tr("%1 is missing.").arg(expected.at(given).name);
  if (given > 0 && !command().argumentAt(given - 1))
    return Tool::tr("\"%1\" is one word too many.").arg(argument(expected.size()));
  return {};
}

QString CInvocation::missingOption() const {
  for (const SOption& option : command().options)
    if (option.isRequired && !isSet(option.name))
      return Tool::tr("--%1 %2 is missing.").arg(option.name, option.valueName);
  return {};
}

QString CInvocation::contradiction() const {
  const bool isBoth = isSet(NOptions::kDef) && isSet(NOptions::kNoDef);
  return isBoth ? Tool::tr("--def and --no-def cannot be used together.") : QString();
}

bool CInvocation::findsDefinitions() const {
  return command().option(QLatin1String("--") + NOptions::kNoDef) && !isSet(NOptions::kDef) &&
         !isSet(NOptions::kNoDef);
}

QString CInvocation::emptyFileName() const {
  const QString text = Tool::tr("%1 is empty; it must be the name of a file.");
  for (const SOption& option : command().options) {
    const bool isEmpty = values(option.name).contains(QLatin1String(""));
    if (isEmpty && option.word == EWord::File) return text.arg(QLatin1String("--") + option.name);
  }
  for (int i = 0; i < arguments().size(); ++i) {
    const SArgument* expected = command().argumentAt(i);
    const bool isFile = expected && expected->word == EWord::File;
    if (isFile && argument(i).isEmpty()) return text.arg(expected->name);
  }
  return {};
}

QString CInvocation::subDeviceProblem() const {
  for (const QString& text : valuesOf(EWord::SubDevice))
    if (!toSubDevice(text))
      return Tool::tr("\"%1\" is not a sub-device; these are numbers from 0 to 255.").arg(text);
  return {};
}

std::optional<quint8> CInvocation::toSubDevice(const QString& text) {
  quint8 number = 0;
  return CStr::strToU8(text, number) ? std::optional<quint8>(number) : std::nullopt;
}

EExitStatus CInvocation::wrongUsage(const QString& text, COutput& out) const {
  out.message(command().name, Tool::tr("%1 See \"ktoparam help %2\".").arg(text, command().name));
  return ExitUsage;
}

void CInvocation::print(const CTable& table, const QJsonObject& json, COutput& out) const {
  if (wantsJson()) return out.json(json);
  table.print(out);
  noteDryRun(out);
}

void CInvocation::noteDryRun(COutput& out) const {
  if (isDryRun()) out.line(Tool::tr("Dry run: nothing was saved."));
}
