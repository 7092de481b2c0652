#include "Peers.h"

#include "CParamDefFile.h"

#include <QDomDocument>
#include <QXmlStreamReader>

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <pugixml.hpp>

namespace NPeers {

namespace {

CSubDeviceTree& newTree(CHardwareIdTrees& trees, const QString& hardwareId, quint8 subDevId) {
  return trees[hardwareId].try_emplace(subDevId, subDevId).first->second;
}

// --- Qt's DOM

void readGroup(const QDomElement& element, CSubDeviceTree& tree, CParamTreeNodeImpl* parent) {
  for (QDomElement child = element.firstChildElement(); !child.isNull();
       child = child.nextSiblingElement()) {
    const QString name = child.firstChildElement("Name").text();
    if (child.tagName() == QLatin1String("Param")) {
      tree.addParameter(parent, name, child.attribute("id").toUInt(),
                        child.firstChildElement("Value").text());
    } else if (child.tagName() == QLatin1String("Group")) {
      readGroup(child, tree, tree.addGroup(parent, name));
    }
  }
}

// --- pugixml

QString text(const char* utf8) {
  return QString::fromUtf8(utf8);
}

void readGroup(const pugi::xml_node& element, CSubDeviceTree& tree, CParamTreeNodeImpl* parent) {
  for (const pugi::xml_node& child : element.children()) {
    if (qstrcmp(child.name(), "Param") == 0) {
      tree.addParameter(parent, text(child.child_value("Name")), child.attribute("id").as_uint(),
                        text(child.child_value("Value")));
    } else if (qstrcmp(child.name(), "Group") == 0) {
      readGroup(child, tree, tree.addGroup(parent, text(child.child_value("Name"))));
    }
  }
}

// --- libxml2

const xmlNode* firstChild(const xmlNode* node, const char* tag) {
  const xmlNode* child = node->children;
  while (child != nullptr && (child->type != XML_ELEMENT_NODE ||
                              qstrcmp(reinterpret_cast<const char*>(child->name), tag) != 0)) {
    child = child->next;
  }
  return child;
}

QString textOf(const xmlNode* node, const char* tag) {
  const xmlNode* child = firstChild(node, tag);
  const bool hasText = child != nullptr && child->children != nullptr;
  return hasText ? text(reinterpret_cast<const char*>(child->children->content)) : QString();
}

QString attributeOf(const xmlNode* node, const char* name) {
  xmlChar* value = xmlGetProp(const_cast<xmlNode*>(node), reinterpret_cast<const xmlChar*>(name));
  const QString result = text(reinterpret_cast<const char*>(value));
  xmlFree(value);
  return result;
}

void readGroup(const xmlNode* element, CSubDeviceTree& tree, CParamTreeNodeImpl* parent) {
  for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
    if (child->type != XML_ELEMENT_NODE) continue;
    const auto* tag = reinterpret_cast<const char*>(child->name);
    if (qstrcmp(tag, "Param") == 0) {
      tree.addParameter(parent, textOf(child, "Name"), attributeOf(child, "id").toUInt(),
                        textOf(child, "Value"));
    } else if (qstrcmp(tag, "Group") == 0) {
      readGroup(child, tree, tree.addGroup(parent, textOf(child, "Name")));
    }
  }
}

// --- Qt's stream

void readGroup(QXmlStreamReader& reader, CSubDeviceTree& tree, CParamTreeNodeImpl* parent);

void readParameter(QXmlStreamReader& reader, CSubDeviceTree& tree, CParamTreeNodeImpl* parent) {
  const quint32 id = reader.attributes().value(QLatin1String("id")).toUInt();
  QString name;
  QString value;
  while (reader.readNextStartElement())
    if (reader.name() == QLatin1String("Name"))
      name = reader.readElementText();
    else if (reader.name() == QLatin1String("Value"))
      value = reader.readElementText();
    else
      reader.skipCurrentElement();
  tree.addParameter(parent, name, id, value);
}

void readGroup(QXmlStreamReader& reader, CSubDeviceTree& tree, CParamTreeNodeImpl* parent) {
  CParamTreeNodeImpl* group = parent;
  while (reader.readNextStartElement())
    if (reader.name() == QLatin1String("Param"))
      readParameter(reader, tree, group);
    else if (reader.name() == QLatin1String("Group"))
      readGroup(reader, tree, nullptr);
    else if (reader.name() == QLatin1String("Name") && group == nullptr)
      group = tree.addGroup(tree.root(), reader.readElementText());
    else
      reader.skipCurrentElement();
}

}  // namespace

CHardwareIdTrees loadWithQtDom(const QByteArray& bytes) {
  QDomDocument document;
  document.setContent(bytes);
  CHardwareIdTrees trees;
  for (QDomElement data = document.documentElement().firstChildElement("Data"); !data.isNull();
       data = data.nextSiblingElement("Data")) {
    for (QDomElement device = data.firstChildElement("SubDevice"); !device.isNull();
         device = device.nextSiblingElement("SubDevice")) {
      CSubDeviceTree& tree = newTree(trees, data.attribute("hardwareId"),
                                     static_cast<quint8>(device.attribute("id").toUInt()));
      readGroup(device, tree, tree.root());
    }
  }
  return trees;
}

CHardwareIdTrees loadWithQtStream(const QByteArray& bytes) {
  QXmlStreamReader reader(bytes);
  CHardwareIdTrees trees;
  reader.readNextStartElement();
  while (reader.readNextStartElement()) {
    if (reader.name() != QLatin1String("Data")) {
      reader.skipCurrentElement();
      continue;
    }
    const QString hardwareId = reader.attributes().value(QLatin1String("hardwareId")).toString();
    while (reader.readNextStartElement()) {
      const auto id = static_cast<quint8>(reader.attributes().value(QLatin1String("id")).toUInt());
      CSubDeviceTree& tree = newTree(trees, hardwareId, id);
      readGroup(reader, tree, tree.root());
    }
  }
  return trees;
}

CHardwareIdTrees loadWithPugixml(const QByteArray& bytes) {
  pugi::xml_document document;
  document.load_buffer(bytes.constData(), static_cast<size_t>(bytes.size()));
  CHardwareIdTrees trees;
  for (const pugi::xml_node& data : document.document_element().children("Data")) {
    for (const pugi::xml_node& device : data.children("SubDevice")) {
      CSubDeviceTree& tree = newTree(trees, text(data.attribute("hardwareId").value()),
                                     static_cast<quint8>(device.attribute("id").as_uint()));
      readGroup(device, tree, tree.root());
    }
  }
  return trees;
}

CHardwareIdTrees loadWithLibxml2(const QByteArray& bytes) {
  xmlDoc* document = xmlReadMemory(bytes.constData(), bytes.size(), nullptr, nullptr,
                                   XML_PARSE_NONET | XML_PARSE_HUGE);
  CHardwareIdTrees trees;
  for (const xmlNode* data = xmlDocGetRootElement(document)->children; data != nullptr;
       data = data->next) {
    if (qstrcmp(reinterpret_cast<const char*>(data->name), "Data") != 0) continue;
    for (const xmlNode* device = data->children; device != nullptr; device = device->next) {
      if (device->type != XML_ELEMENT_NODE) continue;
      CSubDeviceTree& tree = newTree(trees, attributeOf(data, "hardwareId"),
                                     static_cast<quint8>(attributeOf(device, "id").toUInt()));
      readGroup(device, tree, tree.root());
    }
  }
  xmlFreeDoc(document);
  return trees;
}

int loadDefinitionsWithQtDom(const QByteArray& bytes) {
  QDomDocument document;
  document.setContent(bytes);
  QHash<QString, CParamDefItem> definitions;
  const QDomElement section = document.documentElement().firstChildElement("Data");
  for (QDomElement param = section.firstChildElement("Param"); !param.isNull();
       param = param.nextSiblingElement("Param")) {
    const auto part = [&param](const char* tag) { return param.firstChildElement(tag).text(); };
    CParamDefItem item(part("Name"), CParamDefItem::typeFromString(part("Type")),
                       param.attribute("id").toUInt());
    item.setUnitId(part("Unit").toUInt());
    item.setHint(part("Hint"));
    item.setDefVal(part("DefVal"));
    item.setMinVal(part("MinVal"));
    item.setMaxVal(part("MaxVal"));
    const QDomElement choices = param.firstChildElement("Enum");
    for (QDomElement choice = choices.firstChildElement("Item"); !choice.isNull();
         choice = choice.nextSiblingElement("Item")) {
      item.addEnum(choice.attribute("value").toLongLong(), choice.text());
    }
    const QDomElement visible = param.firstChildElement("VisibleValues");
    if (!visible.isNull()) {
      item.setVisibleId(visible.attribute("refId").toUInt());
      item.addVisibleValues(CParamDefFile::valueListFromStr(visible.text()));
    }
    definitions.insert(item.name(), item);
  }
  return definitions.size();
}

}  // namespace NPeers
