#include "transmission/story_staging.h"

#include <fstream>
#include <system_error>
#include <vector>

#include "attachments/file_size_text.h"
#include "common/file_copy.h"
#include "common/read_only_file.h"
#include "story/story_href.h"
#include "transmission/send_list.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr std::string_view kImagePath = "Images/ImageBag/Image";
constexpr std::string_view kFilePath = "Files/FileBag/File";

class AttachmentStaging {
  public:
    AttachmentStaging(EditorSession& session, const StagingStory& story)
        : session_(session), story_(story) {}

    std::optional<AddResult> Run() {
        for (const XmlNode& image : story_.root.SelectNodes(kImagePath)) {
            if (auto refusal = CheckImage(image)) return refusal;
        }
        for (const XmlNode& file : story_.root.SelectNodes(kFilePath)) {
            if (auto refusal = CheckExists(file, "UnknownOtherFile")) return refusal;
        }
        if (auto refusal = CopyAll(kImagePath, {})) return refusal;
        const FtpTransmissionSettings& transmission = session_.configuration.ftpTransmission;
        const std::string initials = transmission.AddInitialsToFilenames
                                         ? session_.preferences.Identification.Initials.value_or("")
                                         : std::string();
        return CopyAll(kFilePath, initials);
    }

  private:
    std::string Line(std::string_view key, std::string_view value) const {
        return session_.Message(key) + ": " + std::string(value);
    }

    std::optional<AddResult> AskToEditImages(const std::vector<std::string>& lines) {
        session_.user.Beep();
        return AskToEdit(session_, story_.path, lines, DisplayView::Images);
    }

    std::optional<AddResult> CheckExists(const XmlNode& file, std::string_view unknownKey) {
        const fs::path path = PathFromStoryHref(file.Attribute("href"));
        std::error_code error;
        if (fs::is_regular_file(path, error)) return std::nullopt;
        return AskToEditImages(
            {Line("StoryLabel", story_.path.string()), Line(unknownKey, path.string())});
    }

    std::optional<AddResult> CheckImage(const XmlNode& image) {
        if (auto refusal = CheckExists(image, "UnknownImage")) return refusal;
        if (!story_.controlled) return std::nullopt;
        const fs::path path = PathFromStoryHref(image.Attribute("href"));
        std::error_code error;
        const std::uintmax_t size = fs::file_size(path, error);
        const FtpTransmissionSettings& limits = session_.configuration.ftpTransmission;
        const auto sizeQuestion = [&](std::string_view key, std::int32_t kilobytes) {
            return AskToEditImages({Line("StoryLabel", story_.name),
                                    Line("ImageLabel", path.string()),
                                    Line("ImageSizeLabel", FormatFileSize(size)),
                                    Line(key, std::to_string(kilobytes) + " KB")});
        };
        if (limits.MinSizeImage != 0 &&
            size < static_cast<std::uintmax_t>(limits.MinSizeImage) * 1024)
            return sizeQuestion("ImageSizeMinLabel", limits.MinSizeImage);
        if (limits.MaxSizeImage != 0 &&
            size > static_cast<std::uintmax_t>(limits.MaxSizeImage) * 1024)
            return sizeQuestion("ImageSizeMaxLabel", limits.MaxSizeImage);
        return std::nullopt;
    }

    // Copies each file into Upload under its bare name (with the initials given) and puts
    // that name in its href; a file gone since the check gets an empty href.
    std::optional<AddResult> CopyAll(std::string_view elements, std::string_view initials) {
        for (XmlNode file : story_.root.SelectNodes(elements)) {
            const fs::path path = PathFromStoryHref(file.Attribute("href"));
            std::error_code error;
            if (!fs::is_regular_file(path, error)) {
                file.SetAttribute("href", "");
                continue;
            }
            const std::string name = NameWithInitials(path.filename().string(), initials);
            const std::string reason = CopyFileWhole(path, session_.paths.uploadDir / name);
            if (!reason.empty()) {
                session_.user.Tell(path.string() + " -> " +
                                       (session_.paths.uploadDir / name).string() + ": " + reason,
                                   MessageIcon::Critical);
                return AddResult{AddOutcome::Refused, story_.path};
            }
            file.SetAttribute("href", name);
        }
        return std::nullopt;
    }

    EditorSession& session_;
    const StagingStory& story_;
};

}  // namespace

std::string NameWithInitials(std::string_view name, std::string_view initials) {
    if (initials.empty()) return std::string(name);
    const std::string suffix = " (" + std::string(initials) + ")";
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return std::string(name) + suffix;
    return std::string(name.substr(0, dot)) + suffix + std::string(name.substr(dot));
}

std::optional<AddResult> StageAttachments(EditorSession& session, const StagingStory& story) {
    return AttachmentStaging(session, story).Run();
}

bool SaveStagedStory(EditorSession& session, const StagingStory& story, XmlDocument& document) {
    const fs::path staged = session.paths.uploadDir / story.name;
    if (!document.SaveFile(staged)) {
        session.user.Tell(session.Message("NotSavedStory") + ": " + staged.string(),
                          MessageIcon::Critical);
        return false;
    }
    MakeReadOnly(story.path);
    if (story.withoutControl) {
        std::ofstream marker(session.paths.uploadDir / NoControlMarkerName(story.name));
    }
    return true;
}

}  // namespace tessarin
