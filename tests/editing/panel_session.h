#pragma once

#include <string>
#include <string_view>

#include "common/xml_document.h"
#include "config/interface_section.h"
#include "config/story_section.h"
#include "session/editor_session.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

// An editor session for the story panel's tests: every message and interface caption at its
// English default, the box labels captioned "Box0" to "Box6", and scripted answers.
struct PanelSession {
    PanelSession() : session(MakeAppPaths(folder / "app"), user) {
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
