#include "config/preferences.h"

#include <gtest/gtest.h>
#include <filesystem>
#include <string>

#include "config/profile_values.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

Preferences ReadFrom(const TempDir& dir, std::string_view bytes) {
    return ReadPreferences(ProfileFile(dir.Write("Tessarin.ini", bytes)));
}

TEST(ReadPreferences, EmptyOrMissingFileGivesTheDefaults) {
    TempDir dir;
    const Preferences empty = ReadFrom(dir, "");
    EXPECT_EQ(ReadPreferences(ProfileFile(dir / "none.ini")), empty);

    // Flags
    EXPECT_FALSE(empty.LockMetadata);
    EXPECT_TRUE(empty.MultipleClipboardVisible);
    EXPECT_TRUE(empty.UseXSLT);
    EXPECT_FALSE(empty.IPTCByline);
    EXPECT_FALSE(empty.BackupStories);
    EXPECT_TRUE(empty.NewsTopMost);
    EXPECT_TRUE(empty.TipOfTheDay.ShowTipsAtStartup);
    EXPECT_TRUE(empty.FileMRU.UseMRU);
    EXPECT_FALSE(empty.FontBold[0]);
    EXPECT_FALSE(empty.FontItalic[8]);
    // Integers
    EXPECT_EQ(empty.CheckSpellingType, 0);
    EXPECT_EQ(empty.BackupAutoTime, 1);
    EXPECT_EQ(empty.MonthColumns, 1);
    EXPECT_EQ(empty.DailyInterval, 1);
    EXPECT_EQ(empty.TipOfTheDay.LastTipOfTheDay, 0);
    EXPECT_EQ(empty.FontSize[0], 12);
    EXPECT_EQ(empty.FontSize[6], 12);
    EXPECT_EQ(empty.FontSize[8], 30);
    // Colours
    EXPECT_EQ(empty.ClassificationColorGeneral, 0x80000012u);
    EXPECT_EQ(empty.ClassificationColorLocal, 0x8000000Du);
    EXPECT_EQ(empty.BackgroundColor, 0x80000005u);
    EXPECT_EQ(empty.ColorInformations, 0x0000FFFFu);
    EXPECT_EQ(empty.BackgroundColorTeleprompter, 0x00000000u);
    EXPECT_EQ(empty.BackgroundColorLogs, 0x0000FF00u);
    EXPECT_EQ(empty.BookmarksColor, 0x0000FFFFu);
    EXPECT_EQ(empty.InterColor1, 0x00FF0000u);
    EXPECT_EQ(empty.InterColor2, 0x000000FFu);
    EXPECT_EQ(empty.InterColor3, 0x0000FF00u);
    // Texts
    EXPECT_EQ(empty.XSLT, "");
    EXPECT_EQ(empty.BookmarksDate, "DD/MM/YYYY");
    EXPECT_EQ(empty.BookmarksTime, "HH:MM:SS");
    EXPECT_EQ(empty.FontName[4], "Times New Roman");
    EXPECT_EQ(empty.FileMRU.File[0], "");
    // Values the file alone decides
    EXPECT_EQ(empty.MainWindow.WindowState, 0);
    EXPECT_EQ(empty.MainWindow.Left, std::nullopt);
    EXPECT_EQ(empty.MainWindow.SizeBarVImage, std::nullopt);
    EXPECT_EQ(empty.Configuration.DirStories, std::nullopt);
    EXPECT_EQ(empty.Identification.Author, std::nullopt);
}

TEST(ReadPreferences, FlagsChangeOnlyOnTheExactOppositeText) {
    TempDir dir;
    const Preferences zero = ReadFrom(dir,
                                      "[Preferences]\r\nUseXSLT=0\r\nLockMetadata=1\r\n"
                                      "IPTCCaption=false\r\nIPTCByline=true\r\n"
                                      "NewsTopMost=00\r\nTabInText=01\r\nFontBold2=1\r\n"
                                      "[TipOfTheDay]\r\nShowTipsAtStartup=0\r\n"
                                      "[FileMRU]\r\nUseMRU=no\r\n");
    EXPECT_FALSE(zero.UseXSLT);
    EXPECT_TRUE(zero.LockMetadata);
    EXPECT_TRUE(zero.IPTCCaption);
    EXPECT_FALSE(zero.IPTCByline);
    EXPECT_TRUE(zero.NewsTopMost);
    EXPECT_FALSE(zero.TabInText);
    EXPECT_TRUE(zero.FontBold[2]);
    EXPECT_FALSE(zero.FontBold[3]);
    EXPECT_FALSE(zero.TipOfTheDay.ShowTipsAtStartup);
    EXPECT_TRUE(zero.FileMRU.UseMRU);
}

TEST(ReadPreferences, IntegersFollowTheirOwnRules) {
    TempDir dir;
    const auto read = [&](std::string_view lines) {
        return ReadFrom(dir, "[Preferences]\r\n" + std::string(lines));
    };
    EXPECT_EQ(read("CheckSpellingType=3").CheckSpellingType, 0);
    EXPECT_EQ(read("CheckSpellingType=-1").CheckSpellingType, 0);
    EXPECT_EQ(read("CheckSpellingType=2").CheckSpellingType, 2);
    EXPECT_EQ(read("CheckSpellingType=1.9").CheckSpellingType, 1);

    EXPECT_EQ(read("DailyInterval=5").DailyInterval, 1);
    EXPECT_EQ(read("DailyInterval=7").DailyInterval, 7);
    EXPECT_EQ(read("DailyInterval=7days").DailyInterval, 1);

    EXPECT_EQ(read("BackupAutoTime=x").BackupAutoTime, 1);
    EXPECT_EQ(read("BackupAutoTime=15min").BackupAutoTime, 15);
    EXPECT_EQ(read("BackupAutoTime=0").BackupAutoTime, 0);

    EXPECT_EQ(read("MonthColumns=abc").MonthColumns, 0);
    EXPECT_EQ(read("MonthRows=3").MonthRows, 3);

    const Preferences fonts = read("FontSize3=abc\r\nFontSize4= 14 \r\nFontSize8=14pt\r\n");
    EXPECT_EQ(fonts.FontSize[3], 12);
    EXPECT_EQ(fonts.FontSize[4], 14);
    EXPECT_EQ(fonts.FontSize[8], 30);
}

TEST(ReadPreferences, ColoursReadTheSignedAndTheUnsignedForm) {
    TempDir dir;
    const Preferences colours = ReadFrom(dir,
                                         "[Preferences]\r\n"
                                         "ClassificationColorGeneral=-2147483635\r\n"
                                         "ClassificationColorLocal=2147483666\r\n"
                                         "BookmarksColor=65280\r\n"
                                         "InterColor1=abc\r\n"
                                         "InterColor2=99999999999\r\n");
    EXPECT_EQ(colours.ClassificationColorGeneral, 0x8000000Du);
    EXPECT_EQ(colours.ClassificationColorLocal, 0x80000012u);
    EXPECT_EQ(colours.BookmarksColor, Rgb(0, 255, 0));
    EXPECT_EQ(colours.InterColor1, 0u);
    EXPECT_EQ(colours.InterColor2, Rgb(255, 0, 0));  // beyond 32 bits: the default stays
}

TEST(ReadPreferences, EmptyValuesAndOtherSectionsKeepTheDefaults) {
    TempDir dir;
    const Preferences preferences = ReadFrom(dir,
                                             "[Preferences]\r\nBookmarksDate=\r\n"
                                             "FontName0=\r\nBackupAutoTime=\r\n"
                                             "[Other]\r\nLockMetadata=1\r\n");
    EXPECT_EQ(preferences, Preferences{});
}

TEST(ReadPreferences, MainWindowValuesArePresentOnlyWhenStored) {
    TempDir dir;
    const Preferences preferences =
        ReadFrom(dir, "[MainWindow]\r\nWindowState=2\r\nLeft=-4\r\nWidth=800\r\nSizeBarV=abc\r\n");
    const MainWindowSection& window = preferences.MainWindow;
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
}

TEST(ReadPreferences, IdentificationTellsAbsentFromPresent) {
    TempDir dir;
    const Preferences preferences = ReadFrom(dir,
                                             "[Identification]\r\nAuthor=Ren\xE9 Martin\r\n"
                                             "Initials=\r\nSMTPRecipient=desk@example.org\r\n");
    EXPECT_EQ(preferences.Identification.Author, "René Martin");
    EXPECT_EQ(preferences.Identification.Email, std::nullopt);
    EXPECT_EQ(preferences.Identification.Initials, std::nullopt);
    EXPECT_EQ(preferences.Identification.SMTPRecipient, "desk@example.org");
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

TEST(WritePreferences, MainWindowAtExitInItsOrder) {
    TempDir dir;
    ProfileFile profile(dir / "Tessarin.ini");
    MainWindowSection window{.WindowState = 0,
                             .Left = -4,
                             .Top = 0,
                             .Width = 1024,
                             .Height = 768,
                             .SizeBarV = 300,
                             .SizeBarVText = 120,
                             .SizeBarVImage = 95};
    ASSERT_TRUE(WriteMainWindow(profile, window));
    EXPECT_EQ(ReadBytes(profile.Path()),
              "[MainWindow]\r\nWindowState=0\r\nLeft=-4\r\nTop=0\r\nWidth=1024\r\n"
              "Height=768\r\nSizeBarV=300\r\nSizeBarVText=120\r\nSizeBarVImage=95\r\n");
    EXPECT_EQ(ReadPreferences(profile).MainWindow, window);
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
              "[TipOfTheDay]\r\nShowTipsAtStartup=0\r\nLastTipOfTheDay=7\r\n"
              "[Configuration]\r\nDirStories=/srv/stories\r\n");
}

TEST(WritePreferences, FontButtonWritesOneEntry) {
    TempDir dir;
    ProfileFile profile(dir / "Tessarin.ini");
    Preferences preferences;
    preferences.FontName[8] = "Arial";
    preferences.FontSize[8] = 48;
    preferences.FontItalic[8] = true;
    ASSERT_TRUE(WriteFont(profile, preferences, kTeleprompterFont));
    EXPECT_FALSE(WriteFont(profile, preferences, kFontEntries));
    EXPECT_EQ(ReadBytes(profile.Path()),
              "[Preferences]\r\nFontName8=Arial\r\nFontSize8=48\r\nFontBold8=0\r\n"
              "FontItalic8=1\r\n");
}

TEST(WritePreferences, PreferencesDialogWritesItsKeysInReadingOrder) {
    TempDir dir;
    ProfileFile profile(dir / "Tessarin.ini");
    ASSERT_TRUE(WritePreferencesDialog(profile, Preferences{}));
    EXPECT_EQ(ReadBytes(profile.Path()),
              "[Preferences]\r\n"
              "UseXSLT=1\r\n"
              "XSLT=\r\n"
              "CheckSpellingType=0\r\n"
              "CheckSpellingAlwaysSuggest=1\r\n"
              "CheckSpellingIgnoreUppercase=0\r\n"
              "IPTCCaption=1\r\n"
              "IPTCCredit=1\r\n"
              "IPTCByline=0\r\n"
              "IPTCKeywords=1\r\n"
              "IPTCCollapseKeywords=1\r\n"
              "ImagesTooltips=1\r\n"
              "StartAutoExport=1\r\n"
              "SendHelpBalloons=1\r\n"
              "RTFWithImages=1\r\n"
              "ToolBarVisible=1\r\n"
              "ButtonsVisible=0\r\n"
              "ClassicButtons=0\r\n"
              "TabDisplayVisible=1\r\n"
              "StatusBarVisible=1\r\n"
              "StatusDate=1\r\n"
              "StatusTime=1\r\n"
              "TooMuchNotEnough=1\r\n"
              "StatusSelected=1\r\n"
              "BackupStories=0\r\n"
              "BackupAuto=0\r\n"
              "BackupAutoTime=1\r\n"
              "ClassificationColorGeneral=-2147483630\r\n"
              "ClassificationColorLocal=-2147483635\r\n"
              "HighlightInformations=1\r\n"
              "SimpleClickMargin=0\r\n"
              "ClassificationTooltips=1\r\n"
              "TaxonomyTooltips=1\r\n"
              "BookmarksInitials=1\r\n"
              "BookmarksDate=DD/MM/YYYY\r\n"
              "BookmarksTime=HH:MM:SS\r\n"
              "BookmarksColor=65535\r\n"
              "FrenchQuotationMarks=0\r\n"
              "NonBreakingSpaces=1\r\n"
              "RemoveDuplicateSpaces=1\r\n"
              "UseAltGrForCaps=1\r\n"
              "SelectInter=1\r\n"
              "BackgroundColor=-2147483643\r\n"
              "BackgroundColorTeleprompter=0\r\n"
              "BackgroundColorLogs=65280\r\n"
              "BackgroundColorMargin=-2147483633\r\n"
              "InterColor1=16711680\r\n"
              "InterColor2=255\r\n"
              "InterColor3=65280\r\n"
              "TabInText=0\r\n"
              "MonthColumns=1\r\n"
              "MonthRows=1\r\n"
              "ShowToday=0\r\n"
              "ShowWeekNumbers=0\r\n"
              "DailyInterval=1\r\n"
              "NewsTopMost=1\r\n"
              "NewsBookmark=1\r\n"
              "NewsAutoTypography=1\r\n"
              "TextMLTracking=0\r\n"
              "TextMLExport=0\r\n"
              "[FileMRU]\r\n"
              "UseMRU=1\r\n");
}

TEST(WritePreferences, WhatIsWrittenReadsBackTheSame) {
    TempDir dir;
    std::filesystem::create_directory(dir / "stories");
    ProfileFile profile(dir / "Tessarin.ini");
    Preferences written;
    written.MainWindow.WindowState = kWindowMinimised;
    written.MainWindow.Left = 5;
    written.MainWindow.Height = 600;
    written.Configuration.DirStories = dir / "stories";
    written.TipOfTheDay = {.ShowTipsAtStartup = false, .LastTipOfTheDay = 12};
    written.FileMRU.UseMRU = false;
    written.LockMetadata = true;
    written.KeepMetadata = true;
    written.MultipleClipboardVisible = false;
    written.UseXSLT = false;
    written.XSLT = "/srv/xsl/Desk é.xsl";
    written.CheckSpellingType = 2;
    written.IPTCByline = true;
    written.StatusTime = false;
    written.BackupAutoTime = 10;
    written.ClassificationColorGeneral = kSelectionBackground;
    written.ColorInformations = Rgb(1, 2, 3);
    written.BookmarksDate = "YYYY-MM-DD";
    written.BackgroundColorMargin = 0xFFFFFFFFu;
    written.DailyInterval = 7;
    written.MonthRows = 3;
    written.TextMLExport = true;
    written.FontName[1] = "Courier New";
    written.FontSize[1] = 9;
    written.FontBold[1] = true;

    ASSERT_TRUE(WriteMainWindow(profile, written.MainWindow));
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

TEST(WritePreferences, ReadOnlyFileLeavesTheValuesInMemory) {
    TempDir dir;
    ProfileFile profile(dir.Write("Tessarin.ini", "[Preferences]\r\nLockMetadata=0\r\n"));
    std::filesystem::permissions(profile.Path(), std::filesystem::perms::owner_read);
    Preferences preferences;
    preferences.LockMetadata = true;
    EXPECT_FALSE(WriteLockMetadata(profile, preferences.LockMetadata));
    EXPECT_FALSE(WritePreferencesDialog(profile, preferences));
    EXPECT_TRUE(preferences.LockMetadata);
    EXPECT_FALSE(ReadPreferences(profile).LockMetadata);
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

TEST(Colours, ClassicPaletteAndComponents) {
    EXPECT_EQ(ClassicColour(0), Rgb(0, 0, 0));
    EXPECT_EQ(ClassicColour(1), Rgb(0, 0, 128));
    EXPECT_EQ(ClassicColour(7), Rgb(192, 192, 192));
    EXPECT_EQ(ClassicColour(10), Rgb(0, 255, 0));
    EXPECT_EQ(ClassicColour(12), Rgb(255, 0, 0));
    EXPECT_EQ(ClassicColour(14), Rgb(255, 255, 0));
    EXPECT_EQ(SplitColour(Preferences{}.BookmarksColor), (ColourComponents{255, 255, 0}));
    EXPECT_EQ(SplitColour(Rgb(10, 20, 30)), (ColourComponents{10, 20, 30}));
    EXPECT_TRUE(IsSystemColour(Preferences{}.BackgroundColor));
    EXPECT_FALSE(IsSystemColour(Preferences{}.InterColor1));
}

}  // namespace
}  // namespace tessarin
