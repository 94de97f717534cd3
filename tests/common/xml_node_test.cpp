#include <gtest/gtest.h>

#include "common/xml_document.h"

namespace tessarin {
namespace {

XmlNode Root(XmlDocument& document, std::string_view bytes) {
    EXPECT_TRUE(document.LoadBytes(bytes)) << bytes;
    return document.DocumentElement();
}

std::string IdsOf(const std::vector<XmlNode>& nodes) {
    std::string ids;
    for (const XmlNode& node : nodes)
        ids += (ids.empty() ? "" : " ") + node.Attribute("id");
    return ids;
}

TEST(XmlNodeSelect, PathsInDocumentOrder) {
    XmlDocument document;
    const XmlNode root =
        Root(document,
             "<Root><Users id='u'><User id='1'/><Other id='x'/><User id='2'><User id='2.1'/></User>"
             "</Users><Users id='v'><User id='3'/></Users><Topic id='t1'><note id='n1'/><b><note "
             "id='n2'><note id='n3'/></note></b></Topic><note id='n4'/></Root>");
    const std::pair<const char*, const char*> rows[] = {
        {"Users", "u v"},
        {"Users/User", "1 2 3"},
        {"Users/User/User", "2.1"},
        {"./Topic", "t1"},
        {"Users/./User", "1 2 3"},
        {"Users/*", "1 x 2 3"},
        {"*", "u v t1 n4"},
        {"//note", "n1 n2 n3 n4"},
        {".//User", "1 2 2.1 3"},
        {"Topic//note", "n1 n2 n3"},
        {"//User/User", "2.1"},
        {"//b/note", "n2"},
        {"//Root", ""},  // descendants only, not the node itself
        {"users", ""},   // names are case-sensitive
        {"", ""},
    };
    for (const auto& [path, ids] : rows)
        EXPECT_EQ(IdsOf(root.SelectNodes(path)), ids) << path;
    EXPECT_EQ(root.SelectSingleNode("Topic").SelectSingleNode("//note").Attribute("id"), "n1");
    EXPECT_EQ(root.SelectSingleNode(".").Name(), "Root");

    const XmlNode missing = root.SelectSingleNode("Nothing/Here");
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.Name() + missing.Attribute("id") + missing.Text() + missing.Xml(), "");
    EXPECT_FALSE(missing.HasAttribute("id"));
    EXPECT_FALSE(missing.SelectSingleNode("a"));
    EXPECT_TRUE(missing.SelectNodes("//a").empty() && missing.ChildElements().empty());
    EXPECT_EQ(XmlDocument().DocumentElement(), XmlNode());
}

TEST(XmlNode, AttributesTextAndChildElements) {
    XmlDocument document;
    XmlNode root = Root(document,
                        "<r a='1' b=\"x &amp; &lt;y&gt; &quot;q&quot; &#233;\" empty=''"
                        " xmlns:p='urn:p' p:c='pc'/>");
    EXPECT_EQ(root.Attribute("b"), "x & <y> \"q\" \xC3\xA9");
    EXPECT_TRUE(root.HasAttribute("empty"));
    EXPECT_EQ(root.Attribute("p:c"), "pc");
    EXPECT_FALSE(root.HasAttribute("c"));
    EXPECT_FALSE(root.HasAttribute("A"));
    root.RemoveAllAttributes();
    EXPECT_EQ(root.Xml(), "<r xmlns:p=\"urn:p\"/>");

    root = Root(document,
                "<r>\r\n  <a>one <b>two</b>\tthree</a><!-- no --><?pi no?><![CDATA[<four>]]>"
                "&amp;&#160;<c/></r>");
    EXPECT_EQ(root.Text(), "\n  one two\tthree<four>&\xC2\xA0");
    std::string names;
    for (const XmlNode& child : root.ChildElements())
        names += child.Name();
    EXPECT_EQ(names, "ac");
    EXPECT_TRUE(root.HasChildElements());
    EXPECT_FALSE(root.SelectSingleNode("a/b").HasChildElements());
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

TEST(XmlNodeXml, OtherNodeKindsWhiteSpaceReferencesAndInternalEntities) {
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
    const XmlNode reread = Root(again, root.Xml());
    EXPECT_EQ(reread.Text(), "a\r\nb<c>\n");
    EXPECT_EQ(reread.Attribute("a"), "x\ty\nz\r");

    const XmlNode entities = Root(document,
                                  "<!DOCTYPE r [<!ENTITY e 'x<b>&amp;y</b>'><!ENTITY f '[&e;]'>"
                                  "<!ENTITY g 'G'>]><r a='1&g;'>t&f;</r>");
    EXPECT_EQ(entities.Text(), "t[x&y]");
    EXPECT_EQ(entities.Attribute("a"), "1G");
    EXPECT_EQ(entities.Xml(), "<r a=\"1G\">t[x<b>&amp;y</b>]</r>");
}

}  // namespace
}  // namespace tessarin
