#pragma once

#include <string>
#include <vector>

#include "common/xml_document.h"

namespace tessarin {

// What the news window shows of one item beside the list: its identifier for the status
// panel, its location and organisations, and its text.
struct NewsItemView {
    std::string id;        // NewsItem/Identification/NewsIdentifier/NewsItemId
    std::string location;  // "FormalName=Value" of each Location property, joined by ", "
    std::vector<std::string> organisations;  // "idsrc=value" of each p/org and its alt-code
    // The item's text as UTF-8: one paragraph a line, lines ending in CR LF, markup gone,
    // entities read, no line end at the end.
    std::string text;
};

// Reads the item that document holds. The body is the nitf body.content of the first
// ContentItem's DataContent, else the DataContent itself (an XHTML document in it stands for
// its body); the organisations are taken out of the body, so the document changes.
NewsItemView ReadNewsItemView(XmlDocument& document);

// The parse failure of an item, as the list and the text pane report it. In the list: "Parsing
// error:" name ", Ligne: " line ", position: " position " " the source text trimmed " " the
// reason; in the pane: "Parsing error:" path ", Line: " line ", position: " position " "
// source text " " reason.
std::string NewsScanParseError(const std::string& name, const XmlParseError& error);
std::string NewsShowParseError(const std::string& path, const XmlParseError& error);

}  // namespace tessarin
