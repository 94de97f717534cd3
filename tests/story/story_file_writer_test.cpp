#include "story/story_file_writer.h"

#include <gtest/gtest.h>

#include <functional>

#include "common/scoped_environment.h"
#include "common/xml_document.h"
#include "full_story_file.h"
#include "story_save_fixture.h"
#include "support/replace_once.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;
using testing::StorySaveFixture;

constexpr LocalDateTime kNow{2025, 2, 20, 9, 30, 0};

// Fixed French date forms, whatever the machine's locale.
class StoryFileWriterTest : public ::testing::Test {
  protected:
    ScopedEnvironment language_{"LC_ALL", "fr_FR.UTF-8"};
    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    ScopedEnvironment longDate_{"TESSARIN_LONG_DATE", "dddd d MMMM yyyy"};
    StorySaveFixture fixture_;

    std::string Compose(const StoryRecord& story, std::string_view fileName = "story.xml") {
        return ComposeStoryFile(story, fixture_.Context(), fileName, kNow);
    }
};

// In UTF-8 mode the escaped values and the body are UTF-8, while the style sheet, the formal
// codes and the log types stay Windows-1252 bytes.
TEST_F(StoryFileWriterTest, FullStoryInBothEncodings) {
    fixture_.ConfigureNewsroom();
    EXPECT_EQ(Compose(StorySaveFixture::FullStory(), "match--final.xml"),
              testing::kFullStoryFileIso);
    fixture_.configuration.general.storiesEncoding = "UTF-8";
    std::string expected = testing::kFullStoryFileIso;
    for (const auto& [from, to] : std::initializer_list<std::pair<const char*, const char*>>{
             {"encoding=\"ISO-8859-1\"", "encoding=\"UTF-8\""},
             {"jeudi 20 f\xe9vrier", "jeudi 20 f\xc3\xa9vrier"},
             {"mercredi 19 f\xe9vrier", "mercredi 19 f\xc3\xa9vrier"},
             {">Br\xe8ve<", ">Br\xc3\xa8ve<"},
             {">Actualit\xe9<", ">Actualit\xc3\xa9<"},
             {"Envoy\xe9 \xe0 Paul", "Envoy\xc3\xa9 \xc3\xa0 Paul"},
             {"Texte int\xe9gral\">Le club a gagn\xe9.",
              "Texte int\xc3\xa9gral\">Le club a gagn\xc3\xa9."},
             {"V\xe9rifier", "V\xc3\xa9rifier"},
             {"Chiffre\r\n\xe0 confirmer", "Chiffre\r\n\xc3\xa0 confirmer"},
             {">x ?<", ">x \xc4\x81<"},
             {"stade \xe9t\xe9.jpg", "stade \xc3\xa9t\xc3\xa9.jpg"}}) {
        testing::ReplaceOnce(expected, from, to);
    }
    EXPECT_EQ(Compose(StorySaveFixture::FullStory(), "match--final.xml"), expected);
}

const std::string kOneWordStory =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- story.xml -->\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"3.2.1\">\r\n<Metadata>\r\n"
    "<CreationDate Name=\"Creation date\">20/02/2025</CreationDate><CreationTime>09:30"
    "</CreationTime>\r\n"
    "<LastSaveDate Name=\"Last save date\">20/02/2025</LastSaveDate><LastSaveTime>09:30"
    "</LastSaveTime>\r\n<LastSaveAuthor></LastSaveAuthor>\r\n</Metadata>\r\n<Body>\r\n"
    "<TextBox6 CharCount=\"1\" WordCount=\"1\" Name=\"Text box 7\">x</TextBox6>\r\n</Body>\r\n"
    "</Story>\r\n";

// A new story: its creation is this save; empty values, lists and blocks are left out.
TEST_F(StoryFileWriterTest, RowsOfOneWordStoriesWithOneChange) {
    EXPECT_EQ(Compose(StorySaveFixture::OneWordStory()), kOneWordStory);
    const struct {
        std::function<void(StoryRecord&)> change;
        const char* fileName;
        const char* from;
        const char* to;
    } rows[] = {
        // A cold story is dated 0, without long date.
        {[](StoryRecord& story) { story.coldStory = true; }, "story.xml", "</Metadata>",
         "<PublicationDate Name=\"Publication date\">0</PublicationDate>\r\n</Metadata>"},
        // The long date of a text that is no date is the text; any separator reads as the
        // pattern's.
        {[](StoryRecord& story) {
             story.publicationDate = "demain";
             story.eventDate = "1-3-2025";
         },
         "story.xml", "</Metadata>",
         "<PublicationDate Name=\"Publication date\">demain</PublicationDate>\r\n"
         "<PublicationDateFull>demain</PublicationDateFull>\r\n"
         "<EventDate Name=\"Event date\">1-3-2025</EventDate>\r\n"
         "<EventDateFull>samedi 1 mars 2025</EventDateFull>\r\n</Metadata>"},
        {[](StoryRecord&) {}, "a---b&c--.xml", "<!-- story.xml -->", "<!-- a__-b&amp;c__.xml -->"},
        // The signature follows the boxes, its initials form marked.
        {[](StoryRecord& story) {
             story.signature = "J. & M.";
             story.initialsSignature = true;
         },
         "story.xml", "</TextBox6>\r\n</Body>",
         "</TextBox6>\r\n<Signature Type=\"I\">J. &amp; M.</Signature></Body>"},
        // A picture without path is left out, and so are the empty optional lines.
        {[](StoryRecord& story) {
             story.images = {{1, "", "perdue", "", {}},
                             {2, "/p/a\"b.jpg", "", "", {"un", "", "deux"}}};
             story.files = {{1, "/docs/note.txt", ""}};
         },
         "story.xml", "</Body>\r\n",
         "</Body>\r\n<Images>\r\n<ImageBag>\r\n<Image href=\"file:///p/a&quot;b.jpg\"/>\r\n"
         "<IPTCKeywords>un; ; deux</IPTCKeywords>\r\n</ImageBag>\r\n</Images>\r\n<Files>\r\n"
         "<FileBag>\r\n<File href=\"file:///docs/note.txt\"/>\r\n</FileBag>\r\n</Files>\r\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.to);
        StoryRecord story = StorySaveFixture::OneWordStory();
        row.change(story);
        std::string expected = kOneWordStory;
        testing::ReplaceOnce(expected, row.from, row.to);
        EXPECT_EQ(Compose(story, row.fileName), expected);
    }
    // In UTF-8, a character outside the Basic Multilingual Plane is two three-byte groups.
    fixture_.configuration.general.storiesEncoding = "UTF-8";
    StoryRecord story = StorySaveFixture::OneWordStory();
    story.author = "A\U0001F600";
    EXPECT_NE(Compose(story).find("<Author Name=\"Author\">A\xed\xa0\xbd\xed\xb8\x80</Author>"),
              std::string::npos);
}

TEST_F(StoryFileWriterTest, KeywordsOnlyUnderConfiguredCategoriesAndTopicsByNumber) {
    fixture_.ConfigureNewsroom();
    StoryRecord story = StorySaveFixture::OneWordStory();
    story.keywords = {{"7K", "Orphelin"}};
    EXPECT_EQ(Compose(story).find("<Keywords>"), std::string::npos);
    // Keywords are written category by category, in the tree's order.
    story.keywords = {{"2K", "Aulas"}, {"7K", "Orphelin"}, {"K0", "Lyon"}, {"0K", "Gerland"}};
    EXPECT_NE(Compose(story).find(
                  "<Keywords>\r\n"
                  "<Keyword CategoryName=\"Lieux [*]\" CategoryIndex=\"1\">Lyon</Keyword>\r\n"
                  "<Keyword CategoryName=\"Lieux [*]\" CategoryIndex=\"1\">Gerland</Keyword>\r\n"
                  "<Keyword CategoryName=\"Personnes\" CategoryIndex=\"3\">Aulas</Keyword>\r\n"
                  "</Keywords>\r\n"),
              std::string::npos);
    fixture_.configuration.keywordsOn = false;
    EXPECT_EQ(Compose(story).find("<Keywords>"), std::string::npos);
    // A topic without a node in the tree keeps its number.
    story.taxonomy = {{"Inconnu", 42}, {"Arts", 1000000}};
    EXPECT_NE(Compose(story).find("<Taxonomy>\r\n<Topic FormalItem=\"42\">Inconnu</Topic>\r\n"
                                  "<Topic FormalItem=\"01000000\">Arts</Topic>\r\n</Taxonomy>\r\n"),
              std::string::npos);
}

TEST_F(StoryFileWriterTest, SwitchedOffOrHiddenPartsAreLeftOut) {
    fixture_.ConfigureNewsroom();
    StoryRecord story = StorySaveFixture::FullStory();
    fixture_.configuration.ftpTransmission.LogsEnabled = false;
    fixture_.configuration.story.notes.visible = false;
    fixture_.configuration.taxonomyOn = false;
    fixture_.preferences.UseXSLT = false;
    fixture_.window.Control("lstStoryTypes").tag = "invisible";
    fixture_.window.Control("lstStatus").tag = "invisible";
    const std::string file = Compose(story);
    for (const char* left :
         {"<Logs>", "<Notes>", "<Taxonomy>", "xml-stylesheet", "<Form ", "<Status "}) {
        EXPECT_EQ(file.find(left), std::string::npos) << left;
    }
    EXPECT_NE(file.find("<Genre "), std::string::npos);
}

TEST(LinkedFileReference, ARelativePathIsMadeAbsolute) {
    const std::string relative = LinkedFileReference("photo.jpg");
    EXPECT_TRUE(relative.starts_with("file:///")) << relative;
    EXPECT_TRUE(relative.ends_with("/photo.jpg")) << relative;
}

}  // namespace
}  // namespace tessarin
