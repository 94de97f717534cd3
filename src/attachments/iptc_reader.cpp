#include "attachments/iptc_reader.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <system_error>

#include "attachments/iptc_jpeg_head.h"
#include "attachments/iptc_records.h"
#include "attachments/iptc_scanner.h"

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

// The whole file in memory, scanned from its start to its end.
IptcData ReadWholeFile(const std::filesystem::path& picture) {
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

}  // namespace

std::span<const IptcDataset, kIptcDatasetCount> IptcDatasets() {
    return kDatasets;
}

std::optional<std::size_t> IptcDatasetIndex(int datasetNumber) {
    for (std::size_t index = 0; index < kIptcDatasetCount; ++index) {
        if (kDatasets[index].number == datasetNumber) return index;
    }
    return std::nullopt;
}

std::vector<std::string> IptcData::Entries(int datasetNumber) const {
    std::vector<std::string> entries;
    if (const auto index = IptcDatasetIndex(datasetNumber)) {
        for (const std::string& occurrence : occurrences[*index]) {
            if (!occurrence.empty()) entries.push_back(occurrence);
        }
    }
    return entries;
}

std::string IptcData::Value(int datasetNumber) const {
    const auto index = IptcDatasetIndex(datasetNumber);
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
    return IptcDataFromRecords(*ScanIptcRecords(bytes, IptcScanExtent::WholeFile));
}

IptcData ReadIptc(const std::filesystem::path& picture) {
    if (std::optional<IptcData> data = ReadIptcFromJpegHead(picture)) return std::move(*data);
    return ReadWholeFile(picture);
}

}  // namespace tessarin
