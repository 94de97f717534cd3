#include "attachments/incoming_file_checks.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <system_error>

#include "attachments/file_size_text.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

std::string UpperAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

// A folder as the personal directory rule compares it: absolute, without "." and ".."
// steps or a closing separator, in upper case.
std::string ComparableFolder(const fs::path& folder) {
    std::error_code error;
    std::string text = fs::absolute(folder, error).lexically_normal().string();
    while (text.size() > 1 && text.back() == fs::path::preferred_separator)
        text.pop_back();
    return UpperAscii(text);
}

bool IsWithin(const fs::path& folder, const fs::path& allowed) {
    const std::string inner = ComparableFolder(folder);
    std::string outer = ComparableFolder(allowed);
    if (inner == outer) return true;
    if (outer.back() != fs::path::preferred_separator) outer += fs::path::preferred_separator;
    return inner.starts_with(outer);
}

bool IsJpegName(const fs::path& file) {
    const std::string extension = UpperAscii(file.extension().string());
    return extension == ".JPEG" || extension == ".JPG";
}

bool SamePath(const std::string& linked, const fs::path& file) {
    return fs::path(linked).lexically_normal() == file.lexically_normal();
}

bool AlreadyLinked(const EditorSession& session, AttachmentKind kind, const fs::path& file) {
    if (kind == AttachmentKind::Image) {
        return std::any_of(session.story.images.begin(), session.story.images.end(),
                           [&](const StoryImage& image) { return SamePath(image.path, file); });
    }
    return std::any_of(session.story.files.begin(), session.story.files.end(),
                       [&](const StoryFile& linked) { return SamePath(linked.path, file); });
}

// The personal pictures directory holds the user's pictures when the workflow is on and the
// configuration asks to keep the dialogs to it.
bool PersonalDirectoryApplies(const WorkflowSettings& workflow) {
    return workflow.Visible && workflow.ControlImagesDirectory &&
           !workflow.PersonalImagesDirectory.empty();
}

// Warns about a folder outside the personal directory; returns the folder to remember.
fs::path FolderToRemember(EditorSession& session, const fs::path& folder) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    if (!PersonalDirectoryApplies(workflow)) return folder;
    const fs::path allowed = workflow.PersonalImagesDirectory;
    if (IsWithin(folder, allowed)) return folder;
    session.user.Tell(session.Message("InvalidDirectory") + "\n" +
                          session.Message("AllowedDirectory") + "\n" + allowed.string(),
                      MessageIcon::Exclamation);
    return allowed;
}

void RememberFolder(EditorSession& session, const fs::path& folder) {
    WriteDirImages(session.profile, folder);
    session.preferences.Configuration.DirImages = folder;
    session.lastImageDirectory = folder;
}

bool AskSizeOutsideLimit(EditorSession& session, const fs::path& picture, std::uintmax_t length,
                         std::string_view limitLabelKey, std::int32_t limit) {
    session.user.Beep();
    const std::string question = session.Message("ImageLabel") + ": " + picture.string() + "\n" +
                                 session.Message("ImageSizeLabel") + ": " + FormatFileSize(length) +
                                 session.Message(limitLabelKey) + ": " + std::to_string(limit) +
                                 " KB" + "\n\n" + session.Message("ImageAddLabel");
    return session.user.Ask(question, false, MessageIcon::Question) == Answer::Yes;
}

}  // namespace

bool AcceptIncomingFile(EditorSession& session, AttachmentKind kind, const fs::path& file) {
    const bool image = kind == AttachmentKind::Image;
    if (!image && IsJpegName(file)) {
        session.user.Tell(file.filename().string() + ": " + session.Message("ImageNotAllowed"),
                          MessageIcon::Exclamation);
        return false;
    }
    std::error_code error;
    if (!fs::is_regular_file(file, error)) {
        session.user.Beep();
        session.user.Tell(
            session.Message(image ? "UnknownImage" : "UnknownOtherFile") + ": " + file.string(),
            MessageIcon::Exclamation);
        return false;
    }
    RememberFolder(session, FolderToRemember(session, file.parent_path()));
    if (AlreadyLinked(session, kind, file)) {
        session.user.Beep();
        session.user.Tell(
            session.Message(image ? "ImageAlreadySelected" : "OtherFileAlreadySelected"),
            MessageIcon::Exclamation);
        return false;
    }
    return true;
}

bool AcceptImageSize(EditorSession& session, const fs::path& picture, std::uintmax_t length) {
    const FtpTransmissionSettings& limits = session.configuration.ftpTransmission;
    constexpr std::uintmax_t kKilobyte = 1024;
    if (limits.MinSizeImage > 0 &&
        length < static_cast<std::uintmax_t>(limits.MinSizeImage) * kKilobyte &&
        !AskSizeOutsideLimit(session, picture, length, "ImageSizeMinLabel", limits.MinSizeImage)) {
        return false;
    }
    if (limits.MaxSizeImage > 0 &&
        length > static_cast<std::uintmax_t>(limits.MaxSizeImage) * kKilobyte &&
        !AskSizeOutsideLimit(session, picture, length, "ImageSizeMaxLabel", limits.MaxSizeImage)) {
        return false;
    }
    return true;
}

}  // namespace tessarin
