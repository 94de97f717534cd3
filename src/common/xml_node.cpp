#include <libxml/tree.h>

#include <cstdint>
#include <span>

#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_document.h"
#include "common/xml_serialise.h"

namespace tessarin {

namespace {

std::string_view View(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// The name with its namespace prefix, as the document writes it.
std::string QualifiedName(const xmlNs* ns, const xmlChar* name) {
    std::string qualified;
    if (ns != nullptr && ns->prefix != nullptr) {
        qualified.append(View(ns->prefix));
        qualified += ':';
    }
    qualified.append(View(name));
    return qualified;
}

bool HasQualifiedName(const xmlNs* ns, const xmlChar* name, std::string_view wanted) {
    if (ns != nullptr && ns->prefix != nullptr) {
        const std::string_view prefix = View(ns->prefix);
        if (!wanted.starts_with(prefix) || wanted.size() <= prefix.size() ||
            wanted[prefix.size()] != ':') {
            return false;
        }
        wanted.remove_prefix(prefix.size() + 1);
    }
    return View(name) == wanted;
}

xmlAttr* FindAttribute(const xmlNode* node, std::string_view name) {
    if (node == nullptr) return nullptr;
    for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
        if (HasQualifiedName(attribute->ns, attribute->name, name)) return attribute;
    }
    return nullptr;
}

// The nodes that an internal entity's reference stands for; none for an external or
// unknown entity, whose content is never loaded.
const xmlNode* InternalEntityContent(const xmlNode* reference) {
    const auto* entity = reinterpret_cast<const xmlEntity*>(reference->children);
    if (entity == nullptr || entity->type != XML_ENTITY_DECL ||
        entity->etype != XML_INTERNAL_GENERAL_ENTITY) {
        return nullptr;
    }
    return entity->children;
}

// The text of a list of sibling nodes and everything below them: text, CDATA and the
// replacement text of internal entities; comments and processing instructions add nothing.
void AppendText(const xmlNode* first, std::string& text) {
    for (const xmlNode* node = first; node != nullptr; node = node->next) {
        switch (node->type) {
            case XML_TEXT_NODE:
            case XML_CDATA_SECTION_NODE:
                text.append(View(node->content));
                break;
            case XML_ENTITY_REF_NODE:
                AppendText(InternalEntityContent(node), text);
                break;
            case XML_ELEMENT_NODE:
                AppendText(node->children, text);
                break;
            default:
                break;
        }
    }
}

std::string AttributeValue(const xmlAttr* attribute) {
    std::string value;
    AppendText(attribute->children, value);
    return value;
}

// One step of a path: an element name or "*", among the children of the nodes before, or
// among all their descendants after "//".
struct PathStep {
    std::string_view name;
    bool anyDepth = false;
};

// The steps of a path; "." steps are dropped, as they stay on the same node. A "//" before
// a "." carries over to the next step.
std::vector<PathStep> ParsePath(std::string_view path) {
    std::vector<PathStep> steps;
    bool anyDepth = false;
    while (!path.empty()) {
        if (path.starts_with("//")) {
            anyDepth = true;
            path.remove_prefix(2);
            continue;
        }
        if (path.starts_with('/')) {
            path.remove_prefix(1);
            continue;
        }
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view name = path.substr(0, end);
        path.remove_prefix(end);
        if (name == ".") continue;
        steps.push_back({name, anyDepth});
        anyDepth = false;
    }
    return steps;
}

bool StepMatches(const xmlNode* node, const PathStep& step) {
    return step.name == "*" || HasQualifiedName(node->ns, node->name, step.name);
}

// Whether the element, a descendant of the context, is reached from the context by the
// steps up to and including steps[last].
bool PathMatches(const xmlNode* node, const std::vector<PathStep>& steps, std::size_t last,
                 const xmlNode* context) {
    if (!StepMatches(node, steps[last])) return false;
    if (last == 0) return steps[0].anyDepth || node->parent == context;
    if (!steps[last].anyDepth) {
        return node->parent != context && PathMatches(node->parent, steps, last - 1, context);
    }
    for (const xmlNode* ancestor = node->parent; ancestor != context; ancestor = ancestor->parent) {
        if (PathMatches(ancestor, steps, last - 1, context)) return true;
    }
    return false;
}

// The elements below the context that the path reaches, in document order; the walk goes
// no deeper than the path does unless the path has a "//".
std::vector<XmlNode> Select(xmlNode* context, std::string_view path, bool firstOnly) {
    std::vector<XmlNode> found;
    if (context == nullptr || path.empty()) return found;
    const std::vector<PathStep> steps = ParsePath(path);
    if (steps.empty()) {
        found.emplace_back(context);
        return found;
    }
    bool anyDepth = false;
    for (const PathStep& step : steps)
        anyDepth = anyDepth || step.anyDepth;
    const std::size_t maxDepth = anyDepth ? SIZE_MAX : steps.size();

    xmlNode* node = context->children;
    std::size_t depth = 1;
    while (node != nullptr) {
        if (node->type == XML_ELEMENT_NODE) {
            if (depth >= steps.size() && PathMatches(node, steps, steps.size() - 1, context)) {
                found.emplace_back(node);
                if (firstOnly) return found;
            }
            if (node->children != nullptr && depth < maxDepth) {
                node = node->children;
                ++depth;
                continue;
            }
        }
        while (node->next == nullptr) {
            node = node->parent;
            --depth;
            if (node == context) return found;
        }
        node = node->next;
    }
    return found;
}

// Characters written in another form when an element is serialised.
struct Replacement {
    char character;
    std::string_view written;
};

// Line feeds become CR LF, so that a parser's line-end normalisation does not show through.
constexpr Replacement kLineEnds[] = {{'\n', "\r\n"}};

// A CR in text can only come from a character reference, and stays one.
constexpr Replacement kTextReplacements[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'\r', "&#13;"}, {'\n', "\r\n"}};

// White space other than the blank is written as references, which attribute-value
// normalisation keeps.
constexpr Replacement kAttributeReplacements[] = {{'&', "&amp;"}, {'<', "&lt;"},   {'"', "&quot;"},
                                                  {'\t', "&#9;"}, {'\n', "&#10;"}, {'\r', "&#13;"}};

// A story file escapes every value with the five entities.
constexpr Replacement kStoryTextReplacements[] = {{'&', "&amp;"}, {'"', "&quot;"}, {'\'', "&apos;"},
                                                  {'<', "&lt;"},  {'>', "&gt;"},   {'\r', "&#13;"},
                                                  {'\n', "\r\n"}};
constexpr Replacement kStoryAttributeReplacements[] = {
    {'&', "&amp;"}, {'"', "&quot;"}, {'\'', "&apos;"}, {'<', "&lt;"},
    {'>', "&gt;"},  {'\t', "&#9;"},  {'\n', "&#10;"},  {'\r', "&#13;"}};

// What happens to the characters beyond ASCII of text and attribute values.
enum class WideCharacters { Kept, StoryFile, StoryFileWindows1252 };

struct WriteRules {
    std::span<const Replacement> text;
    std::span<const Replacement> attribute;
    WideCharacters wide;
};

WriteRules RulesOf(XmlWriteForm form) {
    switch (form) {
        case XmlWriteForm::StoryFile:
            return {kStoryTextReplacements, kStoryAttributeReplacements, WideCharacters::StoryFile};
        case XmlWriteForm::StoryFileWindows1252:
            return {kStoryTextReplacements, kStoryAttributeReplacements,
                    WideCharacters::StoryFileWindows1252};
        case XmlWriteForm::Element:
            break;
    }
    return {kTextReplacements, kAttributeReplacements, WideCharacters::Kept};
}

void AppendCharacterReference(char32_t codePoint, std::string& out) {
    out += "&#";
    out += std::to_string(static_cast<std::uint32_t>(codePoint));
    out += ';';
}

// The text with its replacements; the parser's text is UTF-8, so characters beyond ASCII
// are read whole when the rules have something to say about them.
void AppendReplacing(std::string_view text, std::span<const Replacement> replacements,
                     WideCharacters wide, std::string& out) {
    for (std::size_t position = 0; position < text.size();) {
        const char c = text[position];
        if (static_cast<unsigned char>(c) >= 0x80 && wide != WideCharacters::Kept) {
            const LenientCharacter character = ReadLenientCharacter(text, position);
            const bool lacking = wide == WideCharacters::StoryFileWindows1252 &&
                                 CodePointToWindows1252(character.codePoint) < 0;
            if (character.codePoint == 0xA0 || lacking) {
                AppendCharacterReference(character.codePoint, out);
            } else {
                out.append(text.substr(position, character.length));
            }
            position += character.length;
            continue;
        }
        const Replacement* found = nullptr;
        for (const Replacement& replacement : replacements) {
            if (replacement.character == c) found = &replacement;
        }
        if (found != nullptr) {
            out.append(found->written);
        } else {
            out += c;
        }
        ++position;
    }
}

void AppendXml(const xmlNode* first, const WriteRules& rules, std::string& out);

void AppendElementXml(const xmlNode* element, const WriteRules& rules, std::string& out) {
    const std::string name = QualifiedName(element->ns, element->name);
    out += '<';
    out += name;
    for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
        out += ns->prefix == nullptr ? " xmlns" : " xmlns:";
        out.append(View(ns->prefix));
        out += "=\"";
        AppendReplacing(View(ns->href), rules.attribute, rules.wide, out);
        out += '"';
    }
    for (const xmlAttr* attribute = element->properties; attribute != nullptr;
         attribute = attribute->next) {
        out += ' ';
        out += QualifiedName(attribute->ns, attribute->name);
        out += "=\"";
        AppendReplacing(AttributeValue(attribute), rules.attribute, rules.wide, out);
        out += '"';
    }
    if (element->children == nullptr) {
        out += "/>";
        return;
    }
    out += '>';
    AppendXml(element->children, rules, out);
    out += "</";
    out += name;
    out += '>';
}

void AppendOneNode(const xmlNode* node, const WriteRules& rules, std::string& out) {
    switch (node->type) {
        case XML_ELEMENT_NODE:
            AppendElementXml(node, rules, out);
            break;
        case XML_TEXT_NODE:
            AppendReplacing(View(node->content), rules.text, rules.wide, out);
            break;
        case XML_CDATA_SECTION_NODE:
            out += "<![CDATA[";
            AppendReplacing(View(node->content), kLineEnds, WideCharacters::Kept, out);
            out += "]]>";
            break;
        case XML_COMMENT_NODE:
            out += "<!--";
            AppendReplacing(View(node->content), kLineEnds, WideCharacters::Kept, out);
            out += "-->";
            break;
        case XML_PI_NODE:
            out += "<?";
            out.append(View(node->name));
            if (!View(node->content).empty()) out += ' ';
            AppendReplacing(View(node->content), kLineEnds, WideCharacters::Kept, out);
            out += "?>";
            break;
        case XML_ENTITY_REF_NODE:
            AppendXml(InternalEntityContent(node), rules, out);
            break;
        default:
            break;
    }
}

void AppendXml(const xmlNode* first, const WriteRules& rules, std::string& out) {
    for (const xmlNode* node = first; node != nullptr; node = node->next)
        AppendOneNode(node, rules, out);
}

}  // namespace

std::string XmlNode::Name() const {
    return node_ == nullptr ? std::string() : QualifiedName(node_->ns, node_->name);
}

std::string XmlNode::Attribute(std::string_view name) const {
    const xmlAttr* attribute = FindAttribute(node_, name);
    return attribute == nullptr ? std::string() : AttributeValue(attribute);
}

bool XmlNode::HasAttribute(std::string_view name) const {
    return FindAttribute(node_, name) != nullptr;
}

void XmlNode::RemoveAllAttributes() {
    while (node_ != nullptr && node_->properties != nullptr)
        xmlRemoveProp(node_->properties);
}

std::string XmlNode::Text() const {
    std::string text;
    if (node_ != nullptr) AppendText(node_->children, text);
    return text;
}

XmlNode XmlNode::SelectSingleNode(std::string_view path) const {
    const std::vector<XmlNode> found = Select(node_, path, true);
    return found.empty() ? XmlNode() : found.front();
}

std::vector<XmlNode> XmlNode::SelectNodes(std::string_view path) const {
    return Select(node_, path, false);
}

std::vector<XmlNode> XmlNode::ChildElements() const {
    std::vector<XmlNode> children;
    if (node_ == nullptr) return children;
    for (xmlNode* child = node_->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) children.emplace_back(child);
    }
    return children;
}

bool XmlNode::HasChildElements() const {
    if (node_ == nullptr) return false;
    for (const xmlNode* child = node_->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) return true;
    }
    return false;
}

std::string XmlNode::Xml() const {
    std::string xml;
    if (node_ != nullptr) AppendElementXml(node_, RulesOf(XmlWriteForm::Element), xml);
    return xml;
}

void AppendNodeXml(const _xmlNode* node, XmlWriteForm form, std::string& out) {
    if (node != nullptr) AppendOneNode(node, RulesOf(form), out);
}

}  // namespace tessarin
