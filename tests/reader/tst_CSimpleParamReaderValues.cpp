#include "GoldenFiles.h"
#include "ReaderTest.h"

#include <QTemporaryDir>
#include <QtTest>

#include <limits>
#include <variant>

using namespace NParamDef;

namespace {

template <typename T>
constexpr T kMax = std::numeric_limits<T>::max();

/// A number type, with the range that a getter gives a definition, and a default.
struct SType {
  const char* name;
  const char* min;
  const char* max;
  const char* defInMessage;
  std::variant<quint8, quint16, quint32, quint64, qint8, qint16, qint32, qint64, double> def;
};
const QVector<SType> kTypes = {
    {"u8", "0x0", "0xff", "255", kMax<quint8>},
    {"u16", "0x0", "0xffff", "65535", kMax<quint16>},
    {"u32", "0x0", "0xffffffff", "4294967295", kMax<quint32>},
    {"u64", "0x0", "0xffffffffffffffff", "18446744073709551615", kMax<quint64>},
    {"i8", "-128", "127", "127", kMax<qint8>},
    {"i16", "-32768", "32767", "32767", kMax<qint16>},
    {"i32", "-2147483648", "2147483647", "2147483647", kMax<qint32>},
    {"i64", "-9223372036854775808", "9223372036854775807", "9223372036854775807", kMax<qint64>},
    {"f64", "", "", "-1.23457e+06", -1234567.25}};

QString describe(const CParamDefItem& d) {
  return QStringList({QString::number(d.id()), d.typeStr(), d.defVal(), d.minVal(), d.maxVal()})
      .join(' ');
}

}  // namespace

class tst_CSimpleParamReaderValues : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    mFolder = std::make_unique<QTemporaryDir>();
    mLog = std::make_unique<CKeptLines>(ICLogfile::kLevelReadErrors);
    mReader = makeReader(FullAccess, "HW", mLog.get());
    mReader->load(mFolder->filePath("pair"), mErr);
    mErr.clear();
  }
  void cleanup() { mReader->closeFiles(false); }

  void getsNumbers_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("access");
    QTest::addColumn<QString>("before");  // what is there
    for (int type = 0; type < kTypes.size(); ++type) {
      for (const int access : {0, 1, 2, 3}) {  // 3: neither read only nor full access
        for (const char* before : {"nothing", "definition", "0017", "%2 abc"}) {
          QTest::addRow("%s, %d, %s", kTypes.at(type).name, access, before)
              << type << access << before;
        }
      }
    }
  }
  void getsNumbers() {
    QFETCH(int, type);
    QFETCH(int, access);
    QFETCH(QString, before);
    const QString typeName = kTypes.at(type).name;
    const bool isF64 = typeName == "f64";
    const bool isNumber = before == "0017";
    const bool hasValue = isNumber || before == "%2 abc";
    const bool isWrong = hasValue && !isNumber;
    const bool full = access == FullAccess;
    const QString old = hasValue ? before : QString();
    if (before != "nothing") mReader->addDef("p", PARAM_TYPE_STR, 7)->setMinVal("1");
    if (hasValue) file()->addParameter(file()->rootGroup(1), "p", before);
    file()->clearChanged();
    mReader->setAccessRights(EAccessRight(access));

    // Without a default: reads what is there.
    const QString wrong =
        "Error while reading parameter \"p\" on subdevice 1 : Value \"%2 abc\" "
        "is not an " +
        typeName + " value.\n";
    const QString none = "Error : Parameter \"p\" does not exist on subdevice 1.\n";
    QCOMPARE(get(type, false), isNumber);
    QCOMPARE(mErr, isNumber ? QString() : isWrong ? wrong : none);
    QCOMPARE(mNumber, QString(isNumber ? "17" : "3"));
    const QString logged = "CBaseParamReader::getUnsignedParam() " + wrong.chopped(1);
    QCOMPARE(mLog->lines, isWrong && !isF64 ? QStringList(logged) : QStringList());
    QVERIFY(!mReader->changed());

    // With a default: replaces what is no number, and with full access creates what is missing.
    const QString replaced =
        wrong.chopped(1) + " Default Value " + kTypes.at(type).defInMessage + " is taken.\n";
    const QString missing = before == "nothing"
                                ? "There is no parameter defined with name p.\n"
                                : "Error : Parameter \"p\" does nor exist on subdevice 1.\n";
    const bool there = hasValue || full;
    const bool written = !isNumber && there && access != ReadOnly;
    const QString def = isF64 ? "-1234567.25" : kTypes.at(type).max;
    mErr.clear();
    mLog->lines.clear();
    QCOMPARE(get(type, true), isNumber || written);
    QCOMPARE(mErr, !there ? missing : isWrong ? replaced : QString());
    QCOMPARE(mNumber, !there ? "3" : isNumber ? "17" : kTypes.at(type).defInMessage);
    QCOMPARE(file()->paramValue("p", 1).asStr(), written ? def : old);
    const QString operation = isF64 ? "getParam(f64) " : "getSignedParam() ";
    const QString line = "CBaseParamReader::" + operation + replaced.chopped(1);
    QCOMPARE(mLog->lines, isWrong ? QStringList(line) : QStringList());
    QCOMPARE(mDefinition, mReader->paramDefPtr("p"));
    if (mDefinition && before == "nothing") {
      QCOMPARE(
          describe(*mDefinition),
          QStringList({"7", typeName, def, kTypes.at(type).min, kTypes.at(type).max}).join(' '));
      QVERIFY(file()->existingSubGroup("A/B", 1)->childPtr("p"));
    } else if (mDefinition) {
      QCOMPARE(describe(*mDefinition), QString("7 str  1 ") + (full ? kTypes.at(type).max : ""));
    }
    // A second time nothing is left to do.
    file()->clearChanged();
    mErr.clear();
    QCOMPARE(get(type, true), isNumber || written);
    QCOMPARE(mErr.isEmpty(), isNumber || written);
    QVERIFY(!mReader->changed());
  }

  void getsTextsAndValues() {
    QString text;
    CParamVal val;
    QVERIFY(mReader->getParam(1, "p", "A\\B", text, u8" \u00fc ", mErr, 7, &mDefinition));
    QCOMPARE(describe(*mDefinition), QString(u8"7 str  \u00fc   "));
    QVERIFY(mReader->getParam(1, "v", "", PARAM_TYPE_U8, val, 300, mErr));
    QCOMPARE(describe(mReader->paramDef("v")), QString("0 u8 300  "));
    QVERIFY(mReader->getParam(1, "n", "", text, QString(), mErr));
    QVERIFY(mReader->containsVal("n", 1) && mReader->getParam(1, "n", text, mErr));
    // The default may be the very object that takes the value.
    QVERIFY(mReader->getParam(1, "p", "", text, text, mErr));
    QVERIFY(mReader->getParam(1, "v", "", PARAM_TYPE_U8, val, val, mErr));
    QCOMPARE(QString(text + val.asStr()), QString(u8" \u00fc 300"));
    QVERIFY(mReader->getParam(1, "p", val, mErr) && mReader->getParam(1, "v", text, mErr));
    QCOMPARE(QString(val.asStr() + text), QString(u8" \u00fc 300"));
    QVERIFY(mReader->containsVal("p", 1) && !mReader->containsVal("p", 2));

    // A failing getter with a default gives it, one without leaves the text alone.
    mReader->setAccessRights(ReadWrite);
    QVERIFY(!mReader->getParam(2, "p", "", text, "default", mErr));
    QVERIFY(!mReader->getParam(2, "p", text, mErr));
    QVERIFY(!mReader->getParam(2, "p", "", PARAM_TYPE_U8, val, 5, mErr));
    QCOMPARE(QString(val.asStr() + text), QString("5default"));
    QVERIFY(!mReader->getParam(2, "p", val, mErr) && val.isNull());
    QCOMPARE(mErr, QString("Error : Parameter \"p\" does nor exist on subdevice 2.\n"
                           "Error : Parameter \"p\" does not exist on subdevice 2.\n")
                       .repeated(2));
  }

  void definitionsThatCannotBe() {
    mDefinition = mReader->addDef("p", PARAM_TYPE_STR, 7);
    int number = 3;
    double real = 3;
    QString text;
    QVERIFY(!mReader->getParam(1, "", "A", number, 5, mErr, 8, &mDefinition) && !mDefinition);
    QVERIFY(!mReader->getParam(1, "q", "A", real, 5, mErr, 7));
    QVERIFY(!mReader->getParam(1, "q", "A", text, "default", mErr, 7));
    QVERIFY(number == 3 && real == 3 && text == "default" && !mReader->containsDef("q"));
    QVERIFY(!mReader->paramDefPtr("q", mErr));
    const QString taken = "Parameter \"q\" cannot have the id 7, which belongs to parameter \"p\".";
    QCOMPARE(mErr, QStringList({"A parameter definition needs a name.", taken, taken,
                                "There is no parameter defined with name q.", ""})
                       .join('\n'));
  }

  void setsExistingValues() {
    mReader->addDef("p", PARAM_TYPE_STR, 7);
    file()->addParameter(file()->rootGroup(1), "p");
    QVERIFY(!mReader->setParam(1, "q", 5, mErr));
    mReader->setAccessRights(ReadWrite);
    QVERIFY(mReader->setParam(1, "p", 6, mErr));
    mReader->setAccessRights(ReadOnly);
    QVERIFY(!mReader->setParam(1, "p", 7, mErr));
    QCOMPARE(file()->paramValue("p", 1).asStr(), QString("6"));
    QCOMPARE(mErr, QString("setParamValue() failed because there is no parameter value for sub "
                           "device 1 and name \"q\"\nError : Cannot change the value of parameter "
                           "\"p\" on sub device 1 because the file is write protected !\n"));
  }

  void deletes_data() {
    NGoldenFiles::addTable("reader/deletions.txt", {"name", "group", "left", "message"});
  }
  void deletes() {
    QFETCH(QString, name);
    QFETCH(QString, group);
    QFETCH(QString, left);
    QFETCH(QString, message);
    for (QString* cell : {&name, &group, &left}) cell->remove('-');
    if (!message.isEmpty()) message += '\n';
    QString text;
    mReader->getParam(1, "p", "A/B", text, "text", mErr);
    mReader->getParam(1, "q", "A", text, "text", mErr);
    const QString what = name.isEmpty() ? "Group \"" : "parameter \"";
    const QString path = name.isEmpty() ? group : QString(group + '/' + name);
    const QString refused = "Error : Cannot delete " + what + path +
                            "\" on sub device 1 because the file is write protected !\n";
    for (const EAccessRight access : {ReadOnly, ReadWrite, FullAccess}) {
      const bool full = access == FullAccess;
      mErr.clear();
      mReader->setAccessRights(access);
      QCOMPARE(name.isEmpty() ? mReader->deleteGroup(1, group, mErr)
                              : mReader->deleteParam(1, name, group, mErr),
               full);
      QCOMPARE(mErr, full ? message : refused);
      QCOMPARE(file()->paramNames(1).join(""), full ? left : "pq");
    }
    QVERIFY(mReader->containsDef("p"));
  }

 private:
  ICParameterFile* file() { return mReader->parameterFile(); }
  /// Reads p of sub-device 1 with the getter of a type; mNumber becomes what the variable is then.
  bool get(int type, bool withDefault) {
    const auto get = [&](auto def) {
      decltype(def) number = 3;
      const bool read = withDefault
                            ? mReader->getParam(1, "p", "A/B", number, def, mErr, 7, &mDefinition)
                            : mReader->getParam(1, "p", number, mErr);
      mNumber = QString::number(number);
      return read;
    };
    return std::visit(get, kTypes.at(type).def);
  }

  const SKeptMessages mBoard;
  std::unique_ptr<QTemporaryDir> mFolder;
  std::unique_ptr<CKeptLines> mLog;
  std::unique_ptr<ICSimpleParamReader> mReader;
  CParamDefItem* mDefinition = nullptr;
  QString mNumber;
  QString mErr;
};

QTEST_APPLESS_MAIN(tst_CSimpleParamReaderValues)
#include "tst_CSimpleParamReaderValues.moc"
