#include "export/export_milenium.h"

#include <optional>
#include <utility>

#include "common/date_format.h"
#include "common/reading_idiom.h"
#include "common/windows1252.h"
#include "export/newsml_box_markup.h"
#include "export/newsml_pictures.h"
#include "export/tagged_story_parts.h"
#include "metadata/date_text.h"

namespace tessarin {
namespace {

// CR LF, then the element with its content.
std::string Element(const std::string& name, std::string_view content) {
    return "\r\n<" + name + ">" + std::string(content) + "</" + name + ">";
}

std::string Paragraph(std::string_view text) {
    return "<P>" + std::string(text) + "</P>";
}

// The section path: the sections and sub-sections that the story has, joined by "/".
std::string SectionPath(const XmlNode& metadata) {
    std::string path;
    for (const std::string_view name :
         {"SectionGeneral", "SubSectionGeneral", "SectionLocal", "SubSectionLocal"}) {
        const XmlNode node = metadata.SelectSingleNode(name);
        if (!node) continue;
        if (!path.empty()) path += "/";
        path += node.Text();
    }
    return path;
}

// The text of the first of two elements that exists; empty when neither does.
std::string FirstPresentText(const XmlNode& metadata, std::string_view first,
                             std::string_view second) {
    const XmlNode node = metadata.SelectSingleNode(first);
    return node ? node.Text() : ChildText(metadata, second);
}

// Level 2 takes the general section (else the general sub-section), 3 the local ones, any
// other level none.
std::string SectionValue(const XmlNode& metadata, const MileniumExportSettings& settings) {
    switch (NumberOr(settings.Level, 2)) {
        case 2:
            return FirstPresentText(metadata, "SectionGeneral", "SubSectionGeneral");
        case 3:
            return FirstPresentText(metadata, "SectionLocal", "SubSectionLocal");
        default:
            return {};
    }
}

// The publication date plus the configured days (15 by default), in the short date form. A
// story without a publication date, or with one that is no date (the "0" of a story
// without date), counts from today.
std::string ExpirationDate(const XmlNode& metadata, const MileniumExportSettings& settings,
                           const LocalDateTime& now) {
    const XmlNode date = metadata.SelectSingleNode("PublicationDate");
    const std::optional<LocalDateTime> publication =
        date ? ParseShortDate(date.Text()) : std::nullopt;
    return FormatShortDate(
        AddDays(publication.value_or(now), NumberOr(settings.AddToPublicationDate, 15)));
}

std::string MileniumBoxText(std::string_view markup) {
    std::string text(markup);
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"<p>", ""},
        {"</p>", ""},
        {"<tab/>", "\t"},
        {"<p/><inter1>", "<inter1>"},
        {"<p/></inter1>", "</inter1>"},
        {"<inter1>", "<INTER>"},
        {"</inter1>", "</INTER>"},
        {"<p/>", "</P><P>"},
        {"<b>", "<B>"},
        {"</b>", "</B>"},
        {"<i>", "<I>"},
        {"</i>", "</I>"},
        {"<u>", "<U>"},
        {"</u>", "</U>"},
        {"<sup>", "<SUP>"},
        {"</sup>", "</SUP>"},
        {"<euro/>", "\xE2\x82\xAC"},
        {"<oe/>", "\xC5\x93"},
        {"<OE/>", "\xC5\x92"},
        {"\xC2\xA0", " "},
    };
    for (const auto& [from, to] : rows)
        ReplaceAllInText(text, from, to);
    return text;
}

// One Image element per picture with a name, and one caption element per caption; from the
// second picture on, the count is glued to both names.
std::string PictureElements(const XmlNode& root, const MileniumExportSettings& settings) {
    std::string elements;
    int counter = 0;
    for (const XmlNode& bag : root.SelectNodes("Images/ImageBag")) {
        const std::string suffix = counter > 0 ? std::to_string(counter) : std::string();
        const std::string path =
            PictureNameFromHref(bag.SelectSingleNode("Image").Attribute("href"));
        if (!path.empty()) elements += Element(settings.Image + suffix, path);
        const std::string caption = ChildText(bag, "Caption");
        if (!caption.empty())
            elements += Element(settings.CaptionElement + suffix, Paragraph(caption));
        ++counter;
    }
    return elements;
}

}  // namespace

std::string ComposeMilenium(const XmlDocument& story, std::string_view storyName,
                            const ExportContext& context) {
    const MileniumExportSettings& settings = context.configuration.exportFormats.MileniumInsert;
    const XmlNode root = story.DocumentElement();
    const XmlNode metadata = root.SelectSingleNode("Metadata");
    const XmlNode body = root.SelectSingleNode("Body");

    std::string out = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\" ?>";
    out += "\r\n<" + settings.Publication + ">" + ChildText(metadata, "Publication");
    if (const XmlNode classification = metadata.SelectSingleNode("Classification")) {
        out += "/" + classification.Text();
    }
    const std::string section = SectionValue(metadata, settings);
    if (!section.empty()) out += Element(settings.Section, section);
    out += "\r\n<" + settings.Story + ">";
    out += Element(settings.StoryName, storyName);
    out += Element(settings.ExpirationDate, ExpirationDate(metadata, settings, context.now));
    if (const XmlNode form = metadata.SelectSingleNode("Form")) {
        out += Element(settings.Form, form.Text());
    }
    std::string path = SectionPath(metadata);
    if (!path.empty()) {
        ReplaceAllInText(path, "/", "/#");
        out += Element(settings.Classification, path);
    }
    for (const XmlNode& topic : metadata.SelectNodes("Taxonomy/Topic")) {
        out += Element(settings.Taxonomy, topic.Text());
    }
    if (const XmlNode author = metadata.SelectSingleNode("Author")) {
        out += Element(settings.Author, author.Text());
    }
    for (int index = 0; index < 7; ++index) {
        const XmlNode box = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (!box) continue;
        out += Element(settings.TextBox[index],
                       Paragraph(MileniumBoxText(BoxMarkupOnOneLine(box, index))));
    }
    if (const XmlNode signature = body.SelectSingleNode("Signature")) {
        out += Element(settings.Signature, Paragraph(signature.Text()));
    }
    out += PictureElements(root, settings);
    out += "\r\n</" + settings.Story + ">";
    out += "\r\n</" + settings.Publication + ">";
    return Utf8ToWindows1252(out);
}

void ExportMilenium(ExportState& state, ExportMode mode, const ExportContext& context) {
    BeginExport(state, ExportWriter::Milenium, mode, context);
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(state.SourceStoryPath, context);
    if (!story) return;
    StoreOriginalStoryPath(state, story->metadata);
    WriteExportedFile(state, ComposeMilenium(story->document, state.CurrentUploadNode, context));
}

}  // namespace tessarin
