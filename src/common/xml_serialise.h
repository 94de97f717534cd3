#pragma once

#include <string>

struct _xmlNode;

namespace tessarin {

// The forms in which the XML document wrapper writes nodes; used by XmlNode::Xml and
// XmlDocument::SaveBytes only.
enum class XmlWriteForm {
    Element,               // "&", "<", ">" as entities in text; other characters as they are
    StoryFile,             // the five entities of a story file, "&#160;" for U+00A0
    StoryFileWindows1252,  // as StoryFile, and a character reference for what Windows-1252 lacks
};

// Appends one node (element with everything below it, text, CDATA section, comment,
// processing instruction, internal entity reference) in that form.
void AppendNodeXml(const _xmlNode* node, XmlWriteForm form, std::string& out);

}  // namespace tessarin
