#include "ui/word_statistics_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>

#include "linguistics/spell_check_command.h"
#include "linguistics/word_statistics_settings.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/empty_words_dialog.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

const QColor kUnknownWord(Qt::red);
const QColor kOccurrence(0, 255, 0);

}  // namespace

WordStatisticsDialog::WordStatisticsDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      words_(new QTreeWidget(this)),
      ignoreEmptyWords_(new QCheckBox(this)),
      unknownOnly_(new QCheckBox(this)),
      status_(new QLabel(this)),
      story_(new QTextEdit(this)) {
    setObjectName(QStringLiteral("frmWordStatistics"));
    setWindowTitle(ConfiguredTitle(session_, "ToolsWordStatistics", "Word statistics"));
    words_->setObjectName(QStringLiteral("lvWords"));
    words_->setRootIsDecorated(false);
    words_->setHeaderLabels(
        {ConfiguredCaption(session_, "Word", "Word"),
         ConfiguredCaption(session_, "ToolsWordStatisticsOccurrences", "Occurrences")});
    ignoreEmptyWords_->setObjectName(QStringLiteral("chkIgnoreEmptyWords"));
    ignoreEmptyWords_->setText(
        ConfiguredCaption(session_, "ToolsWordStatisticsIgnoreEmptyWords", "Ignore empty words"));
    ignoreEmptyWords_->setChecked(IgnoreEmptyWordsChosen(session.profile));
    unknownOnly_->setObjectName(QStringLiteral("chkDisplayUnknownOnly"));
    unknownOnly_->setText(ConfiguredCaption(session_, "ToolsWordStatisticsHighlightUnknownOnly",
                                            "Display unknown words only"));
    status_->setObjectName(QStringLiteral("lblStatus"));
    story_->setObjectName(QStringLiteral("rtfStory"));
    story_->setReadOnly(true);

    auto* emptyWords = new QPushButton(
        ConfiguredCaption(session_, "ToolsWordStatisticsEmptyWordsList", "Empty words"), this);
    emptyWords->setObjectName(QStringLiteral("lblEmptyWords"));
    emptyWords->setFlat(true);
    auto* unknownWords =
        new QPushButton(ConfiguredCaption(session_, "ToolsWordStatisticsHighlightUnknown",
                                          "Highlight unknown words"),
                        this);
    unknownWords->setObjectName(QStringLiteral("lblUnknownWords"));
    unknownWords->setFlat(true);
    auto* analyse =
        new QPushButton(ConfiguredCaption(session_, "ToolsWordStatisticsAnalyse", "Analyse"), this);
    analyse->setObjectName(QStringLiteral("cmdAnalyse"));

    connect(analyse, &QPushButton::clicked, this, &WordStatisticsDialog::Analyse);
    connect(ignoreEmptyWords_, &QCheckBox::toggled, this, [this](bool ignore) {
        KeepIgnoreEmptyWords(session_.profile, ignore);
        Analyse();
    });
    connect(emptyWords, &QPushButton::clicked, this, [this] {
        if (EmptyWordsDialog(session_, this).exec() == QDialog::Accepted) Analyse();
    });
    connect(unknownWords, &QPushButton::clicked, this, [this] {
        if (MarkUnknownWords()) ListWords();
    });
    connect(unknownOnly_, &QCheckBox::toggled, this, [this](bool only) {
        if (only && !MarkUnknownWords()) unknownOnly_->setChecked(false);
        ListWords();
    });
    connect(words_, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { ShowWord(item->text(0)); });

    auto* layout = new QGridLayout(this);
    layout->addWidget(words_, 0, 0, 6, 1);
    layout->addWidget(ignoreEmptyWords_, 0, 1);
    layout->addWidget(emptyWords, 1, 1);
    layout->addWidget(unknownOnly_, 2, 1);
    layout->addWidget(unknownWords, 3, 1);
    layout->addWidget(analyse, 4, 1);
    layout->addWidget(story_, 6, 0, 1, 2);
    layout->addWidget(status_, 7, 0, 1, 2);
    if (const auto position = WordStatisticsPosition(session.profile))
        move(position->first, position->second);
    Analyse();
}

void WordStatisticsDialog::done(int result) {
    KeepWordStatisticsPosition(session_.profile, x(), y());
    QDialog::done(result);
}

void WordStatisticsDialog::Analyse() {
    status_->setStyleSheet(QStringLiteral("color: red"));
    std::optional<EmptyWords> emptyWords;
    if (ignoreEmptyWords_->isChecked())
        emptyWords.emplace(
            ReadEmptyWordsList(EmptyWordsFile(session_.configuration, session_.paths.appDir)));
    statistics_ = AnalyseWords(session_.story.boxes, emptyWords ? &*emptyWords : nullptr);
    marked_ = false;
    if (unknownOnly_->isChecked() && !MarkUnknownWords()) unknownOnly_->setChecked(false);
    ListWords();
    if (statistics_.truncated) session_.user.Tell(TooManyWordsMessage(), MessageIcon::Information);
}

bool WordStatisticsDialog::MarkUnknownWords() {
    if (marked_) return true;
    SpellingBridge bridge;
    if (const std::string problem = bridge.Start(SessionSpellingSettings(session_));
        !problem.empty()) {
        session_.user.Tell(problem, MessageIcon::Exclamation);
        return false;
    }
    tessarin::MarkUnknownWords(statistics_, bridge);
    marked_ = true;
    return true;
}

void WordStatisticsDialog::ListWords() {
    words_->clear();
    for (const auto& row : statistics_.rows) {
        for (const WordOccurrences& word : row) {
            if (unknownOnly_->isChecked() && !word.unknown) continue;
            auto* item = new QTreeWidgetItem(
                words_, {QString::fromStdU16String(word.word), QString::number(word.count)});
            if (word.unknown) item->setForeground(0, kUnknownWord);
        }
    }
    status_->setStyleSheet(QString());
    status_->setText(
        ConfiguredCaption(session_, "ToolsWordStatisticsOccurrences", "Occurrences") +
        QStringLiteral(": %1 - ").arg(statistics_.occurrences) +
        ConfiguredCaption(session_, "ToolsWordStatisticsDistinctWords", "Distinct words") +
        QStringLiteral(": %1").arg(statistics_.DistinctWords()));
}

void WordStatisticsDialog::ShowWord(const QString& word) {
    const WordPlaces places = PlacesOfWord(session_.story.boxes, word.toStdU16String());
    story_->setPlainText(QString::fromStdU16String(places.text)
                             .replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    // Each line break of the text is one character shorter on screen: count them off.
    const std::u16string& text = places.text;
    QTextCharFormat highlight;
    highlight.setBackground(kOccurrence);
    std::size_t breaks = 0, scanned = 0;
    for (const auto& [start, length] : places.occurrences) {
        for (; scanned < start; ++scanned)
            breaks +=
                text[scanned] == u'\r' && scanned + 1 < text.size() && text[scanned + 1] == u'\n';
        QTextCursor cursor(story_->document());
        cursor.setPosition(static_cast<int>(start - breaks));
        cursor.setPosition(static_cast<int>(start - breaks + length), QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(highlight);
    }
}

}  // namespace tessarin
