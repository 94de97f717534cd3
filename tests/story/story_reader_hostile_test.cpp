#include <gtest/gtest.h>

#include <random>
#include <string>

#include "common/utf8.h"
#include "story/story_reader_support.h"

// Whatever bytes stand in a story file, reading it ends with a clear message or a story,
// never with a crash, and in time proportional to the file.

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

bool IsParseQuestion(const std::string& question) {
    return question.starts_with("Parsing error: \n");
}

TEST(ReadStoryHostile, ATruncatedFileIsAParseErrorWhoseTextCanBeRescued) {
    for (std::size_t length : {std::size_t{10}, std::size_t{150}, kWellFormed.find("</TextBox6>"),
                               kWellFormed.size() - 3}) {
        ReaderBench bench;
        bench.user.QueueAnswer(Answer::No);
        EXPECT_EQ(bench.Read(kWellFormed.substr(0, length)), StoryReadOutcome::NotRead);
        ASSERT_EQ(bench.user.questions.size(), 1u) << length;
        EXPECT_TRUE(IsParseQuestion(bench.user.questions[0])) << bench.user.questions[0];
    }
    ReaderBench bench;
    EXPECT_EQ(bench.Read(kWellFormed.substr(0, kWellFormed.size() - 3)),
              StoryReadOutcome::ReadAsSimpleText);
    EXPECT_EQ(Utf16ToUtf8(bench.story.boxes[0].Text()), "Title");
}

TEST(ReadStoryHostile, BinaryBytesAreToldWithoutOfferingARescue) {
    ReaderBench bench;
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    EXPECT_EQ(bench.Read(bytes + bytes), StoryReadOutcome::NotRead);
    EXPECT_TRUE(bench.user.questions.empty());
    ASSERT_EQ(bench.user.messages.size(), 1u);
    EXPECT_TRUE(IsParseQuestion(bench.user.messages[0]));
}

TEST(ReadStoryHostile, DeepNestingBeyondTheParserLimitIsAParseError) {
    ReaderBench bench;
    bench.user.QueueAnswer(Answer::No);
    std::string nested;
    for (int level = 0; level < 100000; ++level)
        nested += "<b>";
    EXPECT_EQ(bench.Read(StoryXml("<Body><TextBox6>" + nested + "deep</TextBox6></Body>")),
              StoryReadOutcome::NotRead);
    ASSERT_EQ(bench.user.questions.size(), 1u);
    EXPECT_TRUE(IsParseQuestion(bench.user.questions[0]));

    // Rescued, the same text is one bold word.
    EXPECT_EQ(bench.Read(StoryXml("<Body><TextBox6>" + nested + "deep</TextBox6></Body>")),
              StoryReadOutcome::ReadAsSimpleText);
    EXPECT_EQ(Utf16ToUtf8(bench.story.boxes[6].Text()), "deep");
}

TEST(ReadStoryHostile, NestingWithinTheLimitReadsEveryLevel) {
    ReaderBench bench;
    std::string open, close;
    for (int level = 0; level < 200; ++level) {
        open += level % 2 ? "<b>" : "<i>";
        close = (level % 2 ? "</b>" : "</i>") + close;
    }
    EXPECT_EQ(
        bench.Read(StoryXml("<Body><TextBox6>" + open + "deep" + close + "</TextBox6></Body>")),
        StoryReadOutcome::Read);
    EXPECT_EQ(Utf16ToUtf8(bench.story.boxes[6].Text()), "deep");
    EXPECT_TRUE(bench.story.boxes[6].FormatAt(0).bold);
}

TEST(ReadStoryHostile, HugeAttributesAndTextsAreReadWhole) {
    ReaderBench bench;
    const std::string title(2'000'000, 'T');
    const std::string href = "file:///" + std::string(100'000, 'p');
    EXPECT_EQ(bench.Read(StoryXml("<Notes><Note Name=\"" + title +
                                  "\">n</Note></Notes>"
                                  "<Files><FileBag><File href=\"" +
                                  href + "\"/></FileBag></Files>")),
              StoryReadOutcome::Read);
    ASSERT_EQ(bench.story.notes.size(), 1u);
    EXPECT_EQ(bench.story.notes[0].title.size(), title.size());
    ASSERT_EQ(bench.user.messages.size(), 1u);  // the file is not there
    EXPECT_TRUE(bench.user.messages[0].starts_with("Unknown file: /ppp"));
}

TEST(ReadStoryHostile, EntityBombsAreRefusedByTheParser) {
    std::string bomb = "<?xml version=\"1.0\"?>\n<!DOCTYPE Story [\n<!ENTITY a \"aaaaaaaaaa\">\n";
    for (char level = 'b'; level <= 'k'; ++level) {
        const std::string previous(1, static_cast<char>(level - 1));
        bomb += std::string("<!ENTITY ") + level + " \"";
        for (int copy = 0; copy < 10; ++copy)
            bomb += "&" + previous + ";";
        bomb += "\">\n";
    }
    bomb += "]>\n<Story AppName=\"Tessarin\"><Body><TextBox6>&k;</TextBox6></Body></Story>\n";
    ReaderBench bench;
    bench.user.QueueAnswer(Answer::No);
    EXPECT_EQ(bench.Read(bomb), StoryReadOutcome::NotRead);
    ASSERT_EQ(bench.user.questions.size(), 1u);
    EXPECT_TRUE(IsParseQuestion(bench.user.questions[0]));

    // Rescued, the reference stays as it stands: nothing is expanded.
    EXPECT_EQ(bench.Read(bomb), StoryReadOutcome::ReadAsSimpleText);
    EXPECT_EQ(Utf16ToUtf8(bench.story.boxes[6].Text()), "&k;");
}

TEST(ReadStoryHostile, ExternalEntitiesAreNeverFetched) {
    ReaderBench bench;
    const auto secret = bench.folder.Write("secret.txt", "classified");
    bench.user.QueueAnswer(Answer::No);
    const StoryReadOutcome outcome = bench.Read(
        "<?xml version=\"1.0\"?>\n<!DOCTYPE Story [<!ENTITY s SYSTEM \"file://" + secret.string() +
        "\">]>\n<Story AppName=\"Tessarin\"><Body><TextBox6>&s;</TextBox6>"
        "</Body></Story>");
    EXPECT_EQ(Utf16ToUtf8(bench.story.boxes[6].Text()).find("classified"), std::string::npos);
    EXPECT_NE(outcome, StoryReadOutcome::ReadAsSimpleText);
}

TEST(ReadStoryHostile, AForeignRootWithTheRightAppNameIsAnEmptyStory) {
    ReaderBench bench;
    EXPECT_EQ(bench.Read("<?xml version=\"1.0\"?><html AppName=\"Tessarin\"><body>x</body>"
                         "<Metadata><Author>y</Author></Metadata></html>"),
              StoryReadOutcome::Read);
    EXPECT_EQ(bench.story.author, "y");  // Metadata under the root is read as anywhere
    for (const StyledText& box : bench.story.boxes)
        EXPECT_TRUE(box.Empty());
    EXPECT_TRUE(bench.user.questions.empty());
}

TEST(ReadStoryHostile, UnexpectedShapesInsideAStoryAreReadAsFarAsTheyGo) {
    ReaderBench bench;
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
    EXPECT_EQ(Utf16ToUtf8(bench.story.boxes[6].Text()), "\r\n\r\nx<unknown a=\"1\">u</unknown>");
    EXPECT_TRUE(bench.story.signatureEnabled);
    ASSERT_EQ(bench.story.notes.size(), 1u);
    EXPECT_EQ(bench.story.notes[0].title, "&");
    EXPECT_EQ(bench.user.messages, std::vector<std::string>{"Unknown photo: \nStory: " +
                                                            (bench.folder / "story.xml").string()});
}

// Random damage to a well-formed story: every outcome is allowed, a crash is not.
TEST(ReadStoryHostile, RandomlyDamagedStoriesNeverCrash) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = kWellFormed;
        const int damages = 1 + static_cast<int>(random() % 8);
        for (int damage = 0; damage < damages; ++damage) {
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
