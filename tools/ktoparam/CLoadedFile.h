#pragma once

#include "CommonOptions.h"
#include "ICParameterFile.h"
#include "SFileInfo.h"

#include <QStringList>

#include <memory>
#include <optional>

class CInvocation;
class COutput;

/// A value file, a definition file, or both together, as a command opens them. Whatever fails is
/// reported to the output at once.
class CLoadedFile {
 public:
  explicit CLoadedFile(COutput& out);

  /// Both refuse another kind of file, and load whatever version the file has.
  bool loadValues(const QString& fileName);
  bool loadDefinitions(const QString& fileName);
  /// The value file, and the definitions when the command line names a file of them.
  bool load(const QString& valueFile, const CInvocation& invocation);

  /// A value file that does not exist yet. Its save fails when there is one by then.
  void begin(const QString& fileName, NktoGlobal::EParamFileType type, quint32 version);

  /// Whether the value file could be saved with the version that it has. To be asked before any
  /// change is shown as made.
  bool canSave();
  /// Writes the value file back. What a save loses of the file that was loaded is told.
  bool save();
  /// Writes the value file under another name or version.
  bool saveAs(const QString& fileName, quint32 version);

  /// Tells which types and names of sub-devices stand in the value file but in no save of it.
  void tellWhatSavesLose() const;

  ICParameterFile& file() const { return *mFile; }
  /// About the value file, or else about the definition file.
  const SFileInfo& info() const { return mInfo; }
  bool hasDefinitions() const { return mHasDefinitions; }
  const QString& fileName() const { return mFileName; }

  /// Makes the hardware id active.
  bool selectHardwareId(const QString& hardwareId);
  /// The hardware ids that a command works on: that of "--hardware-id", or all. Empty, which no
  /// file can be, when that one does not exist.
  QStringList hardwareIds(const CInvocation& invocation);
  /// Makes the one hardware id active that the option names, or the file's only one. False, with a
  /// message, when it is not clear which.
  bool selectOneHardwareId(const CInvocation& invocation,
                           QLatin1String option = CommonOptions::kHardwareId);
  /// False, with a message, when none of the hardware ids has a sub-device that is wanted.
  bool checkSubDevice(std::optional<quint8> wanted, const QStringList& hardwareIds);

  /// Reports about the value file.
  void message(const QString& text) const;

 private:
  bool saveNew();
  bool checkKind(const QString& fileName, SFileInfo::EKind wanted, SFileInfo& info);
  void reportFailure(const QString& fileName) const;

  COutput& mOut;
  std::unique_ptr<ICParameterFile> mFile;
  SFileInfo mInfo;
  QString mFileName;
  bool mHasDefinitions = false;
  bool mIsNew = false;
};
