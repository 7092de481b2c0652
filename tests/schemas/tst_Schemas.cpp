// The schemas against the test files, and against what the library itself accepts.

#include "ICParameterFile.h"
#include "TestFiles.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

constexpr quint32 kRevision = 0x10000;

/// Files that cannot be loaded and are valid all the same, with the reason.
const QMap<QString, const char*> kBeyondSchemas = {
    {"Error_IdTwice.xpdef", "ids that mean no id may stand twice, others not"},
    {"Error_LimitsFloat.xpdef", "compares two elements"},
    {"Error_LimitsSigned.xpdef", "compares two elements"},
    {"Error_LimitsUnsigned.xpdef", "compares two elements"},
    {"Error_HardwareId.xparam", "the application expects another hardware id"},
    {"Error_Version.xparam", "the application expects another version"},
};

bool validates(const QString& schema, const QString& file) {
  QProcess xmllint;
  xmllint.start(XMLLINT, {"--noout", "--nonet", "--schema", KTO_SCHEMAS "/" + schema, file});
  if (!xmllint.waitForFinished() || xmllint.exitStatus() != QProcess::NormalExit) {
    qFatal("xmllint did not run");
  }
  const int result = xmllint.exitCode();
  // 1: not well-formed, 3: not valid, 4: not valid by an identity constraint.
  if (result != 0 && result != 1 && result != 3 && result != 4) {
    qFatal("xmllint: %s", xmllint.readAllStandardError().constData());
  }
  return result == 0;
}

void addRows(const QString& schema, const QString& folder, const QStringList& filter,
             bool areValid) {
  const QFileInfoList files = QDir(folder).entryInfoList(filter, QDir::Files, QDir::Name);
  if (files.isEmpty()) qFatal("no files in %s", qPrintable(folder));
  for (const QFileInfo& file : files) {
    QTest::newRow(qPrintable(file.fileName()))
        << schema << file.filePath() << (areValid || kBeyondSchemas.contains(file.fileName()));
  }
}

}  // namespace

class tst_Schemas : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void files_data();
  void files();
  void numbers_data();
  void numbers();
  void names_data();
  void names();

 private:
  static bool loads(const QString& definitions, const QString& values);
  QString write(const QString& name, const QString& text) const;

  QTemporaryDir mFolder;
};

void tst_Schemas::files_data() {
  QTest::addColumn<QString>("schema");
  QTest::addColumn<QString>("file");
  QTest::addColumn<bool>("isValid");
  const QString data = KTO_TEST_DATA;
  addRows("definition.xsd", KTO_EXAMPLE_DATA, {"*.xpdef"}, true);
  addRows("value.xsd", KTO_EXAMPLE_DATA, {"*.xparam"}, true);
  addRows("compensation.xsd", KTO_EXAMPLE_DATA, {"*.xcomp"}, true);
  addRows("definition.xsd", data + "/definitions/valid", {"*.xpdef"}, true);
  addRows("value.xsd", data + "/values/valid", {"*.xparam"}, true);
  addRows("compensation.xsd", data + "/compensation/valid", {"*.xml"}, true);
  addRows("compensation.xsd", data + "/compensation/golden", {"*.xml"}, true);
  addRows("definition.xsd", data + "/definitions/invalid", {"*.xpdef"}, false);
  addRows("value.xsd", data + "/values/invalid", {"*.xparam"}, false);
  addRows("compensation.xsd", data + "/compensation/invalid", {"*.xml"}, false);
}

void tst_Schemas::files() {
  QFETCH(QString, schema);
  QFETCH(QString, file);
  QTEST(validates(schema, file), "isValid");
}

/// Numbers at their limits, in the places where they may stand.
void tst_Schemas::numbers_data() {
  QTest::addColumn<QString>("id");
  QTest::addColumn<QString>("choice");
  QTest::addColumn<QString>("bit");
  QTest::addColumn<QString>("subDevice");
  const auto row = [](const char* place, const QStringList& numbers, int column) {
    for (const QString& number : numbers) {
      QStringList places = {"1", "1", "1", "1"};
      places[column] = number;
      QTest::newRow(qPrintable(QString(place) + " " + number))
          << places[0] << places[1] << places[2] << places[3];
    }
  };
  const QStringList everywhere = {"0", "-0", "+7",  " 08 ",  "0x07", "+0X0a", "-1", "",
                                  "x", "0x", "1 2", "0x0x1", "1.0",  "0b1",   "+-1"};
  row("id", everywhere, 0);
  row("id",
      {"4294967294", "4294967295", "4294967296", "0xfffffffe", "0xFFFFFFFF", "0x0ffffffff",
       "0xf0ffffff", "0xf0fffffff", "0x100000000", "000000000004294967294"},
      0);
  row("choice", everywhere, 1);
  row("choice",
      {"9223372036854775807", "9223372036854775808", "-9223372036854775808", "-9223372036854775809",
       "0x7fffffffffffffff", "0x8000000000000000", "-0x8000000000000000", "-0x8000000000000001",
       "0x00fffffffffffffff"},
      1);
  row("bit", everywhere, 2);
  row("bit", {"63", "64", "0x3f", "0x40", "0x003F"}, 2);
  row("sub-device", everywhere, 3);
  row("sub-device", {"255", "256", "0xff", "0x100", "0x00ff"}, 3);
}

void tst_Schemas::numbers() {
  QFETCH(QString, id);
  QFETCH(QString, choice);
  QFETCH(QString, bit);
  QFETCH(QString, subDevice);
  const QString definitions =
      write("n.xpdef", QString("<LumoParamDefinition><Data><Param id=\"1\"><Name>P</Name>"
                               "<Type>i64</Type><Enum><Item value=\"%1\">c</Item></Enum>"
                               "<BitSet><Bit pos=\"%2\" invert=\"true\">b</Bit></BitSet>"
                               "</Param></Data></LumoParamDefinition>")
                           .arg(choice, bit));
  const QString values =
      write("n.xparam", QString("<LumoParameters><Data hardwareId=\"H\"><SubDevice id=\"%1\">"
                                "<Param id=\"%2\"><Name>P</Name><Value/></Param>"
                                "</SubDevice></Data></LumoParameters>")
                            .arg(subDevice, id));
  const bool isValid = validates("definition.xsd", definitions) && validates("value.xsd", values);
  QCOMPARE(isValid, loads(definitions, values));
}

void tst_Schemas::names_data() {
  QTest::addColumn<QString>("name");
  const QString reserved = "[standard constructed]";
  QTest::newRow("empty") << QString();
  for (int i = 0; i < reserved.size(); ++i) {
    QString other = reserved;
    other[i] = QLatin1Char('x');
    QTest::newRow(qPrintable(other)) << other;
    QTest::newRow(qPrintable("before " + reserved.left(i + 1))) << reserved.left(i + 1);
  }
  QTest::newRow("longer") << reserved + " ";
  QTest::newRow("with a line break") << "\n" + reserved;
}

void tst_Schemas::names() {
  QFETCH(QString, name);
  const QString definitions =
      write("m.xpdef", QString("<LumoParamDefinition><Data><Param id=\"1\"><Name>%1</Name>"
                               "<Type>u8</Type></Param></Data></LumoParamDefinition>")
                           .arg(name));
  const QString values =
      write("m.xparam", QString("<LumoParameters><Data hardwareId=\"H\"><SubDevice id=\"1\"><Group>"
                                "<Name>G%1</Name></Group><Param><Name>%1</Name><Value/></Param>"
                                "</SubDevice></Data></LumoParameters>")
                            .arg(name));
  const bool isValid = validates("definition.xsd", definitions) && validates("value.xsd", values);
  QCOMPARE(isValid, loads(definitions, values));
}

bool tst_Schemas::loads(const QString& definitions, const QString& values) {
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  return file->loadParamDefFile(definitions, kRevision) &&
         file->loadParamFile(values, QString(), kRevision);
}

QString tst_Schemas::write(const QString& name, const QString& text) const {
  const QString path = mFolder.filePath(name);
  if (!NTestFiles::write(path, text.toUtf8())) qFatal("cannot write %s", qPrintable(path));
  return path;
}

QTEST_GUILESS_MAIN(tst_Schemas)
#include "tst_Schemas.moc"
