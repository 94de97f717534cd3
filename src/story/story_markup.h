#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "text/styled_text.h"

namespace tessarin {

// The preferences and the configuration value that the story text markup depends on.
struct MarkupSettings {
    std::array<OleColour, 3> interColours = {Rgb(0, 0, 255), Rgb(255, 0, 0), Rgb(0, 255, 0)};
    OleColour bookmarksColour = Rgb(255, 255, 0);  // the highlight of note anchors
    bool removeDuplicateSpaces = true;
    bool utf8 = false;  // StoriesEncoding is exactly "UTF-8"
};

// One text box as the body of a story file records it.
struct MarkupBox {
    const StyledText* text = nullptr;  // nullptr or an empty text: the box has no element
    std::string caption;               // the caption of the box's label (UTF-8), written raw
    std::int32_t charCount = 0;        // the box's current character count (char_count.h)
};

struct StoryBodyInput {
    std::array<MarkupBox, kTextBoxCount> boxes;
    std::string signature;           // UTF-8; empty: no Signature element
    bool initialsSignature = false;  // the second signature button (the initials) is chosen
    MarkupSettings settings;
};

// The text of a story file's Body element, between the line "<Body>" and "</Body>": for each
// box with text, in index order, "<TextBoxN CharCount=.. WordCount=.. Name=..>", its inline
// tags and "</TextBoxN>" CR LF; then the Signature element, if any, with no line end after
// it. The result is the final file bytes: Windows-1252 in ISO-8859-1 mode (a character the
// code page lacks is "?"), and in UTF-8 mode each UTF-16 code unit as its own UTF-8 group (a
// character outside the Basic Multilingual Plane gives two three-byte groups). The signature
// goes through XmlEscape and the same encoding; the caption is written unescaped, so a
// caption with a double quote or "&" makes a body that does not parse.
std::string StoryTextToTags(const StoryBodyInput& input);

// Where the tag sequence of a box crosses (a tag closed while a tag opened after it is still
// open), closes the inner tags before the outer one and opens them again before the next
// character, so that the text parses: "<b><i>x</b> y</i>" gives "<b><i>x</i></b><i> y</i>".
// An inner tag opened with nothing after it moves behind the closing tag instead of being
// closed and opened again; a tag closed early whose own closing tag comes before the next
// character is not opened again; a closing tag with no opening is dropped; tags left open
// are closed at the end. Properly nested tags
// pass unchanged, byte for byte. Only the paired inline tags (b, i, u, sup, note, inter1 to
// inter3) take part; anything else passes as text. StoryTextToTags repairs each box so.
std::u16string NestInlineTags(std::u16string_view tags);

// A text box read back from a story file.
struct BoxText {
    StyledText text;
    std::int32_t noteCharacters = 0;  // to add to the box's note characters counter
};

// Reads the TextBoxN element of box index: its attributes are removed from the document,
// then the element's serialised form is read as below.
BoxText TagsToStoryText(int index, XmlNode element, const MarkupSettings& settings,
                        std::int32_t fontSize);

// Reads the serialised form of a TextBoxN element without attributes, as XmlNode::Xml()
// gives it (UTF-8, "&amp;", "&lt;" and "&gt;" as entities, "&#160;" resolved). Bold, italic
// and underline tags set those formats; a note gets protection, the highlight in the
// bookmarks colour and the wavy underline; a non-breaking space becomes a grey middle dot; in
// the main box each inter style pair gets its colour and bold; a superscript pair gets the
// offset 100 and a font 3 points smaller than fontSize, the box's font size. Unpaired inter
// and superscript tags, and every other tag, stay in the text as characters.
BoxText TagsToStoryText(int index, std::string_view elementXml, const MarkupSettings& settings,
                        std::int32_t fontSize);

}  // namespace tessarin
