#pragma once

#include <QDialog>
#include <cstdint>

#include "ui/editor_session_qt.h"

#include "app/preferences_edit.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace tessarin {

// frmPreferences: the user's preferences of the Preferences section, on five pages. Each
// control edits the window's copy of the session's preferences; OK hands the copy to the
// session and the preferences file, Cancel drops it. The font button and the highlight colour
// button store their choice at once. Captions come from the Interface keys Preferences...,
// else the design-time English text.
class PreferencesDialog : public QDialog {
    Q_OBJECT
  public:
    explicit PreferencesDialog(EditorSession& session, QWidget* parent = nullptr);

    void accept() override;

  private:
    using Flag = bool Preferences::*;
    using Number = std::int32_t Preferences::*;
    using Colour = OleColour Preferences::*;
    using Text = std::string Preferences::*;

    // A framed group on a page, captioned by key; its layout takes the group's controls.
    QBoxLayout& Group(QBoxLayout& page, const char* key, const char* designCaption);

    // Controls bound to one preference each; every change goes into the window's copy.
    QCheckBox* AddFlag(QBoxLayout& layout, const char* key, const char* captionKey,
                       const char* designCaption, Flag flag);
    void AddFlagOptions(QBoxLayout& layout, Flag flag, const char* onName, const char* onKey,
                        const char* onCaption, const char* offName, const char* offKey,
                        const char* offCaption);
    void AddColour(QBoxLayout& layout, const char* key, const char* captionKey,
                   const char* designCaption, Colour colour);
    void AddHighlightColour(QBoxLayout& layout);  // stored at once
    void AddNumber(QBoxLayout& layout, const char* key, const char* captionKey,
                   const char* designCaption, Number number, IntegerRange range);
    // button: one that serves the entry, on its row.
    QLineEdit* AddText(QBoxLayout& layout, const char* key, const char* captionKey,
                       const char* designCaption, Text text, QWidget* button = nullptr);

    QWidget* DisplayPage();
    QWidget* EditingPage();
    QWidget* MetadataPage();
    QWidget* FilesPage();
    QWidget* SendingPage();
    void AddFonts(QBoxLayout& page);
    void AddSpellChecker(QBoxLayout& page);
    void AddDailyInterval(QBoxLayout& layout);
    void AddRecentFiles(QBoxLayout& page);
    void AddStyleSheet(QBoxLayout& page);
    void ShowFont();
    void ChooseFontOfView();

    EditorSession& session_;
    PreferencesChoice choice_;
    QComboBox* fontViews_ = nullptr;
    QLabel* fontSample_ = nullptr;
};

}  // namespace tessarin
