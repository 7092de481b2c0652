#pragma once

#include "CLoadedFile.h"
#include "CParameterWords.h"
#include "NIdDifferences.h"

#include <QLatin1String>
#include <QPair>

#include <set>
#include <tuple>

class CInvocation;

/// The two sides of a comparison as the command line names them, and what of them is compared.
class CComparedFiles {
 public:
  static const QLatin1String kNewHardwareId;
  static const QLatin1String kNewSubDevice;
  static const QLatin1String kOnly;

  /// What is wrong with the options; empty when nothing is.
  static QString usageProblem(const CInvocation& invocation);

  CComparedFiles(const CInvocation& invocation, COutput& out);

  bool load();
  /// False, with a message, when a file does not have what is to be compared.
  bool select();
  /// Finds the parameters that are named. Not done when one of them is nowhere.
  EExitStatus look();
  CParamDifferences compare() const;
  /// Where both files have the parameters that were compared.
  NIdDifferences::CPlaces places() const;

  const ICParameterFile& definitions() const { return mNew.file(); }
  const QString& definitionFile() const { return mNew.definitionFile(); }
  const QString& oldName() const { return mOld.fileName(); }
  const QString& newName() const { return mNew.fileName(); }

 private:
  /// The arguments: OLD, NEW, and names. NEW may be missing where options tell what to compare
  /// with; the second word is a name then, unless there is a file of that name.
  struct SNames {
    explicit SNames(const CInvocation& invocation);

    QString oldFile;
    QString newFile;
    bool hasNew;
    QStringList parameters;
  };
  /// By hardware id, sub-device and name as differences tell them: those of NEW.
  using CPlace = std::tuple<QString, int, QString>;

  void note(ICParameterFile& file, std::optional<quint8> subDevice, const QString& hardwareId);
  CParamDifferences meant(const CParamDifferences& all) const;

  const CInvocation& mInvocation;
  COutput& mOut;
  const SNames mNames;
  CLoadedFile mOld;
  CLoadedFile mNew;
  CParameterWords mWords;
  std::set<CPlace> mMeant;
  const std::optional<quint8> mOldSubDevice;
  const std::optional<quint8> mNewSubDevice;
  QVector<QPair<QString, QString>> mHardwareIds;
};
