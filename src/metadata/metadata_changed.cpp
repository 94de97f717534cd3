#include "metadata/metadata_changed.h"

#include <array>
#include <string_view>
#include <vector>

#include "editing/copy_fit.h"
#include "metadata/field_labels.h"
#include "metadata/keyword_categories.h"

namespace tessarin {
namespace {

constexpr std::string_view kValueIndent = "   ";
constexpr std::string_view kMandatoryMark = " [*]";

using ValueOf = std::string (*)(const EditorSession&);

// A field of the metadata tab: its label, the control whose tag may say "invisible", and
// where its value comes from.
struct SummaryField {
    std::string_view label;
    std::string_view control;
    ValueOf value;
};

std::string ChoiceName(const Vocabulary& vocabulary, int index) {
    if (index < 0 || index >= static_cast<int>(vocabulary.entries.size())) return {};
    return vocabulary.entries[index].name;
}

constexpr std::array<SummaryField, 20> kSummaryFields{{
    {"lblCreationDate", "lblTxtCreationDate",
     [](const EditorSession& s) {
         return s.story.creation.Empty() ? "" : s.story.creation.Display();
     }},
    {"lblLastSaveDate", "lblTxtLastSaveDate",
     [](const EditorSession& s) {
         return s.story.lastSave.Empty() ? "" : s.story.lastSave.Display();
     }},
    {"lblAuthor", "lblTxtAuthor", [](const EditorSession& s) { return s.story.author; }},
    {"lblEmail", "lblTxtEmail", [](const EditorSession& s) { return s.story.email; }},
    {"lblGroup", "lblTxtGroup", [](const EditorSession& s) { return s.story.group; }},
    {"lblInitials", "lblTxtInitials", [](const EditorSession& s) { return s.story.initials; }},
    {"lblPublicationDate", "txtPublicationDate",
     [](const EditorSession& s) { return s.story.publicationDate; }},
    {"lblPublicationNumber", "txtPublicationNumber",
     [](const EditorSession& s) { return s.story.publicationNumber; }},
    {"lblEventDate", "txtEventDate", [](const EditorSession& s) { return s.story.eventDate; }},
    {"lblPublication", "txtPublication",
     [](const EditorSession& s) { return s.story.publication; }},
    {"lblClassification", "txtClassification",
     [](const EditorSession& s) { return s.story.classification; }},
    {"lblSectionGeneral", "txtSectionGeneral",
     [](const EditorSession& s) { return s.story.sectionGeneral; }},
    {"lblSubSectionGeneral", "txtSubSectionGeneral",
     [](const EditorSession& s) { return s.story.subSectionGeneral; }},
    {"lblSectionLocal", "txtSectionLocal",
     [](const EditorSession& s) { return s.story.sectionLocal; }},
    {"lblSubSectionLocal", "txtSubSectionLocal",
     [](const EditorSession& s) { return s.story.subSectionLocal; }},
    {"lblCodeLocal1", "txtCodeLocal1", [](const EditorSession& s) { return s.story.codeLocal1; }},
    {"lblCodeLocal2", "txtCodeLocal2", [](const EditorSession& s) { return s.story.codeLocal2; }},
    {"lblStoryTypes", "lstStoryTypes",
     [](const EditorSession& s) {
         const auto& forms = s.configuration.forms;
         const int index = s.story.formIndex;
         return index >= 0 && index < static_cast<int>(forms.size()) ? forms[index].name
                                                                     : std::string();
     }},
    {"lblStatus", "lstStatus",
     [](const EditorSession& s) {
         return ChoiceName(s.configuration.status, s.story.statusIndex);
     }},
    {"lblGenre", "lstGenre",
     [](const EditorSession& s) { return ChoiceName(s.configuration.genre, s.story.genreIndex); }},
}};

void AddList(std::string& text, std::string_view label, const std::vector<std::string>& values) {
    if (values.empty()) return;
    text += "\n" + std::string(label) + ":";
    for (const std::string& value : values)
        text += "\n" + std::string(kValueIndent) + value;
}

// The text of a tree's root, without the mark of a mandatory section; empty without a root.
std::string RootName(const WindowState& window, std::string_view treeName) {
    const TreeModel* tree = window.FindTree(treeName);
    if (!tree || tree->Empty()) return {};
    std::string name = tree->Roots().front().text;
    if (name.ends_with(kMandatoryMark)) name.resize(name.size() - kMandatoryMark.size());
    return name;
}

std::vector<std::string> TopicTexts(const StoryRecord& story) {
    std::vector<std::string> texts;
    for (const TaxonomyTopic& topic : story.taxonomy)
        texts.push_back(topic.text);
    return texts;
}

std::vector<std::string> KeywordTexts(const EditorSession& session) {
    std::vector<std::string> texts;
    for (const TreeNode* category : KeywordCategories(session.window)) {
        for (const StoryKeyword* keyword : KeywordsOfCategory(session.story, *category))
            texts.push_back(keyword->text);
    }
    return texts;
}

}  // namespace

std::string MetadataToolText(const EditorSession& session) {
    const WindowState& window = session.window;
    std::string text =
        std::to_string(session.story.images.size()) + " " + session.Message("ImagesLabel");
    for (const SummaryField& field : kSummaryFields) {
        if (TagHolds(window, field.control, "invisible")) continue;
        const std::string value = field.value(session);
        if (!value.empty()) AddList(text, LabelCaption(window, field.label), {value});
    }
    if (session.configuration.taxonomyOn) {
        std::string name = RootName(window, "treeTaxonomy");
        if (name.empty()) name = LabelCaption(window, "lblTaxonomy");
        AddList(text, name, TopicTexts(session.story));
    }
    if (session.configuration.keywordsOn) {
        AddList(text, RootName(window, "treeKeywords"), KeywordTexts(session));
    }
    return text;
}

void MetadataChanged(EditorSession& session) {
    session.window.Control("cmdMetadataTooltip").toolTip = MetadataToolText(session);
    for (int box = 0; box < kTextBoxCount; ++box) {
        if (!BoxTaggedInvisible(session.window, box)) UpdateCopyFit(session, box);
    }
}

void MetadataValueChanged(EditorSession& session) {
    session.storyModified = true;
    MetadataChanged(session);
}

}  // namespace tessarin
