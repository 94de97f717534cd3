#include <QBuffer>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include "attachments/jpeg_bytes.h"
#include "editing/story_forms.h"
#include "metadata/metadata_fields.h"
#include "metadata/metadata_session.h"
#include "story/file_operations.h"
#include "ui/attachments_panel.h"
#include "ui/metadata_panel.h"
#include "ui/session_tree_widget.h"
#include "ui/ui_test_registry.h"
#include "ui/up_down_control.h"

namespace tessarin {
namespace {

using namespace testing;

// A panel of the story's Informations or Images view on a loaded newsroom, its controls found
// by name.
template <typename Panel>
struct InformationBench {
    template <typename Widget>
    Widget* Find(const char* name) {
        return panel.template findChild<Widget*>(QString::fromUtf8(name));
    }
    QTreeWidget* Tree(const char* name) { return Find<QTreeWidget>(name); }
    QString Text(const char* name) { return Find<QLineEdit>(name)->text(); }
    // Runs the dialog that action opens, answering it with answer once it is shown; a dialog
    // that the answer left open is cancelled.
    void AnswerDialog(const std::function<void()>& action,
                      const std::function<void(QDialog&)>& answer) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            answer(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        action();
    }

    testing::MetadataSession bench;
    EditorSession& session = bench.session;
    Panel panel{session, nullptr};
};

// One publication with a local classification, and a general one in the full view only.
constexpr const char* kPublications =
    R"(<Publications><Publication Name="Herald"><Classification Name="City" Type="Local">)"
    R"(<Section Name="Lyon"><SubSection Name="Croix-Rousse" Code1="69" Code2="004"/>)"
    R"(<SubSection Name="Vaise" Code1="69" Code2="009"/></Section></Classification>)"
    R"(<Classification Name="Nation" Type="General" Preferred="false"><Section Name="Sport">)"
    R"(<SubSection Name="Rugby"/></Section></Classification></Publication></Publications>)";

// The metadata tab on a loaded newsroom, shown offscreen, on Monday 10 March 2025.
struct MetadataBench : InformationBench<MetadataPanel> {
    MetadataBench() {
        ConfigurationDocument document;
        document.metadata = R"(<Metadata><Status Name="State"><StatusItem Name="Draft" )"
                            R"(FormalName="Draft"/><StatusItem Name="Ready" FormalName="Usable"/>)"
                            R"(</Status><CodeLocal1 Name="Town"/></Metadata>)";
        document.publications = kPublications;
        document.keywords = R"(<Keywords Name="Keywords"><KeywordsCategory CategoryIndex="1" )"
                            R"(Name="Places" Mandatory="false"/></Keywords>)";
        document.taxonomy = R"(<Taxonomy Name="Topics"><Topic FormalName="15000000">Sport)"
                            R"(</Topic></Taxonomy>)";
        bench.Load(document);
        ShowNewStory(session);
        panel.Refresh();
        panel.resize(1100, 700);
        panel.show();
    }

    QTreeWidgetItem* Item(const char* tree, const char* key) {
        for (QTreeWidgetItemIterator it(Tree(tree)); *it; ++it) {
            if ((*it)->data(0, Qt::UserRole).toString() == QLatin1String(key)) return *it;
        }
        return nullptr;
    }
    void Click(const char* tree, const char* key) {
        QTreeWidget* widget = Tree(tree);
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                          widget->visualItemRect(Item(tree, key)).center());
    }
};

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
struct AttachmentsBench : InformationBench<AttachmentsPanel> {
    AttachmentsBench() {
        panel.Refresh();
        panel.show();
    }

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

    std::filesystem::path picture = bench.folder.Write("pics/harbour.jpg", TaggedPicture());
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

// The metadata tab and the pictures and files tab: what they show and the gestures they hand
// to the core.
class InformationPanelsTest : public QObject {
    Q_OBJECT
  private slots:
    // A click goes to the core, whose filing, highlight and search rules are tested there; the
    // panel shows the fields, the configured label and the highlighted chain, and its windows
    // search and edit the classification.
    void theClassificationIsFiledSearchedAndEdited() {
        MetadataBench bench;
        QSignalSpy changed(&bench.panel, &SessionView::sessionChanged);
        bench.Click("treePublications", "T1");

        QCOMPARE(bench.Text("txtPublication"), QStringLiteral("Herald"));
        QCOMPARE(bench.Text("txtSubSectionLocal"), QStringLiteral("Croix-Rousse"));
        QCOMPARE(bench.Text("txtCodeLocal2"), QStringLiteral("004"));
        QCOMPARE(bench.Find<QLabel>("lblCodeLocal1")->text(), QStringLiteral("Town"));
        QVERIFY(bench.Find<QLineEdit>("txtPublication")->isReadOnly());
        QCOMPARE(changed.count(), 1);

        const QColor highlight(255, 255, 0);
        for (const char* key : {"P1", "C1", "S1", "T1"}) {
            QVERIFY(bench.Item("treePublications", key)->font(0).bold());
            QCOMPARE(bench.Item("treePublications", key)->background(0).color(), highlight);
        }
        QTreeWidgetItem* sibling = bench.Item("treePublications", "T2");
        QVERIFY(!sibling->font(0).bold());
        QCOMPARE(sibling->background(0).color(), QColor(Qt::white));

        // The pointer over a sub-section shows its code and name.
        emit bench.Tree("treePublications")->itemEntered(sibling, 0);
        QCOMPARE(bench.Tree("treePublications")->toolTip(), QStringLiteral("69/009 - Vaise"));

        // The search window counts, finds and switches to the full view.
        bench.AnswerDialog([&] { bench.panel.SearchPublications(); },
                           [](QDialog& dialog) {
                               QCOMPARE(dialog.objectName(),
                                        QStringLiteral("frmSearchPublications"));
                               dialog.findChild<QRadioButton*>("optAllPublications")->click();
                               QVERIFY(dialog.windowTitle().endsWith(QLatin1String(" [8 items]")));
                               dialog.findChild<QRadioButton*>("optSearchCode1")->click();
                               dialog.findChild<QLineEdit*>("txtSearch")->setText(" 69 ");
                               dialog.findChild<QPushButton*>("cmdOK")->click();
                           });
        QVERIFY(bench.session.configuration.publications.allPublications);
        QVERIFY(bench.Item("treePublications", "T1")->font(0).bold());
        QVERIFY(bench.Item("treePublications", "T2")->font(0).bold());
        QVERIFY(!bench.Item("treePublications", "T3")->font(0).bold());

        // The metadata window edits the classification.
        bench.Click("treePublications", "S1");
        bench.session.storyModified = false;
        bench.AnswerDialog([&] { bench.panel.EditClassification(); },
                           [](QDialog& dialog) {
                               QCOMPARE(dialog.windowTitle(), QStringLiteral("Metadata..."));
                               auto* field = dialog.findChild<QLineEdit*>("txtSectionLocal");
                               QCOMPARE(field->text(), QStringLiteral("Lyon"));
                               field->setText(QStringLiteral("Lyon Ouest"));
                               dialog.findChild<QPushButton*>("cmdOK")->click();
                           });
        QCOMPARE(bench.Text("txtSectionLocal"), QStringLiteral("Lyon Ouest"));
        QVERIFY(bench.session.storyModified);
    }

    // The fields and trees besides the classification: dates by typing, steps and calendar, the
    // cold story, the lock, the status, keywords and topics.
    void theOtherFieldsFollowTheUsersGestures() {
        MetadataBench bench;
        QCOMPARE(bench.Text("txtPublicationDate"), QStringLiteral("11/03/2025"));
        auto* date = bench.Find<QLineEdit>("txtPublicationDate");
        date->clear();
        QTest::keyClicks(date, QStringLiteral("09/03/2025"));
        QCOMPARE(bench.session.story.publicationDate, std::string("09/03/2025"));
        bench.Find<UpDownControl>("udDate")->stepBy(1);
        QCOMPARE(bench.Text("txtPublicationDate"), QStringLiteral("10/03/2025"));

        QTest::mouseClick(bench.Find<QToolButton>("cmdDate"), Qt::LeftButton);
        auto* monthView = bench.Find<QCalendarWidget>("MonthViewPublicationDate");
        QVERIFY(monthView->isVisible());
        QCOMPARE(monthView->selectedDate(), QDate(2025, 3, 10));
        emit monthView->clicked(QDate(2025, 4, 2));
        QVERIFY(!monthView->isVisible());
        QCOMPARE(bench.Text("txtPublicationDate"), QStringLiteral("02/04/2025"));

        bench.Find<QLineEdit>("txtPublicationNumber")->setText(QStringLiteral("12"));
        emit bench.Find<QLineEdit>("txtPublicationNumber")->textEdited(QStringLiteral("12"));
        bench.Find<UpDownControl>("udNumber")->stepBy(-1);
        QCOMPARE(bench.Text("txtPublicationNumber"), QStringLiteral("11"));

        // A cold story has no date; a locked story no classification; the status is chosen.
        QTest::mouseClick(bench.Find<QCheckBox>("chkColdStory"), Qt::LeftButton);
        QVERIFY(!bench.Find<QLineEdit>("txtPublicationDate")->isEnabled());

        bench.panel.LockMetadata(true);
        QVERIFY(bench.Find<QLabel>("lblMetadataLocked")->isVisible());
        QVERIFY(!bench.Tree("treePublications")->isEnabled());
        QVERIFY(!bench.Find<QComboBox>("lstStatus")->isEnabled());
        bench.panel.LockMetadata(false);
        QVERIFY(!bench.Find<QLabel>("lblMetadataLocked")->isVisible());
        QVERIFY(bench.Tree("treeKeywords")->isEnabled());

        auto* status = bench.Find<QComboBox>("lstStatus");
        QCOMPARE(status->currentText(), QStringLiteral("Ready"));
        emit status->activated(0);
        QCOMPARE(bench.session.story.statusIndex, 0);

        // Keywords are added in place and removed with Del.
        QTreeWidget* tree = bench.Tree("treeKeywords");
        auto type = [&](const char* text) {
            tree->setCurrentItem(bench.Item("treeKeywords", "K1/new"));
            QTest::keyClick(tree, Qt::Key_Return);
            auto* editor = tree->viewport()->findChild<QLineEdit*>();
            QVERIFY(editor != nullptr);

            editor->selectAll();
            QTest::keyClicks(editor, QString::fromUtf8(text));
            QTest::keyClick(editor, Qt::Key_Return);
        };
        bench.session.storyModified = false;
        type("Lyon");
        QTRY_COMPARE(bench.session.story.keywords, (std::vector<StoryKeyword>{{"K1", "Lyon"}}));
        QCOMPARE(bench.Item("treeKeywords", "K1/1")->text(0), QStringLiteral("Lyon"));
        QCOMPARE(SessionTreeWidget::KeyOf(tree->currentItem()), std::string("K1/new"));
        QVERIFY(bench.session.storyModified);

        tree->setCurrentItem(bench.Item("treeKeywords", "K1/1"));
        QTest::keyClick(tree, Qt::Key_Delete);
        QVERIFY(bench.session.story.keywords.empty());
        QCOMPARE(bench.Item("treeKeywords", "K1/1"), nullptr);

        // A checked topic is the story's and bold.
        QTreeWidgetItem* sport = bench.Item("treeTaxonomy", "T0/1");
        QVERIFY(sport->flags() & Qt::ItemIsUserCheckable);
        sport->setCheckState(0, Qt::Checked);
        QCOMPARE(bench.session.story.taxonomy, (std::vector<TaxonomyTopic>{{"Sport", 15000000}}));
        QVERIFY(bench.Item("treeTaxonomy", "T0/1")->font(0).bold());
        QVERIFY(bench.Tree("treeTaxonomy")->isVisible());
    }

    // Return in the list or the add button asks for a picture, shown with its IPTC values; the
    // list's menu offers only what the selection allows.
    void anAddedPictureIsShownWithItsIptcValuesAndTheMenuFollowsTheSelection() {
        AttachmentsBench bench;
        QVERIFY(!bench.Find<QLineEdit>("txtImageCaption")->isEnabled());
        auto* add = bench.Find<QPushButton>("cmdAddImage");
        QCOMPARE(add->text(), QStringLiteral("Add Photo..."));  // made of two captions
        QVERIFY(bench.Find<QPushButton>("cmdAddOtherFile")->isVisible());
        QTreeWidget& pictures = *bench.Tree("treeImages");
        QCOMPARE(ContextMenuStates(pictures), QStringLiteral("Add+ Replace- Remove- Open- IPTC-"));

        bench.bench.user.QueuePath(bench.picture);
        QTest::keyClick(&pictures, Qt::Key_Return);
        QCOMPARE(pictures.topLevelItem(0)->text(0), QStringLiteral("Photos [1]"));
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("harbour.jpg"));
        QCOMPARE(bench.Text("txtImageCaption"), QStringLiteral("Harbour at dawn"));
        QCOMPARE(bench.Text("txtImageCredit"), QStringLiteral("Agency"));
        QVERIFY(bench.Find<QLabel>("lblImageInfo")
                    ->text()
                    .startsWith(QString::fromStdString(bench.picture.string() + "   Size: ")));
        QVERIFY(!bench.Find<QLabel>("picImage")->pixmap().isNull());
        QCOMPARE(ContextMenuStates(pictures), QStringLiteral("Add+ Replace+ Remove+ Open+ IPTC+"));

        QTest::keyClicks(bench.Find<QLineEdit>("txtImageCaption"), QStringLiteral(", Brest"));
        QCOMPARE(bench.session.story.images[0].caption, std::string("Harbour at dawn, Brest"));
        QVERIFY(bench.session.storyModified);

        pictures.setCurrentItem(pictures.topLevelItem(0));
        QCOMPARE(ContextMenuStates(pictures), QStringLiteral("Add+ Replace- Remove- Open- IPTC-"));
        bench.bench.user.QueuePath(bench.bench.folder.Write("pics/quay.jpg", TaggedPicture()));
        add->click();
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("quay.jpg"));
    }

    // Drops reach the core, which decides what a list takes (tested there); the IPTC window
    // shows the picture's values and copies them to it; Del removes.
    void droppedFilesAreLinkedShownInTheIptcWindowAndRemovedWithDel() {
        AttachmentsBench bench;
        QTreeWidget* files = bench.Tree("treeOtherFiles");
        const std::filesystem::path notes = bench.bench.folder.Write("notes.txt", "interview");
        bench.Drop(*files->viewport(), notes);
        QCOMPARE(bench.CurrentText("treeOtherFiles"), QStringLiteral("notes.txt"));
        QCOMPARE(files->currentItem()->toolTip(0), QString::fromStdString(notes.string()));
        QTest::keyClicks(bench.Find<QLineEdit>("txtOtherFileDescription"), QStringLiteral("Notes"));
        QCOMPARE(bench.session.story.files[0].description, std::string("Notes"));

        bench.Drop(*bench.Find<QLabel>("picImage"), bench.picture);
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("harbour.jpg"));
        bench.Find<QLineEdit>("txtImageCaption")->clear();
        QTest::keyClicks(bench.Find<QLineEdit>("txtImageCaption"), QStringLiteral("Mine"));
        bench.AnswerDialog(
            [&] { bench.panel.ShowIptc(); },
            [](QDialog& dialog) {
                QCOMPARE(dialog.objectName(), QStringLiteral("frmIPTCImage"));
                QCOMPARE(dialog.findChild<QTextEdit*>("rtfIPTC")->toPlainText(),
                         QStringLiteral("Credit: Agency\nCaption/Abstract: Harbour at dawn"));
                dialog.findChild<QPushButton*>("cmdIPTCCaption")->click();
            });
        QCOMPARE(bench.session.story.images[0].caption, std::string("Harbour at dawn"));

        QTest::keyClick(bench.Tree("treeImages"), Qt::Key_Delete);
        QVERIFY(bench.session.story.images.empty());
        QCOMPARE(bench.CurrentText("treeImages"), QStringLiteral("Photos [0]"));
        QCOMPARE(bench.Find<QLabel>("lblImageInfo")->text(), QString());
    }
};

TESSARIN_UI_TEST(InformationPanelsTest);

}  // namespace
}  // namespace tessarin

#include "information_panels_test.moc"
