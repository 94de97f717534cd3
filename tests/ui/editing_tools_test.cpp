#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>
#include <fstream>
#include <memory>

#include "ui/notes_tree.h"
#include "ui/story_panel_bench.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using ToolsBench = testing::StoryPanelBench;

class EditingToolsTest : public QObject {
    Q_OBJECT
  private slots:
    // Each key goes through the typing rules of the core (tested there, rule by rule): here
    // two blanks and a question mark become one non-breaking mark, shown as a grey middle dot.
    void typingRulesActKeyByKey() {
        ToolsBench tools;
        tools.Type(6, QStringLiteral("Oui  ?"));
        QCOMPARE(tools.Text(6), QString::fromUtf16(u"Oui\u00B7?"));
        QTextCursor dot(tools.Box(6).document());
        dot.setPosition(4);
        QCOMPARE(dot.charFormat().foreground().color(), QColor(175, 175, 175));
    }

    // The search window's buttons run the core's search and replace (whose matching is tested
    // with the core); the box being searched is locked and coloured until the window closes.
    void searchWindowFindsReplacesAndRemembers() {
        ToolsBench tools;
        tools.Type(0, QStringLiteral("Le chat"));
        tools.Type(6, QStringLiteral("Un chat, deux CHATS."));
        tools.panel->OpenSearch(1);
        auto& search = tools.Find<QDialog>(QStringLiteral("frmSearch"));
        QVERIFY(search.isVisible());
        tools.Find<QLineEdit>(QStringLiteral("txtSearch")).setText(QStringLiteral("chat"));
        tools.Find<QLineEdit>(QStringLiteral("txtReplace")).setText(QStringLiteral("chien"));
        tools.Click("cmdFollowing");
        tools.Click("cmdFollowing");
        QCOMPARE(tools.Box(6).textCursor().selectedText(), QStringLiteral("chat"));
        QVERIFY(tools.Box(6).isReadOnly() && !tools.Box(0).isReadOnly());
        QVERIFY(tools.Box(6).palette().color(QPalette::Base) !=
                tools.Box(0).palette().color(QPalette::Base));
        tools.Click("cmdReplace");
        QCOMPARE(tools.Text(6), QStringLiteral("Un chien, deux CHATS."));

        tools.Click("cmdSearchAll");
        QCOMPARE(tools.Find<QLabel>(QStringLiteral("lblSearchAll")).text(),
                 QStringLiteral("Search all: 2"));
        tools.Click("cmdReplaceAll");
        QCOMPARE(tools.Text(0), QStringLiteral("Le chien"));

        tools.Click("cmdCancel");
        QVERIFY(!search.isVisible());
        QVERIFY(!tools.Box(6).isReadOnly());
        QCOMPARE(tools.bench.session.profile.Read("SearchReplace", "Search"), "chat");
    }

    void notesTreeAddsBookmarksAndRemovesThemWithTheirAnchor() {
        ToolsBench tools;
        tools.Type(6, QStringLiteral("deux mots"));
        QTextCursor cursor = tools.Box(6).textCursor();
        cursor.setPosition(5);
        cursor.setPosition(9, QTextCursor::KeepAnchor);
        tools.Box(6).setTextCursor(cursor);
        auto& tree = tools.Find<NotesTree>(QStringLiteral("treeNotes"));
        tree.AddNote(true);

        auto& note = tools.Find<QDialog>(QStringLiteral("frmNote"));
        QVERIFY(note.isVisible());
        tools.Find<QPlainTextEdit>(QStringLiteral("txtNote")).setPlainText(QStringLiteral("a\nb"));
        tools.Click("cmdCancel");
        const StoryNote& added = tools.bench.session.story.notes.at(0);
        QCOMPARE(added.text, std::string("a\r\nb"));
        QVERIFY(added.bookmark);
        const QString title = QString::fromStdString(added.title);
        QCOMPARE(tools.Text(6), QStringLiteral("deux ") + title + QStringLiteral("mots"));
        QCOMPARE(tree.topLevelItem(0)->text(0), QStringLiteral("Notes [1]"));

        // A click on the note selects its anchor.
        QTreeWidgetItem* item = tree.topLevelItem(0)->child(0);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
        QCOMPARE(tools.Box(6).textCursor().selectedText(), title);

        tree.RemoveNote(0);
        QCOMPARE(tools.Text(6), QStringLiteral("deux mots"));
        QCOMPARE(tree.topLevelItem(0)->text(0), QStringLiteral("Notes [0]"));
    }

    void snippetsComeByCtrlAndFunctionKeys() {
        ToolsBench tools;
        std::ofstream(tools.bench.session.paths.appDir / "clips.txt", std::ios::binary)
            << "Paris\r\nLyon\\nMarseille\r\n";
        tools.bench.session.configuration.interface.entries["EditionMultipleClipboard"].File =
            "clips.txt";
        tools.panel->Refresh();
        auto& tree = tools.Find<QTreeWidget>(QStringLiteral("treeClipboard"));
        QCOMPARE(tree.topLevelItem(0)->child(1)->text(0),
                 QStringLiteral("Lyon Marseille [Ctrl+F2]"));
        tools.Type(6, QStringLiteral("A "));
        QTest::keyClick(&tools.Box(6), Qt::Key_F2, Qt::ControlModifier);
        QCOMPARE(tools.Text(6), QStringLiteral("A Lyon\r\nMarseille"));
    }

    void questionsAndAnswersPutTheLabelsAtEachEnter() {
        ToolsBench tools;
        tools.Box(6).setFocus();
        tools.panel->ToggleQuestionsAnswers();
        auto& dialog = tools.Find<QDialog>(QStringLiteral("frmQuestionsAnswers"));
        const QList<QWidget*> frames = dialog.findChildren<QWidget*>(QStringLiteral("FrameQA"));
        QCOMPARE(frames.size(), 2);
        frames[0]->findChild<QLineEdit*>(QStringLiteral("txtQA"))->setText(QStringLiteral("Q: "));
        frames[1]->findChild<QLineEdit*>(QStringLiteral("txtQA"))->setText(QStringLiteral("R: "));
        auto* inter1 = frames[1]->findChild<QCheckBox*>(QStringLiteral("chkInter1"));
        inter1->setChecked(true);
        frames[1]->findChild<QCheckBox*>(QStringLiteral("chkInter3"))->setChecked(true);
        QVERIFY(!inter1->isChecked());
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);

        QCOMPARE(tools.Text(6), QStringLiteral("Q: "));
        QTest::keyClicks(&tools.Box(6), QStringLiteral("x"));
        QTest::keyClick(&tools.Box(6), Qt::Key_Return);
        QTest::keyClicks(&tools.Box(6), QStringLiteral("y"));
        QTest::keyClick(&tools.Box(6), Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(tools.Text(6), QStringLiteral("Q: x\r\nR: y\r\n"));
    }

    void charactersComeFromTheConfiguredSetsAndAltGr() {
        ToolsBench tools;
        std::ofstream(tools.bench.session.paths.configurationFile, std::ios::binary)
            << "<Tessarin><InsertCharacters><InsertSetOfCharacters>"
               "<Set Name=\"Latin\">\u00C6\u0152</Set><Set Name=\"Money\">\u20AC\u00A3</Set>"
               "</InsertSetOfCharacters></InsertCharacters></Tessarin>";
        tools.Type(6, QStringLiteral("ab"));
        tools.panel->InsertCharacters();
        auto& dialog = tools.Find<QDialog>(QStringLiteral("frmInsertCharacters"));
        auto& names = tools.Find<QListWidget>(QStringLiteral("lstCharactersName"));
        auto& set = tools.Find<QListWidget>(QStringLiteral("lstCharactersSet"));
        names.setCurrentRow(1);
        QCOMPARE(set.count(), 2);
        QVERIFY(!tools.Find<QPushButton>(QStringLiteral("cmdOK")).isEnabled());
        set.setCurrentRow(0);
        tools.Click("cmdOK");
        QCOMPARE(tools.Text(6), QString::fromUtf16(u"ab\u20AC"));
        tools.Click("cmdCancel");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(tools.bench.session.profile.Read("Configuration", "IndexCharSet"), "1");

        QKeyEvent altGr(QEvent::KeyPress, Qt::Key_AltGr, Qt::NoModifier);
        QApplication::sendEvent(&tools.Box(6), &altGr);
        QTest::keyClicks(&tools.Box(6), QStringLiteral("oo"));
        QCOMPARE(tools.Text(6), QString::fromUtf16(u"ab\u20AC\u0153o"));
    }
};

TESSARIN_UI_TEST(EditingToolsTest);

}  // namespace
}  // namespace tessarin

#include "editing_tools_test.moc"
