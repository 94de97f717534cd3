#pragma once

#include <string>
#include <string_view>

#include "config/transmission_section.h"
#include "transmission/ftp_client.h"

namespace tessarin {

// Connects to a configured server as the FTP window does: logs in with the user and
// password given, then goes to the server's start directory (FTPDirectory). False, with the
// reason in the client's last error, when either step fails; the connection is then closed.
bool ConnectToFtpServer(FtpClient& ftp, const FtpServer& server, std::string_view user,
                        std::string_view password);

// One row of the remote listing as text: the name, a tab, "Directory" for a folder or the
// size in bytes for a file, a tab, the attribute marks.
std::string FtpListingRow(const FtpDirItem& item);

}  // namespace tessarin
