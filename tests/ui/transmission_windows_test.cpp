#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>

#include "logs/daily_log.h"
#include "support/local_server.h"
#include "tracking/tracking_desk.h"
#include "transmission/ftp_desk.h"
#include "transmission/receive_desk.h"
#include "transmission/workflow_desk.h"
#include "ui/check_logs_dialog.h"
#include "ui/find_control.h"
#include "ui/ftp_dialog.h"
#include "ui/list_logs_dialog.h"
#include "ui/main_window.h"
#include "ui/receive_dialog.h"
#include "ui/session_tree_widget.h"
#include "ui/smtp_dialog.h"
#include "ui/tracking_dialog.h"
#include "ui/ui_test_registry.h"
#include "ui/workflow_dialog.h"

namespace tessarin {
namespace {

using namespace testing;

constexpr int kExchangeTimeout = 20000;

void ConnectAndWait(FtpDialog& dialog) {
    QTest::mouseClick(Find<QPushButton>(dialog, "cmdConnect"), Qt::LeftButton);
    QVERIFY(dialog.Busy());
    QTRY_VERIFY_WITH_TIMEOUT(!dialog.Busy(), kExchangeTimeout);
}

// The windows that send, receive and track stories: the workflow, receive, tracking and logs
// windows, and the FTP and mail windows against local servers.
class TransmissionWindowsTest : public QObject {
    Q_OBJECT
  private slots:
    // The story tab adds, sends and reports; the message tab sends and closes.
    void AddSendAndReadTheReportThenSendAMessage() {
        WorkflowDesk desk;
        const auto picture = desk.folder.Write("stories/pic.jpg", "JPEG");
        desk.user.QueuePath(desk.Story(
            "fire.xml", R"(<Form>Brief</Form><Status FormalItem="Usable">R</Status>)",
            R"(<TextBox6 CharCount="1500">Fire</TextBox6>)", WorkflowDesk::Images({picture})));
        WorkflowDialog dialog(desk.session, nullptr);
        dialog.show();
        QVERIFY(!Find<QPushButton>(dialog, "cmdUpload")->isEnabled());

        QTest::mouseClick(Find<QPushButton>(dialog, "cmdAddStory"), Qt::LeftButton);
        auto* list = Find<QTreeWidget>(dialog, "treeUpload");
        QCOMPARE(Find<QGroupBox>(dialog, "FrameStories")->title(),
                 QStringLiteral("Stories:1 / Photos:1 / Other files:0"));
        QTreeWidgetItem* story = ItemNamed(*list, QStringLiteral("fire.xml"));
        QVERIFY(story != nullptr && ItemNamed(*list, QStringLiteral("pic.jpg")) != nullptr);
        emit list->itemClicked(story, 0);
        QCOMPARE(Find<QTextEdit>(dialog, "txtStory")->toPlainText(), QStringLiteral("Fire\n"));

        auto* users = Find<QTreeWidget>(dialog, "treeUsers");
        users->setCurrentItem(ItemNamed(*users, QStringLiteral("Ann")));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpload"), Qt::LeftButton);
        QCOMPARE(Find<QTextEdit>(dialog, "txtStory")->toPlainText(),
                 QStringLiteral("Check logs\nfire.xml\n\tPhoto: pic.jpg"));
        QVERIFY(std::filesystem::exists(desk.folder / "inbox/Ann/fire.xml"));
        QVERIFY(!Find<QPushButton>(dialog, "cmdAddStory")->isEnabled());
        QCOMPARE(list->topLevelItemCount(), 0);

        // The message tab sends a message and closes the window.
        emit Find<QTabBar>(dialog, "TabSend")->tabBarClicked(1);
        QVERIFY(Find<QPlainTextEdit>(dialog, "txtMessage")->isVisible());
        QVERIFY(!Find<QTreeWidget>(dialog, "treeUpload")->isVisible());
        QVERIFY(ItemNamed(*users, QStringLiteral("Desk")) == nullptr);
        users->setCurrentItem(ItemNamed(*users, QStringLiteral("Ann")));
        Find<QPlainTextEdit>(dialog, "txtMessage")->setPlainText(QStringLiteral("Lunch?"));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpload"), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(std::filesystem::exists(desk.folder / "inbox/Ann/{msg}.txt"));
    }

    // The tab switches the core's order and the button clears after the question; the daily
    // pages open on a click. The order, colours and rights are the logs' own tests.
    void StoryLogsInBothOrdersClearedAndDailyPagesOpened() {
        WorkflowDesk desk("", R"(ClearLogsAllowed="true")");
        desk.session.story.logs = {{"to Ann", "U"}, {"to Page", "L"}};
        ListLogsDialog dialog(desk.session, nullptr);
        auto* logs = Find<QTreeWidget>(dialog, "lvLogs");
        QCOMPARE(logs->topLevelItem(0)->text(0), QStringLiteral("to Ann"));
        Find<QTabBar>(dialog, "TabStripLogs")->setCurrentIndex(1);
        QCOMPARE(logs->topLevelItem(0)->text(0), QStringLiteral("to Page"));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdClearLogs"), Qt::LeftButton);
        QCOMPARE(logs->topLevelItemCount(), 0);

        // The daily pages open on a click.
        for (int day = 1; day <= 5; ++day)
            PrepareDailyLog(desk.session.paths.logsDir, 10, {}, {2024, 3, day, 9, 0, 0});
        QUrl opened;
        CheckLogsDialog pages(desk.session, nullptr,
                              [&opened](const QUrl& page) { opened = page; });
        pages.show();
        QCOMPARE(Find<QLabel>(pages, "lblLogFile4")->text(), QStringLiteral("2024-03-05"));
        QTest::mouseClick(Find<QLabel>(pages, "lblLogFile0"), Qt::LeftButton);
        QCOMPARE(opened.toLocalFile().toStdString(),
                 (desk.session.paths.logsDir / "Log Tessarin 2024-03-01.htm").string());
    }

    void TheMainWindowOpensTheWindowsFromItsEntries() {
        WorkflowDesk desk;
        MainWindow main(desk.session.paths, &desk.user);
        QVERIFY(!main.Start(""));
        for (const auto& [entry, window] :
             {std::pair{"SendWorkflow", "frmWorkflow"}, std::pair{"mnuDisplayLogs", "frmListLogs"},
              std::pair{"mnuToolsCheckLogs", "frmCheckLogs"}}) {
            QString opened;
            QTimer::singleShot(0, [&opened] {
                QWidget* dialog = QApplication::activeModalWidget();
                if (dialog == nullptr) return;
                opened = dialog->objectName();
                dialog->close();
            });
            main.findChild<QAction*>(QString::fromUtf8(entry))->trigger();
            QCOMPARE(opened, QString::fromUtf8(window));
        }
    }

    // The window shows the core's inbox, preview and counts (tested with the core) and its
    // buttons take one story or all.
    void ReceivePreviewsAndTakesStories() {
        ReceiveDesk desk;
        desk.Wait("Ann", "a.xml", ReceiveDesk::Waiting("a.xml"));
        desk.Wait("Ann", "b.xml", ReceiveDesk::Waiting("b.xml"));
        ReceiveDialog dialog(desk.session, ReceiveKind::Receive, nullptr);
        dialog.show();
        auto* tree = Find<QTreeWidget>(dialog, "treeReceive");
        QCOMPARE(Find<QLabel>(dialog, "StatusPanel1")->text(),
                 QStringLiteral("Waiting stories: 2"));
        emit tree->itemClicked(ItemNamed(*tree, QStringLiteral("a.xml")), 0);
        QCOMPARE(Find<QPlainTextEdit>(dialog, "txtStory")->toPlainText(),
                 QStringLiteral("Fire\tin\n"));
        QCOMPARE(Find<QPlainTextEdit>(dialog, "txtLastLog")->toPlainText(),
                 QStringLiteral("sent\nTotal chars=7 / Words=2"));

        tree->setCurrentItem(ItemNamed(*tree, QStringLiteral("a.xml")));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdGet"), Qt::LeftButton);
        QVERIFY(std::filesystem::exists(desk.folder / "me/texts/a.xml"));
        QVERIFY(ItemNamed(*tree, QStringLiteral("a.xml")) == nullptr);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdGetAll"), Qt::LeftButton);
        QVERIFY(std::filesystem::exists(desk.folder / "me/texts/b.xml"));
        QVERIFY(!Find<QPushButton>(dialog, "cmdGet")->isEnabled());
        QCOMPARE(Find<QLabel>(dialog, "StatusPanel1")->text(),
                 QStringLiteral("Waiting stories: 0"));
    }

    // Update, the layout choice, the preview and the popup's deletion reach the core, whose
    // tree, filters and rights are tested there.
    void TrackingUpdatesFiltersAndOffersThePopup() {
        TrackingDesk desk;
        desk.Track({.name = "a.xml"});
        desk.Track({.name = "b.xml", .logType = "L"});
        TrackingDialog dialog(desk.session, nullptr);
        dialog.show();
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpdate"), Qt::LeftButton);
        auto* tree = Find<QTreeWidget>(dialog, "treeTracking");
        QVERIFY(ItemNamed(*tree, QStringLiteral("[a.xml] Fire")) != nullptr);
        QCOMPARE(Find<QLabel>(dialog, "lblTreeTracking")->text(),
                 QStringLiteral("Stories: 2, Photos: 0, Other files: 0"));

        Find<QAction>(dialog, "mnuDisplayLayout")->trigger();
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpdate"), Qt::LeftButton);
        QVERIFY(ItemNamed(*tree, QStringLiteral("[a.xml] Fire")) == nullptr);
        QTreeWidgetItem* story = ItemNamed(*tree, QStringLiteral("[b.xml] Fire"));
        QVERIFY(story != nullptr);

        emit tree->itemClicked(story, 0);
        QCOMPARE(Find<QPlainTextEdit>(dialog, "txtStory")->toPlainText(),
                 QString::fromUtf8("Fire\nPrice 5\xE2\x82\xAC\nTotal chars=5 / Words=0"));
        QMenu* popup = dialog.PopupFor(SessionTreeWidget::KeyOf(story));
        QVERIFY(popup != nullptr);
        QVERIFY(Find<QAction>(*popup, "mnuPopupSendMessage")->isVisible());
        Find<QAction>(*popup, "mnuPopupDeleteStories")->trigger();
        QVERIFY(!std::filesystem::exists(desk.folder / "track/texts/b.xml"));
        QCOMPARE(tree->topLevelItemCount(), 0);
    }

    // A refused login says why and leaves the window as it was. Connect lists the start
    // directory; the send moves the progress bar while the event loop turns, empties the list
    // and ends the connection. What a failed upload leaves is the send's own business.
    void ConnectsListsAndSendsTheList() {
        FtpDesk desk;
        QVERIFY(desk.Stage("fire", 3 << 20));
        FtpDialog dialog(desk.session, nullptr);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Not connected"));
        Find<QLineEdit>(dialog, "txtPassword")->setText(QStringLiteral("wrong"));
        ConnectAndWait(dialog);
        QCOMPARE(desk.user.messages.size(), std::size_t{1});
        QVERIFY(QString::fromStdString(desk.user.messages[0]).endsWith(":\nNot connected"));
        QVERIFY(!Find<QPushButton>(dialog, "cmdUpload")->isEnabled());

        Find<QLineEdit>(dialog, "txtPassword")->setText(QStringLiteral("secret"));
        ConnectAndWait(dialog);
        auto* remote = Find<QTreeWidget>(dialog, "lv");
        QCOMPARE(remote->topLevelItem(0)->text(0), QStringLiteral(".."));
        QTreeWidgetItem* texts = ItemNamed(*remote, QStringLiteral("texts"));
        QVERIFY(texts != nullptr);
        QCOMPARE(texts->text(3), QStringLiteral(" D "));
        QCOMPARE(Find<QLabel>(dialog, "lblDir")->text(), QStringLiteral("Current directory: /"));
        QVERIFY(dialog.windowTitle().contains(QStringLiteral(" / reporter Connected to")));

        QList<int> steps;
        connect(Find<QProgressBar>(dialog, "pb"), &QProgressBar::valueChanged,
                [&steps](int value) { steps << value; });
        int turns = 0;
        QTimer ticker;
        connect(&ticker, &QTimer::timeout, [&turns] { ++turns; });
        ticker.start(1);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpload"), Qt::LeftButton);
        QVERIFY(!Find<QPushButton>(dialog, "cmdConnect")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(!dialog.Busy(), kExchangeTimeout);
        QVERIFY2(steps.size() > 2 && steps.contains(1000),
                 qPrintable(QString::number(steps.size())));
        QVERIFY(turns > 0);
        QVERIFY(std::filesystem::exists(desk.server.home / "texts/fire.xml"));
        QVERIFY(std::filesystem::exists(desk.server.home / "photos/fire.jpg"));
        QCOMPARE(Find<QTreeWidget>(dialog, "treeUpload")->topLevelItemCount(), 0);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Not connected"));
    }

    // The window hands the message to the mail dialogue and shows its status text; the
    // dialogue's failures and their texts are tested with it.
    void sendsTheMessageAndTellsWhereItWent() {
        LocalSmtpServer server;
        WorkflowDesk desk;  // its author is Ann Lee
        desk.session.configuration.smtpTransmission.SMTPServerName = server.server.address();
        desk.session.configuration.smtpTransmission.recipients = {{"desk@example.org", "Desk"}};
        desk.session.configuration.identity.email = "ann@example.org";
        SmtpDialog dialog(desk.session);
        auto* send = dialog.findChild<QPushButton*>("cmdSend");
        QVERIFY(!send->isEnabled());
        QVERIFY(!dialog.findChild<QCheckBox*>("chkCurrentStory")->isEnabled());
        dialog.findChild<QLineEdit*>("txtSubject")->setText("Fire");
        dialog.findChild<QPlainTextEdit*>("txtMessage")->setPlainText("Flames\n.at dawn");
        QVERIFY(send->isEnabled());
        QTest::mouseClick(send, Qt::LeftButton);
        QVERIFY(!send->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(send->isEnabled(), kExchangeTimeout);
        const QString status = dialog.findChild<QStatusBar*>("StatusBarSMTP")->currentMessage();
        QVERIFY2(status.endsWith(" - Sent to desk@example.org"), qPrintable(status));
        QVERIFY(server.Message(1).find("\r\n\r\nFlames\r\n.at dawn\r\n") != std::string::npos);
    }
};

TESSARIN_UI_TEST(TransmissionWindowsTest);

}  // namespace
}  // namespace tessarin

#include "transmission_windows_test.moc"
