#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QMenu>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QUrl>

#include "app/display_view.h"
#include "app/missing_configuration.h"
#include "export/pdf_export.h"
#include "export/rtf_export.h"
#include "export/xsl_export.h"
#include "session/session_start.h"
#include "story/file_operations.h"
#include "story/import_document.h"
#include "tracking/tracking_window.h"
#include "ui/check_logs_dialog.h"
#include "ui/first_login_dialog.h"
#include "ui/ftp_dialog.h"
#include "ui/inbox_watcher.h"
#include "ui/list_logs_dialog.h"
#include "ui/main_status_bar.h"
#include "ui/main_window_chrome.h"
#include "ui/my_stories_dialog.h"
#include "ui/news_window.h"
#include "ui/panel_proportions.h"
#include "ui/preferences_dialog.h"
#include "ui/qt_user_interaction.h"
#include "ui/receive_dialog.h"
#include "ui/search_stories_dialog.h"
#include "ui/select_configuration_dialog.h"
#include "ui/session_view.h"
#include "ui/smtp_dialog.h"
#include "ui/story_panel.h"
#include "ui/tool_tip_text.h"
#include "ui/tracking_dialog.h"
#include "ui/word_statistics_dialog.h"
#include "ui/workflow_dialog.h"

namespace tessarin {
namespace {

constexpr int kDesignWidth = 1100;
constexpr int kDesignHeight = 760;
constexpr int kBackupTickMs = 60000;
constexpr int kExitRefused = 1;

// The tab strip's pages, in the order of DisplayView, with their design-time texts and the
// menu entry keys whose Short text replaces them.
struct TabPage {
    const char* pageName;
    const char* caption;
    const char* key;
};
constexpr TabPage kTabPages[] = {
    {"pageInformations", "Informations", "DisplayMetadata"},
    {"pageStory", "Story", "DisplayStory"},
    {"pageImages", "Images", "DisplayImages"},
};

UserInteraction& UserOr(UserInteraction* given, std::unique_ptr<UserInteraction>& own,
                        QWidget* window) {
    if (given != nullptr) return *given;
    own = std::make_unique<QtUserInteraction>(window);
    return *own;
}

// A tab's page scrolls its view, so that the window can be smaller than the view.
QScrollArea* NewPage(const char* name) {
    auto* page = new QScrollArea;
    page->setObjectName(QLatin1String(name));
    page->setWidgetResizable(true);
    page->setFrameShape(QFrame::NoFrame);
    return page;
}

// An export menu command that writes a file beside the story, under the wait cursor; the
// file is then opened as the desktop opens such files when StartAutoExport asks for it.
void ExportBesideStory(EditorSession& session,
                       const std::function<BesideStoryExport(EditorSession&)>& command) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const BesideStoryExport result = command(session);
    QApplication::restoreOverrideCursor();
    if (result.openWithShell) {
        QDesktopServices::openUrl(
            QUrl::fromLocalFile(QString::fromStdString(result.path.string())));
    }
}

}  // namespace

MainWindow::MainWindow(const AppPaths& paths, UserInteraction* user)
    : session_(paths, UserOr(user, ownUser_, this)),
      instanceLock_(QString::fromStdString((paths.appDir / "Tessarin.lock").string())),
      chrome_(new WindowChrome(*this)),
      statusBar_(new MainStatusBar(this)),
      tabs_(new QTabWidget(this)),
      backupTimer_(new QTimer(this)),
      inbox_(new InboxWatcher(session_, *statusBar_, *this)) {
    setObjectName(QStringLiteral("frmTessarin"));
    setWindowTitle(MessageBoxTitle());
    resize(kDesignWidth, kDesignHeight);
    setStatusBar(statusBar_);
    BuildTabs();
    ComposeViews();
    backupTimer_->setObjectName(QStringLiteral("TimerBackupAuto"));
    backupTimer_->setInterval(kBackupTickMs);
    connect(backupTimer_, &QTimer::timeout, this, &MainWindow::AutomaticSaveTick);
    connect(inbox_, &InboxWatcher::changed, this, &MainWindow::RefreshAll);
    ConnectCommands();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildTabs() {
    tabs_->setObjectName(QStringLiteral("tabDisplay"));
    for (const TabPage& page : kTabPages) {
        tabs_->addTab(NewPage(page.pageName), QLatin1String(page.caption));
    }
    setCentralWidget(tabs_);
    connect(tabs_, &QTabWidget::currentChanged, this, &MainWindow::ShowView);
}

void MainWindow::AddView(SessionView* view, const QString& pageName) {
    tabs_->findChild<QScrollArea*>(pageName)->setWidget(view);
    views_.push_back(view);
    connect(view, &SessionView::sessionChanged, this, [this, view] {
        RefreshWindow();
        RefreshViewsExcept(view);
    });
}

void MainWindow::ConnectCommands() {
    auto on = [this](const char* key, std::function<void()> command) {
        connect(chrome_->Entry(QLatin1String(key)), &QAction::triggered, this,
                [this, command = std::move(command)] { Run(command); });
    };
    on("FileNew", [this] { NewStory(session_); });
    on("FileClose", [this] { NewStory(session_); });
    on("FileOpen", [this] { OpenStory(session_, StandardDocumentImport()); });
    on("ExportRTF", [this] { ExportBesideStory(session_, &ExportRtfCommand); });
    on("ExportPDF", [this] { ExportBesideStory(session_, &ExportPdfCommand); });
    on("FileSave", [this] { SaveCurrentStory(session_); });
    on("FileSaveAs", [this] { SaveStoryAs(session_); });
    on("FileSaveClose", [this] { SaveAndCloseStory(session_); });
    on("About", [this] {
        session_.user.Tell("Tessarin " TESSARIN_VERSION "\nA story editor for newsrooms.",
                           MessageIcon::Information);
    });
    on("DisplayMetadata", [this] { SelectView(session_.window, DisplayView::Informations); });
    on("DisplayStory", [this] { SelectView(session_.window, DisplayView::Story); });
    on("DisplayImages", [this] { SelectView(session_.window, DisplayView::Images); });
    on("ToolsPreferences", [this] { PreferencesDialog(session_, this).exec(); });
    on("ToolsSendWorkflow", [this] { WorkflowDialog(session_, this).exec(); });
    on("DisplayLogs", [this] { ListLogsDialog(session_, this).exec(); });
    on("ToolsReceiveWorkflow", [this] { Receive(ReceiveKind::Receive); });
    on("ToolsInterceptWorkflow", [this] { Receive(ReceiveKind::Intercept); });
    on("ToolsTracking", [this] { TrackingDialog(session_, this).exec(); });
    on("ToolsCheckLogs", [this] { CheckLogsDialog(session_, this).exec(); });
    on("ToolsWordStatistics", [this] { WordStatisticsDialog(session_, this).exec(); });
    on("SearchStories", [this] { SearchStoriesDialog(session_, this).exec(); });
    on("ToolsSMTP", [this] { SmtpDialog(session_, this).exec(); });
    on("ToolsFTP", [this] { FtpDialog(session_, this).exec(); });
    on("ToolsConfiguration", [this] { SelectConfigurationDialog(session_, this).exec(); });
    on("FileMyStories", [this] { MyStoriesDialog(session_, this).exec(); });
    ConnectTools();
    connect(chrome_->Entry(QStringLiteral("FileExit")), &QAction::triggered, this, &QWidget::close);
    connect(chrome_, &WindowChrome::recentFileChosen, this, [this](int row) {
        Run([this, row] {
            OpenRecentFile(session_, static_cast<std::size_t>(row), StandardDocumentImport());
        });
    });
}

void MainWindow::AddNewsServiceMenu() {
    QAction* button = findChild<QAction*>(QStringLiteral("NewsService"));
    if (button == nullptr) return;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuNewsService"));
    const std::vector<NewsServiceEntry>& services = session_.configuration.newsServices.services;
    for (std::size_t index = 0; index < services.size(); ++index) {
        QAction* entry = menu->addAction(QString::fromStdString(services[index].name));
        entry->setObjectName(QStringLiteral("k%1").arg(index + 1));
        connect(entry, &QAction::triggered, this,
                [this, index] { OpenNews(static_cast<int>(index)); });
    }
    button->setMenu(menu);
    connect(button, &QAction::triggered, this, [this] { OpenNews(0); });
}

NewsWindow* MainWindow::OpenNews(int service) {
    std::erase_if(newsWindows_, [](const QPointer<NewsWindow>& window) { return window.isNull(); });
    if (newsWindows_.size() >= static_cast<std::size_t>(NewsWindow::kMaxWindows) ||
        static_cast<std::size_t>(service) >= session_.configuration.newsServices.services.size()) {
        QApplication::beep();
        return nullptr;
    }
    auto* window = new NewsWindow(session_, service, this);
    connect(window, &NewsWindow::storyChanged, this, &MainWindow::RefreshAll);
    newsWindows_.emplace_back(window);
    window->show();
    window->Search();
    return window;
}

// Each style sheet of the XSLT folder gets its entry mnuExportXSL in the export menu, below a
// separator, named after its file.
void MainWindow::AddStyleSheetEntries() {
    const std::vector<std::filesystem::path> sheets = StyleSheetsIn(session_.paths.xsltDir);
    QMenu* menu = chrome_->Entry(QStringLiteral("Export"))->menu();
    if (sheets.empty() || menu == nullptr) return;
    menu->addSeparator();
    for (const std::filesystem::path& sheet : sheets) {
        QAction* entry = menu->addAction(QString::fromStdString(sheet.filename().string()));
        entry->setObjectName(QStringLiteral("mnuExportXSL"));
        connect(entry, &QAction::triggered, this, [this, sheet] {
            Run([this, sheet] {
                ExportBesideStory(session_, [&sheet](EditorSession& session) {
                    return ExportXslCommand(session, sheet);
                });
            });
        });
    }
}

std::optional<int> MainWindow::Start(const std::string& commandLineConfiguration) {
    // As designed, the window opens on the Informations view.
    session_.window.Control("mnuDisplayMetadata").checked = true;

    StartOptions options;
    options.commandLine = commandLineConfiguration;
    options.anotherInstanceRunning = [this] { return AnotherInstanceRunning(); };
    options.loadSynonyms = [this](const Configuration&, WindowState&) {
        findChild<StoryPanel*>()->LoadSynonyms();
    };
    options.forcedLogin = [this](EditorSession& session) {
        return FirstLoginDialog(session, true, this).exec() == QDialog::Accepted;
    };
    StartResult result = StartEditor(session_, options);
    if (result.state == StartState::FirstLoginNeeded) {
        // A new workstation fetches its document at the first login, then starts on it; a
        // login given up tells where the document goes and how to try the demo newsroom.
        if (FirstLoginDialog(session_, false, this).exec() != QDialog::Accepted) {
            session_.user.Tell(MissingConfigurationMessage(session_.paths), MessageIcon::Critical);
            return kExitRefused;
        }
        options.commandLine.clear();
        result = StartEditor(session_, options);
    }
    if (result.state == StartState::EndProgram) return kExitRefused;
    AddStyleSheetEntries();
    AddNewsServiceMenu();
    ApplyStoredGeometry();
    KeepPanelProportions(*this, session_.preferences.MainWindow,
                         ToolTipText(session_.configuration.interface.CaptionOr(
                             "ResizeTrees", "Drag to resize the panels")));
    session_.window.Control("mnuToolsTracking").visible = TrackingAvailable(session_);
    RefreshAll();
    inbox_->Start();
    return std::nullopt;
}

void MainWindow::Receive(ReceiveKind kind) {
    inbox_->Pause();
    ReceiveDialog(session_, kind, this).exec();
    inbox_->Resume();
}

bool MainWindow::AnotherInstanceRunning() {
    return !instanceLock_.isLocked() && !instanceLock_.tryLock(0);
}

void MainWindow::ApplyStoredGeometry() {
    const MainWindowSection& stored = session_.preferences.MainWindow;
    if (stored.WindowState == kWindowMaximised) setWindowState(Qt::WindowMaximized);
    if (!AppliesStoredRectangle(stored)) return;
    resize(stored.Width.value_or(kDesignWidth), stored.Height.value_or(kDesignHeight));
    if (stored.Left && stored.Top) move(*stored.Left, *stored.Top);
}

MainWindowSection MainWindow::CurrentGeometry() const {
    MainWindowSection section;
    if (isMaximized()) section.WindowState = kWindowMaximised;
    if (isMinimized()) section.WindowState = kWindowMinimised;
    const QRect rectangle = normalGeometry().isValid() ? normalGeometry() : geometry();
    section.Left = rectangle.x();
    section.Top = rectangle.y();
    section.Width = rectangle.width();
    section.Height = rectangle.height();
    StorePanelProportions(*this, section);
    return section;
}

void MainWindow::RefreshAll() {
    RefreshWindow();
    RefreshViewsExcept(nullptr);
}

void MainWindow::RefreshWindow() {
    // "[*]" is where the window shows that the story has unsaved changes.
    const std::string& title = session_.window.title;
    setWindowTitle((title.empty() ? MessageBoxTitle() : QString::fromStdString(title)) +
                   QStringLiteral("[*]"));
    setWindowModified(session_.storyModified && !session_.mainBoxLocked);
    chrome_->Refresh(session_);
    RefreshInsertEntries();
    statusBar_->Refresh(session_);
    RefreshTabs();
    RefreshBackupTimer();
}

void MainWindow::RefreshViewsExcept(const SessionView* changed) {
    for (SessionView* view : views_) {
        if (view != changed) view->Refresh();
    }
}

void MainWindow::RefreshTabs() {
    const WindowState& window = session_.window;
    const QSignalBlocker blocker(tabs_);
    for (int index = 0; index < tabs_->count(); ++index) {
        const TabPage& page = kTabPages[index];
        const std::string& text = session_.configuration.interface.Entry(page.key).Short;
        tabs_->setTabText(
            index, text.empty() ? QLatin1String(page.caption) : QString::fromStdString(text));
        tabs_->setTabVisible(index, ViewAvailable(window, static_cast<DisplayView>(index)));
    }
    tabs_->setCurrentIndex(static_cast<int>(SelectedView(window)));
    tabs_->tabBar()->setVisible(session_.preferences.TabDisplayVisible);
}

void MainWindow::RefreshBackupTimer() {
    if (!session_.preferences.BackupAuto) {
        backupTimer_->stop();
    } else if (!backupTimer_->isActive()) {
        backupTimer_->start();
    }
}

void MainWindow::Run(const std::function<void()>& command) {
    command();
    RefreshAll();
}

void MainWindow::ShowView(int tabIndex) {
    Run([this, tabIndex] { SelectView(session_.window, static_cast<DisplayView>(tabIndex)); });
}

void MainWindow::AutomaticSaveTick() {
    BackupTick(session_, QApplication::activeModalWidget() == nullptr);
    RefreshAll();
}

void MainWindow::RunFirstActivation() {
    FirstActivation(session_);
    // The Informations button is pressed to agree with the view shown.
    SelectView(session_.window, SelectedView(session_.window));
    RefreshAll();
    if (session_.preferences.TipOfTheDay.ShowTipsAtStartup) ShowTipsOfTheDay(true);
    emit firstActivationDone();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && firstActivation_) {
        firstActivation_ = false;
        QMetaObject::invokeMethod(this, &MainWindow::RunFirstActivation, Qt::QueuedConnection);
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (CloseEditor(session_, CurrentGeometry())) {
        event->accept();
    } else {
        event->ignore();
        RefreshAll();
    }
}

void MainWindow::mousePressEvent(QMouseEvent* event) {
    session_.window.ClearStatus();
    statusBar_->Refresh(session_);
    QMainWindow::mousePressEvent(event);
}

}  // namespace tessarin
