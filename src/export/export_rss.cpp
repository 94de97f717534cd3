#include "export/export_rss.h"

#include <array>

#include "common/date_format.h"
#include "common/windows1252.h"
#include "export/newsml_box_markup.h"
#include "metadata/date_text.h"

namespace tessarin {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::array<std::string_view, 7> kDayNames = {"Sun", "Mon", "Tue", "Wed",
                                                       "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> kMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::string_view kItemBreak = "</description></item>";

// Lines are separated, not ended, by CR LF.
class FeedLines {
  public:
    explicit FeedLines(std::string_view first) : text_(first) {}
    void Add(std::string_view line) {
        text_ += kLineEnd;
        text_ += line;
    }
    std::string& Text() { return text_; }

  private:
    std::string text_;
};

std::string TwoDigits(int value) {
    return std::string(1, char('0' + value / 10 % 10)) + char('0' + value % 10);
}

// "Sun, 02 Mar 2024": day name, day, month name, year.
std::string FeedDate(const LocalDateTime& date) {
    return std::string(kDayNames[DayOfWeek(date)]) + ", " + TwoDigits(date.day) + " " +
           std::string(kMonthNames[date.month - 1]) + " " + std::to_string(date.year);
}

void AddElementLine(FeedLines& lines, std::string_view element, std::string_view value) {
    lines.Add("<" + std::string(element) + ">" + std::string(value) + "</" + std::string(element) +
              ">");
}

void AddChannel(FeedLines& lines, const XmlNode& metadata, const ExportContext& context) {
    const RssExportSettings& rss = context.configuration.exportFormats.RSS;
    AddElementLine(lines, "title", rss.ChannelTitle);
    AddElementLine(lines, "link", rss.ChannelLink);
    AddElementLine(lines, "description", rss.ChannelDescription);
    const std::pair<std::string_view, const std::string&> optional[] = {
        {"language", rss.ChannelLanguage},   {"managingEditor", rss.ChannelManagingEditor},
        {"webMaster", rss.ChannelWebMaster}, {"category", rss.ChannelCategory},
        {"docs", rss.ChannelDocs},           {"ttl", rss.ChannelTTL}};
    for (const auto& [element, value] : optional) {
        if (!value.empty()) AddElementLine(lines, element, value);
    }
    if (!rss.ChannelImageURL.empty()) {
        lines.Add("<image><url>" + rss.ChannelImageURL + "</url>");
        AddElementLine(lines, "title", rss.ChannelTitle);
        lines.Add("<link>" + rss.ChannelLink + "</link></image>");
    }
    if (const XmlNode publication = metadata.SelectSingleNode("Publication")) {
        lines.Add("<copyright>Copyright " + std::to_string(context.now.year) + ", " +
                  publication.Text() + "</copyright>");
    }
    if (const XmlNode date = metadata.SelectSingleNode("PublicationDate")) {
        if (const auto parsed = ParseShortDate(date.Text()))
            lines.Add("<pubDate>" + FeedDate(*parsed) + " 00:00:01 UT</pubDate>");
    }
    lines.Add("<lastBuildDate>" + FeedDate(context.now) + " " +
              FormatTimeHourMinuteSecond(context.now) + " UT</lastBuildDate>");
    lines.Add("<generator>Tessarin " + context.programVersion + "</generator>");
}

// What the head boxes and the main box share: no superscript, the code page's references
// for the euro and oe signs, bold, italic and underline shown as text, tabs.
void ReplaceCommonMarkup(std::string& text) {
    static constexpr std::pair<std::string_view, std::string_view> kReplacements[] = {
        {"<sup>", ""},          {"</sup>", ""},       {"<euro/>", "&#128;"},  {"<oe/>", "&#156;"},
        {"<OE/>", "&#140;"},    {"<b>", "&lt;b&gt;"}, {"</b>", "&lt;/b&gt;"}, {"<i>", "&lt;i&gt;"},
        {"</i>", "&lt;/i&gt;"}, {"<u>", "&lt;u&gt;"}, {"</u>", "&lt;/u&gt;"}, {"<tab/>", "\t"}};
    for (const auto& [from, to] : kReplacements)
        ReplaceAllInText(text, from, to);
}

void ReplaceIntertitles(std::string& text, std::string_view opening, std::string_view closing) {
    for (const char level : {'1', '2', '3'}) {
        ReplaceAllInText(text, std::string("<inter") + level + ">", opening);
        ReplaceAllInText(text, std::string("</inter") + level + ">", closing);
    }
}

void AddHeadTitle(FeedLines& lines, const XmlNode& body) {
    std::string head;
    for (int index = 0; index <= 5; ++index) {
        const XmlNode box = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (!box) continue;
        std::string text = BoxMarkupWithoutFrame(box, index);
        ReplaceCommonMarkup(text);
        ReplaceIntertitles(text, "", "");
        head += text;
        head += kLineEnd;
    }
    head.resize(head.size() >= 2 ? head.size() - 2 : 0);
    ReplaceAllInText(head, "&lt;p/&gt;</title>", "</title>");
    ReplaceAllInText(head, "&lt;p/&gt;</description>", "</description>");
    if (!head.empty()) lines.Add("<item><title>" + head + "</title>");
}

// Each URL that starts a text ("http://") is moved out of its description into a link.
void MoveLinksOut(std::string& text) {
    constexpr std::string_view kDescriptionEnd = "</description>";
    for (std::size_t found = text.find("http://"); found != std::string::npos;
         found = text.find("http://", found + 27)) {
        const std::size_t end = text.find(kDescriptionEnd, found);
        std::string moved = text.substr(0, found) + "</description><link>";
        if (end != std::string::npos) {
            moved += text.substr(found, end - found) + "</link>" +
                     text.substr(end + kDescriptionEnd.size());
        } else {
            moved += text.substr(found) + "</link>";
        }
        text = std::move(moved);
    }
}

void AddItems(FeedLines& lines, const XmlNode& metadata, const XmlNode& body) {
    const XmlNode box = body.SelectSingleNode("TextBox6");
    std::string text = box ? BoxMarkupWithoutFrame(box, 6) : std::string();
    ReplaceCommonMarkup(text);
    ReplaceIntertitles(text, "</description></item><item><title>", "</title><description>");
    ReplaceAllInText(text, "<p/><p/>", "<p/>");
    ReplaceAllInText(text, "<p/></description>", "</description>");
    ReplaceAllInText(text, "<p/>", "&lt;p/&gt;");
    if (text.empty()) return;
    if (text.starts_with(kItemBreak)) {
        text.erase(0, kItemBreak.size());
    } else {
        text.insert(0, "<description>");
    }
    ReplaceAllInText(text, "&lt;p/&gt;</title>", "</title>");
    const std::string email = metadata.SelectSingleNode("Email").Text();
    if (!email.empty())
        ReplaceAllInText(text, "<description>", "<author>" + email + "</author><description>");
    MoveLinksOut(text);
    ReplaceAllInText(text, "&lt;p/&gt;</description>", "</description>");
    lines.Add(text.ends_with("</link>") ? text + "</item>" : text + std::string(kItemBreak));
}

}  // namespace

std::string ComposeRss(const XmlDocument& story, const ExportContext& context) {
    const XmlNode root = story.DocumentElement();
    const XmlNode metadata = root.SelectSingleNode("Metadata");
    const XmlNode body = root.SelectSingleNode("Body");
    FeedLines lines("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>");
    lines.Add("<rss version=\"2.0\">");
    lines.Add("<channel>");
    if (metadata) AddChannel(lines, metadata, context);
    if (body) {
        AddHeadTitle(lines, body);
        AddItems(lines, metadata, body);
    }
    lines.Add("</channel>");
    lines.Add("</rss>");
    return Utf8ToWindows1252(lines.Text());
}

void ExportRSS(ExportState& state, ExportMode mode, const ExportContext& context) {
    BeginExport(state, ExportWriter::RSS, mode, context);
    const std::optional<StagedStory> story =
        LoadStagedStoryOrShowError(state.SourceStoryPath, context);
    if (!story) return;
    StoreOriginalStoryPath(state, story->metadata);
    WriteExportedFile(state, ComposeRss(story->document, context));
    state.TargetDirectory = state.TargetPath;
}

}  // namespace tessarin
