#pragma once

#include "CFolderLock.h"
#include "ICCompensationFile.h"
#include "ICParameterFile.h"
#include "ICSettingsFile.h"
#include "NOptions.h"
#include "SFileInfo.h"

#include <QDate>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class CInvocation;
class COutput;

/// The Head of a file.
struct SHead {
  QDate date;
  QString author;
  QString comment;
};

/// Why a file could not be loaded, without its name.
struct SLoadProblem {
  QString text;
  int line = 0;  ///< 0 for none, or when the text tells it
};

/// A file of any kind as a command opens it, or a value file together with its definitions.
/// Whatever version it has is loaded. Whatever fails is reported to the output at once.
class CLoadedFile {
 public:
  explicit CLoadedFile(COutput& out);

  /// Keeps other commands out of the folder of the file that will be written, until it is. To be
  /// called before anything is loaded. Waits up to ten seconds for them; false, with a message,
  /// when that is not enough. A dry run writes nothing and needs no lock.
  bool lock(const QString& fileName, const CInvocation& invocation);
  /// When nothing will be written after all.
  void unlock() { mLock.unlock(); }

  /// Refuses a file of another kind. Unless one is wanted, every kind that is known will do, and
  /// info() says which it is.
  bool load(const QString& fileName, SFileInfo::EKind wanted = SFileInfo::Unknown);
  /// The same for a file whose kind is known; what is wrong with it is not reported but returned.
  std::optional<SLoadProblem> tryLoad(const QString& fileName, const SFileInfo& info);
  /// The value file, and the definitions of the file that the command line names, or that is found
  /// beside the value file or `other`, which is told. One that is found and cannot be loaded is
  /// reported, and done without.
  bool loadValues(const QString& fileName, const CInvocation& invocation,
                  const QString& other = {});

  /// Loads the first argument and "--def", to show values: there are chosenIds() then, and one of
  /// them has the sub-device that is wanted.
  EExitStatus openToRead(const CInvocation& invocation);
  /// Locks and loads the same to edit it: it can be saved, and the one hardware id that is meant is
  /// active.
  /// Where the command line has no "--hardware-id", `meant` says which if the file has it.
  EExitStatus openToEdit(const CInvocation& invocation, const QString& meant = {});

  /// A value file that does not exist yet. Its save fails when there is one by then.
  void begin(const QString& fileName, NktoGlobal::EParamFileType type, quint32 version);

  /// Whether the value file could be saved with the version that it has. To be asked before any
  /// change is shown as made.
  bool canSave() const;
  /// Writes the value file back. What a save loses of the file that was loaded is told.
  bool save();
  /// Writes the value file under another name or version.
  bool saveAs(const QString& fileName, quint32 version);
  /// Writes the definitions under another name or version.
  bool saveDefinitionsAs(const QString& fileName, quint32 version);
  /// Writes the compensation file under this name.
  bool saveCompensation(const QString& fileName);

  /// Tells which types and names of sub-devices are in the value file but in no save of it.
  void tellWhatSavesLose() const;

  /// Of definitions and values.
  ICParameterFile& file() const { return *mFile; }
  /// Null unless a file of the kind is loaded.
  ICSettingsFile* settings() const { return mSettings.get(); }
  ICCompensationFile* compensation() const { return mCompensation.get(); }

  /// About the file that was loaded first.
  const SFileInfo& info() const { return mInfo; }
  const QString& fileName() const { return mFileName; }
  SHead head() const;
  bool hasDefinitions() const { return !mDefinitionFile.isEmpty(); }
  /// Whether there is a definition file that nobody named, be it loaded or not: it informs, and
  /// decides nothing that is written.
  bool areDefinitionsFound() const { return mAreDefinitionsFound; }
  /// Where the definitions come from; empty when there are none.
  const QString& definitionFile() const { return mDefinitionFile; }

  /// Makes the hardware id active.
  bool selectHardwareId(const QString& hardwareId);
  /// The hardware ids that a command works on: that of "--hardware-id", or all. Empty, which no
  /// file can be, when that one does not exist.
  QStringList hardwareIds(const CInvocation& invocation);
  /// Makes the one hardware id active that the option names, or the file's only one. False, with a
  /// message, when it is not clear which.
  bool selectOneHardwareId(const CInvocation& invocation,
                           QLatin1String option = NOptions::kHardwareId);
  /// False, with a message, when none of the hardware ids has a sub-device that is wanted.
  bool checkSubDevice(std::optional<quint8> wanted, const QStringList& hardwareIds);
  /// After openToRead(), the hardware id of "--hardware-id", or all.
  const QStringList& chosenIds() const { return mChosenIds; }
  /// That of "--sub-device"; nothing when it is not given.
  std::optional<quint8> chosenSubDevice() const { return mChosenSubDevice; }
  /// That of "--sub-device" if the active hardware id has it, or all.
  QList<quint8> chosenSubDevices() const;

  /// Reports about the file.
  void message(const QString& text) const;

 private:
  void findDefinitions(const QStringList& valueFiles);
  QString errorMsg() const;
  QString saveNew();
  bool write(const QString& fileName, const std::function<QString()>& save);

  COutput& mOut;
  CFolderLock mLock;
  std::unique_ptr<ICParameterFile> mFile;
  std::unique_ptr<ICSettingsFile> mSettings;
  std::unique_ptr<ICCompensationFile> mCompensation;
  SFileInfo mInfo;
  QString mFileName;
  QStringList mChosenIds;
  std::optional<quint8> mChosenSubDevice;
  QString mDefinitionFile;
  bool mAreDefinitionsFound = false;
  bool mIsNew = false;
};
