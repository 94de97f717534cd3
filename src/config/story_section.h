#pragma once

#include <string>
#include <string_view>

#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"

namespace tessarin {

// The controls of the story text boxes, by box index 0 to 6 (TextBox1 to TextBox7 of the
// configuration): the box "TextBox0".."TextBox6" and its label "lblTextBox0".."lblTextBox6",
// the index being the one that story files use for their TextBox elements.
std::string TextBoxControlName(int index);
std::string TextBoxLabelName(int index);

// The directory of a news service with its trailing separator: "\" for a path written with
// "\" only, "/" for any other (the native one); an empty path stays empty, which means that
// the service has no such directory.
std::string WithTrailingSeparator(std::string_view directory);

// Reads, in this order, Story/Signature, Story/Notes, the NewsServices section and
// Story/TextBox1 to TextBox7, starting each from its defaults (the stored names of the text
// boxes excepted: the first name a box ever gets is kept for the life of the process).
//
// Window state: txtSignature, cmdSignature; treeNotes with its root "N1" ("Notes [0]");
// the NewsService button and its menu, kept as the flat tree "mnuNewsService" whose entries
// are keyed "k1" to "k5", show the service's Name and hold "repository|archives" in their
// tag; the text boxes and their labels as named above.
void ReadStoryAndNewsServices(const XmlNode& story, const XmlNode& newsServices,
                              Configuration& configuration, WindowState& window);

}  // namespace tessarin
