#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "config/export_section.h"
#include "config/interface_section.h"
#include "config/messages_section.h"
#include "config/transmission_section.h"

namespace tessarin {

// The program-wide record that LoadConfiguration fills from the configuration document and
// everyone else reads. Each value is named after the configuration key that fills it. What
// the main window shows (captions, tags, lists, trees) lives in the WindowState instead.

// The number of story text boxes; box index 0 to 6 is read from TextBox1 to TextBox7.
inline constexpr int kTextBoxCount = 7;

// Box 6 is the story's main text: the only box with the inter styles, the one that pictures
// shorten, and the one that can never be all caps.
inline constexpr int kMainTextBox = 6;

// The attributes of the document element.
struct GeneralSettings {
    std::string version = "???";                 // Version
    std::string storiesEncoding = "ISO-8859-1";  // StoriesEncoding: "UTF-8" or "ISO-8859-1"
    std::string description;                     // Description
    std::string language;                        // Language
    std::string client;                          // Client, shown in the window title
};

// The user's identity: the preferences file's Identification section first, else the text
// of the Metadata element of the same name.
struct Identity {
    std::string author;
    std::string email;
    std::string group;
    std::string initials;
};

// Values of the labelled Metadata items that are kept besides the controls' state.
struct MetadataSettings {
    bool creationDateVisible = true;  // CreationDate Visible
    bool lastSaveDateVisible = true;  // LastSaveDate Visible
    std::string coldStoryLabel;       // ColdStory Name, used by the metadata checks
};

// A copy-fitting limit of one text box, from "min-max": the minimum is kept as text, the
// maximum as a 32-bit integer. A text without "-" means no limit (no CharacterLimit).
struct CharacterLimit {
    std::string minimum;
    std::int32_t maximum = 0;

    friend bool operator==(const CharacterLimit&, const CharacterLimit&) = default;
};

// One Metadata/Forms/Form: a story form, shown in lstStoryTypes at the same index.
struct StoryForm {
    std::string name;             // Name
    std::string textBoxDigits;    // TextBoxes: digit N + 1 puts box index N in the form, 0 the
                                  // signature; also the data of the form's lstStoryTypes item
    std::string allCapsDigits;    // AllCaps: digit N + 1 makes box index N upper case only
    std::int32_t minImages = 0;   // MinImages
    std::int32_t maxImages = -1;  // MaxImages: -1 no limit, 0 no images tab
    std::array<std::optional<CharacterLimit>, kTextBoxCount> characterLimits;  // NumberOfChars
};

// One row of the form-independent image size table: ImageSizeN of a form, in reading order.
struct ImageSizeRow {
    std::string formName;
    std::int32_t size = 0;

    friend bool operator==(const ImageSizeRow&, const ImageSizeRow&) = default;
};

// A Status or Genre vocabulary: names as lstStatus / lstGenre show them, formal names at the
// same index, and the index chosen by default (-1: none).
struct VocabularyEntry {
    std::string name;
    std::string formalName;
};
struct Vocabulary {
    std::vector<VocabularyEntry> entries;
    int defaultIndex = -1;
};

// Story/Signature.
struct SignatureSettings {
    std::string toolTip;  // Name: the tool tip of cmdSignature when not empty
    bool visible = true;  // Visible
};

// Story/Notes.
struct NotesSettings {
    std::string name = "Notes";
    std::string addHere = "Add note here";
    std::string toolTipText = "Enter key to add / Del key to delete";
    bool visible = true;
    bool manageAllNotes = true;
};

// Story/TextBox1 to TextBox7, by box index 0 to 6.
struct TextBoxSettings {
    std::string label;                      // Name, trimmed; empty keeps the designed label
    std::optional<std::string> storedName;  // the first Name ever read; later loads keep it
    std::optional<int> height;              // Height when numeric
    bool visible = true;                    // Visible
};

struct StorySettings {
    SignatureSettings signature;
    NotesSettings notes;
    std::array<TextBoxSettings, kTextBoxCount> textBoxes;
};

// NewsServices/NewsService: one entry of the news service menu.
struct NewsServiceEntry {
    std::string name;
    std::string repositories;  // repository, "|", archives repository (each with a separator)

    friend bool operator==(const NewsServiceEntry&, const NewsServiceEntry&) = default;
};

// NewsServices/Categories/Category with both its text and FormalName.
struct NewsCategory {
    std::string text;
    std::string formalName;

    friend bool operator==(const NewsCategory&, const NewsCategory&) = default;
};

struct NewsServicesSettings {
    bool visible = false;  // the NewsService button: the section exists and Visible is not "false"
    std::string name;      // Name: the button's tool tip
    std::int32_t headLineRecipient = 3;
    std::int32_t textRecipient = 6;
    // CopiedColor and PartiallyCopiedColor: the marks of an item copied whole (red) and in
    // part (blue), as colour numbers (blue * 65536 + green * 256 + red).
    std::uint32_t copiedColour = 0x0000FFu;
    std::uint32_t partiallyCopiedColour = 0xFF0000u;
    std::vector<NewsServiceEntry> services;  // at most kMaxNewsServices
    std::string categoriesName;              // Categories Name
    std::string allCategoriesName;           // Categories AllCategories
    std::vector<NewsCategory> categories;
};
inline constexpr std::size_t kMaxNewsServices = 5;

struct PublicationsSettings {
    // The general-or-local flag: true when the story is classified as general. Set by the
    // load from the first classification of the first publication, then by the editor.
    bool classifiedGeneral = false;
    // AllPublications: false shows the preferred view of treePublications, true the full one.
    bool allPublications = false;
};

struct Configuration {
    GeneralSettings general;
    FtpTransmissionSettings ftpTransmission;
    ExportSettings exportFormats;
    SmtpTransmissionSettings smtpTransmission;
    WorkflowSettings workflow;
    TextMLSettings textML;
    Identity identity;
    MetadataSettings metadata;
    std::vector<StoryForm> forms;
    std::vector<ImageSizeRow> imageSizes;
    Vocabulary status;
    Vocabulary genre;
    bool keywordsOn = false;
    bool taxonomyOn = false;
    StorySettings story;
    NewsServicesSettings newsServices;
    PublicationsSettings publications;
    InterfaceSettings interface;
    MessageTexts messages;
};

}  // namespace tessarin
