#pragma once

#include <string>
#include <string_view>

#include "export/rtf_story_draft.h"

namespace tessarin {

// The draft as an RTF document in the Windows-1252 code page: a font table of the fonts it
// uses, in the order they first appear, then its text with bold, italic, underline,
// superscript, font and size switched on and off where the runs change. Each CR LF ends a
// paragraph (\par), the signature's paragraph is aligned right, and the document ends with
// "}" on a line of its own, so that more RTF can go in before that last "}". Characters the
// code page lacks are written as \u with a "?" for readers that do not know it.
std::string DraftRtf(const StoryDraft& draft);

// Text written inside an RTF group: "\", "{" and "}" escaped, bytes above 127 as \'hh, a tab
// as \tab, a no-break space as \~, other characters as \u; line ends are kept out.
std::string RtfEscapedText(std::u16string_view text);

}  // namespace tessarin
