#include "ui/empty_words_dialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "linguistics/empty_words.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {

EmptyWordsDialog::EmptyWordsDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      words_(new QListWidget(this)),
      word_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("frmEmptyWordsList"));
    setWindowTitle(
        ConfiguredTitle(session_, "ToolsWordStatisticsEmptyWordsList", "Empty words list"));
    words_->setObjectName(QStringLiteral("lstEmptyWords"));
    word_->setObjectName(QStringLiteral("txtEmptyWord"));
    for (const std::string& word :
         ReadEmptyWordsList(EmptyWordsFile(session.configuration, session.paths.appDir)))
        words_->addItem(ToQString(word));
    connect(words_, &QListWidget::currentTextChanged, word_, &QLineEdit::setText);

    auto button = [this](const char* name, const char* key, const char* caption) {
        auto* push = new QPushButton(ConfiguredCaption(session_, key, caption), this);
        push->setObjectName(QLatin1String(name));
        return push;
    };
    QPushButton* add = button("cmdAddEmptyWord", "AddLabel", "Add");
    QPushButton* replace = button("cmdReplaceEmptyWord", "ReplaceLabel", "Replace");
    QPushButton* remove = button("cmdRemoveEmptyWord", "RemoveLabel", "Remove");
    connect(add, &QPushButton::clicked, this, [this] {
        const QString word = word_->text().trimmed();
        if (!word.isEmpty() && words_->findItems(word, Qt::MatchFixedString).isEmpty())
            words_->addItem(word);
    });
    connect(replace, &QPushButton::clicked, this, [this] {
        const QString word = word_->text().trimmed();
        if (QListWidgetItem* item = words_->currentItem(); item && !word.isEmpty())
            item->setText(word);
    });
    connect(remove, &QPushButton::clicked, this,
            [this] { delete words_->takeItem(words_->currentRow()); });

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    buttons->button(QDialogButtonBox::Cancel)
        ->setText(ConfiguredCaption(session_, "Cancel", "Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QGridLayout(this);
    layout->addWidget(words_, 0, 0, 4, 1);
    layout->addWidget(word_, 4, 0);
    layout->addWidget(add, 0, 1);
    layout->addWidget(replace, 1, 1);
    layout->addWidget(remove, 2, 1);
    layout->addWidget(buttons, 5, 0, 1, 2);
}

void EmptyWordsDialog::accept() {
    std::vector<std::string> words;
    for (int row = 0; row < words_->count(); ++row)
        words.push_back(ToUtf8(words_->item(row)->text()));
    const std::filesystem::path file =
        EmptyWordsFile(session_.configuration, session_.paths.appDir);
    if (!WriteEmptyWordsList(file, words)) {
        session_.user.Tell("The empty words list cannot be written to " + file.string() + ".",
                           MessageIcon::Exclamation);
        return;
    }
    QDialog::accept();
}

}  // namespace tessarin
