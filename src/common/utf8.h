#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessarin {

// The lenient reading that every function below shares, one character at a time:
// - a well-formed UTF-8 sequence is its character;
// - a pair of three-byte surrogate groups (high then low, as older story files hold a
//   character outside the Basic Multilingual Plane) is the one character they encode;
// - any other three-byte surrogate group is a lone surrogate (0xD800 to 0xDFFF);
// - any other byte (stray, truncated sequence, overlong form, beyond U+10FFFF) is the
//   Windows-1252 character of that one byte.
struct LenientCharacter {
    char32_t codePoint = 0;
    std::size_t length = 0;  // bytes consumed: 1 to 4, or 6 for a surrogate pair
    bool IsLoneSurrogate() const { return codePoint >= 0xD800 && codePoint <= 0xDFFF; }
};

// Reads the character at position, which must be below bytes.size().
LenientCharacter ReadLenientCharacter(std::string_view bytes, std::size_t position);

// Appends the UTF-8 form of a code point (a surrogate value gives its three-byte group).
void AppendUtf8(std::string& out, char32_t codePoint);

// UTF-8 text to UTF-16 code units. A malformed byte is read as its Windows-1252 character,
// and a pair of three-byte surrogate groups (as older story files hold them) as the one
// character they encode. A lone surrogate group stays a lone surrogate code unit.
std::u16string Utf8ToUtf16(std::string_view utf8);

// UTF-16 code units to UTF-8 text. A valid surrogate pair gives one four-byte sequence;
// a lone surrogate is written as its three-byte group.
std::string Utf16ToUtf8(std::u16string_view utf16);

// Encodes each UTF-16 code unit by itself: below 128 one byte, below 2048 two bytes,
// otherwise three bytes. A surrogate pair therefore gives two three-byte groups. This is
// the byte form that story files declared UTF-8 carry.
std::string EncodeUtf8Bytes(std::u16string_view units);

// Repairs bytes that claim to be UTF-8 into valid UTF-8 by the lenient reading above
// (stray bytes as Windows-1252 characters, surrogate pairs joined). The result must be
// valid UTF-8, so a lone surrogate group, unlike in Utf8ToUtf16, is read as the three
// Windows-1252 characters of its bytes (ED A0 80 gives "í", U+00A0, "€"). Valid input is
// returned unchanged.
std::string RepairUtf8(std::string_view bytes);

// True when the bytes are well-formed UTF-8 (no surrogate groups, no overlong forms).
bool IsValidUtf8(std::string_view bytes);

}  // namespace tessarin
