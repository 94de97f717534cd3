// The IPTC reader on any bytes taken as a picture's whole file.

#include <cstddef>
#include <cstdint>

#include "attachments/iptc_reader.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessarin;
    const IptcData iptc = ReadIptcBytes(fuzz::Bytes(data, size));
    for (const IptcDataset& dataset : IptcDatasets()) {
        const std::string value = iptc.Value(dataset.number);
        if (iptc.Empty() && !value.empty()) __builtin_trap();
    }
    return 0;
}
