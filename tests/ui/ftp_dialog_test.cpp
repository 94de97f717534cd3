#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>

#include "support/local_server.h"
#include "transmission/story_control.h"
#include "transmission/workflow_desk.h"
#include "ui/find_control.h"
#include "ui/ftp_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

constexpr int kExchangeTimeout = 20000;

// A desk whose FTP server 1 is the local one, stories to texts/ and pictures to the folder
// given, with one story and its picture of 3 MB in the send list.
struct FtpWindowDesk : WorkflowDesk {
    explicit FtpWindowDesk(const std::string& imagesDirectory) {
        FtpServer& record = session.configuration.ftpTransmission.servers.at(0);
        record.IPNumber = server.Address();
        record.User = "reporter";
        record.Password = "secret";
        record.TextsDirectory = "texts";
        record.ImagesDirectory = imagesDirectory;
        std::filesystem::create_directories(server.home / "texts");
        std::filesystem::create_directories(server.home / "photos");
        const auto picture = folder.Write("stories/fire.jpg", std::string(3 << 20, 'j'));
        window.preparedStory =
            Story("fire.xml", "<Form>Brief</Form>", R"(<TextBox6 CharCount="1500">Fire</TextBox6>)",
                  Images({picture}));
        staged = AddStory(session, window).outcome == AddOutcome::Staged;
    }
    LocalFtpServer server;
    bool staged = false;
};

void ConnectAndWait(FtpDialog& dialog) {
    QTest::mouseClick(Find<QPushButton>(dialog, "cmdConnect"), Qt::LeftButton);
    QVERIFY(dialog.Busy());
    QTRY_VERIFY_WITH_TIMEOUT(!dialog.Busy(), kExchangeTimeout);
}

class FtpDialogTest : public QObject {
    Q_OBJECT
  private slots:
    // Connect lists the start directory; the send moves the progress bar while the event loop
    // turns, empties the list and ends the connection.
    void ConnectsListsAndSendsTheList() {
        FtpWindowDesk desk("photos");
        QVERIFY(desk.staged);
        FtpDialog dialog(desk.session, nullptr);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Not connected"));
        QVERIFY(!Find<QPushButton>(dialog, "cmdUpload")->isEnabled());

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

    // A refused login says why and leaves the window as it was; an upload that the server
    // refuses keeps its story in the list.
    void ARefusedLoginOrUploadKeepsTheList() {
        FtpWindowDesk desk("missing");
        QVERIFY(desk.staged);
        FtpDialog dialog(desk.session, nullptr);
        dialog.show();
        Find<QLineEdit>(dialog, "txtPassword")->setText(QStringLiteral("wrong"));
        ConnectAndWait(dialog);
        QCOMPARE(desk.user.messages.size(), std::size_t{1});
        QVERIFY(QString::fromStdString(desk.user.messages[0]).endsWith(":\nNot connected"));
        QVERIFY(!Find<QPushButton>(dialog, "cmdUpload")->isEnabled());

        Find<QLineEdit>(dialog, "txtPassword")->setText(QStringLiteral("secret"));
        ConnectAndWait(dialog);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpload"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!dialog.Busy(), kExchangeTimeout);
        QCOMPARE(desk.user.messages.size(), std::size_t{2});
        QVERIFY(ItemNamed(*Find<QTreeWidget>(dialog, "treeUpload"), QStringLiteral("fire.xml")));
        QVERIFY(std::filesystem::exists(desk.session.paths.uploadDir / "fire.xml"));
    }
};

TESSARIN_UI_TEST(FtpDialogTest);

}  // namespace
}  // namespace tessarin

#include "ftp_dialog_test.moc"
