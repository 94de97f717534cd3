#include "common/utf8.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

TEST(EncodeUtf8Bytes, EachCodeUnitByItself) {
    EXPECT_EQ(EncodeUtf8Bytes(u"A"), "A");
    EXPECT_EQ(EncodeUtf8Bytes(u"\u00E9"), "\xC3\xA9");
    EXPECT_EQ(EncodeUtf8Bytes(u"\u20AC"), "\xE2\x82\xAC");
    EXPECT_EQ(EncodeUtf8Bytes(u"\U0001F600"), "\xED\xA0\xBD\xED\xB8\x80");
    EXPECT_EQ(EncodeUtf8Bytes(u"\u007F\u0080\u07FF\u0800"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80");
    EXPECT_EQ(EncodeUtf8Bytes(u""), "");
}

TEST(Utf16ToUtf8, PairsJoinAndLoneSurrogatesStayGroups) {
    EXPECT_EQ(Utf16ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
    const std::u16string lone = {u'a', char16_t(0xD83D), u'b'};
    EXPECT_EQ(Utf16ToUtf8(lone),
              "a\xED\xA0\xBD"
              "b");
    const std::u16string reversed = {char16_t(0xDE00), char16_t(0xD83D)};
    EXPECT_EQ(Utf16ToUtf8(reversed), "\xED\xB8\x80\xED\xA0\xBD");
}

TEST(Utf8ToUtf16, ReadsWellFormedAndLenientForms) {
    EXPECT_EQ(Utf8ToUtf16("caf\xC3\xA9 \xE2\x82\xAC"), u"caf\u00E9 \u20AC");
    EXPECT_EQ(Utf8ToUtf16("\xF0\x9F\x98\x80"), u"\U0001F600");
    EXPECT_EQ(Utf8ToUtf16("\xED\xA0\xBD\xED\xB8\x80"), u"\U0001F600");
    EXPECT_EQ(Utf8ToUtf16("caf\xE9"), u"caf\u00E9");
    EXPECT_EQ(Utf8ToUtf16("\x80\x9F"), u"\u20AC\u0178");
    const std::u16string lone = {char16_t(0xD83D), u'x'};
    EXPECT_EQ(Utf8ToUtf16("\xED\xA0\xBDx"), lone);
}

TEST(Utf8ToUtf16, RoundTripsEncodeUtf8Bytes) {
    const std::u16string text = {u'a', 0xE9, 0x20AC, 0xD83D, 0xDE00, 0xDC00, u'z'};
    EXPECT_EQ(Utf8ToUtf16(EncodeUtf8Bytes(text)), text);
}

TEST(RepairUtf8, StrayBytesBecomeTheirWindows1252Characters) {
    EXPECT_EQ(RepairUtf8("caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(RepairUtf8("\x80 \x81"), "\xE2\x82\xAC \xC2\x81");
    EXPECT_EQ(RepairUtf8("\xE2\x82"), "\xC3\xA2\xE2\x80\x9A");  // truncated euro
    EXPECT_EQ(RepairUtf8("\xC0\xAF"), "\xC3\x80\xC2\xAF");      // overlong "/"
    EXPECT_EQ(RepairUtf8("\xF4\x90\x80\x80"), "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC");
}

TEST(RepairUtf8, SurrogatePairBecomesOneCharacter) {
    EXPECT_EQ(RepairUtf8("<\xED\xA0\xBD\xED\xB8\x80>"), "<\xF0\x9F\x98\x80>");
}

TEST(RepairUtf8, LoneSurrogateGroupIsReadAsItsBytes) {
    EXPECT_EQ(RepairUtf8("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xE2\x82\xAC");
    // A low group before a high one is not a pair.
    EXPECT_EQ(RepairUtf8("\xED\xB8\x80\xED\xA0\xBD"),
              "\xC3\xAD\xC2\xB8\xE2\x82\xAC\xC3\xAD\xC2\xA0\xC2\xBD");
}

TEST(RepairUtf8, ValidInputIsUnchangedAndOutputIsValid) {
    const std::string valid = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(RepairUtf8(valid), valid);
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte.push_back(static_cast<char>(byte));
    EXPECT_TRUE(IsValidUtf8(RepairUtf8(everyByte)));
    EXPECT_TRUE(IsValidUtf8(RepairUtf8("\xED\xA0\xBD\xED\xA0\xBD\xED")));
}

TEST(IsValidUtf8, RejectsMalformedForms) {
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8("plain \xC3\xA9\xF4\x8F\xBF\xBF"));
    EXPECT_FALSE(IsValidUtf8("\xE9"));
    EXPECT_FALSE(IsValidUtf8("\xC3"));              // truncated
    EXPECT_FALSE(IsValidUtf8("\xC1\xBF"));          // overlong two-byte
    EXPECT_FALSE(IsValidUtf8("\xE0\x9F\xBF"));      // overlong three-byte
    EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));      // surrogate group
    EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80"));  // beyond U+10FFFF
    EXPECT_FALSE(IsValidUtf8("\xBF"));              // lone continuation byte
}

}  // namespace
}  // namespace tessarin
