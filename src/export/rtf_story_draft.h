#pragma once

#include <cstddef>
#include <string>

#include "config/preferences.h"
#include "story/story_record.h"
#include "text/styled_text.h"

namespace tessarin {

// The story's text boxes gathered into one styled text, as the RTF and PDF exports and the
// teleprompter read it: each box 0 to 6 whose text is not blank, followed by CR LF, every
// character with its font name and size set (those of its box where it had none), middle
// dots made real no-break spaces, the notes' anchors removed, and the signature last, in the
// font of box 6, bold, in a paragraph of its own aligned right.
struct StoryDraft {
    StyledText text;
    // Where the signature's paragraph begins; npos when the story has no signature.
    std::size_t signatureStart = std::string::npos;

    bool Empty() const { return text.Empty(); }
};

StoryDraft BuildStoryDraft(const StoryRecord& story, const Preferences& preferences);

}  // namespace tessarin
