#pragma once

#include "CNamePattern.h"
#include "SAddress.h"
#include "SCommand.h"

#include <QStringList>
#include <QVector>

#include <optional>
#include <set>
#include <vector>

class CInvocation;
class CLoadedFile;
class COutput;
class ICParamTreeNode;
class ICParameterFile;

/// Parameters as they are typed: by name, by pattern ("*Limit"), by the path of a group
/// ("Motion/Limits", "Motion/*"), or by an address as `text` prints it.
///
/// A word that is the name or the address of a parameter means that one and is not a pattern.
class CParameterWords {
 public:
  explicit CParameterWords(const QStringList& words);

  /// Without words all parameters are meant.
  bool isEmpty() const { return mWords.empty(); }
  /// What is wrong with an address that is not in the hardware id, unless that is null, or not in
  /// the sub-device; empty when nothing is.
  static QString disagreement(const SAddress& address, const QString& hardwareId,
                              std::optional<quint8> subDevice);
  /// Opens the file as CLoadedFile does, with readNames().
  EExitStatus openToRead(CLoadedFile& loaded, const CInvocation& invocation, COutput& out);
  EExitStatus openToEdit(CLoadedFile& loaded, const CInvocation& invocation, COutput& out);
  /// To be called before look(), for each file: finds out which words are names or addresses.
  void readNames(const CLoadedFile& loaded, const QStringList& hardwareIds);
  /// Reports an address of another hardware id, unless that is null, or of another sub-device than
  /// the option names.
  EExitStatus checkAddresses(const QString& hardwareId, const CInvocation& invocation,
                             COutput& out) const;

  /// The parameters of the active hardware id that are meant, each once, in the order of the words,
  /// and of a pattern in that of the tree. Those of other sub-devices than the one wanted are left
  /// out.
  QVector<const ICParamTreeNode*> look(ICParameterFile& file, std::optional<quint8> subDevice);
  /// Whether a parameter is meant, in a file of which this was asked to look().
  bool mean(const ICParamTreeNode& node) const { return isEmpty() || mFound.count(&node) > 0; }
  /// Reports the words that look() found nowhere; true when there are none.
  bool reportMissing(const CLoadedFile& loaded, const QStringList& hardwareIds) const;

 private:
  enum class EMeaning { Name, Address, Pattern };
  struct SWord {
    explicit SWord(const QString& word);

    QString text;
    EMeaning meaning;
    CNamePattern pattern;
    CNamePattern below;               // for all that is in a group
    std::optional<SAddress> address;  // when it could be one
    bool isFound = false;
    std::set<quint8> elsewhere;  // sub-devices that were not wanted
  };
  class CWalk;

  static const ICParamTreeNode* find(const QString& name, quint8 subDevId, ICParameterFile& file);
  static const ICParamTreeNode* findAddress(const SWord& word, ICParameterFile& file);
  static EMeaning meaningIn(ICParameterFile& file, const SWord& word);
  static QVector<const ICParamTreeNode*> meantBy(const SWord& word, ICParameterFile& file);
  void report(const SWord& word, const QStringList& known, const CLoadedFile& loaded) const;

  std::vector<SWord> mWords;
  std::optional<quint8> mSubDevice;  // the wanted one
  std::set<const ICParamTreeNode*> mFound;
};
