#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QAction>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>

#include "common/scoped_environment.h"
#include "news/news_samples.h"
#include "support/shell_quote.h"
#include "support/tool_run.h"
#include "ui/find_control.h"
#include "ui/news_window.h"
#include "ui/story_panel_bench.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

// A session whose one news service reads wires/ under its folder.
struct NewsDesk {
    NewsDesk() {
        ReadNewsServices(bench,
                         "<NewsServices Name=\"Wires\" PartiallyCopiedColor=\"32768\">"
                         "<NewsService Name=\"North wire\" Repository=\"" +
                             (bench.folder / "wires").string() + "\"/></NewsServices>");
        bench.session.configuration.identity.author = "Ann Lee";
        bench.session.preferences.NewsBookmark = false;
        bench.session.preferences.NewsAutoTypography = false;
        SampleItem urgent;
        urgent.date = "20260307T120000";
        urgent.priority = "1";
        urgent.headline = "Urgent: bridge closed";
        urgent.body = "<p>The bridge is closed.</p><p>Traffic goes round.</p>";
        bench.folder.Write("wires/urgent.xml", NitfItem(urgent));
        SampleItem withheld;
        withheld.status = "Withheld";
        withheld.headline = "Withdrawn report";
        bench.folder.Write("wires/withheld.xml", NitfItem(withheld));
    }
    PanelSession bench;
};

// Scans and waits until the list holds every row.
void Scan(NewsWindow& window) {
    QSignalSpy finished(&window, &NewsWindow::scanFinished);
    Find<QPushButton>(window, "cmdSearch")->click();
    QVERIFY(finished.wait(10000));
}

class NewsWindowTest : public QObject {
    Q_OBJECT
  private slots:
    void ListsItemsShowsTheTextCopiesASelectionAndPrints() {
        NewsDesk desk;
        NewsWindow window(desk.bench.session, 0, nullptr);
        QSignalSpy changed(&window, &NewsWindow::storyChanged);
        window.show();
        QVERIFY(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        Scan(window);
        const auto printed = [&](NewsWindow::Printout what, const char* name) {
            QPrinter printer(QPrinter::HighResolution);
            printer.setOutputFormat(QPrinter::PdfFormat);
            const std::string pdf = (desk.bench.folder / name).string();
            printer.setOutputFileName(QString::fromStdString(pdf));
            if (!window.Print(what, printer)) return std::string("(nothing printed)");
            return RunTool("pdftotext -enc UTF-8 " + Quoted(pdf) + " -").output;
        };
        QVERIFY(printed(NewsWindow::Printout::CurrentItem, "none.pdf") == "(nothing printed)");
        auto* list = Find<QTreeWidget>(window, "lvNewsML");
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("Urgent: bridge closed"));
        QVERIFY(list->topLevelItem(0)->font(1).bold());
        QVERIFY(!list->topLevelItem(1)->font(1).bold());
        QVERIFY(!list->topLevelItem(1)->icon(0).isNull());
        list->setCurrentItem(list->topLevelItem(0));
        auto* text = Find<QTextEdit>(window, "rtfNewsML");
        QCOMPARE(text->toPlainText(), QStringLiteral("The bridge is closed.\nTraffic goes round."));

        // "Traffic" on the second line: offset 22 in the pane, 23 in the item's text.
        QTextCursor cursor(text->document());
        cursor.setPosition(22);
        cursor.setPosition(29, QTextCursor::KeepAnchor);
        text->setTextCursor(cursor);
        Find<QPushButton>(window, "cmdCopySelection")->click();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(QString::fromStdU16String(desk.bench.session.story.boxes[6].Text()),
                 QStringLiteral("Traffic"));
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("!!Urgent: bridge closed"));
        QCOMPARE(list->topLevelItem(0)->foreground(1).color(), QColor(0, 128, 0));  // configured
        QVERIFY(ReadBytes(desk.bench.folder / "wires/urgent.log").ends_with("\\23 7\r\n"));

        // The item prints its headline, date line and text; the list, its shown columns.
        const std::string item = printed(NewsWindow::Printout::CurrentItem, "item.pdf");
        for (const char* part :
             {"Urgent: bridge closed", "harbour", "The bridge is closed.", "goes round."})
            QVERIFY2(item.find(part) != std::string::npos, item.c_str());
        Find<QAction>(window, "mnuSlugLine")->trigger();
        const std::string rows = printed(NewsWindow::Printout::List, "list.pdf");
        for (const char* part : {"North wire", "Headline", "Urgent: bridge closed",
                                 "Withdrawn report", "Category", "0057"})
            QVERIFY2(rows.find(part) != std::string::npos, rows.c_str());
        QVERIFY2(rows.find("harbour") == std::string::npos, rows.c_str());
    }

    // Each choice is written at once and followed; the shown columns' widths come back.
    void ListPreferencesApplyAtOnceAndWidthsComeBack() {
        NewsDesk desk;
        ScopedEnvironment longDate("TESSARIN_LONG_DATE", "yyyy-MM-dd");
        ProfileFile& profile = desk.bench.session.profile;
        profile.Write("NewsWindow", "ColumnWidth_2", "90");
        {
            NewsWindow window(desk.bench.session, 0, nullptr);
            window.setAttribute(Qt::WA_DeleteOnClose, false);
            Scan(window);
            auto* list = Find<QTreeWidget>(window, "lvNewsML");
            const auto menu = [&](const char* name) { Find<QAction>(window, name)->trigger(); };
            menu("mnuDateFormat");
            QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("2026-03-07 12:00"));
            menu("mnuTimeFormat");
            QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("2026-03-07 12:00:00"));
            QVERIFY(profile.Read("NewsWindow", "TimeFormat") == "1");
            // On hover the row under the mouse becomes current; on click it does not.
            menu("mnuSelectHover");
            QVERIFY(profile.Read("NewsWindow", "Select") == "1");
            emit list->itemEntered(list->topLevelItem(1), 0);
            QCOMPARE(list->currentItem(), list->topLevelItem(1));
            menu("mnuSelectOnClick");
            emit list->itemEntered(list->topLevelItem(0), 0);
            QCOMPARE(list->currentItem(), list->topLevelItem(1));

            list->setColumnWidth(1, 310);
            menu("mnuSlugLine");
            window.reject();
        }
        QVERIFY(profile.Read("NewsWindow", "ColumnWidth_2") == "90");
        NewsWindow again(desk.bench.session, 0, nullptr);
        QCOMPARE(Find<QTreeWidget>(again, "lvNewsML")->columnWidth(1), 310);
    }
};

TESSARIN_UI_TEST(NewsWindowTest);

}  // namespace
}  // namespace tessarin

#include "news_window_test.moc"
