#pragma once

#include <cstddef>
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

// One record: 0x1C, the record (2, the application record, unless given), dataset, length,
// text.
inline std::string IptcRecord(int dataset, std::string_view text, int record = 2) {
    return std::string(1, '\x1C') + char(record) + char(dataset) +
           BigEndian(unsigned(text.size()), 2) + std::string(text);
}

// A "8BIM" resource 0x0404: name as a length byte and characters padded to an even count,
// the 4-byte size of the records, the records.
inline std::string IptcResource(std::string_view records, std::string_view name = "") {
    std::string padded = char(name.size()) + std::string(name);
    if (padded.size() % 2) padded += '\0';
    return std::string("8BIM\x04\x04", 6) + padded + BigEndian(unsigned(records.size()), 4) +
           std::string(records);
}

// A segment with a length: marker, length, body.
inline std::string Segment(unsigned char marker, std::string_view body) {
    return std::string{'\xFF', char(marker)} + BigEndian(unsigned(body.size() + 2), 2) +
           std::string(body);
}

// An APP13 segment holding the given resources.
inline std::string App13(std::string_view resources) {
    return Segment(0xED, std::string("Photoshop 3.0\0", 14) + std::string(resources));
}

// The tables and frame of a one-pixel grey picture, its start of scan, then `length` bytes
// of image data in which, as in a real picture, every 0xFF is followed by a stuffed 0x00.
inline std::string ImageData(std::size_t length = 2) {
    std::string bytes = Segment(0xDB, std::string(1, '\0') + std::string(64, '\x10')) +
                        Segment(0xC0, std::string("\x08\x00\x01\x00\x01\x01\x01\x11\x00", 9)) +
                        Segment(0xDA, std::string("\x01\x01\x00\x00\x3F\x00", 6));
    unsigned state = 1;
    for (std::size_t index = 0; index < length; ++index) {
        state = state * 1103515245u + 12345u;
        bytes += char(state >> 16);
        if (bytes.back() == '\xFF') bytes += '\0';
    }
    return bytes;
}

inline std::string Jpeg(std::initializer_list<std::string> segments) {
    std::string bytes = "\xFF\xD8";
    for (const std::string& segment : segments)
        bytes += segment;
    return bytes + "\xFF\xD9";
}

}  // namespace tessarin::testing
