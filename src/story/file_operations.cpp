#include "story/file_operations.h"

#include "common/utf8.h"
#include "config/load_configuration.h"
#include "config/numbered_name.h"
#include "editing/story_forms.h"
#include "metadata/metadata_changed.h"
#include "story/file_operation_steps.h"
#include "story/save_story.h"
#include "text/styled_text_case.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

enum class DialogSave { Cancelled, NotSaved, Saved };

bool HasDirectoryAndName(const EditorSession& session) {
    return !session.storyDirectory.empty() && !session.storyFileName.empty();
}

// The save command on a story that has its name. A read-only file leads to the save-as
// command when the user wants a new name.
bool SaveNamedStory(EditorSession& session) {
    const SaveResult result =
        SaveSessionStory(session, false, [&session] { return SaveStoryAs(session); });
    if (result.outcome != SaveOutcome::Saved) return result.savedUnderNewName;
    MetadataChanged(session);
    ShowStoryName(session);
    RecordRecentFile(session, session.StoryPath());
    return true;
}

DialogSave SaveThroughDialog(EditorSession& session, std::string_view titleKey) {
    const std::string filter = session.Message("StoriesLabel") + " XML (*.xml)|*.xml";
    const std::optional<fs::path> chosen = session.user.ChooseFileToSave(
        session.Message(titleKey), filter, session.lastStoryDirectory, "");
    if (!chosen || chosen->filename().empty()) return DialogSave::Cancelled;
    session.storyDirectory = TakeDialogDirectory(session, chosen->parent_path());
    session.storyFileName = WithFilterExtension(*chosen, filter).filename().string();
    return SaveNamedStory(session) ? DialogSave::Saved : DialogSave::NotSaved;
}

}  // namespace

fs::path ApplyPersonalDirectoryRule(EditorSession& session, const fs::path& chosen) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    const std::string& personal = workflow.PersonalTextsDirectory;
    if (!workflow.Visible || personal.empty()) return chosen;
    if (UpperCaseText(chosen.string()).find(UpperCaseText(personal)) != std::string::npos) {
        return chosen;
    }
    session.user.Tell(session.Message("InvalidDirectory") + "\n" +
                          session.Message("AllowedDirectory") + "\n" + personal,
                      MessageIcon::Exclamation);
    return fs::path(personal);
}

fs::path TakeDialogDirectory(EditorSession& session, const fs::path& chosen) {
    const fs::path directory = ApplyPersonalDirectoryRule(session, chosen);
    session.lastStoryDirectory = directory;
    WriteDirStories(session.profile, directory);
    return directory;
}

void ShowStoryName(EditorSession& session) {
    session.window.title =
        WindowTitle(TESSARIN_VERSION, session.configuration.general.client, session.storyFileName);
}

void RecordRecentFile(EditorSession& session, const fs::path& path) {
    if (!UpdateMRU(session.preferences.FileMRU, path.string())) return;
    WriteRecentFiles(session.profile, session.preferences.FileMRU);
    ShowRecentFiles(session);
}

void ShowRecentFiles(EditorSession& session) {
    const RecentFiles& list = session.preferences.FileMRU;
    for (std::size_t row = 0; row < kRecentFileCount; ++row) {
        ControlState& entry = session.window.Control(NumberedName("mnuFileMRU", row + 1));
        entry.caption = RecentFileDisplayName(list.File[row]);
        entry.visible = !list.File[row].empty();
    }
    session.window.Control("mnuSepMRU").visible = RecentFilesSeparatorVisible(list);
}

bool SettleChangesBeforeLoss(EditorSession& session) {
    if (!session.storyModified || session.mainBoxLocked) return true;
    session.window.Status() = StatusPanel{session.Message("NotSavedStory"), false};
    switch (session.user.Ask(session.Message("AskSave"), true, MessageIcon::Question)) {
        case Answer::Cancel:
            return false;
        case Answer::No:
            return true;
        case Answer::Yes:
            break;
    }
    // A save that was refused (a mandatory field, an empty story, a file that cannot be
    // written) keeps the story open: the user has been told why, and nothing is lost.
    if (HasDirectoryAndName(session)) return SaveNamedStory(session);
    return SaveThroughDialog(session, "SaveStory") == DialogSave::Saved;
}

bool NewStory(EditorSession& session) {
    if (!SettleChangesBeforeLoss(session)) return false;
    session.storyDirectory.clear();
    session.storyFileName.clear();
    ShowNewStory(session);
    session.storyModified = false;
    return true;
}

bool SaveCurrentStory(EditorSession& session) {
    if (!HasDirectoryAndName(session)) {
        return SaveThroughDialog(session, "SaveStory") == DialogSave::Saved;
    }
    return session.storyModified && SaveNamedStory(session);
}

bool SaveAndCloseStory(EditorSession& session) {
    if (session.storyModified && !session.mainBoxLocked && !SaveCurrentStory(session)) {
        return false;
    }
    return NewStory(session);
}

bool SaveStoryAs(EditorSession& session) {
    return SaveThroughDialog(session, "SaveStoryAs") == DialogSave::Saved;
}

void BackupTick(EditorSession& session, bool allowed) {
    if (!session.preferences.BackupAuto) return;
    if (session.backupCountdown < 1) {
        if (allowed && HasDirectoryAndName(session) && session.storyModified) {
            SaveSessionStory(session, true);
        }
        session.backupCountdown = session.preferences.BackupAutoTime;
    }
    --session.backupCountdown;
}

}  // namespace tessarin
