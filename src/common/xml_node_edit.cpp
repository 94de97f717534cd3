#include <libxml/tree.h>

#include <string>

#include "common/utf8.h"
#include "common/xml_document.h"

namespace tessarin {

namespace {

const xmlChar* XmlText(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

bool AllowedInDocument(char32_t codePoint) {
    if (codePoint < 0x20) return codePoint == '\t' || codePoint == '\n' || codePoint == '\r';
    return codePoint != 0xFFFE && codePoint != 0xFFFF;
}

// The text as a document can hold it: valid UTF-8 without the characters XML forbids.
std::string DocumentText(std::string_view text) {
    const std::string repaired = RepairUtf8(text);
    std::string kept;
    kept.reserve(repaired.size());
    for (std::size_t position = 0; position < repaired.size();) {
        const LenientCharacter character = ReadLenientCharacter(repaired, position);
        if (AllowedInDocument(character.codePoint))
            kept.append(repaired, position, character.length);
        position += character.length;
    }
    return kept;
}

}  // namespace

void XmlNode::Remove() {
    if (node_ == nullptr || node_->parent == nullptr || node_->parent->type != XML_ELEMENT_NODE)
        return;
    xmlUnlinkNode(node_);
    xmlFreeNode(node_);
    node_ = nullptr;
}

XmlNode XmlNode::AppendElement(std::string_view name) {
    if (node_ == nullptr) return XmlNode();
    xmlNode* child = xmlNewDocNode(node_->doc, nullptr, XmlText(std::string(name)), nullptr);
    if (child == nullptr) return XmlNode();
    return XmlNode(xmlAddChild(node_, child));
}

XmlNode XmlNode::FindOrAppendElement(std::string_view name) {
    for (const XmlNode& child : ChildElements()) {
        if (child.Name() == name) return child;
    }
    return AppendElement(name);
}

void XmlNode::SetAttribute(std::string_view name, std::string_view value) {
    if (node_ == nullptr) return;
    xmlSetProp(node_, XmlText(std::string(name)), XmlText(DocumentText(value)));
}

void XmlNode::SetText(std::string_view text) {
    if (node_ == nullptr) return;
    while (node_->children != nullptr) {
        xmlNode* child = node_->children;
        xmlUnlinkNode(child);
        xmlFreeNode(child);
    }
    const std::string kept = DocumentText(text);
    if (kept.empty()) return;
    xmlNode* textNode = xmlNewDocTextLen(node_->doc, XmlText(kept), static_cast<int>(kept.size()));
    if (textNode != nullptr) xmlAddChild(node_, textNode);
}

}  // namespace tessarin
