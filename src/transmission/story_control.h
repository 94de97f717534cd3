#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/display_view.h"
#include "session/editor_session.h"
#include "transmission/workflow_window.h"

namespace tessarin {

// The control of a story on its way into the send list, and its staging in Upload.

enum class AddOutcome {
    Staged,         // the story is in the list
    Refused,        // refused; the status panel or a message box told why
    EditRequested,  // an edit question was answered Yes: the story is to be opened
};

struct AddResult {
    AddOutcome outcome = AddOutcome::Refused;
    std::filesystem::path story;            // the story that was judged
    DisplayView view = DisplayView::Story;  // EditRequested: the view that shows the fault
};

// cmdAddStory, on the story that cmdAddCurrent prepared, else on one chosen in the file
// dialog (title AddStory, filter "<StoriesLabel> XML (*.xml)|*.xml", the last story
// directory). The steps, in their order, each ending the control when it refuses:
//  1. the status panel is cleared; a cancelled dialog ends here;
//  2. the personal directory rule (the dialog keeps the personal directory), else the
//     directory is kept as DirStories;
//  3. the story open in the editor: StoryOpened;
//  4. a file of that name in Upload: "<StoryAlreadyInList>: <name>";
//  5. MaxStories (when not 0) reached: "<MaxStories>: <n>", whatever the control choice;
//  6. a story that does not parse: "Parsing error:" path ..., and the list is rebuilt;
//  7. when the configuration has status values, a status whose FormalItem is not "Usable"
//     asks StatusNotUsable with ### the status (a Yes/No exclamation box); No refuses;
//  8. the form: Metadata/Form among lstStoryTypes, and its least and most images;
//  9. Metadata/OriginalPath gets the story's full path;
// 10. with control (optControl0 and ControlStoryBeforeTransmission) and a known form, a
//     publication date before today asks to edit (view Informations);
// 11. likewise each box's CharCount against the form's limits, box 6 less the characters
//     of the form's image sizes, asks to edit (view Story);
// 12. with control, the number of images against the form's (view Images) and MaxImages
//     against the list ("<MaxImages>: <n>");
// 13. and 14. the images and other files (story_staging.h), then the staged story is saved
//     in Upload, its source made read-only and, without control, its marker made.
// Each edit question ends with a blank line and StoryModify; the story stays out of the
// list whatever the answer.
AddResult AddStory(EditorSession& session, WorkflowWindow& window);

// cmdAddCurrent: the editor's story is saved (a refused save ends here) and closed, then
// AddStory runs on its file.
AddResult AddCurrentStory(EditorSession& session, WorkflowWindow& window);

// The Yes of an edit question: the editor's story is closed (with the question before a
// change is lost), the story opened and the view shown. False when the close was stopped
// or the story could not be opened.
bool OpenStoryForEdit(EditorSession& session, const AddResult& result);

// The edit question with these lines, a blank line and StoryModify, asked as a Yes/No
// question: EditRequested with the view on Yes, Refused on No.
AddResult AskToEdit(EditorSession& session, const std::filesystem::path& story,
                    const std::vector<std::string>& lines, DisplayView view);

}  // namespace tessarin
