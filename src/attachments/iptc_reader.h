#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// The IPTC metadata that agencies put into a JPEG picture, read by a direct scan of the
// file's bytes: the datasets of the application record inside a "8BIM" resource 0x0404 of an
// APP13 segment.

// One dataset the program names: its number, the Interface key of its label with the English
// default, and whether its repeats are joined (else the last one counts).
struct IptcDataset {
    int number;
    std::string_view labelKey;
    std::string_view defaultLabel;
    bool joined;
};

inline constexpr std::size_t kIptcDatasetCount = 34;

// The named datasets, in the order in which the picture's metadata is shown.
std::span<const IptcDataset, kIptcDatasetCount> IptcDatasets();

// The place of a dataset in that table; nothing for a number the table does not name.
std::optional<std::size_t> IptcDatasetIndex(int datasetNumber);

// Dataset numbers that attaching a picture uses.
inline constexpr int kIptcKeywords = 25;
inline constexpr int kIptcByline = 80;
inline constexpr int kIptcCredit = 110;
inline constexpr int kIptcCaptionAbstract = 120;

// A dataset the program does not name, with its text.
struct IptcUnnamedDataset {
    int number;
    std::string text;
    friend bool operator==(const IptcUnnamedDataset&, const IptcUnnamedDataset&) = default;
};

// What a picture holds. Texts are UTF-8, read one Windows-1252 character per byte unless the
// picture declares its texts UTF-8, NUL characters turned into blanks.
struct IptcData {
    // Every occurrence of each named dataset, by the table's order, trimmed of blanks.
    std::array<std::vector<std::string>, kIptcDatasetCount> occurrences;
    // Datasets that the table does not name, in file order.
    std::vector<IptcUnnamedDataset> unnamed;
    // The envelope declares the texts UTF-8 (they were read as such).
    bool declaredUtf8 = false;
    // The file gave fewer bytes than its size: what was read has been scanned.
    bool shortRead = false;

    // The value of a named dataset: for a joined dataset its non-empty occurrences with
    // "; " between them, otherwise the last occurrence; empty for a number the table lacks.
    std::string Value(int datasetNumber) const;
    // The non-empty occurrences of a named dataset.
    std::vector<std::string> Entries(int datasetNumber) const;
    // True when no dataset at all was found.
    bool Empty() const;

    friend bool operator==(const IptcData&, const IptcData&) = default;
};

// Reads the IPTC data of a picture. A file that cannot be opened or does not begin with
// the JPEG start marker 0xFF 0xD8 gives no data at all. The result is that of the scan of
// the whole file; when the picture's segments before its image data hold everything the
// scan finds, the file is not held in memory whole.
IptcData ReadIptc(const std::filesystem::path& picture);

// The scan of the whole file over its bytes already in memory.
IptcData ReadIptcBytes(std::string_view bytes);

}  // namespace tessarin
