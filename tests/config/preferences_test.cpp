#include "config/preferences.h"

#include <gtest/gtest.h>
#include <filesystem>
#include <string>

#include "config/profile_values.h"
#include "config/section_reading.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::Bits;
using testing::Joined;
using testing::ReadBytes;
using testing::TempDir;

Preferences ReadFrom(const TempDir& dir, std::string_view bytes) {
    return ReadPreferences(ProfileFile(dir.Write("Tessarin.ini", bytes)));
}

// The keys that the preferences window writes, with their values by default.
constexpr std::string_view kDialogDefaults =
    "[Preferences]\r\nUseXSLT=1\r\nXSLT=\r\nCheckSpellingType=0\r\n"
    "CheckSpellingAlwaysSuggest=1\r\nCheckSpellingIgnoreUppercase=0\r\nIPTCCaption=1\r\n"
    "IPTCCredit=1\r\nIPTCByline=0\r\nIPTCKeywords=1\r\nIPTCCollapseKeywords=1\r\n"
    "ImagesTooltips=1\r\nStartAutoExport=1\r\nSendHelpBalloons=1\r\nRTFWithImages=1\r\n"
    "ToolBarVisible=1\r\nButtonsVisible=0\r\nClassicButtons=0\r\nTabDisplayVisible=1\r\n"
    "StatusBarVisible=1\r\nStatusDate=1\r\nStatusTime=1\r\nTooMuchNotEnough=1\r\n"
    "StatusSelected=1\r\nBackupStories=0\r\nBackupAuto=0\r\nBackupAutoTime=1\r\n"
    "ClassificationColorGeneral=-2147483630\r\nClassificationColorLocal=-2147483635\r\n"
    "HighlightInformations=1\r\nSimpleClickMargin=0\r\nClassificationTooltips=1\r\n"
    "TaxonomyTooltips=1\r\nBookmarksInitials=1\r\nBookmarksDate=DD/MM/YYYY\r\n"
    "BookmarksTime=HH:MM:SS\r\nBookmarksColor=65535\r\nFrenchQuotationMarks=0\r\n"
    "NonBreakingSpaces=1\r\nRemoveDuplicateSpaces=1\r\nUseAltGrForCaps=1\r\nSelectInter=1\r\n"
    "BackgroundColor=-2147483643\r\nBackgroundColorTeleprompter=0\r\n"
    "BackgroundColorLogs=65280\r\nBackgroundColorMargin=-2147483633\r\nInterColor1=16711680\r\n"
    "InterColor2=255\r\nInterColor3=65280\r\nTabInText=0\r\nMonthColumns=1\r\nMonthRows=1\r\n"
    "ShowToday=0\r\nShowWeekNumbers=0\r\nDailyInterval=1\r\nNewsTopMost=1\r\nNewsBookmark=1\r\n"
    "NewsAutoTypography=1\r\nTextMLTracking=0\r\nTextMLExport=0\r\n[FileMRU]\r\nUseMRU=1\r\n";

TEST(ReadPreferences, EmptyOrMissingFileGivesTheDefaults) {
    TempDir dir;
    const Preferences empty = ReadFrom(dir, "");
    EXPECT_EQ(ReadPreferences(ProfileFile(dir / "none.ini")), empty);
    // Empty values and keys of other sections keep the defaults too.
    EXPECT_EQ(ReadFrom(dir,
                       "[Preferences]\r\nBookmarksDate=\r\nFontName0=\r\nBackupAutoTime=\r\n"
                       "[Other]\r\nLockMetadata=1\r\n"),
              empty);

    ProfileFile written(dir / "written.ini");
    ASSERT_TRUE(WritePreferencesDialog(written, empty));
    EXPECT_EQ(ReadBytes(written.Path()), kDialogDefaults);
}

TEST(ReadPreferences, FlagsChangeOnlyOnTheExactOppositeText) {
    TempDir dir;
    const Preferences read = ReadFrom(dir,
                                      "[Preferences]\r\nUseXSLT=0\r\nLockMetadata=1\r\n"
                                      "IPTCCaption=false\r\nIPTCByline=true\r\n"
                                      "NewsTopMost=00\r\nTabInText=01\r\nFontBold2=1\r\n"
                                      "[TipOfTheDay]\r\nShowTipsAtStartup=0\r\n"
                                      "[FileMRU]\r\nUseMRU=no\r\n");
    EXPECT_EQ(Bits({read.UseXSLT, read.LockMetadata, read.IPTCCaption, read.IPTCByline,
                    read.NewsTopMost, read.TabInText, read.FontBold[2], read.FontBold[3],
                    read.TipOfTheDay.ShowTipsAtStartup, read.FileMRU.UseMRU}),
              "0110101001");
}

TEST(ReadPreferences, IntegersAndColoursFollowTheirOwnRules) {
    TempDir dir;
    const auto read = [&](std::string_view line) {
        return ReadFrom(dir, "[Preferences]\r\n" + std::string(line));
    };
    using P = Preferences;
    // Each row: a line of section Preferences, the field it sets and the value read.
    const std::tuple<std::string_view, std::int32_t P::*, std::int32_t> integers[] = {
        {"CheckSpellingType=3", &P::CheckSpellingType, 0},
        {"CheckSpellingType=-1", &P::CheckSpellingType, 0},
        {"CheckSpellingType=2", &P::CheckSpellingType, 2},
        {"CheckSpellingType=1.9", &P::CheckSpellingType, 1},
        {"DailyInterval=5", &P::DailyInterval, 1},
        {"DailyInterval=7", &P::DailyInterval, 7},
        {"DailyInterval=7days", &P::DailyInterval, 1},
        {"BackupAutoTime=x", &P::BackupAutoTime, 1},
        {"BackupAutoTime=15min", &P::BackupAutoTime, 15},
        {"BackupAutoTime=0", &P::BackupAutoTime, 0},
        {"MonthColumns=abc", &P::MonthColumns, 0},
        {"MonthRows=3", &P::MonthRows, 3}};
    for (const auto& [line, field, expected] : integers) {
        SCOPED_TRACE(line);
        EXPECT_EQ(read(line).*field, expected);
    }
    // Colours are read in the signed and the unsigned form; beyond 32 bits the default stays.
    const std::tuple<std::string_view, OleColour P::*, OleColour> colours[] = {
        {"ClassificationColorGeneral=-2147483635", &P::ClassificationColorGeneral, 0x8000000Du},
        {"ClassificationColorLocal=2147483666", &P::ClassificationColorLocal, 0x80000012u},
        {"BookmarksColor=65280", &P::BookmarksColor, Rgb(0, 255, 0)},
        {"InterColor1=abc", &P::InterColor1, 0u},
        {"InterColor2=99999999999", &P::InterColor2, Rgb(255, 0, 0)}};
    for (const auto& [line, field, expected] : colours) {
        SCOPED_TRACE(line);
        EXPECT_EQ(read(line).*field, expected);
    }
    // A font size is taken only when the whole value is a number.
    const Preferences fonts = read("FontSize3=abc\r\nFontSize4= 14 \r\nFontSize8=14pt\r\n");
    EXPECT_EQ(Joined({std::to_string(fonts.FontSize[3]), std::to_string(fonts.FontSize[4]),
                      std::to_string(fonts.FontSize[8])}),
              "12|14|30");
}

TEST(ReadPreferences, WindowValuesArePresentOnlyWhenStoredAndWrittenBackInTheirOrder) {
    TempDir dir;
    const MainWindowSection window =
        ReadFrom(dir, "[MainWindow]\r\nWindowState=2\r\nLeft=-4\r\nWidth=800\r\nSizeBarV=abc\r\n")
            .MainWindow;
    EXPECT_EQ(window.WindowState, kWindowMaximised);
    EXPECT_EQ(window.Left, -4);
    EXPECT_EQ(window.Top, std::nullopt);
    EXPECT_EQ(window.Width, 800);
    EXPECT_EQ(window.SizeBarV, 0);
    EXPECT_FALSE(AppliesStoredRectangle(window));
    EXPECT_TRUE(AppliesStoredRectangle(MainWindowSection{}));
    MainWindowSection minimised;
    minimised.WindowState = kWindowMinimised;
    EXPECT_FALSE(AppliesStoredRectangle(minimised));

    // At exit every key is written, in this order.
    const std::string bytes =
        "[MainWindow]\r\nWindowState=0\r\nLeft=-4\r\nTop=0\r\nWidth=1024\r\n"
        "Height=768\r\nSizeBarV=300\r\nSizeBarVText=120\r\nSizeBarVImage=95\r\n";
    ProfileFile profile(dir / "written.ini");
    ASSERT_TRUE(WriteMainWindow(profile, ReadFrom(dir, bytes).MainWindow));
    EXPECT_EQ(ReadBytes(profile.Path()), bytes);
}

TEST(ReadPreferences, RemovedDirectoryIsIgnoredButStaysInTheFile) {
    TempDir dir;
    std::filesystem::create_directory(dir / "images");
    const std::string bytes = "[Configuration]\r\nDirStories=" + (dir / "gone").string() +
                              "\r\nDirImages=" + (dir / "images").string() + "\r\n";
    ProfileFile profile(dir.Write("Tessarin.ini", bytes));

    const Preferences preferences = ReadPreferences(profile);
    EXPECT_EQ(preferences.Configuration.DirStories, std::nullopt);
    EXPECT_EQ(preferences.Configuration.DirImages, dir / "images");

    ASSERT_TRUE(WritePreferencesDialog(profile, preferences));
    ASSERT_TRUE(WriteMainWindow(profile, preferences.MainWindow));
    EXPECT_EQ(ReadBytes(profile.Path()).substr(0, bytes.size()), bytes);
}

TEST(WritePreferences, SingleKeysGoInPlace) {
    TempDir dir;
    ProfileFile profile(
        dir.Write("Tessarin.ini", "[Preferences]\r\nLockMetadata=0\r\nUseXSLT=1\r\n[FileMRU]\r\n"));
    ASSERT_TRUE(WriteLockMetadata(profile, true));
    ASSERT_TRUE(WriteKeepMetadata(profile, true));
    ASSERT_TRUE(WriteMultipleClipboardVisible(profile, false));
    ASSERT_TRUE(WriteColorInformations(profile, kButtonFace));
    ASSERT_TRUE(WriteTipOfTheDay(profile, {.ShowTipsAtStartup = false, .LastTipOfTheDay = 7}));
    ASSERT_TRUE(WriteDirStories(profile, "/srv/stories"));
    EXPECT_EQ(ReadBytes(profile.Path()),
              "[Preferences]\r\nLockMetadata=1\r\nUseXSLT=1\r\nKeepMetadata=1\r\n"
              "MultipleClipboardVisible=0\r\nColorInformations=-2147483633\r\n[FileMRU]\r\n"
              "[TipOfTheDay]\r\nShowTipsAtStartup=0\r\nLastTipOfTheDay=7\r\n[Configuration]\r\n"
              "DirStories=/srv/stories\r\n");

    // The font button writes one entry.
    Preferences preferences;
    preferences.FontName[8] = "Arial";
    preferences.FontSize[8] = 48;
    preferences.FontItalic[8] = true;
    ProfileFile fonts(dir / "fonts.ini");
    ASSERT_TRUE(WriteFont(fonts, preferences, kTeleprompterFont));
    EXPECT_FALSE(WriteFont(fonts, preferences, kFontEntries));
    EXPECT_EQ(ReadBytes(fonts.Path()),
              "[Preferences]\r\nFontName8=Arial\r\nFontSize8=48\r\nFontBold8=0\r\n"
              "FontItalic8=1\r\n");
}

// The main window's keys read back as the test of their order shows.
TEST(WritePreferences, WhatIsWrittenReadsBackTheSame) {
    TempDir dir;
    std::filesystem::create_directory(dir / "stories");
    ProfileFile profile(dir / "Tessarin.ini");
    Preferences written;
    written.Configuration.DirStories = dir / "stories";
    written.TipOfTheDay = {.ShowTipsAtStartup = false, .LastTipOfTheDay = 12};
    written.FileMRU.UseMRU = false;
    written.LockMetadata = written.KeepMetadata = written.IPTCByline = true;
    written.MultipleClipboardVisible = written.UseXSLT = false;
    written.XSLT = "/srv/xsl/Desk é.xsl";
    written.CheckSpellingType = 2;
    written.BackupAutoTime = 10;
    written.DailyInterval = 7;
    written.ClassificationColorGeneral = kSelectionBackground;
    written.ColorInformations = Rgb(1, 2, 3);
    written.BackgroundColorMargin = 0xFFFFFFFFu;
    written.BookmarksDate = "YYYY-MM-DD";
    written.FontName[1] = "Courier New";
    written.FontSize[1] = 9;
    written.FontBold[1] = true;

    ASSERT_TRUE(WriteDirStories(profile, *written.Configuration.DirStories));
    ASSERT_TRUE(WriteTipOfTheDay(profile, written.TipOfTheDay));
    ASSERT_TRUE(WriteLockMetadata(profile, written.LockMetadata));
    ASSERT_TRUE(WriteKeepMetadata(profile, written.KeepMetadata));
    ASSERT_TRUE(WriteMultipleClipboardVisible(profile, written.MultipleClipboardVisible));
    ASSERT_TRUE(WriteColorInformations(profile, written.ColorInformations));
    ASSERT_TRUE(WriteFont(profile, written, 1));
    ASSERT_TRUE(WritePreferencesDialog(profile, written));
    EXPECT_EQ(ReadPreferences(profile), written);
}

TEST(StyleSheetPath, NamedSheetOrTheDefaultOneWhenItExists) {
    TempDir dir;
    const auto xsltDir = dir / "XSLT";
    Preferences preferences;
    EXPECT_EQ(StyleSheetPath(preferences, xsltDir), std::nullopt);

    const auto defaultSheet = dir.Write("XSLT/Tessarin.xsl", "<xsl/>");
    EXPECT_EQ(StyleSheetPath(preferences, xsltDir), defaultSheet);
    preferences.UseXSLT = false;
    EXPECT_EQ(StyleSheetPath(preferences, xsltDir), std::nullopt);

    const auto named = dir.Write("desk.xsl", "<xsl/>");
    preferences.XSLT = named.string();
    EXPECT_EQ(StyleSheetPath(preferences, xsltDir), named);
    preferences.XSLT = (dir / "removed.xsl").string();
    preferences.UseXSLT = true;
    EXPECT_EQ(StyleSheetPath(preferences, xsltDir), std::nullopt);
}

}  // namespace
}  // namespace tessarin
