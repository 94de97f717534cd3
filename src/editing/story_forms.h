#pragma once

#include <string>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// Story forms and the story panel: the form chosen in lstStoryTypes decides which text boxes
// the story has, which are typed in upper case only, their copy-fit limits and how many
// pictures the story takes. Nothing is discarded without asking, and a refusal puts the old
// form back.
//
// Controls besides those of the boxes (TextBoxN, lblTextBoxN, lblNbTextBoxN):
//   ImageAllCapsN                 shown while box N (0 to 5) is all caps
//   lblImageMetadata              the pictures the form requires
//   ImagePhoto, ImageNoPhoto      the picture beside it: the form takes pictures, or none
//   fraImages                     the pictures' frame, whose tool tip gives the limits
//   Images, mnuDisplayImages      the pictures' view button and menu entry (hidden for a form
//                                 without pictures; checked while the view is open)
//   Informations, mnuDisplayMetadata  the view the editor falls back to
//   cmdSignature                  the signature buttons, enabled when the form has digit 0

// Chooses the form at index (the index of lstStoryTypes) for the open story. Nothing happens
// for -1, an index without form or the form in force. A story with a file name is marked as
// modified. The questions come first, in this order, and any No puts the form in force back
// into lstStoryTypes and the story, leaving everything else as it was:
//   - a form without pictures (MaxImages 0), when images are enabled: ImageNotAllowed and
//     UnlinkImages if pictures are linked, then UnlinkOtherFiles if other files are linked;
//   - more pictures than the form's maximum: MaxImagesType ": " max, StoryModify (Yes opens
//     the pictures' view);
//   - for each box that holds text other than blanks and that the form leaves out, and for a
//     signature the form leaves out: EraseTextBox ":" and the label's caption.
// Then the form applies: the pictures agreed to go are unlinked, the boxes get their active
// state (a box left out is emptied), the signature its buttons, the image allowance, the
// limits and a full recount (RecountAllBoxes), and the all-caps flags, where AllCapsTextBox
// asks before a box's text is upper-cased (note anchors keep their case; No keeps the text,
// the flag stays for what is typed). Returns true when the form is now in force. The caller
// refreshes the metadata tool tips afterwards, whatever the outcome.
bool ChooseForm(EditorSession& session, int index);

// Brings the editor to the state of a new story, keeping the form in force: the title
// "Tessarin <version>[ - <client>] - <NewStory>", the story record reset (ResetStory: every
// value and box empty, the user's identity, status and genre at their defaults, sections as
// the configuration chooses), metadata tool tips cleared, lstStatus and lstGenre on their defaults,
// the taxonomy unchecked and lstTaxonomy empty, no keyword under the categories, the copy-fit
// display reset, the toolbar's Bold, Italic, Underline, Superscript and QA buttons released
// with mnuDisplayParagraphs and mnuFormatQA, no notes ("<Notes> [0]", collapsed), no logs
// (lstLogs, lstLogsTypes emptied; mnuDisplayLogs and Logs released), no attachments, the
// signature buttons released and the field empty and disabled, the Zoom button released, the
// highlights of treePublications and treeTaxonomy cleared, the undo ring emptied, the main box
// unlocked and the status panel cleared. The modified flag and the story's file name are the
// caller's.
void RefreshStoryPanel(EditorSession& session);

// The new story that the start shows and that New and Close bring back, whatever stood in the
// editor before: RefreshStoryPanel (the user's identity, status and genre by default, nothing
// chosen or highlighted), the first form chosen and every box counted against its limits,
// the publication date of tomorrow and the metadata tool tip built.
void ShowNewStory(EditorSession& session);

// What a key typed into an all-caps box puts in: each character that the 8-bit code page
// (Windows-1252) has is replaced by its upper case when the code page has that too ("é" to
// "É", "ÿ" to "Ÿ", "œ" to "Œ"; "ß" and "µ" stay). Characters outside the code page are left
// as typed.
std::u16string TypedInAllCaps(std::u16string_view typed);

}  // namespace tessarin
