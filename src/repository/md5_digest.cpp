#include "repository/md5_digest.h"

#include <array>
#include <bit>
#include <cstdint>

namespace tessarin {
namespace {

constexpr std::array<std::uint32_t, 64> kSines = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

constexpr std::array<int, 16> kShifts = {7, 12, 17, 22, 5, 9, 14, 20, 4, 11, 16, 23, 6, 10, 15, 21};

void Compress(std::array<std::uint32_t, 4>& state, const unsigned char* block) {
    std::array<std::uint32_t, 16> words{};
    for (int index = 0; index < 16; ++index) {
        for (int byte = 3; byte >= 0; --byte)
            words[index] = (words[index] << 8) | block[index * 4 + byte];
    }
    std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    for (int step = 0; step < 64; ++step) {
        const int round = step / 16;
        std::uint32_t mixed = 0;
        int word = 0;
        switch (round) {
            case 0:
                mixed = (b & c) | (~b & d);
                word = step;
                break;
            case 1:
                mixed = (d & b) | (~d & c);
                word = (5 * step + 1) % 16;
                break;
            case 2:
                mixed = b ^ c ^ d;
                word = (3 * step + 5) % 16;
                break;
            default:
                mixed = c ^ (b | ~d);
                word = (7 * step) % 16;
                break;
        }
        const std::uint32_t sum = a + mixed + kSines[step] + words[word];
        a = d;
        d = c;
        c = b;
        b += std::rotl(sum, kShifts[round * 4 + step % 4]);
    }
    state[0] += a;
    state[1] += b;
    state[2] += c;
    state[3] += d;
}

}  // namespace

std::string Md5Hex(std::string_view bytes) {
    std::array<std::uint32_t, 4> state = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};
    std::string padded(bytes);
    const std::uint64_t bitLength = static_cast<std::uint64_t>(bytes.size()) * 8;
    padded += '\x80';
    while (padded.size() % 64 != 56)
        padded += '\0';
    for (int byte = 0; byte < 8; ++byte)
        padded += static_cast<char>(bitLength >> (8 * byte));
    for (std::size_t offset = 0; offset < padded.size(); offset += 64) {
        Compress(state, reinterpret_cast<const unsigned char*>(padded.data() + offset));
    }
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (const std::uint32_t word : state) {
        for (int byte = 0; byte < 4; ++byte) {
            const unsigned value = (word >> (8 * byte)) & 0xff;
            hex += kDigits[value >> 4];
            hex += kDigits[value & 0xf];
        }
    }
    return hex;
}

}  // namespace tessarin
