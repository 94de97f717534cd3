#include "export/export_editworks.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "common/scoped_environment.h"
#include "export/export_test_support.h"

namespace tessarin {
namespace {

using testing::StoryFile;

// An EditWorksQTrans section, the StoryLabel message and a caption for the local sub-section
// label; day names in English.
class EditWorksTest : public ::testing::Test {
  protected:
    EditWorksTest() {
        setup_.configuration.messages.Set("StoryLabel", "Story");
        setup_.window.Control("lblSubSectionLocal").caption = "Sous-rubrique";
    }

    void Configure(std::string_view section) {
        setup_.configuration.exportFormats = testing::ReadSettings(
            "<EditWorksQTrans>" + std::string(section) + "</EditWorksQTrans>");
    }

    std::string Compose(const std::string& storyBytes) {
        ExportContext context = setup_.Context();
        context.programVersion = "1.2.3";
        return ComposeEditWorks(testing::ParseStory(storyBytes), context);
    }

    // The first line of the output, without its line end.
    std::string PathLineOf(std::string_view metadata) {
        const std::string out = Compose(StoryFile("<Story AppName=\"Tessarin\"><Metadata>" +
                                                  std::string(metadata) + "</Metadata></Story>"));
        return out.substr(0, out.find("\r\n"));
    }

    testing::ScopedEnvironment language_{"LC_ALL", "C"};
    testing::WriterSetup setup_;
};

constexpr std::string_view kFullSection = R"(<RootDB SuffixClassification="_S" PrefixSection="L-"
SubSectionInComment="true" AccentsInPath="false">DB</RootDB><Comment>@Note:</Comment>
<SubSectionAsTextBox>@SousRub:</SubSectionAsTextBox><xfTaxonomy>12</xfTaxonomy>
<xfKeywords1>21</xfKeywords1><xfKeywords3>23</xfKeywords3>
<TextBox1>@Titre:</TextBox1><TextBox7>@Texte:</TextBox7>
<CaptionElement>Leg/:</CaptionElement><CreditElement>Cred/:</CreditElement>
<StyleText>@Texte:</StyleText><StyleInter1>@Inter:</StyleInter1>
<StyleSignature>@Signe:</StyleSignature>)";

TEST_F(EditWorksTest, WritesPathFormFieldsCommentBoxesSignatureAndPictures) {
    Configure(kFullSection);
    const std::string expected =
        "<&FP\"DB:P:Q:Eco_S:Sec:SG:L-Loc:SL:X:\">\r\n<&sh\"News\">\r\n"
        "<&xf(12,\"\xC9"
        "conomie\")>\r\n<&xf(21,\"Paris\")>\r\n<&xf(23,\"Lyon\")>\r\n"
        "@Note:Story Tessarin 1.2.3 - Marie Dupr\xE9 - Tuesday 05/03/2024, 09:07\r\n"
        "General subsection: SG\r\nSous-rubrique: SL:X\r\n@SousRub:SL:X\r\n@Titre:Titre\r\n"
        "@Texte:<B><I>x<I><B> <I>y<I> <U>z<U><V>e<V>\r\n@Inter:Inter@Texte:\r\n"
        "A&amp;B <\\<>c<\\>><\\!p>\x80\x9C\x8C\td<B>gh<B>\r\n@Signe:Jean@Texte:\r\n"
        "Photo 1: a b.jpg\r\nLeg1:L\xE9gende\r\nCred1:AFP\r\nPhoto 2: \r\nLeg2:Sans image\r\n"
        "Photo 3: c.jpg\r\n";
    EXPECT_EQ(Compose(StoryFile(testing::kLayoutStory)), expected);
}

TEST_F(EditWorksTest, PathLineRules) {
    const struct {
        std::string_view section;
        std::string_view metadata;
        std::string_view expected;
    } rows[] = {
        // Accents stay by default; only the local sub-section obeys IncludeSubSection.
        {"<RootDB>DB</RootDB>",
         "<Publication>Pé</Publication><Classification>C</Classification>"
         "<SubSectionGeneral>G</SubSectionGeneral><SubSectionLocal>L</SubSectionLocal>",
         "<&FP\"DB:P\xE9:C:G:L:\">"},
        {"<RootDB IncludePublication=\"false\" IncludeSubSection=\"false\">DB</RootDB>",
         "<Publication>P</Publication><Classification>C/D</Classification>"
         "<SubSectionGeneral>G</SubSectionGeneral><SubSectionLocal>L</SubSectionLocal>",
         "<&FP\"DB:C:D:G:\">"},
        // The classification's suffix goes on the path whether or not a section is there; a
        // path that already ends in ":" gets no second one.
        {"<RootDB SuffixClassification=\"+\">DB</RootDB>", "<Classification>C</Classification>",
         "<&FP\"DB::C+:\">"},
        {"<RootDB SuffixClassification=\"+\">DB</RootDB>", "<SectionGeneral>S/</SectionGeneral>",
         "<&FP\"DB::+:S:\">"},
        // The letters that folding leaves alone stay accented.
        {"<RootDB AccentsInPath=\"false\">DB</RootDB>", "<Classification>àéÀÑç</Classification>",
         "<&FP\"DB::ae\xC0\xD1"
         "c:\">"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.metadata);
        Configure(row.section);
        EXPECT_EQ(PathLineOf(row.metadata), row.expected);
    }
}

TEST_F(EditWorksTest, StoryWithoutMetadataOrBody) {
    Configure("<RootDB>DB</RootDB><Comment>#</Comment>");
    EXPECT_EQ(Compose(StoryFile("<Story AppName=\"Tessarin\"/>")),
              "<&FP\"DB::\">\r\n#Story Tessarin 1.2.3 -  - Tuesday 05/03/2024, 09:07\r\n");
}

TEST_F(EditWorksTest, EveryNoteIsCutAndPicturesWithoutBothElementPartsHaveNoLines) {
    // Two notes in a row both go; bold around a note keeps its switches.
    Configure(
        "<RootDB>DB</RootDB><CaptionElement>Leg</CaptionElement>"
        "<CreditElement>Cred:</CreditElement>");
    const std::string out = Compose(
        StoryFile("<Story AppName=\"Tessarin\"><Body><TextBox2>a<note>n</note><note>m</note>b"
                  "<b>c<note>o</note></b></TextBox2></Body><Images><ImageBag>"
                  "<Image href=\"file:///x%20y.jpg\"/><Caption>C</Caption><Credit>R</Credit>"
                  "</ImageBag></Images></Story>"));
    EXPECT_EQ(out.substr(out.find("09:07\r\n") + 7), "ab<B>c<B>\r\nPhoto 1: x y.jpg\r\n");
}

}  // namespace
}  // namespace tessarin
