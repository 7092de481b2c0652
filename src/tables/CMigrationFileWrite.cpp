// Writing of migration tables.

#include "CMigrationFile.h"
#include "ICParameterFile.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

namespace {

const QString kEncoding = QStringLiteral("UTF-8");
const QString kVersion = QStringLiteral("1.0");

/// Later lines of a note begin below its first word.
QString textOfNote(QString note) {
  note.replace(QLatin1Char('\n'), QLatin1String("\n      "));
  return QLatin1Char(' ') + note + QLatin1Char(' ');
}

void appendPair(CDomElement parent, QLatin1String tag, qint64 from, qint64 to) {
  CDomElement element = parent.appendElement(tag);
  element.setAttribute(ATTR_FROM, from);
  element.setAttribute(ATTR_TO, to);
}

void appendMove(CDomElement parent, const decltype(SMigrationRule::move)::value_type& move) {
  CDomElement element = parent.appendElement(TAG_MOVE);
  element.setAttribute(ATTR_FROM, ICParameterFile::subDeviceTypeToStr(move.first));
  element.setAttribute(ATTR_TO, ICParameterFile::subDeviceTypeToStr(move.second));
}

void appendRescaling(CDomElement parent, const SRescaling& rescaling) {
  const SRescaling usual;
  CDomElement element = parent.appendElement(TAG_RESCALE);
  element.setAttribute(ATTR_FACTOR, rescaling.factor);
  if (rescaling.offset != usual.offset) element.setAttribute(ATTR_OFFSET, rescaling.offset);
  if (rescaling.rounding != usual.rounding)
    element.setAttribute(ATTR_ROUNDING, CMigrationFile::mRoundings.value(rescaling.rounding));
}

}  // namespace

bool CMigrationFile::save(const QString& fileName, const CMigrationTable& table, QString& error) {
  QString reason;
  const bool isMade = makeDocument(table, reason);
  if (!isMade) error = tr("File \"%1\": %2").arg(fileName, reason);
  const bool isSaved = isMade && CXmlAbstractLumoFile::save(fileName, kEncoding, error);
  domDocument().clear();
  return isSaved;
}

bool CMigrationFile::save(QByteArray& buffer, const CMigrationTable& table, QString& error) {
  error.clear();
  if (makeDocument(table, error)) buffer = domDocument().toByteArray(kEncoding, error);
  domDocument().clear();
  return error.isEmpty();
}

bool CMigrationFile::makeDocument(const CMigrationTable& table, QString& error) {
  createNewDocument(TAG_ROOT_MIGRATION, kVersion);
  CDomElement root = domDocument().documentElement();
  root.appendElement(TAG_FROM).setAttribute(ATTR_RELEASE, table.oldRelease);
  CDomElement to = root.appendElement(TAG_TO);
  to.setAttribute(ATTR_RELEASE, table.newRelease);
  if (!table.newVersion.isEmpty()) to.setAttribute(ATTR_VERSION, table.newVersion);
  for (const SMigrationGroup& group : table.groups) {
    CDomElement element = root.appendElement(TAG_GROUP);
    element.setAttribute(ATTR_PATH, group.path);
    element.setAttribute(ATTR_NEW_NAME, group.newName);
  }
  for (const SMigrationRule& rule : table.rules)
    if (!appendRule(root, rule, error)) return false;
  return canBeReadAgain(error);
}

bool CMigrationFile::appendRule(CDomElement root, const SMigrationRule& rule, QString& error) {
  if (!rule.note.isEmpty()) root.appendComment(textOfNote(rule.note));
  if (!rule.isProposal) {
    appendParameter(root, rule);
    return true;
  }
  const QString text = textOfProposal(rule, error);
  const QLatin1String around(text.contains(QLatin1Char('\n')) ? "\n " : " ");
  root.appendComment(around + text + around);
  return error.isEmpty();
}

/// As it stands in a table, so that it needs no change once the comment's marks are taken away. A
/// comment holds no "--"; a reference to a hyphen reads as one then.
QString CMigrationFile::textOfProposal(const SMigrationRule& rule, QString& error) {
  CDomDoc document;
  appendParameter(document.createRoot(TAG_ROOT_MIGRATION), rule);
  const QString text = QString::fromUtf8(document.toByteArray(kEncoding, error));
  const int begin = text.indexOf(QLatin1String("\n <")) + 2;
  const int end = text.lastIndexOf(QLatin1String("\n</"));
  return text.mid(begin, end - begin).replace(QLatin1String("--"), QLatin1String("-&#45;"));
}

void CMigrationFile::appendParameter(CDomElement root, const SMigrationRule& rule) {
  CDomElement parameter = root.appendElement(TAG_PARAMETER);
  parameter.setAttribute(ATTR_NAME, rule.name);
  if (!rule.newName.isNull()) parameter.setAttribute(ATTR_NEW_NAME, rule.newName);
  if (rule.newId) parameter.setAttribute(ATTR_NEW_ID, static_cast<qint64>(*rule.newId));
  appendParts(parameter, rule);
}

void CMigrationFile::appendParts(CDomElement parameter, const SMigrationRule& rule) {
  if (rule.move) appendMove(parameter, *rule.move);
  if (rule.rescaling) appendRescaling(parameter, *rule.rescaling);
  for (const auto& [from, to] : rule.choices) appendPair(parameter, TAG_CHOICE, from, to);
  for (const auto& [from, to] : rule.bits) appendPair(parameter, TAG_BIT, from, to);
  if (!rule.value.isNull()) parameter.appendElement(TAG_VALUE).setText(rule.value);
  if (rule.isDropped) parameter.appendElement(TAG_DROP).setText(rule.reason);
  if (!rule.question.isNull()) parameter.appendElement(TAG_ASK).setText(rule.question);
}

/// What the reader would refuse is not written.
bool CMigrationFile::canBeReadAgain(QString& error) const {
  const QByteArray bytes = domDocument().toByteArray(kEncoding, error);
  CMigrationFile reader;
  CMigrationTable table;
  if (bytes.isEmpty() ||
      reader.CXmlAbstractLumoFile::open(bytes, TAG_ROOT_MIGRATION, kVersion, error) != Opened) {
    return false;
  }
  if (reader.readTable(table)) return true;
  error = reader.mError;
  return false;
}
