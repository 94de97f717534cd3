#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tessarin::testing {

// JPEG files built byte by byte for the IPTC reader.

inline std::string BigEndian(unsigned value, int bytes) {
    std::string out;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        out += char((value >> shift) & 0xFF);
    return out;
}

// One record of the application record: 0x1C, record 2, dataset, length, text.
inline std::string IptcRecord(int dataset, std::string_view text) {
    return std::string("\x1C\x02", 2) + char(dataset) + BigEndian(unsigned(text.size()), 2) +
           std::string(text);
}

// A "8BIM" resource 0x0404: name as a length byte and characters padded to an even count,
// the 4-byte size of the records, the records.
inline std::string IptcResource(std::string_view records, std::string_view name = "") {
    std::string padded = char(name.size()) + std::string(name);
    if (padded.size() % 2) padded += '\0';
    return std::string("8BIM\x04\x04", 6) + padded + BigEndian(unsigned(records.size()), 4) +
           std::string(records);
}

// An APP13 segment holding the given resources.
inline std::string App13(std::string_view resources) {
    const std::string body = std::string("Photoshop 3.0\0", 14) + std::string(resources);
    return "\xFF\xED" + BigEndian(unsigned(body.size() + 2), 2) + body;
}

inline std::string Jpeg(std::initializer_list<std::string> segments) {
    std::string bytes = "\xFF\xD8";
    for (const std::string& segment : segments)
        bytes += segment;
    return bytes + "\xFF\xD9";
}

}  // namespace tessarin::testing
