#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "session/editor_session.h"
#include "story/story_context.h"
#include "story/story_record.h"

namespace tessarin {

enum class SaveOutcome {
    Saved,
    MandatoryFieldMissing,  // a mandatory check failed; nothing was written
    EmptyStory,             // no text box holds text; nothing was written
    ReadOnly,               // the file is read-only; this save wrote nothing
    WriteFailed,            // the file could not be written
};

struct SaveResult {
    SaveOutcome outcome = SaveOutcome::Saved;
    std::string message;  // why the story was not saved, as the user is told; empty when saved
    std::string field;    // MandatoryFieldMissing: the control of the failing field
    // ReadOnly: the user chose to save under a new name and the save-as command saved.
    bool savedUnderNewName = false;
    std::filesystem::path backup;  // the backup story this save made; empty when none
};

struct SaveStoryRequest {
    std::filesystem::path directory;  // the story's directory
    std::string fileName;             // the story's name and extension
    // The automatic backup: no questions, no mandatory checks, no backup story, no tracking.
    bool unattended = false;
    // The save-as command that the question about a read-only story leads to; true when it
    // saved. Without it a Yes saves nothing.
    std::function<bool()> saveStoryAs;
};

// The backup name of a story: an extension "xml" in any case becomes "bml"; any other name
// gets ".bml" appended ("story.txt" gives "story.txt.bml").
std::string BackupStoryName(std::string_view fileName);

// Saves the open story to its file, in this order:
// 1. unless unattended or the story is cold, the mandatory checks: the first failure goes to
//    the status panel and to a warning box, and ends the save;
// 2. the body is built; an empty one shows EmptyStory in the status panel with a beep and
//    ends the save;
// 3. an existing file without write permission ends the save; unless unattended, the user
//    is first asked: the path, ReadOnlyStory, ReadOnlyStorySave, and Yes runs the save-as
//    command; unattended, the status panel shows ReadOnlyStory ": " and the path;
// 4. the file is written through a temporary file renamed over it, so that it is never left
//    half-written; unless unattended, with BackupStories on, the previous version becomes
//    the backup story just before (file_io.h: the story's name holds the complete old or
//    the complete new version at every instant); a failure is told (NotSavedStory and the
//    path), in the status panel only for an automatic save;
// 5. unless unattended, with the workflow's tracking on, the linked files are copied to
//    TrackingImagesDirectory and the story to TrackingTextsDirectory as <base>.xml;
// 6. the status panel shows the time "hh:mm", " - ", SavedStory, ": " and the path; the
//    story's last-save date and time become now, and a story without a creation date gets
//    now as well;
// 7. unless unattended, with the user's TextMLTracking and the TextML section's
//    TrackingEnabled on, the saved story is stored in the repository's tracking base
//    (StoreTrackingDocument); whatever the repository says, the story stays saved.
SaveResult SaveStory(StoryRecord& story, StoryContext& context, const SaveStoryRequest& request);

// Saves the open story of an editor session under its directory and name. When it is saved,
// the story counts as unchanged and the automatic save's countdown starts again at
// BackupAutoTime.
SaveResult SaveSessionStory(EditorSession& session, bool unattended,
                            std::function<bool()> saveStoryAs = {});

}  // namespace tessarin
