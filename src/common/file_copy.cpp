#include "common/file_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

#include "common/file_io.h"
#include "common/temporary_files.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// Renames the partial file over the target; the partial file goes when anything failed.
std::string Finish(const fs::path& partial, const fs::path& target, std::error_code error) {
    if (!error) fs::rename(partial, target, error);
    if (!error) return {};
    std::error_code ignored;
    fs::remove(partial, ignored);
    return error.message();
}

constexpr std::size_t kCopyChunk = 1 << 20;

std::error_code LastError() {
    return std::error_code(errno, std::generic_category());
}

}  // namespace

std::string CopyFileWhole(const fs::path& source, const fs::path& target) {
    std::error_code error;
    if (!fs::is_regular_file(source, error))
        return (error ? error : std::make_error_code(std::errc::no_such_file_or_directory))
            .message();
    const int input = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
    if (input < 0) return LastError().message();
    const fs::path partial = TemporaryNameBeside(target);
    const int output = ::open(partial.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (output < 0) {
        error = LastError();
        ::close(input);
        return error.message();
    }
    std::vector<char> buffer(kCopyChunk);
    for (;;) {
        const ssize_t got = ::read(input, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) {
            if (got < 0) error = LastError();
            break;
        }
        error =
            WriteAllBytes(output, std::string_view(buffer.data(), static_cast<std::size_t>(got)));
        if (error) break;
    }
    ::close(input);
    if (::close(output) != 0 && !error) error = LastError();
    return Finish(partial, target, error);
}

std::string LinkOrCopyFile(const fs::path& source, const fs::path& target) {
    const fs::path partial = TemporaryNameBeside(target);
    if (::link(source.c_str(), partial.c_str()) == 0) return Finish(partial, target, {});
    return CopyFileWhole(source, target);
}

std::string WriteFileWhole(const fs::path& target, std::string_view bytes) {
    const fs::path partial = TemporaryNameBeside(target);
    const int descriptor = ::open(partial.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) return LastError().message();
    std::error_code error = WriteAllBytes(descriptor, bytes);
    if (::close(descriptor) != 0 && !error) error = LastError();
    return Finish(partial, target, error);
}

}  // namespace tessarin
