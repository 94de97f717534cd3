#include "story/story_file_writer.h"

#include <array>
#include <filesystem>

#include "common/date_format.h"
#include "common/number_parse.h"
#include "config/story_section.h"
#include "metadata/date_text.h"
#include "metadata/field_labels.h"
#include "metadata/keyword_categories.h"
#include "story/char_count.h"
#include "story/story_file_bytes.h"

namespace tessarin {
namespace {

constexpr std::string_view kUtf8 = "UTF-8";
constexpr std::string_view kDefaultLogType = "W";

// A metadata row written as <Element Name="label">value</Element> when the value is not empty.
struct LabelledRow {
    std::string_view element;
    std::string StoryRecord::*value;
    std::string_view label;
};

constexpr std::array<LabelledRow, 4> kIdentityRows{{
    {"Author", &StoryRecord::author, "lblAuthor"},
    {"Email", &StoryRecord::email, "lblEmail"},
    {"Group", &StoryRecord::group, "lblGroup"},
    {"Initials", &StoryRecord::initials, "lblInitials"},
}};

constexpr std::array<LabelledRow, 8> kClassificationRows{{
    {"Publication", &StoryRecord::publication, "lblPublication"},
    {"Classification", &StoryRecord::classification, "lblClassification"},
    {"SectionGeneral", &StoryRecord::sectionGeneral, "lblSectionGeneral"},
    {"SubSectionGeneral", &StoryRecord::subSectionGeneral, "lblSubSectionGeneral"},
    {"SectionLocal", &StoryRecord::sectionLocal, "lblSectionLocal"},
    {"SubSectionLocal", &StoryRecord::subSectionLocal, "lblSubSectionLocal"},
    {"CodeLocal1", &StoryRecord::codeLocal1, "lblCodeLocal1"},
    {"CodeLocal2", &StoryRecord::codeLocal2, "lblCodeLocal2"},
}};

constexpr LabelledRow kPublicationNumberRow{"PublicationNumber", &StoryRecord::publicationNumber,
                                            "lblPublicationNumber"};

bool IsUtf8(const Configuration& configuration) {
    return configuration.general.storiesEncoding == kUtf8;
}

// Replaces each "--" of a comment's text by "__", as a comment may not hold "--".
std::string CommentSafe(std::string text) {
    for (std::size_t at = text.find("--"); at != std::string::npos; at = text.find("--", at + 2)) {
        text.replace(at, 2, "__");
    }
    return text;
}

class StoryFileComposer {
  public:
    StoryFileComposer(const StoryRecord& story, const StoryContext& context,
                      const LocalDateTime& now)
        : story_(story),
          context_(context),
          configuration_(context.configuration),
          window_(context.window),
          now_(now),
          out_(IsUtf8(context.configuration)) {}

    std::string Compose(std::string_view fileName, std::string_view body) {
        out_.Reserve(body.size() + 4096);
        Head(fileName);
        Metadata();
        Logs();
        out_.Markup("<Body>").EndLine().Final(body).Markup("</Body>").EndLine();
        Notes();
        Images();
        Files();
        out_.Markup("</Story>").EndLine();
        return out_.Take();
    }

  private:
    void Head(std::string_view fileName) {
        out_.Markup(IsUtf8(configuration_) ? "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>"
                                           : "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>")
            .EndLine();
        out_.Markup("<!-- ")
            .Final(CommentSafe(out_.EscapedBytes(fileName)))
            .Markup(" -->")
            .EndLine();
        const Preferences& preferences = context_.preferences;
        if (preferences.UseXSLT && !preferences.XSLT.empty()) {
            out_.Markup("<?xml-stylesheet type=\"text/xsl\" href = \"")
                .Raw(preferences.XSLT)
                .Markup("\"?>")
                .EndLine();
        }
        out_.Markup("<Story AppName=\"Tessarin\" AppVersion=\"")
            .Raw(context_.programVersion)
            .Markup("\">")
            .EndLine();
    }

    // "<Element Name="label">" with the label's caption.
    void OpenNamed(std::string_view element, std::string_view label) {
        out_.Markup("<").Markup(element).Markup(" Name=\"");
        out_.Escaped(LabelCaption(window_, label)).Markup("\">");
    }

    void Close(std::string_view element) { out_.Markup("</").Markup(element).Markup(">"); }

    // "<Element>value</Element>" with the value escaped.
    void Plain(std::string_view element, std::string_view value) {
        out_.Markup("<").Markup(element).Markup(">").Escaped(value);
        Close(element);
    }

    void Row(const LabelledRow& row) {
        const std::string& value = story_.*row.value;
        if (value.empty()) return;
        OpenNamed(row.element, row.label);
        out_.Escaped(value);
        Close(row.element);
        out_.EndLine();
    }

    // Rows 5 and 6: the date element with its label, then the time element, on one line.
    void Timestamp(std::string_view prefix, std::string_view label,
                   const StoryTimestamp& timestamp) {
        const std::string dateElement = std::string(prefix) + "Date";
        OpenNamed(dateElement, label);
        out_.Escaped(timestamp.date);
        Close(dateElement);
        Plain(std::string(prefix) + "Time", timestamp.time);
        out_.EndLine();
    }

    void Metadata() {
        out_.Markup("<Metadata>").EndLine();
        for (const LabelledRow& row : kIdentityRows)
            Row(row);
        const StoryTimestamp thisSave{FormatShortDate(now_), FormatTimeHourMinute(now_)};
        Timestamp("Creation", "lblCreationDate",
                  story_.creation.Empty() ? thisSave : story_.creation);
        Timestamp("LastSave", "lblLastSaveDate", thisSave);
        Plain("LastSaveAuthor", configuration_.identity.author);
        out_.EndLine();
        for (const LabelledRow& row : kClassificationRows)
            Row(row);
        Dates();
        Taxonomy();
        Keywords();
        FormStatusGenre();
        out_.Markup("</Metadata>").EndLine();
    }

    // The long date form that follows a date row.
    void FullDate(std::string_view element, std::string_view shortDate) {
        Plain(element, LongDateOfShortDateText(shortDate));
        out_.EndLine();
    }

    void Dates() {
        if (story_.coldStory || !story_.publicationDate.empty()) {
            OpenNamed("PublicationDate", "lblPublicationDate");
            // A story without a date of its own (a cold story) is dated "0".
            if (story_.coldStory) {
                out_.Markup("0");
            } else {
                out_.Escaped(story_.publicationDate);
            }
            Close("PublicationDate");
            out_.EndLine();
            if (!story_.coldStory) FullDate("PublicationDateFull", story_.publicationDate);
        }
        Row(kPublicationNumberRow);
        if (!story_.eventDate.empty()) {
            OpenNamed("EventDate", "lblEventDate");
            out_.Escaped(story_.eventDate);
            Close("EventDate");
            out_.EndLine();
            FullDate("EventDateFull", story_.eventDate);
        }
    }

    // The formal code of a topic as the taxonomy tree spells it ("01000000" keeps its zeros),
    // or its number in decimal when no topic of the tree has that number.
    std::string TopicFormalCode(const TaxonomyTopic& topic) const {
        if (const TreeModel* tree = window_.FindTree("treeTaxonomy")) {
            for (const TreeNode* node : tree->AllNodes()) {
                if (node->hasCheckbox && IsNumeric(node->tag) &&
                    ParseLeadingNumber(node->tag) == static_cast<double>(topic.formalNumber)) {
                    return node->tag;
                }
            }
        }
        return std::to_string(topic.formalNumber);
    }

    void Taxonomy() {
        if (!configuration_.taxonomyOn || story_.taxonomy.empty()) return;
        out_.Markup("<Taxonomy>").EndLine();
        for (const TaxonomyTopic& topic : story_.taxonomy) {
            out_.Markup("<Topic FormalItem=\"").Raw(TopicFormalCode(topic)).Markup("\">");
            out_.Escaped(topic.text).Markup("</Topic>").EndLine();
        }
        out_.Markup("</Taxonomy>").EndLine();
    }

    void Keywords() {
        if (!configuration_.keywordsOn) return;
        StoryFileBytes lines(IsUtf8(configuration_));
        for (const TreeNode* category : KeywordCategories(window_)) {
            // A keyword's category index is one more than the category's tag.
            const std::string index = std::to_string(ParseLeadingInteger(category->tag) + 1);
            for (const StoryKeyword* keyword : KeywordsOfCategory(story_, *category)) {
                lines.Markup("<Keyword CategoryName=\"").Escaped(category->text);
                lines.Markup("\" CategoryIndex=\"").Markup(index).Markup("\">");
                lines.Escaped(keyword->text).Markup("</Keyword>").EndLine();
            }
        }
        const std::string written = lines.Take();
        if (written.empty()) return;
        out_.Markup("<Keywords>").EndLine().Final(written).Markup("</Keywords>").EndLine();
    }

    // Form, Status and Genre: the chosen item of each list.
    void FormStatusGenre() {
        const int form = story_.formIndex;
        if (form >= 0 && form < static_cast<int>(configuration_.forms.size()) &&
            !TagHolds(window_, "lstStoryTypes", "invisible")) {
            out_.Markup("<Form Name=\"").Escaped(LabelCaption(window_, "lblStoryTypes"));
            out_.Markup("\" Index=\"").Markup(std::to_string(form)).Markup("\">");
            out_.Escaped(configuration_.forms[form].name);
            Close("Form");
            out_.EndLine();
        }
        VocabularyRow("Status", "lblStatus", "lstStatus", configuration_.status,
                      story_.statusIndex);
        VocabularyRow("Genre", "lblGenre", "lstGenre", configuration_.genre, story_.genreIndex);
    }

    void VocabularyRow(std::string_view element, std::string_view label, std::string_view list,
                       const Vocabulary& vocabulary, int index) {
        if (index < 0 || index >= static_cast<int>(vocabulary.entries.size()) ||
            TagHolds(window_, list, "invisible")) {
            return;
        }
        const VocabularyEntry& entry = vocabulary.entries[index];
        out_.Markup("<").Markup(element).Markup(" Name=\"").Escaped(LabelCaption(window_, label));
        out_.Markup("\" FormalItem=\"").Raw(entry.formalName).Markup("\">");
        out_.Escaped(entry.name);
        Close(element);
        out_.EndLine();
    }

    void Logs() {
        if (!configuration_.ftpTransmission.LogsEnabled || story_.logs.empty()) return;
        out_.Markup("<Logs>").EndLine();
        for (const StoryLog& log : story_.logs) {
            out_.Markup("<Log Type=\"").Raw(log.type.empty() ? kDefaultLogType : log.type);
            out_.Markup("\">").Escaped(log.text).Markup("</Log>").EndLine();
        }
        out_.Markup("</Logs>").EndLine();
    }

    void Notes() {
        if (!configuration_.story.notes.visible || story_.notes.empty()) return;
        out_.Markup("<Notes>").EndLine();
        for (const StoryNote& note : story_.notes) {
            out_.Markup("<Note Name=\"").Escaped(note.title);
            out_.Markup(note.bookmark ? "\" Bookmark=\"true\">" : "\">");
            out_.Escaped(note.text).Markup("</Note>").EndLine();
        }
        out_.Markup("</Notes>").EndLine();
    }

    void LinkedFile(std::string_view element, std::string_view path) {
        out_.Markup("<").Markup(element).Markup(" href=\"").Escaped(LinkedFileReference(path));
        out_.Markup("\"/>").EndLine();
    }

    void OptionalLine(std::string_view element, std::string_view value) {
        if (value.empty()) return;
        Plain(element, value);
        out_.EndLine();
    }

    void Images() {
        if (story_.images.empty()) return;
        out_.Markup("<Images>").EndLine();
        for (const StoryImage& image : story_.images) {
            if (image.path.empty()) continue;
            out_.Markup("<ImageBag>").EndLine();
            LinkedFile("Image", image.path);
            OptionalLine("Caption", image.caption);
            OptionalLine("Credit", image.credit);
            if (!image.iptcKeywords.empty()) IptcKeywords(image);
            out_.Markup("</ImageBag>").EndLine();
        }
        out_.Markup("</Images>").EndLine();
    }

    // Each keyword escaped, joined by "; ".
    void IptcKeywords(const StoryImage& image) {
        out_.Markup("<IPTCKeywords>");
        for (std::size_t index = 0; index < image.iptcKeywords.size(); ++index) {
            if (index > 0) out_.Markup("; ");
            out_.Escaped(image.iptcKeywords[index]);
        }
        out_.Markup("</IPTCKeywords>").EndLine();
    }

    void Files() {
        if (story_.files.empty()) return;
        out_.Markup("<Files>").EndLine();
        for (const StoryFile& file : story_.files) {
            if (file.path.empty()) continue;
            out_.Markup("<FileBag>").EndLine();
            LinkedFile("File", file.path);
            OptionalLine("Description", file.description);
            out_.Markup("</FileBag>").EndLine();
        }
        out_.Markup("</Files>").EndLine();
    }

    const StoryRecord& story_;
    const StoryContext& context_;
    const Configuration& configuration_;
    const WindowState& window_;
    const LocalDateTime& now_;
    StoryFileBytes out_;
};

}  // namespace

StoryBodyInput StoryBodyInputOf(const StoryRecord& story, const StoryContext& context) {
    const Preferences& preferences = context.preferences;
    StoryBodyInput input;
    for (int index = 0; index < kTextBoxCount; ++index) {
        const BoxCounters& counters = story.counters[index];
        input.boxes[index] = {&story.boxes[index],
                              LabelCaption(context.window, TextBoxLabelName(index)),
                              CountBoxCharacters(story.boxes[index], counters.noteCharacters,
                                                 counters.paragraphMarks)};
    }
    input.signature = story.signature;
    input.initialsSignature = story.initialsSignature;
    input.settings.interColours = {preferences.InterColor1, preferences.InterColor2,
                                   preferences.InterColor3};
    input.settings.bookmarksColour = preferences.BookmarksColor;
    input.settings.removeDuplicateSpaces = preferences.RemoveDuplicateSpaces;
    input.settings.utf8 = IsUtf8(context.configuration);
    return input;
}

std::string ComposeStoryFile(const StoryRecord& story, const StoryContext& context,
                             std::string_view fileName, const LocalDateTime& now,
                             std::string_view body) {
    return StoryFileComposer(story, context, now).Compose(fileName, body);
}

std::string ComposeStoryFile(const StoryRecord& story, const StoryContext& context,
                             std::string_view fileName, const LocalDateTime& now) {
    return ComposeStoryFile(story, context, fileName, now,
                            StoryTextToTags(StoryBodyInputOf(story, context)));
}

std::string LinkedFileReference(std::string_view path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return "file://" + (error ? std::string(path) : absolute.string());
}

}  // namespace tessarin
