#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "story/story_markup.h"

namespace tessarin::testing {

// The plain, character-by-character conversion of a story's boxes into the body of its file,
// as it reads in the product's rules: one format read for every character, whole-text
// replacements over the whole body. When nest is set, the crossing repair runs over the
// whole body before encoding; callers keep tag text out of captions so that this equals
// repairing each box's inline text.
std::string ReferenceStoryTextToTags(const StoryBodyInput& input, bool nest);

// The passes over the whole body, each row over all of it: the tag order rows, the line
// breaks after paragraphs, the removal of tabs, the note rows and the collapse of blanks with
// a trim after each replacement.
std::u16string ReferenceBodyPasses(std::u16string body, bool removeDuplicateSpaces);

// The text without the blanks at either end.
std::u16string TrimBlanks(std::u16string_view text);

// What pairing tags does to a text, by the literal loop: find the first opening and first
// closing tag, style the text between, delete both, search again from the start.
struct ReferencePairing {
    std::u16string text;
    std::u16string styled;  // u'1' where a character took the style, u'0' elsewhere
};
ReferencePairing ReferencePairTags(std::u16string text, std::u16string_view opening,
                                   std::u16string_view closing);

}  // namespace tessarin::testing
