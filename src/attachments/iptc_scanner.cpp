#include "attachments/iptc_scanner.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tessarin {
namespace {

constexpr unsigned char kMarkerStart = 0xFF;
constexpr unsigned char kApp13 = 0xED;
// "8BIM" followed by the resource number 0x0404, which holds the IPTC records.
constexpr std::string_view kIptcResource = "8BIM\x04\x04";
constexpr unsigned char kRecordTag = 0x1C;
// The records are taken from this fixed distance after "8BIM".
constexpr std::size_t kRecordsOffset = 12;
// The byte after "8BIM" and the resource number: the length of the resource's name.
constexpr std::size_t kNameLengthOffset = 6;
// 0x1C, the record number, the dataset number and the text's length on two bytes.
constexpr std::size_t kRecordHeaderSize = 5;

class IptcScanner {
  public:
    IptcScanner(std::string_view bytes, IptcScanExtent extent)
        : bytes_(bytes), wholeFile_(extent == IptcScanExtent::WholeFile) {}

    std::optional<std::vector<IptcRawRecord>> Scan() {
        std::size_t marker = FindApp13Marker(bytes_, 0);
        while (marker != std::string_view::npos) {
            const std::size_t resource = bytes_.find(kIptcResource, marker + 2);
            if (resource == std::string_view::npos) {
                // None in the whole file: no later marker can lead to one either.
                if (wholeFile_) break;
                return std::nullopt;
            }
            const std::optional<std::size_t> resume = ReadResource(resource);
            if (!resume) return std::nullopt;
            marker = FindApp13Marker(bytes_, std::max(marker + 1, *resume));
        }
        return std::move(records_);
    }

  private:
    unsigned Byte(std::size_t position) const {
        return static_cast<unsigned char>(bytes_[position]);
    }

    // Where the block of the resource at "8BIM" ends: its records start at the fixed distance
    // and take as many bytes as the resource's size says, the four bytes, big-endian, that
    // follow its name (a length byte and the characters, padded to an even count). When the
    // file ends before that size, the block reaches the end of the file. Nothing when the
    // size lies beyond the start of a file given.
    std::optional<std::uint64_t> BlockEnd(std::size_t resource) const {
        const std::size_t nameLength = resource + kNameLengthOffset;
        if (nameLength < bytes_.size()) {
            const std::size_t sizeField = nameLength + ((Byte(nameLength) + 2) & ~std::size_t{1});
            if (sizeField + 4 <= bytes_.size()) {
                std::uint64_t size = 0;
                for (std::size_t index = 0; index < 4; ++index)
                    size = (size << 8) | Byte(sizeField + index);
                return resource + kRecordsOffset + size;
            }
        }
        if (wholeFile_) return bytes_.size();
        return std::nullopt;
    }

    // Reads the records of the resource at "8BIM" and returns where the scan goes on: after
    // the block or after the last text, whichever is further, at most the end of the bytes.
    // Nothing when the start of a file given is too short to tell.
    std::optional<std::size_t> ReadResource(std::size_t resource) {
        const std::size_t end = bytes_.size();
        const std::optional<std::uint64_t> blockEnd = BlockEnd(resource);
        // Inside the block, "a record may start here" only depends on the block, not on
        // where the bytes given stop.
        if (!blockEnd || (!wholeFile_ && *blockEnd + 1 >= end)) return std::nullopt;
        std::size_t resume = static_cast<std::size_t>(std::min<std::uint64_t>(*blockEnd, end));
        std::size_t record = resource + kRecordsOffset;
        while (record <= *blockEnd && record + 1 < end) {
            if (Byte(record) != kRecordTag) {
                ++record;
                continue;
            }
            if (record + kRecordHeaderSize - 1 >= end) {
                if (wholeFile_) break;
                return std::nullopt;
            }
            const std::size_t textStart = record + kRecordHeaderSize;
            const std::size_t length = (Byte(record + 3) << 8) | Byte(record + 4);
            if (!wholeFile_ && textStart + length > end) return std::nullopt;
            records_.push_back({static_cast<int>(Byte(record + 1)),
                                static_cast<int>(Byte(record + 2)),
                                bytes_.substr(textStart, length)});
            record = textStart + length;
            resume = std::max(resume, std::min(record, end));
        }
        return resume;
    }

    std::string_view bytes_;
    bool wholeFile_;
    std::vector<IptcRawRecord> records_;
};

}  // namespace

std::size_t FindApp13Marker(std::string_view bytes, std::size_t from) {
    while (from + 1 < bytes.size()) {
        const void* found = std::memchr(bytes.data() + from, kMarkerStart, bytes.size() - 1 - from);
        if (found == nullptr) break;
        const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - bytes.data());
        if (static_cast<unsigned char>(bytes[at + 1]) == kApp13) return at;
        from = at + 1;
    }
    return std::string_view::npos;
}

std::optional<std::vector<IptcRawRecord>> ScanIptcRecords(std::string_view bytes,
                                                          IptcScanExtent extent) {
    return IptcScanner(bytes, extent).Scan();
}

}  // namespace tessarin
