#pragma once

#include <cstddef>

#include "config/preferences.h"
#include "session/editor_session.h"
#include "text/styled_text.h"

namespace tessarin {

// Automatic typography: a non-breaking mark before ":", ";", "!", "?" and "%", inside the
// quotation marks « and », no double blanks. Protected text (a note's anchor) is never
// touched.

inline constexpr char16_t kOpeningQuote = u'\u00AB';
inline constexpr char16_t kClosingQuote = u'\u00BB';

// The user's three switches.
struct TypographySwitches {
    bool frenchQuotationMarks = false;
    bool nonBreakingSpaces = true;
    bool removeDuplicateSpaces = true;
};
TypographySwitches TypographySwitchesOf(const Preferences& preferences);

// True for the characters that want a non-breaking mark before them.
bool WantsMarkBefore(char16_t unit);

// Puts a non-breaking mark over [position, position + length) (a blank to replace, or the
// caret): in the colour of the replaced blank, or of the character before the caret, grey
// where that is black.
void PutNonBreakingMark(StyledText& text, std::size_t position, std::size_t length);

// Runs the typography command over one box's text, rule after rule: double blanks shrink to
// one, the punctuation gets its mark, double quotes alternate « and » from « on, and the
// quotation marks get theirs. True when the text changed.
bool ApplyTypography(StyledText& text, const TypographySwitches& switches);

// mnuAutoTypography: ApplyTypography over every box from 0 to 6 that holds text (but the main
// box of a story opened read-only); each box that changed is counted again, the story is
// marked as modified and an undo step records the box. True when a box changed.
bool RunAutoTypography(EditorSession& session);

}  // namespace tessarin
