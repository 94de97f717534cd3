#include "export/uuencode.h"

#include <algorithm>

#include "common/file_io.h"

namespace tessarin {

namespace {

constexpr std::size_t kLineBytes = 45;

char SixBits(unsigned value) {
    return static_cast<char>((value & 0x3F) + 32);
}

void AppendLine(std::string_view block, std::string& out) {
    out += static_cast<char>(block.size() + 32);
    for (std::size_t start = 0; start < block.size(); start += 3) {
        const auto byteAt = [&](std::size_t index) -> unsigned {
            return start + index < block.size() ? static_cast<unsigned char>(block[start + index])
                                                : unsigned{' '};
        };
        const unsigned first = byteAt(0), second = byteAt(1), third = byteAt(2);
        out += SixBits(first >> 2);
        out += SixBits((first << 4) | (second >> 4));
        out += SixBits((second << 2) | (third >> 6));
        out += SixBits(third);
    }
    out += '\n';
}

}  // namespace

std::string UUEncode(std::string_view fileName, std::string_view bytes) {
    std::string name(fileName);
    std::replace(name.begin(), name.end(), ' ', '_');
    std::string out = "begin 664 " + name + "\n";
    const std::size_t fullLines = bytes.size() / kLineBytes;
    for (std::size_t line = 0; line < fullLines; ++line)
        AppendLine(bytes.substr(line * kLineBytes, kLineBytes), out);
    AppendLine(bytes.substr(fullLines * kLineBytes), out);
    out += "'\nend\n";
    return out;
}

std::optional<std::string> UUEncodeFile(const std::filesystem::path& file) {
    const std::optional<std::string> bytes = ReadFileBytes(file);
    if (!bytes) return std::nullopt;
    return UUEncode(file.filename().string(), *bytes);
}

}  // namespace tessarin
