#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QtTest>

#include "app/app_paths.h"
#include "support/local_server.h"
#include "support/temp_dir.h"
#include "ui/smtp_dialog.h"
#include "ui_test_registry.h"

namespace tessarin::testing {

// frmSMTP against a local mail server, driven by its control names.
class SmtpDialogTest : public QObject {
    Q_OBJECT

    struct Desk {
        explicit Desk(const LocalSmtpServer& server) {
            session.configuration.smtpTransmission.SMTPServerName = server.server.address();
            session.configuration.smtpTransmission.recipients = {{"desk@example.org", "Desk"}};
            session.configuration.identity.email = "ann@example.org";
            session.configuration.identity.author = "Ann Lee";
        }
        TempDir folder;
        ScriptedInteraction user;
        EditorSession session{MakeAppPaths(folder / "app"), user};
    };

  private slots:
    // The window hands the message to the mail dialogue and shows its status text; the
    // dialogue's failures and their texts are tested with it.
    void sendsTheMessageAndTellsWhereItWent() {
        LocalSmtpServer server;
        Desk desk(server);
        SmtpDialog dialog(desk.session);
        auto* send = dialog.findChild<QPushButton*>("cmdSend");
        QVERIFY(!send->isEnabled());
        QVERIFY(!dialog.findChild<QCheckBox*>("chkCurrentStory")->isEnabled());
        dialog.findChild<QLineEdit*>("txtSubject")->setText("Fire");
        dialog.findChild<QPlainTextEdit*>("txtMessage")->setPlainText("Flames\n.at dawn");
        QVERIFY(send->isEnabled());
        QTest::mouseClick(send, Qt::LeftButton);
        QVERIFY(!send->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(send->isEnabled(), 20000);
        const QString status = dialog.findChild<QStatusBar*>("StatusBarSMTP")->currentMessage();
        QVERIFY2(status.endsWith(" - Sent to desk@example.org"), qPrintable(status));
        QVERIFY(server.Message(1).find("\r\n\r\nFlames\r\n.at dawn\r\n") != std::string::npos);
    }
};

TESSARIN_UI_TEST(SmtpDialogTest);

}  // namespace tessarin::testing

#include "smtp_dialog_test.moc"
