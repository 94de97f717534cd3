#include "common/xml_document.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::TempDir;

TEST(XmlDocument, LoadsAFileAndEachLoadReplacesTheFormerDocument) {
    TempDir dir;
    XmlDocument document;
    ASSERT_TRUE(document.LoadFile(dir.Write("Tessarin.xml", "<?xml version=\"1.0\"?>\r\n<Root/>")));
    EXPECT_EQ(document.DocumentElement().Name(), "Root");
    EXPECT_FALSE(document.LoadFile(dir / "missing.xml"));
    ASSERT_TRUE(document.ParseError());
    EXPECT_EQ(document.ParseError()->line, 0);
    EXPECT_EQ(document.ParseError()->reason, "cannot read file");
    EXPECT_FALSE(document.DocumentElement());
    EXPECT_FALSE(document.LoadFile(dir.path()));
    ASSERT_TRUE(document.LoadBytes("<b/>"));
    EXPECT_FALSE(document.ParseError());
    XmlDocument moved = std::move(document);
    EXPECT_EQ(moved.DocumentElement().Name(), "b");
}

TEST(XmlDocumentEncoding, Windows1252WhenDeclaredUtf8RepairedOrLeftToTheParser) {
    const std::pair<std::string, std::string> rows[] = {
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<r>\x80 caf\xE9 \x81\x9C</r>",
         "\xE2\x82\xAC caf\xC3\xA9 \xC2\x81\xC5\x93"},
        {"\xEF\xBB\xBF<?xml version='1.0' encoding='latin1'?><r>\xE9</r>", "\xC3\xA9"},
        {"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<r>caf\xC3\xA9 \xE9 "
         "\xED\xA0\xBD\xED\xB8\x80</r>",
         "caf\xC3\xA9 \xC3\xA9 \xF0\x9F\x98\x80"},
        {"<r>\x80</r>", "\xE2\x82\xAC"},
        {"\xEF\xBB\xBF<r>\xC3\xA9</r>", "\xC3\xA9"},
        {std::string("\xFF\xFE<\0r\0>\0\xE9\0<\0/\0r\0>\0", 18), "\xC3\xA9"},  // UTF-16
        {"<?xml version='1.0' encoding='ISO-8859-15'?><r>\xA4</r>", "\xE2\x82\xAC"},
    };
    XmlDocument document;
    for (const auto& [bytes, text] : rows) {
        ASSERT_TRUE(document.LoadBytes(bytes)) << bytes;
        EXPECT_EQ(document.DocumentElement().Text(), text) << bytes;
    }
    ASSERT_TRUE(document.LoadBytes("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r a='\x80'/>"));
    EXPECT_EQ(document.DocumentElement().Attribute("a"), "\xE2\x82\xAC");
}

TEST(XmlParseError, TheFirstErrorWithLinePositionSourceTextAndReason) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadBytes("<?xml version=\"1.0\"?>\r\n<r>\r\n  <a>caf\xE9</b>\r\n</r>"));
    ASSERT_TRUE(document.ParseError());
    const XmlParseError& error = *document.ParseError();
    EXPECT_EQ(error.line, 3);
    EXPECT_EQ(error.linePosition, 14);  // characters, not bytes
    EXPECT_EQ(error.sourceText, "  <a>caf\xC3\xA9</b>");
    EXPECT_EQ(FormatParseErrorStatus("/data/Tessarin.xml", error),
              "Parsing error: /data/Tessarin.xml, line:3, pos:14 <a>caf\xC3\xA9</b> "
              "Opening and ending tag mismatch: a line 3 and b");
    EXPECT_EQ(FormatParseErrorStatus("a.xml", XmlParseError{12, 4, "\t  <p>x  \r\n", "reason"}),
              "Parsing error: a.xml, line:12, pos:4 <p>x reason");

    const std::pair<const char*, const char*> rows[] = {
        {"<r>\n<a x='1' x='2'>&nbsp;</a>\n<b></c></r>", "Attribute x redefined"},
        {"", "Document is empty"},
    };
    for (const auto& [bytes, reason] : rows) {
        EXPECT_FALSE(document.LoadBytes(bytes)) << bytes;
        ASSERT_TRUE(document.ParseError()) << bytes;
        EXPECT_EQ(document.ParseError()->reason, reason) << bytes;
    }
}

TEST(XmlHostileInput, TruncatedBinaryTooDeepAndEntityDocumentsAreRefusedOrContained) {
    XmlDocument document;
    const std::string_view truncated = "<?xml version=\"1.0\"?>\n<r a=\"1\"><b>text</b><c";
    for (std::size_t length = 0; length < truncated.size(); ++length) {
        EXPECT_FALSE(document.LoadBytes(truncated.substr(0, length))) << length;
        EXPECT_TRUE(document.ParseError()) << length;
    }
    std::string garbage;
    for (unsigned index = 0; index < 100000; ++index)
        garbage.push_back(static_cast<char>(index * 2654435761u >> 13));
    EXPECT_FALSE(document.LoadBytes(garbage));
    EXPECT_FALSE(document.LoadBytes("<r>" + garbage + "</r>"));
    EXPECT_FALSE(document.LoadBytes(std::string("<r>\0</r>", 8)));

    std::string deep;
    for (int level = 0; level < 10000; ++level)
        deep += "<a>";
    EXPECT_FALSE(document.LoadBytes(deep));
    ASSERT_TRUE(document.ParseError());
    EXPECT_NE(document.ParseError()->reason.find("depth"), std::string::npos);

    const std::string value(1 << 20, 'v');  // a large value is no attack
    ASSERT_TRUE(document.LoadBytes("<r a='" + value + "'/>"));
    EXPECT_EQ(document.DocumentElement().Attribute("a").size(), value.size());

    // Entity expansion is refused and external entities are never loaded.
    std::string laughs = "<!DOCTYPE lolz [<!ENTITY lol0 \"lol\">";
    for (int level = 1; level <= 9; ++level) {
        laughs += "<!ENTITY lol" + std::to_string(level) + " \"";
        for (int copy = 0; copy < 10; ++copy)
            laughs += "&lol" + std::to_string(level - 1) + ";";
        laughs += "\">";
    }
    EXPECT_FALSE(document.LoadBytes(laughs + "]><lolz>&lol9;</lolz>"));
    EXPECT_TRUE(document.ParseError());
    EXPECT_FALSE(document.LoadBytes(laughs + "]><lolz a=\"&lol9;\"/>"));

    TempDir dir;
    const std::string uri = "file://" + dir.Write("secret.txt", "secret-content").string();
    ASSERT_TRUE(document.LoadBytes("<!DOCTYPE r [<!ENTITY ext SYSTEM \"" + uri +
                                   "\">]><r a='x'>before&ext;after</r>"));
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
