// The five pages of frmPreferences and the controls on each. A check box is named "chk" and
// its key, a colour button "cmd" and its key, a number or text entry "txt" and its key.

#include <QVBoxLayout>

#include "ui/preferences_dialog.h"

namespace tessarin {

namespace {

using P = Preferences;

// A page whose controls stand one under the other.
QWidget* NewPage(QVBoxLayout*& layout) {
    auto* page = new QWidget;
    layout = new QVBoxLayout(page);
    return page;
}

QWidget* Finished(QWidget* page, QVBoxLayout* layout) {
    layout->addStretch();
    return page;
}

}  // namespace

QWidget* PreferencesDialog::DisplayPage() {
    QVBoxLayout* page = nullptr;
    QWidget* widget = NewPage(page);
    QBoxLayout& bars = Group(*page, "PreferencesBars", "Bars");
    AddFlag(bars, "ToolBarVisible", "PreferencesDisplayToolBar", "Tool bar", &P::ToolBarVisible);
    AddFlag(bars, "ButtonsVisible", "PreferencesDisplayButtons", "Buttons", &P::ButtonsVisible);
    AddFlagOptions(bars, &P::ClassicButtons, "optClassicButtons",
                   "PreferencesDisplayClassicButtons", "Classic buttons", "optJonesButtons",
                   "PreferencesDisplayJonesButtons", "Flat buttons");
    AddFlag(bars, "TabDisplayVisible", "PreferencesDisplayTabBar", "Tab bar",
            &P::TabDisplayVisible);
    AddFlag(bars, "StatusBarVisible", "PreferencesDisplayStatusBar", "Status bar",
            &P::StatusBarVisible);
    AddFlag(bars, "StatusDate", "PreferencesDisplayDate", "Date", &P::StatusDate);
    AddFlag(bars, "StatusTime", "PreferencesDisplayTime", "Time", &P::StatusTime);
    AddFlag(bars, "TooMuchNotEnough", "PreferencesDisplayTooMuchNotEnough",
            "Too much / not enough chars", &P::TooMuchNotEnough);
    AddFlag(bars, "StatusSelected", "PreferencesDisplaySelected", "Selected chars",
            &P::StatusSelected);
    AddFonts(*page);
    QBoxLayout& colours = Group(*page, "", "Colours");
    AddColour(colours, "BackgroundColor", "PreferencesBackgroundColor", "Background colour",
              &P::BackgroundColor);
    AddColour(colours, "BackgroundColorMargin", "PreferencesMarginColor", "Margin",
              &P::BackgroundColorMargin);
    AddColour(colours, "BackgroundColorTeleprompter", "DisplayTeleprompter", "Teleprompter",
              &P::BackgroundColorTeleprompter);
    AddColour(colours, "BackgroundColorLogs", "DisplayLogs", "Logs", &P::BackgroundColorLogs);
    return Finished(widget, page);
}

QWidget* PreferencesDialog::EditingPage() {
    QVBoxLayout* page = nullptr;
    QWidget* widget = NewPage(page);
    QBoxLayout& typing = Group(*page, "FormatAutoTypography", "Automatic typography");
    AddFlag(typing, "FrenchQuotationMarks", "PreferencesFrenchQuotationMarks",
            "French quotation marks", &P::FrenchQuotationMarks);
    AddFlag(typing, "NonBreakingSpaces", "PreferencesInsertNonBreakingSpaces",
            "Insert non-breaking spaces", &P::NonBreakingSpaces);
    AddFlag(typing, "RemoveDuplicateSpaces", "PreferencesRemoveDuplicateSpaces",
            "Remove duplicate spaces", &P::RemoveDuplicateSpaces);
    AddFlag(typing, "UseAltGrForCaps", "PreferencesUseAltGrForCaps", "AltGr for accented capitals",
            &P::UseAltGrForCaps);
    QBoxLayout& inter = Group(*page, "PreferencesInter", "Inter");
    AddFlagOptions(inter, &P::SelectInter, "optInterAuto", "PreferencesInterAuto",
                   "Select the paragraph", "optInterManual", "PreferencesInterManual",
                   "Select the text by hand");
    AddColour(inter, "InterColor1", "PreferencesInterColor1", "Inter 1", &P::InterColor1);
    AddColour(inter, "InterColor2", "PreferencesInterColor2", "Inter 2", &P::InterColor2);
    AddColour(inter, "InterColor3", "PreferencesInterColor3", "Inter 3", &P::InterColor3);
    QBoxLayout& tab = Group(*page, "PreferencesTab", "Tab key");
    AddFlagOptions(tab, &P::TabInText, "optTabText", "PreferencesTabText", "Types a tab",
                   "optTabZone", "PreferencesTabZone", "Moves to the next box");
    QBoxLayout& bookmarks = Group(*page, "PreferencesBookmarksFormat", "Bookmarks");
    AddFlagOptions(bookmarks, &P::BookmarksInitials, "optBookmarksInitials",
                   "PreferencesBookmarksInitials", "Initials", "optBookmarksFullName",
                   "PreferencesBookmarksFullName", "Full name");
    AddText(bookmarks, "BookmarksDate", "PreferencesBookmarksDate", "Date", &P::BookmarksDate);
    AddText(bookmarks, "BookmarksTime", "PreferencesBookmarksTime", "Time", &P::BookmarksTime);
    AddColour(bookmarks, "BookmarksColor", "PreferencesBookmarksColor", "Colour",
              &P::BookmarksColor);
    AddSpellChecker(*page);
    return Finished(widget, page);
}

QWidget* PreferencesDialog::MetadataPage() {
    QVBoxLayout* page = nullptr;
    QWidget* widget = NewPage(page);
    QBoxLayout& trees = Group(*page, "PreferencesClassification", "Classification");
    AddColour(trees, "ClassificationColorGeneral", "PreferencesClassificationColorGeneral",
              "General", &P::ClassificationColorGeneral);
    AddColour(trees, "ClassificationColorLocal", "PreferencesClassificationColorLocal", "Local",
              &P::ClassificationColorLocal);
    AddFlag(trees, "ClassificationTooltips", "PreferencesClassificationTooltips",
            "Classification tool tips", &P::ClassificationTooltips);
    AddFlag(trees, "TaxonomyTooltips", "PreferencesTaxonomyTooltips", "Taxonomy tool tips",
            &P::TaxonomyTooltips);
    AddFlag(trees, "HighlightInformations", "PreferencesHighlightInformations",
            "Highlight the selection", &P::HighlightInformations);
    AddHighlightColour(trees);
    QBoxLayout& margin = Group(*page, "PreferencesClickMargin", "Click in the margin");
    AddFlagOptions(margin, &P::SimpleClickMargin, "optSimpleClickMargin",
                   "PreferencesSimpleClickMargin", "Single click", "optDoubleClickMargin",
                   "PreferencesDoubleClickMargin", "Double click");
    QBoxLayout& dates = Group(*page, "", "Dates");
    AddNumber(dates, "MonthColumns", "PreferencesMonthColumns", "Calendar columns",
              &P::MonthColumns, kMonthGridRange);
    AddNumber(dates, "MonthRows", "PreferencesMonthRows", "Calendar rows", &P::MonthRows,
              kMonthGridRange);
    AddFlag(dates, "ShowToday", "PreferencesShowToday", "Show today", &P::ShowToday);
    AddFlag(dates, "ShowWeekNumbers", "PreferencesShowWeekNumbers", "Show week numbers",
            &P::ShowWeekNumbers);
    AddDailyInterval(dates);
    return Finished(widget, page);
}

QWidget* PreferencesDialog::FilesPage() {
    QVBoxLayout* page = nullptr;
    QWidget* widget = NewPage(page);
    QBoxLayout& iptc = Group(*page, "PreferencesIPTCInformations", "IPTC informations");
    AddFlag(iptc, "IPTCCaption", "PreferencesIPTCCaption", "Caption", &P::IPTCCaption);
    AddFlag(iptc, "IPTCCredit", "PreferencesIPTCCredit", "Credit", &P::IPTCCredit);
    AddFlag(iptc, "IPTCByline", "PreferencesIPTCByline", "Byline", &P::IPTCByline);
    AddFlag(iptc, "IPTCKeywords", "PreferencesIPTCKeywords", "Keywords", &P::IPTCKeywords);
    AddFlag(iptc, "IPTCCollapseKeywords", "PreferencesIPTCCollapseKeywords", "Keywords on one line",
            &P::IPTCCollapseKeywords);
    AddFlag(iptc, "ImagesTooltips", "PreferencesImagesTooltips", "Tool tips on photos",
            &P::ImagesTooltips);
    QBoxLayout& saving = Group(*page, "", "Saving");
    AddFlag(saving, "BackupStories", "PreferencesKeepBackupStory", "Keep a backup story",
            &P::BackupStories);
    AddFlag(saving, "BackupAuto", "PreferencesBackupAuto", "Automatic save", &P::BackupAuto);
    AddNumber(saving, "BackupAutoTime", "PreferencesBackupAutoTime", "Minutes", &P::BackupAutoTime,
              kBackupAutoTimeRange);
    AddRecentFiles(*page);
    AddStyleSheet(*page);
    return Finished(widget, page);
}

QWidget* PreferencesDialog::SendingPage() {
    QVBoxLayout* page = nullptr;
    QWidget* widget = NewPage(page);
    QBoxLayout& sending = Group(*page, "Export", "Export");
    AddFlag(sending, "StartAutoExport", "PreferencesStartAutoExport", "Export after sending",
            &P::StartAutoExport);
    AddFlag(sending, "SendHelpBalloons", "PreferencesSendHelpBalloons", "Help balloons",
            &P::SendHelpBalloons);
    AddFlag(sending, "RTFWithImages", "PreferencesRTFWithImages", "RTF with photos",
            &P::RTFWithImages);
    QBoxLayout& news = Group(*page, "", "News");
    AddFlag(news, "NewsTopMost", "PreferencesNewsTopMost", "News window on top", &P::NewsTopMost);
    AddFlag(news, "NewsBookmark", "PreferencesNewsBookmark", "Bookmark copied news",
            &P::NewsBookmark);
    AddFlag(news, "NewsAutoTypography", "PreferencesNewsAutoTypography",
            "Typography on copied news", &P::NewsAutoTypography);
    QBoxLayout& repository = Group(*page, "", "Repository");
    AddFlag(repository, "TextMLTracking", "PreferencesTextMLTracking", "Tracking in repository",
            &P::TextMLTracking);
    AddFlag(repository, "TextMLExport", "PreferencesTextMLExport", "Export to repository",
            &P::TextMLExport);
    return Finished(widget, page);
}

}  // namespace tessarin
