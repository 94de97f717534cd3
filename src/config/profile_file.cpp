#include "config/profile_file.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "common/file_io.h"
#include "common/windows1252.h"
#include "config/text_trim.h"

namespace tessarin {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// A Windows-1252 letter in lower case: the ASCII capitals, the accented capitals from 0xC0 to
// 0xDE (0xD7 is the multiplication sign) and the four capitals that the code page puts
// between 0x80 and 0x9F.
unsigned char FoldCase(unsigned char byte) {
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)) {
        return static_cast<unsigned char>(byte + 0x20);
    }
    switch (byte) {
        case 0x8A:  // S caron
        case 0x8C:  // OE
        case 0x8E:  // Z caron
            return static_cast<unsigned char>(byte + 0x10);
        case 0x9F:  // Y diaeresis
            return 0xFF;
        default:
            return byte;
    }
}

bool SameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
        return FoldCase(static_cast<unsigned char>(a)) == FoldCase(static_cast<unsigned char>(b));
    });
}

enum class LineKind { Other, Section, Key };

struct Line {
    std::size_t end = 0;  // offset just past the line end (or the end of the file)
    LineKind kind = LineKind::Other;
    std::string_view name;   // the section's or the key's name
    std::string_view value;  // the key's value
};

Line Classify(std::string_view text, std::size_t end) {
    Line line;
    line.end = end;
    const std::string_view trimmed = TrimWhitespace(text);
    if (trimmed.empty() || trimmed.front() == ';') return line;
    if (trimmed.front() == '[') {
        const auto close = trimmed.find(']');
        if (close == std::string_view::npos) return line;
        line.kind = LineKind::Section;
        line.name = TrimWhitespace(trimmed.substr(1, close - 1));
        return line;
    }
    const auto equals = trimmed.find('=');
    if (equals == std::string_view::npos) return line;
    line.kind = LineKind::Key;
    line.name = TrimWhitespace(trimmed.substr(0, equals));
    line.value = TrimWhitespace(trimmed.substr(equals + 1));
    return line;
}

std::vector<Line> SplitLines(std::string_view content) {
    std::vector<Line> lines;
    std::size_t begin = 0;
    while (begin < content.size()) {
        const auto newline = content.find('\n', begin);
        const auto textEnd = newline == std::string_view::npos ? content.size() : newline;
        const auto lineEnd = newline == std::string_view::npos ? content.size() : newline + 1;
        lines.push_back(Classify(content.substr(begin, textEnd - begin), lineEnd));
        begin = lineEnd;
    }
    return lines;
}

// Where a key stands in the file, or where it is to be added.
struct Location {
    const Line* key = nullptr;          // the key's line, when it is there
    const Line* insertAfter = nullptr;  // the first section's header or its last key line
};

Location Locate(const std::vector<Line>& lines, std::string_view section, std::string_view key) {
    Location location;
    bool inSection = false;
    bool inFirstSection = false;
    for (const Line& line : lines) {
        if (line.kind == LineKind::Section) {
            inSection = SameName(line.name, section);
            inFirstSection = inSection && location.insertAfter == nullptr;
            if (inFirstSection) location.insertAfter = &line;
        } else if (line.kind == LineKind::Key && inSection) {
            if (SameName(line.name, key)) {
                location.key = &line;
                return location;
            }
            if (inFirstSection) location.insertAfter = &line;
        }
    }
    return location;
}

// The file's bytes: empty when there is no file, std::nullopt when it exists but cannot be read.
std::optional<std::string> LoadBytes(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) && !error) return std::string();
    return ReadFileBytes(file);
}

std::string KeyLine(std::string_view name, std::string_view utf8Value) {
    std::string value = Utf8ToWindows1252(utf8Value);
    std::replace(value.begin(), value.end(), '\r', ' ');
    std::replace(value.begin(), value.end(), '\n', ' ');
    std::string line(name);
    line += '=';
    line += value;
    line += kLineEnd;
    return line;
}

// What must come before text added at offset so that it starts on a line of its own.
std::string_view LineBreakBefore(std::string_view content, std::size_t offset) {
    if (offset == 0 || content[offset - 1] == '\n') return {};
    return content[offset - 1] == '\r' ? "\n" : kLineEnd;
}

// The content with the entry's key set: its line replaced, or added to its section, or
// added with its section at the end.
std::string WithEntry(const std::string& content, const ProfileEntry& entry) {
    const std::string sectionName = Utf8ToWindows1252(entry.section);
    const std::string keyName = Utf8ToWindows1252(entry.key);
    const auto lines = SplitLines(content);
    const Location location = Locate(lines, sectionName, keyName);
    if (location.key != nullptr) {
        const auto index = static_cast<std::size_t>(location.key - lines.data());
        const std::size_t begin = index == 0 ? 0 : lines[index - 1].end;
        return content.substr(0, begin) + KeyLine(location.key->name, entry.value) +
               content.substr(location.key->end);
    }
    if (location.insertAfter != nullptr) {
        const std::size_t at = location.insertAfter->end;
        return content.substr(0, at) + std::string(LineBreakBefore(content, at)) +
               KeyLine(keyName, entry.value) + content.substr(at);
    }
    return content + std::string(LineBreakBefore(content, content.size())) + "[" + sectionName +
           "]" + std::string(kLineEnd) + KeyLine(keyName, entry.value);
}

}  // namespace

std::optional<std::string> ProfileFile::Read(std::string_view section, std::string_view key) const {
    const auto content = LoadBytes(file_);
    if (!content) return std::nullopt;
    const auto lines = SplitLines(*content);
    const Location location = Locate(lines, Utf8ToWindows1252(section), Utf8ToWindows1252(key));
    if (location.key == nullptr || location.key->value.empty()) return std::nullopt;
    return Windows1252ToUtf8(location.key->value.substr(0, kMaxValueLength));
}

bool ProfileFile::Write(std::string_view section, std::string_view key, std::string_view value) {
    return Write({ProfileEntry{std::string(section), std::string(key), std::string(value)}});
}

bool ProfileFile::Write(const std::vector<ProfileEntry>& entries) {
    auto content = LoadBytes(file_);
    if (!content) return false;
    for (const ProfileEntry& entry : entries)
        content = WithEntry(*content, entry);
    return WriteFileAtomically(file_, *content);
}

}  // namespace tessarin
