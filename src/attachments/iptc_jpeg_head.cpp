#include "attachments/iptc_jpeg_head.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "attachments/iptc_records.h"
#include "attachments/iptc_scanner.h"

namespace tessarin {
namespace {

constexpr std::size_t kChunkSize = 64 * 1024;
constexpr std::string_view kJpegStart = "\xFF\xD8";
constexpr unsigned char kMarkerStart = 0xFF;
constexpr unsigned char kApp13 = 0xED;
constexpr unsigned char kStartOfScan = 0xDA;
constexpr unsigned char kEndOfImage = 0xD9;
// Markers without a length: the temporary marker and the eight restart markers.
constexpr unsigned char kTemporary = 0x01;
constexpr unsigned char kFirstRestart = 0xD0;
constexpr unsigned char kLastRestart = 0xD7;

// A file read from its start a chunk at a time: the start is kept as long as the walk of
// the segments needs it, the rest passes through one chunk. The buffers are not cleared
// before the file's bytes are read into them.
class PictureFile {
  public:
    explicit PictureFile(const std::filesystem::path& picture)
        : stream_(picture, std::ios::binary) {}

    // The bytes kept from the start.
    std::string_view Start() const { return {start_.get(), startSize_}; }
    std::uintmax_t BytesRead() const { return bytesRead_; }

    // True when the start kept holds `count` bytes, reading more as needed.
    bool Holds(std::size_t count) {
        while (startSize_ < count) {
            if (startSize_ + kChunkSize > startCapacity_) GrowStart();
            const std::size_t read = ReadChunk(start_.get() + startSize_);
            if (read == 0) return false;
            startSize_ += read;
        }
        return true;
    }

    unsigned Byte(std::size_t position) const {
        return static_cast<unsigned char>(start_[position]);
    }

    // True when an APP13 marker begins at or after `from`, in the start kept or in the rest
    // of the file, which is read to its end.
    bool HoldsApp13MarkerFrom(std::size_t from) {
        const std::string_view kept = Start().substr(from);
        if (FindApp13Marker(kept, 0) != std::string_view::npos) return true;
        bool previousIsMarkerStart = !kept.empty() && kept.back() == char(kMarkerStart);
        const auto chunk = std::make_unique_for_overwrite<char[]>(kChunkSize);
        for (std::size_t read = ReadChunk(chunk.get()); read != 0; read = ReadChunk(chunk.get())) {
            const std::string_view bytes(chunk.get(), read);
            if (previousIsMarkerStart && bytes.front() == char(kApp13)) return true;
            if (FindApp13Marker(bytes, 0) != std::string_view::npos) return true;
            previousIsMarkerStart = bytes.back() == char(kMarkerStart);
        }
        return false;
    }

  private:
    // Reads at most a chunk into `buffer` and returns how many bytes came: 0 at the end of
    // the file or on an error.
    std::size_t ReadChunk(char* buffer) {
        stream_.read(buffer, static_cast<std::streamsize>(kChunkSize));
        const auto read = static_cast<std::size_t>(stream_.gcount());
        bytesRead_ += read;
        return read;
    }

    void GrowStart() {
        startCapacity_ = std::max(2 * startCapacity_, startSize_ + kChunkSize);
        auto grown = std::make_unique_for_overwrite<char[]>(startCapacity_);
        std::copy_n(start_.get(), startSize_, grown.get());
        start_ = std::move(grown);
    }

    std::ifstream stream_;
    std::unique_ptr<char[]> start_;
    std::size_t startSize_ = 0;
    std::size_t startCapacity_ = 0;
    std::uintmax_t bytesRead_ = 0;
};

bool HasNoLength(unsigned marker) {
    return marker == kTemporary || (marker >= kFirstRestart && marker <= kLastRestart);
}

// Where the image data begins: the start-of-scan marker, or the end-of-image marker of a
// picture without any, reached by walking the segments from the start marker on. Nothing
// when the segments do not lead there.
std::optional<std::size_t> ImageDataStart(PictureFile& file) {
    std::size_t position = kJpegStart.size();
    while (file.Holds(position + 2) && file.Byte(position) == kMarkerStart) {
        const unsigned marker = file.Byte(position + 1);
        if (marker == kMarkerStart) {  // a fill byte before the marker
            ++position;
        } else if (marker == kStartOfScan || marker == kEndOfImage) {
            return position;
        } else if (HasNoLength(marker)) {
            position += 2;
        } else {
            if (!file.Holds(position + 4)) break;
            const std::size_t length = (file.Byte(position + 2) << 8) | file.Byte(position + 3);
            if (length < 2) break;
            position += 2 + length;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<IptcData> ReadIptcFromJpegHead(const std::filesystem::path& picture) {
    PictureFile file(picture);
    if (!file.Holds(kJpegStart.size()) || !file.Start().starts_with(kJpegStart)) return IptcData{};

    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(picture, error);
    if (error) return std::nullopt;
    const std::optional<std::size_t> imageData = ImageDataStart(file);
    if (!imageData) return std::nullopt;
    const auto records =
        ScanIptcRecords(file.Start().substr(0, *imageData), IptcScanExtent::FileStart);
    if (!records || file.HoldsApp13MarkerFrom(*imageData - 1) || file.BytesRead() != size) {
        return std::nullopt;
    }
    return IptcDataFromRecords(*records);
}

}  // namespace tessarin
