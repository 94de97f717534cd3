#include "ui/story_text_box.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <algorithm>

namespace tessarin {
namespace {

const QString kLineBreak = QStringLiteral("\r\n");

bool IsBackspace(const QKeyEvent* event) {
    return event->matches(QKeySequence::Backspace) ||
           (event->key() == Qt::Key_Backspace && !(event->modifiers() & ~Qt::ShiftModifier));
}

// The range a deletion key takes when nothing is selected, as the caret moves for it.
bool SelectDeletion(QKeyEvent* event, QTextCursor& cursor) {
    const auto extend = [&cursor](QTextCursor::MoveOperation move) {
        cursor.movePosition(move, QTextCursor::KeepAnchor);
        return true;
    };
    if (IsBackspace(event)) return extend(QTextCursor::PreviousCharacter);
    if (event->matches(QKeySequence::Delete)) return extend(QTextCursor::NextCharacter);
    if (event->matches(QKeySequence::DeleteStartOfWord)) return extend(QTextCursor::PreviousWord);
    if (event->matches(QKeySequence::DeleteEndOfWord)) return extend(QTextCursor::NextWord);
    if (event->matches(QKeySequence::DeleteEndOfLine)) {
        const QTextBlock block = cursor.block();
        const bool atEnd = cursor.position() == block.position() + block.length() - 1;
        return extend(atEnd ? QTextCursor::NextCharacter : QTextCursor::EndOfBlock);
    }
    if (event->matches(QKeySequence::DeleteCompleteLine)) {
        cursor.select(QTextCursor::LineUnderCursor);
        return true;
    }
    return false;
}

// Whether the key is the shortcut of an enabled command of the window.
bool IsCommandShortcut(const QWidget& window, const QKeyEvent& event) {
    const QKeySequence pressed(event.keyCombination());
    const QList<QAction*> actions = window.findChildren<QAction*>();
    return std::any_of(actions.begin(), actions.end(), [&pressed](const QAction* action) {
        return action->isEnabled() && action->shortcuts().contains(pressed);
    });
}

}  // namespace

StoryTextBox::StoryTextBox(int box, QWidget* parent) : QTextEdit(parent), box_(box) {
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setAcceptDrops(false);
}

bool StoryTextBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        IsCommandShortcut(*window(), *static_cast<QKeyEvent*>(event))) {
        // Left unaccepted, the key is the window's shortcut.
        event->ignore();
        return true;
    }
    return QTextEdit::event(event);
}

void StoryTextBox::keyPressEvent(QKeyEvent* event) {
    lastKeyModifiers_ = event->modifiers();
    if (event->key() == Qt::Key_AltGr) {
        emit altGrPressed();
        event->accept();
        return;
    }
    if (RequestCommand(event) || RequestDeletion(event)) {
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        RequestTyping(kLineBreak);
        event->accept();
        return;
    }
    const QString text = event->text();
    if (!text.isEmpty() && (text.at(0).isPrint() || text.at(0) == u'\t')) {
        RequestTyping(text);
        event->accept();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

bool StoryTextBox::RequestCommand(QKeyEvent* event) {
    if (event->matches(QKeySequence::Undo)) {
        emit undoRequested();
    } else if (event->matches(QKeySequence::Redo)) {
        emit redoRequested();
    } else if (event->matches(QKeySequence::Cut)) {
        emit cutRequested();
    } else if (event->matches(QKeySequence::Copy)) {
        emit copyRequested();
    } else if (event->matches(QKeySequence::Paste)) {
        emit pasteRequested(QApplication::clipboard()->text());
    } else {
        return false;
    }
    return true;
}

bool StoryTextBox::RequestDeletion(QKeyEvent* event) {
    QTextCursor cursor = textCursor();
    const bool selected = cursor.hasSelection();
    if (!SelectDeletion(event, cursor)) return false;
    // A deletion key takes a selection as it stands.
    if (selected) cursor = textCursor();
    if (cursor.hasSelection()) {
        emit editRequested(cursor.selectionStart(), cursor.selectionEnd(), QString());
    }
    return true;
}

void StoryTextBox::RequestTyping(const QString& text) {
    const QTextCursor cursor = textCursor();
    emit editRequested(cursor.selectionStart(), cursor.selectionEnd(), text);
}

void StoryTextBox::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty() || event->replacementLength() != 0) {
        const QTextCursor cursor = textCursor();
        int start = cursor.selectionStart();
        int end = cursor.selectionEnd();
        if (event->replacementLength() != 0) {
            start = cursor.position() + event->replacementStart();
            end = start + event->replacementLength();
        }
        emit editRequested(start, end, event->commitString());
    }
    // The text being composed is drawn by the widget and never enters the document.
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QTextEdit::inputMethodEvent(&composing);
}

void StoryTextBox::insertFromMimeData(const QMimeData* source) {
    if (source->hasText()) emit pasteRequested(source->text());
}

void StoryTextBox::contextMenuEvent(QContextMenuEvent* event) {
    emit contextMenuRequested(event->globalPos());
}

void StoryTextBox::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    emit focused();
}

}  // namespace tessarin
