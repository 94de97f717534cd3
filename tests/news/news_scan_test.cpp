#include "news/news_scan.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "news/news_samples.h"
#include "news/news_show.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::NitfItem;
using testing::SampleItem;
using testing::TempDir;

SampleItem Item(std::string date, std::string headline, std::string body) {
    return {.date = std::move(date), .headline = std::move(headline), .body = std::move(body)};
}

std::vector<std::string> Headlines(const std::vector<NewsRow>& rows) {
    std::vector<std::string> headlines;
    for (const NewsRow& row : rows)
        headlines.push_back(row.ShownHeadline());
    return headlines;
}

class NewsScanTest : public ::testing::Test {
  protected:
    NewsScanTest() {
        store.Write("a.xml", NitfItem(Item("20260305T080000", "Old ferry", "<p>Ferry news.</p>")));
        store.Write("b.xml",
                    NitfItem(Item("20260307T120000", "New bridge", "<p>Bridge OPENS.</p>")));
        store.Write("c.XML", NitfItem(Item("20260306T100000", "Mid storm", "<p>Storm.</p>")));
        store.Write("notes.txt", "not an item");
        store.Write("sub/d.xml", NitfItem({}));
    }
    TempDir store;
    NewsScanner scanner;
};

TEST_F(NewsScanTest, ListsTheItemsOfTheFolderWithTheirCells) {
    NewsScanResult result = scanner.Scan(store.path(), {});
    ASSERT_EQ(result.status, NewsScanStatus::Done);
    EXPECT_EQ(Headlines(result.rows),
              (std::vector<std::string>{"Old ferry", "New bridge", "Mid storm"}));
    SortNewestFirst(result.rows);
    EXPECT_EQ(Headlines(result.rows),
              (std::vector<std::string>{"New bridge", "Mid storm", "Old ferry"}));
    EXPECT_EQ(NewsRowCells(result.rows[0], 1),
              (std::vector<std::string>{"07/03/2026 12:00", "New bridge", "harbour", "04000000",
                                        "4", "2", "0057", "20260307T120000"}));
}

TEST_F(NewsScanTest, FiltersByDateRangeAndWordInAnyCase) {
    struct Case {
        NewsFilters filters;
        std::vector<std::string> headlines;
    };
    const Case cases[] = {
        {{"20260306", "", ""}, {"New bridge", "Mid storm"}},
        {{"", "20260306", ""}, {"Old ferry", "Mid storm"}},
        {{"20260306", "20260306", ""}, {"Mid storm"}},
        {{"", "", "opens"}, {"New bridge"}},
        {{"", "", "rain"}, {}},
    };
    for (const Case& test : cases)
        EXPECT_EQ(Headlines(scanner.Scan(store.path(), test.filters).rows), test.headlines);
}

TEST_F(NewsScanTest, AnItemThatDoesNotParseStopsTheScanThere) {
    store.Write("b.xml", "<NewsML><NewsItem>");
    std::vector<std::string> handed;
    const NewsScanResult result =
        scanner.Scan(store.path(), {}, [&](std::span<const NewsRow> rows) {
            for (const NewsRow& row : rows)
                handed.push_back(row.fileName);
        });
    EXPECT_EQ(result.status, NewsScanStatus::ParseError);
    EXPECT_TRUE(result.parseError.starts_with("Parsing error:b.xml, Ligne: 1, position: "))
        << result.parseError;
    EXPECT_EQ(Headlines(result.rows), (std::vector<std::string>{"Old ferry"}));
    EXPECT_EQ(handed, (std::vector<std::string>{"a.xml"}));
    EXPECT_EQ(scanner.Scan(store / "missing", {}).status, NewsScanStatus::InvalidDirectory);
    // The pane of the news window shows it in its own words.
    EXPECT_TRUE(
        ShowNewsItem(store / "b.xml")
            .PaneText()
            .starts_with("Parsing error:" + (store / "b.xml").string() + ", Line: 1, position: "));
}

TEST_F(NewsScanTest, ARescanReusesUnchangedItemsAndRereadsChangedOnes) {
    scanner.Scan(store.path(), {});
    // Same size and time: the earlier reading stands. A new time: the file is read again.
    const auto file = store / "a.xml";
    const auto time = std::filesystem::last_write_time(file);
    store.Write("a.xml", NitfItem(Item("20260305T080000", "Odd ferry", "<p>Ferry news.</p>")));
    std::filesystem::last_write_time(file, time);
    EXPECT_EQ(scanner.Scan(store.path(), {}).rows[0].entry.headline, "Old ferry");
    std::filesystem::last_write_time(file, time + std::chrono::seconds(1));
    EXPECT_EQ(scanner.Scan(store.path(), {}).rows[0].entry.headline, "Odd ferry");
}

TEST_F(NewsScanTest, CompanionLogsMarkTheRows) {
    // "Bridge OPENS." has 13 code units: a range over all of them is a whole copy.
    store.Write("b.log", "Ann Lee 07/03/2026 12:30\\0 13\r\n");
    store.Write("c.log", "Ann Lee 07/03/2026 12:31\\2 3\nseen by the desk\nbroken\\12\n");
    const NewsScanResult result = scanner.Scan(store.path(), {});
    EXPECT_EQ(Headlines(result.rows),
              (std::vector<std::string>{"Old ferry", "!!New bridge", "!!Mid storm"}));
    EXPECT_EQ(result.rows[0].state, NewsCopyState::NotCopied);
    EXPECT_EQ(result.rows[1].state, NewsCopyState::Copied);
    EXPECT_EQ(result.rows[2].state, NewsCopyState::CopiedInPart);

    const ShownNewsItem shown = ShowNewsItem(store / "c.XML");
    ASSERT_TRUE(shown.log);
    EXPECT_EQ(shown.state, NewsCopyState::CopiedInPart);
    EXPECT_EQ(shown.log->marks, (std::vector<NewsMark>{{2, 3}}));
    EXPECT_EQ(shown.log->comments, (std::vector<std::string>{"seen by the desk"}));
    EXPECT_EQ(shown.log->note,
              "Ann Lee 07/03/2026 12:31\\2 3\r\nseen by the desk\r\nbroken\\12\r\n");
}

TEST(NewsStore, FoldersOfTheServiceCategoryAndArchive) {
    EXPECT_EQ(NewsStoreFolder("/w/live/|/w/old/", false, ""), std::filesystem::path("/w/live/"));
    EXPECT_EQ(NewsStoreFolder("/w/live/|/w/old/", true, "SPO"),
              std::filesystem::path("/w/old/SPO"));
    EXPECT_EQ(NewsStoreFolder("/w/live/|", true, ""), std::filesystem::path());
}

}  // namespace
}  // namespace tessarin
