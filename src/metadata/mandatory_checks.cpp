#include "metadata/mandatory_checks.h"

#include <array>
#include <filesystem>
#include <string_view>

#include "common/number_parse.h"
#include "metadata/date_text.h"
#include "metadata/field_labels.h"
#include "metadata/keyword_categories.h"

namespace tessarin {
namespace {

constexpr std::string_view kMandatoryMark = "[*]";

// A text field of the story with its value control and its label.
struct TextField {
    std::string StoryRecord::*value;
    std::string_view control;
    std::string_view label;
};

constexpr std::array<TextField, 6> kIdentityAndPublication{{
    {&StoryRecord::author, "lblTxtAuthor", "lblAuthor"},
    {&StoryRecord::email, "lblTxtEmail", "lblEmail"},
    {&StoryRecord::group, "lblTxtGroup", "lblGroup"},
    {&StoryRecord::initials, "lblTxtInitials", "lblInitials"},
    {&StoryRecord::publication, "txtPublication", "lblPublication"},
    {&StoryRecord::classification, "txtClassification", "lblClassification"},
}};

constexpr std::array<TextField, 2> kGeneralSections{{
    {&StoryRecord::sectionGeneral, "txtSectionGeneral", "lblSectionGeneral"},
    {&StoryRecord::subSectionGeneral, "txtSubSectionGeneral", "lblSubSectionGeneral"},
}};

constexpr std::array<TextField, 4> kLocalSections{{
    {&StoryRecord::sectionLocal, "txtSectionLocal", "lblSectionLocal"},
    {&StoryRecord::subSectionLocal, "txtSubSectionLocal", "lblSubSectionLocal"},
    {&StoryRecord::codeLocal1, "txtCodeLocal1", "lblCodeLocal1"},
    {&StoryRecord::codeLocal2, "txtCodeLocal2", "lblCodeLocal2"},
}};

constexpr TextField kPublicationDate{&StoryRecord::publicationDate, "txtPublicationDate",
                                     "lblPublicationDate"};
constexpr TextField kEventDate{&StoryRecord::eventDate, "txtEventDate", "lblEventDate"};
constexpr TextField kPublicationNumber{&StoryRecord::publicationNumber, "txtPublicationNumber",
                                       "lblPublicationNumber"};

class MandatoryRules {
  public:
    MandatoryRules(const StoryRecord& story, const WindowState& window,
                   const Configuration& configuration)
        : story_(story), window_(window), configuration_(configuration) {}

    std::optional<MandatoryFailure> FirstFailure() const {
        if (auto failure = FirstEmpty(kIdentityAndPublication)) return failure;
        if (story_.usesLocalSections) {
            if (auto failure = FirstEmpty(kLocalSections)) return failure;
        } else if (auto failure = FirstEmpty(kGeneralSections)) {
            return failure;
        }
        if (auto failure = ImageFailure()) return failure;
        if (auto failure = KeywordFailure()) return failure;
        if (auto failure = TaxonomyFailure()) return failure;
        if (story_.formIndex < 0 && Mandatory("lblStoryTypes")) {
            return Failure("lstStoryTypes", LabelCaption(window_, "lblStoryTypes"),
                           "MandatoryField");
        }
        // A cold story has no date and no number of its own.
        if (!story_.coldStory) {
            if (auto failure = DateFailure(kPublicationDate)) return failure;
        }
        if (auto failure = DateFailure(kEventDate)) return failure;
        if (story_.coldStory) return std::nullopt;
        return CheckedTextFailure(kPublicationNumber, IsNumeric,
                                  configuration_.messages.Message("InvalidNumber"));
    }

  private:
    bool Mandatory(std::string_view label) const { return TagHolds(window_, label, "mandatory"); }

    MandatoryFailure Failure(std::string_view field, std::string_view subject,
                             std::string_view messageKey) const {
        return FailureText(field, subject, configuration_.messages.Message(messageKey));
    }

    static MandatoryFailure FailureText(std::string_view field, std::string_view subject,
                                        std::string_view text) {
        return {std::string(subject) + ": " + std::string(text), std::string(field)};
    }

    template <std::size_t N>
    std::optional<MandatoryFailure> FirstEmpty(const std::array<TextField, N>& fields) const {
        for (const TextField& field : fields) {
            if ((story_.*field.value).empty() && Mandatory(field.label)) {
                return Failure(field.control, LabelCaption(window_, field.label), "MandatoryField");
            }
        }
        return std::nullopt;
    }

    std::optional<MandatoryFailure> ImageFailure() const {
        const InterfaceSettings& interface = configuration_.interface;
        const bool captionMandatory = interface.Entry("ImageCaption").Mandatory;
        const bool creditMandatory = interface.Entry("ImageCredit").Mandatory;
        for (const StoryImage& image : story_.images) {
            const std::string subject = std::filesystem::path(image.path).filename().string() +
                                        " -> " + configuration_.messages.Message("MandatoryField");
            if (captionMandatory && image.caption.empty()) {
                return MandatoryFailure{subject + ": " + ImageCaptionLabel(configuration_),
                                        "treeImages"};
            }
            if (creditMandatory && image.credit.empty()) {
                return MandatoryFailure{subject + ": " + ImageCreditLabel(configuration_),
                                        "treeImages"};
            }
        }
        return std::nullopt;
    }

    std::optional<MandatoryFailure> KeywordFailure() const {
        for (const TreeNode* category : KeywordCategories(window_)) {
            if (category->text.find(kMandatoryMark) == std::string::npos) continue;
            if (KeywordsOfCategory(story_, *category).empty()) {
                return Failure("treeKeywords", category->text, "MandatoryField");
            }
        }
        return std::nullopt;
    }

    // The taxonomy's name: the text of the tree's root without its mandatory mark.
    std::string TaxonomyName() const {
        const TreeModel* tree = window_.FindTree("treeTaxonomy");
        if (!tree || tree->Empty()) return std::string(DesignLabelCaption("lblTaxonomy"));
        std::string name = tree->Roots().front().text;
        const std::string mark = std::string(" ") + std::string(kMandatoryMark);
        if (name.ends_with(mark)) name.resize(name.size() - mark.size());
        return name;
    }

    std::optional<MandatoryFailure> TaxonomyFailure() const {
        if (!configuration_.taxonomyOn || !TagHolds(window_, "treeTaxonomy", "mandatory") ||
            !story_.taxonomy.empty()) {
            return std::nullopt;
        }
        return Failure("treeTaxonomy", TaxonomyName(), "MandatoryTaxonomy");
    }

    // A date or number field: unless "invisible", text that is not valid gives invalidText,
    // an empty mandatory one MandatoryField.
    std::optional<MandatoryFailure> CheckedTextFailure(const TextField& field,
                                                       bool (*valid)(std::string_view),
                                                       const std::string& invalidText) const {
        if (TagHolds(window_, field.control, "invisible")) return std::nullopt;
        const std::string& text = story_.*field.value;
        if (text.empty() ? !Mandatory(field.label) : valid(text)) return std::nullopt;
        const std::string label = LabelCaption(window_, field.label);
        if (text.empty()) return Failure(field.control, label, "MandatoryField");
        return FailureText(field.control, label, invalidText);
    }

    std::optional<MandatoryFailure> DateFailure(const TextField& field) const {
        return CheckedTextFailure(field, IsDate, InvalidDateText(configuration_.messages));
    }

    static bool IsDate(std::string_view text) { return ParseShortDate(text).has_value(); }

    const StoryRecord& story_;
    const WindowState& window_;
    const Configuration& configuration_;
};

}  // namespace

std::optional<MandatoryFailure> CheckMandatoryFields(const StoryRecord& story,
                                                     const WindowState& window,
                                                     const Configuration& configuration) {
    return MandatoryRules(story, window, configuration).FirstFailure();
}

}  // namespace tessarin
