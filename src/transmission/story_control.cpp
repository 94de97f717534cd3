#include "transmission/story_control.h"

#include <system_error>
#include <tuple>
#include <utility>

#include "attachments/image_allowance.h"
#include "common/number_parse.h"
#include "config/preferences.h"
#include "export/export_frame.h"
#include "metadata/date_text.h"
#include "metadata/field_labels.h"
#include "story/file_operations.h"
#include "text/styled_text_case.h"
#include "transmission/send_list.h"
#include "transmission/story_staging.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// The form a story names and the numbers of images it allows. A story of no known form has
// no least number and meets a most number of 0 that is no "0" of the configuration.
struct FormOfStory {
    const StoryForm* form = nullptr;
    std::int32_t minImages = 0;
    std::int32_t maxImages = 0;
};

class StoryControl {
  public:
    StoryControl(EditorSession& session, WorkflowWindow& window, fs::path path)
        : session_(session), window_(window), path_(std::move(path)) {
        name_ = path_.filename().string();
    }

    AddResult Run() {
        if (!DirectoryAllowed()) return Refused();
        const FtpTransmissionSettings& settings = session_.configuration.ftpTransmission;
        if (window_.ftp && settings.AddInitialsToFilenames)
            name_ =
                NameWithInitials(name_, session_.preferences.Identification.Initials.value_or(""));
        if (!ListAccepts() || !Load()) return Refused();
        XmlNode root = document_.DocumentElement();
        if (window_.ftp && !ResendConfirmed(root)) return Refused();
        const XmlNode metadata = root.SelectSingleNode("Metadata");
        if (metadata && !StatusConfirmed(metadata)) return Refused();
        const FormOfStory form = FormOf(metadata);
        ReplaceOriginalPath(root);
        const bool withoutControl = !window_.ftp && !window_.ControlOn();
        const bool controlled = !withoutControl && settings.ControlStoryBeforeTransmission;
        if (metadata && form.form != nullptr && controlled) {
            if (auto result = CheckPublicationDate(metadata)) return *result;
            if (auto result = CheckCharacters(root, *form.form)) return *result;
        }
        if (root.SelectSingleNode("Images") && controlled) {
            if (auto result = CheckImageCounts(root, form)) return *result;
        }
        const StagingStory story{path_, name_, root, controlled, withoutControl};
        if (auto result = StageAttachments(session_, story)) return *result;
        if (!SaveStagedStory(session_, story, document_)) return Refused();
        SetTreeUpload(session_, window_);
        return {AddOutcome::Staged, path_};
    }

  private:
    AddResult Refused() const { return {AddOutcome::Refused, path_}; }

    void Refuse(std::string text) { window_.state.ShowStatusError(std::move(text)); }

    bool DirectoryAllowed() {
        const fs::path directory = path_.parent_path();
        const fs::path allowed =
            window_.ftp ? directory : ApplyPersonalDirectoryRule(session_, directory);
        if (allowed != directory) {
            session_.lastStoryDirectory = allowed;
            return false;
        }
        session_.lastStoryDirectory = directory;
        WriteDirStories(session_.profile, directory);
        return true;
    }

    bool ListAccepts() {
        if (!session_.storyFileName.empty() &&
            UpperCaseText(path_.string()) == UpperCaseText(session_.StoryPath().string())) {
            Refuse(session_.Message("StoryOpened"));
            return false;
        }
        std::error_code error;
        if (fs::exists(session_.paths.uploadDir / name_, error)) {
            Refuse(session_.Message("StoryAlreadyInList") + ": " + name_);
            return false;
        }
        const std::int32_t maxStories = session_.configuration.ftpTransmission.MaxStories;
        if (maxStories != 0 && static_cast<std::int64_t>(window_.stories.size()) + 1 > maxStories) {
            Refuse(session_.Message("MaxStories") + ": " + std::to_string(maxStories));
            return false;
        }
        return true;
    }

    bool Load() {
        if (document_.LoadFile(path_)) return true;
        Refuse(
            ExportParseErrorText(path_.string(), document_.ParseError().value_or(XmlParseError{})));
        SetTreeUpload(session_, window_);
        return false;
    }

    // A story that already has a log (of any kind) is sent again only when the user says so.
    bool ResendConfirmed(const XmlNode& root) {
        if (!root.SelectSingleNode("Logs/Log")) return true;
        return session_.user.Ask(
                   session_.Message("StoryAlreadySent") + "\n" + session_.Message("StoryResend"),
                   false, MessageIcon::Question) == Answer::Yes;
    }

    bool StatusConfirmed(const XmlNode& metadata) {
        if (session_.configuration.status.entries.empty()) return true;
        const XmlNode status = metadata.SelectSingleNode("Status");
        if (status.Attribute("FormalItem") == "Usable") return true;
        const std::string question =
            ReplacePlaceholder(session_.Message("StatusNotUsable"), status.Text());
        return session_.user.Ask(question, false, MessageIcon::Exclamation) == Answer::Yes;
    }

    FormOfStory FormOf(const XmlNode& metadata) const {
        const std::string name = metadata.SelectSingleNode("Form").Text();
        for (const StoryForm& form : session_.configuration.forms) {
            if (form.name == name) return {&form, form.minImages, form.maxImages};
        }
        return {};
    }

    void ReplaceOriginalPath(XmlNode root) const {
        XmlNode metadata = root.FindOrAppendElement("Metadata");
        metadata.SelectSingleNode("OriginalPath").Remove();
        metadata.AppendElement("OriginalPath").SetAttribute("Name", path_.string());
    }

    std::string StoryLine() const { return session_.Message("StoryLabel") + ": " + name_; }

    std::string FormLine(const StoryForm& form) const {
        return LabelCaption(session_.window, "lblStoryTypes") + ": " + form.name;
    }

    std::optional<AddResult> CheckPublicationDate(const XmlNode& metadata) {
        const XmlNode date = metadata.SelectSingleNode("PublicationDate");
        if (!date) return std::nullopt;
        const std::optional<LocalDateTime> day = ParseShortDate(date.Text());
        const LocalDateTime now = Now();
        if (!day ||
            std::tie(day->year, day->month, day->day) >= std::tie(now.year, now.month, now.day)) {
            return std::nullopt;
        }
        return AskToEdit(session_, path_, {StoryLine(), session_.Message("ExpiredDate")},
                         DisplayView::Informations);
    }

    std::optional<AddResult> CheckCharacters(const XmlNode& root, const StoryForm& form) {
        const int images = static_cast<int>(root.SelectNodes("Images/ImageBag/Image").size());
        const std::int32_t copyFit =
            ComputeImageAllowance(session_.configuration, form.name, images);
        for (int box = 0; box < kTextBoxCount; ++box) {
            const XmlNode text = root.SelectSingleNode("Body/TextBox" + std::to_string(box));
            const auto& limit = form.characterLimits[static_cast<std::size_t>(box)];
            if (!text.HasAttribute("CharCount") || !limit || limit->minimum.empty()) continue;
            std::int64_t minimum = ParseLeadingInteger(limit->minimum);
            std::int64_t maximum = limit->maximum;
            if (box == kMainTextBox) {
                minimum -= copyFit;
                maximum -= copyFit;
            }
            const std::string count = text.Attribute("CharCount");
            const std::int32_t value = ParseLeadingInteger(count);
            if (minimum <= value && value <= maximum) continue;
            std::vector<std::string> lines = {
                StoryLine(), FormLine(form),
                session_.Message("InvalidChars") + " " +
                    LabelCaption(session_.window, "lblTextBox" + std::to_string(box)) + ": " +
                    count,
                "   " + session_.Message("InvalidCharsBetween") + " " + std::to_string(minimum) +
                    " - " + std::to_string(maximum)};
            if (box == kMainTextBox) {
                lines.push_back("   [" + session_.Message("ImagesCopyfit") + " = " +
                                std::to_string(copyFit) + "]");
            }
            return AskToEdit(session_, path_, lines, DisplayView::Story);
        }
        return std::nullopt;
    }

    std::optional<AddResult> CheckImageCounts(const XmlNode& root, const FormOfStory& form) {
        const auto images =
            static_cast<std::int64_t>(root.SelectNodes("Images/ImageBag/Image").size());
        std::string fault;
        if (form.form != nullptr && form.maxImages == 0 && images > 0) {
            fault = session_.Message("ImageNotAllowed");
        } else if (form.minImages != 0 && images < form.minImages) {
            fault = session_.Message("MinImagesType") + ": " + std::to_string(form.minImages);
        } else if (form.maxImages != -1 && images > form.maxImages) {
            fault = session_.Message("MaxImagesType") + ": " + std::to_string(form.maxImages);
        }
        if (!fault.empty()) {
            const std::string formLine = LabelCaption(session_.window, "lblStoryTypes") + ": " +
                                         (form.form != nullptr ? form.form->name : std::string());
            return AskToEdit(session_, path_, {StoryLine(), formLine, fault}, DisplayView::Images);
        }
        const std::int32_t maxImages = session_.configuration.ftpTransmission.MaxImages;
        if (maxImages != 0 && window_.imageCount + images > maxImages) {
            Refuse(session_.Message("MaxImages") + ": " + std::to_string(maxImages));
            return Refused();
        }
        return std::nullopt;
    }

    EditorSession& session_;
    WorkflowWindow& window_;
    fs::path path_;
    std::string name_;
    XmlDocument document_;
};

}  // namespace

AddResult AddStory(EditorSession& session, WorkflowWindow& window) {
    window.state.ClearStatus();
    fs::path path = std::exchange(window.preparedStory, fs::path());
    if (path.empty()) {
        const std::optional<fs::path> chosen = session.user.ChooseFileToOpen(
            session.Message("AddStory"), session.Message("StoriesLabel") + " XML (*.xml)|*.xml",
            session.lastStoryDirectory);
        if (!chosen) return {};
        path = *chosen;
    }
    return StoryControl(session, window, std::move(path)).Run();
}

AddResult AddCurrentStory(EditorSession& session, WorkflowWindow& window) {
    if (session.storyFileName.empty()) return {};
    if (session.storyModified && !SaveCurrentStory(session)) return {};
    const fs::path path = session.StoryPath();
    if (!NewStory(session)) return {};
    window.state.Control("cmdAddCurrent").enabled = false;
    window.preparedStory = path;
    return AddStory(session, window);
}

bool OpenStoryForEdit(EditorSession& session, const AddResult& result) {
    if (!NewStory(session) || !OpenStoryFile(session, result.story)) return false;
    SelectView(session.window, result.view);
    return true;
}

AddResult AskToEdit(EditorSession& session, const fs::path& story,
                    const std::vector<std::string>& lines, DisplayView view) {
    std::string question;
    for (const std::string& line : lines)
        question += line + "\n";
    question += "\n" + session.Message("StoryModify");
    if (session.user.Ask(question, false, MessageIcon::Question) != Answer::Yes)
        return {AddOutcome::Refused, story};
    return {AddOutcome::EditRequested, story, view};
}

}  // namespace tessarin
