// The main window's views in their tabs, and the menu entries that act on them.

#include <QAction>

#include "ui/attachments_panel.h"
#include "ui/main_window.h"
#include "ui/main_window_chrome.h"
#include "ui/metadata_panel.h"
#include "ui/story_panel.h"

namespace tessarin {

void MainWindow::ComposeViews() {
    auto* metadata = new MetadataPanel(session_, this);
    auto* story = new StoryPanel(session_, this);
    AddView(metadata, QStringLiteral("pageInformations"));
    AddView(story, QStringLiteral("pageStory"));
    AddView(new AttachmentsPanel(session_, this), QStringLiteral("pageImages"));

    story->ConnectCommands([this](const QString& key) { return chrome_->Entry(key); });
    auto on = [this, metadata](const char* key, auto command) {
        connect(chrome_->Entry(QLatin1String(key)), &QAction::triggered, metadata, command);
    };
    on("DisplayPublicationsPreferred", [metadata] { metadata->ShowPreferredPublications(); });
    on("DisplayPublicationsFull", [metadata] { metadata->ShowAllPublications(); });
    on("SearchPublications", [metadata] { metadata->SearchPublications(); });
    on("SearchTaxonomy", [metadata] { metadata->SearchTaxonomy(); });
    on("DisplayLockMetadata", [metadata](bool locked) { metadata->LockMetadata(locked); });
}

}  // namespace tessarin
