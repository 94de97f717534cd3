#include "story/save_story.h"

#include <cctype>
#include <system_error>

#include "common/clock.h"
#include "common/date_format.h"
#include "common/file_io.h"
#include "metadata/mandatory_checks.h"
#include "repository/repository_store.h"
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

        const LocalDateTime now = Now();
        const std::string bytes = ComposeStoryFile(story_, context_, request_.fileName, now, body);
        const WorkflowSettings& workflow = context_.configuration.workflow;
        const bool tracking = workflow.TrackingEnabled && !request_.unattended;
        if (tracking) CopyLinkedFilesForTracking(story_, workflow.TrackingImagesDirectory);
        SaveResult result;
        if (!Write(bytes, result)) return WriteFailed(std::move(result));
        if (tracking)
            CopyStoryForTracking(bytes, request_.fileName, workflow.TrackingTextsDirectory);
        Stamp(now);
        if (!request_.unattended && context_.preferences.TextMLTracking &&
            context_.configuration.textML.TrackingEnabled) {
            RepositoryContext repository{context_.configuration.textML, messages_, context_.user,
                                         context_.window};
            StoreTrackingDocument(request_.fileName, request_.directory, repository);
        }
        return result;
    }

  private:
    // Unless unattended, with BackupStories on, the previous version becomes the backup
    // story as the new one takes its place; a story never saved has nothing to keep.
    bool Write(std::string_view bytes, SaveResult& result) {
        if (request_.unattended || !context_.preferences.BackupStories) {
            return WriteFileAtomically(file_, bytes);
        }
        const fs::path backup = file_.parent_path() / BackupStoryName(request_.fileName);
        const ReplaceResult replaced = WriteFileKeepingBackup(file_, bytes, backup);
        if (replaced.backupKept) result.backup = backup;
        return replaced.written;
    }

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
        // The automatic save asks nothing: it does not save, and the status panel says why.
        if (request_.unattended) {
            result.message = messages_.Message("ReadOnlyStory") + ": " + file_.string();
            context_.window.ShowStatusError(result.message);
            return result;
        }
        result.message = file_.string() + "\n" + messages_.Message("ReadOnlyStory") + "\n\n" +
                         messages_.Message("ReadOnlyStorySave");
        const Answer answer = context_.user.Ask(result.message, false, MessageIcon::Question);
        if (answer == Answer::Yes && request_.saveStoryAs) {
            result.savedUnderNewName = request_.saveStoryAs();
        }
        return result;
    }

    // The file still holds the version before this save.
    SaveResult WriteFailed(SaveResult result) {
        result.outcome = SaveOutcome::WriteFailed;
        result.message = messages_.Message("NotSavedStory") + ": " + file_.string();
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
