#include "common/utf8.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

TEST(EncodeUtf8Bytes, EachCodeUnitByItself) {
    EXPECT_EQ(EncodeUtf8Bytes(u"\U0001F600"), "\xED\xA0\xBD\xED\xB8\x80");
    EXPECT_EQ(EncodeUtf8Bytes(u"\u007F\u0080\u07FF\u0800"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80");
}

TEST(Utf16ToUtf8, PairsJoinAndLoneSurrogatesStayGroups) {
    EXPECT_EQ(Utf16ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Utf16ToUtf8(std::u16string{u'a', char16_t(0xD83D), u'b'}),
              "a\xED\xA0\xBD"
              "b");
    EXPECT_EQ(Utf16ToUtf8(std::u16string{char16_t(0xDE00), char16_t(0xD83D)}),
              "\xED\xB8\x80\xED\xA0\xBD");
}

TEST(Utf8ToUtf16, ReadsWellFormedAndLenientForms) {
    EXPECT_EQ(Utf8ToUtf16("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"),
              u"caf\u00E9 \u20AC \U0001F600");
    EXPECT_EQ(Utf8ToUtf16("\xED\xA0\xBD\xED\xB8\x80 caf\xE9 \x80\x9F"),
              u"\U0001F600 caf\u00E9 \u20AC\u0178");
    EXPECT_EQ(Utf8ToUtf16("\xED\xA0\xBDx"), (std::u16string{char16_t(0xD83D), u'x'}));
    const std::u16string text = {u'a', 0xE9, 0x20AC, 0xD83D, 0xDE00, 0xDC00, u'z'};
    EXPECT_EQ(Utf8ToUtf16(EncodeUtf8Bytes(text)), text);
}

TEST(RepairUtf8, StrayBytesBecomeTheirWindows1252CharactersAndPairsJoin) {
    const std::pair<const char*, const char*> rows[] = {
        {"caf\xE9", "caf\xC3\xA9"},
        {"\x80 \x81", "\xE2\x82\xAC \xC2\x81"},
        {"\xE2\x82", "\xC3\xA2\xE2\x80\x9A"},  // truncated euro
        {"\xC0\xAF", "\xC3\x80\xC2\xAF"},      // overlong "/"
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"},
        {"<\xED\xA0\xBD\xED\xB8\x80>", "<\xF0\x9F\x98\x80>"},
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},  // a lone surrogate group
        // A low group before a high one is not a pair.
        {"\xED\xB8\x80\xED\xA0\xBD", "\xC3\xAD\xC2\xB8\xE2\x82\xAC\xC3\xAD\xC2\xA0\xC2\xBD"},
        {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
    };
    for (const auto& [bytes, repaired] : rows)
        EXPECT_EQ(RepairUtf8(bytes), repaired) << bytes;
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte.push_back(static_cast<char>(byte));
    EXPECT_TRUE(IsValidUtf8(RepairUtf8(everyByte + "\xED\xA0\xBD\xED\xA0\xBD\xED")));
}

TEST(IsValidUtf8, RejectsMalformedForms) {
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8("plain \xC3\xA9\xF4\x8F\xBF\xBF"));
    // Stray, truncated, overlong two- and three-byte, surrogate group, beyond U+10FFFF,
    // lone continuation byte.
    for (const char* bytes :
         {"\xE9", "\xC3", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xBF"}) {
        EXPECT_FALSE(IsValidUtf8(bytes)) << bytes;
    }
}

}  // namespace
}  // namespace tessarin
