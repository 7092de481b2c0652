// Reading of migration tables.

#include "CKeyedMap.h"
#include "CMigrationFile.h"
#include "CParamNodeData.h"
#include "CStr.h"
#include "ICParameterFile.h"
#include "NLumoXmlTags.h"

#include <algorithm>
#include <iterator>
#include <vector>

using namespace NLumoXmlTags;

bool CMigrationFile::load(const QString& fileName, CMigrationTable& table, QString& error) {
  if (!open(fileName, TAG_ROOT_MIGRATION, QStringLiteral("1.0"), error)) return false;
  const bool isRead = readTable(table);
  domDocument().clear();
  if (!isRead) error = tr("File \"%1\": %2").arg(fileName, mError);
  return isRead;
}

bool CMigrationFile::readTable(CMigrationTable& table) {
  const CDomElement root = domDocument().documentElement();
  CDomElement element = root.firstChildElement();
  if (!holdsOnly(root, {ATTR_VERSION}) || !readEnds(element, table)) return false;
  CKeyedSet<QString> paths;
  CKeyedSet<QString> names;
  for (; !element.isNull(); element = element.nextSiblingElement()) {
    mName.clear();
    SMigrationGroup group;
    SMigrationRule rule;
    if (element.hasTag(TAG_GROUP)) {
      if (!readGroup(element, group)) return false;
      if (!paths.insert(group.path).second)
        return fail(element, tr("there is a rule for this group already."));
      table.groups += group;
    } else if (element.hasTag(TAG_PARAMETER)) {
      if (!readRule(element, rule)) return false;
      if (!names.insert(rule.name).second)
        return fail(element, tr("there is a rule for this parameter already."));
      table.rules += rule;
    } else {
      return isUnknown(element, root.tagName());
    }
  }
  return true;
}

/// Leads the element to what follows.
bool CMigrationFile::readEnds(CDomElement& element, CMigrationTable& table) {
  if (!readEnd(element, TAG_FROM, {ATTR_RELEASE}, table.oldRelease)) return false;
  element = element.nextSiblingElement();
  if (!readEnd(element, TAG_TO, {ATTR_RELEASE, ATTR_VERSION}, table.newRelease) ||
      !readVersion(element, table.newVersion)) {
    return false;
  }
  element = element.nextSiblingElement();
  return true;
}

bool CMigrationFile::readEnd(const CDomElement& element, QLatin1String tag,
                             const QStringList& attributes, QString& release) {
  if (!element.hasTag(tag)) {
    return fail(
        element.isNull() ? domDocument().documentElement() : element,
        tr("a table begins with <%1> and <%2>; <%3> is missing.").arg(TAG_FROM, TAG_TO, tag));
  }
  return hasNoChildren(element) && holdsOnly(element, attributes) &&
         readAttribute(element, ATTR_RELEASE, release);
}

bool CMigrationFile::readVersion(const CDomElement& element, QString& version) {
  if (!element.hasAttribute(ATTR_VERSION)) return true;
  quint32 revision = 0;
  version = element.attribute(ATTR_VERSION);
  return CStr::stringToRevision(version, revision) ||
         isNot(element, ATTR_VERSION, tr("a version such as \"1.1\""));
}

bool CMigrationFile::readGroup(const CDomElement& element, SMigrationGroup& group) {
  group.line = element.lineNumber();
  mName = element.attribute(ATTR_PATH);
  if (!hasNoChildren(element) || !holdsOnly(element, {ATTR_PATH, ATTR_NEW_NAME}) ||
      !readAttribute(element, ATTR_PATH, group.path) ||
      !readAttribute(element, ATTR_NEW_NAME, group.newName)) {
    return false;
  }
  if (group.path.isEmpty()) return isNot(element, ATTR_PATH, tr("the path of a group"));
  const bool isName = !group.newName.isEmpty() && !group.newName.contains(QLatin1Char('/')) &&
                      group.newName != CParamNodeData::mStandardConstructedStr;
  return isName || isNot(element, ATTR_NEW_NAME, tr("the name of a group"));
}

bool CMigrationFile::readRule(const CDomElement& element, SMigrationRule& rule) {
  rule.line = element.lineNumber();
  mName = element.attribute(ATTR_NAME);
  if (!holdsOnly(element, {ATTR_NAME, ATTR_NEW_NAME, ATTR_NEW_ID}) || !readNames(element, rule))
    return false;
  for (CDomElement part = element.firstChildElement(); !part.isNull();
       part = part.nextSiblingElement()) {
    if (!readPart(part, rule)) return false;
  }
  return checkParts(element, rule);
}

bool CMigrationFile::readNames(const CDomElement& element, SMigrationRule& rule) {
  if (!readAttribute(element, ATTR_NAME, rule.name)) return false;
  rule.newName = element.attribute(ATTR_NEW_NAME);
  for (const QLatin1String name : {ATTR_NAME, ATTR_NEW_NAME})
    if (element.hasAttribute(name) && element.attribute(name).isEmpty())
      return isNot(element, name, tr("a name"));
  if (!element.hasAttribute(ATTR_NEW_ID)) return true;
  rule.newId = 0;
  return CStr::strToU32(element.attribute(ATTR_NEW_ID), *rule.newId) ||
         isNot(element, ATTR_NEW_ID, tr("an id"));
}

bool CMigrationFile::readPart(const CDomElement& element, SMigrationRule& rule) {
  using CReader = bool (CMigrationFile::*)(const CDomElement&, SMigrationRule&);
  static const std::pair<QLatin1String, CReader> readers[] = {
      {TAG_RESCALE, &CMigrationFile::readRescaling},
      {TAG_CHOICE, &CMigrationFile::readChoice},
      {TAG_BIT, &CMigrationFile::readBit},
      {TAG_VALUE, &CMigrationFile::readValue},
      {TAG_MOVE, &CMigrationFile::readMove},
      {TAG_DROP, &CMigrationFile::readDrop},
      {TAG_ASK, &CMigrationFile::readAsk}};
  const auto* const reader =
      std::find_if(std::begin(readers), std::end(readers),
                   [&element](const auto& each) { return element.hasTag(each.first); });
  if (reader == std::end(readers)) return isUnknown(element, TAG_PARAMETER);
  return hasNoChildren(element) && (this->*reader->second)(element, rule);
}

bool CMigrationFile::readRescaling(const CDomElement& element, SMigrationRule& rule) {
  SRescaling rescaling;
  if (standsTwice(element, rule.rescaling.has_value()) ||
      !holdsOnly(element, {ATTR_FACTOR, ATTR_OFFSET, ATTR_ROUNDING}) ||
      !readNumber(element, ATTR_FACTOR, rescaling.factor) ||
      (element.hasAttribute(ATTR_OFFSET) && !readNumber(element, ATTR_OFFSET, rescaling.offset))) {
    return false;
  }
  if (isZero(rescaling.factor)) return fail(element, tr("a factor of 0 loses every value."));
  if (element.hasAttribute(ATTR_ROUNDING)) {
    const int rounding = mRoundings.indexOf(element.attribute(ATTR_ROUNDING));
    if (rounding < 0) {
      return isNot(element, ATTR_ROUNDING,
                   tr("one of: %1").arg(mRoundings.join(QLatin1String(", "))));
    }
    rescaling.rounding = static_cast<SRescaling::ERounding>(rounding);
  }
  rule.rescaling = rescaling;
  return true;
}

bool CMigrationFile::readChoice(const CDomElement& element, SMigrationRule& rule) {
  if (!holdsOnly(element, {ATTR_FROM, ATTR_TO})) return false;
  QPair<qint64, qint64> choice;
  for (const auto& [name, number] :
       {std::pair(ATTR_FROM, &choice.first), std::pair(ATTR_TO, &choice.second)}) {
    QString text;
    if (!readAttribute(element, name, text)) return false;
    if (!CStr::strToI64(text, *number)) return isNot(element, name, tr("a number"));
  }
  rule.choices.append(choice);
  return true;
}

bool CMigrationFile::readBit(const CDomElement& element, SMigrationRule& rule) {
  QPair<int, int> bit;
  if (!holdsOnly(element, {ATTR_FROM, ATTR_TO}) ||
      !readBitPosition(element, ATTR_FROM, bit.first) ||
      !readBitPosition(element, ATTR_TO, bit.second)) {
    return false;
  }
  rule.bits.append(bit);
  return true;
}

bool CMigrationFile::readValue(const CDomElement& element, SMigrationRule& rule) {
  if (standsTwice(element, !rule.value.isNull())) return false;
  rule.value = element.text();
  return hasNoAttributesBut(element, {});
}

bool CMigrationFile::readMove(const CDomElement& element, SMigrationRule& rule) {
  QPair<NParamDef::ESubDeviceTypes, NParamDef::ESubDeviceTypes> move;
  if (standsTwice(element, rule.move.has_value()) || !holdsOnly(element, {ATTR_FROM, ATTR_TO}) ||
      !readSubDeviceType(element, ATTR_FROM, move.first) ||
      !readSubDeviceType(element, ATTR_TO, move.second)) {
    return false;
  }
  rule.move = move;
  return move.first != move.second ||
         fail(element, tr("<%1> leads to where it begins.").arg(TAG_MOVE));
}

bool CMigrationFile::readDrop(const CDomElement& element, SMigrationRule& rule) {
  if (standsTwice(element, rule.isDropped)) return false;
  rule.isDropped = true;
  return readSentence(element, rule.reason);
}

bool CMigrationFile::readAsk(const CDomElement& element, SMigrationRule& rule) {
  return !standsTwice(element, !rule.question.isNull()) && readSentence(element, rule.question);
}

/// What contradicts itself within a rule.
bool CMigrationFile::checkParts(const CDomElement& element, const SMigrationRule& rule) {
  QStringList tags = conversionsOf(rule);
  if (rule.move && !rule.question.isNull()) tags.prepend(TAG_MOVE);
  if (tags.size() > 1)
    return fail(element, tr("<%1> and <%2> cannot stand in one rule.").arg(tags.at(0), tags.at(1)));
  const bool isPlaced = !rule.newName.isNull() || rule.newId || rule.move;
  if (tags.isEmpty() && !isPlaced) return fail(element, tr("the rule says nothing."));
  if (rule.isDropped && isPlaced)
    return fail(element, tr("what is dropped gets no new name, id or sub-device."));
  std::vector<qint64> from;
  for (const auto& choice : rule.choices) from.push_back(choice.first);
  for (const auto& bit : rule.bits) from.push_back(bit.first);
  std::sort(from.begin(), from.end());
  const auto twice = std::adjacent_find(from.begin(), from.end());
  return twice == from.end() ||
         fail(element, tr("<%1> from %2 stands twice.").arg(tags.first(), QString::number(*twice)));
}

// --- Elements and attributes

bool CMigrationFile::holdsOnly(const CDomElement& element, const QStringList& attributes) {
  const QString text = element.ownText().simplified();
  if (text.isEmpty()) return hasNoAttributesBut(element, attributes);
  return fail(element,
              tr("<%1> holds the text \"%2\", where none belongs.").arg(element.tagName(), text));
}

bool CMigrationFile::hasNoChildren(const CDomElement& element) {
  const CDomElement child = element.firstChildElement();
  return child.isNull() || isUnknown(child, element.tagName());
}

bool CMigrationFile::hasNoAttributesBut(const CDomElement& element, const QStringList& attributes) {
  const QStringList names = element.attributeNames();
  const auto isKnown = [&attributes](const QString& name) { return attributes.contains(name); };
  const auto unknown = std::find_if_not(names.begin(), names.end(), isKnown);
  return unknown == names.end() ||
         fail(element,
              tr("attribute \"%1\" of <%2> is not known.").arg(*unknown, element.tagName()));
}

/// A text for people, who may break it into lines as they like.
bool CMigrationFile::readSentence(const CDomElement& element, QString& sentence) {
  sentence = element.text().simplified();
  if (sentence.isEmpty()) return fail(element, tr("<%1> lacks its text.").arg(element.tagName()));
  return hasNoAttributesBut(element, {});
}

bool CMigrationFile::readAttribute(const CDomElement& element, QLatin1String name, QString& value) {
  if (!element.hasAttribute(name))
    return fail(element, tr("attribute \"%1\" of <%2> is missing.").arg(name, element.tagName()));
  value = element.attribute(name);
  return true;
}

bool CMigrationFile::readNumber(const CDomElement& element, QLatin1String name, QString& number) {
  if (!readAttribute(element, name, number)) return false;
  return isNumber(number) ||
         isNot(element, name, tr("a decimal number or a fraction of two, such as \"1/60\""));
}

bool CMigrationFile::readBitPosition(const CDomElement& element, QLatin1String name,
                                     int& position) {
  QString text;
  if (!readAttribute(element, name, text)) return false;
  const bool isPosition =
      CStr::strToI32(text, position) && position >= 0 && position <= NParamDef::SBitValue::mMaxPos;
  return isPosition || isNot(element, name, tr("the position of a bit, 0 to 63"));
}

bool CMigrationFile::readSubDeviceType(const CDomElement& element, QLatin1String name,
                                       NParamDef::ESubDeviceTypes& type) {
  const QStringList& types = ICParameterFile::mSubDevTypeStrings;
  QString text;
  if (!readAttribute(element, name, text)) return false;
  type = ICParameterFile::subDeviceTypeFromStr(text);
  return types.contains(text) ||
         isNot(element, name, tr("one of: %1").arg(types.join(QLatin1String(", "))));
}

// --- Faults; each of these ends the load

bool CMigrationFile::isNot(const CDomElement& element, QLatin1String attribute,
                           const QString& what) {
  return fail(element, tr("attribute \"%1\" of <%2> is \"%3\", not %4.")
                           .arg(attribute, element.tagName(), element.attribute(attribute), what));
}

bool CMigrationFile::isUnknown(const CDomElement& element, const QString& parentTag) {
  return fail(element, tr("<%1> is not known in <%2>.").arg(element.tagName(), parentTag));
}

bool CMigrationFile::standsTwice(const CDomElement& element, bool isSet) {
  if (isSet) fail(element, tr("<%1> stands twice.").arg(element.tagName()));
  return isSet;
}

bool CMigrationFile::fail(const CDomElement& element, const QString& text) {
  const QString line = QString::number(element.lineNumber());
  mError = mName.isNull() ? tr("Line %1: %2").arg(line, text)
                          : tr("Line %1, \"%2\": %3").arg(line, mName, text);
  return false;
}
