#pragma once

#include <string>

#include "common/scoped_environment.h"
#include "config/configuration_document.h"
#include "metadata/tree_highlight.h"
#include "session/editor_session.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

// An editor session on Monday 10 March 2025 at 00:01, with day-month-year dates, whose
// configuration is loaded from a document: the trees and labels are those the program builds.
struct MetadataSession {
    MetadataSession() { Load(ConfigurationDocument{}); }

    void Load(ConfigurationDocument document) {
        document.messages = "<Messages/>";  // every message takes its default text
        folder.Write("Tessarin.xml", document.Text());
        LoadConfiguration(session.paths.configurationFile, session.profile, session.preferences,
                          session.configuration, session.window);
    }

    TreeModel& Tree(std::string_view name) { return session.window.Tree(name); }
    ControlState& Control(std::string_view name) { return session.window.Control(name); }
    const std::string& Status() { return session.window.Status().text; }

    ScopedEnvironment now{"TESSARIN_NOW", "2025-03-10T00:01:00"};
    ScopedEnvironment shortDate{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder.path()), user};
    TreeHighlights highlights;
};

}  // namespace tessarin::testing
