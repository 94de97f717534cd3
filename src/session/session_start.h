#pragma once

#include <functional>
#include <string>

#include "session/editor_session.h"

namespace tessarin {

// The editor's start and end without a window: what the main window's load, first activation
// and closing do to the session. The desktop editor shows what these leave in the session.

enum class StartState {
    Ready,             // the editor holds a new story and waits
    FirstLoginNeeded,  // no configuration document: the first login must fetch one and load it
    LoginForced,       // the configuration demands a login and no login was given to run it
    EndProgram,        // the program must end now; the user has been told why
};

struct StartOptions {
    // The program's one argument: a configuration document, copied over Tessarin.xml before
    // anything is read. Blanks around it are not part of it; empty means none.
    std::string commandLine;
    // Whether another instance of the program is running (the single-instance rule of the
    // configuration load). Empty: none is.
    std::function<bool()> anotherInstanceRunning;
    // The synonyms dictionary's load at the end of a complete configuration load. Empty: none.
    std::function<void(const Configuration&, WindowState&)> loadSynonyms;
    // The login that the configuration's ForceLogin demands, run to its end; false when the
    // user cancelled it, which ends the program.
    std::function<bool(EditorSession& session)> forcedLogin;
};

struct StartResult {
    StartState state = StartState::Ready;
    bool configurationLoaded = false;  // LoadConfiguration read the whole document
};

// The start sequence, in this order:
// 1. the application directory is made when missing; a configuration document named by the
//    command line is copied over Tessarin.xml (a failed copy is not reported);
// 2. with no Tessarin.xml now, the state is FirstLoginNeeded and the sequence goes on, its
//    configuration steps finding nothing;
// 3. Upload, Upload/Logs and XSLT are made when missing;
// 4. the preferences are read; DirStories and DirImages become the last directories when
//    they still exist;
// 5. LoadConfiguration runs; its outcome only goes to the status panel. A second instance
//    that the configuration forbids is told NotMultipleInstance and ends the program;
// 6. a configuration that sets ForceLogin runs the forced login (LoginForced without one,
//    EndProgram when it is cancelled);
// 7. while the workflow is visible, PersonalTextsDirectory, PersonalArchivesDirectory,
//    PersonalImagesDirectory, TrackingTextsDirectory, TrackingImagesDirectory,
//    WorkflowDirectory, UpdatesDirectory, ExportTextsDirectory and ExportImagesDirectory are
//    checked in that order, empty ones skipped: the first that is not a directory gives a
//    beep and the stop box InvalidDirectory ":" line break path line break
//    WarningAdministrator, and the program ends; then PersonalTextsDirectory and
//    PersonalImagesDirectory, when set, replace the last directories for this run (the
//    preferences file keeps its own);
// 8. the recent-files menu is filled; the editor shows the new story (ShowNewStory: the
//    user's identity, the first form, tomorrow's publication date), the metadata controls are
//    unlocked and the story counts as unchanged.
StartResult StartEditor(EditorSession& session, const StartOptions& options = {});

// The first activation of the main window: the configuration update from the updates folder
// (UpdateConfigurationAtStart); then, with no story open, the first form is chosen and
// the story panel built for it, which shows the new story.
void FirstActivation(EditorSession& session);

// Closing the program: the question about a modified story (as before any change is lost;
// Cancel, a cancelled save dialog or a refused save keeps the program running and returns
// false), then the main window's state and rectangle are kept in the
// preferences and written to the MainWindow section. True when the program may end.
bool CloseEditor(EditorSession& session, const MainWindowSection& window);

}  // namespace tessarin
