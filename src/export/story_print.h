#pragma once

#include <optional>
#include <string>

#include "export/rtf_story_draft.h"

namespace tessarin {

struct EditorSession;

// mnuFilePrint: the story goes on paper as its RTF and PDF exports write it (the story's
// draft), under a heading that names it.
struct StoryPrintout {
    std::string title;    // the story's file name
    std::string details;  // the author, publication and publication date it has, joined by " - "
    StoryDraft draft;
};

// What the print command puts on paper, or nothing to print. An empty story shows EmptyStory
// in the status bar. A story never saved is printed once it has a name: SavePrintedStory is
// told, then the save dialog opens; left without a name, nothing is printed.
std::optional<StoryPrintout> PrepareStoryPrint(EditorSession& session);

}  // namespace tessarin
