#include "news/news_copy.h"

#include <gtest/gtest.h>

#include "common/date_format.h"
#include "common/utf8.h"
#include "editing/panel_session.h"
#include "news/news_samples.h"
#include "news/news_scan.h"
#include "news/news_show.h"

namespace tessarin {
namespace {

using testing::NitfItem;

constexpr LocalDateTime kWhen{2026, 3, 7, 9, 5, 4};

class NewsCopyTest : public ::testing::Test, public testing::PanelSession {
  protected:
    NewsCopyTest() {
        XmlDocument story;
        story.LoadBytes("<Story/>");
        XmlDocument services;
        services.LoadBytes("<NewsServices TextRecipient=\"6\" HeadLineRecipient=\"3\"/>");
        ReadStoryAndNewsServices(story.DocumentElement(), services.DocumentElement(),
                                 session.configuration, session.window);
        session.configuration.identity = {"Ann Lee", "", "", "AL"};
        session.preferences.NewsAutoTypography = false;
        itemPath = folder.Write("store/wire.xml", NitfItem({.body = "<p>Ships sail: again.</p>"}));
    }

    // The item as the list and the pane of a workstation show it now.
    NewsCopySource Source() {
        NewsScanner scanner;
        const NewsRow row = scanner.Scan(itemPath.parent_path(), {}).rows.at(0);
        return {itemPath, row.entry.headline, row.entry.status, row.state,
                Utf8ToUtf16(ShowNewsItem(itemPath).view.text)};
    }

    std::u16string Box(int box) { return session.story.boxes[box].Text(); }

    // The log line of a copy made at kWhen.
    static std::string LogLine(const std::string& range) {
        return "Ann Lee " + FormatShortDate(kWhen) + " 09:05\\" + range + "\r\n";
    }

    std::filesystem::path itemPath;
};

TEST_F(NewsCopyTest, APartCopyIsLoggedAndASecondWorkstationSeesTheMark) {
    const NewsCopySource source = Source();
    ASSERT_EQ(source.text, u"Ships sail: again.");
    const NewsCopyResult result = CopyNewsSelection(session, source, 6, 4, kWhen);
    EXPECT_EQ(result.outcome, NewsCopyOutcome::Copied);
    EXPECT_EQ(result.marked, NewsCopyState::CopiedInPart);
    EXPECT_EQ(testing::ReadBytes(folder / "store/wire.log"), LogLine("6 4"));
    EXPECT_TRUE(session.storyModified);
    // The bookmark of the copy stands before the text, its note in the story.
    ASSERT_EQ(session.story.notes.size(), 1u);
    EXPECT_TRUE(session.story.notes[0].bookmark);
    EXPECT_EQ(Box(6), u"AL 07/03/2026 09:05:04sail");

    // Another workstation scanning the same store sees the item marked.
    NewsScanner colleague;
    EXPECT_EQ(colleague.Scan(itemPath.parent_path(), {}).rows.at(0).state,
              NewsCopyState::CopiedInPart);
}

TEST_F(NewsCopyTest, ASecondCopyAsksAndAppendsASecondLine) {
    session.preferences.NewsBookmark = false;
    CopyWholeNewsItem(session, Source(), true, kWhen);
    EXPECT_EQ(Box(3), u"Harbour reopens");
    EXPECT_EQ(Box(6), u"Ships sail: again.");
    EXPECT_TRUE(session.story.notes.empty());
    EXPECT_EQ(Source().state, NewsCopyState::Copied);

    user.QueueAnswer(Answer::No);
    EXPECT_EQ(CopyNewsSelection(session, Source(), 0, 5, kWhen).outcome, NewsCopyOutcome::Declined);
    EXPECT_EQ(user.questions.back(),
              "This item has been copied already:\nHarbour reopens\nCopy it ?");
    // Yes to "already copied", then Yes to the box that holds text.
    EXPECT_EQ(CopyNewsSelection(session, Source(), 0, 5, kWhen).outcome, NewsCopyOutcome::Copied);
    EXPECT_EQ(testing::ReadBytes(folder / "store/wire.log"), LogLine("0 18") + LogLine("0 5"));
    EXPECT_EQ(Box(6), u"Ships sail: again.Ships");
    EXPECT_EQ(Source().state, NewsCopyState::Copied);
}

TEST_F(NewsCopyTest, StatusesAndEmptySelectionsDecideBeforeAnythingIsWritten) {
    struct Case {
        std::string status;
        std::size_t length;
        NewsCopyOutcome outcome;
    };
    const Case cases[] = {
        {"Withheld", 5, NewsCopyOutcome::Withheld},
        {"Canceled", 5, NewsCopyOutcome::Withheld},
        {"Usable", 0, NewsCopyOutcome::Nothing},
        {"Embargoed", 5, NewsCopyOutcome::Declined},
    };
    // Only the embargo asks, and is answered No.
    user.QueueAnswer(Answer::No);
    for (const Case& test : cases) {
        NewsCopySource source = Source();
        source.status = test.status;
        EXPECT_EQ(CopyNewsSelection(session, source, 0, test.length, kWhen).outcome, test.outcome)
            << test.status;
    }
    EXPECT_EQ(user.questions.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(folder / "store/wire.log"));
    EXPECT_TRUE(Box(6).empty());
}

// Every copy puts its text in through the same step, which runs typography when wanted.
TEST_F(NewsCopyTest, SortedItemsGoInTogetherInTheirOrderWithTypography) {
    session.preferences.NewsBookmark = false;
    session.preferences.NewsAutoTypography = true;
    NewsCopySource first = Source();
    NewsCopySource withheld = first;
    withheld.status = "Withheld";
    NewsCopySource second = first;
    second.text = u"Second.";
    EXPECT_TRUE(CopySortedNewsItems(session, {second, withheld, first}, kWhen));
    EXPECT_EQ(Box(6), u"Second.\r\nShips sail\u00B7: again.\r\n");
}

}  // namespace
}  // namespace tessarin
