#pragma once

#include <QLockFile>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "session/editor_session.h"
#include "transmission/receive_window.h"

class QTabWidget;
class QTimer;

namespace tessarin {

class InboxWatcher;
class MainStatusBar;
class NewsWindow;
class SessionView;
class WindowChrome;

// The desktop editor's main window, frmTessarin. It holds the editor session, runs the
// core's start sequence, first activation and closing, forwards the File menu's commands to
// the core's file operations, and shows what the session holds: the title, the menus and
// tool bars, the status bar, and the tab strip with the Informations, Story and Images views.
class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    // user answers the core's questions; null: the window's own message boxes and dialogs.
    explicit MainWindow(const AppPaths& paths, UserInteraction* user = nullptr);
    ~MainWindow() override;

    // The start sequence with the program's one argument, a configuration document to
    // install (empty: none). Returns the exit status when the program must end now (the user
    // has been told why), nothing when the window is ready to be shown.
    std::optional<int> Start(const std::string& commandLineConfiguration);

    EditorSession& Session() { return session_; }

    // Shows the session's state in every part of the window.
    void RefreshAll();

    // Opens a news window on the news service of that index (from 0), unless five are open
    // already; the window opened, else null.
    NewsWindow* OpenNews(int service);

  signals:
    // The first activation's work is done: the window shows the new story.
    void firstActivationDone();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void BuildTabs();
    void ComposeViews();  // the views in the tabs, with the menu entries that act on them
    void ConnectCommands();
    void AddStyleSheetEntries();
    void AddNewsServiceMenu();  // the NewsService button's menu: one entry per service
    void AddView(SessionView* view, const QString& pageName);
    void ApplyStoredGeometry();
    MainWindowSection CurrentGeometry() const;
    void RefreshWindow();
    void RefreshTabs();
    void RefreshInsertEntries();  // adding pictures and files while their view is there
    void RefreshBackupTimer();
    void RefreshViewsExcept(const SessionView* changed);
    void Run(const std::function<void()>& command);
    void ShowView(int tabIndex);
    void AutomaticSaveTick();
    void Receive(ReceiveKind kind);  // frmReceive or frmIntercept, the watcher paused
    void RunFirstActivation();
    // The small tools of the Display and Help menus (main_window_tools.cpp).
    void ConnectTools();
    void ShowTipsOfTheDay(bool atStart);
    void PrintStory();                          // mnuFilePrint
    void OpenInternetAddress(const char* key);  // ToolsInternet1 to 3: the entry's URL
    void StartApplication();                    // ToolsApplication: the entry's Path
    bool AnotherInstanceRunning();

    std::unique_ptr<UserInteraction> ownUser_;
    EditorSession session_;
    QLockFile instanceLock_;
    WindowChrome* chrome_;
    MainStatusBar* statusBar_;
    QTabWidget* tabs_;
    QWidget* informationsPage_;
    QWidget* storyPage_;
    QWidget* imagesPage_;
    std::vector<SessionView*> views_;
    QTimer* backupTimer_;
    InboxWatcher* inbox_;
    bool firstActivation_ = true;
    std::vector<QPointer<NewsWindow>> newsWindows_;
};

}  // namespace tessarin
