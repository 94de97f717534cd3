#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

#include "attachments/jpeg_bytes.h"
#include "metadata/metadata_session.h"
#include "ui/attachments_panel.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

// A small blue picture that the preview can show, with IPTC caption and credit.
std::string TaggedPicture() {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG");
    const std::string jpeg = bytes.toStdString();
    return jpeg.substr(0, 2) +
           App13(IptcResource(IptcRecord(120, "Harbour at dawn") + IptcRecord(110, "Agency"))) +
           jpeg.substr(2);
}

// The pictures and files tab on a loaded newsroom, shown offscreen.
struct Bench {
    Bench() {
        panel.Refresh();
        panel.show();
    }

    template <typename Widget>
    Widget* Find(const char* name) {
        return panel.findChild<Widget*>(QString::fromUtf8(name));
    }
    QTreeWidget* Tree(const char* name) { return Find<QTreeWidget>(name); }
    QString Text(const char* name) { return Find<QLineEdit>(name)->text(); }
    QString CurrentText(const char* tree) { return Tree(tree)->currentItem()->text(0); }
    // Files dragged over a widget and dropped there.
    void Drop(QWidget& target, const std::filesystem::path& file) {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &drop);
    }

    MetadataSession bench;
    EditorSession& session = bench.session;
    std::filesystem::path picture = bench.folder.Write("pics/harbour.jpg", TaggedPicture());
    AttachmentsPanel panel{session, nullptr};
};

// The enabled state of each entry of a tree's context menu, as "Add+ Replace- ...".
QString ContextMenuStates(QTreeWidget& tree) {
    QString states;
    QTimer::singleShot(0, [&states] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        for (const QAction* entry : menu->actions()) {
            const QString name = entry->objectName().remove(QStringLiteral("mnuPopupImage"));
            states += name + (entry->isEnabled() ? "+ " : "- ");
        }
        menu->close();
    });
    emit tree.customContextMenuRequested(QPoint(5, 5));
    return states.trimmed();
}

class AttachmentsPanelTest : public QObject {
    Q_OBJECT
  private slots:
    void aPictureChosenInTheDialogIsShownWithItsIptcValues() {
        Bench bench;
        QVERIFY(!bench.Find<QLineEdit>("txtImageCaption")->isEnabled());

        bench.bench.user.QueuePath(bench.picture);
        QTest::keyClick(bench.Tree("treeImages"), Qt::Key_Return);

        QCOMPARE(bench.Tree("treeImages")->topLevelItem(0)->text(0), QStringLiteral("Photos [1]"));
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("harbour.jpg"));
        QCOMPARE(bench.Text("txtImageCaption"), QStringLiteral("Harbour at dawn"));
        QCOMPARE(bench.Text("txtImageCredit"), QStringLiteral("Agency"));
        QVERIFY(bench.Find<QLabel>("lblImageInfo")
                    ->text()
                    .startsWith(QString::fromStdString(bench.picture.string() + "   Size: ")));
        QVERIFY(!bench.Find<QLabel>("picImage")->pixmap().isNull());

        QTest::keyClicks(bench.Find<QLineEdit>("txtImageCaption"), QStringLiteral(", Brest"));
        QCOMPARE(bench.session.story.images[0].caption, std::string("Harbour at dawn, Brest"));
        QVERIFY(bench.session.storyModified);
    }

    // Drops reach the core, which decides what a list takes (tested there); Del removes.
    void droppedFilesAreLinkedOrRefusedAndDelRemovesThem() {
        Bench bench;
        QTreeWidget* files = bench.Tree("treeOtherFiles");
        const std::filesystem::path notes = bench.bench.folder.Write("notes.txt", "interview");
        bench.Drop(*files->viewport(), notes);
        QCOMPARE(bench.CurrentText("treeOtherFiles"), QStringLiteral("notes.txt"));
        QCOMPARE(files->currentItem()->toolTip(0), QString::fromStdString(notes.string()));
        QTest::keyClicks(bench.Find<QLineEdit>("txtOtherFileDescription"), QStringLiteral("Notes"));
        QCOMPARE(bench.session.story.files[0].description, std::string("Notes"));

        bench.Drop(*bench.Find<QLabel>("picImage"), bench.picture);
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("harbour.jpg"));

        QTest::keyClick(bench.Tree("treeImages"), Qt::Key_Delete);
        QVERIFY(bench.session.story.images.empty());
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("Photos [0]"));
        QCOMPARE(bench.Find<QLabel>("lblImageInfo")->text(), QString());
    }

    void theIptcWindowShowsTheValuesAndCopiesThemToThePicture() {
        Bench bench;
        bench.Drop(*bench.Tree("treeImages")->viewport(), bench.picture);
        bench.Find<QLineEdit>("txtImageCaption")->clear();
        QTest::keyClicks(bench.Find<QLineEdit>("txtImageCaption"), QStringLiteral("Mine"));
        bench.Tree("treeImages")->setCurrentItem(bench.Tree("treeImages")->topLevelItem(0));

        QTimer::singleShot(0, [] {
            QWidget& dialog = *QApplication::activeModalWidget();
            QCOMPARE(dialog.objectName(), QStringLiteral("frmIPTCImage"));
            QCOMPARE(dialog.findChild<QTextEdit*>("rtfIPTC")->toPlainText(),
                     QStringLiteral("Credit: Agency\nCaption/Abstract: Harbour at dawn"));
            dialog.findChild<QPushButton*>("cmdIPTCCaption")->click();
        });
        bench.panel.ShowIptc();
        QCOMPARE(bench.session.story.images[0].caption, std::string("Harbour at dawn"));
    }

    void addingIsAButtonAndTheMenuOffersOnlyWhatTheSelectionAllows() {
        Bench bench;
        auto* add = bench.Find<QPushButton>("cmdAddImage");
        QCOMPARE(add->text(), QStringLiteral("Add Photo..."));
        QVERIFY(bench.Find<QPushButton>("cmdAddOtherFile")->isVisible());
        QTreeWidget& pictures = *bench.Tree("treeImages");
        QCOMPARE(ContextMenuStates(pictures), QStringLiteral("Add+ Replace- Remove- Open- IPTC-"));

        bench.bench.user.QueuePath(bench.picture);
        add->click();
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("harbour.jpg"));
        QCOMPARE(ContextMenuStates(pictures), QStringLiteral("Add+ Replace+ Remove+ Open+ IPTC+"));
        pictures.setCurrentItem(pictures.topLevelItem(0));
        QCOMPARE(ContextMenuStates(pictures), QStringLiteral("Add+ Replace- Remove- Open- IPTC-"));
    }
};

TESSARIN_UI_TEST(AttachmentsPanelTest);

}  // namespace
}  // namespace tessarin

#include "attachments_panel_test.moc"
