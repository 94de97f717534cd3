#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// Windows-1252 is the 8-bit code page in which stories, preferences and several export
// formats are written. Core text is UTF-8; these convert at the edges.

// The Unicode code point of one Windows-1252 byte. The five bytes the code page leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the C1 control of the same value.
char32_t Windows1252ToCodePoint(unsigned char byte);

// The Windows-1252 byte of a code point, or -1 when the code page lacks the character.
int CodePointToWindows1252(char32_t codePoint);

// UTF-8 text to Windows-1252 bytes; every character the code page lacks becomes "?".
// A malformed UTF-8 byte is taken as the Windows-1252 character of that byte.
std::string Utf8ToWindows1252(std::string_view utf8);

// Windows-1252 bytes to UTF-8 text.
std::string Windows1252ToUtf8(std::string_view bytes);

}  // namespace tessarin
