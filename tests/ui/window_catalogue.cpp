#include "ui/window_catalogue.h"

#include <filesystem>
#include <vector>

#include "common/clock.h"
#include "common/file_io.h"
#include "linguistics/synonyms.h"
#include "session/editor_session.h"
#include "tracking/tracking_message.h"
#include "transmission/workflow_inbox.h"
#include "transmission/workflow_message.h"
#include "ui/check_logs_dialog.h"
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
#include "ui/word_statistics_dialog.h"
#include "ui/workflow_dialog.h"

namespace tessarin::testing {
namespace {

using Window = std::unique_ptr<QWidget>;

// A window that the program opens with the session and its parent alone.
template <typename Dialog>
Window Plain(EditorSession& session, QWidget* parent) {
    return std::make_unique<Dialog>(session, parent);
}

// A picture whose every named IPTC dataset holds a value, so that every label shows.
Window Iptc(EditorSession& session, QWidget* parent) {
    IptcData data;
    for (std::vector<std::string>& occurrences : data.occurrences)
        occurrences = {"1"};
    return std::make_unique<IptcDialog>(session, std::string(), std::move(data), parent);
}

Window Synonyms(EditorSession& session, QWidget* parent) {
    static const SynonymsDictionary kNone;
    return std::make_unique<SynonymsDialog>(session, kNone, "word", parent);
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

// To add a window: one line with its control name and how the program opens it.
const std::vector<CataloguedWindow> kWindows = {
    {"frmPreferences", Plain<PreferencesDialog>},
    {"frmSMTP", Plain<SmtpDialog>},
    {"frmWorkflow", Plain<WorkflowDialog>},
    {"frmReceive",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<ReceiveDialog>(s, ReceiveKind::Receive, p);
     }},
    {"frmIntercept",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<ReceiveDialog>(s, ReceiveKind::Intercept, p);
     }},
    {"frmTracking", Plain<TrackingDialog>},
    {"frmTrackingMessage", TrackingMessage},
    {"frmListLogs", Plain<ListLogsDialog>},
    {"frmCheckLogs",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<CheckLogsDialog>(s, p);
     }},
    {"frmMyStories", Plain<MyStoriesDialog>},
    {"frmSearchStories", Plain<SearchStoriesDialog>},
    {"frmSearch",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<SearchDialog>(s, SearchDialog::Panel{}, p);
     }},
    {"frmSearchPublications", Plain<SearchPublicationsDialog>},
    {"frmMetadata", Plain<MetadataDialog>},
    {"frmIPTCImage", Iptc},
    {"frmInsertCharacters",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<InsertCharactersDialog>(s, InsertCharactersDialog::Panel{}, p);
     }},
    {"frmQuestionsAnswers", Plain<QuestionsAnswersDialog>},
    {"frmSpelling", Plain<SpellingDialog>},
    {"frmSynonyms", Synonyms},
    {"frmWordStatistics", Plain<WordStatisticsDialog>},
    {"frmEmptyWordsList", Plain<EmptyWordsDialog>},
    {"frmFTP", Plain<FtpDialog>},
    {"frmSelectConfiguration", Plain<SelectConfigurationDialog>},
    {"frmNews",
     [](EditorSession& s, QWidget* p) -> Window { return std::make_unique<NewsWindow>(s, 0, p); }},
    {"frmSortSelectedNews",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<SortSelectedNewsDialog>(s, std::vector<NewsCopySource>{}, p);
     }},
    {"frmTipOfTheDay",
     [](EditorSession& s, QWidget* p) -> Window {
         return std::make_unique<TipOfTheDayDialog>(s, std::vector<std::string>{"A tip."}, p);
     }},
};

}  // namespace

std::span<const CataloguedWindow> WindowCatalogue() {
    return kWindows;
}

}  // namespace tessarin::testing
