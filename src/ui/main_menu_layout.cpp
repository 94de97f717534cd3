#include "ui/main_menu_layout.h"

#include <algorithm>
#include <iterator>

namespace tessarin {
namespace {

constexpr MenuEntryLayout kFileEntries[] = {
    {"FileNew", "&New", false, QKeySequence::New},
    {"FileOpen", "&Open...", false, QKeySequence::Open},
    {"FileMyStories", "My stories..."},
    {kMenuSeparator, ""},
    {"FileSave", "&Save", false, QKeySequence::Save},
    {"FileSaveAs", "Save &as...", false, QKeySequence::SaveAs},
    {"FileClose", "&Close", false, QKeySequence::Close},
    {"FileSaveClose", "Save and close"},
    {kMenuSeparator, ""},
    {"FilePrint", "&Print...", false, QKeySequence::Print},
    {kRecentFilesRows, ""},
    {kMenuSeparator, ""},
    {"FileExit", "E&xit", false, QKeySequence::Quit},
};

constexpr MenuEntryLayout kEditionEntries[] = {
    {"EditionUndo", "&Undo", false, QKeySequence::Undo},
    {"EditionRedo", "&Redo", false, QKeySequence::Redo},
    {kMenuSeparator, ""},
    {"EditionCut", "Cu&t", false, QKeySequence::Cut},
    {"EditionCopy", "&Copy", false, QKeySequence::Copy},
    {"EditionPaste", "&Paste", false, QKeySequence::Paste},
    {kMenuSeparator, ""},
    {"EditionMultipleClipboard", "Multiple clipboard", true},
};

constexpr MenuEntryLayout kDisplayEntries[] = {
    {"DisplayMetadata", "&Informations", true},
    {"DisplayStory", "&Story", true},
    {"DisplayTextZoom", "&Zoom", true},
    {"DisplayImages", "I&mages", true},
    {kMenuSeparator, ""},
    {"DisplayPublicationsPreferred", "Preferred publications", true},
    {"DisplayPublicationsFull", "All publications", true},
    {kMenuSeparator, ""},
    {"DisplayParagraphs", "Paragraphs", true},
    {"DisplayTeleprompter", "Teleprompter"},
    {"DisplayLogs", "Logs", true},
    {"DisplayLockMetadata", "Lock metadata", true},
};

constexpr MenuEntryLayout kInsertEntries[] = {
    {"InsertDate", "Date"},
    {"InsertTime", "Time"},
    {"InsertNonBreakingSpace", "Non-breaking space"},
    {kMenuSeparator, ""},
    {"InsertCharacters", "Characters..."},
    {kMenuSeparator, ""},
    {"InsertImage", "Photo..."},
    {"InsertOtherFile", "Other file..."},
};

constexpr MenuEntryLayout kFormatEntries[] = {
    {"FormatBold", "&Bold", true, QKeySequence::Bold},
    {"FormatItalic", "&Italic", true, QKeySequence::Italic},
    {"FormatUnderline", "&Underline", true, QKeySequence::Underline},
    {"FormatSuperscript", "Superscript", true},
    {kMenuSeparator, ""},
    {"FormatInter1", "Inter 1"},
    {"FormatInter2", "Inter 2"},
    {"FormatInter3", "Inter 3"},
    {kMenuSeparator, ""},
    {"FormatToUppercase", "To uppercase"},
    {"FormatToLowercase", "To lowercase"},
    {kMenuSeparator, ""},
    {"FormatQuestionsAnswers", "Questions and answers", true},
    {kMenuSeparator, ""},
    {"FormatAutoTypography", "Automatic typography", true},
};

constexpr MenuEntryLayout kSearchEntries[] = {
    {"SearchText", "Search text...", false, QKeySequence::Find},
    {"SearchReplace", "Replace...", false, QKeySequence::Replace},
    {"SearchNextOccurrence", "Next occurrence", false, QKeySequence::FindNext},
    {kMenuSeparator, ""},
    {"SearchPublications", "Search publications..."},
    {"SearchTaxonomy", "Search taxonomy..."},
    {"SearchStories", "Search stories..."},
};

constexpr MenuEntryLayout kToolsEntries[] = {
    {"ToolsSpellChecker", "Spell checker"},
    {"ToolsSynonyms", "Synonyms..."},
    {"ToolsWordStatistics", "Word statistics..."},
    {kMenuSeparator, ""},
    {"ToolsInternet1", "Internet 1"},
    {"ToolsInternet2", "Internet 2"},
    {"ToolsInternet3", "Internet 3"},
    {"ToolsApplications", "Applications"},
    {"ToolsApplication", "Application"},
    {kMenuSeparator, ""},
    {"ToolsFTP", "Send by FTP..."},
    {"ToolsSMTP", "Send by mail..."},
    {"ToolsSendWorkflow", "Send..."},
    {"ToolsReceiveWorkflow", "Receive..."},
    {"ToolsInterceptWorkflow", "Intercept..."},
    {"ToolsCheckLogs", "Check logs..."},
    {"ToolsTracking", "Tracking..."},
    {kMenuSeparator, ""},
    {"ToolsPreferences", "Preferences..."},
    {"ToolsConfiguration", "Configuration..."},
};

constexpr MenuEntryLayout kExportEntries[] = {
    {"ExportRTF", "RTF..."},
    {"ExportPDF", "PDF..."},
};

constexpr MenuEntryLayout kHelpEntries[] = {
    {"HelpContents", "User guide", false, QKeySequence::HelpContents},
    {"TipOfTheDay", "Tip of the day..."},
    {kMenuSeparator, ""},
    {"About", "About..."},
};

constexpr MenuLayout kMenus[] = {
    {"", "&File", kFileEntries},
    {"Edition", "&Edition", kEditionEntries},
    {"Display", "&Display", kDisplayEntries},
    {"Insert", "&Insert", kInsertEntries},
    {"Format", "F&ormat", kFormatEntries},
    {"Search", "&Search", kSearchEntries},
    {"Tools", "&Tools", kToolsEntries},
    {"Export", "E&xport", kExportEntries},
    {"Help", "&Help", kHelpEntries},
};

constexpr std::string_view kFileButtons[] = {"New",
                                             "Open",
                                             "MyStories",
                                             "Save",
                                             "SaveAs",
                                             "Close",
                                             "SepPrint",
                                             "Print",
                                             "SepUndo",
                                             "Undo",
                                             "Redo",
                                             "Cut",
                                             "Copy",
                                             "Paste",
                                             "SepSearch",
                                             "Search",
                                             "SepSpellChecker",
                                             "SpellChecker"};

constexpr std::string_view kEditionButtons[] = {"Bold",     "Italic", "Underline", "Superscript",
                                                "SepInter", "Inter",  "QA"};

constexpr std::string_view kToolsButtons[] = {
    "Informations",      "Story",      "Zoom",     "Images",       "Logs",
    "Preferences",       "SendFTP",    "SendMail", "SendWorkflow", "ReceiveWorkflow",
    "InterceptWorkflow", "NewsService"};

constexpr ToolbarLayout kToolbars[] = {
    {"ToolbarFile", kFileButtons},
    {"ToolbarEdition", kEditionButtons, true},
    {"ToolbarTools", kToolsButtons},
};

struct ButtonCaption {
    std::string_view button;
    std::string_view caption;
};

constexpr ButtonCaption kButtonCaptions[] = {
    {"New", "New"},
    {"Open", "Open"},
    {"MyStories", "My stories"},
    {"Save", "Save"},
    {"SaveAs", "Save as"},
    {"Close", "Close"},
    {"Print", "Print"},
    {"Undo", "Undo"},
    {"Redo", "Redo"},
    {"Cut", "Cut"},
    {"Copy", "Copy"},
    {"Paste", "Paste"},
    {"Search", "Search"},
    {"SpellChecker", "Spelling"},
    {"Bold", "B"},
    {"Italic", "I"},
    {"Underline", "U"},
    {"Superscript", "x²"},
    {"Inter", "Inter"},
    {"QA", "Q/A"},
    {"Informations", "Informations"},
    {"Story", "Story"},
    {"Zoom", "Zoom"},
    {"Images", "Images"},
    {"Logs", "Logs"},
    {"Preferences", "Preferences"},
    {"SendFTP", "FTP"},
    {"SendMail", "Mail"},
    {"SendWorkflow", "Send"},
    {"NewsService", "News"},
    {"ReceiveWorkflow", "Receive"},
    {"InterceptWorkflow", "Intercept"},
};

}  // namespace

std::span<const MenuLayout> MainMenuLayout() {
    return kMenus;
}

QList<QKeySequence> StandardShortcuts(QKeySequence::StandardKey key) {
    QList<QKeySequence> shortcuts = QKeySequence::keyBindings(key);
    if (!shortcuts.isEmpty()) return shortcuts;
    if (key == QKeySequence::Quit) return {QKeySequence(Qt::CTRL | Qt::Key_Q)};
    if (key == QKeySequence::SaveAs) return {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)};
    return {};
}

std::span<const ToolbarLayout> MainToolbarLayout() {
    return kToolbars;
}

std::string_view ToolbarButtonCaption(std::string_view button) {
    for (const ButtonCaption& entry : kButtonCaptions) {
        if (entry.button == button) return entry.caption;
    }
    return button;
}

}  // namespace tessarin
