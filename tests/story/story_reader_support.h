#pragma once

#include <string>
#include <string_view>

#include "common/utf8.h"
#include "config/messages_section.h"
#include "story/story_file_reader.h"
#include "story_save_fixture.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

// A story file: the prolog, the root with its attributes, and what stands inside it.
inline std::string StoryXml(std::string_view inside,
                            std::string_view rootAttributes = R"(AppName="Tessarin")",
                            std::string_view encoding = "ISO-8859-1") {
    return "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) +
           "\" ?>\r\n<!-- story.xml -->\r\n<Story " + std::string(rootAttributes) + ">\r\n" +
           std::string(inside) + "</Story>\r\n";
}

// Everything ReadStory needs, with every message at its default text and the answers
// scripted (Yes unless queued otherwise).
struct ReaderBench : StorySaveFixture {
    ReaderBench() {
        for (const MessageDefault& message : MessageDefaults())
            configuration.messages.Set(message.key, std::string(message.text));
    }

    TempDir folder;
    StoryContext context = Context();
    StoryRecord story;

    std::filesystem::path Write(std::string_view bytes, std::string_view name = "story.xml") {
        return folder.Write(name, bytes);
    }
    StoryReadOutcome Read(std::string_view bytes) {
        return ReadStory(Write(bytes), context, story);
    }
    // The plain text of a box of the story read.
    std::string Box(int index) const { return Utf16ToUtf8(story.boxes[index].Text()); }
};

}  // namespace tessarin::testing
