// The main window's small tools: printing, the teleprompter, the tips of the day, the user
// guide, and the Internet addresses and the application that the newsroom configures.

#include <QAction>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QTextDocument>
#include <QUrl>

#include "export/story_print.h"
#include "tools/teleprompter.h"
#include "tools/tips_of_the_day.h"
#include "tools/user_guide.h"
#include "ui/main_status_bar.h"
#include "ui/main_window.h"
#include "ui/main_window_chrome.h"
#include "ui/printouts.h"
#include "ui/teleprompter_window.h"
#include "ui/tip_of_the_day_dialog.h"

namespace tessarin {

void MainWindow::ConnectTools() {
    auto on = [this](const char* key, std::function<void()> command) {
        connect(chrome_->Entry(QLatin1String(key)), &QAction::triggered, this,
                [this, command = std::move(command)] { Run(command); });
    };
    // An empty story has nothing to prompt: the status panel says so.
    on("DisplayTeleprompter", [this] {
        const std::u16string text = TeleprompterText(session_.story, session_.preferences);
        if (text.empty()) {
            session_.window.ShowStatusError(session_.Message("EmptyStory"));
            return;
        }
        (new TeleprompterWindow(text, session_.preferences, this))->showFullScreen();
    });
    on("TipOfTheDay", [this] { ShowTipsOfTheDay(false); });
    on("FilePrint", [this] { PrintStory(); });
    for (const char* key : {"ToolsInternet1", "ToolsInternet2", "ToolsInternet3"}) {
        on(key, [this, key] { OpenInternetAddress(key); });
    }
    on("ToolsApplication", [this] { StartApplication(); });
    // The application's entry stands in the Applications menu.
    QAction* applications = chrome_->Entry(QStringLiteral("ToolsApplications"));
    QAction* application = chrome_->Entry(QStringLiteral("ToolsApplication"));
    chrome_->Entry(QStringLiteral("Tools"))->menu()->removeAction(application);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuToolsApplicationsMenu"));
    menu->addAction(application);
    applications->setMenu(menu);
    on("HelpContents", [this] {
        const auto guide = FindUserGuide(session_.paths.appDir,
                                         QCoreApplication::applicationDirPath().toStdString());
        if (!guide) {
            session_.user.Tell(session_.Message("MissingHelpFile"), MessageIcon::Exclamation);
            return;
        }
        QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(guide->string())));
    });
}

// The story is prepared first (named if it never was), then the printer asked for.
void MainWindow::PrintStory() {
    const std::optional<StoryPrintout> printout = PrepareStoryPrint(session_);
    if (!printout) return;
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) StoryDocument(*printout)->print(&printer);
}

void MainWindow::OpenInternetAddress(const char* key) {
    const std::string& address = session_.configuration.interface.Entry(key).URL;
    if (!QDesktopServices::openUrl(QUrl::fromUserInput(QString::fromStdString(address)))) {
        session_.user.Tell("The address " + address + " cannot be opened.",
                           MessageIcon::Exclamation);
    }
}

void MainWindow::StartApplication() {
    const std::string& program = session_.configuration.interface.Entry("ToolsApplication").Path;
    if (!QProcess::startDetached(QString::fromStdString(program), {})) {
        session_.user.Tell("The program " + program + " cannot be started.",
                           MessageIcon::Exclamation);
    }
}

// At start a missing or empty tip file shows nothing; asked for from the menu, the user is
// told. A file that cannot be read is told in the status panel. The window is opened once.
void MainWindow::ShowTipsOfTheDay(bool atStart) {
    if (auto* open = findChild<TipOfTheDayDialog*>(); open != nullptr && open->isVisible()) {
        open->raise();
        open->activateWindow();
        return;
    }
    TipsOfTheDay read = ReadTipsOfTheDay(session_.paths.tipFile);
    if (!read.problem.empty()) {
        session_.window.ShowStatusError(read.problem);
        statusBar_->Refresh(session_);
    } else if (read.tips.empty() && !atStart) {
        session_.user.Tell("No tip of the day: " + session_.paths.tipFile.string() +
                               " is missing or holds no Tip.",
                           MessageIcon::Information);
    }
    if (read.tips.empty()) return;
    (new TipOfTheDayDialog(session_, std::move(read.tips), this))->show();
}

}  // namespace tessarin
