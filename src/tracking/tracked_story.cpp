#include "tracking/tracked_story.h"

#include <algorithm>

#include "common/xml_document.h"
#include "config/text_trim.h"
#include "metadata/date_text.h"
#include "story/story_href.h"
#include "story/story_plain_text.h"

namespace tessarin {
namespace {

std::string ChildText(const XmlNode& metadata, std::string_view name) {
    return metadata.SelectSingleNode(name).Text();
}

std::string GeneralElseLocal(const XmlNode& metadata, std::string_view general,
                             std::string_view local) {
    std::string text = ChildText(metadata, general);
    return text.empty() ? ChildText(metadata, local) : text;
}

// The title on one line, blanks around it trimmed.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return std::string(TrimWhitespace(text));
}

std::vector<std::string> BareNames(const XmlNode& root, std::string_view path) {
    std::vector<std::string> names;
    for (const XmlNode& element : root.SelectNodes(path)) {
        std::string name = PathFromStoryHref(element.Attribute("href")).filename().string();
        if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
}

}  // namespace

std::optional<TrackedStory> ReadTrackedStory(std::string_view bytes, int titleBox, bool withText) {
    XmlDocument document;
    if (!document.LoadBytes(bytes)) return std::nullopt;
    const XmlNode root = document.DocumentElement();
    const XmlNode metadata = root.SelectSingleNode("Metadata");
    TrackedStory story;
    story.publication = ChildText(metadata, "Publication");
    story.classification = ChildText(metadata, "Classification");
    story.section = GeneralElseLocal(metadata, "SectionGeneral", "SectionLocal");
    story.subsection = GeneralElseLocal(metadata, "SubSectionGeneral", "SubSectionLocal");
    story.form = ChildText(metadata, "Form");
    story.author = ChildText(metadata, "Author");
    story.lastSaveAuthor = ChildText(metadata, "LastSaveAuthor");
    const XmlNode date = metadata.SelectSingleNode("PublicationDate");
    story.dateLabel = date.Attribute("Name");
    if (const std::optional<LocalDateTime> day = ParseShortDate(date.Text())) {
        story.dateNumber = day->year * 10000 + day->month * 100 + day->day;
        story.longDate = FormatLongDate(*day);
    }
    const std::vector<XmlNode> logs = root.SelectNodes("Logs/Log");
    story.layout = !logs.empty() && logs.back().Attribute("Type") == "L";
    story.images = BareNames(root, "Images/ImageBag/Image");
    story.files = BareNames(root, "Files/FileBag/File");
    // The notes go first, out of the title as out of the text.
    for (XmlNode note : root.SelectNodes("Body//note"))
        note.Remove();
    if (withText) story.text = StoryPlainText(root, PlainTextTabs::AsTab);
    story.title = OneLine(root.SelectSingleNode("Body/TextBox" + std::to_string(titleBox)).Text());
    return story;
}

}  // namespace tessarin
