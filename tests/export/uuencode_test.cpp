#include <gtest/gtest.h>

#include <string>

#include "export/uuencode.h"
#include "support/temp_dir.h"

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

TEST(UUEncode, ShortFilesGiveOneLineWithTheLastGroupPaddedByBlanks) {
    EXPECT_EQ(UUEncode("a.bin", Pattern(0)), "begin 664 a.bin\n \n'\nend\n");
    EXPECT_EQ(UUEncode("a.bin", Pattern(1)), "begin 664 a.bin\n! 2 @\n'\nend\n");
    EXPECT_EQ(UUEncode("a.bin", Pattern(2)), "begin 664 a.bin\n\" 0@@\n'\nend\n");
    EXPECT_EQ(UUEncode("a.bin", Pattern(3)), "begin 664 a.bin\n# 0@/\n'\nend\n");
    EXPECT_EQ(UUEncode("a.bin", Pattern(44)),
              "begin 664 a.bin\n"
              "L 0@/%ATD*S(Y0$=.55QC:G%X?X:-E)NBJ;\"WOL7,T]KAZ._V_00+$AD@)RX@\n'\nend\n");
}

TEST(UUEncode, FullLinesOfFortyFiveBytesAndALastLineForTheRest) {
    EXPECT_EQ(UUEncode("a.bin", Pattern(45)),
              "begin 664 a.bin\n" + std::string(kFullLine) + " \n'\nend\n");
    EXPECT_EQ(UUEncode("a.bin", Pattern(46)),
              "begin 664 a.bin\n" + std::string(kFullLine) + "!/\" @\n'\nend\n");
    EXPECT_EQ(UUEncode("a.bin", Pattern(90)),
              "begin 664 a.bin\n" + std::string(kFullLine) +
                  "M/$-*45A?9FUT>X*)D)>>I:RSNL'(S];=Y.OR^0 '#A4<(RHQ.#]&351;8FEP\n \n'\nend\n");
}

TEST(UUEncode, BlanksInTheNameBecomeUnderscoresAndZeroGroupsBlanks) {
    EXPECT_EQ(UUEncode("my photo 1.jpg", "Cat"), "begin 664 my_photo_1.jpg\n#0V%T\n'\nend\n");
    EXPECT_EQ(UUEncode("x", std::string(3, '\0')), "begin 664 x\n#    \n'\nend\n");
}

TEST(UUEncodeFile, NamesTheFileByItsNameAloneAndRefusesWhatCannotBeRead) {
    testing::TempDir folder;
    const auto file = folder.Write("sub/my photo.jpg", "Cat");
    EXPECT_EQ(UUEncodeFile(file), "begin 664 my_photo.jpg\n#0V%T\n'\nend\n");
    EXPECT_EQ(UUEncodeFile(folder / "missing.jpg"), std::nullopt);
}

}  // namespace
}  // namespace tessarin
