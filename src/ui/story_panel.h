#pragma once

#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QPoint>
#include <QString>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "editing/box_typing.h"
#include "editing/character_insertion.h"
#include "editing/clipboard.h"
#include "editing/questions_answers.h"
#include "editing/typography_typing.h"
#include "linguistics/synonyms.h"
#include "story/story_record.h"
#include "ui/clipboard_tree.h"
#include "ui/session_view.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace tessarin {

class NotesTree;
class SearchDialog;
class StoryTextBox;
class StyledTextBridge;

// The story panel of the main window: the form list lstStoryTypes, the seven text boxes
// TextBox0 to TextBox6 with their labels lblTextBoxN, counters lblNbTextBoxN, limits
// lblMinMaxTextBoxN, warning icons ImageWarningLessN and ImageWarningMoreN and all-caps marks
// ImageAllCapsN, the total lblNbTotal, and the signature txtSignature with its buttons
// cmdSignature0 and cmdSignature1, and beside them the notes, treeNotes, and the multiple
// clipboard, treeClipboard.
//
// The boxes show the story's styled text; every key, paste and command goes to the core,
// which decides (note anchors refuse edits, all-caps boxes upper-case, the counters and
// warnings follow), and the panel shows the outcome. The slots below are the editing
// commands for the main window's menus and tool bars; each acts on the box that had the focus
// last.
class StoryPanel : public SessionView {
    Q_OBJECT
  public:
    StoryPanel(EditorSession& session, QWidget* parent);
    ~StoryPanel() override;

    void Refresh() override;

    // Connects the main window's menu entries, found by their Interface key ("FormatBold";
    // null when the window has none), to the commands below.
    void ConnectCommands(const std::function<QAction*(const QString& key)>& entry);

  public slots:
    void Bold();
    void Italic();
    void Underline();
    void Superscript();
    void Inter(int style);  // 1 to 3
    void ToUpperCase();
    void ToLowerCase();
    void InsertDate();
    void InsertTime();
    void InsertNonBreakingSpace();
    void AutoTypography();
    void ToggleMultipleClipboard();
    void ToggleQuestionsAnswers();
    void
    InsertCharacters();  // frmInsertCharacters  // frmQuestionsAnswers first when the mode goes on
    void OpenSearch(int tab);  // frmSearch on its search (0) or replace (1) tab
    void FindNextOccurrence();
    void Cut();
    void Copy();
    void Paste();
    void Undo();
    void Redo();
    // The tools that read the boxes' words: the spelling check of every box, and the
    // synonyms of the selection or of the word at the caret.
    void CheckSpelling();
    void ShowSynonyms();
    // Reads the synonyms dictionary that the configuration names, as its load ends.
    void LoadSynonyms();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // The controls of one text box; row holds them all.
    struct BoxWidgets {
        QWidget* row = nullptr;
        StoryTextBox* edit = nullptr;
        QLabel* label = nullptr;
        QLabel* count = nullptr;
        QLabel* limits = nullptr;
        QLabel* writeLess = nullptr;
        QLabel* writeMore = nullptr;
        QLabel* allCaps = nullptr;  // boxes 0 to 5 only
        std::unique_ptr<StyledTextBridge> bridge;
    };
    using Command = std::function<bool(EditorSession&, TextSelection&)>;

    void BuildLayout();
    QWidget* BuildFormList();
    QWidget* BuildBox(int box);
    QWidget* BuildSignature();
    QLabel* NewLabel(const std::string& name);
    void OnClick(QObject* control, std::function<void()> action);
    void OnHover(QObject* control, std::function<void()> action);

    void ShowForms();
    void ShowBox(int box);
    void ShowBoxControls(int box);
    void ShowSignature();
    void ShowTotal();

    void FormClicked(int row);
    void TypeInto(int box, int start, int end, const QString& text);
    bool EnterQuestionOrAnswer(int box, std::size_t from, std::size_t to);
    void PasteInto(int box, const QString& text);
    void FocusBox(int box);
    void SelectionMoved(int box);
    void DocumentChanged(int box);
    void ShowContextMenu(int box, const QPoint& where);

    TextSelection SelectionOf(int box) const;
    void Select(const TextSelection& selection);
    void RunOnSelection(const Command& command);
    void ShowAllBoxes();
    void Changed();
    void Reveal(const TextSelection& selection);
    ClipboardTree::Panel SnippetPanel();  // the focus to its box, the range selected

    std::array<BoxWidgets, kTextBoxCount> boxes_;
    QLabel* formsLabel_ = nullptr;
    QListWidget* forms_ = nullptr;
    QLineEdit* signature_ = nullptr;
    std::array<QPushButton*, 2> signatureButtons_{};
    QLabel* total_ = nullptr;
    std::map<QObject*, std::function<void()>> clicks_;
    std::map<QObject*, std::function<void()>> hovers_;
    TypingBurst burst_;
    TypographyTyping typography_;
    QuestionsAnswers questionsAnswers_;
    AltGrCapitals altGr_;
    SearchDialog* search_ = nullptr;  // made at its first use
    NotesTree* notes_ = nullptr;
    ClipboardTree* snippets_ = nullptr;
    TextClipboard clipboard_;
    std::optional<SynonymsDictionary> synonyms_;
};

}  // namespace tessarin
