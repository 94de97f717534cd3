#include "config/preferences.h"

#include <utility>
#include <variant>
#include <vector>

#include "common/number_parse.h"
#include "config/profile_values.h"

namespace tessarin {
namespace {

// How a key of section Preferences is read and written.
template <typename T>
using Field = T Preferences::*;

using IntegerRule = std::int32_t (*)(std::string_view text);

struct FlagKey {
    Field<bool> field;
};
struct IntegerKey {
    Field<std::int32_t> field;
    IntegerRule rule;
};
struct ColourKey {
    Field<OleColour> field;
};
struct TextKey {
    Field<std::string> field;
};

enum class WrittenBy { PreferencesDialog, OwnCommand };

struct PreferenceKey {
    std::string_view name;
    std::variant<FlagKey, IntegerKey, ColourKey, TextKey> form;
    WrittenBy writtenBy = WrittenBy::PreferencesDialog;
};

template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
// Spelled out for compilers that do not deduce an aggregate's arguments (clang before 17).
template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

// True when the text, after leading blanks and a sign, starts with a digit or with a decimal
// point followed by one.
bool StartsWithNumber(std::string_view text) {
    const auto start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) return false;
    text.remove_prefix(start);
    if (text.front() == '+' || text.front() == '-') text.remove_prefix(1);
    if (!text.empty() && text.front() == '.') text.remove_prefix(1);
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

std::int32_t PlainInteger(std::string_view text) {
    return ParseLeadingInteger(text);
}

std::int32_t SpellCheckerType(std::string_view text) {
    const std::int32_t type = ParseLeadingInteger(text);
    return type >= 0 && type <= 2 ? type : 0;
}

std::int32_t BackupMinutes(std::string_view text) {
    return StartsWithNumber(text) ? ParseLeadingInteger(text) : 1;
}

std::int32_t DailyStep(std::string_view text) {
    return text == "7" ? 7 : 1;
}

constexpr auto kOwnCommand = WrittenBy::OwnCommand;

using P = Preferences;

// Section Preferences without the fonts, in reading order.
const PreferenceKey kPreferenceKeys[] = {
    {"LockMetadata", FlagKey{&P::LockMetadata}, kOwnCommand},
    {"KeepMetadata", FlagKey{&P::KeepMetadata}, kOwnCommand},
    {"MultipleClipboardVisible", FlagKey{&P::MultipleClipboardVisible}, kOwnCommand},
    {"UseXSLT", FlagKey{&P::UseXSLT}},
    {"XSLT", TextKey{&P::XSLT}},
    {"CheckSpellingType", IntegerKey{&P::CheckSpellingType, SpellCheckerType}},
    {"CheckSpellingAlwaysSuggest", FlagKey{&P::CheckSpellingAlwaysSuggest}},
    {"CheckSpellingIgnoreUppercase", FlagKey{&P::CheckSpellingIgnoreUppercase}},
    {"IPTCCaption", FlagKey{&P::IPTCCaption}},
    {"IPTCCredit", FlagKey{&P::IPTCCredit}},
    {"IPTCByline", FlagKey{&P::IPTCByline}},
    {"IPTCKeywords", FlagKey{&P::IPTCKeywords}},
    {"IPTCCollapseKeywords", FlagKey{&P::IPTCCollapseKeywords}},
    {"ImagesTooltips", FlagKey{&P::ImagesTooltips}},
    {"StartAutoExport", FlagKey{&P::StartAutoExport}},
    {"SendHelpBalloons", FlagKey{&P::SendHelpBalloons}},
    {"RTFWithImages", FlagKey{&P::RTFWithImages}},
    {"ToolBarVisible", FlagKey{&P::ToolBarVisible}},
    {"ButtonsVisible", FlagKey{&P::ButtonsVisible}},
    {"ClassicButtons", FlagKey{&P::ClassicButtons}},
    {"TabDisplayVisible", FlagKey{&P::TabDisplayVisible}},
    {"StatusBarVisible", FlagKey{&P::StatusBarVisible}},
    {"StatusDate", FlagKey{&P::StatusDate}},
    {"StatusTime", FlagKey{&P::StatusTime}},
    {"TooMuchNotEnough", FlagKey{&P::TooMuchNotEnough}},
    {"StatusSelected", FlagKey{&P::StatusSelected}},
    {"BackupStories", FlagKey{&P::BackupStories}},
    {"BackupAuto", FlagKey{&P::BackupAuto}},
    {"BackupAutoTime", IntegerKey{&P::BackupAutoTime, BackupMinutes}},
    {"ClassificationColorGeneral", ColourKey{&P::ClassificationColorGeneral}},
    {"ClassificationColorLocal", ColourKey{&P::ClassificationColorLocal}},
    {"HighlightInformations", FlagKey{&P::HighlightInformations}},
    {"ColorInformations", ColourKey{&P::ColorInformations}, kOwnCommand},
    {"SimpleClickMargin", FlagKey{&P::SimpleClickMargin}},
    {"ClassificationTooltips", FlagKey{&P::ClassificationTooltips}},
    {"TaxonomyTooltips", FlagKey{&P::TaxonomyTooltips}},
    {"BookmarksInitials", FlagKey{&P::BookmarksInitials}},
    {"BookmarksDate", TextKey{&P::BookmarksDate}},
    {"BookmarksTime", TextKey{&P::BookmarksTime}},
    {"BookmarksColor", ColourKey{&P::BookmarksColor}},
    {"FrenchQuotationMarks", FlagKey{&P::FrenchQuotationMarks}},
    {"NonBreakingSpaces", FlagKey{&P::NonBreakingSpaces}},
    {"RemoveDuplicateSpaces", FlagKey{&P::RemoveDuplicateSpaces}},
    {"UseAltGrForCaps", FlagKey{&P::UseAltGrForCaps}},
    {"SelectInter", FlagKey{&P::SelectInter}},
    {"BackgroundColor", ColourKey{&P::BackgroundColor}},
    {"BackgroundColorTeleprompter", ColourKey{&P::BackgroundColorTeleprompter}},
    {"BackgroundColorLogs", ColourKey{&P::BackgroundColorLogs}},
    {"BackgroundColorMargin", ColourKey{&P::BackgroundColorMargin}},
    {"InterColor1", ColourKey{&P::InterColor1}},
    {"InterColor2", ColourKey{&P::InterColor2}},
    {"InterColor3", ColourKey{&P::InterColor3}},
    {"TabInText", FlagKey{&P::TabInText}},
    {"MonthColumns", IntegerKey{&P::MonthColumns, PlainInteger}},
    {"MonthRows", IntegerKey{&P::MonthRows, PlainInteger}},
    {"ShowToday", FlagKey{&P::ShowToday}},
    {"ShowWeekNumbers", FlagKey{&P::ShowWeekNumbers}},
    {"DailyInterval", IntegerKey{&P::DailyInterval, DailyStep}},
    {"NewsTopMost", FlagKey{&P::NewsTopMost}},
    {"NewsBookmark", FlagKey{&P::NewsBookmark}},
    {"NewsAutoTypography", FlagKey{&P::NewsAutoTypography}},
    {"TextMLTracking", FlagKey{&P::TextMLTracking}},
    {"TextMLExport", FlagKey{&P::TextMLExport}},
};

void ReadKey(const std::string& text, const PreferenceKey& key, Preferences& preferences) {
    std::visit(Overloaded{
                   [&](FlagKey form) {
                       auto& value = preferences.*form.field;
                       value = FlagFromText(text, value);
                   },
                   [&](IntegerKey form) { preferences.*form.field = form.rule(text); },
                   [&](ColourKey form) {
                       auto& value = preferences.*form.field;
                       value = ColourFromText(text, value);
                   },
                   [&](TextKey form) { preferences.*form.field = text; },
               },
               key.form);
}

std::string KeyText(const PreferenceKey& key, const Preferences& preferences) {
    return std::visit(Overloaded{
                          [&](FlagKey form) { return FlagText(preferences.*form.field); },
                          [&](IntegerKey form) { return std::to_string(preferences.*form.field); },
                          [&](ColourKey form) { return ColourText(preferences.*form.field); },
                          [&](TextKey form) { return preferences.*form.field; },
                      },
                      key.form);
}

ProfileEntry Entry(std::string_view section, std::string_view key, std::string value) {
    return {std::string(section), std::string(key), std::move(value)};
}

std::string FontKey(std::string_view name, std::size_t entry) {
    return std::string(name) + std::to_string(entry);
}

void ReadFonts(const ProfileContents& profile, Preferences& preferences) {
    for (std::size_t entry = 0; entry < kFontEntries; ++entry) {
        preferences.FontName[entry] = ReadText(
            profile, kPreferencesSection, FontKey("FontName", entry), preferences.FontName[entry]);
    }
    for (std::size_t entry = 0; entry < kFontEntries; ++entry) {
        const auto size = profile.Read(kPreferencesSection, FontKey("FontSize", entry));
        if (size && IsNumeric(*size)) preferences.FontSize[entry] = ParseLeadingInteger(*size);
    }
    for (std::size_t entry = 0; entry < kFontEntries; ++entry) {
        preferences.FontBold[entry] = ReadFlag(
            profile, kPreferencesSection, FontKey("FontBold", entry), preferences.FontBold[entry]);
    }
    for (std::size_t entry = 0; entry < kFontEntries; ++entry) {
        preferences.FontItalic[entry] =
            ReadFlag(profile, kPreferencesSection, FontKey("FontItalic", entry),
                     preferences.FontItalic[entry]);
    }
}

MainWindowSection ReadMainWindow(const ProfileContents& profile) {
    MainWindowSection window;
    const auto read = [&](std::string_view key) {
        return ReadOptionalInteger(profile, kMainWindowSection, key);
    };
    window.WindowState = read("WindowState").value_or(window.WindowState);
    window.Left = read("Left");
    window.Top = read("Top");
    window.Width = read("Width");
    window.Height = read("Height");
    window.SizeBarV = read("SizeBarV");
    window.SizeBarVText = read("SizeBarVText");
    window.SizeBarVImage = read("SizeBarVImage");
    return window;
}

std::optional<std::filesystem::path> ExistingDirectory(const ProfileContents& profile,
                                                       std::string_view key) {
    const auto text = profile.Read(kConfigurationSection, key);
    if (!text) return std::nullopt;
    std::filesystem::path directory(*text);
    std::error_code error;
    if (!std::filesystem::is_directory(directory, error)) return std::nullopt;
    return directory;
}

IdentificationSection ReadIdentification(const ProfileContents& profile) {
    const auto read = [&](std::string_view key) {
        return profile.Read(kIdentificationSection, key);
    };
    return {read("Author"), read("Email"), read("Group"), read("Initials"), read("SMTPRecipient")};
}

}  // namespace

bool AppliesStoredRectangle(const MainWindowSection& window) {
    return window.WindowState != kWindowMinimised && window.WindowState != kWindowMaximised;
}

Preferences ReadPreferences(const ProfileFile& file) {
    const ProfileContents profile = file.Load();
    Preferences preferences;
    preferences.MainWindow = ReadMainWindow(profile);
    preferences.Configuration.DirStories = ExistingDirectory(profile, "DirStories");
    preferences.Configuration.DirImages = ExistingDirectory(profile, "DirImages");
    auto& tips = preferences.TipOfTheDay;
    tips.ShowTipsAtStartup =
        ReadFlag(profile, kTipOfTheDaySection, "ShowTipsAtStartup", tips.ShowTipsAtStartup);
    tips.LastTipOfTheDay =
        ReadInteger(profile, kTipOfTheDaySection, "LastTipOfTheDay", tips.LastTipOfTheDay);
    for (const PreferenceKey& key : kPreferenceKeys) {
        if (const auto text = profile.Read(kPreferencesSection, key.name)) {
            ReadKey(*text, key, preferences);
        }
    }
    ReadFonts(profile, preferences);
    preferences.FileMRU = ReadRecentFiles(profile);
    preferences.Identification = ReadIdentification(profile);
    return preferences;
}

std::optional<std::filesystem::path> StyleSheetPath(const Preferences& preferences,
                                                    const std::filesystem::path& xsltDir) {
    std::filesystem::path sheet;
    if (!preferences.XSLT.empty()) {
        sheet = preferences.XSLT;
    } else if (preferences.UseXSLT) {
        sheet = xsltDir / "Tessarin.xsl";
    } else {
        return std::nullopt;
    }
    std::error_code error;
    if (!std::filesystem::is_regular_file(sheet, error)) return std::nullopt;
    return sheet;
}

bool WriteMainWindow(ProfileFile& profile, const MainWindowSection& window) {
    std::vector<ProfileEntry> entries;
    const auto add = [&](std::string_view key, const std::optional<std::int32_t>& value) {
        if (value) entries.push_back(Entry(kMainWindowSection, key, std::to_string(*value)));
    };
    add("WindowState", window.WindowState);
    add("Left", window.Left);
    add("Top", window.Top);
    add("Width", window.Width);
    add("Height", window.Height);
    add("SizeBarV", window.SizeBarV);
    add("SizeBarVText", window.SizeBarVText);
    add("SizeBarVImage", window.SizeBarVImage);
    return profile.Write(entries);
}

bool WriteDirStories(ProfileFile& profile, const std::filesystem::path& directory) {
    return profile.Write(kConfigurationSection, "DirStories", directory.string());
}

bool WriteDirImages(ProfileFile& profile, const std::filesystem::path& directory) {
    return profile.Write(kConfigurationSection, "DirImages", directory.string());
}

bool WriteTipOfTheDay(ProfileFile& profile, const TipOfTheDaySection& tips) {
    return profile.Write(
        {Entry(kTipOfTheDaySection, "ShowTipsAtStartup", FlagText(tips.ShowTipsAtStartup)),
         Entry(kTipOfTheDaySection, "LastTipOfTheDay", std::to_string(tips.LastTipOfTheDay))});
}

bool WriteLockMetadata(ProfileFile& profile, bool locked) {
    return WriteFlag(profile, kPreferencesSection, "LockMetadata", locked);
}

bool WriteKeepMetadata(ProfileFile& profile, bool keep) {
    return WriteFlag(profile, kPreferencesSection, "KeepMetadata", keep);
}

bool WriteMultipleClipboardVisible(ProfileFile& profile, bool visible) {
    return WriteFlag(profile, kPreferencesSection, "MultipleClipboardVisible", visible);
}

bool WriteColorInformations(ProfileFile& profile, OleColour colour) {
    return WriteColour(profile, kPreferencesSection, "ColorInformations", colour);
}

bool WriteFont(ProfileFile& profile, const Preferences& preferences, std::size_t entry) {
    if (entry >= kFontEntries) return false;
    return profile.Write(
        {Entry(kPreferencesSection, FontKey("FontName", entry), preferences.FontName[entry]),
         Entry(kPreferencesSection, FontKey("FontSize", entry),
               std::to_string(preferences.FontSize[entry])),
         Entry(kPreferencesSection, FontKey("FontBold", entry),
               FlagText(preferences.FontBold[entry])),
         Entry(kPreferencesSection, FontKey("FontItalic", entry),
               FlagText(preferences.FontItalic[entry]))});
}

bool WritePreferencesDialog(ProfileFile& profile, const Preferences& preferences) {
    std::vector<ProfileEntry> entries;
    for (const PreferenceKey& key : kPreferenceKeys) {
        if (key.writtenBy != WrittenBy::PreferencesDialog) continue;
        entries.push_back(Entry(kPreferencesSection, key.name, KeyText(key, preferences)));
    }
    entries.push_back(Entry(kFileMRUSection, "UseMRU", FlagText(preferences.FileMRU.UseMRU)));
    return profile.Write(entries);
}

}  // namespace tessarin
