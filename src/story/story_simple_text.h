#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/configuration.h"
#include "story/story_markup.h"
#include "text/styled_text.h"

namespace tessarin {

using RescuedBoxes = std::array<StyledText, kTextBoxCount>;

// The text of a story file as the rescue reads it: UTF-8 with stray bytes as Windows-1252
// characters and surrogate groups joined, or Windows-1252 when the prolog declares
// ISO-8859-1, Latin-1 or Windows-1252.
std::u16string DecodeStoryFileText(std::string_view bytes);

// Whether the text of a file holds something to rescue: a character other than a blank, and
// no control character but tab, CR and LF, which only binary bytes give.
bool HoldsRescuableText(std::u16string_view fileText);

// The rescue of a text that has no story body: the whole text in box 6, as plain characters
// with its line ends (CR LF, LF or CR) made line breaks.
RescuedBoxes RescuePlainText(std::u16string_view fileText);

// The seven boxes that the rescue of a damaged story finds in the text of its file, or
// nothing when the text has no "<Body>" followed by a "</Body>".
//
// The text between "<Body>" and the first "</Body>" after it is taken. In it, each
// " CharCount=\"" and then each " WordCount=\"" is cut up to the next "\">" (whose ">" stays),
// or for 9 characters when none follows, and the text before and after each cut is trimmed
// of blanks: "<TextBox3 CharCount=..>" becomes "<TextBox3>". Then "<b>", "</b>", "<i>",
// "</i>", "<u>", "</u>" switch the formats, "<p/>" is a line break (CR LF), "<euro/>" is "€",
// line ends of the file are dropped and the escapes are undone. Each first "<interN>" ..
// "</interN>" pair (N = 1, 2, 3), in every box, gives its text the style's colour and bold,
// and each "<sup>" .. "</sup>" pair the offset 100 and a font 3 points below the box's
// fontSizes entry; the tags of a pair go. For N from 0 to 5, the text between the first
// "<TextBoxN>" and the first "</TextBoxN>" after it goes to box N, and both tags and the
// text go from the rest; what remains goes to box 6, without a "<TextBox6>" at its start
// and a "</TextBox6>" at its end. Every other tag stays as characters, and so do
// backslashes and braces.
std::optional<RescuedBoxes> RescueStoryBoxes(
    std::u16string_view fileText, const MarkupSettings& settings,
    const std::array<std::int32_t, kTextBoxCount>& fontSizes);

}  // namespace tessarin
