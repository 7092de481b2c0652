// The schemas against the test files, and against what the library itself accepts.

#include "ICParameterFile.h"
#include "TestFiles.h"
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

  /// Numbers at their limits and names near the reserved one, where they may be.
  void texts_data() {
    addColumns<QString, QString>("place", "text");
    const auto rows = [](const QString& place, const QStringList& texts) {
      for (const QString& text : texts) addRow(qPrintable(place + ' ' + text), place, text);
    };
    for (const char* place : {"id", "choice", "bit", "sub-device"}) {
      rows(place, {"0", "-0", "+7", " 08 ", "0x07", "+0X0a", "-1", "", "x", "0x", "1 2", "0x0x1",
                   "1.0", "0b1", "+-1"});
    }
    rows("id", {"4294967294", "4294967295", "4294967296", "0xfffffffe", "0xFFFFFFFF", "0x0ffffffff",
                "0xf0ffffff", "0xf0fffffff", "0x100000000", "000000000004294967294"});
    rows("choice", {"9223372036854775807", "9223372036854775808", "-9223372036854775808",
                    "-9223372036854775809", "0x7fffffffffffffff", "0x8000000000000000",
                    "-0x8000000000000000", "-0x8000000000000001", "0x00fffffffffffffff"});
    rows("bit", {"63", "64", "0x3f", "0x40", "0x003F"});
    rows("sub-device", {"255", "256", "0xff", "0x100", "0x00ff"});
    const QString reserved = "[standard constructed]";
    rows("name", {"", reserved + " ", "\n" + reserved, reserved, "[standard",
                  "standard constructed]", "[standard constructex]", "[Standard constructed]"});
  }
  void texts() {
    QFETCH(QString, place);
    QFETCH(QString, text);
    const auto write = [&](const QString& name, QString document) {
      document.replace('@' + place + '@', text).replace(QRegularExpression("@[a-z-]+@"), "1");
      const QString path = mFolder.filePath(name);
      if (!NTestFiles::write(path, document.toUtf8())) qFatal("cannot write %s", qPrintable(path));
      return path;
    };
    const QString definitions =
        write("definitions",
              "<LumoParamDefinition><Data><Param id='1'><Name>@name@</Name>"
              "<Type>i64</Type><Enum><Item value='@choice@'>c</Item></Enum><BitSet>"
              "<Bit pos='@bit@' invert='true'>b</Bit></BitSet></Param></Data>"
              "</LumoParamDefinition>");
    const QString values =
        write("values",
              "<LumoParameters><Data hardwareId='H'><SubDevice id='@sub-device@'><Group>"
              "<Name>G@name@</Name></Group><Param id='@id@'><Name>@name@</Name><Value/>"
              "</Param></SubDevice></Data></LumoParameters>");
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
