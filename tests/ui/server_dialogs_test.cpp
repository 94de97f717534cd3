#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>

#include "app/app_paths.h"
#include "support/local_server.h"
#include "support/temp_dir.h"
#include "transmission/ftp_desk.h"
#include "ui/find_control.h"
#include "ui/ftp_dialog.h"
#include "ui/smtp_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

// A session that mails to the local server given, from Ann to the desk.
struct MailDesk {
    explicit MailDesk(const LocalSmtpServer& server) {
        session.configuration.smtpTransmission.SMTPServerName = server.server.address();
        session.configuration.smtpTransmission.recipients = {{"desk@example.org", "Desk"}};
        session.configuration.identity.email = "ann@example.org";
        session.configuration.identity.author = "Ann Lee";
    }
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
};

constexpr int kExchangeTimeout = 20000;

void ConnectAndWait(FtpDialog& dialog) {
    QTest::mouseClick(Find<QPushButton>(dialog, "cmdConnect"), Qt::LeftButton);
    QVERIFY(dialog.Busy());
    QTRY_VERIFY_WITH_TIMEOUT(!dialog.Busy(), kExchangeTimeout);
}

// The FTP and mail windows against local servers, driven by their control names.
class ServerDialogsTest : public QObject {
    Q_OBJECT
  private slots:
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
        MailDesk desk(server);
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

TESSARIN_UI_TEST(ServerDialogsTest);

}  // namespace
}  // namespace tessarin

#include "server_dialogs_test.moc"
