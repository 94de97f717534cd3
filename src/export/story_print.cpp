#include "export/story_print.h"

#include "app/user_interaction.h"
#include "session/editor_session.h"
#include "story/file_operations.h"

namespace tessarin {
namespace {

std::string Details(const StoryRecord& story) {
    std::string details;
    for (const std::string* part : {&story.author, &story.publication, &story.publicationDate}) {
        if (part->empty()) continue;
        if (!details.empty()) details += " - ";
        details += *part;
    }
    return details;
}

}  // namespace

std::optional<StoryPrintout> PrepareStoryPrint(EditorSession& session) {
    StoryDraft draft = BuildStoryDraft(session.story, session.preferences);
    if (draft.Empty()) {
        session.window.ShowStatusError(session.Message("EmptyStory"));
        return std::nullopt;
    }
    if (session.storyFileName.empty()) {
        session.user.Tell(session.Message("SavePrintedStory"), MessageIcon::Information);
        if (!SaveStoryAs(session) || session.storyFileName.empty()) return std::nullopt;
    }
    return StoryPrintout{session.storyFileName, Details(session.story), std::move(draft)};
}

}  // namespace tessarin
