#include "config/profile_file.h"

#include <gtest/gtest.h>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

TEST(ProfileFileRead, FindsTheFirstKeyOfItsNameWithTheValueTrimmedAndCut) {
    TempDir dir;
    EXPECT_EQ(ProfileFile(dir / "missing.ini").Read("Preferences", "UseXSLT"), std::nullopt);

    // Lines end in CR LF or LF alone; text is Windows-1252 on disk.
    ProfileFile profile(
        dir.Write("p.ini",
                  "[preferences]\r\nlockmetadata=1\r\n[R\xC9SUM\xC9]\r\nCl\xE9=Ren\xE9 \x80\r\n"
                  "[S]\r\nEmpty=\r\nBlank=   \r\n  Padded  =  two words  \r\nUrl=a=b\r\n"
                  "[A]\nx=1\r\ny=2\n[B]\r\nx=3\nx=4\n[a]\nz=5\nx=6\n; x=7\n"
                  "[Long]\r\nLong=" +
                      std::string(300, 'x') + "\r\nAccents=" + std::string(300, '\xE9') +
                      "\r\nExact=" + std::string(255, 'y') + "\r\n"));
    // Values are cut to 255 characters, not bytes of UTF-8.
    std::string accents;
    for (int i = 0; i < 255; ++i)
        accents += "é";
    const std::tuple<std::string, std::string, std::optional<std::string>> cases[] = {
        {"Preferences", "LockMetadata", "1"},  // names compare without regard to case
        {"PREFERENCES", "LOCKMETADATA", "1"},
        {"Preferences", "KeepMetadata", std::nullopt},
        {"S", "LockMetadata", std::nullopt},
        {"résumé", "CLÉ", "René €"},
        {"S", "Empty", std::nullopt},  // an empty or blank value counts as missing
        {"S", "Blank", std::nullopt},
        {"S", "Padded", "two words"},
        {"S", "Url", "a=b"},
        {"A", "x", "1"},
        {"A", "y", "2"},
        {"B", "x", "3"},  // the first of two keys counts
        {"A", "z", "5"},  // a section that appears twice is searched in order
        {"Long", "Long", std::string(255, 'x')},
        {"Long", "Exact", std::string(255, 'y')},
        {"Long", "Accents", accents}};
    for (const auto& [section, key, value] : cases) {
        SCOPED_TRACE(section + "/" + key);
        EXPECT_EQ(profile.Read(section, key), value);
    }
}

TEST(ProfileFileRead, SurvivesAnyBytes) {
    TempDir dir;
    std::string binary;
    for (int i = 0; i < 4096; ++i)
        binary += static_cast<char>((i * 7919) % 256);
    ProfileFile garbage(dir.Write("binary.ini", binary));
    EXPECT_EQ(garbage.Read("Preferences", "UseXSLT"), std::nullopt);

    ProfileFile huge(dir.Write("huge.ini", "[S]\r\nk=" + std::string(2'000'000, 'v')));
    EXPECT_EQ(huge.Read("S", "k"), std::string(255, 'v'));

    // A header without "]" opens no section; the lines below it stay in the one before.
    ProfileFile broken(
        dir.Write("broken.ini", "[A]\r\nx=1\r\n[Broken\r\ny=2\r\n=3\r\n]\r\n[]\r\n"));
    EXPECT_EQ(broken.Read("Broken", "y"), std::nullopt);
    EXPECT_EQ(broken.Read("A", "y"), "2");
    EXPECT_EQ(broken.Read("", "x"), std::nullopt);

    ProfileFile nul(dir.Write("nul.ini", std::string("[S]\r\nk=a\0b\r\n", 12)));
    EXPECT_EQ(nul.Read("S", "k"), std::string("a\0b", 3));

    ProfileFile folder(dir.path());
    EXPECT_EQ(folder.Read("S", "k"), std::nullopt);
}

// Several keys at once give what writing them one by one gives.
TEST(ProfileFileWrite, ABatchEditsEveryLineAsSingleWritesDo) {
    struct Case {
        std::string original;
        std::vector<ProfileEntry> entries;
        std::string expected;
    };
    const std::vector<Case> cases = {
        // Every other byte of the file stays: comments, blank lines, LF line ends, the blanks
        // around a name whose line is not rewritten.
        {"; user settings\n[MainWindow]\nLeft = 10\nTop=20\n\n[Preferences]\r\n; colours below\r\n"
         "UseXSLT=1\r\n\r\n[FileMRU]\r\nFile1=C:\\News\\a.xml",
         {{"mainwindow", "LEFT", "-4"},
          {"Preferences", "XSLT", "/srv/é.xsl"},
          {"FileMRU", "File2", "b.xml"},
          {"TipOfTheDay", "LastTipOfTheDay", "3"}},
         "; user settings\n[MainWindow]\nLeft=-4\r\nTop=20\n\n[Preferences]\r\n; colours below\r\n"
         "UseXSLT=1\r\nXSLT=/srv/\xE9.xsl\r\n\r\n[FileMRU]\r\nFile1=C:\\News\\a.xml\r\n"
         "File2=b.xml\r\n[TipOfTheDay]\r\nLastTipOfTheDay=3\r\n"},
        // The first of two keys of a name is replaced.
        {"[A]\r\nx=1\r\n[B]\r\n[A]\r\nx=2\r\n",
         {{"A", "x", "9"}, {"A", "y", "8"}},
         "[A]\r\nx=9\r\ny=8\r\n[B]\r\n[A]\r\nx=2\r\n"},
        // Line breaks in a value become blanks: the value cannot open a section.
        {"", {{"S", "k", "one\r\ntwo\n[X]"}}, "[S]\r\nk=one  two [X]\r\n"},
        // Bytes that are no profile text are kept as they are.
        {std::string("\x00\xFF[\x01\r=\xFE", 7),
         {{"S", "k", "v"}},
         std::string("\x00\xFF[\x01\r=\xFE", 7) + "\r\n[S]\r\nk=v\r\n"},
        // A last line without its line end, a blank line before the next section.
        {"[A]\nx=1\n\n[B]\ny=2",
         {{"B", "z", "3"}, {"A", "x", "4"}, {"C", "w", "5"}, {"b", "Z", "6"}, {"A", "v", "7"}},
         "[A]\nx=4\r\nv=7\r\n\n[B]\ny=2\r\nz=6\r\n[C]\r\nw=5\r\n"},
        // A key in the second section of a name, a key set twice, a section added at the end.
        {"[A]\r\nx=1\r\n[B]\r\ny=2\r\n[A]\r\nz=3\r",
         {{"a", "X", "9"},
          {"A", "w", "8"},
          {"A", "z", "7"},
          {"C", "k", "1"},
          {"A", "w", "6"},
          {"c", "K2", "2"},
          {"B", "y", "5"}},
         "[A]\r\nx=9\r\nw=6\r\n[B]\r\ny=5\r\n[A]\r\nz=7\r\n[C]\r\nk=1\r\nK2=2\r\n"},
        // After a last line that ends in a lone CR, a LF completes its line end.
        {"[A]\r\nx=1\r", {{"A", "y", "2"}}, "[A]\r\nx=1\r\ny=2\r\n"},
        // A section without keys takes new keys right after its header.
        {"[A]\n; note\n[B]\n",
         {{"A", "k", "1"}, {"A", "l", "2"}},
         "[A]\nk=1\r\nl=2\r\n; note\n[B]\n"},
    };
    TempDir dir;
    for (const Case& test : cases) {
        ProfileFile batch(dir.Write("batch.ini", test.original));
        ProfileFile single(dir.Write("single.ini", test.original));
        ASSERT_TRUE(batch.Write(test.entries));
        for (const ProfileEntry& entry : test.entries)
            ASSERT_TRUE(single.Write(entry.section, entry.key, entry.value));
        EXPECT_EQ(ReadBytes(batch.Path()), test.expected) << test.original;
        EXPECT_EQ(ReadBytes(single.Path()), test.expected) << test.original;
    }
}

TEST(ProfileFileWrite, ANameThatWouldNotReadBackIsNotWritten) {
    TempDir dir;
    const std::string original = "[S]\r\nk=1\r\n";
    ProfileFile profile(dir.Write("p.ini", original));
    for (const auto& [section, key] :
         std::vector<std::pair<std::string, std::string>>{{"S", "a=b"},
                                                          {"S", " k"},
                                                          {"S", "k\t"},
                                                          {"S", ";k"},
                                                          {"S", "[k]"},
                                                          {"S", "k\nx"},
                                                          {"a]b", "k"},
                                                          {" S", "k"},
                                                          {"S\r", "k"}}) {
        EXPECT_FALSE(profile.Write({{"S", "k", "2"}, {section, key, "v"}})) << section << key;
    }
    EXPECT_EQ(ReadBytes(profile.Path()), original);
    ASSERT_TRUE(profile.Write("", "", "empty names"));
    EXPECT_EQ(profile.Read("", ""), "empty names");
}

// A file without any write permission bit (for every user, the superuser too) and a place
// that no user can write to fail silently and leave everything as it was.
TEST(ProfileFileWrite, UnwritableFileOrPlaceFailsSilently) {
    TempDir dir;
    const std::string original = "[Preferences]\r\nLockMetadata=0\r\n";
    ProfileFile profile(dir.Write("p.ini", original));
    std::filesystem::permissions(profile.Path(), std::filesystem::perms::owner_read |
                                                     std::filesystem::perms::group_read |
                                                     std::filesystem::perms::others_read);
    EXPECT_FALSE(profile.Write("Preferences", "LockMetadata", "1"));
    EXPECT_FALSE(profile.Write({{"Preferences", "KeepMetadata", "1"}, {"Other", "k", "v"}}));
    EXPECT_EQ(ReadBytes(profile.Path()), original);
    EXPECT_EQ(profile.Read("Preferences", "LockMetadata"), "0");

    EXPECT_FALSE(ProfileFile(dir / "missing" / "p.ini").Write("S", "k", "v"));
    std::filesystem::create_directory(dir / "folder.ini");
    EXPECT_FALSE(ProfileFile(dir / "folder.ini").Write("S", "k", "v"));
    // No temporary file or folder is left behind.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                            std::filesystem::directory_iterator()),
              2);
}

}  // namespace
}  // namespace tessarin
