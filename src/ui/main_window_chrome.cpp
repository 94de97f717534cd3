#include "ui/main_window_chrome.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "config/interface_section.h"
#include "config/recent_files.h"
#include "session/editor_session.h"
#include "ui/main_menu_layout.h"
#include "ui/tool_tip_text.h"

namespace tessarin {
namespace {

constexpr const char* kDesignCaption = "designCaption";
constexpr const char* kMenuKey = "menuKey";

QString FromView(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToStd(const QString& text) {
    return text.toStdString();
}

bool StandsFor(std::string_view key, std::string_view button) {
    const auto buttons = ToolbarButtonsOf(key);
    return !buttons.empty() && buttons.front() == button;
}

// The menu entry key that a tool-bar button stands for (a menu's own key for the search
// button); empty for a separator.
std::string_view MenuKeyOfButton(std::string_view button) {
    for (const MenuLayout& menu : MainMenuLayout()) {
        if (!menu.key.empty() && StandsFor(menu.key, button)) return menu.key;
        for (const MenuEntryLayout& entry : menu.entries) {
            if (StandsFor(entry.key, button)) return entry.key;
        }
    }
    return {};
}

void Name(QAction& action, const QString& name, std::string_view designCaption) {
    action.setObjectName(name);
    action.setText(FromView(designCaption));
    action.setProperty(kDesignCaption, FromView(designCaption));
}

// A configured text, else the design-time one kept on the action.
QString TextOr(const std::string& configured, const QAction& action) {
    return configured.empty() ? action.property(kDesignCaption).toString()
                              : QString::fromStdString(configured);
}

void ApplyState(QAction& action, const ControlState& state) {
    action.setVisible(state.visible);
    action.setEnabled(state.enabled);
    if (action.isCheckable()) action.setChecked(state.checked);
}

}  // namespace

WindowChrome::WindowChrome(QMainWindow& window) : QObject(&window) {
    BuildMenus(window);
    BuildToolbars(window);
}

QAction* WindowChrome::Entry(const QString& key) const {
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : found->second;
}

void WindowChrome::BuildMenus(QMainWindow& window) {
    QMenuBar* bar = window.menuBar();
    for (const MenuLayout& layout : MainMenuLayout()) {
        const QString name = QStringLiteral("mnu") +
                             (layout.key.empty() ? QStringLiteral("File") : FromView(layout.key));
        QMenu* menu = bar->addMenu(FromView(layout.caption));
        menu->setObjectName(name);
        Name(*menu->menuAction(), name, layout.caption);
        if (!layout.key.empty()) entries_[FromView(layout.key)] = menu->menuAction();
        for (const MenuEntryLayout& entry : layout.entries) {
            if (entry.key == kMenuSeparator) {
                menu->addSeparator();
            } else if (entry.key == kRecentFilesRows) {
                AddRecentFileRows(*menu);
            } else {
                QAction* action = menu->addAction(QString());
                Name(*action, QStringLiteral("mnu") + FromView(entry.key), entry.caption);
                action->setCheckable(entry.checkable);
                entries_[FromView(entry.key)] = action;
                if (entry.shortcut != QKeySequence::UnknownKey) {
                    standardShortcuts_[action] = entry.shortcut;
                }
            }
        }
    }
}

void WindowChrome::AddRecentFileRows(QMenu& menu) {
    QAction* separator = menu.addSeparator();
    Name(*separator, QStringLiteral("mnuSepMRU"), "");
    entries_[QStringLiteral("SepMRU")] = separator;
    for (std::size_t index = 0; index < kRecentFileCount; ++index) {
        const QString key = QStringLiteral("FileMRU%1").arg(index + 1);
        QAction* row = menu.addAction(QString());
        Name(*row, QStringLiteral("mnu") + key, "");
        entries_[key] = row;
        connect(row, &QAction::triggered, this,
                [this, index] { emit recentFileChosen(static_cast<int>(index)); });
    }
}

void WindowChrome::BuildToolbars(QMainWindow& window) {
    for (const ToolbarLayout& layout : MainToolbarLayout()) {
        if (layout.startsRow) window.addToolBarBreak();
        QToolBar* toolbar = window.addToolBar(FromView(layout.name));
        toolbar->setObjectName(FromView(layout.name));
        toolbar->setToolButtonStyle(Qt::ToolButtonTextOnly);
        toolbar->setMovable(false);
        toolbars_.push_back(toolbar);
        for (std::string_view button : layout.buttons) {
            QAction* action = nullptr;
            if (button.starts_with("Sep")) {
                action = toolbar->addSeparator();
                Name(*action, FromView(button), "");
            } else {
                action = toolbar->addAction(QString());
                Name(*action, FromView(button), ToolbarButtonCaption(button));
                action->setToolTip(action->text());
                const QString key = FromView(MenuKeyOfButton(button));
                action->setProperty(kMenuKey, key);
                QAction* entry = Entry(key);
                // A button that stands for a whole menu runs its first entry: the search
                // button opens the search window.
                if (entry != nullptr && entry->menu() != nullptr && !entry->menu()->isEmpty())
                    entry = entry->menu()->actions().front();
                if (entry != nullptr) {
                    action->setCheckable(entry->isCheckable());
                    connect(action, &QAction::triggered, entry, &QAction::trigger);
                }
            }
            buttons_.push_back(action);
        }
    }
}

void WindowChrome::Refresh(const EditorSession& session) {
    const WindowState& window = session.window;
    for (const auto& [key, action] : entries_) {
        const ControlState* state = window.FindControl(ToStd(action->objectName()));
        if (state == nullptr) continue;
        action->setText(TextOr(state->caption, *action));
        ApplyState(*action, *state);
    }
    for (QAction* button : buttons_) {
        const ControlState* state = window.FindControl(ToStd(button->objectName()));
        if (state == nullptr) continue;
        ApplyState(*button, *state);
        if (button->isSeparator()) continue;
        button->setToolTip(state->toolTip.empty() ? TextOr(state->toolTip, *button)
                                                  : ToolTipText(state->toolTip));
        const std::string key = ToStd(button->property(kMenuKey).toString());
        button->setText(TextOr(session.configuration.interface.Entry(key).Short, *button));
    }
    for (QToolBar* toolbar : toolbars_)
        toolbar->setVisible(session.preferences.ToolBarVisible);
    ShowShortcuts(session);
}

void WindowChrome::ShowShortcuts(const EditorSession& session) {
    for (const auto& [key, action] : entries_) {
        const std::string& configured = session.configuration.interface.Entry(ToStd(key)).Shortcut;
        QList<QKeySequence> shortcuts;
        if (!configured.empty()) {
            shortcuts = QKeySequence::listFromString(QString::fromStdString(configured));
        } else if (const auto standard = standardShortcuts_.find(action);
                   standard != standardShortcuts_.end()) {
            shortcuts = StandardShortcuts(standard->second);
        }
        if (action->shortcuts() != shortcuts) action->setShortcuts(shortcuts);
    }
}

}  // namespace tessarin
