#include "export/export_nitf.h"

#include <array>
#include <string_view>
#include <vector>

#include "export/newsml_box_markup.h"
#include "export/newsml_pictures.h"
#include "metadata/field_labels.h"
#include "story/story_file_bytes.h"

namespace tessarin {
namespace {

struct Replacement {
    std::string_view from;
    std::string_view to;
};

// The inline tags of a text box in their NITF form, in this order.
constexpr std::array<Replacement, 18> kInlineTags{{
    {"<b>", "<em style=\"bold\">"},
    {"</b>", "</em>"},
    {"<i>", "<em style=\"italics\">"},
    {"</i>", "</em>"},
    {"<u>", "<em style=\"underline\">"},
    {"</u>", "</em>"},
    {"<inter1>", "<em style=\"inter1\">"},
    {"</inter1>", "</em>"},
    {"<inter2>", "<em style=\"inter2\">"},
    {"</inter2>", "</em>"},
    {"<inter3>", "<em style=\"inter3\">"},
    {"</inter3>", "</em>"},
    {"<sup>", "<em style=\"super\">"},
    {"</sup>", "</em>"},
    {"<euro/>", "\u20AC"},
    {"<oe/>", "\u0153"},
    {"<OE/>", "\u0152"},
    {"<tab/>", "\t"},
}};

// The publication data, each as an attribute when its element exists.
struct PubdataAttribute {
    std::string_view element;
    std::string_view attribute;
};
constexpr std::array<PubdataAttribute, 3> kPubdata{{
    {"PublicationDate", " date.publication=\""},
    {"Publication", " name=\""},
    {"PublicationNumber", " number=\""},
}};

std::string_view Tabs(int count) {
    constexpr std::string_view kTabs = "\t\t\t";
    return kTabs.substr(0, static_cast<std::size_t>(count));
}

std::string BlockMarkup(const XmlNode& box, int index) {
    std::string markup = BoxMarkupWithoutFrame(box, index);
    for (const Replacement& row : kInlineTags)
        ReplaceAllInText(markup, row.from, row.to);
    return markup;
}

class NitfComposer {
  public:
    NitfComposer(const XmlDocument& story, const ExportContext& context)
        : context_(context),
          bytes_(context.configuration.general.storiesEncoding == "UTF-8"),
          root_(story.DocumentElement()),
          metadata_(root_.SelectSingleNode("Metadata")),
          body_(root_.SelectSingleNode("Body")) {}

    std::string Compose() {
        Row(0).Markup(R"(<?xml version="1.0" encoding="ISO-8859-1"?>)").EndLine();
        Row(0).Markup("<nitf>").EndLine();
        if (metadata_) Head();
        Row(0).Markup("<body>").EndLine();
        if (body_) BodyHeadAndBlocks();
        for (const XmlNode& bag : root_.SelectNodes("Images/ImageBag"))
            Media(bag);
        Row(1).Markup("</body.content>").EndLine();
        Row(0).Markup("</body>").EndLine();
        Row(0).Markup("</nitf>").EndLine();
        return bytes_.Take();
    }

  private:
    StoryFileBytes& Row(int tabs) { return bytes_.Markup(Tabs(tabs)); }

    void Head() {
        Row(0).Markup("<head>").EndLine();
        const std::vector<XmlNode> topics = metadata_.SelectNodes("Taxonomy/Topic");
        if (!topics.empty()) {
            Row(1).Markup(R"(<tobject tobject.type="news">)").EndLine();
            for (const XmlNode& topic : topics) {
                Row(2).Markup(R"(<tobject.subject tobject.subject.refnum=")");
                bytes_.Raw(topic.Attribute("FormalItem")).Markup(R"(" tobject.subject.detail=")");
                bytes_.Raw(topic.Text()).Markup(R"(" tobject.subject.ipr="IPTC"/>)").EndLine();
            }
            Row(1).Markup("</tobject>").EndLine();
        }
        Row(1).Markup("<docdata>").EndLine();
        Row(2).Markup(R"(<urgency ed-urg="5"/>)").EndLine();
        Row(2).Markup("<doc.copyright holder=\"");
        bytes_.Raw(context_.configuration.exportFormats.NITF.copyriteHolder);
        bytes_.Markup("\"/>").EndLine();
        Row(2).Markup("<doc.rights limitations=\"");
        bytes_.Raw(metadata_.SelectSingleNode("Status").Attribute("FormalItem"));
        bytes_.Markup("\"/>").EndLine();
        const std::vector<XmlNode> keywords = metadata_.SelectNodes("Keywords/Keyword");
        if (!keywords.empty()) {
            Row(2).Markup("<key-list>").EndLine();
            for (const XmlNode& keyword : keywords) {
                Row(3).Markup("<keyword key=\"").Raw(keyword.Text()).Markup("\"/>").EndLine();
            }
            Row(2).Markup("</key-list>").EndLine();
        }
        Row(1).Markup("</docdata>").EndLine();
        Row(1).Markup("<pubdata");
        for (const PubdataAttribute& row : kPubdata) {
            const XmlNode element = metadata_.SelectSingleNode(row.element);
            if (element) bytes_.Markup(row.attribute).Raw(element.Text()).Markup("\"");
        }
        bytes_.Markup("/>").EndLine();
        Row(0).Markup("</head>").EndLine();
    }

    // The headlines are always the fourth and fifth boxes, whatever the form.
    void BodyHeadAndBlocks() {
        Row(1).Markup("<body.head>").EndLine();
        const XmlNode signature = body_.SelectSingleNode("Signature");
        if (signature)
            Row(2).Markup("<byline>").Raw(signature.Text()).Markup("</byline>").EndLine();
        const XmlNode headline = body_.SelectSingleNode("TextBox3");
        const XmlNode subheadline = body_.SelectSingleNode("TextBox4");
        if (headline || subheadline) {
            Row(2).Markup("<hedline>").EndLine();
            if (headline) Row(3).Markup("<hl1>").Raw(headline.Text()).Markup("</hl1>").EndLine();
            if (subheadline) {
                Row(3).Markup("<hl2>").Raw(subheadline.Text()).Markup("</hl2>").EndLine();
            }
            Row(2).Markup("</hedline>").EndLine();
        }
        Row(1).Markup("</body.head>").EndLine();
        Row(1).Markup("<body.content>").EndLine();
        for (int index = 0; index < kTextBoxCount; ++index) {
            const XmlNode box = body_.SelectSingleNode("TextBox" + std::to_string(index));
            if (!box) continue;
            Row(2).Markup("<block style=\"");
            bytes_.Raw(LabelCaption(context_.window, "lblTextBox" + std::to_string(index)));
            bytes_.Markup("\">").EndLine();
            Row(0).Raw(BlockMarkup(box, index)).EndLine();
            Row(2).Markup("</block>").EndLine();
        }
    }

    void Media(const XmlNode& bag) {
        const std::string name =
            PictureNameFromHref(bag.SelectSingleNode("Image").Attribute("href"));
        const std::string caption = bag.SelectSingleNode("Caption").Text();
        const std::string credit = bag.SelectSingleNode("Credit").Text();
        Row(2).Markup(R"(<media media-type="image">)").EndLine();
        if (!name.empty()) {
            const std::string& folder = context_.configuration.workflow.ExportImagesDirectory;
            Row(3).Markup(R"(<media-reference mime-type="image/jpeg" source=")");
            bytes_.Final(FileUrl(bytes_.EscapedBytes(folder + "/" + name))).Markup("\"/>");
            bytes_.EndLine();
        }
        if (!caption.empty()) {
            Row(3).Markup("<media-caption>").Raw(caption).Markup("</media-caption>").EndLine();
        }
        if (!credit.empty()) {
            Row(3).Markup("<media-producer>").Raw(credit).Markup("</media-producer>").EndLine();
        }
        Row(2).Markup("</media>").EndLine();
    }

    const ExportContext& context_;
    StoryFileBytes bytes_;
    XmlNode root_;
    XmlNode metadata_;
    XmlNode body_;
};

}  // namespace

std::string ComposeNITF(const XmlDocument& story, const ExportContext& context) {
    return NitfComposer(story, context).Compose();
}

void ExportNITF(ExportState& state, ExportMode mode, const ExportContext& context) {
    BeginExport(state, ExportWriter::NITF, mode, context);
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(state.SourceStoryPath, context);
    if (!story) return;
    StoreOriginalStoryPath(state, story->metadata);
    WriteExportedFile(state, ComposeNITF(story->document, context));
}

}  // namespace tessarin
