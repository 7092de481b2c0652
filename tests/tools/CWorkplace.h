#pragma once

#include "TestFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

/// How a run of the tool ended, and what it wrote.
struct SRun {
  int status;
  QString out;
  QString err;
};

/// A folder of its own with copies of the example files and of those in "files".
class CWorkplace {
 public:
  /// The tool runs in the locale, which need not be installed on the machine.
  explicit CWorkplace(const char* locale = "C") : mLocale(QString::fromLatin1(locale)) {
    for (const char* folder : {KTO_EXAMPLE_DATA, KTO_TOOL_TESTS "/files"}) {
      const QDir source(QString::fromLocal8Bit(folder));
      for (const QString& name : source.entryList(QDir::Files))
        QFile::copy(source.filePath(name), path(name));
    }
  }

  QString path(const QString& name) const { return mFolder.filePath(name); }

  SRun run(const QStringList& words, const QString& resultFile = {}) const {
    return start(KTO_TOOL, words, resultFile);
  }

  SRun runLine(const QString& line) const { return run(QProcess::splitCommand(line)); }

  /// A script in which "ktoparam" is the one that was built.
  SRun shell(const QString& script) const { return start("sh", {"-c", script}, {}); }

  QMap<QString, QByteArray> files() const {
    QMap<QString, QByteArray> contents;
    const QDir folder(mFolder.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
      contents.insert(name, NTestFiles::read(path(name)));
    return contents;
  }

 private:
  SRun start(const QString& program, const QStringList& words, const QString& resultFile) const {
    QProcess process;
    process.setWorkingDirectory(mFolder.path());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", mLocale);
    environment.remove("LANGUAGE");
#ifdef KTO_LOCALES
    environment.insert("LOCPATH", KTO_LOCALES);
#endif
    environment.insert("PATH", QFileInfo(KTO_TOOL).path() + ':' + environment.value("PATH"));
    process.setProcessEnvironment(environment);
    if (!resultFile.isEmpty()) process.setStandardOutputFile(resultFile);
    process.start(program, words);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
      return {-1, {}, {}};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }

  const QString mLocale;
  QTemporaryDir mFolder;
};
