#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableWidget>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "common/clock.h"
#include "common/file_io.h"
#include "config/interface_section.h"
#include "config/messages_section.h"
#include "linguistics/synonyms.h"
#include "support/replace_once.h"
#include "support/temp_dir.h"
#include "tracking/tracking_message.h"
#include "transmission/workflow_inbox.h"
#include "transmission/workflow_message.h"
#include "ui/check_logs_dialog.h"
#include "ui/editor_driver.h"
#include "ui/empty_words_dialog.h"
#include "ui/ftp_dialog.h"
#include "ui/insert_characters_dialog.h"
#include "ui/iptc_dialog.h"
#include "ui/list_logs_dialog.h"
#include "ui/metadata_dialog.h"
#include "ui/my_stories_dialog.h"
#include "ui/news_window.h"
#include "ui/preferences_dialog.h"
#include "ui/questions_answers_dialog.h"
#include "ui/receive_dialog.h"
#include "ui/search_dialog.h"
#include "ui/search_publications_dialog.h"
#include "ui/search_stories_dialog.h"
#include "ui/select_configuration_dialog.h"
#include "ui/smtp_dialog.h"
#include "ui/spelling_dialog.h"
#include "ui/synonyms_dialog.h"
#include "ui/tip_of_the_day_dialog.h"
#include "ui/tracking_dialog.h"
#include "ui/ui_test_registry.h"
#include "ui/word_statistics_dialog.h"
#include "ui/workflow_dialog.h"

namespace tessarin {
namespace {

using Window = std::unique_ptr<QWidget>;
using Opener = std::function<Window(EditorSession& session, QWidget* parent)>;

// How the program opens a window: with the session, the arguments given, then its parent.
template <typename Dialog, typename... Arguments>
Opener Opened(Arguments... arguments) {
    return [=](EditorSession& session, QWidget* parent) -> Window {
        return std::make_unique<Dialog>(session, arguments..., parent);
    };
}

// A picture whose every named IPTC dataset holds a value, so that every label shows.
Window Iptc(EditorSession& session, QWidget* parent) {
    IptcData data;
    for (std::vector<std::string>& occurrences : data.occurrences)
        occurrences = {"1"};
    return std::make_unique<IptcDialog>(session, std::string(), std::move(data), parent);
}

// The message window as the inbox watcher opens it on a message the author left himself;
// the message file goes again once read, so that the watcher never sees it.
Window TrackingMessage(EditorSession& session, QWidget* parent) {
    MessageWindow message;
    const std::string& author = session.configuration.identity.author;
    if (const auto inbox = InboxPath(session.configuration.workflow, author)) {
        const std::filesystem::path file = *inbox / kMessageFileName;
        WriteFileReplacing(
            file, WorkflowMessageBytes(author, author, Now(), "story.xml", "Lunch at noon?"));
        OpenReadingMessage(session, message);
        std::filesystem::remove(file);
    }
    return std::make_unique<TrackingMessageDialog>(session, std::move(message), parent);
}

const SynonymsDictionary kNoSynonyms;

// Every window of the editor besides the main window, by its control name, each opened as
// the program opens it. To add a window: one line.
const std::pair<const char*, Opener> kWindows[] = {
    {"frmPreferences", Opened<PreferencesDialog>()},
    {"frmSMTP", Opened<SmtpDialog>()},
    {"frmWorkflow", Opened<WorkflowDialog>()},
    {"frmReceive", Opened<ReceiveDialog>(ReceiveKind::Receive)},
    {"frmIntercept", Opened<ReceiveDialog>(ReceiveKind::Intercept)},
    {"frmTracking", Opened<TrackingDialog>()},
    {"frmTrackingMessage", TrackingMessage},
    {"frmListLogs", Opened<ListLogsDialog>()},
    {"frmCheckLogs", Opened<CheckLogsDialog>()},
    {"frmMyStories", Opened<MyStoriesDialog>()},
    {"frmSearchStories", Opened<SearchStoriesDialog>()},
    {"frmSearch", Opened<SearchDialog>(SearchDialog::Panel{})},
    {"frmSearchPublications", Opened<SearchPublicationsDialog>()},
    {"frmMetadata", Opened<MetadataDialog>()},
    {"frmIPTCImage", Iptc},
    {"frmInsertCharacters", Opened<InsertCharactersDialog>(InsertCharactersDialog::Panel{})},
    {"frmQuestionsAnswers", Opened<QuestionsAnswersDialog>()},
    {"frmSpelling", Opened<SpellingDialog>()},
    {"frmSynonyms", Opened<SynonymsDialog>(std::cref(kNoSynonyms), std::string("word"))},
    {"frmWordStatistics", Opened<WordStatisticsDialog>()},
    {"frmEmptyWordsList", Opened<EmptyWordsDialog>()},
    {"frmFTP", Opened<FtpDialog>()},
    {"frmSelectConfiguration", Opened<SelectConfigurationDialog>()},
    {"frmNews", Opened<NewsWindow>(0)},
    {"frmSortSelectedNews", Opened<SortSelectedNewsDialog>(std::vector<NewsCopySource>{})},
    {"frmTipOfTheDay", Opened<TipOfTheDayDialog>(std::vector<std::string>{"A tip."})},
};

using testing::Editor;
using testing::TempDir;

// The texts a window shows, by where it shows them: the control's place in the window and
// the property.
using ShownTexts = std::map<QString, QString>;

// What a second language calls a key: the key between guillemets, so that every text shows
// where it came from.
std::string Renamed(std::string_view key, std::string_view attribute = "") {
    return "\xC2\xAB" + std::string(key) + (attribute.empty() ? "" : ":") + std::string(attribute) +
           "\xC2\xBB";
}

// Every Interface key captioned in the second language, with its short text, tool tip and
// clipboard captions, and withdrawn.
std::string SecondLanguageInterface() {
    std::string entries;
    for (std::string_view key : InterfaceKeys()) {
        const std::string name(key);
        entries += "<" + name + " Short=\"" + Renamed(key, "short") + "\" ToolTipText=\"" +
                   Renamed(key, "tip") + "\" Copy=\"" + Renamed(key, "copy") + "\" Sorted=\"" +
                   Renamed(key, "sorted") + "\" Visible=\"false\">" + Renamed(key) + "</" + name +
                   ">";
    }
    return entries;
}

std::string SecondLanguageMessages() {
    std::string entries;
    for (const MessageDefault& message : MessageDefaults()) {
        const std::string name(message.key);
        entries += "<" + name + ">" + Renamed(message.key) + "</" + name + ">";
    }
    return entries;
}

// The editor on a newsroom where every part of the windows is switched on: the shared
// newsroom with a workflow, the author's inbox and mail; Interface entries and messages as
// given.
struct Newsroom {
    Newsroom(std::string_view entries, std::string_view messages) {
        std::string configuration = testing::Newsroom("", entries, messages);
        testing::ReplaceOnce(configuration, "</Forms>", "</Forms><Author>Ann</Author>");
        testing::ReplaceOnce(configuration, "<Story/>",
                             "<SMTPTransmission Visible=\"true\" SMTPServerName=\"127.0.0.1\"/>"
                             "<Workflow Visible=\"true\" WorkflowDirectory=\"" +
                                 (folder / "inbox").string() +
                                 "\"><Users><User Preferred=\"true\">Ann</User></Users>"
                                 "</Workflow><Story/>");
        std::filesystem::create_directories(folder / "inbox/Ann");
        folder.Write("Tessarin.xml", configuration);
    }

    TempDir folder;
    Editor editor{folder};
};

QString PlainText(const QString& text) {
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

// Where an object sits in its window: its name (or class) and place among its parent's
// children, and those of each parent up to the window.
QString PlaceOf(const QObject& object, const QObject& window) {
    QStringList parts;
    for (const QObject* at = &object; at != nullptr && at != &window; at = at->parent()) {
        const QString name = at->objectName().isEmpty()
                                 ? QLatin1String(at->metaObject()->className())
                                 : at->objectName();
        const qsizetype place = at->parent() ? at->parent()->children().indexOf(at) : 0;
        parts.prepend(name + QLatin1Char('#') + QString::number(place));
    }
    return parts.join(QLatin1Char('/'));
}

// Every text the window shows: its title, and each label, button, group, tab, menu, action,
// tree or table header, tool tip and read-only text box in it, shown or not.
ShownTexts TextsOf(QWidget& window) {
    ShownTexts texts;
    const auto add = [&](const QObject& object, const QString& property, const QString& text) {
        if (!text.trimmed().isEmpty())
            texts[PlaceOf(object, window) + QLatin1Char('.') + property] = PlainText(text);
    };
    add(window, QStringLiteral("windowTitle"), window.windowTitle());
    for (QObject* object : window.findChildren<QObject*>()) {
        if (auto* action = qobject_cast<QAction*>(object)) {
            if (action->isSeparator()) continue;
            add(*action, QStringLiteral("text"), action->text());
            add(*action, QStringLiteral("toolTip"), action->toolTip());
            continue;
        }
        auto* widget = qobject_cast<QWidget*>(object);
        if (widget == nullptr) continue;
        add(*widget, QStringLiteral("toolTip"), widget->toolTip());
        if (auto* label = qobject_cast<QLabel*>(widget))
            add(*label, QStringLiteral("text"), label->text());
        if (auto* button = qobject_cast<QAbstractButton*>(widget))
            add(*button, QStringLiteral("text"), button->text());
        if (auto* group = qobject_cast<QGroupBox*>(widget))
            add(*group, QStringLiteral("title"), group->title());
        if (auto* menu = qobject_cast<QMenu*>(widget))
            add(*menu, QStringLiteral("title"), menu->title());
        if (auto* tabs = qobject_cast<QTabBar*>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                add(*tabs, QStringLiteral("tab%1").arg(tab), tabs->tabText(tab));
                add(*tabs, QStringLiteral("tabToolTip%1").arg(tab), tabs->tabToolTip(tab));
            }
        }
        if (auto* tree = qobject_cast<QTreeWidget*>(widget); tree && !tree->isHeaderHidden()) {
            for (int column = 0; column < tree->columnCount(); ++column)
                add(*tree, QStringLiteral("header%1").arg(column),
                    tree->headerItem()->text(column));
        }
        if (auto* table = qobject_cast<QTableWidget*>(widget)) {
            for (int column = 0; column < table->columnCount(); ++column) {
                if (const QTableWidgetItem* header = table->horizontalHeaderItem(column))
                    add(*table, QStringLiteral("header%1").arg(column), header->text());
            }
        }
        if (auto* edit = qobject_cast<QTextEdit*>(widget); edit && edit->isReadOnly())
            add(*edit, QStringLiteral("text"), edit->toPlainText());
        if (auto* edit = qobject_cast<QPlainTextEdit*>(widget); edit && edit->isReadOnly())
            add(*edit, QStringLiteral("text"), edit->toPlainText());
    }
    return texts;
}

// A caption compared as a reader sees it: without "&" marks, trailing dots and colons, case
// and repeated blanks.
QString Comparable(QString text) {
    text.remove(QLatin1Char('&'));
    text = text.simplified();
    while (!text.isEmpty() && QStringLiteral(".:\u2026").contains(text.back()))
        text.chop(1);
    return text.trimmed().toCaseFolded();
}

// The pieces of a shown text that a caption can make up: the texts between numbers, renamed
// parts and the marks that join a caption to its value.
QStringList CaptionPieces(const QString& text) {
    static const QRegularExpression kJoints(
        QStringLiteral("\u00AB[^\u00BB]*\u00BB|[0-9]+|[:=/\\n\\t\\[\\]()]| - "));
    QStringList pieces;
    for (const QString& piece : text.split(kJoints, Qt::SkipEmptyParts)) {
        if (Comparable(piece).size() >= 3) pieces << Comparable(piece);
    }
    if (!text.contains(QChar(0x00AB))) pieces << Comparable(text);
    return pieces;
}

void AddEnglish(std::set<QString>& english, std::string_view text) {
    for (const QString& piece :
         QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
             .split(QRegularExpression(QStringLiteral("###|\\\\n")), Qt::SkipEmptyParts)) {
        if (!Comparable(piece).isEmpty()) english.insert(Comparable(piece));
    }
}

// One window in both languages.
struct WindowPair {
    QString name;
    ShownTexts designed;
    ShownTexts renamed;
};

// The English that a key stands for: the captions and messages that the code sets when the
// configuration leaves a key empty, and every text of the design that the second language
// replaced somewhere.
std::set<QString> EnglishOfKeys(const EditorSession& designed,
                                const std::vector<WindowPair>& windows) {
    std::set<QString> english;
    const InterfaceSettings& interface = designed.configuration.interface;
    for (std::string_view key : InterfaceKeys()) {
        const InterfaceEntry& entry = interface.Entry(key);
        for (const std::string* text :
             {&entry.caption, &entry.ToolTipText, &entry.Copy, &entry.Sorted})
            AddEnglish(english, *text);
    }
    for (const MessageDefault& message : MessageDefaults())
        AddEnglish(english, message.text);
    for (const WindowPair& window : windows) {
        for (const auto& [place, text] : window.renamed) {
            const auto design = window.designed.find(place);
            if (text.contains(QChar(0x00AB)) && design != window.designed.end() &&
                !design->second.contains(QChar(0x00AB)))
                english.insert(Comparable(design->second));
        }
    }
    return english;
}

// Controls whose English text matches a key's although no key names them: what the Metadata
// and Story sections name (their labels, the metadata button and the window behind it, the
// signature buttons, the notes' tool tip), and what has no key (the mail window's send
// button, the story list's columns), and the FTP listing's columns, which the FTP section names.
constexpr const char* kNamedElsewhere[] = {"lblClassification", "lblInitials",   "cmdMetadata",
                                           "frmMetadata",       "cmdSignature1", "treeNotes",
                                           "cmdSend",           "lvStories",     "lv"};

bool NamedElsewhere(const QString& window, const QString& place) {
    const QString control = place.section(QLatin1Char('/'), -1).section(QLatin1Char('#'), 0, 0);
    for (const char* name : kNamedElsewhere) {
        if (control == QLatin1String(name) ||
            (window == QLatin1String(name) && place.startsWith(QLatin1Char('.'))))
            return true;
    }
    return false;
}

// Warnings of windows that ask for a caption by a key that Interface does not have.
QStringList unknownKeys;

void KeepUnknownKeys(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtWarningMsg && message.startsWith(QLatin1String("no Interface key")))
        unknownKeys << message;
}

class ConfiguredCaptionsTest : public QObject {
    Q_OBJECT
  private slots:
    // The same windows in the design language and in a second one that renames every key and
    // withdraws every menu entry: nowhere does the second show a text that a key stands for in
    // the first, nor a withdrawn entry, its tool-bar buttons or its separator.
    void aSecondLanguageRenamesEveryWindow() {
        Newsroom designed("", "");
        Newsroom renamed(SecondLanguageInterface(), SecondLanguageMessages());
        QVERIFY(designed.editor.StartAndShow());
        QVERIFY(renamed.editor.StartAndShow());
        // The tabs and the tool-bar buttons show the short texts, a button's tool tip the caption.
        QCOMPARE(renamed.editor.Find<QTabWidget>("tabDisplay")->tabText(1),
                 QString::fromStdString(Renamed("DisplayStory", "short")));
        QCOMPARE(renamed.editor.Action("Save")->toolTip(),
                 QString::fromStdString(Renamed("FileSave")));

        unknownKeys.clear();
        const QtMessageHandler former = qInstallMessageHandler(KeepUnknownKeys);
        std::vector<WindowPair> windows{{QStringLiteral("frmTessarin"),
                                         TextsOf(designed.editor.window),
                                         TextsOf(renamed.editor.window)}};
        for (const auto& [name, open] : kWindows) {
            WindowPair& pair = windows.emplace_back();
            pair.name = QLatin1String(name);
            for (auto [newsroom, texts] :
                 {std::pair{&designed, &pair.designed}, std::pair{&renamed, &pair.renamed}}) {
                MainWindow& main = newsroom->editor.window;
                const std::unique_ptr<QWidget> window = open(main.Session(), &main);
                QCOMPARE(window->objectName(), pair.name);
                *texts = TextsOf(*window);
            }
        }
        qInstallMessageHandler(former);
        QVERIFY2(unknownKeys.isEmpty(), qPrintable(unknownKeys.join(QLatin1Char('\n'))));

        const std::set<QString> english = EnglishOfKeys(designed.editor.window.Session(), windows);
        QStringList leftovers;
        for (const WindowPair& window : windows) {
            for (const auto& [place, text] : window.renamed) {
                if (NamedElsewhere(window.name, place)) continue;
                for (const QString& piece : CaptionPieces(text)) {
                    if (!piece.isEmpty() && english.contains(piece))
                        leftovers << window.name + QLatin1Char(' ') + place + QStringLiteral(": ") +
                                         text;
                }
            }
        }
        leftovers.removeDuplicates();
        QVERIFY2(leftovers.isEmpty(), qPrintable(QStringLiteral("left in English:\n") +
                                                 leftovers.join(QLatin1Char('\n'))));

        QStringList shown;
        int entries = 0;
        for (std::string_view key : InterfaceKeys()) {
            // Only the entries that the key captions are its own.
            QAction* entry = renamed.editor.Action(("mnu" + std::string(key)).c_str());
            if (entry == nullptr || entry->text() != QString::fromStdString(Renamed(key))) continue;
            ++entries;
            if (entry->isVisible()) shown << entry->objectName();
            for (std::string_view button : ToolbarButtonsOf(key)) {
                QAction* onBar = renamed.editor.Action(std::string(button).c_str());
                if (onBar != nullptr && onBar->isVisible()) shown << onBar->objectName();
            }
        }
        QVERIFY(entries > 50);
        QVERIFY2(shown.isEmpty(), qPrintable(shown.join(QLatin1Char(' '))));
    }
};

TESSARIN_UI_TEST(ConfiguredCaptionsTest);

}  // namespace
}  // namespace tessarin

#include "configured_captions_test.moc"
