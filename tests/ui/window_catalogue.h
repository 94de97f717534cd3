#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <span>

namespace tessarin {
struct EditorSession;
}

namespace tessarin::testing {

// Every window of the desktop editor besides the main window, each opened for an editor
// session as the program opens it, so that a test can go through all of them. The main
// window, with its menus, tool bars, status bar and panels, is the editor that hosts them.
struct CataloguedWindow {
    const char* name;  // the window's control name
    std::function<std::unique_ptr<QWidget>(EditorSession& session, QWidget* parent)> open;
};

std::span<const CataloguedWindow> WindowCatalogue();

}  // namespace tessarin::testing
