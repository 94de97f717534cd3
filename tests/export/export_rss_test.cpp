#include <gtest/gtest.h>

#include <string>

#include "common/scoped_environment.h"
#include "export/export_rss.h"
#include "export/export_test_support.h"

namespace tessarin {
namespace {

using testing::CrLf;
using testing::ParseStory;
using testing::ScopedEnvironment;
using testing::WriterSetup;

// A feed with this channel content.
std::string Feed(std::string_view channel) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<rss "
           "version=\"2.0\">\r\n<channel>\r\n" +
           std::string(channel) + "\r\n</channel>\r\n</rss>";
}

class RssWriter : public ::testing::Test {
  protected:
    RssWriter() {
        RssExportSettings& rss = setup_.configuration.exportFormats.RSS;
        rss.ChannelTitle = "Herald feed";
        rss.ChannelLink = "http://herald.example/";
        rss.ChannelDescription = "News";
        rss.ChannelLanguage = "en";
        rss.ChannelTTL = "60";
        rss.ChannelImageURL = "http://herald.example/logo.png";
    }

    std::string Compose(std::string_view storyBytes) {
        ExportContext context = setup_.Context();
        context.programVersion = "1.2.3";
        return ComposeRss(ParseStory(storyBytes), context);
    }

    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    WriterSetup setup_;
};

TEST_F(RssWriter, ChannelHeadTitleIntertitleItemsAuthorAndLink) {
    const std::string story = CrLf(
        "<Story>\n<Metadata>\n<Email Name=\"E-mail\">jane@herald.example</Email>\n"
        "<Publication Name=\"P\">Herald</Publication>\n"
        "<PublicationDate Name=\"D\">12/03/2024</PublicationDate>\n</Metadata>\n<Body>\n"
        "<TextBox0 CharCount=\"8\" WordCount=\"2\" Name=\"Title\">Big <b>fire</b></TextBox0>\n"
        "<TextBox1 CharCount=\"11\" WordCount=\"3\" Name=\"Lead\">"
        "At the mill<note>x</note></TextBox1>\n"
        "<TextBox6 CharCount=\"40\" WordCount=\"9\" Name=\"Text\">It burned.<p/>\n"
        "<inter1>Damage</inter1><p/>\nCosts &amp; more at http://herald.example/fire</TextBox6>\n"
        "</Body>\n</Story>\n");
    EXPECT_EQ(Compose(story),
              Feed("<title>Herald feed</title>\r\n<link>http://herald.example/</link>\r\n"
                   "<description>News</description>\r\n<language>en</language>\r\n<ttl>60</ttl>\r\n"
                   "<image><url>http://herald.example/logo.png</url>\r\n"
                   "<title>Herald feed</title>\r\n<link>http://herald.example/</link></image>\r\n"
                   "<copyright>Copyright 2024, Herald</copyright>\r\n"
                   "<pubDate>Tue, 12 Mar 2024 00:00:01 UT</pubDate>\r\n"
                   "<lastBuildDate>Tue, 05 Mar 2024 09:07:30 UT</lastBuildDate>\r\n"
                   "<generator>Tessarin 1.2.3</generator>\r\n"
                   "<item><title>Big &lt;b&gt;fire&lt;/b&gt;\r\nAt the mill</title>\r\n"
                   "<author>jane@herald.example</author><description>It burned.&lt;p/&gt;\r\n"
                   "</description></item><item><title>Damage</title>"
                   "<author>jane@herald.example</author><description>&lt;p/&gt;\r\n"
                   "Costs &amp; more at </description><link>http://herald.example/fire</link>"
                   "</item>"));
}

TEST_F(RssWriter, WithoutMetadataOrIntertitlesTheBodyIsOneItem) {
    const std::string feed = Compose(
        "<Story><Body><TextBox6>A<sup>2</sup> costs 5<euro/><tab/>now<p/><p/>Next "
        "<i>line</i><p/></TextBox6></Body></Story>");
    EXPECT_EQ(feed, Feed("<description>A2 costs 5&#128;\tnow&lt;p/&gt;Next &lt;i&gt;line&lt;/i&gt;"
                         "&lt;p/&gt;</description></item>"));
}

// Without channel settings but its title, written in the code page; a body without text
// gives the channel alone.
TEST_F(RssWriter, AnOpeningIntertitleStartsTheItemAndAUrlBeforeALaterItemIsMovedOut) {
    setup_.configuration.exportFormats.RSS = {};
    setup_.configuration.exportFormats.RSS.ChannelTitle = "Caf\xC3\xA9 \xE2\x82\xAC";
    const std::string channel =
        "<title>Caf\xE9 \x80</title>\r\n<link></link>\r\n<description></description>\r\n"
        "<lastBuildDate>Tue, 05 Mar 2024 09:07:30 UT</lastBuildDate>\r\n"
        "<generator>Tessarin 1.2.3</generator>";
    const std::string feed = Compose(
        "<Story><Metadata><PublicationDate>31/02/2024</PublicationDate></Metadata><Body>"
        "<TextBox0>Head</TextBox0>"
        "<TextBox6><inter2>Start</inter2>See http://a.example/x<p/><inter1>T</inter1>More"
        "</TextBox6></Body></Story>");
    EXPECT_EQ(feed, Feed(channel + "\r\n<item><title>Head</title>\r\n"
                                   "<item><title>Start</title><description>See </description>"
                                   "<link>http://a.example/x</link></item><item><title>T</title>"
                                   "<description>More</description></item>"));
    EXPECT_EQ(Compose("<Story><Metadata/><Body/></Story>"), Feed(channel));
}

}  // namespace
}  // namespace tessarin
