#pragma once

#include <string>
#include <string_view>

#include "common/xml_document.h"

namespace tessarin {

// Reading a staged story the way the EditWorks and Milenium writers read it.

// The text of the child element `name` of node; empty when either is missing.
std::string ChildText(const XmlNode& node, std::string_view name);

// Cuts every "<note>" together with everything up to and with the first "</note>" after
// it. An opening tag with no closing tag after it stays, and so does all that follows.
std::string CutEveryNote(std::string_view text);

// The markup of text box `index` as both writers start from it: the element serialised
// without its attributes, every note cut, "<TextBoxN>", "</TextBoxN>" and "<TextBoxN/>"
// removed, and every CR, LF and tab of the serialised form removed, so that "<p/>" stands
// directly before the next tag as the replacement rows expect.
std::string BoxMarkupOnOneLine(const XmlNode& box, int index);

}  // namespace tessarin
