#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <filesystem>

#include "app/app_paths.h"
#include "config/configuration_document.h"
#include "session/editor_session.h"
#include "support/local_server.h"
#include "support/temp_dir.h"
#include "ui/find_control.h"
#include "ui/first_login_dialog.h"
#include "ui/select_configuration_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

std::string Document(const std::string& edition) {
    ConfigurationDocument document;
    document.messages = "<Messages><AddStory>" + edition + "</AddStory></Messages>";
    return document.Text();
}

struct NewDesk {
    NewDesk() { CreateStartDirectories(session.paths); }
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
};

class FirstLoginDialogTest : public QObject {
    Q_OBJECT
  private slots:
    // The FTP way logs in with the password typed; the document is installed and in force.
    void LogsInOnAnFtpServer() {
        LocalFtpServer server;
        server.home.Write("Updates/R/reporter.xml", Document("Courier"));
        NewDesk desk;
        FirstLoginDialog dialog(desk.session, false, nullptr);
        dialog.show();
        QVERIFY(!Find<QPushButton>(dialog, "cmdBrowse")->isVisible());
        Find<QLineEdit>(dialog, "txtServer")->setText(QString::fromStdString(server.Address()));
        Find<QLineEdit>(dialog, "txtUser")->setText(QStringLiteral("reporter"));
        Find<QLineEdit>(dialog, "txtPassword")->setText(QStringLiteral("secret"));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(desk.session.Message("AddStory"), std::string("Courier"));
    }

    // The file-server way has no password and a folder picker; the login's refusal (its
    // message is the login's own test) leaves the window unfinished.
    void AFileServerWithoutTheDocumentEndsTheLogin() {
        NewDesk desk;
        FirstLoginDialog dialog(desk.session, false, nullptr);
        dialog.show();
        QTest::mouseClick(Find<QRadioButton>(dialog, "optServer1"), Qt::LeftButton);
        QVERIFY(!Find<QLineEdit>(dialog, "txtPassword")->isVisible());
        desk.user.QueuePath(desk.folder / "updates");
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdBrowse"), Qt::LeftButton);
        QCOMPARE(Find<QLineEdit>(dialog, "txtServer")->text(),
                 QString::fromStdString((desk.folder / "updates").string()));
        Find<QLineEdit>(dialog, "txtUser")->setText(QStringLiteral("ann"));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(desk.user.messages.size(), std::size_t{1});
    }

    // The named documents are offered; choosing one enables OK, which installs it.
    void SelectsANamedConfiguration() {
        NewDesk desk;
        desk.folder.Write("app/Tessarin-Weekend.xml", Document("Weekend"));
        SelectConfigurationDialog dialog(desk.session, nullptr);
        auto* ok = Find<QPushButton>(dialog, "cmdOK");
        QVERIFY(!ok->isEnabled());
        Find<QListWidget>(dialog, "lstTessarin")->setCurrentRow(0);
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(desk.session.Message("AddStory"), std::string("Weekend"));
    }
};

TESSARIN_UI_TEST(FirstLoginDialogTest);

}  // namespace
}  // namespace tessarin

#include "first_login_dialog_test.moc"
