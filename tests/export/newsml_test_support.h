#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "export/export_frame.h"

namespace tessarin::testing {

// Lines as the XML writers end them: each line followed by CR LF.
inline std::string CrLfLines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (std::string_view line : lines) {
        text += line;
        text += "\r\n";
    }
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

// The program around a writer, with everything a test may set before it takes a context.
struct WriterSetup {
    Configuration configuration;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;

    ExportContext Context(const LocalDateTime& now) {
        ExportContext context{.configuration = configuration,
                              .window = window,
                              .preferences = preferences,
                              .user = user,
                              .userName = {}};
        context.now = now;
        return context;
    }
};

}  // namespace tessarin::testing
