// The schemas against the test files, and against what the library itself accepts.

#include "GoldenFiles.h"
#include "ICParameterFile.h"

#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace {

/// Files that cannot be loaded and are valid all the same: ids that mean no id may be there twice,
/// others not; limits compare two elements; the application expects a version.
const QStringList kBeyondSchemas = {"Error_IdTwice.xpdef", "Error_LimitsFloat.xpdef",
                                    "Error_LimitsSigned.xpdef", "Error_LimitsUnsigned.xpdef",
                                    "Error_Version.xparam"};

bool validates(const QString& schema, const QString& file) {
  QProcess xmllint;
  xmllint.start(XMLLINT,
                {"--noout", "--nonet", "--schema", KTO_SCHEMAS "/" + schema + ".xsd", file});
  const bool hasRun = xmllint.waitForFinished() && xmllint.exitStatus() == QProcess::NormalExit;
  // 1: not well-formed, 3: not valid, 4: not valid by an identity constraint.
  if (!hasRun || !QList<int>{0, 1, 3, 4}.contains(xmllint.exitCode()))
    qFatal("xmllint: %s", xmllint.readAllStandardError().constData());
  return xmllint.exitCode() == 0;
}

}  // namespace

class tst_Schemas : public QObject {
  Q_OBJECT

 private slots:
  void files() {
    const QList<QStringList> kinds{{"definition", "definitions", "*.xpdef"},
                                   {"value", "values", "*.xparam"},
                                   {"compensation", "compensation", "*.xcomp"}};
    for (const QStringList& kind : kinds) {
      QFileInfoList files = QDir(KTO_EXAMPLE_DATA).entryInfoList({kind.at(2)});
      for (const char* folder : {"/valid", "/saved", "/invalid"})
        files += QDir(NTestFiles::data(kind.at(1)) + folder).entryInfoList({"*.x*"});
      QVERIFY(files.size() > 8);
      for (const QFileInfo& file : qAsConst(files)) {
        const bool isValid =
            file.dir().dirName() != "invalid" || kBeyondSchemas.contains(file.fileName());
        QVERIFY2(validates(kind.at(0), file.filePath()) == isValid, qPrintable(file.filePath()));
      }
    }
  }

  /// Numbers at their limits and names near the reserved one, where they may be: a file of
  /// definitions and one of values load when they are valid.
  void texts() {
    const QTemporaryDir folder;
    for (const QString& line : NGoldenFiles::lines(NTestFiles::data("schemas/texts.txt"))) {
      for (const QString& place : line.section('|', 0, 0).split(' ')) {
        for (const QString& text : line.section('|', 1).split('|')) {
          const auto fill = [&](const QString& name) {
            QString document = NTestFiles::read(NTestFiles::data("schemas/" + name));
            document.replace('@' + place + '@', text).replace(QRegularExpression("@[a-z-]+@"), "1");
            NTestFiles::write(folder.filePath(name), document.toUtf8());
            return folder.filePath(name);
          };
          const QString definitions = fill("definitions.xpdef");
          const QString values = fill("values.xparam");
          const std::unique_ptr<ICParameterFile> file(
              ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
          const bool loads = file->loadParamDefFile(definitions, 0x10000) &&
                             file->loadParamFile(values, QString(), 0x10000);
          const bool isValid = validates("definition", definitions) && validates("value", values);
          QVERIFY2(isValid == loads, qPrintable(place + " " + text));
        }
      }
    }
  }
};

QTEST_GUILESS_MAIN(tst_Schemas)
#include "tst_Schemas.moc"
