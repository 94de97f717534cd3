#pragma once

#include <string>
#include <string_view>

namespace tessarin {

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

// Repairs bytes that claim to be UTF-8 into valid UTF-8 by the rules of Utf8ToUtf16
// (stray bytes as Windows-1252 characters, surrogate groups joined). Valid input is
// returned unchanged.
std::string RepairUtf8(std::string_view bytes);

// True when the bytes are well-formed UTF-8 (no surrogate groups, no overlong forms).
bool IsValidUtf8(std::string_view bytes);

}  // namespace tessarin
