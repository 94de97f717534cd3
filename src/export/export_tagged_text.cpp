#include "export/export_tagged_text.h"

#include <optional>
#include <string_view>

#include "common/windows1252.h"
#include "export/newsml_box_markup.h"

namespace tessarin {
namespace {

constexpr std::string_view kCrLf = "\r\n";

// The first style row of the table with that key.
const TaggedTextStyle* FindStyle(const TaggedTextExportSettings& settings, std::string_view key) {
    for (const TaggedTextStyle& style : settings.styles) {
        if (style.StyleKey == key) return &style;
    }
    return nullptr;
}

// The mark of the style with that key; empty when the table has none.
std::string MarkOf(TaggedTextLayout layout, const TaggedTextExportSettings& settings,
                   const std::string& key) {
    const TaggedTextStyle* style = FindStyle(settings, key);
    return style ? ParagraphStyleMark(layout, style->StyleName) : std::string();
}

bool BoxBreakOf(const TaggedTextExportSettings& settings, std::string_view formName) {
    for (const TaggedTextForm& form : settings.forms) {
        if (form.FormName == formName) return form.FormBoxBreak;
    }
    return false;
}

// The head of the file and the style definitions of the form. The keys are compared on as
// many first characters as the form's name has, so a form "News" also takes the styles of
// "News2", and a story without a form takes every definition.
void AppendHead(std::string& out, TaggedTextLayout layout, const TaggedTextExportSettings& settings,
                std::string_view formName) {
    if (layout == TaggedTextLayout::InDesign) out += "<ANSI-WIN>\r\n";
    out += settings.Prologue;
    out += kCrLf;
    for (const TaggedTextStyle& style : settings.styles) {
        if (style.StyleKey.starts_with(formName) && !style.StyleDefinition.empty()) {
            out += style.StyleDefinition;
            out += kCrLf;
        }
    }
}

// Replaces from by to in the whole text; nothing to look for when from is empty.
void ReplaceIfAny(std::string& text, const std::string& from, const std::string& to) {
    if (!from.empty()) ReplaceAllInText(text, from, to);
}

void AppendTextBoxes(std::string& out, TaggedTextLayout layout,
                     const TaggedTextExportSettings& settings, const XmlNode& body,
                     const std::string& formName, bool boxBreak) {
    for (int index = 0; index < 7; ++index) {
        const XmlNode box = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (!box) continue;
        TaggedTextMarks marks;
        marks.box = MarkOf(layout, settings, formName + "_" + std::to_string(index));
        for (int inter = 0; inter < 3; ++inter) {
            marks.inter[inter] =
                MarkOf(layout, settings, formName + "_Inter" + std::to_string(inter + 1));
        }
        std::string markup = BoxMarkupWithoutFrame(box, index);
        RemoveLineEndsAndTabs(markup);
        out += TaggedBoxText(layout, markup, marks);
        if (boxBreak && index < 6) out += "<cNextXChars:Box>";
        out += kCrLf;
        if (layout == TaggedTextLayout::XPress) {
            // A paragraph style directly followed by an intertitle style is dropped, all
            // over the output so far. An intertitle the form does not define has an empty
            // mark, and then every occurrence of the box's mark goes.
            for (const std::string& interMark : marks.inter) {
                ReplaceIfAny(out, marks.box + interMark, interMark);
            }
        }
    }
}

// The style's mark, the text and CR LF, when the table has a style with that key.
void AppendStyledLine(std::string& out, TaggedTextLayout layout,
                      const TaggedTextExportSettings& settings, const std::string& key,
                      const std::string& text) {
    if (const TaggedTextStyle* style = FindStyle(settings, key)) {
        out += ParagraphStyleMark(layout, style->StyleName);
        out += text;
        out += kCrLf;
    }
}

}  // namespace

std::string ComposeTaggedText(TaggedTextLayout layout, const XmlDocument& story,
                              const TaggedTextExportSettings& settings) {
    const XmlNode root = story.DocumentElement();
    const XmlNode metadata = root.SelectSingleNode("Metadata");
    const XmlNode body = root.SelectSingleNode("Body");
    std::string out;
    std::string formName;
    bool boxBreak = false;
    if (metadata) {
        formName = metadata.SelectSingleNode("Form").Text();
        boxBreak = layout == TaggedTextLayout::InDesign && BoxBreakOf(settings, formName);
        AppendHead(out, layout, settings, formName);
    }
    if (body) AppendTextBoxes(out, layout, settings, body, formName, boxBreak);

    const std::string signature = body.SelectSingleNode("Signature").Text();
    if (!signature.empty())
        AppendStyledLine(out, layout, settings, formName + "_Signature", signature);

    for (const XmlNode& bag : root.SelectNodes("Images/ImageBag")) {
        const std::string caption = bag.SelectSingleNode("Caption").Text();
        if (!caption.empty())
            AppendStyledLine(out, layout, settings, formName + "_Caption", caption);
        const std::string credit = bag.SelectSingleNode("Credit").Text();
        if (!credit.empty()) AppendStyledLine(out, layout, settings, formName + "_Credit", credit);
    }
    return Utf8ToWindows1252(out);
}

namespace {

// The frame around the composition: the delivery folders are made in layout mode only, and
// only for a story with Metadata, which also gives OriginalStoryPath.
void RunTaggedTextExport(TaggedTextLayout layout, ExportWriter writer, ExportState& state,
                         ExportMode mode, const ExportContext& context) {
    const std::string name = BeginExport(state, writer, mode, context);
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(state.SourceStoryPath, context);
    if (!story) return;
    if (story->metadata) {
        StoreOriginalStoryPath(state, story->metadata);
        if (MakesDeliveryFolders(writer, mode)) {
            BuildDeliveryFolders(state, story->metadata, context);
        }
    }
    const ExportSettings& settings = context.configuration.exportFormats;
    const TaggedTextExportSettings& tables =
        layout == TaggedTextLayout::InDesign ? settings.InDesign : settings.XPress;
    WriteExportedFile(state, ComposeTaggedText(layout, story->document, tables));
    FinishTargetPath(state, mode, context, name);
}

}  // namespace

void ExportInDesign(ExportState& state, ExportMode mode, const ExportContext& context) {
    RunTaggedTextExport(TaggedTextLayout::InDesign, ExportWriter::InDesign, state, mode, context);
}

void ExportXPress(ExportState& state, ExportMode mode, const ExportContext& context) {
    RunTaggedTextExport(TaggedTextLayout::XPress, ExportWriter::XPress, state, mode, context);
}

}  // namespace tessarin
