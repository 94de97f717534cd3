#include <gtest/gtest.h>

#include <random>
#include <string>

#include "story/story_reader_support.h"

// Whatever bytes stand in a story file, reading it ends with a clear message or a story,
// never with a crash. The parser's own limits (depth, entity expansion, external entities)
// are tested with the XML document; here is what reading a story makes of too deep a nesting.

namespace tessarin {
namespace {

using testing::ReaderBench;
using testing::StoryXml;

const std::string kWellFormed = StoryXml(
    "<Metadata>\r\n<Author Name=\"By\">Ann</Author>\r\n<Keywords><Keyword CategoryIndex=\"1\">"
    "x</Keyword></Keywords>\r\n</Metadata>\r\n<Logs><Log Type=\"L\">sent</Log></Logs>\r\n"
    "<Body>\r\n<TextBox0 CharCount=\"5\" WordCount=\"1\" Name=\"T\">Title</TextBox0>\r\n"
    "<TextBox6 CharCount=\"9\" WordCount=\"2\" Name=\"M\"><b>Main</b> <note>AL</note>"
    "<inter1>text</inter1><p/>\r\n</TextBox6>\r\n<Signature Type=\"I\">AL</Signature></Body>\r\n"
    "<Notes><Note Name=\"AL\" Bookmark=\"true\">n</Note></Notes>\r\n"
    "<Images><ImageBag><Image href=\"file:///nowhere.jpg\"/></ImageBag></Images>\r\n");

TEST(ReadStoryHostile, NestingIsReadWithinTheParserLimitAndRescuedBeyond) {
    std::string open, close;
    for (int level = 0; level < 200; ++level) {
        open += level % 2 ? "<b>" : "<i>";
        close = (level % 2 ? "</b>" : "</i>") + close;
    }
    ReaderBench bench;
    EXPECT_EQ(
        bench.Read(StoryXml("<Body><TextBox6>" + open + "deep" + close + "</TextBox6></Body>")),
        StoryReadOutcome::Read);
    EXPECT_EQ(bench.Box(6), "deep");
    EXPECT_TRUE(bench.story.boxes[6].FormatAt(0).bold);

    std::string nested;
    for (int level = 0; level < 100000; ++level)
        nested += "<b>";
    EXPECT_EQ(bench.Read(StoryXml("<Body><TextBox6>" + nested + "deep</TextBox6></Body>")),
              StoryReadOutcome::ReadAsSimpleText);  // after the parse question, answered Yes
    ASSERT_EQ(bench.user.questions.size(), 1u);
    EXPECT_TRUE(bench.user.questions[0].starts_with("Parsing error: \n"));
    EXPECT_EQ(bench.Box(6), "deep");
}

TEST(ReadStoryHostile, UnexpectedShapesAreReadAsFarAsTheyGo) {
    ReaderBench bench;
    // A foreign root with the right AppName is a story; Metadata under it is read as anywhere.
    EXPECT_EQ(bench.Read("<?xml version=\"1.0\"?><html AppName=\"Tessarin\"><body>x</body>"
                         "<Metadata><Author>y</Author></Metadata></html>"),
              StoryReadOutcome::Read);
    EXPECT_EQ(bench.story.author, "y");
    for (const StyledText& box : bench.story.boxes)
        EXPECT_TRUE(box.Empty());

    bench.story = StoryRecord();  // the author is kept from one story to the next
    EXPECT_EQ(bench.Read(StoryXml(
                  "<Metadata><Metadata><Author>inner</Author></Metadata><Taxonomy><Topic "
                  "FormalItem=\"1e999\">huge</Topic><Topic FormalItem=\"-5\">neg</Topic></Taxonomy>"
                  "<Keywords><Keyword CategoryIndex=\"-2147483648\">low</Keyword></Keywords>"
                  "</Metadata><Body><TextBox6><p/><p/><b><i>x</i></b><unknown a=\"1\">u</unknown>"
                  "</TextBox6><TextBox7>ignored</TextBox7><Signature/></Body><Notes><Note "
                  "Name=\"&amp;amp;\"/></Notes><Images><ImageBag/></Images>")),
              StoryReadOutcome::Read);
    EXPECT_EQ(bench.story.author, "");
    ASSERT_EQ(bench.story.taxonomy.size(), 2u);
    EXPECT_EQ(bench.story.keywords, (std::vector<StoryKeyword>{{"K-2147483649", "low"}}));
    EXPECT_EQ(bench.Box(6), "\r\n\r\nx<unknown a=\"1\">u</unknown>");
    EXPECT_TRUE(bench.story.signatureEnabled);
    ASSERT_EQ(bench.story.notes.size(), 1u);
    EXPECT_EQ(bench.story.notes[0].title, "&");
    EXPECT_EQ(bench.user.messages, std::vector<std::string>{"Unknown photo: \nStory: " +
                                                            (bench.folder / "story.xml").string()});
    EXPECT_TRUE(bench.user.questions.empty());
}

// Random damage to a well-formed story: every outcome is allowed, a crash is not.
TEST(ReadStoryHostile, RandomlyDamagedStoriesNeverCrash) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = kWellFormed;
        for (int damage = 1 + static_cast<int>(random() % 8); damage > 0; --damage) {
            const std::size_t at = random() % bytes.size();
            switch (random() % 3) {
                case 0:
                    bytes[at] = static_cast<char>(random());
                    break;
                case 1:
                    bytes.erase(at, random() % 20);
                    break;
                default:
                    bytes.insert(at, std::string(1 + random() % 4, "<>&\"/\xFF"[random() % 6]));
            }
            if (bytes.empty()) bytes = "<";
        }
        ReaderBench bench;
        bench.Read(bytes);
        for (const std::string& question : bench.user.questions)
            EXPECT_FALSE(question.empty());
    }
}

}  // namespace
}  // namespace tessarin
