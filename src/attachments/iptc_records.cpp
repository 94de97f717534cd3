#include "attachments/iptc_records.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "common/utf8.h"
#include "common/windows1252.h"

namespace tessarin {
namespace {

constexpr int kEnvelopeRecord = 1;
constexpr int kCodedCharacterSet = 90;
constexpr std::string_view kUtf8Escape = "\x1B%G";
constexpr int kRecordVersion = 0;

bool DeclaresUtf8(const IptcRawRecord& record) {
    return record.record == kEnvelopeRecord && record.dataset == kCodedCharacterSet &&
           record.text == kUtf8Escape;
}

std::string TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace

IptcData IptcDataFromRecords(std::span<const IptcRawRecord> records) {
    IptcData data;
    data.declaredUtf8 = std::any_of(records.begin(), records.end(), DeclaresUtf8);
    for (const IptcRawRecord& record : records) {
        if (record.dataset == kRecordVersion || DeclaresUtf8(record)) continue;
        std::string bytes(record.text);
        std::replace(bytes.begin(), bytes.end(), '\0', ' ');
        std::string text = data.declaredUtf8 ? RepairUtf8(bytes) : Windows1252ToUtf8(bytes);
        if (const std::optional<std::size_t> index = IptcDatasetIndex(record.dataset)) {
            data.occurrences[*index].push_back(TrimBlanks(text));
        } else {
            data.unnamed.push_back({record.dataset, std::move(text)});
        }
    }
    return data;
}

}  // namespace tessarin
