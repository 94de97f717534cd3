#include "session/session_start.h"

#include <array>
#include <optional>
#include <system_error>

#include "app/configuration_update.h"
#include "config/load_configuration.h"
#include "config/text_trim.h"
#include "editing/story_forms.h"
#include "metadata/metadata_fields.h"
#include "story/file_operations.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

void InstallCommandLineConfiguration(const AppPaths& paths, std::string_view commandLine) {
    const std::string_view source = TrimWhitespace(commandLine);
    if (source.empty()) return;
    std::error_code error;
    fs::copy_file(source, paths.configurationFile, fs::copy_options::overwrite_existing, error);
}

void TakeLastDirectories(EditorSession& session) {
    const ConfigurationSection& stored = session.preferences.Configuration;
    if (stored.DirStories) session.lastStoryDirectory = *stored.DirStories;
    if (stored.DirImages) session.lastImageDirectory = *stored.DirImages;
}

// The first workflow directory, in checking order, that is set but is not a directory.
std::optional<std::string> MissingWorkflowDirectory(const WorkflowSettings& workflow) {
    const std::array<const std::string*, 9> directories = {
        &workflow.PersonalTextsDirectory,  &workflow.PersonalArchivesDirectory,
        &workflow.PersonalImagesDirectory, &workflow.TrackingTextsDirectory,
        &workflow.TrackingImagesDirectory, &workflow.WorkflowDirectory,
        &workflow.UpdatesDirectory,        &workflow.ExportTextsDirectory,
        &workflow.ExportImagesDirectory};
    for (const std::string* directory : directories) {
        std::error_code error;
        if (!directory->empty() && !fs::is_directory(*directory, error)) return *directory;
    }
    return std::nullopt;
}

void TakePersonalDirectories(EditorSession& session) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    if (!workflow.PersonalTextsDirectory.empty()) {
        session.lastStoryDirectory = workflow.PersonalTextsDirectory;
    }
    if (!workflow.PersonalImagesDirectory.empty()) {
        session.lastImageDirectory = workflow.PersonalImagesDirectory;
    }
}

StartResult EndProgram(bool configurationLoaded) {
    return {StartState::EndProgram, configurationLoaded};
}

}  // namespace

StartResult StartEditor(EditorSession& session, const StartOptions& options) {
    const AppPaths& paths = session.paths;
    std::error_code error;
    fs::create_directories(paths.appDir, error);
    InstallCommandLineConfiguration(paths, options.commandLine);
    StartResult result;
    if (!fs::exists(paths.configurationFile, error)) result.state = StartState::FirstLoginNeeded;
    CreateStartDirectories(paths);

    session.preferences = ReadPreferences(session.profile);
    TakeLastDirectories(session);

    bool secondInstance = false;
    LoadOptions load;
    load.anotherInstanceRunning = options.anotherInstanceRunning;
    load.loadSynonyms = options.loadSynonyms;
    load.endSecondInstance = [&](const std::string& message) {
        secondInstance = true;
        session.user.Tell(message, MessageIcon::Critical);
    };
    result.configurationLoaded =
        LoadConfiguration(paths.configurationFile, session.profile, session.preferences,
                          session.configuration, session.window, load);
    if (secondInstance) return EndProgram(false);

    const WorkflowSettings& workflow = session.configuration.workflow;
    if (workflow.ForceLogin) {
        if (!options.forcedLogin) return {StartState::LoginForced, result.configurationLoaded};
        if (!options.forcedLogin(session)) return EndProgram(result.configurationLoaded);
    }
    if (workflow.Visible) {
        if (const std::optional<std::string> missing = MissingWorkflowDirectory(workflow)) {
            session.user.Beep();
            session.user.Tell(session.Message("InvalidDirectory") + ":\n" + *missing + "\n" +
                                  session.Message("WarningAdministrator"),
                              MessageIcon::Critical);
            return EndProgram(result.configurationLoaded);
        }
        TakePersonalDirectories(session);
    }
    ShowRecentFiles(session);
    ShowNewStory(session);
    ApplyMetadataLock(session, false);
    session.storyModified = false;
    return result;
}

void FirstActivation(EditorSession& session) {
    UpdateConfigurationAtStart(session);
    if (session.storyFileName.empty()) ChooseForm(session, 0);
}

bool CloseEditor(EditorSession& session, const MainWindowSection& window) {
    if (!SettleChangesBeforeLoss(session)) return false;
    session.preferences.MainWindow = window;
    WriteMainWindow(session.profile, window);
    return true;
}

}  // namespace tessarin
