// The main window's views in their tabs, and the menu entries that act on them.

#include "ui/main_window.h"
#include "ui/main_window_chrome.h"
#include "ui/story_panel.h"

namespace tessarin {

void MainWindow::ComposeViews() {
    auto* story = new StoryPanel(session_, this);
    AddView(story, QStringLiteral("pageStory"));
    story->ConnectCommands([this](const QString& key) { return chrome_->Entry(key); });
}

}  // namespace tessarin
