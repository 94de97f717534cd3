#include "linguistics/word_list_file.h"

#include "common/file_io.h"
#include "common/utf8.h"
#include "config/text_trim.h"

namespace tessarin {

std::optional<std::vector<std::string>> ReadWordListLines(const std::filesystem::path& file) {
    const auto bytes = ReadFileBytes(file);
    if (!bytes) return std::nullopt;
    const std::string text = RepairUtf8(*bytes);
    std::vector<std::string> lines;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        if (const std::string_view line = TrimWhitespace(rest.substr(0, end)); !line.empty())
            lines.emplace_back(line);
        if (end == std::string_view::npos) break;
        rest.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace tessarin
