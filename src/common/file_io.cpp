#include "common/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <fstream>
#include <sstream>

namespace tessarin {

namespace {

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// A name beside the target that no other writer (thread or process) picks at the same time.
std::filesystem::path TemporaryNameBeside(const std::filesystem::path& file) {
    static std::atomic<unsigned> counter{0};
    auto name = file;
    name += ".tmp" + std::to_string(::getpid()) + "-" + std::to_string(counter++);
    return name;
}

// Writes the bytes to a new file beside the target and renames it over the target, after
// flushing it to disk when flush is set.
bool WriteThroughTemporary(const std::filesystem::path& file, std::string_view bytes, bool flush) {
    struct stat existing {};
    const bool exists = ::stat(file.c_str(), &existing) == 0;
    if (exists && (!S_ISREG(existing.st_mode) || (existing.st_mode & 0222) == 0)) return false;

    const std::filesystem::path temporary = TemporaryNameBeside(file);
    const int descriptor = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    bool written = WriteAll(descriptor, bytes);
    if (written && exists) written = ::fchmod(descriptor, existing.st_mode & 07777) == 0;
    written = written && (!flush || ::fsync(descriptor) == 0);
    written = ::close(descriptor) == 0 && written;
    if (!written || ::rename(temporary.c_str(), file.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    return true;
}

}  // namespace

std::optional<std::string> ReadFileBytes(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) return std::nullopt;
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream content;
    content << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return std::move(content).str();
}

bool WriteFileAtomically(const std::filesystem::path& file, std::string_view bytes) {
    return WriteThroughTemporary(file, bytes, true);
}

bool WriteFileReplacing(const std::filesystem::path& file, std::string_view bytes) {
    return WriteThroughTemporary(file, bytes, false);
}

}  // namespace tessarin
