#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tessarin {

// The direct scan of a JPEG file's bytes for IPTC records: from each APP13 marker 0xFF 0xED,
// the next "8BIM" resource 0x0404, whose records are read from a fixed distance after "8BIM"
// to the end of the block that the resource's size gives. The scan goes on after the block,
// or after the last record's text when that runs further, so that no byte of the file is
// ever read twice as text: the work and the texts found are bounded by the file's size.

// One record as found: its record and dataset numbers and the bytes of its text.
struct IptcRawRecord {
    int record;
    int dataset;
    std::string_view text;
};

// How the bytes given to the scan stand to the file.
enum class IptcScanExtent {
    WholeFile,  // the scan stops at their end, as at the end of the file
    FileStart,  // the file goes on after them
};

// Where the first APP13 marker (0xFF 0xED) at or after `from` begins; npos when none does.
std::size_t FindApp13Marker(std::string_view bytes, std::size_t from);

// The records of the bytes, in file order. For the start of a file, nothing when the
// outcome could depend on what follows, except through an APP13 marker that begins at or
// after the last byte given: a caller that finds none there has the whole file's result.
std::optional<std::vector<IptcRawRecord>> ScanIptcRecords(std::string_view bytes,
                                                          IptcScanExtent extent);

}  // namespace tessarin
