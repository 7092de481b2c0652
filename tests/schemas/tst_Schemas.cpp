// The schemas against the test files, and against what the library itself accepts.

#include "GoldenFiles.h"
#include "ICParameterFile.h"
#include "TestRows.h"

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
  if (!xmllint.waitForFinished() || xmllint.exitStatus() != QProcess::NormalExit)
    qFatal("xmllint did not run");
  const int result = xmllint.exitCode();
  // 1: not well-formed, 3: not valid, 4: not valid by an identity constraint.
  if (result != 0 && result != 1 && result != 3 && result != 4)
    qFatal("xmllint: %s", xmllint.readAllStandardError().constData());
  return result == 0;
}

}  // namespace

class tst_Schemas : public QObject {
  Q_OBJECT

 private slots:
  void files_data() {
    addColumns<QString, QString, bool>("schema", "file", "isValid");
    const auto rows = [](const QString& schema, const QString& folder, const char* pattern) {
      const bool areValid = !folder.endsWith("invalid");
      const QFileInfoList files = QDir(folder).entryInfoList({pattern}, QDir::Files);
      QVERIFY(!files.isEmpty());
      for (const QFileInfo& file : files) {
        addRow(qPrintable(folder + '/' + file.fileName()), schema, file.filePath(),
               areValid || kBeyondSchemas.contains(file.fileName()));
      }
    };
    rows("definition", KTO_EXAMPLE_DATA, "*.xpdef");
    rows("value", KTO_EXAMPLE_DATA, "*.xparam");
    rows("compensation", KTO_EXAMPLE_DATA, "*.xcomp");
    for (const QString schema : {"definition", "value", "compensation"})
      for (const char* folder : {"/valid", "/saved", "/invalid"})
        rows(schema, NTestFiles::data(schema + (schema == "compensation" ? "" : "s") + folder),
             "*.x*");
  }
  void files() {
    QFETCH(QString, schema);
    QFETCH(QString, file);
    QTEST(validates(schema, file), "isValid");
  }

  /// Numbers at their limits and names near the reserved one, where they may be: a file of
  /// definitions and one of values load when they are valid.
  void texts_data() {
    addColumns<QString, QString>("place", "text");
    const QStringList lines = NGoldenFiles::lines(NTestFiles::data("schemas/texts.txt"));
    for (const QString& line : lines) {
      const QStringList cells = line.split('|');
      for (const QString& place : cells.first().split(' '))
        for (const QString& text : cells.mid(1)) addRow(qPrintable(place + text), place, text);
    }
  }
  void texts() {
    QFETCH(QString, place);
    QFETCH(QString, text);
    const auto fill = [&](const QString& name) {
      QString document = NTestFiles::read(NTestFiles::data("schemas/" + name));
      document.replace('@' + place + '@', text).replace(QRegularExpression("@[a-z-]+@"), "1");
      const QString path = mFolder.filePath(name);
      if (!NTestFiles::write(path, document.toUtf8())) qFatal("cannot write %s", qPrintable(path));
      return path;
    };
    const QString definitions = fill("definitions.xpdef");
    const QString values = fill("values.xparam");
    const std::unique_ptr<ICParameterFile> file(
        ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
    const bool loads = file->loadParamDefFile(definitions, 0x10000) &&
                       file->loadParamFile(values, QString(), 0x10000);
    QCOMPARE(validates("definition", definitions) && validates("value", values), loads);
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(tst_Schemas)
#include "tst_Schemas.moc"
