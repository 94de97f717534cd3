#include "search/story_row.h"

#include <cstdio>
#include <string_view>

#include "common/number_parse.h"
#include "common/xml_document.h"
#include "metadata/date_text.h"
#include "text/styled_text_case.h"

namespace tessarin {
namespace {

std::string TextOf(const XmlNode& parent, std::string_view element) {
    return parent.SelectSingleNode(element).Text();
}

std::string FirstNonEmpty(std::string first, std::string second) {
    return first.empty() ? std::move(second) : std::move(first);
}

// The publication date in a form that sorts: yyyymmdd for a date in the user's short date
// form, the date's label for a story dated "0", and any other text as it stands.
std::string SortablePublicationDate(const XmlNode& metadata) {
    const XmlNode date = metadata.SelectSingleNode("PublicationDate");
    const std::string text = date.Text();
    if (text == "0") return date.Attribute("Name");
    const std::optional<LocalDateTime> parsed = ParseShortDate(text);
    if (!parsed) return text;
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04d%02d%02d", parsed->year % 10000, parsed->month,
                  parsed->day);
    return digits;
}

std::int64_t CharactersOfTextBoxes(const XmlNode& body) {
    std::int64_t characters = 0;
    for (const XmlNode& box : body.ChildElements()) {
        if (box.Name().starts_with("TextBox"))
            characters += ParseLeadingInteger(box.Attribute("CharCount"));
    }
    return characters;
}

// UpperCaseText over text that the parser gave, which is always well-formed UTF-8: runs of
// ASCII are upper-cased in place, and only the runs of other characters (whose bytes are all
// above 0x7F, whole characters) go through the full conversion. Most of a story is ASCII.
std::string UpperCaseParsedText(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80) {
                const char byte = text[end++];
                upper += byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
            }
        } else {
            while (end < text.size() && static_cast<unsigned char>(text[end]) >= 0x80)
                ++end;
            upper += UpperCaseText(text.substr(at, end - at));
        }
        at = end;
    }
    return upper;
}

ScopeTexts UpperCased(const ScopeTexts& texts) {
    const std::string_view all = texts.text;
    ScopeTexts upper;
    upper.text = UpperCaseParsedText(all.substr(0, texts.metadataEnd));
    upper.metadataEnd = static_cast<std::uint32_t>(upper.text.size());
    upper.text +=
        UpperCaseParsedText(all.substr(texts.metadataEnd, texts.bodyEnd - texts.metadataEnd));
    upper.bodyEnd = static_cast<std::uint32_t>(upper.text.size());
    upper.text += UpperCaseParsedText(all.substr(texts.bodyEnd));
    return upper;
}

bool IsBackupName(const std::filesystem::path& file) {
    std::string extension = file.extension().string();
    return UpperCaseText(extension) == ".BML";
}

}  // namespace

StoryRow PlainFileRow(const std::filesystem::path& file) {
    StoryRow row;
    row.name = file.filename().string();
    row.directory = file.parent_path().string();
    row.backup = IsBackupName(file);
    return row;
}

std::optional<StoryExtract> ExtractStory(const std::filesystem::path& file) {
    XmlDocument document;
    if (!document.LoadFile(file)) return std::nullopt;
    const XmlNode story = document.DocumentElement();
    const XmlNode metadata = story.SelectSingleNode("Metadata");
    const XmlNode body = story.SelectSingleNode("Body");

    StoryExtract extract;
    StoryRow& row = extract.row;
    row = PlainFileRow(file);
    row.creationDate = TextOf(metadata, "CreationDate");
    row.creationTime = TextOf(metadata, "CreationTime");
    row.lastSaveDate = TextOf(metadata, "LastSaveDate");
    row.lastSaveTime = TextOf(metadata, "LastSaveTime");
    row.lastSaveAuthor = TextOf(metadata, "LastSaveAuthor");
    row.characters = CharactersOfTextBoxes(body);
    row.publication = TextOf(metadata, "Publication");
    row.classification = TextOf(metadata, "Classification");
    row.section =
        FirstNonEmpty(TextOf(metadata, "SectionGeneral"), TextOf(metadata, "SectionLocal"));
    row.subSection =
        FirstNonEmpty(TextOf(metadata, "SubSectionGeneral"), TextOf(metadata, "SubSectionLocal"));
    row.publicationDate = SortablePublicationDate(metadata);
    row.form = TextOf(metadata, "Form");
    row.images = static_cast<std::int32_t>(story.SelectNodes("Images/ImageBag/Image").size());

    ScopeTexts& texts = extract.texts;
    texts.text = metadata.Text();
    texts.metadataEnd = static_cast<std::uint32_t>(texts.text.size());
    texts.text += body.Text();
    texts.bodyEnd = static_cast<std::uint32_t>(texts.text.size());
    for (const XmlNode& image : story.SelectNodes("Images/ImageBag")) {
        texts.text += TextOf(image, "Caption");
        texts.text += TextOf(image, "Credit");
        texts.text += TextOf(image, "IPTCKeywords");
    }
    extract.upperTexts = UpperCased(texts);
    return extract;
}

}  // namespace tessarin
