#include "app/preferences_edit.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

class PreferencesEditTest : public ::testing::Test {
  protected:
    PreferencesEditTest() {
        dir_.Write("Tessarin.ini", "[FileMRU]\r\nFile1=/s/a.xml\r\nFile2=/s/b.xml\r\n");
        session_.preferences = ReadPreferences(session_.profile);
    }
    std::optional<std::string> Stored(std::string_view section, std::string_view key) {
        return session_.profile.Read(section, key);
    }

    TempDir dir_;
    ScriptedInteraction user_;
    EditorSession session_{MakeAppPaths(dir_.path()), user_};
};

TEST_F(PreferencesEditTest, OkHandsTheChoiceToTheSessionAndWritesTheWindowsKeysOnly) {
    PreferencesChoice choice = BeginPreferencesChoice(session_);
    choice.preferences.ToolBarVisible = false;
    choice.preferences.BackupAutoTime = 15;
    choice.preferences.DailyInterval = kWeeklyStep;
    choice.preferences.FileMRU.UseMRU = false;
    choice.preferences.FontName[0] = "Serif";  // the font button's key, not OK's

    EXPECT_TRUE(AcceptPreferences(session_, choice));
    EXPECT_EQ(session_.preferences, choice.preferences);
    EXPECT_EQ(Stored(kPreferencesSection, "ToolBarVisible"), "0");
    EXPECT_EQ(Stored(kPreferencesSection, "BackupAutoTime"), "15");
    EXPECT_EQ(Stored(kPreferencesSection, "DailyInterval"), "7");
    EXPECT_EQ(Stored(kFileMRUSection, "UseMRU"), "0");
    EXPECT_EQ(Stored(kPreferencesSection, "FontName0"), std::nullopt);
    EXPECT_EQ(Stored(kPreferencesSection, "LockMetadata"), std::nullopt);
    EXPECT_EQ(Stored(kPreferencesSection, "ColorInformations"), std::nullopt);
    // The recent files stay unless the list was cleared.
    EXPECT_EQ(Stored(kFileMRUSection, "File2"), "/s/b.xml");
}

TEST_F(PreferencesEditTest, AClearedListIsEmptiedWrittenAndHiddenOnOkOnly) {
    PreferencesChoice choice = BeginPreferencesChoice(session_);
    choice.clearRecentFiles = true;
    EXPECT_EQ(session_.preferences.FileMRU.File[1], "/s/b.xml");  // nothing before OK

    EXPECT_TRUE(AcceptPreferences(session_, choice));
    for (const char* key : {"File1", "File2", "File3", "File4"}) {
        EXPECT_EQ(Stored(kFileMRUSection, key), std::nullopt) << key;
    }
    EXPECT_EQ(session_.preferences.FileMRU.File, (std::array<std::string, 4>{}));
    EXPECT_FALSE(session_.window.Control("mnuFileMRU1").visible);
    EXPECT_FALSE(session_.window.Control("mnuSepMRU").visible);
}

TEST_F(PreferencesEditTest, AReadOnlyFileLeavesTheChoiceInForceAndSaysSo) {
    std::filesystem::permissions(session_.profile.Path(), std::filesystem::perms::owner_read);
    const std::string before = ReadBytes(session_.profile.Path());
    PreferencesChoice choice = BeginPreferencesChoice(session_);
    choice.preferences.StatusBarVisible = false;
    choice.clearRecentFiles = true;

    EXPECT_FALSE(AcceptPreferences(session_, choice));
    EXPECT_FALSE(session_.preferences.StatusBarVisible);
    EXPECT_EQ(ReadBytes(session_.profile.Path()), before);
}

TEST_F(PreferencesEditTest, FontAndHighlightButtonsStoreTheirChoiceAtOnce) {
    PreferencesChoice choice = BeginPreferencesChoice(session_);
    EXPECT_TRUE(ChooseFont(session_, choice, kTeleprompterFont, {"Sans", 40, true, false}));
    EXPECT_TRUE(ChooseHighlightColour(session_, choice, Rgb(1, 2, 3)));

    EXPECT_EQ(ReadBytes(session_.profile.Path()),
              "[FileMRU]\r\nFile1=/s/a.xml\r\nFile2=/s/b.xml\r\n"
              "[Preferences]\r\nFontName8=Sans\r\nFontSize8=40\r\nFontBold8=1\r\n"
              "FontItalic8=0\r\nColorInformations=197121\r\n");
    EXPECT_EQ(session_.preferences, choice.preferences);
    EXPECT_EQ(choice.preferences.FontSize[kTeleprompterFont], 40);
    EXPECT_FALSE(ChooseFont(session_, choice, kFontEntries, {"Sans", 10, false, false}));
}

}  // namespace
}  // namespace tessarin
