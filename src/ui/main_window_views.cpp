// The main window's views in their tabs, and the menu entries that act on them.

#include <QAction>

#include "app/display_view.h"

#include "ui/attachments_panel.h"
#include "ui/configured_caption.h"
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
    auto* attachments = new AttachmentsPanel(session_, this);
    AddView(attachments, QStringLiteral("pageImages"));

    story->ConnectCommands([this](const QString& key) { return chrome_->Entry(key); });
    auto on = [this, metadata](const char* key, auto command) {
        connect(chrome_->Entry(QLatin1String(key)), &QAction::triggered, metadata, command);
    };
    on("DisplayPublicationsPreferred", [metadata] { metadata->ShowPreferredPublications(); });
    on("DisplayPublicationsFull", [metadata] { metadata->ShowAllPublications(); });
    on("SearchPublications", [metadata] { metadata->SearchPublications(); });
    on("SearchTaxonomy", [metadata] { metadata->SearchTaxonomy(); });
    on("DisplayLockMetadata", [metadata](bool locked) { metadata->LockMetadata(locked); });

    // Adding from the Insert menu shows the pictures' view, then its file dialog.
    const auto insert = [this, attachments](const char* key, void (AttachmentsPanel::*add)()) {
        connect(chrome_->Entry(QLatin1String(key)), &QAction::triggered, attachments,
                [this, attachments, add] {
                    ShowView(static_cast<int>(DisplayView::Images));
                    (attachments->*add)();
                });
    };
    insert("InsertImage", &AttachmentsPanel::AddImage);
    insert("InsertOtherFile", &AttachmentsPanel::AddOtherFile);
}

void MainWindow::RefreshInsertEntries() {
    const bool pictures = ViewAvailable(session_.window, DisplayView::Images);
    QAction* image = chrome_->Entry(QStringLiteral("InsertImage"));
    QAction* otherFile = chrome_->Entry(QStringLiteral("InsertOtherFile"));
    // The entries have no key of their own: they say what they add in the words that the
    // pictures' view uses.
    image->setText(ConfiguredMessage(session_, "ImageLabel", "Photo") + QStringLiteral("..."));
    otherFile->setText(ConfiguredCaption(session_, "OtherFile", "Other file") +
                       QStringLiteral("..."));
    image->setEnabled(pictures);
    otherFile->setEnabled(pictures && session_.configuration.interface.OtherFilesVisible);
}

}  // namespace tessarin
