#pragma once

#include <filesystem>

#include "app/user_interaction.h"
#include "session/editor_session.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

// An editor session whose program folder lies in a temporary folder that also takes the
// test's pictures and files; the user's answers are scripted.
struct AttachmentsSession {
    AttachmentsSession() { std::filesystem::create_directories(folder / "app"); }

    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
};

}  // namespace tessarin::testing
