#pragma once

#include <QKeySequence>
#include <QList>
#include <span>
#include <string_view>

namespace tessarin {

// The main window's menus as designed: each menu and entry by its Interface key (the widget
// is named "mnu" + key) with its design-time caption, which the configuration's caption
// replaces when it has one. The File menu has no key of its own; its widget is "mnuFile".

inline constexpr std::string_view kMenuSeparator = "-";
// The place of the recent-files rows: the separator mnuSepMRU, then mnuFileMRU1 to mnuFileMRU4.
inline constexpr std::string_view kRecentFilesRows = "MRU";

struct MenuEntryLayout {
    std::string_view key;  // or kMenuSeparator, kRecentFilesRows
    std::string_view caption;
    bool checkable = false;
    // The desktop's standard shortcut of the command; UnknownKey: none.
    QKeySequence::StandardKey shortcut = QKeySequence::UnknownKey;
};

struct MenuLayout {
    std::string_view key;  // empty for the File menu
    std::string_view caption;
    std::span<const MenuEntryLayout> entries;
};

std::span<const MenuLayout> MainMenuLayout();

// The shortcuts of a standard key on this desktop; where the desktop defines none for quitting
// or saving under a new name, the usual Ctrl+Q and Ctrl+Shift+S.
QList<QKeySequence> StandardShortcuts(QKeySequence::StandardKey key);

// The tool bars as designed, by their buttons' key words; a key word that starts with "Sep" is
// a separator, placed before the button it goes with.
struct ToolbarLayout {
    std::string_view name;
    std::span<const std::string_view> buttons;
    bool startsRow = false;  // the bar opens a new row below the ones before
};

std::span<const ToolbarLayout> MainToolbarLayout();

// The design-time caption of a tool-bar button, shown as its text and tool tip until the
// configuration captions the menu entry it stands for.
std::string_view ToolbarButtonCaption(std::string_view button);

}  // namespace tessarin
