#include "config/metadata_section.h"

#include <array>
#include <string>
#include <string_view>

#include "common/number_parse.h"
#include "common/reading_idiom.h"
#include "config/numbered_name.h"

namespace tessarin {
namespace {

// One labelled item of Metadata and the controls of the main window that it governs.
struct LabelledItem {
    std::string_view element;
    std::string_view label;  // empty: the item has no label of its own (ColdStory)
    std::array<std::string_view, 3> controls;  // the first one is the value control
    bool readsVisible;
    bool readsMandatory;
    bool readsEnabled;
    std::string Identity::*identity;  // the identity value the element's text defaults
};

constexpr std::array<LabelledItem, 18> kLabelledItems{{
    {"CreationDate", "lblCreationDate", {"lblTxtCreationDate"}, true, false, false, nullptr},
    {"LastSaveDate", "lblLastSaveDate", {"lblTxtLastSaveDate"}, true, false, false, nullptr},
    {"Author", "lblAuthor", {"lblTxtAuthor"}, true, true, false, &Identity::author},
    {"Email", "lblEmail", {"lblTxtEmail"}, true, true, false, &Identity::email},
    {"Group", "lblGroup", {"lblTxtGroup"}, true, true, false, &Identity::group},
    {"Initials", "lblInitials", {"lblTxtInitials"}, true, true, false, &Identity::initials},
    {"PublicationDate",
     "lblPublicationDate",
     {"txtPublicationDate", "udDate", "cmdDate"},
     true,
     true,
     false,
     nullptr},
    {"PublicationNumber",
     "lblPublicationNumber",
     {"txtPublicationNumber", "udNumber"},
     true,
     true,
     false,
     nullptr},
    {"ColdStory", "", {"chkColdStory"}, true, false, false, nullptr},
    {"EventDate",
     "lblEventDate",
     {"txtEventDate", "udEventDate", "cmdEventDate"},
     true,
     true,
     false,
     nullptr},
    {"Publication", "lblPublication", {"txtPublication"}, false, true, true, nullptr},
    {"Classification", "lblClassification", {"txtClassification"}, false, true, true, nullptr},
    {"SectionGeneral", "lblSectionGeneral", {"txtSectionGeneral"}, false, true, true, nullptr},
    {"SubSectionGeneral",
     "lblSubSectionGeneral",
     {"txtSubSectionGeneral"},
     false,
     true,
     true,
     nullptr},
    {"SectionLocal", "lblSectionLocal", {"txtSectionLocal"}, false, true, true, nullptr},
    {"SubSectionLocal", "lblSubSectionLocal", {"txtSubSectionLocal"}, false, true, true, nullptr},
    {"CodeLocal1", "lblCodeLocal1", {"txtCodeLocal1"}, false, true, true, nullptr},
    {"CodeLocal2", "lblCodeLocal2", {"txtCodeLocal2"}, false, true, true, nullptr},
}};

void ResetControl(ControlState& control) {
    control.tag.clear();
    control.visible = true;
    control.enabled = true;
}

void SetCaptionWhenGiven(ControlState& control, const std::string& caption) {
    if (!caption.empty()) control.caption = caption;
}

// The item's caption control: its label, or its value control when it has no label.
ControlState& CaptionControl(const LabelledItem& item, WindowState& window) {
    return window.Control(item.label.empty() ? item.controls[0] : item.label);
}

void ResetItem(const LabelledItem& item, WindowState& window) {
    if (!item.label.empty()) ResetControl(window.Control(item.label));
    for (std::string_view control : item.controls) {
        if (!control.empty()) ResetControl(window.Control(control));
    }
}

void HideItem(const LabelledItem& item, WindowState& window) {
    PrependTagWord(window.Control(item.controls[0]), "invisible");
    if (!item.label.empty()) window.Control(item.label).visible = false;
    for (std::string_view control : item.controls) {
        if (!control.empty()) window.Control(control).visible = false;
    }
}

// The identity value: the preferences' Identification key of the element's name when the
// key is there, else the element's own text.
std::string IdentityValue(const LabelledItem& item, const XmlNode& element,
                          const ProfileContents& profile) {
    if (auto fromPreferences = profile.Read("Identification", item.element)) {
        return *fromPreferences;
    }
    return element.Text();
}

void ReadLabelledItem(const LabelledItem& item, const XmlNode& element,
                      const ProfileContents& profile, Configuration& configuration,
                      WindowState& window) {
    ResetItem(item, window);
    SetCaptionWhenGiven(CaptionControl(item, window), element.Attribute("Name"));
    if (item.readsVisible && element.Attribute("Visible") == "false") HideItem(item, window);
    if (item.readsMandatory && FlagDefaultFalse(element.Attribute("Mandatory"))) {
        AppendTagWord(window.Control(item.label), "mandatory");
    }
    if (item.readsEnabled && element.Attribute("Enabled") == "false") {
        window.Control(item.controls[0]).enabled = false;
    }
    if (item.identity) {
        std::string value = IdentityValue(item, element, profile);
        window.Control(item.controls[0]).caption = value;
        configuration.identity.*item.identity = std::move(value);
    }
}

// The width rule of Forms, Status and Genre: a numeric Width above 100 sets the list's width.
void ApplyListWidth(const XmlNode& section, ControlState& list) {
    const std::string width = section.Attribute("Width");
    if (IsNumeric(width) && ParseLeadingNumber(width) > 100) {
        list.width = ParseLeadingInteger(width);
    }
}

// The attributes that Forms, Status and Genre share: Name, Visible and Width.
void ReadListSection(const XmlNode& section, std::string_view labelName, std::string_view listName,
                     WindowState& window) {
    ControlState& label = window.Control(labelName);
    ControlState& list = window.Control(listName);
    ResetControl(label);
    ResetControl(list);
    list.width = -1;
    window.List(listName).Clear();
    SetCaptionWhenGiven(label, section.Attribute("Name"));
    if (section.Attribute("Visible") == "false") {
        PrependTagWord(list, "invisible");
        list.visible = false;
        label.visible = false;
    }
    ApplyListWidth(section, list);
}

// "min-max": the minimum as text, the maximum as a 32-bit integer; no "-", no limit.
std::optional<CharacterLimit> ReadCharacterLimit(std::string_view text) {
    const auto dash = text.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    return CharacterLimit{std::string(text.substr(0, dash)),
                          ParseLeadingInteger(text.substr(dash + 1))};
}

StoryForm ReadForm(const XmlNode& element) {
    StoryForm form;
    form.name = element.Attribute("Name");
    form.textBoxDigits = element.Attribute("TextBoxes");
    form.allCapsDigits = element.Attribute("AllCaps");
    form.minImages = NumberOr(element.Attribute("MinImages"), 0);
    form.maxImages = NumberOr(element.Attribute("MaxImages"), -1);
    for (int box = 0; box < kTextBoxCount; ++box) {
        const std::string key = NumberedName("NumberOfChars", box + 1);
        form.characterLimits[box] = ReadCharacterLimit(element.Attribute(key));
    }
    return form;
}

// ImageSize1 to ImageSizeN, N being the number of images the form allows.
void ReadImageSizes(const XmlNode& element, const StoryForm& form,
                    std::vector<ImageSizeRow>& table) {
    for (std::int32_t image = 1; image <= form.maxImages; ++image) {
        const std::string key = NumberedName("ImageSize", image);
        if (!element.HasAttribute(key)) continue;
        table.push_back({form.name, ParseLeadingInteger(element.Attribute(key))});
    }
}

void ReadForms(const XmlNode& forms, Configuration& configuration, WindowState& window) {
    configuration.forms.clear();
    configuration.imageSizes.clear();
    ReadListSection(forms, "lblStoryTypes", "lstStoryTypes", window);
    if (FlagDefaultFalse(forms.Attribute("Mandatory"))) {
        AppendTagWord(window.Control("lblStoryTypes"), "mandatory");
    }
    ListModel& list = window.List("lstStoryTypes");
    for (const XmlNode& element : forms.SelectNodes("Form")) {
        StoryForm form = ReadForm(element);
        ReadImageSizes(element, form, configuration.imageSizes);
        list.items.push_back({form.name, form.textBoxDigits});
        configuration.forms.push_back(std::move(form));
    }
    if (!list.items.empty()) list.selected = 0;
}

struct VocabularySection {
    std::string_view element;
    std::string_view item;
    std::string_view label;
    std::string_view list;
    std::string_view defaultFormalName;
};

constexpr VocabularySection kStatus{"Status", "StatusItem", "lblStatus", "lstStatus", "Usable"};
constexpr VocabularySection kGenre{"Genre", "GenreItem", "lblGenre", "lstGenre", "Current"};

void ReadVocabulary(const XmlNode& metadata, const VocabularySection& kind, Vocabulary& vocabulary,
                    WindowState& window) {
    vocabulary = {};
    const XmlNode section = metadata.SelectSingleNode(kind.element);
    ReadListSection(section, kind.label, kind.list, window);
    ListModel& list = window.List(kind.list);
    for (const XmlNode& element : section.SelectNodes(kind.item)) {
        VocabularyEntry entry{element.Attribute("Name"), element.Attribute("FormalName")};
        if (vocabulary.defaultIndex < 0 && entry.formalName == kind.defaultFormalName) {
            vocabulary.defaultIndex = static_cast<int>(vocabulary.entries.size());
        }
        list.items.push_back({entry.name, {}});
        vocabulary.entries.push_back(std::move(entry));
    }
    list.selected = vocabulary.defaultIndex;
}

}  // namespace

void ReadMetadataItems(const XmlNode& metadata, const ProfileContents& profile,
                       Configuration& configuration, WindowState& window) {
    configuration.identity = {};
    configuration.metadata = {};
    for (const LabelledItem& item : kLabelledItems) {
        ReadLabelledItem(item, metadata.SelectSingleNode(item.element), profile, configuration,
                         window);
    }
    const XmlNode coldStory = metadata.SelectSingleNode("ColdStory");
    configuration.metadata.coldStoryLabel = coldStory.Attribute("Name");
    configuration.metadata.creationDateVisible =
        FlagDefaultTrue(metadata.SelectSingleNode("CreationDate").Attribute("Visible"));
    configuration.metadata.lastSaveDateVisible =
        FlagDefaultTrue(metadata.SelectSingleNode("LastSaveDate").Attribute("Visible"));
    const std::string buttonName =
        metadata.SelectSingleNode("PublicationDate").Attribute("ButtonName");
    if (!buttonName.empty()) window.Control("cmdDate").toolTip = buttonName;
}

void ReadFormsStatusGenre(const XmlNode& metadata, Configuration& configuration,
                          WindowState& window) {
    ReadForms(metadata.SelectSingleNode("Forms"), configuration, window);
    ReadVocabulary(metadata, kStatus, configuration.status, window);
    ReadVocabulary(metadata, kGenre, configuration.genre, window);
}

}  // namespace tessarin
