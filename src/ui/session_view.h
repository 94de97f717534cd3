#pragma once

#include <QWidget>

namespace tessarin {

struct EditorSession;

// A part of the main window that shows the editor session and forwards the user's gestures
// to the core. After the core changed the session, Refresh shows the new state; a view that
// changed the session itself emits sessionChanged, so that the main window refreshes the
// other views and the title.
class SessionView : public QWidget {
    Q_OBJECT
  public:
    SessionView(EditorSession& session, QWidget* parent) : QWidget(parent), session_(session) {}

    virtual void Refresh() = 0;

  signals:
    void sessionChanged();

  protected:
    EditorSession& session_;
};

}  // namespace tessarin
