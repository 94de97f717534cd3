#include "transmission/ftp_server_connection.h"

namespace tessarin {

bool ConnectToFtpServer(FtpClient& ftp, const FtpServer& server, std::string_view user,
                        std::string_view password) {
    if (!ftp.OpenConnection(server.IPNumber, user, password)) return false;
    if (server.FTPDirectory.empty() || ftp.SetFTPDirectory(server.FTPDirectory)) return true;
    ftp.CloseConnection();
    return false;
}

std::string FtpListingRow(const FtpDirItem& item) {
    const std::string size = item.Directory ? "Directory" : std::to_string(item.FileSize);
    return item.Filename + "\t" + size + "\t" + FtpAttributeMarks(item);
}

}  // namespace tessarin
