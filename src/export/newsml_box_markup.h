#pragma once

#include <string>
#include <string_view>

#include "common/text_replace.h"
#include "common/xml_document.h"

namespace tessarin {

// Text passes shared by the NewsML and NITF writers, which both start from a text box
// element of the story as the story file holds it.

// The serialised form of an element with all its attributes (namespace declarations too)
// removed: "<TextBox6>...</TextBox6>", or "<TextBox6/>" for an element without content.
std::string SerialisedWithoutAttributes(const XmlNode& element);

// Cuts the notes out of serialised box text. Each "<note>" is looked for in turn; when the
// first "</note>" after it lies more than six characters further on, everything from the
// opening tag through the closing tag goes. The next search starts six characters after the
// place of that opening tag, in the text as it now stands: an empty note stays, and so does
// a note that follows a cut one within six characters.
std::string CutNotes(std::string_view text);

// Removes "<TextBoxN>", "</TextBoxN>" and "<TextBoxN/>" (N: index) from box markup, the
// frame that every writer strips from a serialised text box.
void RemoveBoxTags(std::string& markup, int index);

// Removes every CR, LF and tab of serialised markup: the line ends that the story file puts
// after each "<p/>" and any indentation, so that the tags stand next to each other.
void RemoveLineEndsAndTabs(std::string& markup);

// The markup of text box `index` as both writers start from it: serialised without
// attributes, notes cut, and "<TextBoxN>", "</TextBoxN>" and "<TextBoxN/>" removed.
std::string BoxMarkupWithoutFrame(const XmlNode& box, int index);

}  // namespace tessarin
