#include "editing/story_forms.h"

#include <algorithm>

#include "attachments/attachment_trees.h"
#include "common/number_parse.h"
#include "common/windows1252.h"
#include "config/numbered_name.h"
#include "config/story_section.h"
#include "editing/copy_fit.h"
#include "text/styled_text_case.h"

namespace tessarin {
namespace {

constexpr int kSignatureDigit = 0;

// Digit N + 1 of a form's digits names box index N; digit 0 the signature.
bool HasDigit(std::string_view digits, int digit) {
    return digits.find(static_cast<char>('0' + digit)) != std::string_view::npos;
}

bool HoldsNonBlank(std::u16string_view text) {
    return text.find_first_not_of(u' ') != std::u16string_view::npos;
}

void ShowImagesView(WindowState& window, bool open) {
    window.Control("mnuDisplayImages").checked = open;
    window.Control("Images").checked = open;
    window.Control("mnuDisplayMetadata").checked = !open;
    window.Control("Informations").checked = !open;
}

// Upper-cases a box keeping every character's format; note anchors keep their text, which
// names their note.
void UpperCaseOutsideAnchors(StyledText& box) {
    for (const FormatRun& run : box.Runs()) {
        if (!run.format.isProtected) box.ToUpper(run.start, run.length);
    }
}

void PutFormInForceBack(EditorSession& session) {
    session.window.List("lstStoryTypes").selected = session.panel.formInForce;
    session.story.formIndex = session.panel.formInForce;
}

// The change to another form: first every question, which may refuse it, then the changes.
class FormChange {
  public:
    FormChange(EditorSession& session, int index)
        : session_(session),
          index_(index),
          form_(session.configuration.forms[static_cast<std::size_t>(index)]),
          imagesEnabled_(session.configuration.interface.ImagesVisible),
          minImages_(session.panel.minImages),
          maxImages_(session.panel.maxImages) {}

    bool Agreed() { return AgreedToPictures() && AgreedToMaximum() && AgreedToLostText(); }

    void Apply() {
        UnlinkAgreedAttachments();
        ShowPictures();
        ShowBoxes();
        ShowSignature();
        PanelState& panel = session_.panel;
        panel.formInForce = session_.story.formIndex = index_;
        session_.window.List("lstStoryTypes").selected = index_;
        panel.minImages = minImages_;
        panel.maxImages = maxImages_;
        RecomputeImageAllowance(session_);
        for (int box = 0; box < kTextBoxCount; ++box)
            panel.limits[box] = LimitsOf(box);
        RecountAllBoxes(session_);
        ApplyAllCaps();
    }

  private:
    bool Asked(const std::string& question) {
        return session_.user.Ask(question, false, MessageIcon::Question) == Answer::Yes;
    }

    const std::string& Caption(std::string_view key) const {
        return session_.configuration.interface.Caption(key);
    }

    const std::string& ControlCaption(const std::string& name) {
        return session_.window.Control(name).caption;
    }

    bool AgreedToPictures() {
        if (!imagesEnabled_) return true;
        minImages_ = form_.minImages;
        maxImages_ = form_.maxImages < 0 ? -1 : form_.maxImages;
        if (maxImages_ != 0) return true;
        const StoryRecord& story = session_.story;
        if (!story.images.empty()) {
            if (!Asked(session_.Message("ImageNotAllowed") + "\n" +
                       session_.Message("UnlinkImages")))
                return false;
            unlinkImages_ = true;
        }
        if (!story.files.empty()) {
            if (!Asked(session_.Message("UnlinkOtherFiles"))) return false;
            unlinkFiles_ = true;
        }
        return true;
    }

    bool AgreedToMaximum() {
        const std::size_t pictures = unlinkImages_ ? 0 : session_.story.images.size();
        if (maxImages_ < 0 || pictures <= static_cast<std::size_t>(maxImages_)) return true;
        if (!Asked(session_.Message("MaxImagesType") + ": " + std::to_string(maxImages_) + "\n" +
                   session_.Message("StoryModify"))) {
            return false;
        }
        openImagesView_ = true;
        return true;
    }

    bool AgreedToLostText() {
        const std::string erase = session_.Message("EraseTextBox") + ":\n";
        for (int box = 0; box < kTextBoxCount; ++box) {
            if (HasDigit(form_.textBoxDigits, box + 1) ||
                !HoldsNonBlank(session_.story.boxes[box].Text())) {
                continue;
            }
            if (!Asked(erase + ControlCaption(TextBoxLabelName(box)))) return false;
        }
        const std::string& signature = session_.story.signature;
        if (HasDigit(form_.textBoxDigits, kSignatureDigit) ||
            signature.find_first_not_of(' ') == std::string::npos) {
            return true;
        }
        return Asked(erase + ControlCaption("cmdSignature"));
    }

    void UnlinkAgreedAttachments() {
        if (unlinkImages_) {
            session_.story.images.clear();
            session_.window.Control(kImageInfoLabel).caption.clear();
            RefreshAttachmentTree(session_, AttachmentKind::Image);
        }
        if (unlinkFiles_) {
            session_.story.files.clear();
            RefreshAttachmentTree(session_, AttachmentKind::OtherFile);
        }
    }

    std::string MaximumText() const {
        return maxImages_ < 0 ? Caption("MaxLabel") + " " + Caption("NotDefined")
                              : Caption("MaxLabel") + "=" + std::to_string(maxImages_);
    }

    std::string RequirementText() const {
        if (maxImages_ == 0) return Caption("NoImage");
        return "\n" + Caption("ImagesRequiredLabel") + "\n" + Caption("MinLabel") + "=" +
               std::to_string(minImages_) + "\n" + MaximumText();
    }

    std::string FrameToolTip() const {
        std::string tip = session_.Message("ImagesLabel") + ": " + Caption("MinLabel") + "=" +
                          std::to_string(minImages_) + "; " + MaximumText();
        const FtpTransmissionSettings& sizes = session_.configuration.ftpTransmission;
        if (sizes.MinSizeImage != 0) {
            tip += "; " + session_.Message("ImageSizeMinLabel") + "=" +
                   std::to_string(sizes.MinSizeImage) + " KB";
        }
        if (sizes.MaxSizeImage != 0) {
            tip += "; " + session_.Message("ImageSizeMaxLabel") + "=" +
                   std::to_string(sizes.MaxSizeImage) + " KB";
        }
        return tip;
    }

    void ShowPictures() {
        WindowState& window = session_.window;
        const bool takesPictures = maxImages_ != 0;
        if (imagesEnabled_) {
            // A view that the configuration withdrew stays withdrawn whatever the form takes.
            const bool offered =
                takesPictures && session_.configuration.interface.Entry("DisplayImages").Visible;
            window.Control("Images").visible = offered;
            window.Control("mnuDisplayImages").visible = offered;
            if (!takesPictures && window.Control("mnuDisplayImages").checked) {
                ShowImagesView(window, false);
            }
        }
        if (openImagesView_) ShowImagesView(window, true);
        window.Control("lblImageMetadata").caption = RequirementText();
        window.Control("ImagePhoto").visible = takesPictures;
        window.Control("ImageNoPhoto").visible = !takesPictures;
        window.Control("fraImages").toolTip = FrameToolTip();
    }

    void ShowBoxes() {
        WindowState& window = session_.window;
        for (int box = 0; box < kTextBoxCount; ++box) {
            const bool active =
                HasDigit(form_.textBoxDigits, box + 1) && !BoxTaggedInvisible(window, box);
            session_.panel.activeBoxes[box] = active;
            if (!active && !session_.story.boxes[box].Empty()) {
                session_.story.boxes[box].Clear();
                session_.story.counters[box] = {};
            }
            ControlState& control = window.Control(TextBoxControlName(box));
            control.visible = control.enabled = active;
            window.Control(TextBoxLabelName(box)).visible = active;
            window.Control(CountLabelName(box)).visible = active;
        }
    }

    void ShowSignature() {
        const bool available = HasDigit(form_.textBoxDigits, kSignatureDigit);
        session_.panel.signatureAvailable = available;
        ControlState& buttons = session_.window.Control("cmdSignature");
        buttons.enabled = available;
        StoryRecord& story = session_.story;
        story.signatureEnabled = available;
        if (available) return;
        buttons.checked = false;
        story.initialsSignature = false;
        story.signature.clear();
    }

    BoxLimits LimitsOf(int box) const {
        const auto& limit = form_.characterLimits[static_cast<std::size_t>(box)];
        if (!limit) return {};
        return {ParseLeadingInteger(limit->minimum), limit->maximum};
    }

    void ApplyAllCaps() {
        const std::string question = session_.Message("AllCapsTextBox") + ":\n";
        for (int box = 0; box < kAllCapsBoxCount; ++box) {
            const bool allCaps = HasDigit(form_.allCapsDigits, box + 1);
            session_.panel.allCaps[box] = allCaps;
            session_.window.Control(NumberedName("ImageAllCaps", box)).visible = allCaps;
            StyledText& text = session_.story.boxes[box];
            if (allCaps && !text.Empty() &&
                Asked(question + ControlCaption(TextBoxLabelName(box)))) {
                UpperCaseOutsideAnchors(text);
            }
        }
    }

    EditorSession& session_;
    int index_;
    const StoryForm& form_;
    bool imagesEnabled_;
    std::int32_t minImages_;
    std::int32_t maxImages_;
    bool unlinkImages_ = false;
    bool unlinkFiles_ = false;
    bool openImagesView_ = false;
};

}  // namespace

bool ChooseForm(EditorSession& session, int index) {
    const int forms = static_cast<int>(session.configuration.forms.size());
    if (index < 0 || index >= forms || index == session.panel.formInForce) return false;
    if (!session.storyFileName.empty()) session.storyModified = true;
    FormChange change(session, index);
    if (!change.Agreed()) {
        PutFormInForceBack(session);
        return false;
    }
    change.Apply();
    return true;
}

std::u16string TypedInAllCaps(std::u16string_view typed) {
    std::u16string keyed(typed);
    for (char16_t& unit : keyed) {
        if (CodePointToWindows1252(unit) < 0) continue;
        const char16_t upper = ToUpperUnit(unit);
        if (CodePointToWindows1252(upper) >= 0) unit = upper;
    }
    return keyed;
}

}  // namespace tessarin
