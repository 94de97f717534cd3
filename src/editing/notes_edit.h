#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "common/clock.h"
#include "config/colours.h"
#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// The notes of a story (treeNotes): notes for colleagues that never reach print. A note made
// from a selection is a bookmark, whose title stands in the text as an anchor.
//
// treeNotes shows the story's notes under its root "N1", captioned with the configured label,
// " [", the number of notes and "]"; a note's node has the title as its text and the note's
// text as its tag, and a foreign note shows in grey.

inline constexpr OleColour kForeignNoteColour = ClassicColour(8);

// The title of a note made now: the initials (BookmarksInitials) or the user's name, a
// blank, the date in the form BookmarksDate, a blank, the time in the form BookmarksTime.
// Those forms take DD, D, MM, M, YY and YYYY for the date and HH, H, NN, N, SS and S for the
// time, in either case; MM and M right after an hour or before seconds are minutes.
std::string NewNoteTitle(const EditorSession& session, const LocalDateTime& when);

// Fills treeNotes from the story's notes.
void ShowNotes(EditorSession& session);

// True when the user may change and remove the note: a note of their own, or any note with
// the configuration's ManageAllNotes.
bool CanChangeNote(const EditorSession& session, std::size_t note);

// Adds a note titled as NewNoteTitle says and returns its index; nothing when the
// configuration has no notes. With a selection in a box that can take it, the note is a
// bookmark: its anchor goes at the selection's start, the box's note characters grow by the
// title's length, and the undo ring is emptied so that no step brings the anchor back
// without its note.
std::optional<std::size_t> AddNote(EditorSession& session,
                                   const std::optional<TextSelection>& selection,
                                   const LocalDateTime& when);

// frmNote closes on the note with text (line ends made CR LF). An empty text on a new note
// removes it, anchor and all; the text of a note the user may not change stays. The root's
// caption follows and the story is modified.
void CloseNote(EditorSession& session, std::size_t note, const std::string& text, bool isNew);

// mnuPopupNoteRemove and cmdRemove: for a note the user may change, after a yes to
// NoteRemove, a blank and the title, the note goes, and with a bookmark its anchor too (the
// undo ring is then emptied). True when it went.
bool RemoveNote(EditorSession& session, std::size_t note);

// Going to a bookmark: the selection of its anchor; nothing for a plain note.
std::optional<TextSelection> BookmarkAnchor(const EditorSession& session, std::size_t note);

}  // namespace tessarin
