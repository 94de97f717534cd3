#include "common/temporary_files.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tessarin {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMark = ".tmp";

bool AllDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The process id of a suffix "<pid>-<n>"; nothing when the suffix has another form.
std::optional<long long> ProcessOfSuffix(std::string_view suffix) {
    const std::size_t dash = suffix.find('-');
    if (dash == std::string_view::npos || !AllDigits(suffix.substr(0, dash)) ||
        !AllDigits(suffix.substr(dash + 1))) {
        return std::nullopt;
    }
    long long pid = 0;
    const auto [end, error] = std::from_chars(suffix.data(), suffix.data() + dash, pid);
    // Too many digits for any process id: no process has it.
    if (error == std::errc::result_out_of_range) return -1;
    return pid;
}

// The process id of a temporary file's name, with the name of its target; nothing when the
// name has another form.
std::optional<long long> ProcessOfName(std::string_view name, std::string_view& target) {
    for (std::size_t mark = name.rfind(kMark); mark != std::string_view::npos && mark > 0;
         mark = name.rfind(kMark, mark - 1)) {
        if (const auto pid = ProcessOfSuffix(name.substr(mark + kMark.size()))) {
            target = name.substr(0, mark);
            return pid;
        }
    }
    return std::nullopt;
}

bool ProcessRuns(long long pid) {
    if (pid == ::getpid()) return true;
    if (pid <= 0 || pid != static_cast<pid_t>(pid)) return false;
    // EPERM: the process is there but belongs to another user.
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

// Removes the stale temporary files of the folder whose target passes the test.
template <typename TargetTest>
void RemoveStale(const fs::path& folder, TargetTest wanted) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::string_view target;
        const auto pid = ProcessOfName(name, target);
        if (!pid || !wanted(target) || ProcessRuns(*pid)) continue;
        std::error_code ignored;
        if (entry->is_regular_file(ignored)) fs::remove(entry->path(), ignored);
    }
}

}  // namespace

fs::path TemporaryNameBeside(const fs::path& file) {
    static std::atomic<unsigned> counter{0};
    fs::path name = file;
    name += std::string(kMark) + std::to_string(::getpid()) + "-" + std::to_string(counter++);
    return name;
}

void RemoveStaleTemporaryFilesOf(const fs::path& file) {
    const std::string target = file.filename().string();
    const fs::path folder = file.parent_path().empty() ? fs::path(".") : file.parent_path();
    RemoveStale(folder, [&](std::string_view name) { return name == target; });
}

void RemoveStaleTemporaryFilesIn(const fs::path& folder) {
    RemoveStale(folder, [](std::string_view) { return true; });
}

}  // namespace tessarin
