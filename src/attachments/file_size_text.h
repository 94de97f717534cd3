#pragma once

#include <cstdint>
#include <string>

namespace tessarin {

// The general text of a file's size: below 1024 the bytes with thousands separators and
// " bytes"; then kilobytes, megabytes or gigabytes with two, one or no decimals so that three
// or four digits show ("2.00 KB", "10.0 KB", "100 KB", "1.00 MB", ... "1.00 GB"). Halves are
// rounded up.
std::string FormatFileSize(std::uintmax_t length);

}  // namespace tessarin
