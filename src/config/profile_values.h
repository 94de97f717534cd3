#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "config/profile_file.h"

namespace tessarin {

// The forms in which the preferences file keeps a value. A flag is "1" or "0". An integer is
// decimal text. A colour is the decimal text of its 32-bit value taken as a signed number, so
// that a system colour (high bit set) is negative in the file; both that form and the
// unsigned one are read. A text is kept as it stands. A key that is missing or empty keeps
// the setting's default.

// A flag that is true by default turns false only on exactly "0"; one that is false by
// default turns true only on exactly "1".
bool FlagFromText(std::string_view text, bool defaultValue);
std::string FlagText(bool value);

// The leading-number parse of the text as a 32-bit colour ("abc" is 0, black). A number that
// does not fit in 32 bits keeps the default.
OleColour ColourFromText(std::string_view text, OleColour defaultValue);
std::string ColourText(OleColour colour);

bool ReadFlag(const ProfileContents& profile, std::string_view section, std::string_view key,
              bool defaultValue);

// The leading-number parse: a text that does not start with a number reads as 0.
std::int32_t ReadInteger(const ProfileContents& profile, std::string_view section,
                         std::string_view key, std::int32_t defaultValue);

// As ReadInteger, with std::nullopt for a missing or empty key.
std::optional<std::int32_t> ReadOptionalInteger(const ProfileContents& profile,
                                                std::string_view section, std::string_view key);

std::string ReadText(const ProfileContents& profile, std::string_view section, std::string_view key,
                     std::string_view defaultValue);

// Each returns false, silently, when the file cannot be written.
bool WriteFlag(ProfileFile& profile, std::string_view section, std::string_view key, bool value);
bool WriteColour(ProfileFile& profile, std::string_view section, std::string_view key,
                 OleColour value);

}  // namespace tessarin
