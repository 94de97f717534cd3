#include "transmission/workflow_send.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <vector>

#include "common/file_copy.h"
#include "common/file_io.h"
#include "common/plain_file_name.h"
#include "config/colours.h"
#include "config/preferences.h"
#include "export/export_frame.h"
#include "export/export_tessarinml.h"
#include "export/session_export_context.h"
#include "logs/add_log_to_story.h"
#include "logs/daily_log.h"
#include "repository/export_copy.h"
#include "repository/repository_store.h"
#include "transmission/send_list.h"
#include "transmission/source_story.h"
#include "transmission/workflow_destinations.h"
#include "transmission/workflow_inbox.h"
#include "transmission/workflow_message.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// One delivery of an item: a file of Upload, or the bytes prepared from it, to its target.
struct Delivery {
    fs::path from;
    fs::path to;
    SendReportLine line;
    std::optional<std::string> bytes;
};

std::string OtherFileLabel(const EditorSession& session) {
    return session.configuration.interface.CaptionOr("OtherFile", "Other file");
}

fs::path NativePath(std::string text) {
    std::replace(text.begin(), text.end(), '\\', '/');
    return fs::path(text);
}

class WorkflowSender {
  public:
    WorkflowSender(EditorSession& session, WorkflowWindow& window, ChosenDestination destination)
        : session_(session),
          window_(window),
          destination_(std::move(destination)),
          now_(Now()),
          storyContext_(session.MakeStoryContext()),
          exportContext_(SessionExportContext(session, now_)) {}

    SendOutcome Run() {
        const bool layout = destination_.type.starts_with('L');
        if (!layout) {
            inbox_ = InboxOf(session_, destination_.name);
            if (!inbox_) return SendOutcome::Refused;
        }
        const FtpTransmissionSettings& transmission = session_.configuration.ftpTransmission;
        std::optional<DailyLogBatch> dailyLog;
        if (transmission.LogsEnabled) {
            PrepareDailyLog(session_.paths.logsDir, transmission.NumberOfDailyLogsToKeep,
                            DailyLogHead{PageBackground(), CheckLogsCaption()}, now_);
            dailyLog.emplace(session_.paths.logsDir, now_);
        }
        dailyLog_ = dailyLog ? &*dailyLog : nullptr;
        window_.reportHeading = CheckLogsCaption();
        window_.report.clear();
        SendOutcome outcome = SendOutcome::Sent;
        for (const ListedStory& story : std::vector<ListedStory>(window_.stories)) {
            window_.state.Status().text = story.name;
            if (!layout && !InboxExists()) return SendOutcome::Stopped;
            if (!SendItem(story, layout)) outcome = SendOutcome::Failed;
        }
        return outcome;
    }

  private:
    static std::string CheckLogsCaptionOf(const EditorSession& session) {
        return session.configuration.interface.CaptionOr("ToolsCheckLogs", "Check logs");
    }
    std::string CheckLogsCaption() const { return CheckLogsCaptionOf(session_); }

    // The program's background; a colour of the desktop's scheme is taken as the classic
    // window background, white.
    OleColour PageBackground() const {
        const OleColour colour = session_.preferences.BackgroundColor;
        return IsSystemColour(colour) ? Rgb(255, 255, 255) : colour;
    }

    bool InboxExists() {
        std::error_code error;
        if (fs::is_directory(*inbox_, error)) return true;
        window_.state.ShowStatusError(session_.Message("InvalidDirectory"));
        session_.user.Tell(inbox_->string() + "\n" + session_.Message("InvalidDirectory") + "\n\n" +
                               session_.Message("WarningAdministrator"),
                           MessageIcon::Exclamation);
        return false;
    }

    std::string TypeLetter() const {
        return destination_.type.empty() ? std::string("U") : destination_.type.substr(0, 1);
    }

    std::string LayoutFormat() const {
        return destination_.type.size() > 2 ? destination_.type.substr(2) : std::string();
    }

    // Where an image or other file of the story goes.
    fs::path CompanionTarget(const ExportState& state, bool layout, const std::string& name) const {
        if (!layout) return *inbox_ / name;
        const std::string format = LayoutFormat();
        const Configuration& configuration = session_.configuration;
        if (format == "InDesign" || format == "XPress" || format == "TessarinML")
            return NativePath(state.TargetDirectory) / name;
        const fs::path newsImages = NativePath(configuration.exportFormats.NewsML.ImagesDirectory);
        std::error_code error;
        if (format == "NewsML" && !newsImages.empty() && fs::is_directory(newsImages, error))
            return newsImages / name;
        return NativePath(configuration.workflow.ExportImagesDirectory) / name;
    }

    void Fail(const std::string& item, const std::string& reason) {
        window_.state.ShowStatusError(item + ": " + reason);
        session_.user.Tell(item + ": " + reason + "\n" + "It stays in the send list.",
                           MessageIcon::Exclamation);
    }

    // The story's own delivery. To a layout destination the writer of the format runs in
    // layout mode and leaves its file in Upload; to a user or group the staged story is
    // prepared in memory by the rules of the TessarinML writer in user mode, so that it stays
    // as it was listed until it has arrived. Nothing, told, for a story that does not parse.
    std::optional<Delivery> PrepareStory(ExportState& state, bool layout,
                                         const ListedStory& story) {
        XmlDocument document;
        if (!document.LoadFile(state.SourceStoryPath)) {
            Fail(story.name, ExportParseErrorText(state.SourceStoryPath,
                                                  document.ParseError().value_or(XmlParseError{})));
            return std::nullopt;
        }
        const SendReportLine line{SendReportLine::Kind::Story, story.name};
        if (layout) {
            FillStoryNameFields(state, document.DocumentElement().SelectSingleNode("Metadata"));
            RunExport(LayoutFormat(), ExportMode::Layout, "L", state, exportContext_);
            StoreExportCopy(state);
            return Delivery{state.ExportedFilePath, NativePath(state.TargetPath), line, {}};
        }
        StoreOriginalStoryPath(state, document.DocumentElement().SelectSingleNode("Metadata"));
        std::string bytes = ComposeTessarinML(document, ExportMode::User, TypeLetter(),
                                              state.LogLine, exportContext_);
        return Delivery{state.SourceStoryPath, *inbox_ / story.name, line, std::move(bytes)};
    }

    // The layout export of NewsML, NITF and TessarinML leaves a copy in the repository when
    // the format's TextML switch and the user's TextMLExport are on; the send goes on
    // whatever the repository says.
    void StoreExportCopy(const ExportState& state) {
        const Configuration& configuration = session_.configuration;
        if (!session_.preferences.TextMLExport ||
            !RepositoryCopyOn(configuration.exportFormats, LayoutFormat())) {
            return;
        }
        RepositoryContext repository{configuration.textML, configuration.messages, session_.user,
                                     window_.state};
        StoreExportDocument(state.UploadDirectory,
                            fs::path(state.ExportedFilePath).filename().string(),
                            state.StoryNameFields, repository);
    }

    std::optional<std::vector<Delivery>> Deliveries(Delivery storyDelivery,
                                                    const ExportState& state, bool layout,
                                                    const ListedStory& story) {
        std::vector<Delivery> deliveries{std::move(storyDelivery)};
        const auto add = [&](const std::vector<std::string>& names, SendReportLine::Kind kind) {
            for (const std::string& name : names) {
                if (!IsPlainFileName(name)) {
                    Fail(name, "a file of the story " + story.name +
                                   " is named by a path, not by a file name");
                    return false;
                }
                deliveries.push_back({session_.paths.uploadDir / name,
                                      CompanionTarget(state, layout, name),
                                      {kind, name},
                                      {}});
            }
            return true;
        };
        if (!add(story.images, SendReportLine::Kind::Image) ||
            !add(story.files, SendReportLine::Kind::OtherFile)) {
            return std::nullopt;
        }
        for (const Delivery& delivery : deliveries) {
            if (!delivery.to.is_absolute()) {
                Fail(delivery.line.text, "no delivery folder is configured for it");
                return std::nullopt;
            }
        }
        return deliveries;
    }

    // The files of Upload are removed once the item has arrived, so a delivery on the same
    // file system takes them over by a second name instead of copying them.
    bool Copy(const std::vector<Delivery>& deliveries) {
        for (const Delivery& delivery : deliveries) {
            const std::string reason = delivery.bytes ? WriteFileWhole(delivery.to, *delivery.bytes)
                                                      : LinkOrCopyFile(delivery.from, delivery.to);
            if (!reason.empty()) {
                Fail(delivery.line.text + " -> " + delivery.to.string(), reason);
                return false;
            }
        }
        return true;
    }

    bool SendItem(const ListedStory& story, bool layout) {
        const fs::path staged = session_.paths.uploadDir / story.name;
        // A layout writer may write its file over the staged story: its bytes are kept to put
        // it back when the item does not arrive.
        std::optional<std::string> stagedBytes;
        if (layout && !(stagedBytes = ReadFileBytes(staged))) {
            Fail(staged.string(), "the staged story cannot be read");
            return false;
        }
        ExportState state;
        state.UploadDirectory = staged.parent_path().string() + "/";
        state.CurrentUploadNode = story.name;
        state.SourceStoryPath = staged.string();
        state.LogLine =
            TransmissionLogText(session_.configuration.identity.author, destination_.name, now_);
        std::optional<Delivery> storyDelivery = PrepareStory(state, layout, story);
        if (!storyDelivery) return false;
        const std::optional<std::vector<Delivery>> deliveries =
            Deliveries(std::move(*storyDelivery), state, layout, story);
        if (!deliveries || !Copy(*deliveries)) {
            if (layout) Restore(staged, *stagedBytes, state.ExportedFilePath);
            return false;
        }
        Settle(story, state, *deliveries, layout);
        return true;
    }

    // A layout item that did not arrive stays as it was listed.
    static void Restore(const fs::path& staged, const std::string& bytes,
                        const fs::path& exported) {
        std::error_code ignored;
        if (exported != staged) fs::remove(exported, ignored);
        WriteFileAtomically(staged, bytes);
    }

    // What follows the delivery of an item: logs, tracking copies, the staged files
    // deleted, the source renamed, the daily page and the report.
    void Settle(const ListedStory& story, const ExportState& state,
                const std::vector<Delivery>& deliveries, bool layout) {
        const Configuration& configuration = session_.configuration;
        const WorkflowSettings& workflow = configuration.workflow;
        const fs::path source = NativePath(state.OriginalStoryPath);
        std::error_code ignored;
        const bool sourceThere = !source.empty() && fs::is_regular_file(source, ignored);
        const std::string letter = layout ? std::string("L") : TypeLetter();
        if (sourceThere && (configuration.ftpTransmission.LogsEnabled || workflow.TrackingEnabled))
            AddLogToStory(source, letter, state.LogLine, storyContext_, now_);
        if (workflow.TrackingEnabled) {
            if (sourceThere) {
                CopyFileWhole(source, NativePath(workflow.TrackingTextsDirectory) /
                                          (BaseNameOf(story.name) + ".xml"));
            }
            for (std::size_t index = 1; index < deliveries.size(); ++index) {
                CopyFileWhole(deliveries[index].from, NativePath(workflow.TrackingImagesDirectory) /
                                                          deliveries[index].line.text);
            }
        }
        window_.state.Status().text = session_.Message("UploadCompleted");
        const fs::path staged = session_.paths.uploadDir / story.name;
        if (deliveries.front().from != staged) fs::remove(staged, ignored);
        for (const Delivery& delivery : deliveries)
            fs::remove(delivery.from, ignored);
        ArchiveSentSource(source);
        for (const Delivery& delivery : deliveries) {
            window_.report.push_back(delivery.line);
            if (dailyLog_ != nullptr) dailyLog_->Write(DailyLine(delivery.line));
        }
    }

    std::string DailyLine(const SendReportLine& line) const {
        const std::string& author = session_.configuration.identity.author;
        switch (line.kind) {
            case SendReportLine::Kind::Story:
                return DailyLogLine(DailyLogItem::Story, now_, session_.Message("StoryLabel"),
                                    line.text, author, destination_.name);
            case SendReportLine::Kind::Image:
                return DailyLogLine(DailyLogItem::Attachment, now_, session_.Message("ImageLabel"),
                                    line.text, author, destination_.name);
            case SendReportLine::Kind::OtherFile:
                break;
        }
        return DailyLogLine(DailyLogItem::Attachment, now_, OtherFileLabel(session_), line.text,
                            author, destination_.name);
    }

    EditorSession& session_;
    WorkflowWindow& window_;
    ChosenDestination destination_;
    LocalDateTime now_;
    StoryContext storyContext_;
    ExportContext exportContext_;
    std::optional<fs::path> inbox_;
    DailyLogBatch* dailyLog_ = nullptr;
};

}  // namespace

std::string ReportLineText(const EditorSession& session, const SendReportLine& line) {
    switch (line.kind) {
        case SendReportLine::Kind::Story:
            return line.text;
        case SendReportLine::Kind::Image:
            return "\t" + session.Message("ImageLabel") + ": " + line.text;
        case SendReportLine::Kind::OtherFile:
            break;
    }
    return "\t" + OtherFileLabel(session) + ": " + line.text;
}

SendOutcome SendWorkflow(EditorSession& session, WorkflowWindow& window) {
    window.state.ClearStatus();
    const std::optional<ChosenDestination> destination = SelectedDestination(window);
    if (!destination) {
        window.state.ShowStatusError(session.Message("MissingDestination"));
        return SendOutcome::Refused;
    }
    RememberDestination(session, window);
    if (window.tab == WorkflowTab::Message) {
        return SendWorkflowMessage(session, *destination, window.message) ? SendOutcome::Sent
                                                                          : SendOutcome::Refused;
    }
    if (window.stories.empty()) {
        window.state.ShowStatusError(session.Message("AddStory"));
        return SendOutcome::Refused;
    }
    const SendOutcome outcome = WorkflowSender(session, window, *destination).Run();
    if (outcome == SendOutcome::Refused) return outcome;
    // Both panels are cleared after the last item: the first and the repository's.
    if (outcome != SendOutcome::Stopped) {
        window.state.ClearStatus();
        window.state.secondStatus.clear();
    }
    SetTreeUpload(session, window);
    window.selectedUpload.clear();
    window.previewText.clear();
    window.previewImage.clear();
    window.reportLocked = true;
    window.state.Control("cmdAddStory").enabled = false;
    window.state.Control("cmdUpload").enabled = false;
    return outcome;
}

}  // namespace tessarin
