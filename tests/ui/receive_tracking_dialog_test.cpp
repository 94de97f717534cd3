#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>

#include "tracking/tracking_desk.h"
#include "transmission/receive_desk.h"
#include "ui/find_control.h"
#include "ui/receive_dialog.h"
#include "ui/session_tree_widget.h"
#include "ui/tracking_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using namespace testing;

class ReceiveTrackingWindowsTest : public QObject {
    Q_OBJECT
  private slots:
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
        QVERIFY(fs::exists(desk.folder / "me/texts/a.xml"));
        QVERIFY(ItemNamed(*tree, QStringLiteral("a.xml")) == nullptr);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdGetAll"), Qt::LeftButton);
        QVERIFY(fs::exists(desk.folder / "me/texts/b.xml"));
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
        QVERIFY(!fs::exists(desk.folder / "track/texts/b.xml"));
        QCOMPARE(tree->topLevelItemCount(), 0);
    }
};

TESSARIN_UI_TEST(ReceiveTrackingWindowsTest);

}  // namespace
}  // namespace tessarin

#include "receive_tracking_dialog_test.moc"
