#include "ui/spelling_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>

#include "config/story_section.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

// How much of the text around the word the context shows, on each side.
constexpr std::size_t kContextUnits = 80;

QString Html(std::u16string_view text) {
    return QString::fromStdU16String(std::u16string(text)).toHtmlEscaped();
}

}  // namespace

SpellingDialog::SpellingDialog(const EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      box_(new QLabel(this)),
      word_(new QLineEdit(this)),
      context_(new QTextEdit(this)),
      suggestions_(new QListWidget(this)),
      changeTo_(new QLineEdit(this)),
      suggest_(new QPushButton(tr("Suggest"), this)) {
    setObjectName(QStringLiteral("frmSpelling"));
    setWindowTitle(ConfiguredTitle(session_, "ToolsSpellChecker", "Spell checker"));
    box_->setObjectName(QStringLiteral("lblBox"));
    word_->setObjectName(QStringLiteral("txtNotInDictionary"));
    word_->setReadOnly(true);
    context_->setObjectName(QStringLiteral("txtContext"));
    context_->setReadOnly(true);
    suggestions_->setObjectName(QStringLiteral("lstSuggestions"));
    changeTo_->setObjectName(QStringLiteral("txtChangeTo"));
    suggest_->setObjectName(QStringLiteral("cmdSuggest"));

    auto* layout = new QGridLayout(this);
    layout->addWidget(box_, 0, 0);
    layout->addWidget(word_, 0, 1);
    layout->addWidget(context_, 1, 0, 1, 2);
    layout->addWidget(changeTo_, 2, 0);
    layout->addWidget(suggestions_, 3, 0, 6, 1);
    const struct {
        const char* name;
        const char* key;  // empty: no key renames the button
        const char* caption;
        SpellingAction action;
    } buttons[] = {
        {"cmdChange", "ReplaceLabel", "Change", SpellingAction::Replace},
        {"cmdIgnore", "", "Ignore", SpellingAction::Ignore},
        {"cmdIgnoreAll", "", "Ignore all", SpellingAction::IgnoreAll},
        {"cmdAddToDictionary", "", "Add to dictionary", SpellingAction::AddToDictionary},
        {"cmdCancel", "Cancel", "Cancel", SpellingAction::Stop},
    };
    int row = 2;
    for (const auto& button : buttons) {
        auto* push = new QPushButton(ConfiguredCaption(session_, button.key, button.caption), this);
        push->setObjectName(QLatin1String(button.name));
        connect(push, &QPushButton::clicked, this,
                [this, action = button.action] { Answer(action); });
        layout->addWidget(push, row++, 1);
    }
    layout->addWidget(suggest_, row, 1);
    connect(suggest_, &QPushButton::clicked, this, [this] {
        if (question_ != nullptr)
            ShowSuggestions(question_->bridge.Suggestions(question_->spelling));
    });
    connect(suggestions_, &QListWidget::currentTextChanged, changeTo_, &QLineEdit::setText);
    connect(suggestions_, &QListWidget::itemDoubleClicked, this,
            [this] { Answer(SpellingAction::Replace); });
    setWindowModality(Qt::ApplicationModal);
}

SpellingDecision SpellingDialog::Review(const SpellingQuestion& question) {
    question_ = &question;
    const ControlState* boxLabel = session_.window.FindControl(TextBoxLabelName(question.box));
    box_->setText(boxLabel != nullptr && !boxLabel->caption.empty()
                      ? ToQString(boxLabel->caption)
                      : QStringLiteral("TextBox%1").arg(question.box));
    const std::size_t start = question.word.start;
    const std::size_t from = start > kContextUnits ? start - kContextUnits : 0;
    const std::u16string before = question.text.Text(from, start - from);
    const std::u16string after = question.text.Text(start + question.word.length, kContextUnits);
    context_->setHtml(Html(before) + QStringLiteral("<b><font color=\"red\">") +
                      Html(question.spelling) + QStringLiteral("</font></b>") + Html(after));
    word_->setText(QString::fromStdU16String(question.spelling));
    changeTo_->setText(QString::fromStdU16String(question.spelling));
    ShowSuggestions(question.suggestions);
    suggest_->setEnabled(question.suggestions.empty());
    decision_ = {SpellingAction::Stop, {}};
    show();
    answered_.exec();
    question_ = nullptr;
    return decision_;
}

void SpellingDialog::ShowSuggestions(const std::vector<std::u16string>& suggestions) {
    suggestions_->clear();
    for (const std::u16string& suggestion : suggestions)
        suggestions_->addItem(QString::fromStdU16String(suggestion));
    if (!suggestions.empty()) suggestions_->setCurrentRow(0);
}

void SpellingDialog::Answer(SpellingAction action) {
    decision_ = {action, changeTo_->text().toStdU16String()};
    // Shown again by the next question, if there is one.
    hide();
    answered_.quit();
}

void SpellingDialog::reject() {
    Answer(SpellingAction::Stop);
}

}  // namespace tessarin
