#include "config/interface_section.h"

#include <cctype>
#include <optional>

#include "common/reading_idiom.h"

namespace tessarin {

namespace {

// clang-format off
constexpr std::string_view kInterfaceKeys[] = {
    "FileNew", "FileOpen", "FileMyStories", "FileSave", "FileSaveAs", "FileClose", "FileSaveClose",
    "FilePrint", "FileExit", "Edition", "EditionUndo", "EditionRedo", "EditionCut", "EditionCopy",
    "EditionPaste", "EditionMultipleClipboard", "Display", "DisplayMetadata",
    "DisplayPublicationsPreferred", "DisplayPublicationsFull", "DisplayStory", "DisplayTextZoom",
    "DisplayImages", "ManagingImagesTool", "OtherFile", "OtherFiles", "DisplayParagraphs",
    "DisplayTeleprompter", "DisplayLogs", "DisplayLockMetadata", "Insert", "InsertDate",
    "InsertTime", "InsertNonBreakingSpace", "InsertCharacters", "InsertSetOfCharacters", "LogsSort",
    "LogsRevertSort", "Format", "FormatBold", "FormatItalic", "FormatUnderline",
    "FormatSuperscript", "FormatInter1", "FormatInter2", "FormatInter3", "FormatToUppercase",
    "FormatToLowercase", "FormatQuestionsAnswers", "FormatQuestions", "FormatAnswers",
    "FormatNewline", "FormatFollowingText", "FormatAutoTypography", "FormatAutoTypographyConfirm",
    "MyStoriesDirectoryPersonal", "MyStoriesDirectoryArchives", "MyStoriesHelp", "Search",
    "SearchAll", "SearchAndReplaceText", "SearchText", "SearchReplace", "SearchReplaceBy",
    "SearchReplaceAll", "SearchTextFollowing", "SearchTextMatchCase", "SearchTextWholeWord",
    "SearchNextOccurrence", "SearchPublications", "SearchTaxonomy", "SearchStories",
    "SearchStoriesDirectory", "SearchStoriesIn", "SearchStoriesAll", "SearchStoriesMetadata",
    "SearchStoriesText", "SearchStoriesIPTC", "SearchStoriesExactExpression", "SearchStoriesAnd",
    "SearchStoriesOr", "SearchStoriesIncludeBackupStories", "SearchStoriesBrowse",
    "SearchStoriesContents", "Tools", "ToolsSpellChecker", "ToolsSynonyms", "Word", "Synonyms",
    "ToolsInternet1", "ToolsInternet2", "ToolsInternet3", "ToolsWordStatistics",
    "ToolsWordStatisticsOccurrences", "ToolsWordStatisticsDistinctWords",
    "ToolsWordStatisticsEmptyWordsList", "ToolsWordStatisticsEmptyWord",
    "ToolsWordStatisticsIgnoreEmptyWords", "ToolsWordStatisticsHighlightUnknown",
    "ToolsWordStatisticsHighlightUnknownOnly", "ToolsWordStatisticsAnalyse", "ToolsPreferences",
    "ToolsConfiguration", "ToolsConfigurationTessarin", "ToolsConfigurationTipOfTheDay", "ToolsFTP",
    "ToolsSMTP", "ToolsSMTPLabelServer", "ToolsSMTPLabelSender", "ToolsSMTPLabelRecipient",
    "ToolsSMTPLabelSubject", "ToolsSMTPLabelMessage", "ToolsSMTPCurrentStory", "ToolsSMTPXMLStory",
    "ToolsSMTPImages", "ToolsSendWorkflow", "ToolsReceiveWorkflow", "ToolsInterceptWorkflow",
    "ToolsReceiveLabel", "ToolsReceiveAndOpenLabel", "ToolsReceiveAllLabel", "ToolsInterceptLabel",
    "ToolsInterceptAndOpenLabel", "ToolsWaitingStories", "ToolsReceivedStories",
    "ToolsReceivedImages", "ToolsReceivedOtherFiles", "ToolsCheckLogs", "ToolsTracking",
    "ToolsApplications", "ToolsApplication", "Export", "ExportRTF", "ExportPDF", "ExportXSL",
    "AddLabel", "RemoveLabel", "RemoveAllLabel", "ReplaceLabel", "ItemAlreadyInList", "ModifyLabel",
    "ImageRemove", "ImageOpen", "OtherFileRemove", "ImagesToolTipText", "OtherFilesToolTipText",
    "ImageCaption", "ImageCredit", "AuthorByDefault", "OtherFileDescription", "Help", "About",
    "TipOfTheDay", "TotalChars", "TooMuchChars", "NotEnoughChars", "SelectedChars", "SelectedWords",
    "SelectedBookmarks", "Connexion", "ServerLabel", "FormatLabel", "UserLabel", "PasswordLabel",
    "ImagesRequiredLabel", "MinLabel", "MaxLabel", "NotDefined", "NoImage", "Connect", "Disconnect",
    "CurrentDirectoryLabel", "CurrentStoryLabel", "Cancel", "Upload", "UploadTo", "UploadControl",
    "UploadNoControl", "UploadPreferred", "UploadNotPreferred", "Refresh", "StorySendHelp1",
    "StorySendHelp2", "StorySendHelp3", "StorySendHelp4", "IPTCObjectName", "IPTCEditStatus",
    "IPTCUrgency", "IPTCCategory", "IPTCSupplementalCategory", "IPTCFixtureIdentifier",
    "IPTCKeywords", "IPTCReleaseDate", "IPTCReleaseTime", "IPTCSpecialInstructions",
    "IPTCReferenceService", "IPTCReferenceDate", "IPTCReferenceNumber", "IPTCDateCreated",
    "IPTCTimeCreated", "IPTCOriginatingProgram", "IPTCProgramVersion", "IPTCObjectCycle",
    "IPTCByline", "IPTCBylineTitle", "IPTCCity", "IPTCProvinceState", "IPTCCountryCode",
    "IPTCCountryName", "IPTCOriginalTransmissionReference", "IPTCHeadline", "IPTCCredit",
    "IPTCSource", "IPTCCopyrightNotice", "IPTCContact", "IPTCCaptionAbstract", "IPTCLocalCaption",
    "IPTCWriter", "IPTCImageType", "CopyCreditCaption", "MacintoshAccents", "PreferencesFontsLabel",
    "PreferencesRecentlyOpenedStories", "PreferencesKeepMetadata",
    "PreferencesHighlightInformations", "PreferencesClickMargin", "PreferencesSimpleClickMargin",
    "PreferencesDoubleClickMargin", "PreferencesClassification",
    "PreferencesClassificationColorGeneral", "PreferencesClassificationColorLocal",
    "PreferencesClassificationTooltips", "PreferencesTaxonomyTooltips",
    "PreferencesBookmarksFormat", "PreferencesBookmarksInitials", "PreferencesBookmarksFullName",
    "PreferencesBookmarksDate", "PreferencesBookmarksTime", "PreferencesBookmarksColor",
    "PreferencesInter", "PreferencesInterAuto", "PreferencesInterManual", "PreferencesInterColor1",
    "PreferencesInterColor2", "PreferencesInterColor3", "PreferencesBackgroundColor",
    "PreferencesMarginColor", "PreferencesSpellCheckerWord", "PreferencesSpellCheckerCordial",
    "PreferencesSpellCheckerProLexis", "PreferencesAlwaysSuggest", "PreferencesIgnoreUppercase",
    "PreferencesIPTCInformations", "PreferencesIPTCCaption", "PreferencesIPTCCredit",
    "PreferencesIPTCByline", "PreferencesIPTCKeywords", "PreferencesIPTCCollapseKeywords",
    "PreferencesImagesTooltips", "PreferencesInsertNonBreakingSpaces",
    "PreferencesFrenchQuotationMarks", "PreferencesRemoveDuplicateSpaces",
    "PreferencesUseAltGrForCaps", "PreferencesStartAutoExport", "PreferencesSendHelpBalloons",
    "PreferencesRTFWithImages", "PreferencesBars", "PreferencesDisplayToolBar",
    "PreferencesDisplayButtons", "PreferencesDisplayJonesButtons",
    "PreferencesDisplayClassicButtons", "PreferencesDisplayTabBar", "PreferencesDisplayStatusBar",
    "PreferencesDisplayDate", "PreferencesDisplayTime", "PreferencesDisplayTooMuchNotEnough",
    "PreferencesDisplaySelected", "PreferencesKeepList", "PreferencesClearList",
    "PreferencesClearListOld", "PreferencesXSLTLabel", "PreferencesAddXSLT",
    "PreferencesNotAddXSLT", "PreferencesKeepBackupStory", "PreferencesBackupAuto",
    "PreferencesBackupAutoTime", "PreferencesTab", "PreferencesTabZone", "PreferencesTabText",
    "PreferencesMonthColumns", "PreferencesMonthRows", "PreferencesShowToday",
    "PreferencesShowWeekNumbers", "PreferencesDailyInterval", "PreferencesWeeklyInterval",
    "PreferencesNewsTopMost", "PreferencesNewsBookmark", "PreferencesNewsAutoTypography",
    "PreferencesTextMLTracking", "PreferencesTextMLExport", "ClearLogs", "ClearLogsConfirm",
    "ResizeTrees", "NewsCurrent", "NewsArchives", "NewsDateTime", "NewsHeadLine", "NewsSlugLine",
    "NewsCategory", "NewsPriority", "NewsRevision", "NewsWordCount", "NewsAllWordCount",
    "NewsTotal", "NewsSelected", "NewsToCopy", "NewsSearchList", "NewsEmbargoed", "NewsWithheld",
    "NewsCanceled", "NewsEmbargoedVerify", "NewsColumns", "NewsCopyHeadlines", "NewsSelectOnClick",
    "NewsSelectHover", "NewsBoldPriority", "NewsAlreadyCopied", "NewsPartiallyCopied",
    "NewsNonEmptyStory", "NewsConfirm", "NewsLog", "NewsLocation", "NewsOrganization", "NewsSort",
    "NewsSortLabel", "NewsCopy", "NewsCopySelection", "NewsCopyAll", "NewsBookmark", "Update",
    "TrackingEditorialStatus", "TrackingLayoutStatus", "TrackingClearAll",
    "TrackingClearInsideItem", "TrackingDispatchByPublicationDate", "TrackingDispatchByAuthor",
    "TrackingDispatchByLastSaveAuthor", "TrackingClassifyByForm", "TrackingMessage",
    "TrackingMessageFrom", "TrackingMessageTo", "TrackingMessageDateTime",
    "TrackingDisplayAllStories", "TrackingDisplayEditorial", "TrackingDisplayLayout",
    "TrackingAutomaticUpdate"
};
// clang-format on

struct CaptionDefault {
    std::string_view key;
    std::string_view caption;
};

// Captions that the code sets when a key's text is empty; the other keys keep the control's
// design-time caption (the IPTC keys aside, see IptcFieldName).
constexpr CaptionDefault kCaptionDefaults[] = {
    {"EditionMultipleClipboard", "Multiple clipboard"},
    {"DisplayImages", "Display Images"},
    {"SearchAndReplaceText", "Search and replace"},
    {"ToolsSynonyms", "Synonyms for: ###"},
    {"ToolsConfigurationTessarin", "Select Tessarin configuration file"},
    {"ToolsConfigurationTipOfTheDay", "Select 'Tip of the Day' configuration file"},
    {"ToolsWaitingStories", "Waiting stories"},
    {"ToolsReceivedStories", "Received stories"},
    {"ToolsReceivedImages", "Received photos"},
    {"ToolsReceivedOtherFiles", "Received other files"},
    {"ExportXSL", "Export XSL transformation:"},
    {"AddLabel", "Add"},
    {"RemoveLabel", "Remove"},
    {"RemoveAllLabel", "Remove all"},
    {"ReplaceLabel", "Replace"},
    {"ItemAlreadyInList", "already in list"},
    {"ModifyLabel", "Remove"},
    {"ImageRemove", "Remove image"},
    {"ImageOpen", "Open image"},
    {"OtherFileRemove", "Remove file"},
    {"ImagesToolTipText", "Enter key to add / Del key to delete"},
    {"OtherFilesToolTipText", "Enter key to add / Del key to delete"},
    {"TotalChars", "Total chars"},
    {"TooMuchChars", "too much chars: ###"},
    {"NotEnoughChars", "missing ### chars"},
    {"SelectedChars", "Selected chars="},
    {"SelectedWords", "Selected words="},
    {"SelectedBookmarks", "Bookmarks selected"},
    {"ImagesRequiredLabel", "Number of required photos:"},
    {"MinLabel", "Min."},
    {"MaxLabel", "Max."},
    {"NotDefined", "Not defined"},
    {"NoImage", "No photo for this form"},
    {"Upload", "Send to..."},
    {"UploadTo", "Control document"},
    {"UploadControl", "Do not control document"},
    {"ClearLogsConfirm", "Confirm Logs clearing"},
};

struct AttributeDefault {
    std::string_view key;
    std::string_view attribute;
    std::string_view text;
};

constexpr AttributeDefault kAttributeDefaults[] = {
    {"EditionMultipleClipboard", "ToolTipText", "Drag and drop to and from multiple clipboard."},
    {"EditionMultipleClipboard", "Copy", "Copy to multiple clipboard"},
    {"EditionMultipleClipboard", "Sorted", "Sorted texts"},
    {"ToolsSynonyms", "File", "Synonyms.txt"},
};

// The keys that caption a menu entry of the main window, named "mnu" + key. The other keys
// caption labels and buttons of the companion windows, or give texts and titles that the
// code uses, and are read through InterfaceSettings::Caption.
// clang-format off
constexpr std::string_view kMenuEntryKeys[] = {
    "FileNew", "FileOpen", "FileMyStories", "FileSave", "FileSaveAs", "FileClose", "FileSaveClose",
    "FilePrint", "FileExit", "Edition", "EditionUndo", "EditionRedo", "EditionCut", "EditionCopy",
    "EditionPaste", "EditionMultipleClipboard", "Display", "DisplayMetadata",
    "DisplayPublicationsPreferred", "DisplayPublicationsFull", "DisplayStory", "DisplayTextZoom",
    "DisplayImages", "DisplayParagraphs", "DisplayTeleprompter", "DisplayLogs",
    "DisplayLockMetadata", "Insert", "InsertDate", "InsertTime", "InsertNonBreakingSpace",
    "InsertCharacters", "InsertSetOfCharacters", "Format", "FormatBold", "FormatItalic",
    "FormatUnderline", "FormatSuperscript", "FormatInter1", "FormatInter2", "FormatInter3",
    "FormatToUppercase", "FormatToLowercase", "FormatQuestionsAnswers", "FormatQuestions",
    "FormatAnswers", "FormatNewline", "FormatFollowingText", "FormatAutoTypography", "Search",
    "SearchText", "SearchReplace", "SearchNextOccurrence", "SearchPublications", "SearchTaxonomy",
    "SearchStories", "Tools", "ToolsSpellChecker", "ToolsInternet1", "ToolsInternet2",
    "ToolsInternet3", "ToolsWordStatistics", "ToolsPreferences", "ToolsConfiguration", "ToolsFTP",
    "ToolsSMTP", "ToolsSendWorkflow", "ToolsReceiveWorkflow", "ToolsInterceptWorkflow",
    "ToolsCheckLogs", "ToolsTracking", "ToolsApplications", "ToolsApplication", "Export",
    "ExportRTF", "ExportPDF", "Help", "About", "TipOfTheDay"
};
// clang-format on

struct ToolbarButtons {
    std::string_view key;
    std::string_view buttons[2];  // the button, then its separator when it has one
};

// The tool-bar buttons that stand for a menu entry. The three inter styles share one
// button, which goes with the first of them.
constexpr ToolbarButtons kToolbarButtons[] = {
    {"FileNew", {"New"}},
    {"FileOpen", {"Open"}},
    {"FileMyStories", {"MyStories"}},
    {"FileSave", {"Save"}},
    {"FileSaveAs", {"SaveAs"}},
    {"FileClose", {"Close"}},
    {"FilePrint", {"Print", "SepPrint"}},
    {"EditionUndo", {"Undo", "SepUndo"}},
    {"EditionRedo", {"Redo"}},
    {"EditionCut", {"Cut"}},
    {"EditionCopy", {"Copy"}},
    {"EditionPaste", {"Paste"}},
    {"Search", {"Search", "SepSearch"}},
    {"ToolsSpellChecker", {"SpellChecker", "SepSpellChecker"}},
    {"FormatBold", {"Bold"}},
    {"FormatItalic", {"Italic"}},
    {"FormatUnderline", {"Underline"}},
    {"FormatSuperscript", {"Superscript"}},
    {"FormatInter1", {"Inter", "SepInter"}},
    {"FormatQuestionsAnswers", {"QA"}},
    {"DisplayMetadata", {"Informations"}},
    {"DisplayStory", {"Story"}},
    {"DisplayTextZoom", {"Zoom"}},
    {"DisplayImages", {"Images"}},
    {"DisplayLogs", {"Logs"}},
    {"ToolsPreferences", {"Preferences"}},
    {"ToolsFTP", {"SendFTP"}},
    {"ToolsSMTP", {"SendMail"}},
    {"ToolsSendWorkflow", {"SendWorkflow"}},
    {"ToolsReceiveWorkflow", {"ReceiveWorkflow"}},
    {"ToolsInterceptWorkflow", {"InterceptWorkflow"}},
};

// Controls whose visibility other sections decide as well (the transmission sections show
// or hide these buttons, LogsEnabled hides the log controls): this section may hide them,
// never show them again.
// clang-format off
constexpr std::string_view kControlsShownElsewhere[] = {
    "SendFTP", "SendMail", "SendWorkflow", "ReceiveWorkflow", "InterceptWorkflow", "Logs",
    "mnuDisplayLogs"
};
// clang-format on

// Words that the IPTC standard joins with "/" where the key runs them together.
constexpr std::string_view kIptcSlashNames[][2] = {
    {"Province State", "Province/State"},
    {"Caption Abstract", "Caption/Abstract"},
};

template <typename Range>
bool Contains(const Range& range, std::string_view value) {
    for (std::string_view item : range) {
        if (item == value) return true;
    }
    return false;
}

// The IPTC field's name for an "IPTC..." key: the words of the rest of the key, split
// before each capital that follows a small letter ("IPTCObjectName" gives "Object Name").
std::optional<std::string> IptcFieldName(std::string_view key) {
    constexpr std::string_view kPrefix = "IPTC";
    if (!key.starts_with(kPrefix)) return std::nullopt;
    const std::string_view words = key.substr(kPrefix.size());
    std::string name;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const auto character = static_cast<unsigned char>(words[index]);
        if (index > 0 && std::isupper(character) &&
            std::islower(static_cast<unsigned char>(words[index - 1]))) {
            name += ' ';
        }
        name += words[index];
    }
    for (const auto& [split, joined] : kIptcSlashNames) {
        if (name == split) return std::string(joined);
    }
    return name;
}

std::string DefaultCaption(std::string_view key) {
    for (const CaptionDefault& entry : kCaptionDefaults) {
        if (entry.key == key) return std::string(entry.caption);
    }
    return IptcFieldName(key).value_or(std::string());
}

std::string AttributeOr(const XmlNode& element, std::string_view key, std::string_view attribute) {
    for (const AttributeDefault& entry : kAttributeDefaults) {
        if (entry.key == key && entry.attribute == attribute) {
            return TextOr(element.Attribute(attribute), entry.text);
        }
    }
    return element.Attribute(attribute);
}

InterfaceEntry ReadEntry(const XmlNode& section, std::string_view key) {
    const XmlNode element = section.SelectSingleNode(key);
    InterfaceEntry entry;
    entry.caption = TextOr(element.Text(), DefaultCaption(key));
    entry.Visible = FlagDefaultTrue(element.Attribute("Visible"));
    entry.Short = AttributeOr(element, key, "Short");
    entry.ToolTipText = AttributeOr(element, key, "ToolTipText");
    entry.File = AttributeOr(element, key, "File");
    entry.Copy = AttributeOr(element, key, "Copy");
    entry.Sorted = AttributeOr(element, key, "Sorted");
    entry.URL = AttributeOr(element, key, "URL");
    entry.Path = AttributeOr(element, key, "Path");
    entry.Link = AttributeOr(element, key, "Link");
    entry.UserDict = AttributeOr(element, key, "UserDict");
    entry.Title = AttributeOr(element, key, "Title");
    entry.Shortcut = element.Attribute("Shortcut");
    entry.Mandatory = FlagDefaultFalse(element.Attribute("Mandatory"));
    entry.Enabled = FlagDefaultTrue(element.Attribute("Enabled"));
    return entry;
}

void SetVisible(WindowState& window, std::string_view name, bool visible) {
    if (visible && Contains(kControlsShownElsewhere, name)) return;
    window.Control(name).visible = visible;
}

// The switch of the main window's root attributes that also governs a button.
bool ButtonAllowed(const InterfaceSettings& settings, std::string_view button) {
    if (button == "Informations") return settings.MetadataVisible;
    if (button == "Zoom") return settings.TextZoomVisible;
    if (button == "Images") return settings.ImagesVisible;
    return true;
}

// The Internet entries open their URL and the application entry starts its Path: without
// one they have nothing to do, and the Applications menu holds only that entry.
bool HasWhatItOpens(const InterfaceSettings& settings, std::string_view key) {
    if (key.starts_with("ToolsInternet")) return !settings.Entry(key).URL.empty();
    if (key == "ToolsApplications" || key == "ToolsApplication") {
        return !settings.Entry("ToolsApplication").Path.empty();
    }
    return true;
}

// Captions the menu entries, gives their buttons the caption as tool tip, and shows or hides
// both. An empty caption leaves the design-time caption.
void ApplyToWindow(const InterfaceSettings& settings, WindowState& window) {
    for (std::string_view key : kMenuEntryKeys) {
        const InterfaceEntry& entry = settings.Entry(key);
        const std::string menuName = "mnu" + std::string(key);
        window.Control(menuName).caption = entry.caption;
        SetVisible(window, menuName, entry.Visible && HasWhatItOpens(settings, key));
        const std::span<const std::string_view> buttons = ToolbarButtonsOf(key);
        for (std::string_view button : buttons) {
            SetVisible(window, button, entry.Visible && ButtonAllowed(settings, button));
        }
        if (!buttons.empty()) window.Control(buttons.front()).toolTip = entry.caption;
    }
}

}  // namespace

const std::string& InterfaceSettings::Caption(std::string_view key) const {
    return Entry(key).caption;
}

std::string InterfaceSettings::CaptionOr(std::string_view key, std::string_view design) const {
    const std::string& caption = Caption(key);
    return caption.empty() ? std::string(design) : caption;
}

const InterfaceEntry& InterfaceSettings::Entry(std::string_view key) const {
    static const InterfaceEntry kNotRead;
    const auto found = entries.find(key);
    return found == entries.end() ? kNotRead : found->second;
}

std::span<const std::string_view> InterfaceKeys() {
    return kInterfaceKeys;
}

std::span<const std::string_view> ToolbarButtonsOf(std::string_view key) {
    for (const ToolbarButtons& entry : kToolbarButtons) {
        if (entry.key == key) {
            return {entry.buttons, entry.buttons[1].empty() ? 1u : 2u};
        }
    }
    return {};
}

void ReadInterface(const XmlNode& section, InterfaceSettings& settings, WindowState& window) {
    settings = {};
    if (section) {
        settings.MultipleInstances = FlagDefaultTrue(section.Attribute("MultipleInstances"));
        settings.MetadataVisible = FlagDefaultTrue(section.Attribute("MetadataVisible"));
        settings.TextZoomVisible = FlagDefaultTrue(section.Attribute("TextZoomVisible"));
        settings.ImagesVisible = FlagDefaultTrue(section.Attribute("ImagesVisible"));
        settings.OtherFilesVisible = FlagDefaultTrue(section.Attribute("OtherFilesVisible"));
        for (std::string_view key : kInterfaceKeys) {
            settings.entries.insert_or_assign(std::string(key), ReadEntry(section, key));
        }
    }
    ApplyToWindow(settings, window);
}

}  // namespace tessarin
