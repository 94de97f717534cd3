#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/windows1252.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/export_section.h"
#include "config/preferences.h"
#include "export/export_frame.h"
#include "support/replace_once.h"

namespace tessarin::testing {

// The one "now" of the writers' tests: Tuesday 5 March 2024, 09:07:30.
constexpr LocalDateTime kNow{2024, 3, 5, 9, 7, 30};

// Text written with "\n" line ends, with the CR LF line ends that the writers give.
inline std::string CrLf(std::string_view lines) {
    std::string text;
    for (const char c : lines) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

// A story file from lines written with "\n": CR LF line ends, in Windows-1252 under the
// ISO-8859-1 prolog, or in UTF-8 under the UTF-8 prolog.
inline std::string StoryFile(std::string_view lines, bool utf8 = false) {
    const std::string text = CrLf(utf8 ? "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                                       : "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n") +
                             CrLf(lines);
    return utf8 ? text : Utf8ToWindows1252(text);
}

// A document written as the changes to another one, each applied once and in order; the test
// fails when the text a change replaces is not there.
inline std::string Changed(
    std::string text,
    std::initializer_list<std::pair<std::string_view, std::string_view>> changes) {
    for (const auto& [from, to] : changes)
        ReplaceOnce(text, from, to);
    return text;
}

// A story file's bytes, parsed; the test fails when they do not parse.
inline XmlDocument ParseStory(std::string_view bytes) {
    XmlDocument story;
    EXPECT_TRUE(story.LoadBytes(bytes)) << bytes;
    return story;
}

inline bool IsWellFormed(std::string_view bytes) {
    return XmlDocument().LoadBytes(bytes);
}

// Export sections as a configuration document writes them, inside ExportFormats.
inline ExportSettings ReadSettings(std::string_view sections) {
    const XmlDocument document =
        ParseStory("<ExportFormats>" + std::string(sections) + "</ExportFormats>");
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    return settings;
}

// The program around a writer, with everything a test may set before it takes a context.
struct WriterSetup {
    Configuration configuration;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;

    ExportContext Context(const LocalDateTime& now = kNow) {
        ExportContext context{.configuration = configuration,
                              .window = window,
                              .preferences = preferences,
                              .user = user,
                              .userName = {}};
        context.now = now;
        return context;
    }
};

// The state a sender leaves before it calls a writer for a staged story.
inline ExportState Staged(const std::string& uploadDirectory, const std::string& storyName) {
    ExportState state;
    state.UploadDirectory = uploadDirectory;
    state.CurrentUploadNode = storyName;
    state.SourceStoryPath = uploadDirectory + storyName;
    return state;
}

}  // namespace tessarin::testing
