#pragma once

#include "CMigrationTable.h"
#include "SMigrationStep.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QMap>
#include <QVector>

class ICParameterFile;

/// Makes values of one release's definitions into values of the next, or back, by migration tables:
/// first the plan of every change, then all of it or nothing. What no rule touches keeps its text.
///
/// @snippet usage.cpp CParameterMigration
class KTOPARAMETER_EXPORT CParameterMigration {
  Q_DECLARE_TR_FUNCTIONS(CParameterMigration)

 public:
  /// A table and the definitions at its two ends, which are not owned and outlive the migration.
  struct SRelease {
    CMigrationTable table;
    const ICParameterFile* oldDefinitions = nullptr;
    const ICParameterFile* newDefinitions = nullptr;
  };
  enum EDirection { Forward, Back };

  /// Values as ICParameterFile::createSingle() makes them, not owned. The tables follow each
  /// other, from the oldest; back, they are used from the last.
  CParameterMigration(ICParameterFile& values, const QVector<SRelease>& releases,
                      EDirection direction = Forward);
  ~CParameterMigration();

  /// The new texts of parameters that a human decided about, by their names at the end. Where the
  /// value is what is open, in whatever hardware id and sub-device, an answer takes its place; its
  /// step is Replaced then, or NotAllowed when the definitions do not allow it either.
  void setAnswers(const QMap<QString, QString>& answers);

  /// Makes the plan; the values are not changed. False, with errorMsg(), when the tables have
  /// problems other than warnings, or the values are not an object of this library.
  bool plan();
  /// By table as they are used, hardware id, sub-device and tree order.
  const CMigrationSteps& steps() const;
  /// Whether a step is Decide or NotAllowed.
  bool isOpen() const;
  /// Does what was planned, as of the last plan(); open steps are done, too: Decide keeps the
  /// value. Nodes of the values are no longer valid. False, with nothing changed, without a plan,
  /// and Back when there is a step that does not come back, unless it was answered.
  bool run();
  /// The version under which to save the values, as ICParameterFile::paramFileVersion() packs it:
  /// that of the last table that names one. Back, and where none does, it is the values' own.
  quint32 version() const;
  QString errorMsg() const;

 private:
  Q_DISABLE_COPY(CParameterMigration)
  struct SData;
  SData* d;
};
