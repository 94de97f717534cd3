#include "app/configuration_update.h"

#include <system_error>

#include "common/file_copy.h"
#include "common/fold_accents.h"
#include "config/load_configuration.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// The first character of a UTF-8 text, upper-cased for ASCII and the Latin-1 letters.
std::string UpperFirstCharacter(std::string_view text) {
    if (text.empty()) return {};
    const auto byte = static_cast<unsigned char>(text[0]);
    if (byte < 0x80) return std::string(1, static_cast<char>(std::toupper(byte)));
    if ((byte & 0xE0) == 0xC0 && text.size() >= 2) {
        unsigned code = ((byte & 0x1Fu) << 6) | (static_cast<unsigned char>(text[1]) & 0x3Fu);
        if (code >= 0xE0 && code <= 0xFE && code != 0xF7) code -= 0x20;
        return {static_cast<char>(0xC0 | (code >> 6)), static_cast<char>(0x80 | (code & 0x3F))};
    }
    std::size_t length = (byte & 0xF0) == 0xE0 ? 3 : (byte & 0xF8) == 0xF0 ? 4 : 1;
    return std::string(text.substr(0, std::min(length, text.size())));
}

std::string Text(const EditorSession& session, std::string_view key) {
    return session.Message(key);
}

// Puts the backup back over a document that did not do.
void RollBack(EditorSession& session) {
    const fs::path document = session.paths.configurationFile;
    std::error_code ignored;
    fs::remove(document, ignored);
    fs::rename(ConfigurationBackupPath(document), document, ignored);
    ReloadConfiguration(session);
}

void SetAside(const fs::path& document) {
    std::error_code ignored;
    fs::remove(ConfigurationBackupPath(document), ignored);
    fs::rename(document, ConfigurationBackupPath(document), ignored);
}

UpdateResult Invalid(EditorSession& session, const std::string& path) {
    UpdateResult result{UpdateOutcome::Invalid, "",
                        Text(session, "ConfigurationUpdatedInvalid") + ":\n" + path + "\n" +
                            Text(session, "ConfigurationUpdatedNotChanged")};
    session.user.Tell(result.message, MessageIcon::Exclamation);
    RollBack(session);
    return result;
}

}  // namespace

std::string UpdateInitial(std::string_view user, bool foldAccents) {
    return UpperFirstCharacter(foldAccents ? FoldAccents(user) : std::string(user));
}

fs::path FolderUpdatePath(const fs::path& updates, std::string_view user) {
    return updates / UpdateInitial(user, false) / (std::string(user) + ".xml");
}

bool ReloadConfiguration(EditorSession& session) {
    const bool loaded =
        LoadConfiguration(session.paths.configurationFile, session.profile, session.preferences,
                          session.configuration, session.window);
    if (loaded) session.storyModified = false;
    return loaded;
}

std::string FtpUpdatePath(std::string_view serverDirectory, std::string_view user,
                          bool foldAccents) {
    std::string base(serverDirectory);
    if (!base.empty() && !base.ends_with('/')) base += '/';
    return base + "Updates/" + UpdateInitial(user, foldAccents) + "/" + std::string(user) + ".xml";
}

fs::path ConfigurationBackupPath(const fs::path& document) {
    return fs::path(document.string() + " BAK");
}

UpdateResult UpdateConfigurationFromFolder(EditorSession& session) {
    const std::string& updates = session.configuration.workflow.UpdatesDirectory;
    const std::string& author = session.configuration.identity.author;
    std::error_code error;
    if (updates.empty() || author.empty() || !fs::is_directory(updates, error)) return {};
    const fs::path source = FolderUpdatePath(updates, author);
    if (!fs::is_regular_file(source, error)) return {};
    const fs::path document = session.paths.configurationFile;
    SetAside(document);
    if (!CopyFileWhole(source, document).empty() || !ReloadConfiguration(session))
        return Invalid(session, source.string());
    fs::remove(source, error);
    if (!fs::exists(source, error)) {
        session.user.Beep();
        return {UpdateOutcome::Updated,
                Text(session, "ConfigurationUpdated") + ": " + source.string(), ""};
    }
    UpdateResult result{UpdateOutcome::UpdatedNoDelete, "",
                        Text(session, "ConfigurationUpdated") + ":\n" + source.string() + "\n" +
                            Text(session, "ConfigurationUpdatedNoDelete")};
    session.user.Tell(result.message, MessageIcon::Exclamation);
    return result;
}

UpdateResult UpdateConfigurationAtStart(EditorSession& session) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    if (!workflow.Visible || workflow.ForceLogin) return {};
    UpdateResult result = UpdateConfigurationFromFolder(session);
    if (!result.status.empty()) session.window.Status().text = result.status;
    return result;
}

UpdateResult UpdateConfigurationFromFtp(EditorSession& session, FtpClient& ftp,
                                        std::string_view serverDirectory) {
    const std::string path = FtpUpdatePath(serverDirectory, session.configuration.identity.author);
    if (ftp.GetFTPFileSize(path) <= 0) return {};
    const fs::path document = session.paths.configurationFile;
    SetAside(document);
    if (!ftp.FTPDownloadFile(document, path)) {
        UpdateResult result{UpdateOutcome::DownloadProblem, "",
                            Text(session, "ConfigurationUpdatedNotChanged") + "\n" + path + ":" +
                                Text(session, "ConfigurationUpdatedProblem") + "\n" +
                                ftp.GetLastErrorMessage()};
        session.user.Tell(result.message, MessageIcon::Exclamation);
        RollBack(session);
        return result;
    }
    if (!ReloadConfiguration(session)) return Invalid(session, path);
    if (ftp.DeleteFTPFile(path)) {
        session.user.Beep();
        return {UpdateOutcome::Updated, path + " " + Text(session, "ConfigurationUpdated"), ""};
    }
    UpdateResult result{UpdateOutcome::UpdatedNoDelete, "",
                        Text(session, "ConfigurationUpdated") + ":\n" + path + "\n" +
                            Text(session, "ConfigurationUpdatedNoDelete") + "\n" +
                            ftp.GetLastErrorMessage()};
    session.user.Tell(result.message, MessageIcon::Exclamation);
    return result;
}

}  // namespace tessarin
