// The open command: the dialog, opening by extension, restoring a backup story, importing.

#include <system_error>
#include <utility>

#include "attachments/attachments.h"
#include "common/clock.h"
#include "editing/copy_fit.h"
#include "editing/story_forms.h"
#include "logs/add_log_to_story.h"
#include "metadata/metadata_changed.h"
#include "story/file_operation_steps.h"
#include "story/file_operations.h"
#include "story/story_file_reader.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

std::string OpenDialogFilter(const EditorSession& session, bool wordDocuments) {
    const std::string stories = session.Message("StoriesLabel");
    std::string filter = stories + " XML (*.xml)|*.xml|" + session.Message("StoriesBackupLabel") +
                         " (*.bml)|*.bml|" + stories;
    filter += wordDocuments ? " RTF/TXT & MS Word (*.rtf;*.txt;*.doc;*.docx;*.odt)|"
                              "*.rtf;*.txt;*.doc;*.docx;*.odt"
                            : " RTF/TXT (*.rtf;*txt)|*.rtf;*.txt";
    return filter;
}

// The form that a story file names is chosen as the reader meets it: before the text, the
// signature and the attachments are in place, so that choosing it neither asks nor discards.
void ChooseFormOfReadStory(EditorSession& session) {
    StoryRecord& story = session.story;
    if (story.formIndex < 0 || story.formIndex == session.panel.formInForce) return;
    StoryRecord content;
    std::swap(content.boxes, story.boxes);
    std::swap(content.counters, story.counters);
    std::swap(content.images, story.images);
    std::swap(content.files, story.files);
    std::swap(content.signature, story.signature);
    std::swap(content.signatureEnabled, story.signatureEnabled);
    std::swap(content.initialsSignature, story.initialsSignature);
    ChooseForm(session, story.formIndex);
    story.boxes = std::move(content.boxes);
    story.counters = content.counters;
    story.images = std::move(content.images);
    story.files = std::move(content.files);
    story.signature = std::move(content.signature);
    story.signatureEnabled = content.signatureEnabled;
    story.initialsSignature = content.initialsSignature;
}

// Reads a story file into the editor. The file is read aside first: a file that cannot be
// read, and whose text is not rescued, leaves the open story as it stood. Once read, the
// editor is reset and shows the story. A rescued text is not the story its file should
// hold, so it counts as changed.
bool ReadIntoSession(EditorSession& session, const fs::path& file) {
    StoryContext context = session.MakeStoryContext();
    StoryRecord read;
    read.formIndex = session.story.formIndex;
    const StoryReadOutcome outcome = ReadStory(file, context, read);
    if (outcome == StoryReadOutcome::NotRead) return false;
    RefreshStoryPanel(session);
    session.story = std::move(read);
    session.storyDirectory = file.parent_path();
    session.storyFileName = file.filename().string();
    ChooseFormOfReadStory(session);
    ShowStoryAttachments(session);
    RecountAllBoxes(session);
    MetadataChanged(session);
    session.storyModified = outcome == StoryReadOutcome::ReadAsSimpleText;
    session.backupCountdown = session.preferences.BackupAutoTime;
    ShowStoryName(session);
    RecordRecentFile(session, file);
    return true;
}

// A backup story is used up by opening it: it replaces its story, whose log tells so.
bool RestoreBackupStory(EditorSession& session, const fs::path& backup) {
    fs::path story = backup;
    story.replace_extension(".xml");
    const std::string backupName = backup.filename().string();
    const std::string storyName = story.filename().string();
    std::error_code error;
    const std::string question = fs::exists(story, error)
                                     ? session.Message("StoryBackupReplace") + " '" + storyName +
                                           "'\n" + session.Message("StoryBackupReplaceBy") + " '" +
                                           backupName + "'"
                                     : session.Message("StoryBackupOpen") + " '" + backupName + "'";
    if (session.user.Ask(question, false, MessageIcon::Question) != Answer::Yes) return false;
    fs::rename(backup, story, error);
    if (error) {
        session.user.Tell(
            "Cannot rename " + backup.string() + " to " + storyName + ": " + error.message(),
            MessageIcon::Critical);
        return false;
    }
    StoryContext context = session.MakeStoryContext();
    const LocalDateTime now = Now();
    AddLogToStory(story, kBackupRestoredLogType, BackupRestoredLogText(context, now), context, now);
    return ReadIntoSession(session, story);
}

bool ImportDocument(EditorSession& session, const fs::path& document,
                    const DocumentImport& documents) {
    if (!documents.import) {
        session.user.Tell("Importing documents is not available: " + document.string(),
                          MessageIcon::Exclamation);
        return false;
    }
    fs::path name = document.filename();
    name.replace_extension(".xml");
    session.storyDirectory = document.parent_path();
    session.storyFileName = name.string();
    return documents.import(session, document);
}

}  // namespace

bool OpenStory(EditorSession& session, const DocumentImport& documents) {
    if (!SettleChangesBeforeLoss(session)) return false;
    const std::optional<fs::path> chosen = session.user.ChooseFileToOpen(
        session.Message("OpenStory"), OpenDialogFilter(session, documents.wordDocuments),
        session.lastStoryDirectory);
    if (!chosen || chosen->filename().empty()) return false;
    const fs::path directory = TakeDialogDirectory(session, chosen->parent_path());
    return OpenStoryFile(session, directory / chosen->filename(), documents);
}

bool OpenRecentFile(EditorSession& session, std::size_t row, const DocumentImport& documents) {
    if (row >= kRecentFileCount) return false;
    const std::string path = session.preferences.FileMRU.File[row];
    if (path.empty() || !SettleChangesBeforeLoss(session)) return false;
    return OpenStoryFile(session, path, documents);
}

bool OpenStoryFile(EditorSession& session, const fs::path& file, const DocumentImport& documents) {
    std::string extension = file.extension().string();
    if (!extension.empty()) extension.erase(0, 1);
    session.lastExtensionUpper = UpperCaseText(extension);
    const std::string& upper = session.lastExtensionUpper;
    if (upper == "RTF" || upper == "TXT" || upper == "DOC" || upper == "DOCX" || upper == "ODT") {
        return ImportDocument(session, file, documents);
    }
    if (upper == "BML") return RestoreBackupStory(session, file);
    return ReadIntoSession(session, file);
}

}  // namespace tessarin
