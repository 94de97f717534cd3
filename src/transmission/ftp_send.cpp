#include "transmission/ftp_send.h"
#include "repository/export_copy.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <system_error>

#include "common/date_format.h"
#include "common/file_io.h"
#include "common/plain_file_name.h"
#include "export/export_frame.h"
#include "export/session_export_context.h"
#include "logs/add_log_to_story.h"
#include "logs/daily_log.h"
#include "transmission/send_list.h"
#include "transmission/source_story.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// One upload of an item: a file of Upload to its remote name.
struct Upload {
    fs::path from;
    std::string to;
    SendReportLine line;
};

std::string RemoteName(const std::string& directory, const std::string& name) {
    return directory.empty() ? name : directory + "/" + name;
}

std::string Seconds(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", seconds);
    return text;
}

class FtpSender {
  public:
    FtpSender(EditorSession& session, WorkflowWindow& window, FtpClient& ftp,
              const FtpServer& server, std::size_t serverIndex)
        : session_(session),
          window_(window),
          ftp_(ftp),
          server_(server),
          now_(Now()),
          storyContext_(session.MakeStoryContext()),
          exportContext_(SessionExportContext(session, now_, serverIndex)) {}

    FtpSendOutcome Run() {
        const FtpTransmissionSettings& settings = session_.configuration.ftpTransmission;
        std::optional<DailyLogBatch> dailyLog;
        if (settings.LogsEnabled) {
            PrepareDailyLog(
                session_.paths.logsDir, settings.NumberOfDailyLogsToKeep,
                DailyLogHead{Rgb(255, 255, 255), Caption("ToolsCheckLogs", "Check logs")}, now_);
            dailyLog.emplace(session_.paths.logsDir, now_);
        }
        dailyLog_ = dailyLog ? &*dailyLog : nullptr;
        window_.reportHeading = Caption("ToolsCheckLogs", "Check logs");
        window_.report.clear();
        std::vector<ListedStory> stories = window_.stories;
        if (Milenium()) std::reverse(stories.begin(), stories.end());
        FtpSendOutcome outcome = FtpSendOutcome::Sent;
        for (const ListedStory& story : stories) {
            if (!SendItem(story)) {
                outcome = FtpSendOutcome::Failed;
                break;
            }
        }
        dailyLog.reset();
        if (settings.LogsEnabled && !server_.LogsDirectory.empty()) UploadDailyLog();
        return outcome;
    }

  private:
    std::string Caption(std::string_view key, std::string_view fallback) const {
        return session_.configuration.interface.CaptionOr(key, fallback);
    }

    bool Milenium() const { return server_.ExportFormat == "MileniumInsert"; }

    std::string Destination() const {
        return "ftp://" + server_.IPNumber + "," + Caption("FormatLabel", "Format") + ":" +
               server_.ExportFormat;
    }

    void Fail(const std::string& item) {
        const std::string reason = ftp_.GetLastErrorMessage();
        window_.state.ShowStatusError(item + ": " + reason);
        session_.user.Tell(item + ": " + reason + "\nIt stays in the send list.",
                           MessageIcon::Critical);
    }

    bool SendItem(const ListedStory& story) {
        const fs::path staged = session_.paths.uploadDir / story.name;
        const std::optional<std::string> stagedBytes = ReadFileBytes(staged);
        if (!stagedBytes) return false;
        ExportState state;
        state.UploadDirectory = session_.paths.uploadDir.string() + "/";
        state.CurrentUploadNode = story.name;
        state.SourceStoryPath = staged.string();
        state.LogLine = LogDateAndTime(now_) + " - " + session_.configuration.identity.author +
                        " -> " + Destination();
        ClearRepositoryCopy(session_.configuration.exportFormats, server_.ExportFormat);
        RunExport(server_.ExportFormat, ExportMode::Ftp, "F", state, exportContext_);
        if (state.ExportedFilePath.empty()) return false;
        const fs::path source(state.OriginalStoryPath);
        std::error_code ignored;
        if (!source.empty() && fs::is_regular_file(source, ignored))
            AddLogToStory(source, "F", state.LogLine, storyContext_, now_);

        std::vector<Upload> uploads{
            {state.ExportedFilePath, state.TargetPath, {SendReportLine::Kind::Story, story.name}}};
        const auto add = [&](const std::vector<std::string>& names, SendReportLine::Kind kind) {
            for (const std::string& name : names) {
                if (IsPlainFileName(name))
                    uploads.push_back({session_.paths.uploadDir / name,
                                       RemoteName(server_.ImagesDirectory, name),
                                       {kind, name}});
            }
        };
        add(story.images, SendReportLine::Kind::Image);
        add(story.files, SendReportLine::Kind::OtherFile);
        if (Milenium()) std::rotate(uploads.begin(), uploads.begin() + 1, uploads.end());

        std::vector<double> durations;
        for (const Upload& upload : uploads) {
            window_.state.Control("lblSentFile").caption = upload.line.text;
            const auto start = std::chrono::steady_clock::now();
            if (!ftp_.FTPUploadFile(upload.from, upload.to)) {
                Fail(upload.line.text);
                if (state.ExportedFilePath != staged.string())
                    fs::remove(state.ExportedFilePath, ignored);
                WriteFileAtomically(staged, *stagedBytes);
                return false;
            }
            durations.push_back(
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
            window_.state.Status().text =
                session_.Message("UploadCompleted") + ": " + Seconds(durations.back()) + " s";
        }
        Settle(uploads, durations, staged, source);
        return true;
    }

    void Settle(const std::vector<Upload>& uploads, const std::vector<double>& durations,
                const fs::path& staged, const fs::path& source) {
        std::error_code ignored;
        fs::remove(staged, ignored);
        for (const Upload& upload : uploads)
            fs::remove(upload.from, ignored);
        ArchiveSentSource(source);
        for (std::size_t index = 0; index < uploads.size(); ++index) {
            window_.report.push_back(uploads[index].line);
            if (dailyLog_ != nullptr)
                dailyLog_->Write(DailyLine(uploads[index].line, durations[index], source));
        }
    }

    std::string DailyLine(const SendReportLine& line, double seconds,
                          const fs::path& source) const {
        const std::string time = FormatTimeHourMinute(now_);
        const std::string duration =
            " - " + session_.Message("DurationLabel") + ": " + Seconds(seconds) + " s";
        if (line.kind == SendReportLine::Kind::Story) {
            const std::string label = "<i>" + session_.Message("StoryLabel") + "</i> ";
            if (!source.empty())
                return "<li>" + time + " - " + label + "<a href=\"" + source.string() + "\"><b>" +
                       line.text + "</b></a>" + duration + " [" + Destination() + "]</li>";
            return "<li>" + time + " - " + label + line.text + "</b>" + duration + " [" +
                   server_.IPNumber + "/" + server_.ExportFormat + "]</li>";
        }
        const std::string label = line.kind == SendReportLine::Kind::Image
                                      ? session_.Message("ImageLabel")
                                      : Caption("OtherFile", "Other file");
        return "<ul><li>" + time + " - <i>" + label + "</i> " + line.text + duration + "</li></ul>";
    }

    void UploadDailyLog() {
        const std::string remote = server_.LogsDirectory + "\\Log Tessarin " +
                                   FormatDate(now_, "yyyy-MM-dd", CurrentDateLanguage()) + " [" +
                                   session_.configuration.identity.author + "].htm";
        if (!ftp_.FTPUploadFile(session_.paths.logsDir / DailyLogName(now_), remote)) Fail(remote);
    }

    EditorSession& session_;
    WorkflowWindow& window_;
    FtpClient& ftp_;
    const FtpServer& server_;
    LocalDateTime now_;
    StoryContext storyContext_;
    ExportContext exportContext_;
    DailyLogBatch* dailyLog_ = nullptr;
};

}  // namespace

FtpSendOutcome SendFtp(EditorSession& session, WorkflowWindow& window, FtpClient& ftp,
                       std::size_t server) {
    window.state.ClearStatus();
    const std::vector<FtpServer>& servers = session.configuration.ftpTransmission.servers;
    if (server < 1 || server > servers.size()) return FtpSendOutcome::Refused;
    if (window.stories.empty()) {
        window.state.ShowStatusError(session.Message("AddStory"));
        return FtpSendOutcome::Refused;
    }
    const FtpSendOutcome outcome =
        FtpSender(session, window, ftp, servers[server - 1], server).Run();
    SetTreeUpload(session, window);
    ftp.CloseConnection();
    return outcome;
}

}  // namespace tessarin
