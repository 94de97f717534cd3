#include "transmission/ftp_client.h"

#include <curl/curl.h>
#include <fnmatch.h>

#include <cstdio>
#include <ctime>
#include <mutex>
#include <system_error>

#include "common/temporary_files.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

constexpr std::string_view kTlsPrefix = "ftps://";

// Seconds without a byte moving before a transfer is given up: a server that stops
// answering ends in a failure, never in a hang.
constexpr long kStallSeconds = 60;

void InitialiseCurlOnce() {
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

std::string Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    return std::string(text.substr(first, last - first + 1));
}

// "YYYYMMDDHHMMSS" in UTC, as a listing gives it, in local time; the default date when the
// text is no such time.
LocalDateTime LocalTimeOfListing(std::string_view text) {
    std::tm utc{};
    if (text.size() < 14 ||
        std::sscanf(std::string(text.substr(0, 14)).c_str(), "%4d%2d%2d%2d%2d%2d", &utc.tm_year,
                    &utc.tm_mon, &utc.tm_mday, &utc.tm_hour, &utc.tm_min, &utc.tm_sec) != 6) {
        return {};
    }
    utc.tm_year -= 1900;
    utc.tm_mon -= 1;
    const std::time_t seconds = timegm(&utc);
    std::tm local{};
    localtime_r(&seconds, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

// One line of a machine listing: "fact=value;fact=value; name". Nothing for the entries of
// the directory itself and its parent, and for lines that are no entry.
std::optional<FtpDirItem> ParseListingLine(std::string_view line) {
    const std::size_t space = line.find("; ");
    if (space == std::string_view::npos) return std::nullopt;
    std::string type;
    std::int64_t size = 0;
    LocalDateTime modified;
    std::string_view facts = line.substr(0, space + 1);
    while (!facts.empty()) {
        const std::size_t end = facts.find(';');
        const std::string_view fact = facts.substr(0, end);
        facts.remove_prefix(end == std::string_view::npos ? facts.size() : end + 1);
        const std::size_t equals = fact.find('=');
        if (equals == std::string_view::npos) continue;
        std::string name(fact.substr(0, equals));
        for (char& c : name)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const std::string_view value = fact.substr(equals + 1);
        if (name == "type") {
            type.assign(value);
            for (char& c : type)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        } else if (name == "size") {
            size = std::strtoll(std::string(value).c_str(), nullptr, 10);
        } else if (name == "modify") {
            modified = LocalTimeOfListing(value);
        }
    }
    if (type != "file" && type != "dir") return std::nullopt;
    const std::uint32_t attributes = type == "dir" ? kFtpAttributeDirectory : kFtpAttributeNormal;
    return MakeFtpDirItem(attributes, modified, modified, modified,
                          static_cast<std::int32_t>(size & 0xFFFFFFFF),
                          std::string(line.substr(space + 2)));
}

}  // namespace

FtpDirItem MakeFtpDirItem(std::uint32_t attributes, const LocalDateTime& creation,
                          const LocalDateTime& lastAccess, const LocalDateTime& lastWrite,
                          std::int32_t fileSize, std::string fileName) {
    FtpDirItem item;
    item.ReadOnly = (attributes & 0x1) != 0;
    item.Hidden = (attributes & 0x2) != 0;
    item.System = (attributes & 0x4) != 0;
    item.Directory = (attributes & 0x10) != 0;
    item.Archive = (attributes & 0x20) != 0;
    item.Normal = (attributes & 0x80) != 0;
    item.Temporary = (attributes & 0x100) != 0;
    item.Compressed = (attributes & 0x800) != 0;
    item.Offline = (attributes & 0x1000) != 0;
    item.CreationTime = creation;
    item.LastAccessTime = lastAccess;
    item.LastWriteTime = lastWrite;
    item.FileSize = fileSize;
    item.Filename = std::move(fileName);
    return item;
}

std::string FtpAttributeMarks(const FtpDirItem& item) {
    std::string marks;
    const std::pair<bool, const char*> flags[] = {
        {item.Archive, " A "},  {item.Compressed, " C "}, {item.Directory, " D "},
        {item.Hidden, " H "},   {item.Normal, " N "},     {item.Offline, " O "},
        {item.ReadOnly, " R "}, {item.System, " S "},     {item.Temporary, " T "},
    };
    for (const auto& [set, mark] : flags) {
        if (set) marks += mark;
    }
    return marks;
}

// The easy handle keeps the logged-in control connection between operations.
struct FtpClient::Session {
    CURL* curl = nullptr;
    std::string user;
    std::string password;
    std::string localAddress;  // of the control connection
    ~Session() {
        if (curl != nullptr) curl_easy_cleanup(curl);
    }
};

// What one operation asks of the connection and what it brings back.
struct FtpRequest {
    std::string url;
    bool noBody = true;
    std::vector<std::string> quote;
    std::string customRequest;
    // Upload: read from this file; download and listings: write to it or to `received`.
    std::FILE* upload = nullptr;
    std::FILE* download = nullptr;
    std::int64_t total = 0;
    std::int64_t done = 0;
    std::string received;
    const FtpProgress* progress = nullptr;
    std::string reply;      // the server's last reply
    std::string command;    // the last command sent
    std::string sizeReply;  // the reply to the last SIZE command
    char errorText[CURL_ERROR_SIZE] = {};
};

namespace {

std::size_t ReadBlock(char* buffer, std::size_t size, std::size_t count, void* data) {
    auto* request = static_cast<FtpRequest*>(data);
    const std::size_t read = std::fread(buffer, 1, size * count, request->upload);
    if (read == 0 && std::ferror(request->upload)) return CURL_READFUNC_ABORT;
    request->done += static_cast<std::int64_t>(read);
    if (read > 0 && request->progress != nullptr && *request->progress)
        (*request->progress)(request->done, request->total);
    return read;
}

std::size_t WriteBlock(char* buffer, std::size_t size, std::size_t count, void* data) {
    auto* request = static_cast<FtpRequest*>(data);
    const std::size_t bytes = size * count;
    if (request->download == nullptr) {
        request->received.append(buffer, bytes);
        return bytes;
    }
    if (std::fwrite(buffer, 1, bytes, request->download) != bytes) return 0;
    request->done += static_cast<std::int64_t>(bytes);
    if (request->progress != nullptr && *request->progress)
        (*request->progress)(request->done, request->total);
    return bytes;
}

// Keeps the server's last reply: each command sent starts a new one.
int WatchDialogue(CURL*, curl_infotype type, char* data, std::size_t size, void* user) {
    auto* request = static_cast<FtpRequest*>(user);
    if (type == CURLINFO_HEADER_OUT) {
        request->reply.clear();
        request->command.assign(data, size);
        if (request->command.starts_with("SIZE ")) request->sizeReply.clear();
    }
    if (type == CURLINFO_HEADER_IN) {
        request->reply.append(data, size);
        if (request->command.starts_with("SIZE ")) request->sizeReply.append(data, size);
    }
    return 0;
}

}  // namespace

FtpClient::FtpClient() {
    InitialiseCurlOnce();
}

FtpClient::~FtpClient() = default;

bool FtpClient::Connected() const {
    return session_ != nullptr;
}

std::string FtpClient::RemotePath(std::string_view name) const {
    std::string path(name);
    for (char& c : path) {
        if (c == '\\') c = '/';
    }
    if (path.starts_with('/')) return path;
    std::string base = currentDirectory_;
    if (!base.ends_with('/')) base += '/';
    return base + path;
}

std::string FtpClient::UrlOf(const std::string& path, bool directory) const {
    // "%2F" makes the path absolute whatever the directory the server logs the user into.
    std::string url = "ftp://" + host_ + "/%2F";
    std::size_t start = 1;
    bool first = true;
    while (start <= path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string::npos) end = path.size();
        if (end > start) {
            char* escaped = curl_easy_escape(session_->curl, path.data() + start,
                                             static_cast<int>(end - start));
            if (!first) url += '/';
            url += escaped;
            curl_free(escaped);
            first = false;
        }
        start = end + 1;
    }
    if (directory && !first) url += '/';
    return url;
}

bool FtpClient::Perform(FtpRequest& request, std::string_view operation) {
    if (session_ == nullptr) {
        lastError_ = std::string(operation) + " error code: 0 Message: not connected";
        return false;
    }
    CURL* curl = session_->curl;
    curl_easy_reset(curl);
    curl_easy_setopt(curl, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(curl, CURLOPT_USERNAME, session_->user.c_str());
    curl_easy_setopt(curl, CURLOPT_PASSWORD, session_->password.c_str());
    curl_easy_setopt(curl, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_SINGLECWD));
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, kStallSeconds);
    curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, kStallSeconds);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, kStallSeconds);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_TRANSFERTEXT, binary_ ? 0L : 1L);
    // Active mode listens on the address of the control connection, named outright: a
    // connection taken up again does not always remember it.
    if (!passive_)
        curl_easy_setopt(curl, CURLOPT_FTPPORT,
                         session_->localAddress.empty() ? "-" : session_->localAddress.c_str());
    if (tls_) {
        curl_easy_setopt(curl, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
        if (!caFile_.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, caFile_.c_str());
    }
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, request.errorText);
    curl_easy_setopt(curl, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(curl, CURLOPT_DEBUGFUNCTION, WatchDialogue);
    curl_easy_setopt(curl, CURLOPT_DEBUGDATA, &request);
    curl_easy_setopt(curl, CURLOPT_NOBODY, request.noBody ? 1L : 0L);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, WriteBlock);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &request);
    curl_slist* quote = nullptr;
    for (const std::string& command : request.quote)
        quote = curl_slist_append(quote, command.c_str());
    if (quote != nullptr) curl_easy_setopt(curl, CURLOPT_QUOTE, quote);
    if (!request.customRequest.empty())
        curl_easy_setopt(curl, CURLOPT_CUSTOMREQUEST, request.customRequest.c_str());
    if (request.upload != nullptr) {
        curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
        curl_easy_setopt(curl, CURLOPT_READFUNCTION, ReadBlock);
        curl_easy_setopt(curl, CURLOPT_READDATA, &request);
        curl_easy_setopt(curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(request.total));
    }
    request.progress = &progress_;
    const CURLcode code = curl_easy_perform(curl);
    curl_slist_free_all(quote);
    if (code == CURLE_OK) return true;
    const std::string reply = Trimmed(request.reply);
    if (!reply.empty() && (reply.front() == '4' || reply.front() == '5')) {
        lastError_ = reply;  // the server's own sentence
    } else {
        const std::string detail =
            request.errorText[0] != '\0' ? request.errorText : curl_easy_strerror(code);
        lastError_ =
            std::string(operation) + " error code: " + std::to_string(code) + " Message: " + detail;
    }
    return false;
}

bool FtpClient::OpenConnection(std::string_view server, std::string_view user,
                               std::string_view password) {
    CloseConnection();
    std::string host = Trimmed(server);
    tls_ = host.starts_with(kTlsPrefix);
    if (tls_) host.erase(0, kTlsPrefix.size());
    if (host.starts_with("ftp://")) host.erase(0, 6);
    while (host.ends_with('/'))
        host.pop_back();
    host_ = host;
    session_ = std::make_unique<Session>();
    session_->curl = curl_easy_init();
    session_->user = std::string(user);
    session_->password = std::string(password);
    FtpRequest request;
    request.url = "ftp://" + host_ + "/";
    if (!Perform(request, "Connect")) {
        session_.reset();
        return false;
    }
    const char* local = nullptr;
    curl_easy_getinfo(session_->curl, CURLINFO_LOCAL_IP, &local);
    if (local != nullptr) session_->localAddress = local;
    const char* entry = nullptr;
    curl_easy_getinfo(session_->curl, CURLINFO_FTP_ENTRY_PATH, &entry);
    currentDirectory_ = entry != nullptr && *entry == '/' ? entry : "/";
    return true;
}

void FtpClient::CloseConnection() {
    session_.reset();
    currentDirectory_ = "/";
}

bool FtpClient::Command(std::string_view operation, const std::string& command) {
    FtpRequest request;
    request.url = UrlOf(currentDirectory_, true);
    request.quote = {command};
    return Perform(request, operation);
}

bool FtpClient::RenameFTPFile(std::string_view oldName, std::string_view newName) {
    FtpRequest request;
    request.url = UrlOf(currentDirectory_, true);
    request.quote = {"RNFR " + RemotePath(Trimmed(oldName)),
                     "RNTO " + RemotePath(Trimmed(newName))};
    return Perform(request, "RenameFile");
}

bool FtpClient::CreateFTPDirectory(std::string_view name) {
    return Command("CreateDirectory", "MKD " + RemotePath(Trimmed(name)));
}

bool FtpClient::RemoveFTPDirectory(std::string_view name) {
    return Command("RemoveDirectory", "RMD " + RemotePath(Trimmed(name)));
}

bool FtpClient::DeleteFTPFile(std::string_view name) {
    return Command("DeleteFile", "DELE " + RemotePath(Trimmed(name)));
}

std::string FtpClient::GetFTPDirectory() const {
    return session_ ? currentDirectory_ : "";
}

bool FtpClient::SetFTPDirectory(std::string_view name) {
    std::string path = RemotePath(Trimmed(name));
    FtpRequest request;
    request.url = UrlOf(path, true);
    if (!Perform(request, "SetCurrentDirectory")) return false;
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    currentDirectory_ = path;
    return true;
}

std::int64_t FtpClient::GetFTPFileSize(std::string_view name) {
    FtpRequest request;
    request.url = UrlOf(currentDirectory_, true);
    request.quote = {"TYPE I", "SIZE " + RemotePath(Trimmed(name))};
    // The connection may say more after the SIZE reply (changing to the URL's directory).
    const bool done = Perform(request, "FindFile");
    const std::string reply = Trimmed(request.sizeReply);
    if (!done) {
        if (reply.starts_with("550")) {
            lastError_ = reply;
            return -1;
        }
        return -2;
    }
    if (!reply.starts_with("213 ")) return -2;
    return std::strtoll(reply.c_str() + 4, nullptr, 10);
}

bool FtpClient::GetDirectoryListing(std::string_view filter) {
    directory_.clear();
    FtpRequest request;
    request.url = UrlOf(currentDirectory_, true);
    request.noBody = false;
    request.customRequest = "MLSD";
    if (!Perform(request, "ListDirectory")) return false;
    const std::string pattern = filter == "*.*" ? std::string("*") : std::string(filter);
    std::size_t start = 0;
    while (start < request.received.size()) {
        std::size_t end = request.received.find('\n', start);
        if (end == std::string::npos) end = request.received.size();
        std::string_view line(request.received.data() + start, end - start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        start = end + 1;
        std::optional<FtpDirItem> item = ParseListingLine(line);
        if (item && fnmatch(pattern.c_str(), item->Filename.c_str(), 0) == 0)
            directory_.push_back(std::move(*item));
    }
    return true;
}

bool FtpClient::FTPUploadFile(const fs::path& local, std::string_view remote) {
    const std::string remoteName = Trimmed(remote);
    if (local.empty() || remoteName.empty()) return false;
    std::FILE* file = std::fopen(local.c_str(), "rb");
    if (file == nullptr) {
        lastError_ = "PutFile error code: " + std::to_string(errno) +
                     " Message: " + std::generic_category().message(errno) + ": " + local.string();
        return false;
    }
    std::error_code error;
    FtpRequest request;
    request.url = UrlOf(RemotePath(remoteName), false);
    request.noBody = false;
    request.upload = file;
    request.total = static_cast<std::int64_t>(fs::file_size(local, error));
    const bool sent = Perform(request, "PutFile");
    std::fclose(file);
    if (sent && progress_) progress_(request.total, request.total);
    return sent;
}

bool FtpClient::FTPDownloadFile(const fs::path& local, std::string_view remote) {
    const std::string remoteName = Trimmed(remote);
    if (local.empty() || remoteName.empty()) return false;
    const std::int64_t size = GetFTPFileSize(remoteName);
    if (size <= 0) return false;
    const fs::path partial = TemporaryNameBeside(local);
    std::FILE* file = std::fopen(partial.c_str(), "wb");
    if (file == nullptr) {
        lastError_ = "GetFile error code: " + std::to_string(errno) +
                     " Message: " + std::generic_category().message(errno) + ": " + local.string();
        return false;
    }
    FtpRequest request;
    request.url = UrlOf(RemotePath(remoteName), false);
    request.noBody = false;
    request.download = file;
    request.total = size;
    bool received = Perform(request, "GetFile");
    received = std::fclose(file) == 0 && received;
    std::error_code error;
    if (received) fs::rename(partial, local, error);
    if (!received || error) {
        if (received) lastError_ = "GetFile error code: 0 Message: " + error.message();
        fs::remove(partial, error);
        return false;
    }
    if (progress_) progress_(size, size);
    return true;
}

}  // namespace tessarin
