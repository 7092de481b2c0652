#pragma once

#include "SParamFinding.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QString>

#include <memory>

/// Maps the parameters of a definition or value file to line numbers. Read from the file on demand:
/// a model that is loaded does not store lines.
///
/// @snippet usage.cpp CParameterFileChecker
class KTOPARAMETER_EXPORT CParamLineIndex {
  Q_DECLARE_TR_FUNCTIONS(CParamLineIndex)

 public:
  /// Reads a file, in place of what was read before. False, with an empty index and errorMsg(),
  /// when the file cannot be read or is neither of the two.
  bool read(const QString& fileName);
  QString errorMsg() const { return mErrorMsg; }

  // Lines count from 1; 0 when the file does not have it.
  int definitionLine(const QString& name) const;
  int hardwareIdLine(const QString& hardwareId) const;
  int parameterLine(const QString& hardwareId, quint8 subDevId, const QString& name) const;

  /// Gives the findings about this file their lines, and leaves the others as they are, as well as
  /// those of a load, which have theirs. A missing parameter gets the line of its hardware id.
  void addLines(CParamFindings& findings) const;

 private:
  struct SLines;

  QString mErrorMsg;
  std::shared_ptr<const SLines> mLines;  // null when nothing was read
};
