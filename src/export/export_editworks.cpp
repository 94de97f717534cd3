#include "export/export_editworks.h"

#include <optional>
#include <string_view>

#include "common/date_format.h"
#include "common/fold_accents.h"
#include "common/number_parse.h"
#include "common/windows1252.h"
#include "export/newsml_box_markup.h"
#include "export/newsml_pictures.h"
#include "export/tagged_story_parts.h"
#include "metadata/field_labels.h"

namespace tessarin {
namespace {

constexpr std::string_view kCrLf = "\r\n";

// Database path levels are separated by ":", so a "/" of a value becomes one too.
std::string WithColonsForSlashes(std::string text) {
    for (char& c : text) {
        if (c == '/') c = ':';
    }
    return text;
}

// The text of the element converted to path form; nothing when the element is missing.
std::optional<std::string> PathValue(const XmlNode& metadata, std::string_view name) {
    const XmlNode node = metadata.SelectSingleNode(name);
    if (!node) return std::nullopt;
    return WithColonsForSlashes(node.Text());
}

struct SubSections {
    std::optional<std::string> general;  // SubSectionGeneral, in path form
    std::optional<std::string> local;    // SubSectionLocal, in path form: "the" sub-section
};

// The first line, `<&FP"` root, publication and classification, sections, `">`. Only the
// local sub-section obeys IncludeSubSection; the general one is always in the path.
std::string PathLine(const XmlNode& metadata, const EditWorksExportSettings& settings,
                     SubSections& subSections) {
    std::string line = "<&FP\"" + settings.RootDB;
    const std::string publication = PathValue(metadata, "Publication").value_or("");
    const std::string classification = PathValue(metadata, "Classification").value_or("");
    line += ":";
    line += settings.IncludePublication ? publication + ":" + classification : classification;

    std::string section;
    if (const auto general = PathValue(metadata, "SectionGeneral")) section += ":" + *general;
    line += settings.SuffixClassification;
    subSections.general = PathValue(metadata, "SubSectionGeneral");
    if (subSections.general) section += ":" + *subSections.general;
    if (const auto local = PathValue(metadata, "SectionLocal")) {
        section += ":" + settings.PrefixSection + *local;
    }
    subSections.local = PathValue(metadata, "SubSectionLocal");
    if (subSections.local && settings.IncludeSubSection) section += ":" + *subSections.local;

    line += section;
    if (!line.ends_with(':')) line += ':';
    line += "\">";
    line += kCrLf;
    return settings.AccentsInPath ? line : FoldAccents(line);
}

// `<&xf(` code `,"` text `")>` CR LF.
std::string FieldLine(const std::string& code, const std::string& text) {
    return "<&xf(" + code + ",\"" + text + "\")>" + std::string(kCrLf);
}

void AppendFieldLines(std::string& out, const XmlNode& metadata,
                      const EditWorksExportSettings& settings) {
    for (const XmlNode& topic : metadata.SelectNodes("Taxonomy/Topic")) {
        if (IsNumeric(topic.Attribute("FormalItem")) && !settings.xfTaxonomy.empty()) {
            out += FieldLine(settings.xfTaxonomy, topic.Text());
        }
    }
    for (const XmlNode& keyword : metadata.SelectNodes("Keywords/Keyword")) {
        const std::string index = keyword.Attribute("CategoryIndex");
        if (!IsNumeric(index)) continue;
        const double category = ParseLeadingNumber(index);
        if (category < 1 || category > 4 || category != static_cast<int>(category)) continue;
        const std::string& code = settings.xfKeywords[static_cast<int>(category) - 1];
        if (!code.empty()) out += FieldLine(code, keyword.Text());
    }
}

std::string CommentLine(const EditWorksExportSettings& settings, const ExportContext& context,
                        const std::string& author) {
    return settings.Comment + context.configuration.messages.Message("StoryLabel") + " Tessarin " +
           context.programVersion + " - " + author + " - " +
           FormatDate(context.now, "dddd dd/MM/yyyy", CurrentDateLanguage()) + ", " +
           FormatTimeHourMinute(context.now) + std::string(kCrLf);
}

// One line per sub-section that has a value, general first, each under its label.
std::string SubSectionCommentLines(const SubSections& subSections, const ExportContext& context) {
    std::string lines;
    const auto append = [&](const std::optional<std::string>& value, std::string_view label) {
        if (value && !value->empty()) {
            lines += LabelCaption(context.window, label) + ": " + *value + std::string(kCrLf);
        }
    };
    append(subSections.general, "lblSubSectionGeneral");
    append(subSections.local, "lblSubSectionLocal");
    return lines;
}

// first part, counter, second part, text, CR LF: when the text and both parts are there.
std::string PictureTextLine(const CutText& element, int counter, const std::string& text) {
    if (text.empty() || element.first.empty() || element.second.empty()) return {};
    return element.first + std::to_string(counter) + element.second + text + std::string(kCrLf);
}

std::string PictureLines(const XmlNode& root, const EditWorksExportSettings& settings) {
    std::string lines;
    int counter = 1;
    for (const XmlNode& bag : root.SelectNodes("Images/ImageBag")) {
        const std::string path =
            PictureNameFromHref(bag.SelectSingleNode("Image").Attribute("href"));
        lines += "Photo " + std::to_string(counter) + ": " + path + std::string(kCrLf);
        lines += PictureTextLine(settings.CaptionElement, counter, ChildText(bag, "Caption"));
        lines += PictureTextLine(settings.CreditElement, counter, ChildText(bag, "Credit"));
        ++counter;
    }
    return lines;
}

// The box's markup in QTrans form: bold, italic, underline and superscript are switches,
// so an opening and a closing tag give the same switch.
std::string QTransBoxText(std::string_view markup, const EditWorksExportSettings& settings) {
    std::string text(markup);
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"<p>", ""},
        {"<p/>", kCrLf},
        {"<tab/>", "\t"},
        {"<b>", "<B>"},
        {"</b>", "<B>"},
        {"<i>", "<I>"},
        {"</i>", "<I>"},
        {"<u>", "<U>"},
        {"</u>", "<U>"},
        {"<inter1>", settings.StyleInter1},
        {"<inter2>", settings.StyleInter2},
        {"<inter3>", settings.StyleInter3},
        {"</inter1>", settings.StyleText},
        {"</inter2>", settings.StyleText},
        {"</inter3>", settings.StyleText},
        {"<sup>", "<V>"},
        {"</sup>", "<V>"},
        {"<euro/>", "\xE2\x82\xAC"},
        {"<oe/>", "\xC5\x93"},
        {"<OE/>", "\xC5\x92"},
        {"&gt;", "<\\>>"},
        {"&lt;", "<\\<>"},
        {"\xC2\xA0", "<\\!p>"},
    };
    for (const auto& [from, to] : rows)
        ReplaceAllInText(text, from, to);
    return text;
}

}  // namespace

std::string ComposeEditWorks(const XmlDocument& story, const ExportContext& context) {
    const EditWorksExportSettings& settings = context.configuration.exportFormats.EditWorksQTrans;
    const XmlNode root = story.DocumentElement();
    const XmlNode metadata = root.SelectSingleNode("Metadata");
    const XmlNode body = root.SelectSingleNode("Body");

    SubSections subSections;
    std::string out = PathLine(metadata, settings, subSections);
    if (const XmlNode form = metadata.SelectSingleNode("Form")) {
        out += "<&sh\"" + form.Text() + "\">" + std::string(kCrLf);
    }
    AppendFieldLines(out, metadata, settings);
    out += CommentLine(settings, context, ChildText(metadata, "Author"));
    if (settings.SubSectionInComment) out += SubSectionCommentLines(subSections, context);
    const std::string subSection = subSections.local.value_or("");
    if (!settings.SubSectionAsTextBox.empty() && !subSection.empty()) {
        out += settings.SubSectionAsTextBox + subSection + std::string(kCrLf);
    }

    for (int index = 0; index < 7; ++index) {
        const XmlNode box = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (!box) continue;
        out += settings.TextBox[index];
        out += QTransBoxText(BoxMarkupOnOneLine(box, index), settings);
        out += kCrLf;
    }
    if (const XmlNode signature = body.SelectSingleNode("Signature")) {
        out += settings.StyleSignature + signature.Text() + settings.StyleText + std::string(kCrLf);
    }
    out += PictureLines(root, settings);
    return Utf8ToWindows1252(out);
}

void ExportEditWorks(ExportState& state, ExportMode mode, const ExportContext& context) {
    BeginExport(state, ExportWriter::EditWorks, mode, context);
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(state.SourceStoryPath, context);
    if (!story) return;
    StoreOriginalStoryPath(state, story->metadata);
    WriteExportedFile(state, ComposeEditWorks(story->document, context));
}

}  // namespace tessarin
