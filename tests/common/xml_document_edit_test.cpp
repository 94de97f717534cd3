#include <gtest/gtest.h>

#include <string>

#include "common/xml_document.h"
#include "support/replace_once.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

// A story file as the program writes it, in ISO-8859-1 mode: Windows-1252 bytes ("é" is
// E9, the euro sign 80, the curly apostrophe 92), CR LF after each line, the five entities
// in values, "&#160;" in the text.
constexpr std::string_view kLatinStory =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- Cr\xE8me __ br\xFBl\xE9"
    "e.xml -->\r\n"
    "<?xml-stylesheet type=\"text/xsl\" href = \"C:\\XSLT\\story.xsl\"?>\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"3.2.1\">\r\n<Metadata>\r\n"
    "<Author Name=\"Auteur l&apos;\xE9quipe\">Ana &amp; \xC9lise</Author>\r\n"
    "<LastSaveDate Name=\"Saved\">02/03/2024</LastSaveDate><LastSaveTime>10:05</LastSaveTime>\r\n"
    "<LastSaveAuthor>Ana</LastSaveAuthor>\r\n"
    "<Status Name=\"Status\" FormalItem=\"ok\">Pr\xEAt &quot;final&quot; &lt;1&gt;</Status>\r\n"
    "</Metadata>\r\n<Logs>\r\n<Log Type=\"L\">02/03/2024 10:05 - Ana -&gt; Layout</Log>\r\n"
    "</Logs>\r\n<Body>\r\n"
    "<TextBox6 CharCount=\"12\" WordCount=\"3\" Name=\"Text\">Co\xFBt 5&#160;\x80<p/>\r\n"
    "l\x92\xE9t\xE9 <b>chaud</b><note>to check</note></TextBox6>\r\n"
    "<Signature Type=\"I\">A.</Signature></Body>\r\n<Images>\r\n<ImageBag>\r\n"
    "<Image href=\"file:///C:\\Photos\\a b.jpg\"/>\r\n<Caption>Vue</Caption>\r\n</ImageBag>\r\n"
    "</Images>\r\n</Story>\r\n";

// The same kind of file in UTF-8 mode: "é" is C3 A9, and the character U+1F600 is written
// as the two three-byte surrogate groups ED A0 BD and ED B8 80.
constexpr std::string_view kUtf8Story =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<!-- \xC3\xA9t\xC3\xA9.xml -->\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"3.2.1\">\r\n<Metadata>\r\n"
    "<Author Name=\"Auteur\">\xC3\x89lise</Author>\r\n</Metadata>\r\n<Body>\r\n"
    "<TextBox0 CharCount=\"3\" WordCount=\"1\" Name=\"Title\">\xC3\xA9t\xC3\xA9 "
    "\xED\xA0\xBD\xED\xB8\x80&#160;&apos;</TextBox0>\r\n</Body>\r\n</Story>\r\n";

std::string Saved(std::string_view bytes) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(bytes));
    return document.SaveBytes();
}

// SaveFile writes the bytes over the file, or nothing without a document.
TEST(XmlDocumentSave, AnUnchangedDocumentKeepsItsBytesInMemoryAndOnDisk) {
    const std::string utf8 =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>\xF0\x9F\x98\x80 \xC3\xA9</a>\r\n";
    for (const std::string& bytes : {std::string(kUtf8Story), utf8, "\xEF\xBB\xBF" + utf8})
        EXPECT_EQ(Saved(bytes), bytes);

    testing::TempDir folder;
    const auto file = folder.Write("story.xml", "old");
    XmlDocument document;
    EXPECT_FALSE(document.SaveFile(file));
    EXPECT_FALSE(document.LoadBytes("<a>"));
    EXPECT_EQ(document.SaveBytes(), "");
    ASSERT_TRUE(document.LoadBytes(kLatinStory));
    ASSERT_TRUE(document.SaveFile(file));
    EXPECT_EQ(testing::ReadBytes(file), kLatinStory);
}

TEST(XmlDocumentSave, TheFormOfTheFileIsRestored) {
    // Top-level lines end in CR LF; the declaration stays as written.
    EXPECT_EQ(
        Saved("<?xml version='1.0'  encoding='iso-8859-1'?><!--c--><a x='1'>\n</a>"),
        "<?xml version='1.0'  encoding='iso-8859-1'?>\r\n<!--c-->\r\n<a x=\"1\">\r\n</a>\r\n");
    EXPECT_EQ(Saved("<a/>"), "<a/>\r\n");
    // Another encoding is written as UTF-8 under a UTF-8 declaration.
    EXPECT_EQ(Saved(std::string("\xFF\xFE<\0a\0/\0>\0", 10)),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a/>\r\n");
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!-- \xE9 --><a n=\"\xE9\"/>"));
    XmlNode root = document.DocumentElement();
    root.SetText("\xCE\xA9 \xE2\x82\xAC");     // Greek omega, euro sign
    root.SetAttribute("n", "\xE2\x80\x94 x");  // an em dash exists in the code page
    root.AppendElement("c");
    EXPECT_EQ(document.SaveBytes(),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!-- \xE9 -->\r\n"
              "<a n=\"\x97 x\">&#937; \x80<c/></a>\r\n");
}

TEST(XmlNodeEdit, RemoveAppendAndSetGiveTheStoryFileForm) {
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes(kLatinStory));
    XmlNode root = document.DocumentElement();
    XmlNode metadata = root.SelectSingleNode("Metadata");
    metadata.SelectSingleNode("LastSaveDate").Remove();
    metadata.SelectSingleNode("LastSaveAuthor").Remove();
    XmlNode date = metadata.AppendElement("LastSaveDate");
    date.SetAttribute("Name", "Saved 'last'");
    date.SetText("05/06/2024 11:30");
    metadata.AppendElement("LastSaveAuthor").SetText("Bo & \"Cy\"");
    root.FindOrAppendElement("Logs").AppendElement("Log").SetAttribute("Type", "W");
    root.SelectSingleNode("Body//note").Remove();
    root.SelectSingleNode("Images").Remove();

    // The removed elements leave their line ends; what is appended goes before the end tag.
    std::string expected(kLatinStory);
    for (const auto& [from, to] :
         {std::pair<std::string_view, std::string_view>{
              "<LastSaveDate Name=\"Saved\">02/03/2024</LastSaveDate>", ""},
          {"<LastSaveAuthor>Ana</LastSaveAuthor>", ""},
          {"</Metadata>",
           "<LastSaveDate Name=\"Saved &apos;last&apos;\">05/06/2024 "
           "11:30</LastSaveDate><LastSaveAuthor>Bo &amp; "
           "&quot;Cy&quot;</LastSaveAuthor></Metadata>"},
          {"</Log>\r\n</Logs>", "</Log>\r\n<Log Type=\"W\"/></Logs>"},
          {"<note>to check</note>", ""}}) {
        testing::ReplaceOnce(expected, from, to);
    }
    const std::size_t images = expected.find("<Images>");
    expected.erase(images, expected.find("</Images>") + 9 - images);
    EXPECT_EQ(document.SaveBytes(), expected);
}

// FindOrAppendElement finds the first child of the name or appends one; SetText replaces the
// content and keeps only what a document can hold.
TEST(XmlNodeEdit, FindOrAppendAndSetTextOnAShortDocument) {
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes("<r><Logs id='1'/><Logs id='2'/><a>x<b/>y</a></r>"));
    XmlNode root = document.DocumentElement();
    EXPECT_EQ(root.FindOrAppendElement("Logs").Attribute("id"), "1");
    root.FindOrAppendElement("Notes").SetAttribute("id", "4");
    EXPECT_EQ(root.Xml(), "<r><Logs id=\"1\"/><Logs id=\"2\"/><a>x<b/>y</a><Notes id=\"4\"/></r>");

    XmlNode a = root.SelectSingleNode("a");
    a.SetText(
        "1\x01"
        "2\t\xE9");  // a control character and a stray Windows-1252 byte
    EXPECT_EQ(a.Xml(), "<a>12\t\xC3\xA9</a>");
    a.SetAttribute("v", std::string("p\0q", 3));
    EXPECT_EQ(a.Attribute("v"), "pq");
    a.SetText("");
    EXPECT_EQ(a.Xml(), "<a v=\"pq\"/>");
}

TEST(XmlNodeEdit, RemovingNestedElementsFromTheLastOneIsSafeAndTheRootStays) {
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes("<r><note><note/></note>t<note/></r>"));
    XmlNode root = document.DocumentElement();
    std::vector<XmlNode> notes = root.SelectNodes("//note");
    ASSERT_EQ(notes.size(), 3u);
    for (auto note = notes.rbegin(); note != notes.rend(); ++note) {
        note->Remove();
        EXPECT_FALSE(*note);
    }
    EXPECT_EQ(root.Xml(), "<r>t</r>");
    root.Remove();
    EXPECT_TRUE(root);
    EXPECT_EQ(document.DocumentElement().Name(), "r");
    XmlNode missing;
    missing.Remove();
    EXPECT_FALSE(missing.AppendElement("x"));
    EXPECT_FALSE(missing.FindOrAppendElement("x"));
}

}  // namespace
}  // namespace tessarin
