#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/xml_document.h"
#include "transmission/story_control.h"

namespace tessarin {

// The last steps of the control: a story's images and other files, then the staged story.

// What the attachment steps know of the story being added.
struct StagingStory {
    std::filesystem::path path;   // the source story
    std::string name;             // its file name
    XmlNode root;                 // its document, changed in memory
    bool controlled = false;      // optControl0 with ControlStoryBeforeTransmission
    bool withoutControl = false;  // optControl1: the story enters the list uncontrolled
};

// The name under which an other file is staged: with the user's initials,
// "<base> (<initials>)<.ext>", or "<name> (<initials>)" without a dot; the name as it is
// when initials is empty.
std::string NameWithInitials(std::string_view name, std::string_view initials);

// Steps 13 and 14. Each image, in document order: a missing file asks to edit
// ("<StoryLabel>: <full path>", "<UnknownImage>: <href>") whatever the control; with control,
// a file shorter than MinSizeImage KB or longer than MaxSizeImage KB (each when not 0) asks
// to edit ("<StoryLabel>: <name>", "<ImageLabel>: <href>", "<ImageSizeLabel>: <size>",
// "<ImageSizeMinLabel>: <n> KB" or the maximum's). Then each other file is checked for
// existence ("<UnknownOtherFile>: <href>"). Every question shows the Images view. When all
// pass, each file is copied into Upload under its bare name (an other file with the
// initials when AddInitialsToFilenames is on), overwriting, and its href becomes that name,
// or "" for a file gone meanwhile. Nothing when all is staged; else the refusal (a copy
// that fails is told with the file and the reason).
std::optional<AddResult> StageAttachments(EditorSession& session, const StagingStory& story);

// Step 15: the document is saved as Upload/<name>, the source made read-only and, for a
// story added without control, its empty marker made. False, told, when the save fails.
bool SaveStagedStory(EditorSession& session, const StagingStory& story, XmlDocument& document);

}  // namespace tessarin
