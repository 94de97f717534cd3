#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/scoped_environment.h"
#include "logs/daily_log.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ScopedEnvironment;
using testing::TempDir;

constexpr LocalDateTime kEleventh{2024, 3, 11, 18, 5, 0};

struct DailyLogFolder {
    ScopedEnvironment longDate{"TESSARIN_LONG_DATE", "dddd d MMMM yyyy"};
    ScopedEnvironment language{"LC_ALL", "fr_FR.UTF-8"};
    TempDir folder;
    const DailyLogHead head{Rgb(0x12, 0xAB, 0x05), "Journal des envois"};
};

TEST(DailyLog, FirstTransmissionOfTheDayMakesThePageAndTheNextAppends) {
    DailyLogFolder logs;
    PrepareDailyLog(logs.folder.path(), 10, logs.head, kEleventh);
    { DailyLogBatch(logs.folder.path(), kEleventh).Write("<li>one</li>"); }
    PrepareDailyLog(logs.folder.path(), 10, logs.head, kEleventh);
    {
        DailyLogBatch batch(logs.folder.path(), kEleventh);
        batch.Write(DailyLogLine(DailyLogItem::Story, kEleventh, "Article", "feu.xml", "Zo\xc3\xa9",
                                 "Desk"));
        batch.Write(DailyLogLine(DailyLogItem::Attachment, kEleventh, "Photo", "a b.jpg",
                                 "Zo\xc3\xa9", "Desk"));
    }
    EXPECT_EQ(
        ReadBytes(logs.folder / "Log Tessarin 2024-03-11.htm"),
        "<html>\r\n<head>\r\n<title>Logs Tessarin</title>\r\n</head>\r\n"
        "<body bgcolor=\"#12AB05\">\r\n<b><center><h1>Journal des envois</h1></center></b>\r\n"
        "<center><h3>lundi 11 mars 2024</h3></center>\r\n"
        "<ul>\r\n<li>one</li>\r\n</ul><hr>\r\n<ul>\r\n"
        "<li>18:05 - <i>Article</i> <b>feu.xml</b> - Zo\xe9 -> Desk</li>\r\n"
        "<ul><li>18:05 - <i>Photo</i> a b.jpg - Zo\xe9 -> Desk</li></ul>\r\n</ul><hr>\r\n");
}

TEST(DailyLog, TheEleventhDayRemovesTheOldestOfTen) {
    DailyLogFolder logs;
    for (int day = 1; day <= 10; ++day) {
        PrepareDailyLog(logs.folder.path(), 10, logs.head, {2024, 3, day, 9, 0, 0});
    }
    logs.folder.Write("Log Tessarin notes.txt", "not a page");
    EXPECT_EQ(DailyLogDates(logs.folder.path()).size(), 10u);
    PrepareDailyLog(logs.folder.path(), 10, logs.head, kEleventh);
    const std::vector<std::string> dates = DailyLogDates(logs.folder.path());
    ASSERT_EQ(dates.size(), 10u);
    EXPECT_EQ(dates.front(), "2024-03-02");
    EXPECT_EQ(dates.back(), "2024-03-11");
    EXPECT_TRUE(fs::exists(logs.folder / "Log Tessarin notes.txt"));
}

TEST(DailyLog, AnUnwritablePageIsPassedOverSilently) {
    DailyLogFolder logs;
    const fs::path missing = logs.folder / "gone";
    PrepareDailyLog(missing, 10, logs.head, kEleventh);
    DailyLogBatch(missing, kEleventh).Write("<li>x</li>");
    EXPECT_FALSE(fs::exists(missing));
}

}  // namespace
}  // namespace tessarin
