#pragma once

#include <QTextEdit>

namespace tessarin {

// One text box of the story panel. The widget moves the caret and the selection itself, but
// never changes its own text: every gesture that would (keys, input methods, pasting by any
// means, the context menu's commands) is sent out as a request, and the panel shows what the
// core made of it. Dropping text into the box is not offered. A key that is the shortcut of
// one of the window's commands goes to that command, even where the box would take it.
class StoryTextBox : public QTextEdit {
    Q_OBJECT
  public:
    StoryTextBox(int box, QWidget* parent);

    int Box() const { return box_; }

    // The modifiers held with the last key the box took: the typing rules tell the quotation
    // key with shift from the one without.
    Qt::KeyboardModifiers LastKeyModifiers() const { return lastKeyModifiers_; }

  signals:
    // Replace the document range [start, end) by text (empty: delete it); a line break is
    // sent as CR LF.
    void editRequested(int start, int end, const QString& text);
    void pasteRequested(const QString& text);
    void cutRequested();
    void copyRequested();
    void undoRequested();
    void redoRequested();
    void focused();
    void altGrPressed();
    void contextMenuRequested(const QPoint& globalPosition);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    bool RequestCommand(QKeyEvent* event);
    bool RequestDeletion(QKeyEvent* event);
    void RequestTyping(const QString& text);

    int box_;
    Qt::KeyboardModifiers lastKeyModifiers_;
};

}  // namespace tessarin
