#pragma once

#include <string>

#include "session/editor_session.h"
#include "transmission/ftp_client.h"

namespace tessarin {

// The first login: the user's own configuration document, prepared by an administrator, is
// fetched from an FTP server ("Updates/<initial>/<user>.xml" below "/") or from a file-server
// updates folder ("<folder>/<initial>/<user>.xml"), with the plain initial upper-cased, and
// installed as the configuration document. Every message is a fixed English text: at login
// no configuration is there to give messages.

enum class LoginSource { FtpServer, FileServer };

struct LoginRequest {
    LoginSource source = LoginSource::FtpServer;
    std::string server;  // the FTP server, or the updates folder
    std::string user;    // whose document
    std::string login;   // the FTP login name; the user's own when empty
    std::string password;
    // Whether the configuration in place demands the login every day: the document is then
    // left in the folder, for the next login, perhaps at another workstation.
    bool forced = false;
};

struct LoginResult {
    bool done = false;    // the document was installed; false ends the program
    bool loaded = false;  // and LoadConfiguration read it whole
    std::string message;  // the stop box's text; may be set with done (a document left behind)
};

// From an FTP server: log in, fetch the document, delete it on the server (a refused delete
// is told and the login goes on), load it. From a folder: the trimmed folder and user must not
// be empty; the document is copied, deleted from the folder unless the login is forced (a
// document still there ends the login), and loaded. A loaded document leaves the open story
// counted as unchanged.
LoginResult RunFirstLogin(EditorSession& session, FtpClient& ftp, const LoginRequest& request);

}  // namespace tessarin
