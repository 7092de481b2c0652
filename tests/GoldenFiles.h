#pragma once

#include "TestFiles.h"

#include <QDir>
#include <QStringList>

/// Folders of test files that lie beside what is expected of them: "name.xml" and "name.txt".
namespace NGoldenFiles {

/// The folder of an area and kind, e.g. "settings/valid".
inline QDir folder(const QString& area) {
  return QDir(NTestFiles::data(area));
}

/// The names, without the suffix, of the files in a folder.
inline QStringList names(const QString& area, const QString& suffix) {
  QStringList names = folder(area).entryList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
  for (QString& name : names) {
    name.chop(suffix.size());
  }
  return names;
}

}  // namespace NGoldenFiles
