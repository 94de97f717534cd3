#include "ui/insert_characters_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "config/profile_values.h"
#include "editing/character_insertion.h"
#include "ui/configured_caption.h"
#include "ui/named_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
InsertCharactersDialog::InsertCharactersDialog(EditorSession& session, Panel panel, QWidget* parent)
    : QDialog(parent),
      session_(session),
      panel_(std::move(panel)),
      sets_(LoadCharacterSets(session.paths.configurationFile)),
      names_(Named(new QListWidget(this), "lstCharactersName")),
      characters_(Named(new QListWidget(this), "lstCharactersSet")),
      code_(Named(new QLabel(this), "lblDecimal")),
      ok_(Named(new QPushButton(QStringLiteral("OK"), this), "cmdOK")),
      altGr_(Named(new QCheckBox(this), "chkUseAltGrForCaps")) {
    setObjectName(QStringLiteral("frmInsertCharacters"));
    setWindowTitle(ConfiguredTitle(session_, "InsertCharacters", "Insert characters"));
    altGr_->setText(
        ConfiguredCaption(session_, "PreferencesUseAltGrForCaps", "AltGr for accented capitals"));
    altGr_->setChecked(session.preferences.UseAltGrForCaps);
    auto* cancel =
        Named(new QPushButton(ConfiguredCaption(session_, "Cancel", "Close"), this), "cmdCancel");

    // The characters show in the font and size of the box they go to.
    const int box = CharacterTargetBox(session);
    const std::size_t fontEntry = static_cast<std::size_t>(box);
    QFont font(QString::fromStdString(session.preferences.FontName[fontEntry]));
    font.setPointSize(session.preferences.FontSize[fontEntry]);
    characters_->setFont(font);
    characters_->setViewMode(QListView::IconMode);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(code_, 1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(names_);
    layout->addWidget(characters_, 1);
    layout->addWidget(altGr_);
    layout->addLayout(buttons);

    for (const std::string& name : sets_.names)
        names_->addItem(QString::fromStdString(name));
    connect(names_, &QListWidget::currentRowChanged, this, &InsertCharactersDialog::ChooseSet);
    connect(characters_, &QListWidget::currentRowChanged, this,
            &InsertCharactersDialog::ChooseCharacter);
    connect(characters_, &QListWidget::itemDoubleClicked, this, &InsertCharactersDialog::Insert);
    connect(ok_, &QPushButton::clicked, this, &InsertCharactersDialog::Insert);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(altGr_, &QCheckBox::toggled, this, [this](bool on) {
        session_.preferences.UseAltGrForCaps = on;
        WriteFlag(session_.profile, kPreferencesSection, "UseAltGrForCaps", on);
    });
    const int stored = ReadCharacterSetIndex(session.profile);
    names_->setCurrentRow(stored >= 0 && stored < names_->count() ? stored : 0);
    ChooseSet(names_->currentRow());
}

void InsertCharactersDialog::ChooseSet(int row) {
    characters_->clear();
    code_->clear();
    ok_->setEnabled(false);
    if (row < 0 || static_cast<std::size_t>(row) >= sets_.characters.size()) return;
    for (char16_t character : sets_.characters[static_cast<std::size_t>(row)]) {
        characters_->addItem(QString(QChar(character)) + QLatin1Char(' '));
    }
    characters_->setCurrentRow(-1);
}

void InsertCharactersDialog::ChooseCharacter() {
    const QListWidgetItem* item = characters_->currentItem();
    ok_->setEnabled(item != nullptr);
    code_->setText(item ? ToQString(CharacterCodeText(item->text().at(0).unicode())) : QString());
}

void InsertCharactersDialog::Insert() {
    const QListWidgetItem* item = characters_->currentItem();
    if (item == nullptr) return;
    TextSelection selection = panel_.selection();
    if (InsertCharacter(session_, selection, item->text().at(0).unicode())) {
        panel_.inserted(selection);
    }
}

void InsertCharactersDialog::done(int result) {
    WriteCharacterSetIndex(session_.profile, std::max(names_->currentRow(), 0));
    QDialog::done(result);
}

}  // namespace tessarin
