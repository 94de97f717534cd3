#include "ui/synonyms_dialog.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/text_replace.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {

SynonymsDialog::SynonymsDialog(const EditorSession& session, const SynonymsDictionary& dictionary,
                               const std::string& word, QWidget* parent)
    : QDialog(parent),
      session_(session),
      dictionary_(dictionary),
      synonyms_(new QListWidget(this)),
      replaceBy_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("frmSynonyms"));
    synonyms_->setObjectName(QStringLiteral("lstSynonyms"));
    replaceBy_->setObjectName(QStringLiteral("txtReplaceBy"));
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = buttons->addButton(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(ConfiguredCaption(session_, "Cancel", "Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto take = [this](QListWidgetItem* item) {
        const std::string chosen = ReplacementOfLine(ToUtf8(item->text()));
        if (!chosen.empty()) replaceBy_->setText(ToQString(chosen));
        return chosen;
    };
    connect(synonyms_, &QListWidget::itemClicked, this, take);
    connect(synonyms_, &QListWidget::itemDoubleClicked, this, [this, take](QListWidgetItem* item) {
        if (const std::string chosen = take(item); !chosen.empty()) ShowSynonyms(chosen);
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(synonyms_);
    layout->addWidget(replaceBy_);
    layout->addWidget(buttons);
    replaceBy_->setText(ToQString(word));
    ShowSynonyms(word);
}

void SynonymsDialog::ShowSynonyms(const std::string& word) {
    setWindowTitle(ConfiguredTitle(session_, "ToolsSynonyms", "Synonyms for: ###")
                       .replace(QStringLiteral("###"), ToQString(word)));
    synonyms_->clear();
    for (const std::string& line : SynonymsOf(dictionary_, word))
        synonyms_->addItem(ToQString(line));
}

std::string SynonymsDialog::Replacement() const {
    return ToUtf8(replaceBy_->text());
}

}  // namespace tessarin
