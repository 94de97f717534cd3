// The story panel: the user's gestures, forwarded to the core.

#include "ui/story_panel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QMenu>
#include <QTimer>
#include <utility>

#include "config/preferences.h"
#include "editing/copy_fit.h"
#include "editing/formatting.h"
#include "editing/multiple_clipboard.h"
#include "editing/selection_state.h"
#include "editing/story_display_aids.h"
#include "editing/story_forms.h"
#include "editing/typography_rules.h"
#include "metadata/metadata_changed.h"
#include "ui/configured_caption.h"
#include "ui/insert_characters_dialog.h"
#include "ui/notes_tree.h"
#include "ui/questions_answers_dialog.h"
#include "ui/search_dialog.h"
#include "ui/story_text_box.h"
#include "ui/styled_text_bridge.h"

namespace tessarin {
namespace {

bool IsBox(int box) {
    return box >= 0 && box < kTextBoxCount;
}

// The system clipboard holds line ends as the desktop writes them.
void PutOnSystemClipboard(const TextClipboard& clipboard) {
    QApplication::clipboard()->setText(QString::fromStdString(clipboard.text)
                                           .replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

}  // namespace

void StoryPanel::ConnectCommands(const std::function<QAction*(const QString& key)>& entry) {
    const std::pair<const char*, std::function<void()>> commands[] = {
        {"EditionUndo", [this] { Undo(); }},
        {"EditionRedo", [this] { Redo(); }},
        {"EditionCut", [this] { Cut(); }},
        {"EditionCopy", [this] { Copy(); }},
        {"EditionPaste", [this] { Paste(); }},
        {"InsertDate", [this] { InsertDate(); }},
        {"InsertTime", [this] { InsertTime(); }},
        {"InsertNonBreakingSpace", [this] { InsertNonBreakingSpace(); }},
        {"FormatBold", [this] { Bold(); }},
        {"FormatItalic", [this] { Italic(); }},
        {"FormatUnderline", [this] { Underline(); }},
        {"FormatSuperscript", [this] { Superscript(); }},
        {"FormatInter1", [this] { Inter(1); }},
        {"FormatInter2", [this] { Inter(2); }},
        {"FormatInter3", [this] { Inter(3); }},
        {"FormatToUppercase", [this] { ToUpperCase(); }},
        {"FormatToLowercase", [this] { ToLowerCase(); }},
        {"ToolsSpellChecker", [this] { CheckSpelling(); }},
        {"ToolsSynonyms", [this] { ShowSynonyms(); }},
        {"FormatAutoTypography", [this] { AutoTypography(); }},
        {"SearchText", [this] { OpenSearch(0); }},
        {"InsertCharacters", [this] { InsertCharacters(); }},
        {"FormatQuestionsAnswers", [this] { ToggleQuestionsAnswers(); }},
        {"EditionMultipleClipboard", [this] { ToggleMultipleClipboard(); }},
        {"SearchReplace", [this] { OpenSearch(1); }},
        {"SearchNextOccurrence", [this] { FindNextOccurrence(); }},
    };
    for (const auto& [key, command] : commands) {
        if (QAction* action = entry(QLatin1String(key))) {
            connect(action, &QAction::triggered, this, command);
        }
    }
    // The display aids stay pressed: the entry's state goes to the core, the boxes follow.
    const std::pair<const char*, void (*)(WindowState&, bool)> aids[] = {
        {"DisplayParagraphs", &ShowParagraphMarks}, {"DisplayTextZoom", &ZoomStoryText}};
    for (const auto& [key, apply] : aids) {
        if (QAction* action = entry(QLatin1String(key))) {
            connect(action, &QAction::triggered, this, [this, apply](bool pressed) {
                apply(session_.window, pressed);
                ShowAllBoxes();
                Changed();
            });
        }
    }
}

void StoryPanel::Changed() {
    emit sessionChanged();
}

void StoryPanel::FormClicked(int row) {
    tessarin::ChooseForm(session_, row);
    MetadataChanged(session_);
    Refresh();
    Changed();
}

TextSelection StoryPanel::SelectionOf(int box) const {
    const BoxWidgets& widgets = boxes_[static_cast<std::size_t>(box)];
    const QTextCursor cursor = widgets.edit->textCursor();
    const std::size_t start = widgets.bridge->ToBoxPosition(cursor.selectionStart());
    const std::size_t end = widgets.bridge->ToBoxPosition(cursor.selectionEnd());
    return {box, start, end - start};
}

void StoryPanel::Select(const TextSelection& selection) {
    const BoxWidgets& widgets = boxes_[static_cast<std::size_t>(selection.box)];
    QTextCursor cursor = widgets.edit->textCursor();
    cursor.setPosition(widgets.bridge->ToDocumentPosition(selection.start));
    cursor.setPosition(widgets.bridge->ToDocumentPosition(selection.start + selection.length),
                       QTextCursor::KeepAnchor);
    widgets.edit->setTextCursor(cursor);
}

void StoryPanel::TypeInto(int box, int start, int end, const QString& typed) {
    BoxWidgets& widgets = boxes_[static_cast<std::size_t>(box)];
    const std::size_t from = widgets.bridge->ToBoxPosition(start);
    const std::size_t to = widgets.bridge->ToBoxPosition(end);
    if (typed == QLatin1String("\r\n") && EnterQuestionOrAnswer(box, from, to)) return;
    const bool shift = widgets.edit->LastKeyModifiers().testFlag(Qt::ShiftModifier);
    std::u16string keyed = typed.toStdU16String();
    if (keyed.size() == 1) keyed[0] = altGr_.Typed(session_, keyed[0]);
    const std::optional<TypedStretch> stretch =
        typography_.Type(session_, &burst_, box, from, keyed, to - from, shift);
    if (!stretch) {
        Changed();  // a swallowed blank shows why in the status bar
        return;
    }
    questionsAnswers_.Typed(session_, box, stretch->start, stretch->newLength);
    // The bridge still shows the text as it was, so its positions are those of the old range.
    const int documentStart = widgets.bridge->ToDocumentPosition(stretch->start);
    const int documentEnd = widgets.bridge->ToDocumentPosition(stretch->start + stretch->oldLength);
    const StyledText& text = session_.story.boxes[static_cast<std::size_t>(box)];
    widgets.bridge->ShowEdit(text, {stretch->start, stretch->oldLength, stretch->newLength},
                             documentStart, documentEnd);
    QTextCursor cursor = widgets.edit->textCursor();
    cursor.setPosition(documentStart + static_cast<int>(DocumentLength(text.Text(
                                           stretch->start, stretch->caret - stretch->start))));
    widgets.edit->setTextCursor(cursor);
    ShowBoxControls(box);
    ShowTotal();
    ShowSelection(session_, SelectionOf(box));
    Changed();
}

bool StoryPanel::EnterQuestionOrAnswer(int box, std::size_t from, std::size_t to) {
    const Qt::KeyboardModifiers held =
        boxes_[static_cast<std::size_t>(box)].edit->LastKeyModifiers() &
        (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    burst_.End(session_);
    const std::optional<std::size_t> caret =
        questionsAnswers_.Enter(session_, box, from, to - from, held != Qt::NoModifier);
    if (!caret) return false;
    ShowBox(box);
    ShowTotal();
    Select({box, *caret, 0});
    Changed();
    return true;
}

void StoryPanel::FocusBox(int box) {
    burst_.FocusBox(session_, box);
    SelectionMoved(box);
}

void StoryPanel::SelectionMoved(int box) {
    if (box != session_.activeBox || boxes_[static_cast<std::size_t>(box)].bridge->Changing()) {
        return;
    }
    if (ShowSelection(session_, SelectionOf(box))) Changed();
}

void StoryPanel::DocumentChanged(int box) {
    if (boxes_[static_cast<std::size_t>(box)].bridge->Changing()) return;
    // Something other than the core changed the box on screen: once it is done, the box shows
    // the core's text again.
    QTimer::singleShot(0, this, [this, box] {
        StyledTextBridge& bridge = *boxes_[static_cast<std::size_t>(box)].bridge;
        if (bridge.Diverged()) bridge.Load(session_.story.boxes[static_cast<std::size_t>(box)]);
    });
}

void StoryPanel::RunOnSelection(const Command& command) {
    const int box = session_.activeBox;
    if (!IsBox(box)) return;
    // What was typed before the command is an undo step of its own.
    burst_.End(session_);
    TextSelection selection = SelectionOf(box);
    if (command(session_, selection)) {
        ShowBox(box);
        ShowTotal();
        Select(selection);
    }
    ShowSelection(session_, SelectionOf(box));
    Changed();
}

void StoryPanel::Bold() {
    RunOnSelection(ToggleBold);
}

void StoryPanel::Italic() {
    RunOnSelection(ToggleItalic);
}

void StoryPanel::Underline() {
    RunOnSelection(ToggleUnderline);
}

void StoryPanel::Superscript() {
    RunOnSelection(ToggleSuperscript);
}

void StoryPanel::Inter(int style) {
    RunOnSelection([style](EditorSession& session, TextSelection& selection) {
        return ToggleInter(session, selection, style);
    });
}

void StoryPanel::ToUpperCase() {
    RunOnSelection(ChangeToUpperCase);
}

void StoryPanel::ToLowerCase() {
    RunOnSelection(ChangeToLowerCase);
}

void StoryPanel::InsertDate() {
    RunOnSelection(tessarin::InsertDate);
}

void StoryPanel::InsertTime() {
    RunOnSelection(tessarin::InsertTime);
}

void StoryPanel::InsertNonBreakingSpace() {
    RunOnSelection(tessarin::InsertNonBreakingSpace);
}

void StoryPanel::Cut() {
    RunOnSelection([this](EditorSession& session, TextSelection& selection) {
        if (!CutSelection(session, selection, clipboard_)) return false;
        PutOnSystemClipboard(clipboard_);
        return true;
    });
}

void StoryPanel::Copy() {
    if (IsBox(session_.activeBox) &&
        CopySelection(session_, SelectionOf(session_.activeBox), clipboard_)) {
        PutOnSystemClipboard(clipboard_);
    }
}

void StoryPanel::Paste() {
    PasteInto(session_.activeBox, QApplication::clipboard()->text());
}

void StoryPanel::PasteInto(int box, const QString& text) {
    if (!IsBox(box)) return;
    if (box != session_.activeBox) FocusBox(box);
    clipboard_.text = text.toStdString();
    RunOnSelection([this](EditorSession& session, TextSelection& selection) {
        return PasteClipboard(session, selection, clipboard_);
    });
}

void StoryPanel::AutoTypography() {
    burst_.End(session_);
    if (RunAutoTypography(session_)) ShowAllBoxes();
    Changed();
}

void StoryPanel::ToggleMultipleClipboard() {
    bool& visible = session_.preferences.MultipleClipboardVisible;
    visible = !visible;
    WriteMultipleClipboardVisible(session_.profile, visible);
    snippets_->Refresh();
}

void StoryPanel::ToggleQuestionsAnswers() {
    if (questionsAnswers_.On(session_)) {
        questionsAnswers_.Stop(session_);
        Changed();
        return;
    }
    auto* dialog = new QuestionsAnswersDialog(session_, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, this, [this, dialog](int result) {
        if (result != QDialog::Accepted) {
            questionsAnswers_.Stop(session_);
            Changed();
            return;
        }
        burst_.End(session_);
        const std::size_t caret =
            questionsAnswers_.Start(session_, dialog->Roles(), SelectionOf(kMainTextBox).start);
        ShowBox(kMainTextBox);
        ShowTotal();
        Reveal({kMainTextBox, caret, 0});
        Changed();
    });
    dialog->open();
}

void StoryPanel::InsertCharacters() {
    burst_.End(session_);
    InsertCharactersDialog::Panel panel;
    panel.selection = [this] { return SelectionOf(CharacterTargetBox(session_)); };
    panel.inserted = SnippetPanel().inserted;
    auto* dialog = new InsertCharactersDialog(session_, std::move(panel), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void StoryPanel::OpenSearch(int tab) {
    burst_.End(session_);
    if (search_ == nullptr) {
        SearchDialog::Panel panel;
        panel.selection = [this] {
            return IsBox(session_.activeBox) ? SelectionOf(session_.activeBox) : TextSelection{};
        };
        panel.reveal = [this](const TextSelection& hit) { Reveal(hit); };
        panel.changed = [this] {
            ShowAllBoxes();
            Changed();
        };
        search_ = new SearchDialog(session_, std::move(panel), this);
    }
    search_->Open(tab);
}

void StoryPanel::Reveal(const TextSelection& selection) {
    if (!IsBox(selection.box)) return;
    boxes_[static_cast<std::size_t>(selection.box)].edit->setFocus();
    Select(selection);
}

void StoryPanel::FindNextOccurrence() {
    if (search_ == nullptr || !search_->isVisible()) {
        OpenSearch(0);
        return;
    }
    search_->FindNext();
}

void StoryPanel::Undo() {
    burst_.Undo(session_);
    ShowAllBoxes();
    Changed();
}

void StoryPanel::Redo() {
    burst_.Redo(session_);
    ShowAllBoxes();
    Changed();
}

void StoryPanel::ShowContextMenu(int box, const QPoint& where) {
    const ContextMenuState state = ContextMenuStateOf(session_, SelectionOf(box));
    if (state.selection.length > 0) Select(state.selection);
    const WindowState& window = session_.window;
    QMenu menu(this);
    menu.addAction(ConfiguredTitle(session_, "EditionCut", "Cut"), this, &StoryPanel::Cut)
        ->setEnabled(state.cut);
    menu.addAction(ConfiguredTitle(session_, "EditionCopy", "Copy"), this, &StoryPanel::Copy)
        ->setEnabled(state.copy);
    menu.addAction(ConfiguredTitle(session_, "EditionPaste", "Paste"), this, &StoryPanel::Paste);
    menu.addAction(ConfiguredTitle(session_, "Synonyms", "Synonyms"), this,
                   &StoryPanel::ShowSynonyms)
        ->setEnabled(state.synonyms && synonyms_.has_value());
    if (!MultipleClipboardFile(session_).empty()) {
        // The Copy attribute of the multiple clipboard's entry captions this command.
        const std::string& copy =
            session_.configuration.interface.Entry("EditionMultipleClipboard").Copy;
        menu.addAction(copy.empty() ? QStringLiteral("Copy to multiple clipboard")
                                    : QString::fromStdString(copy),
                       this, [this] { snippets_->CopySelection(); })
            ->setEnabled(state.copyToMultipleClipboard);
    }
    if (session_.configuration.story.notes.visible) {
        menu.addSeparator();
        menu.addAction(ControlCaption(window, "mnuPopupAddNote", "Add note"), this,
                       [this] { notes_->AddNote(true); });
    }
    menu.exec(where);
}

}  // namespace tessarin
