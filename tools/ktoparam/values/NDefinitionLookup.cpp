#include "NDefinitionLookup.h"

#include "CLoadedFile.h"
#include "CNamePattern.h"
#include "CStr.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"
#include "SAddress.h"
#include "Tool.h"
#include "UniqueNames.h"

namespace {

bool isPattern(const QString& word) {
  return word.contains(QLatin1Char('*')) || word.contains(QLatin1Char('?'));
}

QStringList matching(const QString& pattern, const QStringList& all) {
  const CNamePattern names(pattern);
  QStringList found;
  for (const QString& name : all)
    if (names.matches(name)) found.append(name);
  return found;
}

QStringList namesOf(const QString& word, const ICParameterFile& file, const QStringList& all) {
  if (!file.paramDef(word).name().isEmpty()) return {word};
  const std::optional<SAddress> address = SAddress::read(word);
  if (address && !file.paramDef(address->name).name().isEmpty()) return {address->name};
  if (isPattern(word)) return matching(word, all);
  quint32 id = 0;
  const QString name = CStr::strToU32(word, id) ? file.nameById(id) : QString();
  return name.isEmpty() ? QStringList() : QStringList(name);
}

QString problem(const QString& word, const QStringList& known) {
  const QString text = isPattern(word) ? Tool::tr("no definition matches \"%1\".%2")
                                       : Tool::tr("there is no definition \"%1\".%2");
  return text.arg(word, NParameterLookup::didYouMean(word, known));
}

}  // namespace

QStringList NDefinitionLookup::namesOf(const QStringList& words, const CLoadedFile& loaded,
                                       QStringList& unknown) {
  const QStringList all = loaded.file().defNames();
  QStringList names;
  for (const QString& word : words) {
    const QStringList found = ::namesOf(word, loaded.file(), all);
    names += found;
    if (!found.isEmpty()) continue;
    const bool isHelped = unknown.size() < NSuggestion::kMaxHelped;
    loaded.message(problem(word, isHelped ? all : QStringList()));
    unknown.append(word);
  }
  return uniqueNames(names);
}
