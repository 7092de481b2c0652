#include "CCsvTable.h"

#include "CCsv.h"
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "NFileHints.h"
#include "NShortText.h"
#include "NSuggestion.h"
#include "Tool.h"

#include <QFile>
#include <QTextCodec>

#include <algorithm>

using namespace NValueColumns;

namespace {

/// Null for what is not UTF-8. A spreadsheet's UTF-16 has zeros in it.
QString fromUtf8(const QByteArray& bytes) {
  QTextCodec::ConverterState state;
  const QString text =
      QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
  const bool isGood = state.invalidChars == 0 && state.remainingChars == 0 && !bytes.contains('\0');
  if (!isGood) return {};
  return text.isNull() ? QStringLiteral("") : text;
}

int firstWrongLine(const QByteArray& bytes) {
  int line = 1;
  for (const QByteArray& each : bytes.split('\n')) {
    if (fromUtf8(each).isNull()) break;
    ++line;
  }
  return line;
}

}  // namespace

bool CCsvTable::refuse(const QString& problem, int line) const {
  mOut.message(mFileName, problem, line);
  return false;
}

bool CCsvTable::load() {
  if (!readText()) return false;
  if (!findColumns(QLatin1Char(',')) && !findColumns(QLatin1Char(';'))) {
    return refuse(
        Tool::tr("the headings \"%1\" and \"%2\" are missing here, in a line separated by "
                 "\",\" or \";\" as export --format csv writes it.")
            .arg(kName, kValue),
        1);
  }
  for (const QLatin1String heading : {kHardwareId, kSubDevice, kName, kValue})
    if (mHeadings.count(heading) > 1)
      return refuse(Tool::tr("the heading \"%1\" is there twice.").arg(heading), 1);
  return true;
}

bool CCsvTable::readText() {
  QString problem = NFileHints::unreadable(mFileName);
  if (!problem.isEmpty()) return refuse(problem, 0);
  QFile file(mFileName);
  if (!file.open(QIODevice::ReadOnly)) return refuse(file.errorString(), 0);
  mOut.reading(mFileName, file.size());
  const QByteArray bytes = file.readAll();
  if (file.error() != QFile::NoError) return refuse(file.errorString(), 0);
  mText = fromUtf8(bytes);
  if (!mText.isNull()) return true;
  return refuse(Tool::tr("this is not UTF-8; save the table as \"CSV UTF-8\", or as CSV with the "
                         "character set UTF-8."),
                firstWrongLine(bytes));
}

bool CCsvTable::findColumns(QChar separator) {
  mSeparator = separator;
  return CCsvReader(mText, separator).next(mHeadings) && mHeadings.contains(kName) &&
         mHeadings.contains(kValue);
}

bool CCsvTable::readRows(const CLoadedFile& destination, const QString& onlyId) {
  const QStringList ids = destination.file().hardwareIds();
  mOnlyId = onlyId;
  mUsualId = onlyId.isEmpty() && ids.size() == 1 ? ids.first() : onlyId;
  if (mUsualId.isEmpty() && !mHeadings.contains(kHardwareId)) {
    return refuse(Tool::tr("the heading \"%1\" is missing, and %2 has several hardware ids; choose "
                           "one with --hardware-id: %3.")
                      .arg(kHardwareId, destination.fileName(), NSuggestion::listed(ids)),
                  1);
  }
  learnNames(destination);
  CCsvReader reader(mText, mSeparator);
  QStringList fields;
  reader.next(fields);  // the headings
  bool isGood = true;
  while (reader.next(fields)) {
    const bool isBlank = std::all_of(fields.cbegin(), fields.cend(),
                                     [](const QString& each) { return each.isEmpty(); });
    if (!isBlank && !readRow(fields, reader.line())) isGood = false;
  }
  return reader.problem().isEmpty() ? isGood : refuse(reader.problem(), reader.line());
}

bool CCsvTable::readRow(const QStringList& fields, int line) {
  if (fields.size() != mHeadings.size()) {
    return refuse(Tool::tr("the line has %1 fields, and there are %2 headings.")
                      .arg(QString::number(fields.size()), QString::number(mHeadings.size())),
                  line);
  }
  const auto cell = [&](QLatin1String heading) { return fields.value(mHeadings.indexOf(heading)); };
  SAssignment row;
  row.file = mFileName;
  row.line = line;
  row.hardwareId = known(cell(kHardwareId));
  if (row.hardwareId.isEmpty()) row.hardwareId = mUsualId;
  if (!mOnlyId.isEmpty() && row.hardwareId != mOnlyId) {
    ++mSkipped;
    return true;
  }
  if (row.hardwareId.isEmpty()) return refuse(Tool::tr("the hardware id is missing."), line);
  const QString subDevice = cell(kSubDevice);
  row.wantedSubDevice = CInvocation::toSubDevice(subDevice);
  if (!row.wantedSubDevice && !subDevice.isEmpty()) {
    return refuse(
        Tool::tr("\"%1\" is not a sub-device; these are numbers from 0 to 255.").arg(subDevice),
        line);
  }
  row.name = known(cell(kName));
  row.text = cell(kValue);
  if (row.text.isNull()) row.text = QLatin1String("");
  mRows.append(row);
  return true;
}

void CCsvTable::learnNames(const CLoadedFile& destination) {
  const auto learn = [this](const QString& name) {
    const QString shortened = NShortText::of(name);
    if (shortened != name) mFullNames.emplace(shortened, name);
  };
  ICParameterFile& file = destination.file();
  const QString active = file.hardwareId();
  for (const QString& hardwareId : file.hardwareIds()) {
    learn(hardwareId);
    file.selectHardwareId(hardwareId);
    for (const quint8 id : file.subDeviceIds())
      for (const QString& name : file.paramNames(id)) learn(name);
  }
  file.selectHardwareId(active);
}

QString CCsvTable::known(const QString& name) const {
  const auto full = mFullNames.find(name);
  return full != mFullNames.end() ? full->second : name;
}
