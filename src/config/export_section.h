#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "common/xml_document.h"

namespace tessarin {

// The settings of the export writers, read from the sections of ExportFormats. A section
// that is absent leaves its texts empty and its flags off; defaults below apply only to a
// section that is present.

struct NewsMLExportSettings {
    bool TextML = false;
    std::string Catalog;     // default "http://www.afp.com/dtd/AFPCatalog.xml"
    std::string ProviderId;  // default "tessarin.org", the maker's web host
    std::string Provider;    // default "Velmora"
    std::string Language;    // default "en"
    std::string ImagesDirectory;
    std::string RelativePath;  // attribute of ImagesDirectory
    // MappingTextBox1 to MappingTextBox7 at index 0 to 6: the role of each text box. Every
    // reading starts the seven entries empty, so an empty element leaves its entry empty.
    std::array<std::string, 7> MappingTextBox;
};

struct NitfExportSettings {
    bool TextML = false;
    std::string copyriteHolder;  // element copyrite.holder
};

struct TessarinMLExportSettings {
    bool TextML = false;
};

// One style row of the tagged-text writers: key is the form's name + "_" + 0..6 for
// TextBox1..TextBox7, or + "_Inter1", "_Inter2", "_Inter3", "_Caption", "_Credit",
// "_Signature". Only entries with a non-empty Name make a row.
struct TaggedTextStyle {
    std::string StyleKey;
    std::string StyleName;
    std::string StyleDefinition;  // with "/" read as "<" and "\" as ">"
};

struct TaggedTextForm {
    std::string FormName;
    bool FormBoxBreak = false;  // BoxBreak "true"; read in the InDesign section only
};

// InDesign and XPress have the same shape; each keeps its own arrays.
struct TaggedTextExportSettings {
    std::string Prologue;  // with "/" read as "<" and "\" as ">"
    std::vector<TaggedTextForm> forms;
    std::vector<TaggedTextStyle> styles;  // in document order
};

struct RssExportSettings {
    std::string ChannelTitle;
    std::string ChannelLink;
    std::string ChannelDescription;
    std::string ChannelLanguage;
    std::string ChannelManagingEditor;
    std::string ChannelWebMaster;
    std::string ChannelCategory;
    std::string ChannelDocs;
    std::string ChannelTTL;
    std::string ChannelImageURL;
};

// A text cut at its first ":" or "/" into the part before and the part after; a text
// without either is all in `first`.
struct CutText {
    std::string first;
    std::string second;
};

struct EditWorksExportSettings {
    std::string RootDB;
    bool IncludePublication = false;   // "false" turns off; on by default in a present section
    bool IncludeSubSection = false;    // likewise
    bool SubSectionInComment = false;  // "true" turns on
    bool AccentsInPath = false;        // "false" turns off; on by default in a present section
    std::string SuffixClassification;
    std::string PrefixSection;
    std::string Comment;
    std::string SubSectionAsTextBox;
    std::string xfTaxonomy;
    std::array<std::string, 4> xfKeywords;  // xfKeywords1 to xfKeywords4 at index 0 to 3
    std::array<std::string, 7> TextBox;     // TextBox1 to TextBox7 at index 0 to 6
    CutText CaptionElement;
    CutText CreditElement;
    std::string StyleText;
    std::string StyleInter1;
    std::string StyleInter2;
    std::string StyleInter3;
    std::string StyleSignature;
};

struct MileniumExportSettings {
    std::string Publication;
    std::string Section;
    std::string Level;  // attribute of Section, as text; the writer applies its default
    std::string Story;
    std::string StoryName;
    std::string ExpirationDate;
    std::string AddToPublicationDate;  // attribute of ExpirationDate, as text
    std::string Form;
    std::string Author;
    std::string Classification;
    std::string Taxonomy;
    std::array<std::string, 7> TextBox;  // TextBox1 to TextBox7 at index 0 to 6
    std::string Signature;
    std::string Image;
    std::string CaptionElement;
    std::string CreditElement;
};

struct ExportSettings {
    NewsMLExportSettings NewsML;
    NitfExportSettings NITF;
    TessarinMLExportSettings TessarinML;
    TaggedTextExportSettings InDesign;
    TaggedTextExportSettings XPress;
    RssExportSettings RSS;
    EditWorksExportSettings EditWorksQTrans;
    MileniumExportSettings MileniumInsert;
};

// Reads ExportFormats (the element itself; missing reads as all sections absent). The
// settings start anew: a second reading does not grow the style arrays.
void ReadExportFormats(const XmlNode& exportFormats, ExportSettings& settings);

// The tagged-text spelling of a configured text: "/" becomes "<" and "\" becomes ">".
std::string TaggedTextFromConfiguration(std::string_view text);

}  // namespace tessarin
