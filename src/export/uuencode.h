#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tessarin {

// The uuencoded form in which a mail carries an attached file: "begin 664 " + the name with
// each blank made "_", then one line for each 45 bytes and a last line for the rest (a
// blank length character when nothing is left), then a line "'" and a line "end". Each
// line is a length character (length + 32) and four characters (six-bit group + 32, a zero
// group giving a blank) for each three bytes; a short last group is padded with blanks.
// Every line ends in LF. Never reads past the end of the bytes.
std::string UUEncode(std::string_view fileName, std::string_view bytes);

// The same for a file, named by its file name; nothing when the file cannot be read.
std::optional<std::string> UUEncodeFile(const std::filesystem::path& file);

}  // namespace tessarin
