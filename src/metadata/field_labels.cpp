#include "metadata/field_labels.h"

#include <array>

namespace tessarin {
namespace {

struct DesignCaption {
    std::string_view label;
    std::string_view caption;
};

// The labels of the main window's metadata and text box fields as they were designed. A
// configuration that leaves a Name empty keeps these, and so does a story file's Name
// attribute. The image field labels are named after their Interface keys.
constexpr std::array<DesignCaption, 28> kDesignCaptions{{
    {"lblAuthor", "Author"},
    {"lblEmail", "Email"},
    {"lblGroup", "Group"},
    {"lblInitials", "Initials"},
    {"lblCreationDate", "Creation date"},
    {"lblLastSaveDate", "Last save date"},
    {"lblPublication", "Publication"},
    {"lblClassification", "Classification"},
    {"lblSectionGeneral", "General section"},
    {"lblSubSectionGeneral", "General subsection"},
    {"lblSectionLocal", "Local section"},
    {"lblSubSectionLocal", "Local subsection"},
    {"lblCodeLocal1", "Local code 1"},
    {"lblCodeLocal2", "Local code 2"},
    {"lblPublicationDate", "Publication date"},
    {"lblPublicationNumber", "Publication number"},
    {"lblEventDate", "Event date"},
    {"lblStoryTypes", "Story type"},
    {"lblStatus", "Status"},
    {"lblGenre", "Genre"},
    {"lblTextBox0", "Text box 1"},
    {"lblTextBox1", "Text box 2"},
    {"lblTextBox2", "Text box 3"},
    {"lblTextBox3", "Text box 4"},
    {"lblTextBox4", "Text box 5"},
    {"lblTextBox5", "Text box 6"},
    {"lblTextBox6", "Text box 7"},
    {"lblTaxonomy", "Taxonomy"},
}};

constexpr std::string_view kImageCaptionDesign = "Caption";
constexpr std::string_view kImageCreditDesign = "Credit";

}  // namespace

std::string_view DesignLabelCaption(std::string_view labelName) {
    for (const DesignCaption& entry : kDesignCaptions) {
        if (entry.label == labelName) return entry.caption;
    }
    return {};
}

std::string LabelCaption(const WindowState& window, std::string_view labelName) {
    const ControlState* label = window.FindControl(labelName);
    if (label && !label->caption.empty()) return label->caption;
    return std::string(DesignLabelCaption(labelName));
}

std::string ImageCaptionLabel(const Configuration& configuration) {
    return configuration.interface.CaptionOr("ImageCaption", kImageCaptionDesign);
}

std::string ImageCreditLabel(const Configuration& configuration) {
    return configuration.interface.CaptionOr("ImageCredit", kImageCreditDesign);
}

}  // namespace tessarin
