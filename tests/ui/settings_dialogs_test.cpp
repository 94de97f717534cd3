#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>
#include <filesystem>

#include "app/app_paths.h"
#include "config/configuration_document.h"
#include "session/editor_session.h"
#include "session/session_start.h"
#include "support/local_server.h"
#include "support/temp_dir.h"
#include "ui/find_control.h"
#include "ui/first_login_dialog.h"
#include "ui/preferences_dialog.h"
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

// An editor session on a new application folder, its start directories made.
struct NewDesk {
    NewDesk() { CreateStartDirectories(session.paths); }
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
};

const char kStoredPreferences[] =
    "[FileMRU]\r\nFile1=/s/a.xml\r\n[Preferences]\r\nStatusTime=1\r\n";

// The session started on a newsroom that renames the tool-bar option, over a preferences file
// that already holds a few keys.
struct PreferencesDesk : NewDesk {
    PreferencesDesk() {
        ConfigurationDocument document;
        document.interface =
            "<Interface><PreferencesDisplayToolBar>Show the tool bar</PreferencesDisplayToolBar>"
            "</Interface>";
        folder.Write("app/Tessarin.xml", document.Text());
        folder.Write("app/Tessarin.ini", kStoredPreferences);
        StartEditor(session);
    }
    // Two options turned over and a number typed, as the user would.
    void Edit(PreferencesDialog& dialog) {
        Find<QCheckBox>(dialog, "chkToolBarVisible")->click();
        Find<QCheckBox>(dialog, "chkIPTCByline")->click();
        Find<QSpinBox>(dialog, "txtBackupAutoTime")->setValue(25);
    }
    std::optional<std::string> Stored(std::string_view key) {
        return session.profile.Read(kPreferencesSection, key);
    }
};

// The windows that install a newsroom's configuration and that edit the user's preferences.
class SettingsDialogsTest : public QObject {
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
    void AFileServerWithoutTheDocumentEndsTheLoginAndANamedOneIsSelected() {
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

        // The named documents are offered; choosing one enables OK, which installs it.
        desk.folder.Write("app/Tessarin-Weekend.xml", Document("Weekend"));
        SelectConfigurationDialog select(desk.session, nullptr);
        auto* ok = Find<QPushButton>(select, "cmdOK");
        QVERIFY(!ok->isEnabled());
        Find<QListWidget>(select, "lstTessarin")->setCurrentRow(0);
        QTest::mouseClick(ok, Qt::LeftButton);
        QCOMPARE(desk.session.Message("AddStory"), std::string("Weekend"));
    }

    // Cancel changes nothing; each control shows its preference and hands the user's choice to
    // the session on OK. On a 1366 x 768 screen, less the title bar and a panel, the window
    // opens whole with every tab of its row, and a page taller than the room scrolls.
    void theControlsSetTheirPreferencesOnOkOnly() {
        PreferencesDesk editor;
        const Preferences before = editor.session.preferences;
        {
            PreferencesDialog cancelled(editor.session);
            editor.Edit(cancelled);
            Find<QPushButton>(cancelled, "cmdClearMRU")->click();
            Find<QPushButton>(cancelled, "cmdCancel")->click();
            QCOMPARE(cancelled.result(), int(QDialog::Rejected));
            QCOMPARE(ReadBytes(editor.session.profile.Path()), std::string(kStoredPreferences));
            QVERIFY(editor.session.preferences == before);
        }

        PreferencesDialog dialog(editor.session);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QSize room(1366, 768 - 80);
        QVERIFY2(dialog.height() <= room.height() && dialog.width() <= room.width(),
                 qPrintable(QStringLiteral("%1 x %2").arg(dialog.width()).arg(dialog.height())));
        QVERIFY(dialog.minimumSizeHint().height() <= room.height());
        auto* pages = Find<QTabWidget>(dialog, "tabPreferences");
        QVERIFY(pages->tabBar()->sizeHint().width() <= pages->width());
        for (int page = 0; page < pages->count(); ++page)
            QVERIFY(qobject_cast<QScrollArea*>(pages->widget(page)) != nullptr);

        QCOMPARE(Find<QCheckBox>(dialog, "chkToolBarVisible")->text(),
                 QStringLiteral("Show the tool bar"));
        QVERIFY(Find<QRadioButton>(dialog, "optDailyInterval")->isChecked());
        QVERIFY(Find<QCheckBox>(dialog, "chkCheckSpellingAlwaysSuggest")->isEnabled());
        editor.Edit(dialog);
        Find<QRadioButton>(dialog, "optWeeklyInterval")->click();
        Find<QRadioButton>(dialog, "optSpellChecker1")->click();
        QVERIFY(!Find<QCheckBox>(dialog, "chkCheckSpellingAlwaysSuggest")->isEnabled());
        Find<QRadioButton>(dialog, "optNotAddXSLT")->click();
        Find<QPushButton>(dialog, "cmdClearMRU")->click();
        Find<QPushButton>(dialog, "cmdOK")->click();

        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        const std::pair<const char*, const char*> stored[] = {
            {"ToolBarVisible", "0"}, {"IPTCByline", "1"},        {"BackupAutoTime", "25"},
            {"DailyInterval", "7"},  {"CheckSpellingType", "1"}, {"UseXSLT", "0"}};
        for (const auto& [key, value] : stored)
            QVERIFY2(editor.Stored(key) == std::optional<std::string>(value), key);
        QCOMPARE(editor.session.profile.Read(kFileMRUSection, "File1"), std::nullopt);
    }
};

TESSARIN_UI_TEST(SettingsDialogsTest);

}  // namespace
}  // namespace tessarin

#include "settings_dialogs_test.moc"
