// The uuencoding of a mail attachment on any bytes: the form of every line is checked.

#include <cstddef>
#include <cstdint>
#include <string>

#include "export/uuencode.h"
#include "fuzz_input.h"

namespace {

// A line of the body: its length character, then four characters for each three bytes,
// each from the blank to the underscore.
bool IsBodyLine(std::string_view line, std::size_t bytes) {
    if (line.empty() || line.front() != static_cast<char>(bytes + 32)) return false;
    if (line.size() != 1 + 4 * ((bytes + 2) / 3)) return false;
    for (const char character : line) {
        if (character < ' ' || character > '_') return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = tessarin::fuzz::Bytes(data, size);
    const std::string text = tessarin::UUEncode("the file.bin", bytes);
    std::string_view rest = text;
    const auto nextLine = [&rest]() {
        const std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) __builtin_trap();
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        return line;
    };
    if (nextLine() != "begin 664 the_file.bin") __builtin_trap();
    for (std::size_t line = 0; line < size / 45; ++line) {
        if (!IsBodyLine(nextLine(), 45)) __builtin_trap();
    }
    if (!IsBodyLine(nextLine(), size % 45)) __builtin_trap();
    if (nextLine() != "'" || nextLine() != "end" || !rest.empty()) __builtin_trap();
    return 0;
}
