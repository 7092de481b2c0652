// All file formats alike, each by the files of its folder: what a load gives or tells, and what a
// save writes.

#include "CParamValueFile.h"
#include "CParameterFileErrorHandler.h"
#include "Formats.h"
#include "GoldenFiles.h"
#include "ICCompensationFile.h"
#include "ICSettingsFile.h"
#include "KeptMessages.h"
#include "NClock.h"

#include <QTemporaryDir>

using namespace NTestFiles;

namespace {

struct SKind {
  NFormats::EFormat format;
  QString folder;
  QString example;
};
const SKind kKinds[] = {
    {NFormats::Definitions, data("definitions/"), example("TwoAxisDrive.xpdef")},
    {NFormats::Values, data("values/"), example("TwoAxisDrive.xparam")},
    {NFormats::Settings, data("settings/"), example("MachineSettings.xset")},
    {NFormats::Compensation, data("compensation/"), example("SpindleCompensation.xcomp")},
    {NFormats::Migration, data("migration/"), data("migration/saved/everything.xml")}};
constexpr int kKindCount = 5;

bool hasBuffers(int kind) {
  return kind == NFormats::Settings || kind == NFormats::Compensation;
}

/// Rows of a kind and a file, for all that lies in a folder of each kind.
void addFiles(const char* folder) {
  addColumns<int, QString>("kind", "file");
  for (int kind = 0; kind < kKindCount; ++kind) {
    const QDir dir(kKinds[kind].folder + folder);
    for (const QString& name : dir.entryList({"*.x*"}, QDir::Files))
      addRow(qPrintable(dir.dirName() + '/' + name), kind, dir.filePath(name));
  }
}

/// A text in ASCII without control characters but line ends, as the expected files have it.
QString readable(const QString& text) {
  QString result;
  for (const QChar c : text) {
    const ushort unit = c.unicode();
    if (unit == '\n' || (unit >= 0x20 && unit <= 0x7E))
      result += c;
    else
      result += QString("\\u%1").arg(unit, 4, 16, QLatin1Char('0'));
  }
  return result.trimmed();
}

/// The text of the same base name with suffix "txt", in which @FILE@ means the test file.
QString expected(const QString& fileName) {
  const QString base = fileName.left(fileName.lastIndexOf('.'));
  return QString::fromUtf8(read(base + ".txt")).trimmed().replace("@FILE@", fileName);
}

/// What the loader of values says in numbers, too.
int valueFileResult(const QString& fileName) {
  CHardwareIdTrees trees;
  SSubDeviceLabels labels;
  QString hardwareId;
  CParamValueFile file(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr, nullptr);
  return file.load(fileName, "1.0", trees, labels, hardwareId);
}

}  // namespace

class tst_FileFormats : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    qputenv("USER", "tester");
    NClock::setToday([] { return QDate(2026, 11, 20); });
  }
  void init() { mBoard.texts.clear(); }

  /// The text of the same name holds what is posted, and the state.
  void valid_data() { addFiles("valid"); }
  void valid() {
    const auto [kind, file] = cells<int, QString>("kind", "file");
    const auto format = NFormats::make(kKinds[kind].format);
    QVERIFY2(format->load(file), qPrintable(format->told()));
    const QString state = format->state();
    QCOMPARE(readable(mBoard.texts.join('\n') + '\n' + state), expected(file));
    if (hasBuffers(kind)) {
      QVERIFY(format->load(kKinds[kind].example) && format->loadBuffer(read(file)));
      QCOMPARE(format->state(), state);
    }
  }

  /// The text of the same name holds what is told of the file, whether it is posted, what is told
  /// of a buffer where the format knows buffers, and the state if it is another than before.
  void invalid_data() {
    addFiles("invalid");
    for (int kind = 0; kind < kKindCount; ++kind) {
      addRow(qPrintable("missing of kind " + QString::number(kind)), kind,
             QString(kKinds[kind].folder + "invalid/missing.%1"));
    }
  }
  void invalid() {
    const auto [kind, file] = cells<int, QString>("kind", "file");
    const QByteArray bytes = read(file);
    const auto format = NFormats::make(kKinds[kind].format);
    QVERIFY(format->load(kKinds[kind].example));
    const QString before = format->state();
    mBoard.texts.clear();
    QVERIFY(!format->load(file));
    QStringList lines(format->told());
    if (kind == NFormats::Values) lines.first() += QString(" (%1)").arg(valueFileResult(file));
    if (!mBoard.texts.isEmpty()) lines.first() += " posted";
    for (const QString& text : qAsConst(mBoard.texts))
      QCOMPARE(text, "2 " + format->told().section(": ", 1));
    const QString after = format->state();
    if (hasBuffers(kind) && QFile::exists(file)) {
      QVERIFY(format->load(kKinds[kind].example) && !format->loadBuffer(bytes));
      lines += format->told();
      QCOMPARE(format->state(), after);
    }
    if (after != before) lines += after;
    QCOMPARE(readable(lines.join('\n')), expected(file));
    QCOMPARE(read(file), bytes);
  }

  /// What is loaded is saved with the bytes of the folder "saved", and those give themselves. The
  /// examples are as they are saved.
  void saves_data() {
    addFiles("saved");
    for (int kind = 0; kind < kKindCount; ++kind)
      addRow(qPrintable(kKinds[kind].example), kind, kKinds[kind].example);
  }
  void saves() {
    const auto [kind, file] = cells<int, QString>("kind", "file");
    const QString saved = mFolder.filePath("saved");
    const QString error = NFormats::roundTrip(kKinds[kind].format,
                                              QString(file).replace("/saved/", "/valid/"), saved);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(read(saved), read(file));
  }

  void versions_data() {
    NGoldenFiles::addTable("versions.txt", {"version", "wanted", "opened", "accepted"});
  }
  void versions() {
    auto [version, wanted, opened, accepted] = textCells("version", "wanted", "opened", "accepted");
    for (QString* text : {&version, &wanted}) text->remove('"');
    const bool isGood = opened == "yes";
    const QByteArray settings = "<C_SETTINGS_FORMAT Version='" + version.toUtf8() + "'/>";
    const QByteArray table = "<C_COMPENSATION_FORMAT Version='" + version.toUtf8() +
                             "'><HEADER/><POINTLIST/></C_COMPENSATION_FORMAT>";
    const std::unique_ptr<ICSettingsFile> tree(ICSettingsFile::create(nullptr));
    QCOMPARE(int(tree->loadFromBuffer(settings, wanted)), isGood ? 0 : 2);
    // A rejected version says nothing about the next file.
    QCOMPARE(int(tree->loadFromBuffer("<", wanted)), 1);
    const std::unique_ptr<ICCompensationFile> points(ICCompensationFile::create(nullptr));
    QCOMPARE(points->loadFromBuffer(table, wanted), isGood ? 0 : 3);
    CParameterFileErrorHandler handler(nullptr);
    QCOMPARE(handler.handleFileVersionError(version, wanted), accepted == "yes");
    QCOMPARE(handler.handleDefFileVersionError(version, wanted), accepted == "yes");
    QCOMPARE(handler.handleValueFileVersionError(version, wanted), accepted == "yes");
  }

 private:
  QTemporaryDir mFolder;
  SKeptMessages mBoard;
};

QTEST_APPLESS_MAIN(tst_FileFormats)
#include "tst_FileFormats.moc"
