#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// Copy-fitting: the character count of each text box shown beside it, the limits that the
// form in force gives the box, and the warnings when the count falls outside them. Nothing is
// ever refused for its length: the limits only inform.
//
// Controls of box N, 0 to 6:
//   lblNbTextBoxN      the count ("137"; "0  [0%]" outside the limits), or its words on demand
//                      (the control is checked while it shows words); on box 6 while pictures
//                      shorten it, its tip gives ImagesCopyfit " = " the allowance, a line
//                      break and the limits as they become
//   lblMinMaxTextBoxN  the limits "[100,200]"; on box 6 with pictures "[1000,2000] -> [200,1200]"
//   ImageWarningLessN  shown when the box holds too many characters: the writer writes less
//   ImageWarningMoreN  shown when it holds too few: the writer writes more
//   lblTextBoxN        the box's label, red while a warning icon shows (BoxLabelColour)
// and lblNbTotal, "Total chars=N" for all seven boxes.
//
// Counting never reads a whole box on a key: an edit is measured on the range it replaces
// (MeasureBoxEdit) and the count moves by the difference (BoxTextChanged). Reading a story,
// choosing a form and replacing a box whole count again from the text (RecountBox,
// RecountAllBoxes).

inline constexpr int kAllCapsBoxCount = 6;  // boxes 0 to 5 may be all caps, never the main text
inline constexpr std::string_view kTotalCountLabel = "lblNbTotal";

std::string CountLabelName(int box);     // "lblNbTextBox" N
std::string LimitsLabelName(int box);    // "lblMinMaxTextBox" N
std::string WriteLessIconName(int box);  // "ImageWarningLess" N
std::string WriteMoreIconName(int box);  // "ImageWarningMore" N

// True when the configuration made box invisible: "invisible" in the tag of TextBoxN.
bool BoxTaggedInvisible(const WindowState& window, int box);

// What an edit did to a box, enough to keep its count without reading the box.
struct BoxTextChange {
    std::int64_t lengthDelta = 0;         // code units inserted less code units erased
    std::int64_t lineBreakDelta = 0;      // CR LF pairs made less pairs undone
    std::int32_t noteCharacterDelta = 0;  // characters of note anchors added (or, below 0, removed)
    std::int32_t paragraphMarkDelta = 0;  // pilcrows that the paragraph display added or removed
};

// Measures the replacement of [start, start + length) of box by inserted, before it is made.
// Only the replaced range and one unit on each side are read, so that a CR typed before an LF,
// or an LF erased between a CR and a CR LF, count right. The note and paragraph deltas are 0:
// whoever adds an anchor or a pilcrow fills them in.
BoxTextChange MeasureBoxEdit(const StyledText& box, std::size_t start, std::size_t length,
                             std::u16string_view inserted);

enum class ChangeOrigin { User, Program };

// After box changed as change says: its counters follow, UpdateCopyFit runs, the total is
// shown again, a change by the user marks the story as modified, and the menu entries that
// need text (mnuAutoTypography, mnuSearchText, mnuReplaceText, mnuSearchNextOccurrence,
// mnuToolsSpellChecker, mnuToolsSynonyms, mnuToolsWordStatistics) are enabled as soon as one
// box holds text and disabled while all seven are empty.
void BoxTextChanged(EditorSession& session, int box, const BoxTextChange& change,
                    ChangeOrigin origin);

// A key typed into box: typed replaces the replacedLength units at position (the selection;
// Backspace and Delete type nothing over what they remove), in the typing format
// (TypingFormat). In an all-caps box the typed text is upper-cased through the 8-bit code
// page (TypedInAllCaps). Note anchors in the selection stay (ReplaceKeepingProtected); typing
// inside an anchor, or into the main box of a story opened read-only, is refused. The count
// follows through BoxTextChanged. Returns the caret behind the typed text; nothing when
// refused.
std::optional<std::size_t> TypeText(EditorSession& session, int box, std::size_t position,
                                    std::u16string_view typed, std::size_t replacedLength = 0);

// Counts box again from its text, then as BoxTextChanged.
void RecountBox(EditorSession& session, int box, ChangeOrigin origin);

// Counts every box again from its text, runs UpdateCopyFit for each box not tagged
// "invisible", shows the total and sets the menu entries: after reading a story or choosing a
// form. The story's modified flag is left alone.
void RecountAllBoxes(EditorSession& session);

// Shows the count, the limits and the warnings of box (0 to 6; any other index does nothing)
// from its counters, the form's limits and, for the main box, the image allowance. A minimum
// of 0 means no limits. Outside the limits the count shows its share of the maximum, rounded
// half away from zero ("0  [0%]"); no share is shown for a maximum of 0. The status text
// (TooMuchChars or NotEnoughChars after the label's caption and ": ") follows the
// preference TooMuchNotEnough.
void UpdateCopyFit(EditorSession& session, int box);

// The colour of the label lblTextBox of box: red (255) while a warning icon shows, else the
// normal button text colour.
OleColour BoxLabelColour(const EditorSession& session, int box);

// The mouse over a warning icon of box: the status text of its warning comes back.
void ShowBoxWarning(EditorSession& session, int box);

// A click on the limits of the main box: when pictures shorten it, the status text shows the
// allowance, " = ", ImagesLabel, ": " and the size of each picture, joined by "; ".
void ShowImageAllowanceParts(EditorSession& session);

// A click on lblNbTextBox of box swaps the count for the box's words (note anchors left out),
// "N: " and the label for words; a second click brings the count back. The same on lblNbTotal
// for the words of all boxes.
void ToggleBoxWords(EditorSession& session, int box);
void ToggleTotalWords(EditorSession& session);

// The selection counters for a selection of box: SelectedChars and its length less two for
// each line break, " / ", SelectedWords and its words. Empty for an empty selection, which
// leaves the panel as it was.
std::string SelectionCountersText(const EditorSession& session, int box, std::size_t start,
                                  std::size_t length);

// The copy-fit as a new story shows it: each count alone, neither icons nor limits labels, the
// total and the menu entries as the boxes are (after emptying them: 0 and disabled).
void ResetCopyFitDisplay(EditorSession& session);

}  // namespace tessarin
