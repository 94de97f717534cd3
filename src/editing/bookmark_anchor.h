#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "app/window_state.h"
#include "editing/text_selection.h"
#include "story/story_record.h"
#include "text/styled_text.h"

namespace tessarin {

// A bookmark's anchor: the note's title standing in a text box as protected characters,
// highlighted in the bookmark colour and underlined with a wave, in the colours of normal
// text otherwise. It cannot be typed over, does not count towards the copy-fit and goes
// together with its note.

CharFormat AnchorFormat(OleColour bookmarksColour);

// Puts the anchor of title at position, which must not lie inside another anchor.
void InsertAnchor(StyledText& text, std::size_t position, std::u16string_view title,
                  OleColour bookmarksColour);

// Where the anchor of title stands in text: the first hit of title that is wholly protected.
std::optional<std::size_t> FindAnchor(const StyledText& text, std::u16string_view title);

// The anchor of title in the story's boxes, from box 0 on.
std::optional<TextSelection> FindAnchorInStory(const StoryRecord& story, std::u16string_view title);

}  // namespace tessarin
