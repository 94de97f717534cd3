#pragma once

#include <span>

#include "attachments/iptc_reader.h"
#include "attachments/iptc_scanner.h"

namespace tessarin {

// The IPTC data that the scanned records of a picture give. The texts are the 8-bit code
// page, Windows-1252, unless the envelope (record 1) declares UTF-8 by its coded character
// set (dataset 90) holding the escape ESC % G: then every text of the picture is UTF-8, and
// that declaration is no value of its own.
IptcData IptcDataFromRecords(std::span<const IptcRawRecord> records);

}  // namespace tessarin
