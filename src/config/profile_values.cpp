#include "config/profile_values.h"

#include <cmath>

#include "common/number_parse.h"

namespace tessarin {

bool FlagFromText(std::string_view text, bool defaultValue) {
    return defaultValue ? text != "0" : text == "1";
}

std::string FlagText(bool value) {
    return value ? "1" : "0";
}

OleColour ColourFromText(std::string_view text, OleColour defaultValue) {
    const double number = std::trunc(ParseLeadingNumber(text));
    // Both the signed and the unsigned reading of a 32-bit value are accepted.
    if (!(number >= -2147483648.0 && number < 4294967296.0)) return defaultValue;
    return static_cast<OleColour>(static_cast<std::int64_t>(number));
}

std::string ColourText(OleColour colour) {
    return std::to_string(static_cast<std::int32_t>(colour));
}

bool ReadFlag(const ProfileContents& profile, std::string_view section, std::string_view key,
              bool defaultValue) {
    const auto text = profile.Read(section, key);
    return text ? FlagFromText(*text, defaultValue) : defaultValue;
}

std::int32_t ReadInteger(const ProfileContents& profile, std::string_view section,
                         std::string_view key, std::int32_t defaultValue) {
    return ReadOptionalInteger(profile, section, key).value_or(defaultValue);
}

std::optional<std::int32_t> ReadOptionalInteger(const ProfileContents& profile,
                                                std::string_view section, std::string_view key) {
    const auto text = profile.Read(section, key);
    if (!text) return std::nullopt;
    return ParseLeadingInteger(*text);
}

std::string ReadText(const ProfileContents& profile, std::string_view section, std::string_view key,
                     std::string_view defaultValue) {
    return profile.Read(section, key).value_or(std::string(defaultValue));
}

bool WriteFlag(ProfileFile& profile, std::string_view section, std::string_view key, bool value) {
    return profile.Write(section, key, FlagText(value));
}

bool WriteColour(ProfileFile& profile, std::string_view section, std::string_view key,
                 OleColour value) {
    return profile.Write(section, key, ColourText(value));
}

}  // namespace tessarin
