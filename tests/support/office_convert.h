#pragma once

#include <filesystem>
#include <string>

namespace tessarin::testing {

// Converts a document with the office suite, headless, in a profile of its own below
// folder (so that tests never share or touch a user's profile): format is what
// --convert-to takes ("html", "txt:Text (encoded):UTF8"). Returns the converted file's
// path, in folder, or an empty path when the conversion failed.
std::filesystem::path OfficeConvert(const std::filesystem::path& document,
                                    const std::string& format, const std::filesystem::path& folder);

}  // namespace tessarin::testing
