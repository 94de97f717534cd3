#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tessarin {

// One story as the search and My stories lists show it: the columns of a row, in the list's
// order, and the texts that the search scopes look into.
struct StoryRow {
    std::string name;       // file name with its extension
    std::string directory;  // the folder, without a final separator
    std::string creationDate, creationTime;
    std::string lastSaveDate, lastSaveTime;
    std::string lastSaveAuthor;
    std::int64_t characters = 0;  // CharCount summed over the text boxes
    std::string publication, classification;
    std::string section, subSection;  // the general one, else the local one
    std::string publicationDate;      // yyyymmdd; the date's label for a story dated "0"
    std::string form;
    std::int32_t images = 0;
    bool backup = false;  // a ".bml" file: the copy a transmission left of a sent story

    std::filesystem::path Path() const { return std::filesystem::path(directory) / name; }
    bool operator==(const StoryRow&) const = default;
};

// The texts a search looks into, each part after the one before in one string, so that the
// scope "whole story" is the string itself and the other scopes are slices of it: the text of
// Metadata, the text of Body, then Caption, Credit and IPTCKeywords of each image.
struct ScopeTexts {
    std::string text;
    std::uint32_t metadataEnd = 0;
    std::uint32_t bodyEnd = 0;

    bool operator==(const ScopeTexts&) const = default;
};

struct StoryExtract {
    StoryRow row;
    ScopeTexts texts;       // as the file holds them
    ScopeTexts upperTexts;  // upper-cased, for searches that ignore case

    bool operator==(const StoryExtract&) const = default;
};

// Reads a story file into its row and texts; nothing when the file cannot be read or does
// not parse.
std::optional<StoryExtract> ExtractStory(const std::filesystem::path& file);

// The row of a file that is no story: its name and directory alone.
StoryRow PlainFileRow(const std::filesystem::path& file);

}  // namespace tessarin
