#include "attachments/iptc_reader.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <optional>
#include <system_error>

#include "common/windows1252.h"

namespace tessarin {
namespace {

// clang-format off
constexpr IptcDataset kDatasets[kIptcDatasetCount] = {
    {5, "IPTCObjectName", "Object Name", false},
    {7, "IPTCEditStatus", "Edit Status", false},
    {10, "IPTCUrgency", "Urgency", false},
    {15, "IPTCCategory", "Category", false},
    {20, "IPTCSupplementalCategory", "Supplemental Category", true},
    {22, "IPTCFixtureIdentifier", "Fixture Identifier", false},
    {25, "IPTCKeywords", "Keywords", true},
    {30, "IPTCReleaseDate", "Release Date", false},
    {35, "IPTCReleaseTime", "Release Time", false},
    {40, "IPTCSpecialInstructions", "Special Instructions", false},
    {45, "IPTCReferenceService", "Reference Service", true},
    {47, "IPTCReferenceDate", "Reference Date", true},
    {50, "IPTCReferenceNumber", "Reference Number", true},
    {55, "IPTCDateCreated", "Date Created", false},
    {60, "IPTCTimeCreated", "Time Created", false},
    {65, "IPTCOriginatingProgram", "Originating Program", false},
    {70, "IPTCProgramVersion", "Program Version", false},
    {75, "IPTCObjectCycle", "Object Cycle", false},
    {80, "IPTCByline", "Byline", true},
    {85, "IPTCBylineTitle", "Byline Title", true},
    {90, "IPTCCity", "City", false},
    {95, "IPTCProvinceState", "Province/State", false},
    {100, "IPTCCountryCode", "Country Code", false},
    {101, "IPTCCountryName", "Country Name", false},
    {103, "IPTCOriginalTransmissionReference", "Original Transmission Reference", false},
    {105, "IPTCHeadline", "Headline", false},
    {110, "IPTCCredit", "Credit", false},
    {115, "IPTCSource", "Source", false},
    {116, "IPTCCopyrightNotice", "Copyright Notice", false},
    {118, "IPTCContact", "Contact", false},
    {120, "IPTCCaptionAbstract", "Caption/Abstract", false},
    {121, "IPTCLocalCaption", "Local Caption", false},
    {122, "IPTCWriter", "Writer", true},
    {130, "IPTCImageType", "Image Type", false},
};
// clang-format on

constexpr std::string_view kJpegStart = "\xFF\xD8";
constexpr std::string_view kApp13Marker = "\xFF\xED";
// "8BIM" followed by the resource number 0x0404, which holds the IPTC records.
constexpr std::string_view kIptcResource = "8BIM\x04\x04";
constexpr unsigned char kRecordTag = 0x1C;
// The records are taken from this fixed distance after "8BIM".
constexpr std::size_t kRecordsOffset = 12;
// The byte after "8BIM" and the resource number: the length of the resource's name.
constexpr std::size_t kNameLengthOffset = 6;

std::optional<std::size_t> DatasetIndex(int number) {
    for (std::size_t index = 0; index < kIptcDatasetCount; ++index) {
        if (kDatasets[index].number == number) return index;
    }
    return std::nullopt;
}

std::string TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// One pass over the whole file, never reading past its end.
class IptcScanner {
  public:
    explicit IptcScanner(std::string_view bytes) : bytes_(bytes) {}

    IptcData Scan() {
        std::size_t position = 0;
        while (position + 1 < bytes_.size()) {
            if (bytes_.substr(position, 2) != kApp13Marker) {
                ++position;
                continue;
            }
            const std::size_t resource = bytes_.find(kIptcResource, position + 2);
            // No resource further on: no later segment can lead to one either.
            if (resource == std::string_view::npos) break;
            position = std::max(position + 1, ReadResource(resource));
        }
        return std::move(data_);
    }

  private:
    unsigned Byte(std::size_t position) const {
        return static_cast<unsigned char>(bytes_[position]);
    }

    // The resource's size: the four bytes, big-endian, that follow its name, which is a
    // length byte and the characters, padded to an even count. Nothing when the file ends
    // before them.
    std::optional<std::uint64_t> ResourceSize(std::size_t resource) const {
        if (resource + kNameLengthOffset >= bytes_.size()) return std::nullopt;
        const std::size_t paddedName = (Byte(resource + kNameLengthOffset) + 2) & ~std::size_t{1};
        const std::size_t sizeField = resource + kNameLengthOffset + paddedName;
        if (sizeField + 4 > bytes_.size()) return std::nullopt;
        std::uint64_t size = 0;
        for (std::size_t index = 0; index < 4; ++index)
            size = (size << 8) | Byte(sizeField + index);
        return size;
    }

    // Reads the records of the resource at "8BIM" and returns where the block ends, or the
    // file's end when the block reaches beyond it.
    std::size_t ReadResource(std::size_t resource) {
        const std::size_t fileEnd = bytes_.size();
        const std::optional<std::uint64_t> size = ResourceSize(resource);
        const std::uint64_t blockEnd =
            size ? resource + kRecordsOffset + *size : std::uint64_t{fileEnd};
        std::size_t record = resource + kRecordsOffset;
        while (record <= blockEnd && record + 1 < fileEnd) {
            if (Byte(record) != kRecordTag) {
                ++record;
                continue;
            }
            if (record + 4 >= fileEnd) break;
            const int dataset = static_cast<int>(Byte(record + 2));
            const std::size_t length = (Byte(record + 3) << 8) | Byte(record + 4);
            Store(dataset, bytes_.substr(record + 5, length));
            record += 5 + length;
        }
        return static_cast<std::size_t>(std::min<std::uint64_t>(blockEnd, fileEnd));
    }

    void Store(int dataset, std::string_view raw) {
        if (dataset == 0) return;  // the record version
        std::string bytes(raw);
        std::replace(bytes.begin(), bytes.end(), '\0', ' ');
        std::string text = Windows1252ToUtf8(bytes);
        if (const auto index = DatasetIndex(dataset)) {
            data_.occurrences[*index].push_back(TrimBlanks(text));
        } else {
            data_.unnamed.push_back({dataset, std::move(text)});
        }
    }

    std::string_view bytes_;
    IptcData data_;
};

}  // namespace

std::span<const IptcDataset, kIptcDatasetCount> IptcDatasets() {
    return kDatasets;
}

std::vector<std::string> IptcData::Entries(int datasetNumber) const {
    std::vector<std::string> entries;
    if (const auto index = DatasetIndex(datasetNumber)) {
        for (const std::string& occurrence : occurrences[*index]) {
            if (!occurrence.empty()) entries.push_back(occurrence);
        }
    }
    return entries;
}

std::string IptcData::Value(int datasetNumber) const {
    const auto index = DatasetIndex(datasetNumber);
    if (!index) return {};
    if (!kDatasets[*index].joined) {
        return occurrences[*index].empty() ? std::string() : occurrences[*index].back();
    }
    std::string value;
    for (const std::string& entry : Entries(datasetNumber)) {
        if (!value.empty()) value += "; ";
        value += entry;
    }
    return value;
}

bool IptcData::Empty() const {
    return unnamed.empty() && std::all_of(occurrences.begin(), occurrences.end(),
                                          [](const auto& found) { return found.empty(); });
}

IptcData ReadIptcBytes(std::string_view bytes) {
    if (!bytes.starts_with(kJpegStart)) return {};
    return IptcScanner(bytes).Scan();
}

IptcData ReadIptc(const std::filesystem::path& picture) {
    std::ifstream stream(picture, std::ios::binary);
    char start[2] = {};
    if (!stream.read(start, 2) || std::string_view(start, 2) != kJpegStart) return {};

    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(picture, error);
    std::string bytes(error ? 0 : size, '\0');
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));

    IptcData data = ReadIptcBytes(bytes);
    data.shortRead = error || bytes.size() != size;
    return data;
}

}  // namespace tessarin
