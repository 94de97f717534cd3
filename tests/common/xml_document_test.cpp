#include "common/xml_document.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::TempDir;

TEST(XmlDocument, LoadsAFile) {
    TempDir dir;
    const auto file = dir.Write("Tessarin.xml", "<?xml version=\"1.0\"?>\r\n<Root Version=\"2\"/>");
    XmlDocument document;
    ASSERT_TRUE(document.LoadFile(file));
    EXPECT_FALSE(document.ParseError());
    EXPECT_EQ(document.DocumentElement().Name(), "Root");
    EXPECT_EQ(document.DocumentElement().Attribute("Version"), "2");
}

TEST(XmlDocument, UnreadableFileIsReportedAtLineZero) {
    TempDir dir;
    XmlDocument document;
    EXPECT_FALSE(document.LoadFile(dir / "missing.xml"));
    ASSERT_TRUE(document.ParseError());
    EXPECT_EQ(document.ParseError()->line, 0);
    EXPECT_EQ(document.ParseError()->reason, "cannot read file");
    EXPECT_FALSE(document.DocumentElement());
    EXPECT_FALSE(document.LoadFile(dir.path()));
}

TEST(XmlDocument, ANewLoadReplacesTheFormerDocument) {
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes("<a/>"));
    EXPECT_FALSE(document.LoadBytes("<a>"));
    EXPECT_FALSE(document.DocumentElement());
    ASSERT_TRUE(document.LoadBytes("<b/>"));
    EXPECT_FALSE(document.ParseError());
    XmlDocument moved = std::move(document);
    EXPECT_EQ(moved.DocumentElement().Name(), "b");
}

TEST(XmlDocumentEncoding, DeclaredIso88591IsReadAsWindows1252) {
    XmlDocument document;
    ASSERT_TRUE(
        document.LoadBytes("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<r a='\x80'>\x80 "
                           "caf\xE9 \x81\x9C</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "\xE2\x82\xAC caf\xC3\xA9 \xC2\x81\xC5\x93");
    EXPECT_EQ(document.DocumentElement().Attribute("a"), "\xE2\x82\xAC");
    ASSERT_TRUE(
        document.LoadBytes("\xEF\xBB\xBF<?xml version='1.0' encoding='latin1'?><r>\xE9</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "\xC3\xA9");
}

TEST(XmlDocumentEncoding, Utf8OrUndeclaredIsRepaired) {
    XmlDocument document;
    ASSERT_TRUE(
        document.LoadBytes("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<r>caf\xC3\xA9 \xE9 "
                           "\xED\xA0\xBD\xED\xB8\x80</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "caf\xC3\xA9 \xC3\xA9 \xF0\x9F\x98\x80");
    ASSERT_TRUE(document.LoadBytes("<r>\x80</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "\xE2\x82\xAC");
    ASSERT_TRUE(document.LoadBytes("\xEF\xBB\xBF<r>\xC3\xA9</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "\xC3\xA9");
}

TEST(XmlDocumentEncoding, OtherEncodingsAreLeftToTheParser) {
    XmlDocument document;
    constexpr char kUtf16[] = "\xFF\xFE<\0r\0>\0\xE9\0<\0/\0r\0>\0";  // <r>é</r>
    ASSERT_TRUE(document.LoadBytes(std::string(kUtf16, sizeof kUtf16 - 1)));
    EXPECT_EQ(document.DocumentElement().Text(), "\xC3\xA9");
    ASSERT_TRUE(document.LoadBytes("<?xml version='1.0' encoding='ISO-8859-15'?><r>\xA4</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "\xE2\x82\xAC");
}

TEST(XmlParseError, LinePositionSourceTextAndReason) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadBytes("<?xml version=\"1.0\"?>\r\n<r>\r\n  <a>caf\xE9</b>\r\n</r>"));
    ASSERT_TRUE(document.ParseError());
    const XmlParseError& error = *document.ParseError();
    EXPECT_EQ(error.line, 3);
    EXPECT_EQ(error.linePosition, 14);  // characters, not bytes
    EXPECT_EQ(error.sourceText, "  <a>caf\xC3\xA9</b>");
    EXPECT_EQ(error.reason, "Opening and ending tag mismatch: a line 3 and b");
    EXPECT_EQ(FormatParseErrorStatus("/data/Tessarin.xml", error),
              "Parsing error: /data/Tessarin.xml, line:3, pos:14 <a>caf\xC3\xA9</b> "
              "Opening and ending tag mismatch: a line 3 and b");
}

TEST(XmlParseError, TheFirstErrorIsKept) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadBytes("<r>\n<a x='1' x='2'>&nbsp;</a>\n<b></c></r>"));
    ASSERT_TRUE(document.ParseError());
    EXPECT_EQ(document.ParseError()->line, 2);
    EXPECT_EQ(document.ParseError()->reason, "Attribute x redefined");
}

TEST(XmlParseError, UndefinedEntityAndEmptyDocument) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadBytes("<r>a&nbsp;b</r>"));
    EXPECT_EQ(document.ParseError()->reason, "Entity 'nbsp' not defined");
    EXPECT_EQ(document.ParseError()->line, 1);
    EXPECT_FALSE(document.LoadBytes(""));
    EXPECT_EQ(document.ParseError()->reason, "Document is empty");
    EXPECT_FALSE(document.LoadBytes("   \r\n"));
    EXPECT_FALSE(document.ParseError()->reason.empty());
}

TEST(XmlParseError, StatusTrimsTheSourceText) {
    const XmlParseError error{12, 4, "\t  <p>x  \r\n", "reason"};
    EXPECT_EQ(FormatParseErrorStatus("a.xml", error),
              "Parsing error: a.xml, line:12, pos:4 <p>x reason");
    EXPECT_EQ(FormatParseErrorStatus("b.xml", XmlParseError{0, 0, "", "cannot read file"}),
              "Parsing error: b.xml, line:0, pos:0  cannot read file");
}

TEST(XmlHostileInput, TruncatedAndBinaryBytesGiveErrors) {
    XmlDocument document;
    const std::string_view truncated = "<?xml version=\"1.0\"?>\n<r a=\"1\"><b>text</b><c";
    for (std::size_t length = 0; length < truncated.size(); ++length) {
        EXPECT_FALSE(document.LoadBytes(truncated.substr(0, length))) << length;
        EXPECT_TRUE(document.ParseError()) << length;
    }
    std::string garbage;
    unsigned state = 12345;
    for (int index = 0; index < 100000; ++index) {
        state = state * 1103515245 + 12345;
        garbage.push_back(static_cast<char>(state >> 16));
    }
    EXPECT_FALSE(document.LoadBytes(garbage));
    EXPECT_FALSE(document.LoadBytes("<r>" + garbage + "</r>"));
    EXPECT_FALSE(document.LoadBytes(std::string("<r>\0</r>", 8)));
}

TEST(XmlHostileInput, DeepNestingIsRefused) {
    std::string deep;
    for (int level = 0; level < 10000; ++level)
        deep += "<a>";
    for (int level = 0; level < 10000; ++level)
        deep += "</a>";
    XmlDocument document;
    EXPECT_FALSE(document.LoadBytes(deep));
    ASSERT_TRUE(document.ParseError());
    EXPECT_NE(document.ParseError()->reason.find("depth"), std::string::npos);
}

TEST(XmlHostileInput, LargeAttributeIsRead) {
    const std::string value(1 << 20, 'v');
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes("<r a='" + value + "'/>"));
    EXPECT_EQ(document.DocumentElement().Attribute("a").size(), value.size());
}

std::string BillionLaughs(std::string_view use) {
    std::string text = "<?xml version=\"1.0\"?>\n<!DOCTYPE lolz [<!ENTITY lol \"lol\">";
    for (int level = 1; level <= 9; ++level) {
        text += "<!ENTITY lol" + std::to_string(level) + " \"";
        const std::string previous =
            level == 1 ? "&lol;" : "&lol" + std::to_string(level - 1) + ";";
        for (int copy = 0; copy < 10; ++copy)
            text += previous;
        text += "\">";
    }
    return text + "]>\n" + std::string(use);
}

TEST(XmlHostileInput, EntityExpansionIsRefused) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadBytes(BillionLaughs("<lolz>&lol9;</lolz>")));
    EXPECT_TRUE(document.ParseError());
    EXPECT_FALSE(document.LoadBytes(BillionLaughs("<lolz a=\"&lol9;\"/>")));
    EXPECT_TRUE(document.ParseError());
}

TEST(XmlHostileInput, ExternalEntitiesAreNeverLoaded) {
    TempDir dir;
    const std::string uri = "file://" + dir.Write("secret.txt", "secret-content").string();
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes("<!DOCTYPE r [<!ENTITY ext SYSTEM \"" + uri +
                                   "\">]><r a='x'>before&ext;after</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "beforeafter");
    EXPECT_EQ(document.DocumentElement().Xml(), "<r a=\"x\">beforeafter</r>");
    ASSERT_TRUE(
        document.LoadBytes("<!DOCTYPE r [<!ENTITY % ext SYSTEM \"" + uri + "\">%ext;]><r>x</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "x");
    ASSERT_TRUE(document.LoadBytes("<!DOCTYPE r SYSTEM \"" + uri + "\"><r>x</r>"));
    EXPECT_EQ(document.DocumentElement().Text(), "x");
    EXPECT_FALSE(document.LoadBytes("<r a='&ext;'/>"));
}

}  // namespace
}  // namespace tessarin
