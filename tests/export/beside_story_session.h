#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/scoped_environment.h"
#include "config/messages_section.h"
#include "session/editor_session.h"
#include "support/shell_quote.h"
#include "support/temp_dir.h"
#include "support/tool_run.h"

namespace tessarin::testing {

// A character format in a font, bold or italic.
inline CharFormat Font(const char* name, int size, bool bold = false, bool italic = false) {
    CharFormat format;
    format.fontName = name;
    format.fontSize = size;
    format.bold = bold;
    format.italic = italic;
    return format;
}

// An editor session in a temporary application directory with the English messages and
// scripted answers, and an open story "brief.v2.xml" in a stories folder, for the commands
// that write a file beside the story.
class BesideStoryTest : public ::testing::Test {
  protected:
    BesideStoryTest() : session_(MakeAppPaths(app_.path()), user_) {
        for (const MessageDefault& message : MessageDefaults())
            session_.configuration.messages.Set(message.key, std::string(message.text));
        session_.configuration.identity.author = "Zoé Dupré";
        std::filesystem::create_directories(stories_);
        session_.storyDirectory = stories_;
        session_.storyFileName = "brief.v2.xml";
    }

    // Appends text in a format to a box of the open story.
    void Add(int box, std::u16string_view text, const CharFormat& format = {}) {
        StyledText& styled = session_.story.boxes[box];
        styled.Insert(styled.Length(), text, format);
    }

    // The output of a tool run on a file.
    static std::string Tool(const std::string& command, const std::filesystem::path& file,
                            const std::string& after = "") {
        return RunTool(command + " " + Quoted(file.string()) + after).output;
    }

    ScopedEnvironment now_{"TESSARIN_NOW", "2025-02-20T09:30:00"};
    TempDir app_;
    std::filesystem::path stories_ = app_ / "stories";
    ScriptedInteraction user_;
    EditorSession session_;
};

}  // namespace tessarin::testing
