#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "session/editor_session.h"
#include "transmission/ftp_client.h"

namespace tessarin {

// A workstation's configuration document is prepared by an administrator, one per user, and
// fetched by the program: "<initial>/<user>.xml" below the updates folder, or
// "Updates/<initial>/<user>.xml" on an FTP server. The initial is the user's first letter
// upper-cased; on an FTP server its accent is folded first.

std::string UpdateInitial(std::string_view user, bool foldAccents);
std::filesystem::path FolderUpdatePath(const std::filesystem::path& updates, std::string_view user);
// At a login the initial is taken as it is, at an update it is folded.
std::string FtpUpdatePath(std::string_view serverDirectory, std::string_view user,
                          bool foldAccents = true);

// The backup of the document in use: its path followed by " BAK".
std::filesystem::path ConfigurationBackupPath(const std::filesystem::path& document);

// Loads the document in place, as at start; a document that loads leaves the open story
// counted as unchanged.
bool ReloadConfiguration(EditorSession& session);

enum class UpdateOutcome {
    NoUpdate,         // no document waits for the user
    Updated,          // the new document is in force and was removed from the server
    UpdatedNoDelete,  // in force, but the server kept it
    Invalid,          // it did not load: the former document was put back
    DownloadProblem,  // it could not be fetched: the former document was put back
};

struct UpdateResult {
    UpdateOutcome outcome = UpdateOutcome::NoUpdate;
    std::string status;   // the status panel's text, when there is one
    std::string message;  // the box's text, when there is one
};

// The check at start against UpdatesDirectory for the Author: the former backup is deleted,
// the document renamed to its backup and the new one copied in its place, then loaded. A
// document that loads is removed from the folder; one that does not is rolled back and left
// there, so that the message comes again at the next start.
UpdateResult UpdateConfigurationFromFolder(EditorSession& session);

// The check of the first activation: only on a workstation with the workflow visible and
// without a forced login. An update's status goes to the status panel.
UpdateResult UpdateConfigurationAtStart(EditorSession& session);

// The check at each FTP connection, on a connected client, against the server's
// FTPDirectory: as above, the document downloaded instead of copied.
UpdateResult UpdateConfigurationFromFtp(EditorSession& session, FtpClient& ftp,
                                        std::string_view serverDirectory);

}  // namespace tessarin
