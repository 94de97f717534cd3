#include <cstdint>
#include <string>
#include <string_view>

#include "common/number_parse.h"
#include "story/story_reader_parts.h"

namespace tessarin {
namespace {

// Sets field to the element's text when the element is there; a missing one leaves the
// value of the reset.
bool ReadText(const XmlNode& metadata, std::string_view element, std::string& field) {
    const XmlNode node = metadata.SelectSingleNode(element);
    if (!node) return false;
    field = node.Text();
    return true;
}

void ReadIdentityAndDates(const XmlNode& metadata, StoryRecord& story) {
    ReadText(metadata, "Author", story.author);
    ReadText(metadata, "Email", story.email);
    ReadText(metadata, "Group", story.group);
    ReadText(metadata, "Initials", story.initials);
    ReadText(metadata, "CreationDate", story.creation.date);
    ReadText(metadata, "CreationTime", story.creation.time);
    ReadText(metadata, "LastSaveDate", story.lastSave.date);
    ReadText(metadata, "LastSaveTime", story.lastSave.time);
}

// The sections mark the story as classified with general or with local sections; the last
// one the file holds decides.
void ReadClassification(const XmlNode& metadata, StoryRecord& story) {
    ReadText(metadata, "Publication", story.publication);
    ReadText(metadata, "Classification", story.classification);
    const auto section = [&](std::string_view element, std::string& field, bool local) {
        if (ReadText(metadata, element, field)) story.usesLocalSections = local;
    };
    section("SectionGeneral", story.sectionGeneral, false);
    section("SubSectionGeneral", story.subSectionGeneral, false);
    section("SectionLocal", story.sectionLocal, true);
    section("SubSectionLocal", story.subSectionLocal, true);
    section("CodeLocal1", story.codeLocal1, true);
    section("CodeLocal2", story.codeLocal2, true);
}

void ReadDates(const XmlNode& metadata, StoryRecord& story) {
    std::string publicationDate;
    if (ReadText(metadata, "PublicationDate", publicationDate)) {
        story.coldStory = publicationDate == "0";
        if (!story.coldStory) story.publicationDate = std::move(publicationDate);
    }
    ReadText(metadata, "PublicationNumber", story.publicationNumber);
    ReadText(metadata, "EventDate", story.eventDate);
}

// The index of the entry whose formal name is the element's FormalItem; -1 for an empty or
// unknown one. An empty vocabulary has no list to choose in: the choice stays.
void ReadVocabularyChoice(const XmlNode& metadata, std::string_view element,
                          const Vocabulary& vocabulary, int& choice) {
    const XmlNode node = metadata.SelectSingleNode(element);
    if (!node || vocabulary.entries.empty()) return;
    const std::string code = node.Attribute("FormalItem");
    choice = -1;
    if (code.empty()) return;
    for (std::size_t index = 0; index < vocabulary.entries.size(); ++index) {
        if (vocabulary.entries[index].formalName == code) {
            choice = static_cast<int>(index);
            return;
        }
    }
}

void ReadChoices(const XmlNode& metadata, const Configuration& configuration, StoryRecord& story) {
    if (const XmlNode form = metadata.SelectSingleNode("Form")) {
        const std::string name = form.Text();
        story.formIndex = -1;
        for (std::size_t index = 0; index < configuration.forms.size(); ++index) {
            if (configuration.forms[index].name == name) {
                story.formIndex = static_cast<int>(index);
                break;
            }
        }
    }
    ReadVocabularyChoice(metadata, "Status", configuration.status, story.statusIndex);
    ReadVocabularyChoice(metadata, "Genre", configuration.genre, story.genreIndex);
}

void ReadTaxonomyTopics(const XmlNode& metadata, StoryRecord& story) {
    story.taxonomy.clear();
    for (const XmlNode& topic : metadata.SelectNodes("Taxonomy/Topic")) {
        const std::string code = topic.Attribute("FormalItem");
        if (!IsNumeric(code)) continue;
        story.taxonomy.push_back({topic.Text(), ParseLeadingInteger(code)});
    }
}

// A keyword's CategoryIndex is its category's configured index plus one, and the
// configuration keys that category "K" followed by the index.
void ReadKeywords(const XmlNode& metadata, StoryRecord& story) {
    for (const XmlNode& keyword : metadata.SelectNodes("Keywords/Keyword")) {
        const std::string index = keyword.Attribute("CategoryIndex");
        if (!IsNumeric(index)) continue;
        const std::int64_t category = std::int64_t{ParseLeadingInteger(index)} - 1;
        story.keywords.push_back({"K" + std::to_string(category), keyword.Text()});
    }
}

}  // namespace

void ReadStoryMetadata(const XmlNode& metadata, const Configuration& configuration,
                       StoryRecord& story) {
    ReadIdentityAndDates(metadata, story);
    ReadClassification(metadata, story);
    ReadDates(metadata, story);
    ReadTaxonomyTopics(metadata, story);
    ReadKeywords(metadata, story);
    ReadChoices(metadata, configuration, story);
}

void ReadStoryLogs(const XmlNode& root, const Configuration& configuration, StoryRecord& story) {
    if (!configuration.ftpTransmission.LogsEnabled) return;
    for (const XmlNode& log : root.SelectNodes("Logs/Log")) {
        std::string text = log.Text();
        if (text.empty()) continue;
        story.logs.push_back({std::move(text), log.Attribute("Type")});
    }
}

}  // namespace tessarin
