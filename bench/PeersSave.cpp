#include "Peers.h"

#include <QBuffer>
#include <QDomDocument>
#include <QXmlStreamWriter>

namespace NPeers {

namespace {

void appendText(QDomElement& parent, const char* tag, const QString& text) {
  QDomDocument document = parent.ownerDocument();
  QDomElement element = document.createElement(tag);
  element.appendChild(document.createTextNode(text));
  parent.appendChild(element);
}

void appendGroup(QDomElement& element, const CSubDeviceTree& tree, const CParamTreeNodeImpl& node) {
  QDomDocument document = element.ownerDocument();
  for (int i = 0; i < node.childCount(); ++i) {
    const CParamTreeNodeImpl& child = *node.childNode(i);
    QDomElement part = document.createElement(child.isParam() ? "Param" : "Group");
    if (child.isParam()) part.setAttribute("id", child.id());
    appendText(part, "Name", child.name());
    if (child.isParam())
      appendText(part, "Value", tree.value(child.name()).asStr());
    else
      appendGroup(part, tree, child);
    element.appendChild(part);
  }
}

void writeGroup(QXmlStreamWriter& writer, const CSubDeviceTree& tree,
                const CParamTreeNodeImpl& node) {
  for (int i = 0; i < node.childCount(); ++i) {
    const CParamTreeNodeImpl& child = *node.childNode(i);
    writer.writeStartElement(child.isParam() ? "Param" : "Group");
    if (child.isParam()) writer.writeAttribute("id", QString::number(child.id()));
    writer.writeTextElement("Name", child.name());
    if (child.isParam())
      writer.writeTextElement("Value", tree.value(child.name()).asStr());
    else
      writeGroup(writer, tree, child);
    writer.writeEndElement();
  }
}

}  // namespace

QByteArray saveWithQtDom(const CHardwareIdTrees& trees) {
  QDomDocument document;
  document.appendChild(
      document.createProcessingInstruction("xml", "version=\"1.0\" encoding=\"UTF-16\""));
  QDomElement root = document.createElement("LumoParameters");
  document.appendChild(root);
  for (const auto& [hardwareId, subDevices] : trees) {
    QDomElement data = document.createElement("Data");
    data.setAttribute("hardwareId", hardwareId);
    root.appendChild(data);
    for (const auto& [subDevId, tree] : subDevices) {
      QDomElement device = document.createElement("SubDevice");
      device.setAttribute("id", subDevId);
      data.appendChild(device);
      appendGroup(device, tree, *tree.root());
    }
  }
  return document.toByteArray(1);
}

QByteArray saveWithQtStream(const CHardwareIdTrees& trees) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QXmlStreamWriter writer(&buffer);
  writer.setCodec("UTF-16");
  writer.setAutoFormatting(true);
  writer.setAutoFormattingIndent(1);
  writer.writeStartDocument();
  writer.writeStartElement("LumoParameters");
  for (const auto& [hardwareId, subDevices] : trees) {
    writer.writeStartElement("Data");
    writer.writeAttribute("hardwareId", hardwareId);
    for (const auto& [subDevId, tree] : subDevices) {
      writer.writeStartElement("SubDevice");
      writer.writeAttribute("id", QString::number(subDevId));
      writeGroup(writer, tree, *tree.root());
      writer.writeEndElement();
    }
    writer.writeEndElement();
  }
  writer.writeEndDocument();
  return bytes;
}

}  // namespace NPeers
