#include <gtest/gtest.h>

#include "common/xml_document.h"

namespace tessarin {
namespace {

XmlNode Root(XmlDocument& document, std::string_view bytes) {
    EXPECT_TRUE(document.LoadBytes(bytes)) << bytes;
    return document.DocumentElement();
}

std::vector<std::string> IdsOf(const std::vector<XmlNode>& nodes) {
    std::vector<std::string> ids;
    for (const XmlNode& node : nodes)
        ids.push_back(node.Attribute("id"));
    return ids;
}

using Ids = std::vector<std::string>;

constexpr std::string_view kTree =
    "<Root>"
    "<Users id='u'><User id='1'/><Other id='x'/><User id='2'><User id='2.1'/></User></Users>"
    "<Users id='v'><User id='3'/></Users>"
    "<Topic id='t1'><note id='n1'/><b><note id='n2'><note id='n3'/></note></b></Topic>"
    "<note id='n4'/>"
    "</Root>";

TEST(XmlNodeSelect, ChildPaths) {
    XmlDocument document;
    const XmlNode root = Root(document, kTree);
    EXPECT_EQ(root.SelectSingleNode("Users").Attribute("id"), "u");
    EXPECT_EQ(IdsOf(root.SelectNodes("Users")), (Ids{"u", "v"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("Users/User")), (Ids{"1", "2", "3"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("Users/User/User")), (Ids{"2.1"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("./Topic")), (Ids{"t1"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("Users/./User")), (Ids{"1", "2", "3"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("Users/*")), (Ids{"1", "x", "2", "3"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("*")), (Ids{"u", "v", "t1", "n4"}));
    EXPECT_EQ(root.SelectSingleNode(".").Name(), "Root");
}

TEST(XmlNodeSelect, AnyDepthInDocumentOrder) {
    XmlDocument document;
    const XmlNode root = Root(document, kTree);
    EXPECT_EQ(IdsOf(root.SelectNodes("//note")), (Ids{"n1", "n2", "n3", "n4"}));
    EXPECT_EQ(IdsOf(root.SelectNodes(".//User")), (Ids{"1", "2", "2.1", "3"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("Topic//note")), (Ids{"n1", "n2", "n3"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("//User/User")), (Ids{"2.1"}));
    EXPECT_EQ(IdsOf(root.SelectNodes("//b/note")), (Ids{"n2"}));
    EXPECT_EQ(root.SelectSingleNode("Topic").SelectSingleNode("//note").Attribute("id"), "n1");
    EXPECT_TRUE(root.SelectNodes("//Root").empty());  // descendants only, not the node itself
}

TEST(XmlNodeSelect, MissingGivesMissingNodesThatReadEmpty) {
    XmlDocument document;
    const XmlNode root = Root(document, kTree);
    const XmlNode missing = root.SelectSingleNode("Nothing/Here");
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.Name(), "");
    EXPECT_EQ(missing.Attribute("id"), "");
    EXPECT_FALSE(missing.HasAttribute("id"));
    EXPECT_EQ(missing.Text(), "");
    EXPECT_EQ(missing.Xml(), "");
    EXPECT_FALSE(missing.SelectSingleNode("a"));
    EXPECT_TRUE(missing.SelectNodes("//a").empty());
    EXPECT_TRUE(missing.ChildElements().empty());
    EXPECT_TRUE(root.SelectNodes("").empty());
    EXPECT_TRUE(root.SelectNodes("users").empty());  // names are case-sensitive
    EXPECT_EQ(XmlDocument().DocumentElement(), XmlNode());
}

TEST(XmlNode, AttributesReadAndRemove) {
    XmlDocument document;
    XmlNode root = Root(document,
                        "<r a='1' b=\"x &amp; &lt;y&gt; &quot;q&quot; &#233;\" empty=''"
                        " xmlns:p='urn:p' p:c='pc'/>");
    EXPECT_EQ(root.Attribute("a"), "1");
    EXPECT_EQ(root.Attribute("b"), "x & <y> \"q\" \xC3\xA9");
    EXPECT_TRUE(root.HasAttribute("empty"));
    EXPECT_EQ(root.Attribute("empty"), "");
    EXPECT_EQ(root.Attribute("p:c"), "pc");
    EXPECT_FALSE(root.HasAttribute("c"));
    EXPECT_FALSE(root.HasAttribute("A"));
    root.RemoveAttribute("a");
    root.RemoveAttribute("nothing");
    EXPECT_FALSE(root.HasAttribute("a"));
    EXPECT_TRUE(root.HasAttribute("b"));
    root.RemoveAllAttributes();
    EXPECT_EQ(root.Xml(), "<r xmlns:p=\"urn:p\"/>");
}

TEST(XmlNode, TextOfNestedElementsKeepsWhiteSpace) {
    XmlDocument document;
    const XmlNode root =
        Root(document,
             "<r>\r\n  <a>one <b>two</b>\tthree</a><!-- no --><?pi no?><![CDATA[<four>]]>"
             "&amp;&#160;</r>");
    EXPECT_EQ(root.Text(), "\n  one two\tthree<four>&\xC2\xA0");
    EXPECT_EQ(root.SelectSingleNode("a").Text(), "one two\tthree");
}

TEST(XmlNode, ChildElementsInOrder) {
    XmlDocument document;
    const XmlNode root = Root(document, "<r> <a/>text<b><c/></b><!--x--><a/> </r>");
    std::vector<std::string> names;
    for (const XmlNode& child : root.ChildElements())
        names.push_back(child.Name());
    EXPECT_EQ(names, (std::vector<std::string>{"a", "b", "a"}));
    EXPECT_TRUE(root.HasChildElements());
    EXPECT_FALSE(root.SelectSingleNode("a").HasChildElements());
}

TEST(XmlNodeXml, SerialisesAsTheStoryFileHoldsIt) {
    XmlDocument document;
    const XmlNode root = Root(document,
                              "<Story><TextBox6 font='a&amp;b' q='&quot;&lt;&gt;'>One &amp; "
                              "&lt;two&gt;<p/>\r\n<b>caf\xC3\xA9</b>&#160;<p></p>\nend</TextBox6>"
                              "</Story>");
    EXPECT_EQ(root.SelectSingleNode("TextBox6").Xml(),
              "<TextBox6 font=\"a&amp;b\" q=\"&quot;&lt;>\">One &amp; &lt;two&gt;<p/>\r\n"
              "<b>caf\xC3\xA9</b>\xC2\xA0<p/>\r\nend</TextBox6>");
}

TEST(XmlNodeXml, OtherNodeKindsAndWhiteSpaceReferences) {
    XmlDocument document;
    const XmlNode root = Root(document,
                              "<p:r xmlns:p='urn:p' xmlns='urn:d' a='x&#9;y&#10;z&#13;'>"
                              "a&#13;&#10;b<![CDATA[<c>\n]]><!-- d\n --><?e f?><?g?></p:r>");
    EXPECT_EQ(root.Name(), "p:r");
    EXPECT_EQ(root.Attribute("a"), "x\ty\nz\r");
    EXPECT_EQ(root.Xml(),
              "<p:r xmlns:p=\"urn:p\" xmlns=\"urn:d\" a=\"x&#9;y&#10;z&#13;\">a&#13;\r\nb"
              "<![CDATA[<c>\r\n]]><!-- d\r\n --><?e f?><?g?></p:r>");
    XmlDocument again;
    ASSERT_TRUE(again.LoadBytes(root.Xml()));
    EXPECT_EQ(again.DocumentElement().Text(), "a\r\nb<c>\n");
    EXPECT_EQ(again.DocumentElement().Attribute("a"), "x\ty\nz\r");
}

TEST(XmlNode, InternalEntitiesReadAsTheirReplacementText) {
    XmlDocument document;
    const XmlNode root = Root(document,
                              "<!DOCTYPE r [<!ENTITY e 'x<b>&amp;y</b>'><!ENTITY f '[&e;]'>"
                              "<!ENTITY g 'G'>]>"
                              "<r a='1&g;'>t&f;</r>");
    EXPECT_EQ(root.Text(), "t[x&y]");
    EXPECT_EQ(root.Attribute("a"), "1G");
    EXPECT_EQ(root.Xml(), "<r a=\"1G\">t[x<b>&amp;y</b>]</r>");
}

}  // namespace
}  // namespace tessarin
