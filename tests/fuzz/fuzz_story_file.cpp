// The story reader on any bytes taken as a story file, under a newsroom's configuration, a
// file that does not parse being rescued as text. A file that is read as a story is then
// written as a save writes it, in both encodings, and that file must read as a story again:
// a saved story can always be opened.

#include <cstddef>
#include <cstdint>

#include "app/user_interaction.h"
#include "fuzz_input.h"
#include "fuzz_newsroom.h"
#include "story/story_file_reader.h"
#include "story/story_file_writer.h"

namespace {

using namespace tessarin;

constexpr LocalDateTime kNow{2026, 11, 21, 8, 30, 0};

StoryReadOutcome Read(const std::filesystem::path& file, const fuzz::Newsroom& newsroom,
                      StoryRecord& story) {
    WindowState window = newsroom.window;
    ScriptedInteraction user(Answer::Yes);
    const StoryContext context{newsroom.configuration, window, newsroom.preferences, user};
    return ReadStory(file, context, story);
}

void SavedStoryReadsAgain(const StoryRecord& story, const fuzz::Newsroom& newsroom) {
    WindowState window = newsroom.window;
    ScriptedInteraction user(Answer::No);
    const StoryContext context{newsroom.configuration, window, newsroom.preferences, user};
    const auto saved =
        fuzz::WriteInput("saved.xml", ComposeStoryFile(story, context, "saved.xml", kNow));
    StoryRecord again;
    if (ReadStory(saved, context, again) != StoryReadOutcome::Read) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Newsroom utf8("UTF-8");
    static const fuzz::Newsroom latin("ISO-8859-1");
    StoryRecord story;
    const auto file = fuzz::WriteInput("story.xml", fuzz::Bytes(data, size));
    if (Read(file, utf8, story) != StoryReadOutcome::Read) return 0;
    SavedStoryReadsAgain(story, utf8);
    SavedStoryReadsAgain(story, latin);
    return 0;
}
