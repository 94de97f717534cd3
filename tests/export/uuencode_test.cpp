#include <gtest/gtest.h>

#include <string>

#include "export/uuencode.h"

namespace tessarin {
namespace {

// n bytes of a fixed pattern that uses the whole byte range.
std::string Pattern(std::size_t n) {
    std::string bytes;
    for (std::size_t i = 0; i < n; ++i)
        bytes += static_cast<char>((i * 7 + 1) % 256);
    return bytes;
}

constexpr std::string_view kFullLine =
    "M 0@/%ATD*S(Y0$=.55QC:G%X?X:-E)NBJ;\"WOL7,T]KAZ._V_00+$AD@)RXU\n";

// Lines of 45 bytes, then a last line for the rest (a blank line when there is none), its
// last group padded by blanks.
TEST(UUEncode, FullLinesOfFortyFiveBytesAndALastLineForTheRest) {
    const std::string full(kFullLine);
    const std::pair<std::size_t, std::string> rows[] = {
        {3, "# 0@/\n"},
        {44, "L 0@/%ATD*S(Y0$=.55QC:G%X?X:-E)NBJ;\"WOL7,T]KAZ._V_00+$AD@)RX@\n"},
        {45, full + " \n"},
        {46, full + "!/\" @\n"}};
    for (const auto& [size, lines] : rows)
        EXPECT_EQ(UUEncode("a.bin", Pattern(size)), "begin 664 a.bin\n" + lines + "'\nend\n");
}

TEST(UUEncode, BlanksInTheNameBecomeUnderscoresAndZeroGroupsBlanks) {
    EXPECT_EQ(UUEncode("my photo 1.jpg", "Cat"), "begin 664 my_photo_1.jpg\n#0V%T\n'\nend\n");
    EXPECT_EQ(UUEncode("x", std::string(3, '\0')), "begin 664 x\n#    \n'\nend\n");
}

}  // namespace
}  // namespace tessarin
