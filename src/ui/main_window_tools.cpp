// The main window's small tools: the teleprompter, the tips of the day and the user guide.

#include <QAction>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

#include "tools/teleprompter.h"
#include "tools/tips_of_the_day.h"
#include "tools/user_guide.h"
#include "ui/main_status_bar.h"
#include "ui/main_window.h"
#include "ui/main_window_chrome.h"
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
