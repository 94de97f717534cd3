#include "news/news_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <charconv>

#include "common/file_io.h"
#include "config/configuration.h"

namespace tessarin {
namespace {

std::optional<std::size_t> ReadCount(std::string_view text) {
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) return {};
    return value;
}

// "<start> <length>" after the last "\" of a copy line.
std::optional<NewsMark> ReadRange(std::string_view range) {
    const std::size_t blank = range.find(' ');
    if (blank == std::string_view::npos) return {};
    const std::optional<std::size_t> start = ReadCount(range.substr(0, blank));
    const std::optional<std::size_t> length = ReadCount(range.substr(blank + 1));
    if (!start || !length) return {};
    return NewsMark{*start, *length};
}

}  // namespace

std::filesystem::path CompanionLogPath(const std::filesystem::path& item) {
    std::filesystem::path log = item;
    return log.replace_extension(".log");
}

std::uint32_t MarkColour(NewsCopyState state, const NewsServicesSettings& settings) {
    return state == NewsCopyState::Copied ? settings.copiedColour : settings.partiallyCopiedColour;
}

std::string_view CopyStateText(NewsCopyState state) {
    switch (state) {
        case NewsCopyState::Copied:
            return "copied";
        case NewsCopyState::CopiedInPart:
            return "copied in part";
        case NewsCopyState::NotCopied:
            break;
    }
    return "not copied";
}

NewsLog ParseNewsLog(std::string_view bytes) {
    NewsLog log;
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = bytes.find_first_of("\r\n", start);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view line = bytes.substr(start, end - start);
        start = end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1);
        log.note += std::string(line) + "\r\n";
        const std::size_t slash = line.rfind('\\');
        if (slash == std::string_view::npos) {
            log.comments.emplace_back(line);
        } else if (const std::optional<NewsMark> mark = ReadRange(line.substr(slash + 1))) {
            log.marks.push_back(*mark);
        }
    }
    return log;
}

std::optional<NewsLog> ReadNewsLog(const std::filesystem::path& item) {
    const std::optional<std::string> bytes = ReadFileBytes(CompanionLogPath(item));
    if (!bytes) return std::nullopt;
    return ParseNewsLog(*bytes);
}

NewsCopyState CopyStateOf(const std::optional<NewsLog>& log, std::size_t textLength) {
    if (!log) return NewsCopyState::NotCopied;
    for (const NewsMark& mark : log->marks) {
        if (mark.start == 0 && mark.length >= textLength) return NewsCopyState::Copied;
    }
    return NewsCopyState::CopiedInPart;
}

std::string CopyLogLine(std::string_view user, std::string_view date, std::string_view time,
                        const NewsMark& range) {
    return std::string(user) + " " + std::string(date) + " " + std::string(time) + "\\" +
           std::to_string(range.start) + " " + std::to_string(range.length) + "\r\n";
}

bool AppendCopyLine(const std::filesystem::path& item, std::string_view line) {
    const int descriptor =
        ::open(CompanionLogPath(item).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    const bool written = !WriteAllBytes(descriptor, line);
    return ::close(descriptor) == 0 && written;
}

}  // namespace tessarin
