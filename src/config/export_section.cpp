#include "config/export_section.h"

#include <string>

#include "common/reading_idiom.h"

namespace tessarin {

namespace {

std::string ChildText(const XmlNode& parent, std::string_view name) {
    return parent.SelectSingleNode(name).Text();
}

NewsMLExportSettings ReadNewsML(const XmlNode& section) {
    NewsMLExportSettings settings;
    if (!section) return settings;
    settings.TextML = FlagDefaultFalse(section.Attribute("TextML"));
    settings.Catalog =
        TextOr(ChildText(section, "Catalog"), "http://www.afp.com/dtd/AFPCatalog.xml");
    settings.ProviderId = TextOr(ChildText(section, "ProviderId"), "tessarin.org");
    settings.Provider = TextOr(ChildText(section, "Provider"), "Velmora");
    settings.Language = TextOr(ChildText(section, "Language"), "en");
    const XmlNode images = section.SelectSingleNode("ImagesDirectory");
    settings.ImagesDirectory = images.Text();
    settings.RelativePath = images.Attribute("RelativePath");
    for (std::size_t box = 0; box < settings.MappingTextBox.size(); ++box) {
        settings.MappingTextBox[box] =
            ChildText(section, "MappingTextBox" + std::to_string(box + 1));
    }
    return settings;
}

NitfExportSettings ReadNitf(const XmlNode& section) {
    NitfExportSettings settings;
    settings.TextML = FlagDefaultFalse(section.Attribute("TextML"));
    settings.copyriteHolder = ChildText(section, "copyrite.holder");
    return settings;
}

// Adds the style row of one entry of a form, when the entry has a style name.
void AddStyle(const XmlNode& entry, std::string key, std::vector<TaggedTextStyle>& styles) {
    std::string name = entry.Attribute("Name");
    if (name.empty()) return;
    styles.push_back({std::move(key), std::move(name), TaggedTextFromConfiguration(entry.Text())});
}

TaggedTextExportSettings ReadTaggedText(const XmlNode& section, bool formsHaveBoxBreak) {
    static constexpr std::string_view kNamedEntries[] = {"Inter1",  "Inter2", "Inter3",
                                                         "Caption", "Credit", "Signature"};
    TaggedTextExportSettings settings;
    settings.Prologue = TaggedTextFromConfiguration(ChildText(section, "Prologue"));
    for (const XmlNode& form : section.SelectNodes("Form")) {
        const std::string formName = form.Attribute("Name");
        settings.forms.push_back(
            {formName, formsHaveBoxBreak && FlagDefaultFalse(form.Attribute("BoxBreak"))});
        // TextBox1 to TextBox7 of the configuration are text boxes 0 to 6 of the story.
        for (int box = 0; box < 7; ++box) {
            AddStyle(form.SelectSingleNode("TextBox" + std::to_string(box + 1)),
                     formName + "_" + std::to_string(box), settings.styles);
        }
        for (std::string_view entry : kNamedEntries) {
            AddStyle(form.SelectSingleNode(entry), formName + "_" + std::string(entry),
                     settings.styles);
        }
    }
    return settings;
}

RssExportSettings ReadRss(const XmlNode& section) {
    RssExportSettings settings;
    settings.ChannelTitle = ChildText(section, "ChannelTitle");
    settings.ChannelLink = ChildText(section, "ChannelLink");
    settings.ChannelDescription = ChildText(section, "ChannelDescription");
    settings.ChannelLanguage = ChildText(section, "ChannelLanguage");
    settings.ChannelManagingEditor = ChildText(section, "ChannelManagingEditor");
    settings.ChannelWebMaster = ChildText(section, "ChannelWebMaster");
    settings.ChannelCategory = ChildText(section, "ChannelCategory");
    settings.ChannelDocs = ChildText(section, "ChannelDocs");
    settings.ChannelTTL = ChildText(section, "ChannelTTL");
    settings.ChannelImageURL = ChildText(section, "ChannelImageURL");
    return settings;
}

CutText CutAtFirstSeparator(const std::string& text) {
    const std::size_t separator = text.find_first_of(":/");
    if (separator == std::string::npos) return {text, {}};
    return {text.substr(0, separator), text.substr(separator + 1)};
}

EditWorksExportSettings ReadEditWorks(const XmlNode& section) {
    EditWorksExportSettings settings;
    if (!section) return settings;
    const XmlNode rootDb = section.SelectSingleNode("RootDB");
    settings.RootDB = rootDb.Text();
    settings.IncludePublication = FlagDefaultTrue(rootDb.Attribute("IncludePublication"));
    settings.IncludeSubSection = FlagDefaultTrue(rootDb.Attribute("IncludeSubSection"));
    settings.SubSectionInComment = FlagDefaultFalse(rootDb.Attribute("SubSectionInComment"));
    settings.AccentsInPath = FlagDefaultTrue(rootDb.Attribute("AccentsInPath"));
    settings.SuffixClassification = rootDb.Attribute("SuffixClassification");
    settings.PrefixSection = rootDb.Attribute("PrefixSection");
    settings.Comment = ChildText(section, "Comment");
    settings.SubSectionAsTextBox = ChildText(section, "SubSectionAsTextBox");
    settings.xfTaxonomy = ChildText(section, "xfTaxonomy");
    for (std::size_t index = 0; index < settings.xfKeywords.size(); ++index) {
        settings.xfKeywords[index] = ChildText(section, "xfKeywords" + std::to_string(index + 1));
    }
    for (std::size_t box = 0; box < settings.TextBox.size(); ++box) {
        settings.TextBox[box] = ChildText(section, "TextBox" + std::to_string(box + 1));
    }
    settings.CaptionElement = CutAtFirstSeparator(ChildText(section, "CaptionElement"));
    settings.CreditElement = CutAtFirstSeparator(ChildText(section, "CreditElement"));
    settings.StyleText = ChildText(section, "StyleText");
    settings.StyleInter1 = ChildText(section, "StyleInter1");
    settings.StyleInter2 = ChildText(section, "StyleInter2");
    settings.StyleInter3 = ChildText(section, "StyleInter3");
    settings.StyleSignature = ChildText(section, "StyleSignature");
    return settings;
}

MileniumExportSettings ReadMilenium(const XmlNode& section) {
    MileniumExportSettings settings;
    settings.Publication = ChildText(section, "Publication");
    const XmlNode sectionName = section.SelectSingleNode("Section");
    settings.Section = sectionName.Text();
    settings.Level = sectionName.Attribute("Level");
    settings.Story = ChildText(section, "Story");
    settings.StoryName = ChildText(section, "StoryName");
    const XmlNode expiration = section.SelectSingleNode("ExpirationDate");
    settings.ExpirationDate = expiration.Text();
    settings.AddToPublicationDate = expiration.Attribute("AddToPublicationDate");
    settings.Form = ChildText(section, "Form");
    settings.Author = ChildText(section, "Author");
    settings.Classification = ChildText(section, "Classification");
    settings.Taxonomy = ChildText(section, "Taxonomy");
    for (std::size_t box = 0; box < settings.TextBox.size(); ++box) {
        settings.TextBox[box] = ChildText(section, "TextBox" + std::to_string(box + 1));
    }
    settings.Signature = ChildText(section, "Signature");
    settings.Image = ChildText(section, "Image");
    settings.CaptionElement = ChildText(section, "CaptionElement");
    settings.CreditElement = ChildText(section, "CreditElement");
    return settings;
}

}  // namespace

std::string TaggedTextFromConfiguration(std::string_view text) {
    std::string converted(text);
    for (char& character : converted) {
        if (character == '/') character = '<';
        if (character == '\\') character = '>';
    }
    return converted;
}

void ReadExportFormats(const XmlNode& exportFormats, ExportSettings& settings) {
    settings.NewsML = ReadNewsML(exportFormats.SelectSingleNode("NewsML"));
    settings.NITF = ReadNitf(exportFormats.SelectSingleNode("NITF"));
    settings.TessarinML.TextML =
        FlagDefaultFalse(exportFormats.SelectSingleNode("TessarinML").Attribute("TextML"));
    settings.InDesign = ReadTaggedText(exportFormats.SelectSingleNode("InDesign"), true);
    settings.XPress = ReadTaggedText(exportFormats.SelectSingleNode("XPress"), false);
    settings.RSS = ReadRss(exportFormats.SelectSingleNode("RSS"));
    settings.EditWorksQTrans = ReadEditWorks(exportFormats.SelectSingleNode("EditWorksQTrans"));
    settings.MileniumInsert = ReadMilenium(exportFormats.SelectSingleNode("MileniumInsert"));
}

}  // namespace tessarin
