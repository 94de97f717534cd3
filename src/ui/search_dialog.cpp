#include "ui/search_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>

#include "editing/search_replace_settings.h"
#include "ui/configured_caption.h"
#include "ui/named_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kReplaceTab = 1;

}  // namespace

SearchDialog::SearchDialog(EditorSession& session, Panel panel, QWidget* parent)
    : QDialog(parent),
      session_(session),
      panel_(std::move(panel)),
      tabs_(Named(new QTabBar(this), "TabStripSearchReplace")),
      search_(Named(new QLineEdit(this), "txtSearch")),
      replace_(Named(new QLineEdit(this), "txtReplace")),
      matchCase_(Named(new QCheckBox(this), "chkMatchCase")),
      wholeWord_(Named(new QCheckBox(this), "chkWholeWord")),
      searchAllCount_(Named(new QLabel(this), "lblSearchAll")),
      replaceButton_(Named(new QPushButton(this), "cmdReplace")),
      replaceAllButton_(Named(new QPushButton(this), "cmdReplaceAll")) {
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(ConfiguredTitle(session_, "SearchAndReplaceText", "Search and replace"));
    tabs_->addTab(ConfiguredTitle(session_, "SearchText", "Search"));
    tabs_->addTab(ConfiguredTitle(session_, "SearchReplace", "Replace"));
    matchCase_->setText(ConfiguredCaption(session_, "SearchTextMatchCase", "Match case"));
    wholeWord_->setText(ConfiguredCaption(session_, "SearchTextWholeWord", "Whole word"));
    replaceButton_->setText(ConfiguredCaption(session_, "SearchReplace", "Replace"));
    replaceAllButton_->setText(ConfiguredCaption(session_, "SearchReplaceAll", "Replace all"));
    auto* following = Named(
        new QPushButton(ConfiguredCaption(session_, "SearchTextFollowing", "Find next"), this),
        "cmdFollowing");
    auto* searchAll =
        Named(new QPushButton(ConfiguredCaption(session_, "SearchAll", "Search all"), this),
              "cmdSearchAll");
    auto* cancel =
        Named(new QPushButton(ConfiguredCaption(session_, "Cancel", "Cancel"), this), "cmdCancel");
    following->setDefault(true);

    auto* fields = new QGridLayout;
    fields->addWidget(new QLabel(ConfiguredCaption(session_, "Search", "Search"), this), 0, 0);
    fields->addWidget(search_, 0, 1);
    fields->addWidget(
        new QLabel(ConfiguredCaption(session_, "SearchReplaceBy", "Replace by"), this), 1, 0);
    fields->addWidget(replace_, 1, 1);
    fields->addWidget(matchCase_, 2, 1);
    fields->addWidget(wholeWord_, 3, 1);
    fields->addWidget(searchAllCount_, 4, 1);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {following, replaceButton_, replaceAllButton_, searchAll, cancel})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* body = new QHBoxLayout;
    body->addLayout(fields, 1);
    body->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addLayout(body);

    connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
        ShowTab(tab);
        Restart();
    });
    connect(search_, &QLineEdit::textEdited, this, &SearchDialog::Restart);
    connect(following, &QPushButton::clicked, this, &SearchDialog::FindNext);
    connect(replaceButton_, &QPushButton::clicked, this, &SearchDialog::Replace);
    connect(replaceAllButton_, &QPushButton::clicked, this, &SearchDialog::ReplaceAll);
    connect(searchAll, &QPushButton::clicked, this, &SearchDialog::SearchAll);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void SearchDialog::Open(int tab) {
    const SearchSettings settings = ReadSearchSettings(session_.profile);
    search_->setText(QString::fromStdString(settings.search));
    replace_->setText(QString::fromStdString(settings.replace));
    matchCase_->setChecked(settings.matchCase);
    wholeWord_->setChecked(settings.wholeWord);
    {
        const QSignalBlocker blocker(tabs_);
        tabs_->setCurrentIndex(tab);
    }
    ShowTab(tab);
    Restart();
    show();
    raise();
    search_->setFocus();
}

void SearchDialog::done(int result) {
    WriteSearchSettings(session_.profile,
                        {search_->text().toStdString(), replace_->text().toStdString(),
                         matchCase_->isChecked(), wholeWord_->isChecked()});
    run_.Restart(session_);
    panel_.changed();
    QDialog::done(result);
}

SearchOptions SearchDialog::Options() const {
    return {search_->text().toStdU16String(), matchCase_->isChecked(), wholeWord_->isChecked()};
}

void SearchDialog::ShowTab(int tab) {
    const bool replacing = tab == kReplaceTab;
    replace_->setEnabled(replacing);
    replaceButton_->setEnabled(replacing);
    replaceAllButton_->setEnabled(replacing);
}

void SearchDialog::Restart() {
    run_.Restart(session_);
    searchAllCount_->clear();
    panel_.changed();
}

void SearchDialog::FindNext() {
    const std::optional<TextSelection> hit = run_.FindNext(session_, Options());
    if (hit) panel_.reveal(*hit);
    panel_.changed();
}

int SearchDialog::SearchedBox() const {
    return isVisible() ? run_.SearchedBox() : kNoBox;
}

void SearchDialog::Replace() {
    const std::optional<TextSelection> hit =
        run_.Replace(session_, panel_.selection(), Options(), replace_->text().toStdU16String());
    panel_.changed();
    if (hit) panel_.reveal(*hit);
}

void SearchDialog::ReplaceAll() {
    ReplaceAllAndTell(session_, Options(), replace_->text().toStdU16String());
    panel_.changed();
}

void SearchDialog::SearchAll() {
    MarkAllHits(session_, Options());
    searchAllCount_->setText(ToQString(session_.window.Control("lblSearchAll").caption));
    panel_.changed();
}

}  // namespace tessarin
