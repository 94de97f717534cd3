#pragma once

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// The commands of the editing toolbar and the format menu. Each acts on the selection's box
// and does nothing when the selection names no box; the selection comes back as the box shows
// it afterwards. A command that changed the box records an undo step, marks the story as
// modified and returns true; one that changed nothing returns false.

// Bold, italic, underline: on over the whole selection, or off when all of it has it already.
// An empty selection, or one that holds a note's anchor, is left alone.
bool ToggleBold(EditorSession& session, TextSelection& selection);
bool ToggleItalic(EditorSession& session, TextSelection& selection);
bool ToggleUnderline(EditorSession& session, TextSelection& selection);

// Superscript: a selection with no raised character is raised (offset 100) in a font 3 points
// smaller than its own; otherwise each raised character goes back to the line and 3 points
// larger. Left alone as bold is.
bool ToggleSuperscript(EditorSession& session, TextSelection& selection);

// Inter style 1 to 3, in the main text box only: elsewhere the status panel shows
// InterNotAllowed, ": " and the caption of the box's label. With the SelectInter preference
// the selection first grows to whole paragraphs (line breaks outside); an empty selection
// then shows SelectInter, and one that holds an anchor is left alone. A selection all in the
// style's colour loses the style (the colour of normal text, bold off); any other takes it
// (the style's colour, bold on).
bool ToggleInter(EditorSession& session, TextSelection& selection, int style);

// Upper or lower case over the selection, or the whole box when nothing is selected. Every
// character keeps its format; note anchors keep their text, which is their note's title. The
// selection stays.
bool ChangeToUpperCase(EditorSession& session, TextSelection& selection);
bool ChangeToLowerCase(EditorSession& session, TextSelection& selection);

// Put today's long date, the time as "hh:mm:ss" or a non-breaking mark in place of the
// selection, in the format of typed text; the caret ends behind what was put. Refused on a
// selection that holds an anchor.
bool InsertDate(EditorSession& session, TextSelection& selection);
bool InsertTime(EditorSession& session, TextSelection& selection);
bool InsertNonBreakingSpace(EditorSession& session, TextSelection& selection);

}  // namespace tessarin
