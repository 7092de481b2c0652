#include "NFileHints.h"

#include "CAtomicFile.h"
#include "COutput.h"
#include "NSuggestion.h"
#include "Tool.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Names with one suffix are not alike for that.
QString closestFile(const QString& name, const QDir& folder) {
  const QString closest = NSuggestion::closest(name, folder.entryList(QDir::Files | QDir::Hidden));
  const QStringList base(QFileInfo(closest).baseName());
  return NSuggestion::closest(QFileInfo(name).baseName(), base).isNull() ? QString() : closest;
}

QString missing(const QFileInfo& place) {
  const QDir folder = place.dir();
  if (!folder.exists()) return Tool::tr("there is no folder \"%1\".").arg(place.path());
  const QString meant = closestFile(place.fileName(), folder);
  if (meant.isEmpty()) return Tool::tr("there is no such file.");
  // As it was typed, with the same folder in front or none.
  const QString typed = place.filePath();
  return Tool::tr("there is no such file. Did you mean \"%1\"?")
      .arg(typed.left(typed.size() - place.fileName().size()) + meant);
}

}  // namespace

QString NFileHints::unreadable(const QString& fileName) {
  const QString problem = CAtomicFile::nameProblem(fileName);
  if (!problem.isEmpty()) return problem;
  const QFileInfo place(fileName);
  if (place.isDir()) return Tool::tr("this is a folder; name a file.");
  if (place.exists()) return place.isFile() ? QString() : Tool::tr("this is not a regular file.");
  if (place.isSymLink()) return Tool::tr("this is a link to a file that does not exist.");
  if (fileName == QLatin1String("-"))
    return Tool::tr("files are not read from the standard input; name a file.");
  return missing(place);
}

void NFileHints::tellWhyUnsaved(const QString& fileName, COutput& out) {
  if (!CAtomicFile::nameProblem(fileName).isEmpty()) return;
  const QFileInfo folder(QFileInfo(fileName).path());
  if (!folder.exists()) {
    out.message(fileName,
                Tool::tr("there is no folder \"%1\"; make it first.").arg(folder.filePath()));
  } else if (folder.isDir() && !folder.isWritable()) {
    // That the file itself may be written to does not help.
    out.message(fileName, Tool::tr("a save puts a new file in the place of the old one; you need "
                                   "permission to write to the folder \"%1\".")
                              .arg(folder.absoluteFilePath()));
  }
}
