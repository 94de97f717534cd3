#include "common/utf8.h"

#include "common/windows1252.h"

namespace tessarin {

namespace {

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// The length of the well-formed sequence at position and its code point; length 0 when the
// bytes there are not one. Surrogate groups are not well-formed.
LenientCharacter ReadWellFormed(std::string_view bytes, std::size_t position) {
    const auto at = [&](std::size_t offset) {
        return static_cast<unsigned char>(bytes[position + offset]);
    };
    const std::size_t available = bytes.size() - position;
    const unsigned char lead = at(0);
    if (lead < 0x80) return {lead, 1};
    if (lead >= 0xC2 && lead <= 0xDF) {
        if (available < 2 || !IsContinuation(at(1))) return {};
        return {static_cast<char32_t>((lead & 0x1F) << 6 | (at(1) & 0x3F)), 2};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        if (available < 3 || !IsContinuation(at(1)) || !IsContinuation(at(2))) return {};
        const char32_t codePoint = (lead & 0x0F) << 12 | (at(1) & 0x3F) << 6 | (at(2) & 0x3F);
        if (codePoint < 0x800 || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) return {};
        return {codePoint, 3};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        if (available < 4 || !IsContinuation(at(1)) || !IsContinuation(at(2)) ||
            !IsContinuation(at(3))) {
            return {};
        }
        const char32_t codePoint =
            (lead & 0x07) << 18 | (at(1) & 0x3F) << 12 | (at(2) & 0x3F) << 6 | (at(3) & 0x3F);
        if (codePoint < 0x10000 || codePoint > 0x10FFFF) return {};
        return {codePoint, 4};
    }
    return {};
}

// The surrogate value of the three-byte group ED A0..BF 80..BF at position, or 0.
char32_t ReadSurrogateGroup(std::string_view bytes, std::size_t position) {
    if (bytes.size() - position < 3) return 0;
    const auto lead = static_cast<unsigned char>(bytes[position]);
    const auto second = static_cast<unsigned char>(bytes[position + 1]);
    const auto third = static_cast<unsigned char>(bytes[position + 2]);
    if (lead != 0xED || second < 0xA0 || second > 0xBF || !IsContinuation(third)) return 0;
    return 0xD000 | (second & 0x3F) << 6 | (third & 0x3F);
}

// The length of the well-formed sequence at position, 0 when there is none; ASCII first.
std::size_t WellFormedLength(std::string_view bytes, std::size_t position) {
    if (static_cast<unsigned char>(bytes[position]) < 0x80) return 1;
    return ReadWellFormed(bytes, position).length;
}

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t CombineSurrogates(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void AppendUtf16(std::u16string& out, char32_t codePoint) {
    if (codePoint < 0x10000) {
        out.push_back(static_cast<char16_t>(codePoint));
        return;
    }
    codePoint -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (codePoint >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF)));
}

}  // namespace

LenientCharacter ReadLenientCharacter(std::string_view bytes, std::size_t position) {
    const LenientCharacter wellFormed = ReadWellFormed(bytes, position);
    if (wellFormed.length != 0) return wellFormed;
    const char32_t surrogate = ReadSurrogateGroup(bytes, position);
    if (surrogate != 0) {
        if (IsHighSurrogate(surrogate)) {
            const char32_t low = ReadSurrogateGroup(bytes, position + 3);
            if (IsLowSurrogate(low)) return {CombineSurrogates(surrogate, low), 6};
        }
        return {surrogate, 3};
    }
    return {Windows1252ToCodePoint(static_cast<unsigned char>(bytes[position])), 1};
}

void AppendUtf8(std::string& out, char32_t codePoint) {
    if (codePoint < 0x80) {
        out.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        out.push_back(static_cast<char>(0xC0 | codePoint >> 6));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else if (codePoint < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | codePoint >> 12));
        out.push_back(static_cast<char>(0x80 | (codePoint >> 6 & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | codePoint >> 18));
        out.push_back(static_cast<char>(0x80 | (codePoint >> 12 & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint >> 6 & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

std::u16string Utf8ToUtf16(std::string_view utf8) {
    std::u16string units;
    units.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const LenientCharacter character = ReadLenientCharacter(utf8, position);
        AppendUtf16(units, character.codePoint);
        position += character.length;
    }
    return units;
}

std::string Utf16ToUtf8(std::u16string_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size() * 3 / 2);
    for (std::size_t index = 0; index < utf16.size(); ++index) {
        const char32_t unit = utf16[index];
        if (IsHighSurrogate(unit) && index + 1 < utf16.size() && IsLowSurrogate(utf16[index + 1])) {
            AppendUtf8(utf8, CombineSurrogates(unit, utf16[++index]));
        } else {
            AppendUtf8(utf8, unit);
        }
    }
    return utf8;
}

std::string EncodeUtf8Bytes(std::u16string_view units) {
    std::string bytes;
    bytes.reserve(units.size() * 3 / 2);
    for (const char16_t unit : units)
        AppendUtf8(bytes, unit);
    return bytes;
}

// Well-formed runs are copied as they are; only what the lenient reading changes is rebuilt.
std::string RepairUtf8(std::string_view bytes) {
    if (IsValidUtf8(bytes)) return std::string(bytes);
    std::string repaired;
    repaired.reserve(bytes.size() + bytes.size() / 8);
    std::size_t runStart = 0;
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t wellFormed = WellFormedLength(bytes, position);
        if (wellFormed != 0) {
            position += wellFormed;
            continue;
        }
        repaired.append(bytes, runStart, position - runStart);
        const LenientCharacter character = ReadLenientCharacter(bytes, position);
        if (character.IsLoneSurrogate()) {
            for (std::size_t offset = 0; offset < character.length; ++offset) {
                AppendUtf8(repaired, Windows1252ToCodePoint(
                                         static_cast<unsigned char>(bytes[position + offset])));
            }
        } else {
            AppendUtf8(repaired, character.codePoint);
        }
        position += character.length;
        runStart = position;
    }
    repaired.append(bytes, runStart);
    return repaired;
}

bool IsValidUtf8(std::string_view bytes) {
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t length = WellFormedLength(bytes, position);
        if (length == 0) return false;
        position += length;
    }
    return true;
}

}  // namespace tessarin
