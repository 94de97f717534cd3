#include "common/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

#include "common/temporary_files.h"

namespace tessarin {

namespace {

namespace fs = std::filesystem;

// Writes the bytes to a new file, with the given permission bits when mode is not 0, and
// flushes it to disk when flush is set. False, and no file left, when anything fails.
bool WriteNewFile(const fs::path& file, std::string_view bytes, mode_t mode, bool flush = true) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    bool written = !WriteAllBytes(descriptor, bytes);
    if (written && mode != 0) written = ::fchmod(descriptor, mode) == 0;
    written = written && (!flush || ::fsync(descriptor) == 0);
    written = ::close(descriptor) == 0 && written;
    if (!written) ::unlink(file.c_str());
    return written;
}

// Puts a file in place of the target in one step; the file is gone either way.
bool RenameOver(const fs::path& file, const fs::path& target) {
    if (::rename(file.c_str(), target.c_str()) == 0) return true;
    ::unlink(file.c_str());
    return false;
}

// The backup's content under a temporary name: a second name of the old file, or a copy of
// its bytes where the folder's file system has no links.
bool TemporaryBackup(const fs::path& file, const fs::path& temporary, mode_t mode) {
    if (::link(file.c_str(), temporary.c_str()) == 0) return true;
    const std::optional<std::string> old = ReadFileBytes(file);
    return old && WriteNewFile(temporary, *old, mode);
}

bool KeepBackup(const fs::path& file, const fs::path& backup, mode_t mode) {
    RemoveStaleTemporaryFilesOf(backup);
    const fs::path temporary = TemporaryNameBeside(backup);
    return TemporaryBackup(file, temporary, mode) && RenameOver(temporary, backup);
}

ReplaceResult Replace(const fs::path& file, std::string_view bytes, const fs::path* backup,
                      bool flush = true) {
    struct stat existing {};
    const bool exists = ::stat(file.c_str(), &existing) == 0;
    if (exists && (!S_ISREG(existing.st_mode) || (existing.st_mode & 0222) == 0)) return {};

    const mode_t mode = exists ? existing.st_mode & 07777 : 0;
    const fs::path temporary = TemporaryNameBeside(file);
    if (!WriteNewFile(temporary, bytes, mode, flush)) return {};
    ReplaceResult result;
    if (backup != nullptr && exists) result.backupKept = KeepBackup(file, *backup, mode);
    result.written = RenameOver(temporary, file);
    return result;
}

}  // namespace

std::error_code WriteAllBytes(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return std::error_code(errno, std::generic_category());
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::optional<std::string> ReadFileBytes(const fs::path& file) {
    std::error_code error;
    if (fs::is_directory(file, error)) return std::nullopt;
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream content;
    content << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return std::move(content).str();
}

bool WriteFileAtomically(const fs::path& file, std::string_view bytes) {
    RemoveStaleTemporaryFilesOf(file);
    return Replace(file, bytes, nullptr).written;
}

ReplaceResult WriteFileKeepingBackup(const fs::path& file, std::string_view bytes,
                                     const fs::path& backup) {
    RemoveStaleTemporaryFilesOf(file);
    return Replace(file, bytes, &backup);
}

bool WriteFileReplacing(const fs::path& file, std::string_view bytes) {
    return Replace(file, bytes, nullptr, false).written;
}

}  // namespace tessarin
