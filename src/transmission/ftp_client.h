#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"

namespace tessarin {

// The program's FTP layer: one connection to one server, each operation a boolean (or a
// size) with the reason of the last failure in LastErrorMessage, transfers with a progress
// event, and remote directories listed into FtpDirectory items.
//
// A server is "host", "host:port" (default port 21) or either of them after "ftps://", which
// asks for explicit TLS on the control and the data connections. Remote names are relative
// to the current remote directory unless they begin with "/"; both "/" and "\" separate
// their levels.

// One remote directory entry. The attribute word spreads into the flags by bit.
struct FtpDirItem {
    bool ReadOnly = false;    // 0x1
    bool Hidden = false;      // 0x2
    bool System = false;      // 0x4
    bool Directory = false;   // 0x10
    bool Archive = false;     // 0x20
    bool Normal = false;      // 0x80
    bool Temporary = false;   // 0x100
    bool Compressed = false;  // 0x800
    bool Offline = false;     // 0x1000
    LocalDateTime CreationTime;
    LocalDateTime LastAccessTime;
    LocalDateTime LastWriteTime;
    std::int32_t FileSize = 0;
    std::string Filename;
};

inline constexpr std::uint32_t kFtpAttributeDirectory = 0x10;
inline constexpr std::uint32_t kFtpAttributeNormal = 0x80;

FtpDirItem MakeFtpDirItem(std::uint32_t attributes, const LocalDateTime& creation,
                          const LocalDateTime& lastAccess, const LocalDateTime& lastWrite,
                          std::int32_t fileSize, std::string fileName);

// The marks of the remote listing's attributes column, each only when its flag is set, in
// this order: " A " Archive, " C " Compressed, " D " Directory, " H " Hidden, " N " Normal,
// " O " Offline, " R " ReadOnly, " S " System, " T " Temporary.
std::string FtpAttributeMarks(const FtpDirItem& item);

// Bytes done so far and the total of the file in transfer.
using FtpProgress = std::function<void(std::int64_t done, std::int64_t total)>;

struct FtpRequest;

class FtpClient {
  public:
    FtpClient();
    ~FtpClient();
    FtpClient(const FtpClient&) = delete;
    FtpClient& operator=(const FtpClient&) = delete;

    // Connects and logs in; a connection still open is closed first. The current remote
    // directory becomes the one the server gives after the login.
    bool OpenConnection(std::string_view server, std::string_view user, std::string_view password);
    void CloseConnection();
    bool Connected() const;

    // Block transfers with the progress event. An upload overwrites a remote file of the same
    // name; a download needs a remote file of more than 0 bytes and replaces the local file
    // only once the whole file has arrived.
    bool FTPUploadFile(const std::filesystem::path& local, std::string_view remote);
    bool FTPDownloadFile(const std::filesystem::path& local, std::string_view remote);

    bool RenameFTPFile(std::string_view oldName, std::string_view newName);
    bool CreateFTPDirectory(std::string_view name);
    bool RemoveFTPDirectory(std::string_view name);
    bool DeleteFTPFile(std::string_view name);

    // The current remote directory ("/" separated, beginning with "/").
    std::string GetFTPDirectory() const;
    // Changes the current remote directory; false, and nothing changes, when the server
    // refuses it (no such directory).
    bool SetFTPDirectory(std::string_view name);

    // The size of a remote file; -1 when there is no such file, -2 on any other failure.
    std::int64_t GetFTPFileSize(std::string_view name);

    // Lists the current remote directory into Directory(), keeping the entries whose name
    // matches the filter ("*" and "?" wildcards; "*.*" keeps everything). An empty directory
    // gives an empty list and true.
    bool GetDirectoryListing(std::string_view filter = "*.*");
    const std::vector<FtpDirItem>& Directory() const { return directory_; }

    void SetTransferASCII() { binary_ = false; }
    void SetTransferBinary() { binary_ = true; }
    void SetModeActive() { passive_ = false; }
    void SetModePassive() { passive_ = true; }
    bool Passive() const { return passive_; }

    // The file of certificate authorities that vouch for TLS servers; the system's when empty.
    void SetCertificateAuthorities(std::filesystem::path file) { caFile_ = std::move(file); }

    // Raised during every transfer: after each block and once more at its end.
    void SetProgress(FtpProgress progress) { progress_ = std::move(progress); }

    // "<operation> error code: <code> Message: <text>", or when the server refused the
    // command, the server's own reply alone.
    const std::string& GetLastErrorMessage() const { return lastError_; }

  private:
    struct Session;

    std::string RemotePath(std::string_view name) const;
    std::string UrlOf(const std::string& path, bool directory) const;
    bool Perform(FtpRequest& request, std::string_view operation);
    bool Command(std::string_view operation, const std::string& command);

    std::unique_ptr<Session> session_;
    std::string host_;
    bool tls_ = false;
    std::string currentDirectory_ = "/";
    bool binary_ = true;
    bool passive_ = false;
    std::filesystem::path caFile_;
    FtpProgress progress_;
    std::string lastError_;
    std::vector<FtpDirItem> directory_;
};

}  // namespace tessarin
