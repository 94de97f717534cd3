#include "story/save_story.h"

#include <cctype>
#include <system_error>

#include "common/clock.h"
#include "common/date_format.h"
#include "common/file_io.h"
#include "metadata/mandatory_checks.h"
#include "story/story_file_writer.h"
#include "story/story_markup.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr fs::perms kAnyWrite =
    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

bool IsReadOnlyFile(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return !error && fs::exists(status) && (status.permissions() & kAnyWrite) == fs::perms::none;
}

bool HasXmlExtension(std::string_view fileName) {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos) return false;
    const std::string_view extension = fileName.substr(dot + 1);
    if (extension.size() != 3) return false;
    for (std::size_t index = 0; index < 3; ++index) {
        if (std::tolower(static_cast<unsigned char>(extension[index])) != "xml"[index]) {
            return false;
        }
    }
    return true;
}

// The previous version of the story becomes its backup: an older backup is deleted, then the
// file is renamed. A story never saved has nothing to keep. Returns the backup made.
fs::path KeepBackup(const fs::path& file) {
    std::error_code error;
    if (!fs::exists(file, error)) return {};
    const fs::path backup = file.parent_path() / BackupStoryName(file.filename().string());
    fs::remove(backup, error);
    fs::rename(file, backup, error);
    return error ? fs::path() : backup;
}

// Copies a file into a directory under its own name, replacing what stands there. Failures
// are passed over: a tracking copy never stops a save.
void CopyInto(const fs::path& file, const std::string& directory) {
    if (directory.empty()) return;
    std::error_code error;
    fs::copy_file(file, fs::path(directory) / file.filename(), fs::copy_options::overwrite_existing,
                  error);
}

void CopyLinkedFilesForTracking(const StoryRecord& story, const std::string& directory) {
    for (const StoryImage& image : story.images) {
        if (!image.path.empty()) CopyInto(image.path, directory);
    }
    for (const StoryFile& file : story.files) {
        if (!file.path.empty()) CopyInto(file.path, directory);
    }
}

void CopyStoryForTracking(std::string_view bytes, const std::string& fileName,
                          const std::string& directory) {
    if (directory.empty()) return;
    fs::path name(fileName);
    name.replace_extension(".xml");
    WriteFileAtomically(fs::path(directory) / name, bytes);
}

class StorySaver {
  public:
    StorySaver(StoryRecord& story, StoryContext& context, const SaveStoryRequest& request)
        : story_(story),
          context_(context),
          request_(request),
          messages_(context.configuration.messages),
          file_(request.directory / request.fileName) {}

    SaveResult Save() {
        if (!request_.unattended && !story_.coldStory) {
            const auto failure =
                CheckMandatoryFields(story_, context_.window, context_.configuration);
            if (failure) return MandatoryFailed(*failure);
        }
        const std::string body = StoryTextToTags(StoryBodyInputOf(story_, context_));
        if (body.empty()) return Empty();
        if (IsReadOnlyFile(file_)) return ReadOnly();

        SaveResult result;
        if (!request_.unattended && context_.preferences.BackupStories) {
            result.backup = KeepBackup(file_);
        }
        const LocalDateTime now = Now();
        const std::string bytes = ComposeStoryFile(story_, context_, request_.fileName, now, body);
        const WorkflowSettings& workflow = context_.configuration.workflow;
        const bool tracking = workflow.TrackingEnabled && !request_.unattended;
        if (tracking) CopyLinkedFilesForTracking(story_, workflow.TrackingImagesDirectory);
        if (!WriteFileAtomically(file_, bytes)) return WriteFailed(std::move(result));
        if (tracking)
            CopyStoryForTracking(bytes, request_.fileName, workflow.TrackingTextsDirectory);
        Stamp(now);
        return result;
    }

  private:
    SaveResult MandatoryFailed(const MandatoryFailure& failure) {
        context_.window.ShowStatusError(failure.message);
        context_.user.Tell(failure.message, MessageIcon::Exclamation);
        SaveResult result;
        result.outcome = SaveOutcome::MandatoryFieldMissing;
        result.message = failure.message;
        result.field = failure.field;
        return result;
    }

    SaveResult Empty() {
        SaveResult result;
        result.outcome = SaveOutcome::EmptyStory;
        result.message = messages_.Message("EmptyStory");
        context_.window.ShowStatusError(result.message);
        return result;
    }

    SaveResult ReadOnly() {
        SaveResult result;
        result.outcome = SaveOutcome::ReadOnly;
        result.message = file_.string() + "\n" + messages_.Message("ReadOnlyStory") + "\n\n" +
                         messages_.Message("ReadOnlyStorySave");
        // The automatic save asks nothing: it just does not save.
        if (request_.unattended) return result;
        const Answer answer = context_.user.Ask(result.message, false, MessageIcon::Question);
        if (answer == Answer::Yes && request_.saveStoryAs) {
            result.savedUnderNewName = request_.saveStoryAs();
        }
        return result;
    }

    // The old version has already gone to the backup name, when there is one: say where.
    SaveResult WriteFailed(SaveResult result) {
        result.outcome = SaveOutcome::WriteFailed;
        result.message = messages_.Message("NotSavedStory") + ": " + file_.string();
        if (!result.backup.empty()) {
            result.message += '\n';
            result.message += messages_.Message("StoryBackupLabel");
            result.message += ": ";
            result.message += result.backup.string();
        }
        context_.window.ShowStatusError(result.message);
        if (!request_.unattended) context_.user.Tell(result.message, MessageIcon::Critical);
        return result;
    }

    void Stamp(const LocalDateTime& now) {
        const StoryTimestamp thisSave{FormatShortDate(now), FormatTimeHourMinute(now)};
        if (story_.creation.Empty()) story_.creation = thisSave;
        story_.lastSave = thisSave;
        StatusPanel& status = context_.window.Status();
        status.text =
            thisSave.time + " - " + messages_.Message("SavedStory") + ": " + file_.string();
        status.errorPicture = false;
    }

    StoryRecord& story_;
    StoryContext& context_;
    const SaveStoryRequest& request_;
    const MessageTexts& messages_;
    const fs::path file_;
};

}  // namespace

std::string BackupStoryName(std::string_view fileName) {
    std::string name(fileName);
    if (HasXmlExtension(name)) {
        name.replace(name.size() - 3, 3, "bml");
    } else {
        name += ".bml";
    }
    return name;
}

SaveResult SaveStory(StoryRecord& story, StoryContext& context, const SaveStoryRequest& request) {
    return StorySaver(story, context, request).Save();
}

SaveResult SaveSessionStory(EditorSession& session, bool unattended,
                            std::function<bool()> saveStoryAs) {
    StoryContext context = session.MakeStoryContext();
    const SaveStoryRequest request{session.storyDirectory, session.storyFileName, unattended,
                                   std::move(saveStoryAs)};
    SaveResult result = SaveStory(session.story, context, request);
    if (result.outcome == SaveOutcome::Saved) {
        session.storyModified = false;
        session.backupCountdown = session.preferences.BackupAutoTime;
    }
    return result;
}

}  // namespace tessarin
