#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "common/xml_document.h"
#include "config/interface_section.h"
#include "config/story_section.h"
#include "session/editor_session.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

// An editor session for the story panel's and the attachments' tests: every message and
// interface caption at its English default, the box labels captioned "Box0" to "Box6", and
// scripted answers. Its program folder lies in a temporary folder that also takes the test's
// pictures and files.
struct PanelSession {
    PanelSession() : session(MakeAppPaths(folder / "app"), user) {
        std::filesystem::create_directories(folder / "app");
        for (const MessageDefault& message : MessageDefaults()) {
            session.configuration.messages.Set(message.key, std::string(message.text));
        }
        XmlDocument interface;
        interface.LoadBytes("<Interface/>");
        ReadInterface(interface.DocumentElement(), session.configuration.interface, session.window);
        for (int box = 0; box < kTextBoxCount; ++box) {
            session.window.Control(TextBoxLabelName(box)).caption = "Box" + std::to_string(box);
        }
    }

    const ControlState& Control(std::string_view name) { return session.window.Control(name); }

    TempDir folder;
    ScriptedInteraction user;
    EditorSession session;
};

}  // namespace tessarin::testing
