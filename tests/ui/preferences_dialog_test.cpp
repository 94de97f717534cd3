#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

#include "ui/editor_session_qt.h"

#include "config/configuration_document.h"
#include "session/session_start.h"
#include "support/temp_dir.h"
#include "ui/preferences_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

const char kStoredPreferences[] =
    "[FileMRU]\r\nFile1=/s/a.xml\r\n[Preferences]\r\nStatusTime=1\r\n";

// An editor session started on a newsroom that renames the tool-bar option, over a
// preferences file that already holds a few keys.
struct Session {
    Session() {
        testing::ConfigurationDocument document;
        document.interface =
            "<Interface><PreferencesDisplayToolBar>Show the tool bar</PreferencesDisplayToolBar>"
            "</Interface>";
        dir.Write("Tessarin.xml", document.Text());
        dir.Write("Tessarin.ini", kStoredPreferences);
        StartEditor(session);
    }
    template <typename Control>
    Control* Find(PreferencesDialog& dialog, const char* name) {
        return dialog.findChild<Control*>(QLatin1String(name));
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

    TempDir dir;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(dir.path()), user};
};

class PreferencesDialogTest : public QObject {
    Q_OBJECT
  private slots:
    // Each control shows its preference and hands the user's choice to the session on OK.
    void theControlsSetTheirPreferencesOnOk() {
        Session editor;
        PreferencesDialog dialog(editor.session);
        QCOMPARE(editor.Find<QCheckBox>(dialog, "chkToolBarVisible")->text(),
                 QStringLiteral("Show the tool bar"));
        QVERIFY(editor.Find<QRadioButton>(dialog, "optDailyInterval")->isChecked());
        QVERIFY(editor.Find<QCheckBox>(dialog, "chkCheckSpellingAlwaysSuggest")->isEnabled());
        editor.Edit(dialog);
        editor.Find<QRadioButton>(dialog, "optWeeklyInterval")->click();
        editor.Find<QRadioButton>(dialog, "optSpellChecker1")->click();
        QVERIFY(!editor.Find<QCheckBox>(dialog, "chkCheckSpellingAlwaysSuggest")->isEnabled());
        editor.Find<QRadioButton>(dialog, "optNotAddXSLT")->click();
        editor.Find<QPushButton>(dialog, "cmdClearMRU")->click();
        editor.Find<QPushButton>(dialog, "cmdOK")->click();

        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        const std::pair<const char*, const char*> stored[] = {
            {"ToolBarVisible", "0"}, {"IPTCByline", "1"},        {"BackupAutoTime", "25"},
            {"DailyInterval", "7"},  {"CheckSpellingType", "1"}, {"UseXSLT", "0"}};
        for (const auto& [key, value] : stored)
            QVERIFY2(editor.Stored(key) == std::optional<std::string>(value), key);
        QCOMPARE(editor.session.preferences.BackupAutoTime, 25);
        QCOMPARE(editor.session.profile.Read(kFileMRUSection, "File1"), std::nullopt);
    }

    void cancelChangesNothing() {
        Session editor;
        const Preferences before = editor.session.preferences;
        PreferencesDialog dialog(editor.session);
        editor.Edit(dialog);
        editor.Find<QPushButton>(dialog, "cmdClearMRU")->click();
        editor.Find<QPushButton>(dialog, "cmdCancel")->click();

        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(ReadBytes(editor.session.profile.Path()), std::string(kStoredPreferences));
        QVERIFY(editor.session.preferences == before);
    }

    // On a 1366 x 768 screen, less the title bar and a panel, the window opens whole with every
    // tab of its row, and a page taller than the room scrolls.
    void theWindowFitsALaptopScreen() {
        Session editor;
        PreferencesDialog dialog(editor.session);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QSize room(1366, 768 - 80);
        QVERIFY2(dialog.height() <= room.height() && dialog.width() <= room.width(),
                 qPrintable(QStringLiteral("%1 x %2").arg(dialog.width()).arg(dialog.height())));
        QVERIFY(dialog.minimumSizeHint().height() <= room.height());
        auto* pages = editor.Find<QTabWidget>(dialog, "tabPreferences");
        QVERIFY(pages->tabBar()->sizeHint().width() <= pages->width());
        for (int page = 0; page < pages->count(); ++page)
            QVERIFY(qobject_cast<QScrollArea*>(pages->widget(page)) != nullptr);
    }
};

TESSARIN_UI_TEST(PreferencesDialogTest);

}  // namespace
}  // namespace tessarin

#include "preferences_dialog_test.moc"
