#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "config/colours.h"
#include "config/profile_file.h"
#include "config/recent_files.h"

namespace tessarin {

// What belongs to the user rather than the newsroom, as the preferences file (Tessarin.ini)
// keeps it. Members carry the names of their keys.

inline constexpr std::string_view kMainWindowSection = "MainWindow";
inline constexpr std::string_view kConfigurationSection = "Configuration";
inline constexpr std::string_view kTipOfTheDaySection = "TipOfTheDay";
inline constexpr std::string_view kIdentificationSection = "Identification";
inline constexpr std::string_view kPreferencesSection = "Preferences";

// The WindowState values.
inline constexpr std::int32_t kWindowNormal = 0;
inline constexpr std::int32_t kWindowMinimised = 1;
inline constexpr std::int32_t kWindowMaximised = 2;

// The main window's state, rectangle and splitter positions, written at exit. A value that
// the file lacks is std::nullopt: the window keeps its design-time value.
struct MainWindowSection {
    std::int32_t WindowState = kWindowNormal;
    std::optional<std::int32_t> Left, Top, Width, Height;
    std::optional<std::int32_t> SizeBarV, SizeBarVText, SizeBarVImage;

    bool operator==(const MainWindowSection&) const = default;
};

// The stored rectangle is applied only to a window that was neither minimised nor maximised.
bool AppliesStoredRectangle(const MainWindowSection& window);

// The last story and image directories, each kept only when it still exists at start;
// otherwise std::nullopt, and the default directory stays. Reading never rewrites the file.
struct ConfigurationSection {
    std::optional<std::filesystem::path> DirStories, DirImages;

    bool operator==(const ConfigurationSection&) const = default;
};

struct TipOfTheDaySection {
    bool ShowTipsAtStartup = true;
    std::int32_t LastTipOfTheDay = 0;

    bool operator==(const TipOfTheDaySection&) const = default;
};

// The user's identity. A key that is absent (or empty) is std::nullopt: the configuration's
// value is then used.
struct IdentificationSection {
    std::optional<std::string> Author, Email, Group, Initials, SMTPRecipient;

    bool operator==(const IdentificationSection&) const = default;
};

// Font entries 0 to 6 belong to text boxes 1 to 7; entry 8 to the teleprompter.
inline constexpr std::size_t kFontEntries = 9;
inline constexpr std::size_t kTeleprompterFont = 8;

struct Preferences {
    MainWindowSection MainWindow;
    ConfigurationSection Configuration;
    TipOfTheDaySection TipOfTheDay;
    RecentFiles FileMRU;
    IdentificationSection Identification;

    // Section Preferences, in the order in which it is read.
    bool LockMetadata = false;
    bool KeepMetadata = false;
    bool MultipleClipboardVisible = true;
    bool UseXSLT = true;
    std::string XSLT;
    std::int32_t CheckSpellingType = 0;  // 0, 1 or 2
    bool CheckSpellingAlwaysSuggest = true;
    bool CheckSpellingIgnoreUppercase = false;
    bool IPTCCaption = true;
    bool IPTCCredit = true;
    bool IPTCByline = false;
    bool IPTCKeywords = true;
    bool IPTCCollapseKeywords = true;
    bool ImagesTooltips = true;
    bool StartAutoExport = true;
    bool SendHelpBalloons = true;
    bool RTFWithImages = true;
    bool ToolBarVisible = true;
    bool ButtonsVisible = false;
    bool ClassicButtons = false;
    bool TabDisplayVisible = true;
    bool StatusBarVisible = true;
    bool StatusDate = true;
    bool StatusTime = true;
    bool TooMuchNotEnough = true;
    bool StatusSelected = true;
    bool BackupStories = false;
    bool BackupAuto = false;
    std::int32_t BackupAutoTime = 1;  // minutes
    OleColour ClassificationColorGeneral = kButtonText;
    OleColour ClassificationColorLocal = kSelectionBackground;
    bool HighlightInformations = true;
    OleColour ColorInformations = ClassicColour(14);
    bool SimpleClickMargin = false;
    bool ClassificationTooltips = true;
    bool TaxonomyTooltips = true;
    bool BookmarksInitials = true;
    std::string BookmarksDate = "DD/MM/YYYY";
    std::string BookmarksTime = "HH:MM:SS";
    OleColour BookmarksColor = Rgb(255, 255, 0);
    bool FrenchQuotationMarks = false;
    bool NonBreakingSpaces = true;
    bool RemoveDuplicateSpaces = true;
    bool UseAltGrForCaps = true;
    bool SelectInter = true;
    OleColour BackgroundColor = kWindowBackground;
    OleColour BackgroundColorTeleprompter = ClassicColour(0);
    OleColour BackgroundColorLogs = ClassicColour(10);
    OleColour BackgroundColorMargin = kButtonFace;  // the story frame's own back colour
    OleColour InterColor1 = Rgb(0, 0, 255);
    OleColour InterColor2 = Rgb(255, 0, 0);
    OleColour InterColor3 = Rgb(0, 255, 0);
    bool TabInText = false;
    std::int32_t MonthColumns = 1;
    std::int32_t MonthRows = 1;
    bool ShowToday = false;
    bool ShowWeekNumbers = false;
    std::int32_t DailyInterval = 1;  // 1 or 7
    bool NewsTopMost = true;
    bool NewsBookmark = true;
    bool NewsAutoTypography = true;
    bool TextMLTracking = false;
    bool TextMLExport = false;
    std::array<std::string, kFontEntries> FontName = {
        "Times New Roman", "Times New Roman", "Times New Roman",
        "Times New Roman", "Times New Roman", "Times New Roman",
        "Times New Roman", "Times New Roman", "Times New Roman"};
    std::array<std::int32_t, kFontEntries> FontSize = {12, 12, 12, 12, 12, 12, 12, 12, 30};
    std::array<bool, kFontEntries> FontBold = {};
    std::array<bool, kFontEntries> FontItalic = {};

    bool operator==(const Preferences&) const = default;
};

// Reads every section above. Keys that are missing or empty keep their defaults; flags,
// integers and colours follow the forms of profile_values.h, with these exceptions:
// CheckSpellingType outside 0 to 2 is 0; BackupAutoTime that does not start with a number is
// 1; DailyInterval is 7 for exactly "7" and 1 for anything else; FontSize takes only a value
// that is a number as a whole ("abc" or "14pt" keep the default).
Preferences ReadPreferences(const ProfileFile& profile);

// The style sheet in use at start: the XSLT preference, or when it is empty and UseXSLT is on,
// Tessarin.xsl in the XSLT directory; std::nullopt when that file does not exist.
std::optional<std::filesystem::path> StyleSheetPath(const Preferences& preferences,
                                                    const std::filesystem::path& xsltDir);

// Writers, one for each moment the program stores preferences. Each sets its keys in one
// replacement of the file and returns false, silently, when the file cannot be written (none
// of its keys is then stored); the values in memory stay as they are.

// At exit: WindowState, Left, Top, Width, Height, SizeBarV, SizeBarVText, SizeBarVImage, in
// that order, each as decimal text. Values the window does not have (std::nullopt) are left out.
bool WriteMainWindow(ProfileFile& profile, const MainWindowSection& window);

// When a story is opened or saved in another directory, or an image taken from one.
bool WriteDirStories(ProfileFile& profile, const std::filesystem::path& directory);
bool WriteDirImages(ProfileFile& profile, const std::filesystem::path& directory);

// By the tip-of-the-day window: ShowTipsAtStartup and LastTipOfTheDay.
bool WriteTipOfTheDay(ProfileFile& profile, const TipOfTheDaySection& tips);

// Keys written at once by their own command.
bool WriteLockMetadata(ProfileFile& profile, bool locked);
bool WriteKeepMetadata(ProfileFile& profile, bool keep);
bool WriteMultipleClipboardVisible(ProfileFile& profile, bool visible);
bool WriteColorInformations(ProfileFile& profile, OleColour colour);

// By the font button: FontName, FontSize, FontBold and FontItalic of one entry (0 to 8).
bool WriteFont(ProfileFile& profile, const Preferences& preferences, std::size_t entry);

// By the OK button of the preferences window: every key of section Preferences, in its
// reading order, except those that their own command writes (LockMetadata, KeepMetadata,
// MultipleClipboardVisible, ColorInformations and the fonts); then UseMRU of section FileMRU.
bool WritePreferencesDialog(ProfileFile& profile, const Preferences& preferences);

}  // namespace tessarin
