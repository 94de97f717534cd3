#pragma once

#include <filesystem>
#include <optional>

#include "attachments/iptc_reader.h"

namespace tessarin {

// The IPTC data of a JPEG file as the scan of the whole file gives it, without holding the
// file in memory: the segments before the image data (the start-of-scan marker) are walked
// from the start of the file and scanned, and the rest of the file is only looked through,
// a chunk at a time, for an APP13 marker that the whole scan would follow. A file that does
// not begin with the JPEG start marker gives no data, as in the whole scan. Nothing when the
// whole file must be scanned instead: segments that cannot be walked, records that run
// beyond them, an APP13 marker in the rest, a file that gives fewer bytes than its size.
std::optional<IptcData> ReadIptcFromJpegHead(const std::filesystem::path& picture);

}  // namespace tessarin
