#include "CParameterWords.h"

#include "CInvocation.h"
#include "CLoadedFile.h"
#include "NParameterLookup.h"
#include "NShortText.h"
#include "NSuggestion.h"
#include "Tool.h"

#include <algorithm>

namespace {

const QLatin1Char kSlash('/');

bool hasWildcard(const QString& text) {
  return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?'));
}

QString inGroup(const QString& text) {
  return text + QLatin1String(text.endsWith(kSlash) ? "*" : "/*");
}

}  // namespace

CParameterWords::SWord::SWord(const QString& word)
    : text(word),
      meaning(hasWildcard(word) || word.contains(kSlash) ? EMeaning::Pattern : EMeaning::Name),
      pattern(word),
      below(inGroup(word)),
      address(SAddress::read(word)) {}

/// Finds the parameters of a sub-device that a pattern matches.
class CParameterWords::CWalk {
 public:
  CWalk(const SWord& word, const QString& place)
      : mWord(word), mPlace(place), mIsPath(word.text.contains(kSlash)) {}

  const QVector<const ICParamTreeNode*>& visit(const ICParamTreeNode& group, const QString& path) {
    for (int i = 0; i < group.childCnt(); ++i) {
      const ICParamTreeNode& child = *group.childPtr(i);
      if (child.isGroup())
        visit(child, pathBelow(path, child));
      else if (matches(path, child))
        mFound.append(&child);
    }
    return mFound;
  }

 private:
  QString pathBelow(const QString& path, const ICParamTreeNode& node) const {
    return mIsPath ? NShortText::below(path, SAddress::quoted(node.name())) : QString();
  }
  bool matches(const QString& groupPath, const ICParamTreeNode& node) const {
    if (!mIsPath) return mWord.pattern.matches(node.name());
    const QString path = pathBelow(groupPath, node);
    const QString address = mPlace + path;
    return mWord.pattern.matches(path) || mWord.below.matches(path) ||
           mWord.pattern.matches(address) || mWord.below.matches(address);
  }

  const SWord& mWord;
  const QString mPlace;
  const bool mIsPath;
  QVector<const ICParamTreeNode*> mFound;
};

CParameterWords::CParameterWords(const QStringList& words) {
  mWords.reserve(static_cast<std::size_t>(words.size()));
  for (const QString& word : words) mWords.emplace_back(word);
}

// --- Opening

EExitStatus CParameterWords::openToRead(CLoadedFile& loaded, const CInvocation& invocation,
                                        COutput& out) {
  const EExitStatus opened = loaded.openToRead(invocation);
  if (opened != ExitDone) return opened;
  readNames(loaded, loaded.chosenIds());
  return checkAddresses(invocation.value(NOptions::kHardwareId), invocation, out);
}

EExitStatus CParameterWords::openToEdit(CLoadedFile& loaded, const CInvocation& invocation,
                                        COutput& out) {
  QStringList meant;
  for (const SWord& word : mWords)
    if (word.address) meant.append(word.address->hardwareId);
  const EExitStatus opened = loaded.openToEdit(invocation, meant.value(0));
  if (opened != ExitDone) return opened;
  readNames(loaded, {loaded.file().hardwareId()});
  return checkAddresses(loaded.file().hardwareId(), invocation, out);
}

// --- What a word means

const ICParamTreeNode* CParameterWords::find(const QString& name, quint8 subDevId,
                                             ICParameterFile& file) {
  // Asking for the root of a sub-device that is not there would make it.
  const bool isThere = !file.paramValue(name, subDevId).isNull();
  return isThere ? file.findParameter(file.rootGroup(subDevId), name) : nullptr;
}

const ICParamTreeNode* CParameterWords::findAddress(const SWord& word, ICParameterFile& file) {
  const std::optional<SAddress>& address = word.address;
  if (!address || address->hardwareId != file.hardwareId()) return nullptr;
  const ICParamTreeNode* node = find(address->name, address->subDevId, file);
  return node && SAddress::groupsOf(*node) == address->groups ? node : nullptr;
}

CParameterWords::EMeaning CParameterWords::meaningIn(ICParameterFile& file, const SWord& word) {
  if (!NParameterLookup::subDevicesWith(file, word.text).isEmpty()) return EMeaning::Name;
  return findAddress(word, file) ? EMeaning::Address : EMeaning::Pattern;
}

void CParameterWords::readNames(const CLoadedFile& loaded, const QStringList& hardwareIds) {
  const bool isClear = std::none_of(mWords.begin(), mWords.end(), [](const SWord& word) {
    return word.meaning == EMeaning::Pattern;
  });
  if (isClear) return;
  for (const QString& hardwareId : hardwareIds) {
    loaded.file().selectHardwareId(hardwareId);
    for (SWord& word : mWords)
      if (word.meaning == EMeaning::Pattern) word.meaning = meaningIn(loaded.file(), word);
  }
}

EExitStatus CParameterWords::checkAddresses(const QString& hardwareId,
                                            const CInvocation& invocation, COutput& out) const {
  for (const SWord& word : mWords) {
    if (!word.address || word.meaning == EMeaning::Name) continue;
    const QString problem = disagreement(*word.address, hardwareId, invocation.subDevice());
    if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  }
  return ExitDone;
}

QString CParameterWords::disagreement(const SAddress& address, const QString& hardwareId,
                                      std::optional<quint8> subDevice) {
  if (!hardwareId.isNull() && address.hardwareId != hardwareId)
    return Tool::tr("%1 is not in the hardware id %2.").arg(address.toText(), hardwareId);
  if (subDevice && *subDevice != address.subDevId)
    return Tool::tr("%1 is not in sub-device %2.")
        .arg(address.toText(), QString::number(*subDevice));
  return {};
}

// --- Looking them up

QVector<const ICParamTreeNode*> CParameterWords::look(ICParameterFile& file,
                                                      std::optional<quint8> subDevice) {
  QVector<const ICParamTreeNode*> nodes;
  mSubDevice = subDevice;
  for (SWord& word : mWords) {
    for (const ICParamTreeNode* node : meantBy(word, file)) {
      const bool isWanted = subDevice.value_or(node->subDevId()) == node->subDevId();
      if (!isWanted) word.elsewhere.insert(node->subDevId());
      word.isFound = word.isFound || isWanted;
      if (isWanted && mFound.insert(node).second) nodes.append(node);
    }
  }
  return nodes;
}

QVector<const ICParamTreeNode*> CParameterWords::meantBy(const SWord& word, ICParameterFile& file) {
  QVector<const ICParamTreeNode*> nodes;
  if (word.meaning == EMeaning::Address) {
    if (const ICParamTreeNode* node = findAddress(word, file)) nodes.append(node);
    return nodes;
  }
  const QString hardwareId = file.hardwareId();
  for (const quint8 id : file.subDeviceIds())
    if (word.meaning == EMeaning::Pattern)
      nodes += CWalk(word, SAddress::place(hardwareId, id) + kSlash).visit(*file.rootGroup(id), {});
    else if (const ICParamTreeNode* node = find(word.text, id, file))
      nodes.append(node);
  return nodes;
}

bool CParameterWords::reportMissing(const CLoadedFile& loaded,
                                    const QStringList& hardwareIds) const {
  QStringList known;
  int reported = 0;
  for (const SWord& word : mWords) {
    if (word.isFound) continue;
    if (reported == 0) known = NParameterLookup::allNames(loaded, hardwareIds);
    report(word, reported++ < NSuggestion::kMaxHelped ? known : QStringList(), loaded);
  }
  return reported == 0;
}

void CParameterWords::report(const SWord& word, const QStringList& known,
                             const CLoadedFile& loaded) const {
  if (!word.elsewhere.empty()) {
    const QList<quint8> ids(word.elsewhere.begin(), word.elsewhere.end());
    loaded.message(
        Tool::tr("there is no parameter \"%1\" in sub-device %2; it is in %3.")
            .arg(word.text, QString::number(*mSubDevice), NParameterLookup::listed(ids)));
    return;
  }
  const QString text = hasWildcard(word.text) ? Tool::tr("no parameter matches \"%1\".%2")
                                              : Tool::tr("there is no parameter \"%1\".%2");
  loaded.message(text.arg(word.text, NParameterLookup::didYouMean(word.text, known)));
}
