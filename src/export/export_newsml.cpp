#include "export/export_newsml.h"

#include <array>
#include <string_view>
#include <vector>

#include "common/date_format.h"
#include "export/newsml_body_text.h"
#include "export/newsml_box_markup.h"
#include "export/newsml_pictures.h"
#include "metadata/field_labels.h"
#include "story/story_file_bytes.h"

namespace tessarin {
namespace {

constexpr int kSecondsPerDay = 24 * 60 * 60;
constexpr std::string_view kCopyrightSign = "\u00A9";

// A Metadata element written as a publishing property when it exists, with the caption of
// its field's label.
struct PropertyRow {
    std::string_view element;
    std::string_view label;
};

constexpr std::array<PropertyRow, 10> kOptionalProperties{{
    {"Classification", "lblClassification"},
    {"SectionGeneral", "lblSectionGeneral"},
    {"SubSectionGeneral", "lblSubSectionGeneral"},
    {"SectionLocal", "lblSectionLocal"},
    {"SubSectionLocal", "lblSubSectionLocal"},
    {"CodeLocal1", "lblCodeLocal1"},
    {"CodeLocal2", "lblCodeLocal2"},
    {"PublicationDate", "lblPublicationDate"},
    {"PublicationNumber", "lblPublicationNumber"},
    {"Form", "lblStoryTypes"},
}};

// The sections a story is of interest to, in this order.
constexpr std::array<std::string_view, 5> kInterestElements{
    "Classification", "SectionGeneral", "SubSectionGeneral", "SectionLocal", "SubSectionLocal"};

// The name label is the most precise section that is filled.
constexpr std::array<std::string_view, 4> kNameLabelElements{"SubSectionLocal", "SubSectionGeneral",
                                                             "SectionLocal", "SectionGeneral"};

std::string_view Tabs(int count) {
    constexpr std::string_view kTabs = "\t\t\t\t\t\t\t";
    return kTabs.substr(0, static_cast<std::size_t>(count));
}

std::string WithoutColons(std::string text) {
    ReplaceAllInText(text, ":", "");
    return text;
}

// An attribute's value, or the fallback when the element or the attribute is missing.
std::string AttributeOr(const XmlNode& element, std::string_view name, std::string_view fallback) {
    return element.HasAttribute(name) ? element.Attribute(name) : std::string(fallback);
}

// The text of the first of `names` under parent that is not empty.
std::string FirstFilled(const XmlNode& parent, const auto& names) {
    for (std::string_view name : names) {
        std::string text = parent.SelectSingleNode(name).Text();
        if (!text.empty()) return text;
    }
    return {};
}

// "Subject" for a code ending in "000000", "SubjectMatter" for one ending in "000",
// "SubjectDetail" otherwise.
std::string_view SubjectElement(std::string_view code) {
    if (code.ends_with("000000")) return "Subject";
    if (code.ends_with("000")) return "SubjectMatter";
    return "SubjectDetail";
}

class NewsMLComposer {
  public:
    NewsMLComposer(const XmlDocument& story, const ExportContext& context, int bias)
        : context_(context),
          settings_(context.configuration.exportFormats.NewsML),
          utf8_(context.configuration.general.storiesEncoding == "UTF-8"),
          bytes_(utf8_),
          root_(story.DocumentElement()),
          metadata_(root_.SelectSingleNode("Metadata")),
          body_(root_.SelectSingleNode("Body")),
          keywords_(metadata_.SelectNodes("Keywords/Keyword")),
          topics_(metadata_.SelectNodes("Taxonomy/Topic")),
          author_(metadata_.SelectSingleNode("Author").Text()),
          dateStamp_(FormatDate(context.now, "yyyyMMdd", DateLanguage::English)),
          moment_(dateStamp_ + "T" + UtcTimeText(context.now, bias) + "Z"),
          newsItemId_(context.configuration.identity.initials + "-" +
                      WithoutColons(FormatTimeHourMinuteSecond(context.now))) {}

    std::string Compose() {
        bytes_
            .Markup(utf8_ ? R"(<?xml version="1.0" encoding="UTF-8"?>)"
                          : R"(<?xml version="1.0" encoding="ISO-8859-1"?>)")
            .EndLine();
        Row(0).Markup("<NewsML>").EndLine();
        Row(1).Markup("<Catalog Href=\"").Escaped(settings_.Catalog).Markup("\"/>").EndLine();
        Row(1).Markup("<NewsEnvelope>").EndLine();
        Row(2).Markup("<DateAndTime>").Markup(moment_).Markup("</DateAndTime>").EndLine();
        Row(1).Markup("</NewsEnvelope>").EndLine();
        Row(1).Markup("<NewsItem>").EndLine();
        Identification();
        NewsManagement();
        Row(2).Markup("<NewsComponent>").EndLine();
        TopicSet();
        NewsLines();
        AdministrativeMetadata();
        DescriptiveMetadata();
        PublishingMetadata();
        BodyComponent();
        const std::vector<XmlNode> bags = root_.SelectNodes("Images/ImageBag");
        for (std::size_t n = 0; n < bags.size(); ++n) {
            PhotoComponent(bags[n], n);
        }
        Row(2).Markup("</NewsComponent>").EndLine();
        Row(1).Markup("</NewsItem>").EndLine();
        Row(0).Markup("</NewsML>").EndLine();
        return bytes_.Take();
    }

  private:
    StoryFileBytes& Row(int tabs) { return bytes_.Markup(Tabs(tabs)); }

    void Identification() {
        Row(2).Markup("<Identification>").EndLine();
        Row(3).Markup("<NewsIdentifier>").EndLine();
        Row(4).Markup("<ProviderId>").Escaped(settings_.ProviderId).Markup("</ProviderId>");
        bytes_.EndLine();
        Row(4).Markup("<DateId>").Markup(dateStamp_).Markup("</DateId>").EndLine();
        Row(4).Markup("<NewsItemId>").Raw(newsItemId_).Markup("</NewsItemId>").EndLine();
        Row(4).Markup(R"(<RevisionId PreviousRevision="0" Update="N">1</RevisionId>)").EndLine();
        Row(4).Markup("<PublicIdentifier>urn:newsml:").Escaped(settings_.ProviderId);
        bytes_.Markup(":").Markup(dateStamp_).Markup(":").Raw(newsItemId_);
        bytes_.Markup(":1</PublicIdentifier>").EndLine();
        Row(3).Markup("</NewsIdentifier>").EndLine();
        const std::string nameLabel = FirstFilled(metadata_, kNameLabelElements);
        if (metadata_ && !nameLabel.empty()) {
            Row(3).Markup("<NameLabel>").Escaped(nameLabel).Markup("</NameLabel>").EndLine();
        }
        Row(2).Markup("</Identification>").EndLine();
    }

    void NewsManagement() {
        Row(2).Markup("<NewsManagement>").EndLine();
        Row(3).Markup(R"(<NewsItemType FormalName="News"/>)").EndLine();
        Row(3).Markup("<FirstCreated>").Markup(moment_).Markup("</FirstCreated>").EndLine();
        Row(3).Markup("<ThisRevisionCreated>").Markup(moment_).Markup("</ThisRevisionCreated>");
        bytes_.EndLine();
        const std::string status =
            AttributeOr(metadata_.SelectSingleNode("Status"), "FormalItem", "Usable");
        Row(3).Markup("<Status FormalName=\"").Escaped(status).Markup("\"/>").EndLine();
        Row(2).Markup("</NewsManagement>").EndLine();
    }

    void TopicSet() {
        if (keywords_.empty()) return;
        const TreeModel* tree = context_.window.FindTree("treeKeywords");
        const std::string rootText =
            tree && !tree->Empty() ? tree->Roots().front().text : std::string();
        Row(3).Markup(R"(<TopicSet Duid="LocalTopicSet" FormalName=")").Escaped(rootText);
        bytes_.Markup("\">").EndLine();
        for (std::size_t n = 0; n < keywords_.size(); ++n) {
            Row(4).Markup("<Topic Duid=\"topic").Markup(std::to_string(n + 1));
            bytes_.Markup("\">").EndLine();
            Row(5)
                .Markup("<TopicType FormalName=\"")
                .Escaped(keywords_[n].Attribute("CategoryName"));
            bytes_.Markup("\"/>").EndLine();
            Row(5).Markup("<FormalName>").Escaped(keywords_[n].Text()).Markup("</FormalName>");
            bytes_.EndLine();
            Row(4).Markup("</Topic>").EndLine();
        }
        Row(3).Markup("</TopicSet>").EndLine();
    }

    void NewsLines() {
        Row(3).Markup("<NewsLines>").EndLine();
        for (int index = 0; index <= 5; ++index) {
            const XmlNode box = body_.SelectSingleNode("TextBox" + std::to_string(index));
            if (!box) continue;
            Row(4).Markup("<HeadLine>").Escaped(box.Text()).Markup("</HeadLine>").EndLine();
            break;
        }
        const XmlNode signature = body_.SelectSingleNode("Signature");
        Row(4).Markup("<ByLine>").Escaped(signature ? signature.Text() : author_);
        bytes_.Markup("</ByLine>").EndLine();
        Row(4).Markup("<CopyrightLine>").Raw(kCopyrightSign).Markup(" ");
        bytes_.Markup(FormatDate(context_.now, "yyyy", DateLanguage::English)).Markup(" ");
        bytes_.Escaped(settings_.Provider).Markup("</CopyrightLine>").EndLine();
        if (!keywords_.empty()) {
            std::string slug = keywords_.front().Text();
            for (std::size_t n = 1; n < keywords_.size(); ++n) {
                slug += "-" + keywords_[n].Text();
            }
            Row(4).Markup("<SlugLine>").Escaped(slug).Markup("</SlugLine>").EndLine();
        }
        Row(3).Markup("</NewsLines>").EndLine();
    }

    void AdministrativeMetadata() {
        Row(3).Markup("<AdministrativeMetadata>").EndLine();
        if (!context_.configuration.general.client.empty()) {
            Row(4).Markup("<Provider>").EndLine();
            Row(5).Markup("<Party FormalName=\"").Escaped(settings_.Provider).Markup("\"/>");
            bytes_.EndLine();
            Row(4).Markup("</Provider>").EndLine();
        }
        Row(4).Markup("<Creator>").EndLine();
        Row(5).Markup("<Party FormalName=\"").Escaped(author_).Markup("\"/>").EndLine();
        Row(4).Markup("</Creator>").EndLine();
        Row(3).Markup("</AdministrativeMetadata>").EndLine();
    }

    void DescriptiveMetadata() {
        if (!metadata_ || (topics_.empty() && keywords_.empty())) return;
        Row(3).Markup("<DescriptiveMetadata>").EndLine();
        Row(4).Markup("<Language FormalName=\"").Raw(settings_.Language).Markup("\"/>").EndLine();
        const std::string genre =
            AttributeOr(metadata_.SelectSingleNode("Genre"), "FormalItem", "Current");
        Row(4).Markup("<Genre FormalName=\"").Escaped(genre).Markup("\"/>").EndLine();
        if (!topics_.empty()) {
            Row(4).Markup("<SubjectCode>").EndLine();
            for (const XmlNode& topic : topics_) {
                const std::string code = topic.Attribute("FormalItem");
                Row(5).Markup("<").Markup(SubjectElement(code));
                bytes_.Markup(R"( Scheme="IptcSubjectCodes" FormalName=")").Raw(code);
                bytes_.Markup("\"/>").EndLine();
            }
            Row(4).Markup("</SubjectCode>").EndLine();
        }
        std::string interest;
        for (std::string_view name : kInterestElements) {
            const XmlNode element = metadata_.SelectSingleNode(name);
            if (element) interest += "--" + element.Text();
        }
        Row(4).Markup("<OfInterestTo FormalName=\"").Escaped(interest).Markup("\"/>").EndLine();
        for (std::size_t n = 1; n <= keywords_.size(); ++n) {
            Row(4).Markup("<TopicOccurrence Topic=\"#topic").Markup(std::to_string(n));
            bytes_.Markup("\"/>").EndLine();
        }
        Row(3).Markup("</DescriptiveMetadata>").EndLine();
    }

    void Property(std::string_view label, const std::string& value) {
        Row(4).Markup("<Property FormalName =\"").Escaped(LabelCaption(context_.window, label));
        bytes_.Markup("\" Value=\"").Escaped(value).Markup("\"/>").EndLine();
    }

    void PublishingMetadata() {
        if (!metadata_) return;
        Row(3).Markup("<Metadata>").EndLine();
        Row(4).Markup(R"(<MetadataType FormalName ="PublishingMetadata"/>)").EndLine();
        Property("lblPublication", metadata_.SelectSingleNode("Publication").Text());
        for (const PropertyRow& row : kOptionalProperties) {
            const XmlNode element = metadata_.SelectSingleNode(row.element);
            if (element) Property(row.label, element.Text());
        }
        Row(3).Markup("</Metadata>").EndLine();
    }

    // Only the seventh text box makes the body: the other boxes are not in the body.
    void BodyComponent() {
        const XmlNode box = body_.SelectSingleNode("TextBox6");
        if (!box) return;
        Row(3).Markup("<NewsComponent>").EndLine();
        Row(4).Markup("<Role FormalName=\"").Escaped(settings_.MappingTextBox[6]);
        bytes_.Markup("\"/>").EndLine();
        Row(4).Markup("<ContentItem>").EndLine();
        Row(5).Markup(R"(<MediaType FormalName="Text"/>)").EndLine();
        Row(5).Markup(R"(<Format FormalName="bcNITF2.5"/>)").EndLine();
        Row(5).Markup("<DataContent>").Final(NewsMLBodyBytes(box, utf8_));
        bytes_.Markup("</DataContent>").EndLine();
        Row(4).Markup("</ContentItem>").EndLine();
        Row(3).Markup("</NewsComponent>").EndLine();
    }

    // Where the picture is for the customer: under the relative folder when one is
    // configured, else a file URL under the absolute one.
    void PictureContentItem(const std::string& name) {
        if (name.empty()) return;
        const bool relative = !settings_.RelativePath.empty();
        std::string folder = relative ? settings_.RelativePath : settings_.ImagesDirectory;
        ReplaceAllInText(folder, "\\", "/");
        const std::string path = bytes_.EscapedBytes(folder + "/" + name);
        Row(5).Markup("<ContentItem Href=\"").Final(relative ? path : FileUrl(path));
        bytes_.Markup("\">").EndLine();
    }

    void PhotoComponent(const XmlNode& bag, std::size_t n) {
        const std::string caption = bag.SelectSingleNode("Caption").Text();
        const std::string credit = bag.SelectSingleNode("Credit").Text();
        const std::string name =
            PictureNameFromHref(bag.SelectSingleNode("Image").Attribute("href"));
        Row(3).Markup("<NewsComponent Duid=\"photo").Markup(std::to_string(n)).Markup("\">");
        bytes_.EndLine();
        if (!caption.empty()) {
            Row(4).Markup("<NewsLines>").EndLine();
            Row(5).Markup("<HeadLine>").Escaped(caption).Markup("</HeadLine>").EndLine();
            Row(4).Markup("</NewsLines>").EndLine();
        }
        Row(4).Markup("<AdministrativeMetadata>").EndLine();
        Row(5).Markup("<Provider>").EndLine();
        Row(6).Markup("<Party FormalName=\"").Escaped(settings_.Provider).Markup("\"/>").EndLine();
        Row(5).Markup("</Provider>").EndLine();
        if (!credit.empty()) {
            Row(5).Markup("<Creator>").EndLine();
            Row(6).Markup("<Party FormalName=\"").Escaped(credit).Markup("\"/>").EndLine();
            Row(5).Markup("</Creator>").EndLine();
        }
        Row(4).Markup("</AdministrativeMetadata>").EndLine();
        if (!caption.empty()) {
            Row(4).Markup("<NewsComponent>").EndLine();
            Row(5).Markup(R"(<Role FormalName="Caption"/>)").EndLine();
            Row(5).Markup("<ContentItem>").EndLine();
            Row(6).Markup(R"(<MediaType FormalName="Text"/>)").EndLine();
            Row(6).Markup(R"(<Format FormalName="bcNITF2.5"/>)").EndLine();
            Row(6).Markup("<DataContent>").EndLine();
            Row(0).Markup("<p>").Escaped(caption).Markup("</p>").EndLine();
            Row(6).Markup("</DataContent>").EndLine();
            Row(5).Markup("</ContentItem>").EndLine();
            Row(4).Markup("</NewsComponent>").EndLine();
        }
        Row(4).Markup("<NewsComponent>").EndLine();
        Row(5).Markup(R"(<Role FormalName="Main"/>)").EndLine();
        PictureContentItem(name);
        Row(6).Markup(R"(<MediaType FormalName="Photo"/>)").EndLine();
        Row(5).Markup("</ContentItem>").EndLine();
        Row(4).Markup("</NewsComponent>").EndLine();
        Row(3).Markup("</NewsComponent>").EndLine();
    }

    const ExportContext& context_;
    const NewsMLExportSettings& settings_;
    bool utf8_;
    StoryFileBytes bytes_;
    XmlNode root_;
    XmlNode metadata_;
    XmlNode body_;
    std::vector<XmlNode> keywords_;
    std::vector<XmlNode> topics_;
    std::string author_;
    std::string dateStamp_;
    std::string moment_;
    std::string newsItemId_;
};

}  // namespace

std::string UtcTimeText(const LocalDateTime& now, int timeZoneBiasMinutes) {
    const int local = now.hour * 3600 + now.minute * 60 + now.second;
    const int utc =
        ((local + timeZoneBiasMinutes * 60) % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
    LocalDateTime shifted = now;
    shifted.hour = utc / 3600;
    shifted.minute = utc / 60 % 60;
    shifted.second = utc % 60;
    return WithoutColons(FormatTimeHourMinuteSecond(shifted));
}

std::string ComposeNewsML(const XmlDocument& story, const ExportContext& context,
                          int timeZoneBiasMinutes) {
    return NewsMLComposer(story, context, timeZoneBiasMinutes).Compose();
}

void ExportNewsML(ExportState& state, ExportMode mode, const ExportContext& context) {
    BeginExport(state, ExportWriter::NewsML, mode, context);
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(state.SourceStoryPath, context);
    if (!story) return;
    StoreOriginalStoryPath(state, story->metadata);
    WriteExportedFile(state, ComposeNewsML(story->document, context, TimeZoneBaseBiasMinutes()));
}

}  // namespace tessarin
