#include "common/windows1252.h"

#include <array>

#include "common/utf8.h"

namespace tessarin {

namespace {

// The characters of bytes 0x80 to 0x9F; the bytes the code page leaves undefined keep the
// C1 control of the same value.
constexpr std::array<char16_t, 32> kHighControlRange = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 0x98
};

}  // namespace

char32_t Windows1252ToCodePoint(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F) return kHighControlRange[byte - 0x80];
    return byte;
}

int CodePointToWindows1252(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        return static_cast<int>(codePoint);
    }
    for (std::size_t index = 0; index < kHighControlRange.size(); ++index) {
        if (kHighControlRange[index] == codePoint) return static_cast<int>(0x80 + index);
    }
    return -1;
}

std::string Utf8ToWindows1252(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const LenientCharacter character = ReadLenientCharacter(utf8, position);
        const int byte = CodePointToWindows1252(character.codePoint);
        bytes.push_back(byte < 0 ? '?' : static_cast<char>(byte));
        position += character.length;
    }
    return bytes;
}

std::string Windows1252ToUtf8(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size() + bytes.size() / 4);
    for (const char byte : bytes) {
        AppendUtf8(utf8, Windows1252ToCodePoint(static_cast<unsigned char>(byte)));
    }
    return utf8;
}

}  // namespace tessarin
