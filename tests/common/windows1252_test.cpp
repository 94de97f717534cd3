#include "common/windows1252.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

// The characters of bytes 0x80 to 0x9F, as UTF-8, in byte order.
const char* const kHighRangeUtf8[32] = {
    "\xE2\x82\xAC", "\xC2\x81",     "\xE2\x80\x9A", "\xC6\x92",     "\xE2\x80\x9E", "\xE2\x80\xA6",
    "\xE2\x80\xA0", "\xE2\x80\xA1", "\xCB\x86",     "\xE2\x80\xB0", "\xC5\xA0",     "\xE2\x80\xB9",
    "\xC5\x92",     "\xC2\x8D",     "\xC5\xBD",     "\xC2\x8F",     "\xC2\x90",     "\xE2\x80\x98",
    "\xE2\x80\x99", "\xE2\x80\x9C", "\xE2\x80\x9D", "\xE2\x80\xA2", "\xE2\x80\x93", "\xE2\x80\x94",
    "\xCB\x9C",     "\xE2\x84\xA2", "\xC5\xA1",     "\xE2\x80\xBA", "\xC5\x93",     "\xC2\x9D",
    "\xC5\xBE",     "\xC5\xB8",
};

TEST(Windows1252, EveryByteBothWays) {
    for (int byte = 0x80; byte <= 0x9F; ++byte) {
        const std::string single(1, static_cast<char>(byte));
        EXPECT_EQ(Windows1252ToUtf8(single), kHighRangeUtf8[byte - 0x80]) << "byte " << byte;
        EXPECT_EQ(Utf8ToWindows1252(kHighRangeUtf8[byte - 0x80]), single) << "byte " << byte;
    }
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    const std::string utf8 = Windows1252ToUtf8(all);
    EXPECT_EQ(utf8.substr(0, 128), all.substr(0, 128));
    EXPECT_EQ(utf8.substr(utf8.size() - 4), "\xC3\xBE\xC3\xBF");
    EXPECT_EQ(Utf8ToWindows1252(utf8), all);
}

TEST(Windows1252, MissingCharactersBecomeQuestionMarksAndMalformedBytesStay) {
    // One mark for a character outside the plane, even written as a surrogate pair, and one
    // for the C1 control U+0080 whose byte holds the euro sign.
    EXPECT_EQ(Utf8ToWindows1252("a\xE4\xB8\xAD"
                                "b \xF0\x9F\x98\x80 \xED\xA0\xBD\xED\xB8\x80 \xC2\x80"),
              "a?b ? ? ?");
    EXPECT_EQ(Utf8ToWindows1252("caf\xE9 \xE2\x82 \xC0\xAF"), "caf\xE9 \xE2\x82 \xC0\xAF");
}

}  // namespace
}  // namespace tessarin
