#include "news/news_item.h"

#include <gtest/gtest.h>

#include "news/news_item_text.h"
#include "news/news_samples.h"

namespace tessarin {
namespace {

using testing::NitfItem;
using testing::SampleItem;

// A wire item of nested components: the lines and the text one level down, the text an
// XHTML document with a head, the file in ISO-8859-1.
constexpr std::string_view kNestedLatin1 =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
    "<NewsML><NewsEnvelope><DateAndTime>20260308T174000</DateAndTime>"
    "<Priority FormalName=\"2\"/></NewsEnvelope>\n"
    "<NewsItem><Identification><NewsIdentifier><NewsItemId>MW-77</NewsItemId>"
    "<RevisionId>x</RevisionId></NewsIdentifier></Identification>\n"
    "<NewsManagement><Status FormalName=\"Embargoed\"/></NewsManagement>\n"
    "<NewsComponent><Role FormalName=\"Main\"/>\n"
    " <NewsComponent><NewsLines><HeadLine>Gr\xe8ve au port</HeadLine>"
    "<SlugLine>gr\xe8ve</SlugLine></NewsLines>\n"
    "  <ContentItem><MediaType FormalName=\"Text\"/><DataContent>"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\"><head><title>ignored</title></head><body>\n"
    "\t<p>Les dockers cessent le travail &#224; l'aube.</p>\n"
    "\t<p>Le pr\xe9"
    "fet <b>r\xe9unit</b> les parties.</p>\n"
    "  </body></html></DataContent></ContentItem>\n"
    " </NewsComponent>\n"
    " <NewsComponent><ContentItem Href=\"photo.jpg\"/></NewsComponent>\n"
    "</NewsComponent></NewsItem></NewsML>\n";

XmlDocument Loaded(std::string_view bytes) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(bytes)) << bytes;
    return document;
}

TEST(NewsItem, ReadsTheFieldsOfAnNitfItem) {
    SampleItem sample;
    sample.body =
        "<p>Ships &amp; ferries <org idsrc=\"ticker\" value=\"NRDL\">Nordlys "
        "Lines<alt-code idsrc=\"isin\" value=\"NO0001\"/></org> sail again.</p>"
        "<p/><p>Tolls &lt;5%&gt;.</p>";
    XmlDocument document = Loaded(NitfItem(sample));
    // The list's cells (date, headline, slug, subject, priority, revision, words) are the
    // news scan's test.
    const NewsEntry entry = ReadNewsEntry(document);
    EXPECT_EQ(entry.status, "Usable");
    EXPECT_EQ(entry.dateLine, "Tromsø");

    const NewsItemView view = ReadNewsItemView(document);
    EXPECT_EQ(view.id, "NRD-0042");
    EXPECT_EQ(view.location, "Country=NOR, City=Tromsø");
    EXPECT_EQ(view.organisations, (std::vector<std::string>{"ticker=NRDL", "isin=NO0001"}));
    EXPECT_EQ(view.text, "Ships & ferries  sail again.\r\n\r\nTolls <5%>.");
}

TEST(NewsItem, ReadsNestedComponentsWithAnXhtmlBodyInLatin1) {
    XmlDocument document = Loaded(kNestedLatin1);
    const NewsEntry entry = ReadNewsEntry(document);
    EXPECT_EQ(entry.headline, "Grève au port");
    EXPECT_EQ(entry.slug, "grève");
    EXPECT_EQ(entry.priority, 2);
    EXPECT_EQ(entry.revision, 0);
    EXPECT_EQ(entry.status, "Embargoed");
    EXPECT_EQ(entry.words, "");
    EXPECT_EQ(ReadNewsItemView(document).text,
              "Les dockers cessent le travail à l'aube.\r\nLe préfet réunit les parties.");
}

TEST(NewsItem, AHugeItemReadsWholeAndNumbersAndDatesReadAsShown) {
    SampleItem sample;
    sample.body.clear();
    for (int i = 0; i < 20000; ++i)
        sample.body += "<p>Paragraph " + std::to_string(i) + ".</p>";
    XmlDocument document = Loaded(NitfItem(sample));
    EXPECT_TRUE(ReadNewsItemView(document).text.ends_with(".\r\nParagraph 19999."));
    EXPECT_EQ(ShownNewsDate("20260307T091500", 0), "03/07/2026");
    EXPECT_EQ(ShownNewsDate("20260307", 2) + ShownNewsDate("2026", 1), "2026/03/07");
    EXPECT_EQ(ShownNewsTime("20260307T091500Z") + ShownNewsTime("20260307"), "09:15");
    EXPECT_EQ(NewsNumber("70000"), 32767);
}

}  // namespace
}  // namespace tessarin
